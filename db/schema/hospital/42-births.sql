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
-- the babies of a delivery: where consultID='001000000001'
create index IX_hNewBabies_consultID on hNewBabies (consultID)
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
