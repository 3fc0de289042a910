-- The running account of each visit, and of the billing module's tables what is read or cleared here.

-- One row a charge. CoyName holds the client's retainID, BillTo its retainCode; conID is the row of hConsulting that
-- the line came from, null for fees. A line whose writer names no class of revenue counts as treatment. The billing
-- module sets attendedto, suppres and isbilled later.
create table billAccum (
    SNO int identity(1,1) not null primary key,
    dtDate date null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    drgName varchar(200) null,
    Category varchar(100) null,
    Price float null,
    Qty float null,
    SubTotal float null,
    usage varchar(200) null,
    billType varchar(50) null,
    BillTo varchar(20) null,
    CoyName varchar(20) null,
    conID int null,
    Capitated varchar(10) null,
    attendedto int not null default 0,
    suppres int not null default 0,
    isbilled int not null default 0,
    revType varchar(50) null default 'TREATMENT',
    RevClinic varchar(100) null,
    AppVersion int null
)
GO
-- select distinct * from qrybillAccumHome   where consultID='001000000001'; the lines of a kind of a visit
create index IX_billAccum_consultID on billAccum (consultID)
GO
-- update billaccum set consultID='001000000001' where pno = '000000001/001' and consultID = ''
create index IX_billAccum_PNo on billAccum (PNo, consultID)
GO
-- whether a prescribed item is charged already: where conid=17 and drgname='PARACETAMOL'
create index IX_billAccum_conID on billAccum (conID, drgName)
GO
-- The patient's statements of account; a higher ID is newer.
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
-- One row a bill that the lines of a visit were turned into; billNo is the visit's consultID.
create table hBilling (
    billNo varchar(20) not null primary key,
    billDate date null,
    PNo varchar(20) null,
    CoyName varchar(20) null
)
GO
create table BillingDetails (
    SNo int identity(1,1) not null primary key,
    billNo varchar(20) null,
    revType varchar(50) null,
    drgName varchar(200) null,
    Amount money null
)
GO
-- delete from BillingDetails where revType = 'IMMUNIZATION' and billNo = '001000000001'
create index IX_BillingDetails_billNo on BillingDetails (billNo)
GO
-- BillNo is the visit's consultID, PaymentFor holds the word DEPOSIT for one.
create table Payments (
    SNo int identity(1,1) not null primary key,
    BillNo varchar(20) null,
    PNo varchar(20) null,
    payDate date null,
    AmountPaid money null,
    PaymentFor varchar(200) null
)
GO
-- select AmountPaid from Payments where BillNo ='001000000001' and PaymentFor like '%DEPOSIT%'
create index IX_Payments_BillNo on Payments (BillNo)
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

-- The same rows, under the name that the billing module reads.
create view qryBillingBalanceDueForPrivate as
select PNo, fullname, PhoneNo, BillNo, Balance from qryhBillingBalance
GO

-- One row a line of a visit's account; SNO keeps two equal lines apart.
create view qrybillAccumHome as
select SNO, dtDate, PNo, consultID, drgName as service, Category, Price as UnitPrice, Qty, SubTotal, usage, Capitated,
    billType, BillTo, CoyName
from billAccum
GO

-- One row a visit: what was charged, what of it stands on the bill, what was paid.
create view vwbillInfo as
select r.consultID,
    isnull((select sum(a.SubTotal) from billAccum a where a.consultID = r.consultID), 0) as amountGen,
    isnull((select sum(d.Amount) from BillingDetails d where d.billNo = r.consultID), 0) as AmountBilled,
    isnull((select sum(p.AmountPaid) from Payments p where p.BillNo = r.consultID), 0) as AmountPaid
from hRecords r
GO
