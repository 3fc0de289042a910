-- The patients, and the last word on what each owes.

-- CoyName holds the client's retainID. AdmissionDaysLimit is a number of hours.
create table hPatients (
    PNo varchar(20) not null primary key,
    OldPNo varchar(50) null,
    Title varchar(20) null,
    psurname varchar(50) not null default '',
    pfirstName varchar(50) not null default '',
    homeAddress varchar(250) null,
    Area varchar(100) null,
    officeAddress varchar(250) null,
    pPhoneNo varchar(50) null,
    DOB date null,
    Email varchar(100) null,
    sex varchar(10) null,
    Maturity varchar(20) null,
    ref varchar(10) null,
    HMORef varchar(10) null,
    clientCatID varchar(50) null,
    coyType varchar(50) null,
    CoyName varchar(20) null,
    empNo varchar(50) null,
    introducedby varchar(100) null,
    PolicyType varchar(100) null,
    CardType varchar(20) null,
    fileduration varchar(20) null,
    regDate date null,
    expirydate date null,
    MStatus varchar(20) null,
    bloodGroup varchar(10) null,
    genotype varchar(10) null,
    occupation varchar(100) null,
    religion varchar(50) null,
    nextOfKin varchar(100) null,
    NOKPhone varchar(50) null,
    relationToKin varchar(50) null,
    kinAddress varchar(250) null,
    AdmissionDaysLimit int null,
    Principal varchar(20) null,
    pCatID varchar(20) null,
    username varchar(50) null,
    NewReg varchar(10) null,
    Debt money null,
    DebtBF money null,
    patPix varbinary(max) null,
    expired bit not null default 0,
    LastPurpose varchar(100) null,
    LastClinicVisited varchar(100) null,
    LastAttndDate date null,
    LastConsultID varchar(20) null,
    isRev bit not null default 0,
    ANCInfo varchar(max) null
)
GO
-- a patient by the number on the card: where oldPno='A/1204'
create index IX_hPatients_OldPNo on hPatients (OldPNo)
GO
-- lists in the order of names: order by psurname, pfirstName
create index IX_hPatients_name on hPatients (psurname, pfirstName)
GO
-- the day's registrations: where regDate='24-Nov-2026'
create index IX_hPatients_regDate on hPatients (regDate)
GO
-- the patients of a client: where CoyName='0001'
create index IX_hPatients_CoyName on hPatients (CoyName)
GO

-- Bills are the billing module's; a higher ID is newer.
create table Billing (
    ID int identity(1,1) not null primary key,
    PNo varchar(20) null,
    ClientID varchar(20) null,
    AmountBilled money null,
    DebtBF money null,
    Discount money null,
    AmountPaid money null
)
GO
-- select top 1 ClientID, ... as Balance from Billing where PNo='000000001/001' order by ID desc
create index IX_Billing_PNo on Billing (PNo, ID)
GO

-- One row a private patient whose last bill leaves a balance to be paid.
create view qryhBillingBalance as
select p.PNo, p.psurname + ' ' + p.pfirstName as fullname, p.pPhoneNo as PhoneNo, b.ID as BillNo,
    (isnull(b.AmountBilled, 0) + isnull(b.DebtBF, 0)) - (isnull(b.Discount, 0) + isnull(b.AmountPaid, 0)) as Balance
from Billing b
inner join hPatients p on p.PNo = b.PNo
inner join AppDefaults d on d.ID = 'PRIVATE' and d.idval = b.ClientID
where b.ID = (select max(l.ID) from Billing l where l.PNo = b.PNo)
    and (isnull(b.AmountBilled, 0) + isnull(b.DebtBF, 0)) - (isnull(b.Discount, 0) + isnull(b.AmountPaid, 0)) > 0
GO
