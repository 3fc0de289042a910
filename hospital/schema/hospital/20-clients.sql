-- Who pays: companies, health-maintenance organisations, the schemes, and the private client.

create table hRetainership (
    retainID varchar(20) not null primary key,
    retainName varchar(100) not null,
    retainCode varchar(20) null,
    RetainDate date null,
    Contact varchar(100) null,
    Address varchar(200) null,
    PhoneNo varchar(50) null,
    Email varchar(100) null,
    ClientType varchar(50) null,
    clientcatID varchar(50) null,
    RegAmount money null,
    ConAmount money null,
    CardRenewAmount money null
)
GO
-- the client of a report panel: where retainCode='AXM'
create index IX_hRetainership_retainCode on hRetainership (retainCode)
GO
-- The billing categories: one row each. pvalue is the part added to a cost, 0.25 for a quarter more.
create table billingPrice (
    clientcatID varchar(50) not null primary key,
    clientType varchar(50) null,
    pcent float null,
    pvalue float null
)
GO
-- The insurance plans of a client. CoyCode is the client's retainID, Limit 0 stands for no limit.
create table HmoPlan (
    SNo int identity(1,1) not null primary key,
    PlanID as SNo,
    planName varchar(100) null,
    CoyCode varchar(20) null,
    Remarks varchar(200) null,
    Limit money null,
    LimitPeriod varchar(20) null
)
GO
-- ... from vwhmoPlan where retainID='0002'  order by PlanName
create index IX_HmoPlan_CoyCode on HmoPlan (CoyCode)
GO
-- What a client pays for a screening; coycode is its retainID.
create table hScreeningAmount (
    coycode varchar(20) not null primary key,
    Amount money null
)
GO
-- The clients that the billing module leaves out of its price rules.
create table hretainershipExempt (
    retainID varchar(20) not null primary key
)
GO

-- One row a client, the private one among them.
create view vwhRetainerShip as
select c.retainID as RetainID, c.retainName as ClientName
from hRetainership c
GO

-- One row a plan; CoyCode and retainID are the same key.
create view vwHMOPlan as
select h.SNo, h.CoyCode, c.retainName as Company, h.planName as PlanName, h.Limit, h.LimitPeriod, h.Remarks, h.PlanID,
    h.CoyCode as retainID
from HmoPlan h
left join hRetainership c on c.retainID = h.CoyCode
GO
