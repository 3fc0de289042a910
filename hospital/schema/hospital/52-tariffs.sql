-- What things cost: the lists of items, and the tariff of each client in three templates (drugs, tests, services).

-- The hospital's own prices, one row an item and tariff group; Remarks names the group: "PRIVATE", "NHIS", "MTHLY",
-- "3MTHLY", "6MTHLY", "CBN", "NEPA", "HMO". Named fees ("INJECTION_FEE") stand here too, in the group "PRIVATE".
create table drugs (
    ID int identity(1,1) not null primary key,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    pharmCat varchar(100) null,
    qtyPerUnit varchar(50) null,
    Cost money null,
    NHIScost money null,
    Remarks varchar(50) null,
    Capitated varchar(10) null
)
GO
-- select distinct  * from drugs where drgname ='PARACETAMOL'; select cost from qryhdrugPrice where drgname='PHARM_FEE'
create index IX_drugs_drgName on drugs (drgName)
GO
-- The items that a new template of each kind starts with. All three name them by drgName and drgCatName; hServices
-- repeats there its own service and Category.
create table DrugMaster (
    drgName varchar(200) not null primary key,
    drgCatName varchar(100) null,
    pharmCat varchar(100) null,
    Capitated varchar(10) null
)
GO
create table labservices (
    drgname varchar(200) not null primary key,
    drgCatName varchar(100) null,
    pharmCat varchar(100) null,
    Capitated varchar(10) null
)
GO
create table hServices (
    service varchar(200) not null primary key,
    Category varchar(100) null,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    pharmCat varchar(100) null,
    Capitated varchar(10) null
)
GO
create table drugcategories (
    drgCatname varchar(100) not null primary key,
    deptbillcenter varchar(50) null
)
GO
create table labserviceCat (
    category varchar(100) not null primary key
)
GO
create table HserviceCat (
    catName varchar(100) not null primary key
)
GO
-- The templates. Company is the key of a tariff: a retainID, or "NHIS" for all patients of that scheme; CoyName is the
-- client's name as it was when the row was made, Remarks the kind of client.
create table DrugNHIS (
    SNo int identity(1,1) not null primary key,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    Price float null,
    Company varchar(20) null,
    pharmCat varchar(100) null,
    Remarks varchar(50) null,
    CoyName varchar(100) null,
    Capitated varchar(10) null,
    tariffStatus varchar(20) null
)
GO
-- select distinct  * from vwDrugNHIS where Drug ='PARACETAMOL' and  coyID='0001'; delete ... where Company='0001'
create index IX_DrugNHIS_Company on DrugNHIS (Company, drgName)
GO
create table LabServiceNHIS (
    SNo int identity(1,1) not null primary key,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    Price float null,
    Company varchar(20) null,
    pharmCat varchar(100) null,
    Remarks varchar(50) null,
    CoyName varchar(100) null,
    Capitated varchar(10) null,
    tariffStatus varchar(20) null
)
GO
-- select distinct  * from vwLabServiceNHIS where LabItem ='FBC'and coyID='0001'; delete ... where Company='0001'
create index IX_LabServiceNHIS_Company on LabServiceNHIS (Company, drgName)
GO
create table hServiceNHIS (
    SNo int identity(1,1) not null primary key,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    Price float null,
    Company varchar(20) null,
    pharmCat varchar(100) null,
    Remarks varchar(50) null,
    CoyName varchar(100) null,
    Capitated varchar(10) null,
    tariffStatus varchar(20) null
)
GO
-- select distinct  * from vwServiceNHIS where service ='DRESSING'   and coyID='0001'; delete ... where Company='0001'
create index IX_hServiceNHIS_Company on hServiceNHIS (Company, drgName)
GO
-- The register of templates of all three kinds ("DRUG", "LAB", "SERVICE"). useTariff is the key of the template that
-- this one follows at the factor Pcent, or its own key at 1.
create table DrugNHISListEntered (
    CoyID varchar(20) not null,
    Type varchar(20) not null,
    remarks varchar(50) null,
    useTariff varchar(20) null,
    Pcent float null
)
GO
-- whether a client has one: where CoyID='0001' and type ='DRUG'. A template whose rows are gone can be built anew, so
-- that a client may stand here more than once.
create index IX_DrugNHISListEntered_CoyID on DrugNHISListEntered (CoyID, Type)
GO
-- the templates that follow one: where type='DRUG' and useTariff='0001'
create index IX_DrugNHISListEntered_useTariff on DrugNHISListEntered (useTariff, Type)
GO

-- One row a drug of a client's tariff.
create view vwDrugNHIS as
select t.SNo as SNO, t.drgName as Drug, t.Company as coyID, t.drgCatName as Category, t.Price, t.Capitated,
    t.tariffStatus as TariffStatus, isnull(c.retainName, t.Company) as Company, t.pharmCat as PharmCat, s.UnitsInStock,
    (select max(d.qtyPerUnit) from drugs d where d.drgName = t.drgName) as [Qty/Unit]
from DrugNHIS t
left join hRetainership c on c.retainID = t.Company
left join stockItemsRetail s on s.itemID = t.drgName
GO

-- One row a laboratory test of a client's tariff.
create view vwLabServiceNHIS as
select t.SNo as SNO, t.drgName as LabItem, t.Company as coyID, t.drgCatName as Category, t.Price, t.Capitated,
    t.tariffStatus, isnull(c.retainName, t.Company) as Company, t.Remarks
from LabServiceNHIS t
left join hRetainership c on c.retainID = t.Company
GO

-- One row a service of a client's tariff.
create view vwServiceNHIS as
select t.SNo as SNO, t.drgName as service, t.Company as coyID, t.drgCatName as Category, t.Price, t.Capitated,
    t.tariffStatus, isnull(c.retainName, t.Company) as Company, t.Remarks
from hServiceNHIS t
left join hRetainership c on c.retainID = t.Company
GO

-- One row a named fee or item with the hospital's own cost.
create view qryhdrugPrice as
select drgName as drgname, Cost as cost from drugs where Remarks = 'PRIVATE'
GO

-- One row an item with its price in each tariff group, found by the item's row of the group "PRIVATE".
create view vwDrugsForGrid as
select p.drgName as Drug, p.drgCatName as Category, p.qtyPerUnit as [qty/Unit], p.Cost as PRIVATE,
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = 'NHIS') as NHIS,
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = 'MTHLY') as Mthly,
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = '3MTHLY') as [3Mthly],
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = '6MTHLY') as [6Mthly],
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = 'CBN') as CBN,
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = 'NEPA') as NEPA,
    (select max(d.Cost) from drugs d where d.drgName = p.drgName and d.Remarks = 'HMO') as HMO
from drugs p
where p.Remarks = 'PRIVATE'
GO

-- One row an item that the wards charge, with its price in each tariff group.
create view vwAdmissionServiceForGrid as
select g.Drug, g.Category, g.[qty/Unit], g.PRIVATE, g.NHIS, g.Mthly, g.[3Mthly], g.[6Mthly], g.CBN, g.NEPA, g.HMO
from vwDrugsForGrid g
inner join drugcategories c on c.drgCatname = g.Category
where c.deptbillcenter = 'ADMISSION'
GO

-- One row an item that the wards charge.
create view qryhAdmissionService as
select p.drgName, p.drgCatName, p.qtyPerUnit
from drugs p
inner join drugcategories c on c.drgCatname = p.drgCatName
where p.Remarks = 'PRIVATE' and c.deptbillcenter = 'ADMISSION'
GO

-- One row a laboratory test.
create view vwLabItemsForGrid as
select drgname as labItem, drgCatName as category from labservices
GO

-- One row a service.
create view qryhServices as
select service, Category from hServices
GO

-- One row a client that can have a template. All clients of the scheme NHIS share one, whose key is the category.
create view vwCoyAndNhis as
select 'NHIS' as company, 'NHIS' as coyID, 'NHIS' as Remarks
union all
select retainName, retainID, ClientType from hRetainership where isnull(clientcatID, '') <> 'NHIS'
GO

-- One row a template.
create view vwDrugNHISListEntered as
select distinct isnull(c.retainName, e.CoyID) as coyname, e.CoyID as coyID, e.Type as type
from DrugNHISListEntered e
left join hRetainership c on c.retainID = e.CoyID
GO

-- One row a template with the template that it follows.
create view vwhRetainershipUseTariff as
select isnull(c.retainName, e.useTariff) as UseName, e.useTariff as UseTariff, e.Pcent as pcent, e.Type as type,
    e.CoyID as coyID
from DrugNHISListEntered e
left join hRetainership c on c.retainID = e.useTariff
GO
