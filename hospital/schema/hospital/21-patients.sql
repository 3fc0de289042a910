-- The patients, their cards and clinics, and the patients that were deleted.

-- CoyName holds the client's retainID, introducedby and username an empID, Principal the PNo of the one who is insured.
-- AdmissionDaysLimit is a number of hours.
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
    fileduration varchar(50) null,
    regDate date null,
    expirydate date null,
    MStatus varchar(20) null,
    bloodGroup varchar(20) null,
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
-- select  * from vwhpatients where oldPno = 'A/1204'  order by fullname
create index IX_hPatients_OldPNo on hPatients (OldPNo)
GO
-- who is registered twice: where psurname = 'ADEWALE'; lists in the order of names
create index IX_hPatients_name on hPatients (psurname, pfirstName)
GO
-- select  * from vwhpatients where RegDate='24-Nov-2026' order by fullname
create index IX_hPatients_regDate on hPatients (regDate)
GO

-- Deleted patients: the columns of hPatients in the same order, since rows come by "insert into hpatientsArchive
-- select * from hpatients ...". A number may be given out again, so nothing is unique here.
create table hpatientsArchive (
    PNo varchar(20) not null,
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
    fileduration varchar(50) null,
    regDate date null,
    expirydate date null,
    MStatus varchar(20) null,
    bloodGroup varchar(20) null,
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
create table hPatientArea (
    AreaName varchar(100) not null primary key
)
GO
-- The clinics that a patient is registered in.
create table hPatientClinics (
    PNo varchar(20) not null,
    Clinic varchar(100) not null,
    regDate date null,
    Remarks varchar(100) null,
    expireDate date null,
    Active int not null default 1,
    primary key (PNo, Clinic)
)
GO
-- One row a renewal: the card's number as it stood and the year in which it ran out.
create table hPatientsOldCardNoHist (
    SNo int identity(1,1) not null primary key,
    PNo varchar(20) null,
    OldCardNo varchar(50) null,
    CardYear int null
)
GO

-- One row a patient; coyname is the client's retainID, Client its name.
create view vwhpatients as
select p.psurname + ' ' + p.pfirstName as FullName, p.AdmissionDaysLimit, p.Title as title, p.PNo as pno,
    p.OldPNo as oldPno, p.regDate, p.psurname as Surname, p.pfirstName as Firstname, p.homeAddress, p.Area,
    p.officeAddress as OfficeAddress, p.pPhoneNo as PhoneNo, p.DOB, p.CoyName as coyname, c.retainName as Client,
    p.Email as email, p.sex as Sex, p.clientCatID as BillingCat, p.pCatID as patcat, p.empNo,
    p.introducedby as introducedBy, p.CardType, p.MStatus as Marital, p.bloodGroup, p.genotype, p.occupation,
    p.religion, p.nextOfKin, p.NOKPhone as nokPhone, p.relationToKin, p.kinAddress, p.fileduration as fileDuration,
    p.Maturity, p.ref, p.HMORef as HmoRef, p.expirydate as ExpiryDate, p.NewReg as newReg, p.PolicyType as policyType,
    p.LastAttndDate, p.coyType, p.expired
from hPatients p
left join hRetainership c on c.retainID = p.CoyName
GO

-- One row a private patient whose card has run out; numval is the number of days since, null without a date.
create view qryhCardExpiredForPrivate as
select datediff(day, p.expirydate, getdate()) as numval, p.psurname + ' ' + p.pfirstName as fullName, p.pCatID, p.PNo,
    p.regDate, p.expirydate, p.fileduration, p.OldPNo
from hPatients p
inner join AppDefaults d on d.ID = 'PRIVATE' and d.idval = p.CoyName
where p.expirydate <= cast(getdate() as date) or (p.expirydate is null and p.expired = 1)
GO

-- One row a patient that was registered as new; UserName is the empID of the one who did it.
create view qryhNewReg as
select p.psurname + ' ' + p.pfirstName as Fullname, p.PNo, p.patPix as PatPix, p.username as UserName
from hPatients p
where p.NewReg = 'YES'
GO
