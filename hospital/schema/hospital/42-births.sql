-- Pregnancies registered at the antenatal clinic, and the babies born here.

-- dtFAttd is the first attendance, dtEdd the expected date of delivery. isdelvd is set by hand, isdelv by the delivery.
create table hAntenatalReg (
    SNo int identity(1,1) not null primary key,
    ANCRegNo varchar(50) null,
    PNo varchar(20) null,
    dtFAttd date null,
    ShoeSize varchar(100) null,
    isdelvd varchar(10) not null default 'NO',
    isdelv varchar(10) not null default 'NO',
    AssessKahn varchar(200) null,
    AssessGenotype varchar(200) null,
    PelvicScan varchar(200) null,
    Rhesus varchar(200) null,
    SpecificTT varchar(200) null,
    PMHHeart varchar(200) null,
    PMHChest varchar(200) null,
    PMHKidney varchar(200) null,
    PMHBlood varchar(200) null,
    PMHOthers varchar(200) null,
    MHOnset varchar(200) null,
    MHDuration varchar(200) null,
    MHAmount varchar(200) null,
    Cycle varchar(200) null,
    LMP varchar(200) null,
    dtEdd date null,
    HusbName varchar(200) null,
    HusbOccu varchar(200) null,
    HusbOffice varchar(200) null,
    HusbPhone varchar(200) null,
    FHMultipreg varchar(200) null,
    FHHyper varchar(200) null,
    FHDiabetes varchar(200) null,
    FHTuber varchar(200) null,
    FHHeart varchar(200) null,
    FHOthers varchar(200) null,
    PEGenCond varchar(200) null,
    PEResp varchar(200) null,
    PECardio varchar(200) null,
    PEAbdomen varchar(200) null,
    PEVagina varchar(200) null,
    PEOthers varchar(200) null,
    PEComments varchar(200) null,
    PEOedema varchar(200) null,
    PEAnaemia varchar(200) null,
    PESpleen varchar(200) null,
    PELiver varchar(200) null,
    PEExaminer varchar(200) null,
    PESpecial varchar(200) null,
    PEHt varchar(200) null,
    PEBP varchar(200) null,
    PEWt varchar(200) null,
    PEUrine varchar(200) null,
    PEBreast varchar(200) null,
    PEScan varchar(200) null,
    PEHB varchar(200) null,
    PEGenotype varchar(200) null,
    PEkahn varchar(200) null,
    PEABO varchar(200) null,
    PEChest varchar(200) null,
    PEWR varchar(200) null,
    HPPBleed varchar(200) null,
    HPPDisch varchar(200) null,
    HPPurinary varchar(200) null,
    HPPSwell varchar(200) null,
    HPPOthers varchar(200) null,
    DelvSumm varchar(200) null,
    PrevPregParity varchar(200) null,
    PrevPregAbortion varchar(200) null,
    PrevPregnumAlive varchar(200) null
)
GO
-- ... where ANCRegNo='ANC/26/014'
create index IX_hAntenatalReg_ANCRegNo on hAntenatalReg (ANCRegNo)
GO
-- the pregnancies of a patient: where PNo='000000001/001'
create index IX_hAntenatalReg_PNo on hAntenatalReg (PNo)
GO
-- select * from qryhEDD
create index IX_hAntenatalReg_dtEdd on hAntenatalReg (dtEdd)
GO
-- ... from vwhAntenatalReg where dtFAttd Between ...; all that a month's count (mth ='11' and yr ='2026') reads
create index IX_hAntenatalReg_dtFAttd on hAntenatalReg (dtFAttd, PNo, ANCRegNo)
GO
-- Earlier births of a patient; every save of the booking form writes her whole history anew.
create table hAncObsteHist (
    sno int identity(1,1) not null primary key,
    ANCRegNo varchar(50) null,
    PNo varchar(20) null,
    dtdelv date null,
    gestAge varchar(200) null,
    delvMode varchar(200) null,
    wtAtBirth varchar(50) null,
    sex varchar(10) null,
    compAtBirth varchar(200) null,
    Alive varchar(200) null,
    hosp varchar(200) null
)
GO
-- delete from hAncObsteHist where PNo = '000000001/001'; ... where PNo='000000001/001' order by dtdelv asc
create index IX_hAncObsteHist_PNo on hAncObsteHist (PNo)
GO
-- Antenatal visits, kept by the consulting module; a delivery marks those of its visit.
create table hAnteNatal (
    SNo int identity(1,1) not null primary key,
    ConsultID varchar(20) null,
    PNo varchar(20) null,
    isdelv varchar(10) not null default 'NO'
)
GO
-- Update hAnteNatal set isdelv = 'YES' where ConsultID = '001000000001'
create index IX_hAnteNatal_ConsultID on hAnteNatal (ConsultID)
GO
-- delvDate is the day of birth, EntryDate the day of the entry; NameOfDoctor is an empID; Wt in kg, lengths in cm.
create table hDelivery (
    SNO int identity(1,1) not null primary key,
    delvDate date null,
    TOB time(0) null,
    consultID varchar(20) null,
    sex varchar(10) null,
    Method varchar(20) null,
    NameOfDoctor varchar(20) null,
    NameOfNurse varchar(200) null,
    Remarks varchar(max) null,
    DelvOutcome varchar(20) null,
    Wt varchar(20) null,
    BirthLength varchar(20) null,
    ApgarScore varchar(50) null,
    HeadCircumference varchar(20) null,
    RBS varchar(50) null,
    InjectionTaken varchar(max) null,
    ImmunizationDone varchar(max) null,
    EntryDate date null default getdate()
)
GO
-- select * from hDelivery where consultID ='001000000001'
create index IX_hDelivery_consultID on hDelivery (consultID)
GO
-- ... from vwHDelivery where EntryDate = '24-Nov-2026'
create index IX_hDelivery_EntryDate on hDelivery (EntryDate)
GO
-- select * from vwHDelivery where delvDate Between '1-Nov-2026' And '24-Nov-2026' order by Fullname
create index IX_hDelivery_delvDate on hDelivery (delvDate)
GO
-- IncidentType is one of the names that the report panel asks for: not delivered here, referred, miscarriage or IUFD.
create table hAntenatalIncidents (
    SNo int identity(1,1) not null primary key,
    IncDate date null,
    IncidentType varchar(100) null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    ANCRegNo varchar(50) null,
    Remarks varchar(max) null,
    empID varchar(20) null
)
GO
-- select * from vwhAntenatalIncidents where IncidentType='Referred Cases' and IncDate Between '1-Nov-2026' And ...
create index IX_hAntenatalIncidents_IncidentType on hAntenatalIncidents (IncidentType, IncDate)
GO
-- PNo and consultID are the mother's; DischDate is null while the baby is here.
create table hNewBabies (
    SNo int identity(1,1) not null primary key,
    bdate date null,
    btime time(0) null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    fullname varchar(100) null,
    sex varchar(10) null,
    height varchar(20) null,
    weight varchar(20) null,
    wardID varchar(50) null,
    DischDate date null
)
GO
-- select * from qryhNewBabies where bdate='24-Nov-2026'
create index IX_hNewBabies_bdate on hNewBabies (bdate)
GO
-- select * from qryhBabyDischarge: the babies still here
create index IX_hNewBabies_DischDate on hNewBabies (DischDate, bdate)
GO

-- One row a registered pregnancy; mth and yr are the month and year of the first attendance, as numbers.
create view vwhAntenatalReg as
select
    r.SNo, r.ANCRegNo, r.PNo, r.dtFAttd, r.ShoeSize, r.isdelvd, r.isdelv, r.AssessKahn, r.AssessGenotype,
    r.PelvicScan, r.Rhesus, r.SpecificTT, r.PMHHeart, r.PMHChest, r.PMHKidney, r.PMHBlood, r.PMHOthers, r.MHOnset,
    r.MHDuration, r.MHAmount, r.Cycle, r.LMP, r.dtEdd, r.HusbName, r.HusbOccu, r.HusbOffice, r.HusbPhone,
    r.FHMultipreg, r.FHHyper, r.FHDiabetes, r.FHTuber, r.FHHeart, r.FHOthers, r.PEGenCond, r.PEResp, r.PECardio,
    r.PEAbdomen, r.PEVagina, r.PEOthers, r.PEComments, r.PEOedema, r.PEAnaemia, r.PESpleen, r.PELiver, r.PEExaminer,
    r.PESpecial, r.PEHt, r.PEBP, r.PEWt, r.PEUrine, r.PEBreast, r.PEScan, r.PEHB, r.PEGenotype, r.PEkahn, r.PEABO,
    r.PEChest, r.PEWR, r.HPPBleed, r.HPPDisch, r.HPPurinary, r.HPPSwell, r.HPPOthers, r.DelvSumm, r.PrevPregParity,
    r.PrevPregAbortion, r.PrevPregnumAlive,
    p.psurname + ' ' + p.pfirstName as FullName, month(r.dtFAttd) as mth, year(r.dtFAttd) as yr
from hAntenatalReg r
inner join hPatients p on p.PNo = r.PNo
GO

-- One row a birth, under the mother's name; DOB and DelvDate are the same day.
create view vwHDelivery as
select d.SNO, p.psurname + ' ' + p.pfirstName as FullName, d.delvDate as DOB, d.delvDate as DelvDate, d.TOB,
    d.ApgarScore as [AS], d.Wt, d.BirthLength as BL, d.HeadCircumference as HC, d.RBS, d.InjectionTaken as Injections,
    d.ImmunizationDone as Immunizations, d.consultID as ConsultID, d.sex as Sex, d.Method, d.DelvOutcome,
    d.NameOfDoctor as DocID, e.lastname + ' ' + e.firstname as Doctor, d.NameOfNurse, d.Remarks, d.EntryDate,
    r.PNo
from hDelivery d
inner join hRecords r on r.consultID = d.consultID
inner join hPatients p on p.PNo = r.PNo
left join employees e on e.empID = d.NameOfDoctor
GO

-- One row a pregnancy that did not end with a birth here; Age in whole years.
create view vwhAntenatalIncidents as
select i.SNo, i.IncidentType, i.IncDate, p.psurname + ' ' + p.pfirstName as Fullname, i.PNo, i.consultID as ConsultID,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.sex as Sex, i.ANCRegNo, i.Remarks, e.lastname + ' ' + e.firstname as EmpName
from hAntenatalIncidents i
inner join hPatients p on p.PNo = i.PNo
left join employees e on e.empID = i.empID
GO

-- One row a pregnancy that is not delivered and whose expected date is a week away or nearer.
create view qryhEDD as
select r.ANCRegNo, r.PNo, p.psurname + ' ' + p.pfirstName as fullname, p.pPhoneNo as PhoneNo, r.dtEdd
from hAntenatalReg r
inner join hPatients p on p.PNo = r.PNo
where r.dtEdd <= dateadd(day, 7, cast(getdate() as date)) and r.isdelvd <> 'YES' and r.isdelv <> 'YES'
GO

-- One row a baby that was born before today and is still here.
create view qryhBabyDischarge as
select b.bdate, b.btime, b.fullname, b.sex, b.wardID, b.consultID, b.PNo
from hNewBabies b
where b.DischDate is null and b.bdate < cast(getdate() as date)
GO

-- One row a baby born here.
create view qryhNewBabies as
select b.bdate, b.btime, b.fullname, b.height, b.weight, b.wardID
from hNewBabies b
GO
