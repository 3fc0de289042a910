-- Treatments by nurses: injections, dressings, immunizations and dialysis.

-- The out-patients' chart, one row an item to give: dosage is its usage, numtaken the doses given so far, injTime the
-- time of the last. attendedto is 1 when all are given. conID is the row of hConsulting that prescribes it.
create table hInjAndDressing (
    ID int identity(1,1) not null primary key,
    conID int null,
    consultID varchar(20) null,
    PNo varchar(20) null,
    injdate date null,
    injTime time(0) null,
    numOfTimes int null,
    numtaken int not null default 0,
    injname varchar(200) null,
    dosage varchar(max) null,
    clientCat varchar(50) null,
    drgCatName varchar(100) null,
    attendedto int not null default 0
)
GO
-- ... FROM qryhConsultingPatientsForInjection   order by psurname: the open items alone
create index IX_hInjAndDressing_attendedto on hInjAndDressing (attendedto, PNo)
GO
-- select * from qryhConsultingPatientsForInjection where conID='1'
create index IX_hInjAndDressing_conID on hInjAndDressing (conID)
GO
-- select * from hInjAndDressing where consultID ='001000000001' and pno = ... and injname=...
create index IX_hInjAndDressing_consultID on hInjAndDressing (consultID)
GO
-- Doses given to out-patients; injBy is an empID.
create table hinjections (
    SNo int identity(1,1) not null primary key,
    dtDate date null,
    PNo varchar(20) null,
    injname varchar(200) null,
    injBy varchar(20) null,
    injTime time(0) null,
    consultID varchar(20) null
)
GO
-- select distinct  * from qryhInjections where consultID ='001000000001'
create index IX_hinjections_consultID on hinjections (consultID)
GO
-- Dressings done; dressedBy is an empID.
create table hdressings (
    SNo int identity(1,1) not null primary key,
    drDate date null,
    PNo varchar(20) null,
    drname varchar(200) null,
    dressedBy varchar(20) null,
    consultID varchar(20) null,
    clientCat varchar(50) null
)
GO
-- select * from qryhDressings where consultID ='001000000001'
create index IX_hdressings_consultID on hdressings (consultID)
GO
-- A child's immunization visit: IMMUNIZATION holds the names of the items given, joined with commas, AgeValue the age
-- in words, ImmType the vaccine of the next appointment.
create table hImmunization (
    ID int identity(1,1) not null primary key,
    ImDate date null,
    PNo varchar(20) null,
    empID varchar(20) null,
    Remarks varchar(max) null,
    imTime time(0) null,
    AgeValue varchar(50) null,
    IMMUNIZATION varchar(max) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    NextApptDate date null,
    NextApptTime time(0) null,
    ImmType varchar(200) null
)
GO
-- ... from vwhImmunization where imDate ='24-Nov-2026'; ... where ImDate between ...
create index IX_hImmunization_ImDate on hImmunization (ImDate)
GO
-- ... from vwhImmunization where pno ='000000001/001'
create index IX_hImmunization_PNo on hImmunization (PNo)
GO
-- delete from hImmunization  where consultID = '001000000001'
create index IX_hImmunization_consultID on hImmunization (consultID)
GO
-- The schedule by which children are immunized, in its order: of the demonstration hospital, the routine schedule of
-- Nigeria's National Primary Health Care Development Agency. Vaccine is an item's name as hImmunization holds it, DueAge
-- the age at which it is due, counted in DueUnit (WEEKS, MONTHS, YEARS), Sex whom alone it is for, null for all; Source
-- names the schedule.
create table hImmunizationSchedule (
    SNo int identity(1,1) not null primary key,
    Vaccine varchar(200) not null,
    DueAge int not null,
    DueUnit varchar(10) not null,
    Sex varchar(10) null,
    Source varchar(200) null
)
GO
-- Dialysis sessions: DialNo is the session's number, ConnectedBy an empID; weights in kg.
create table hDialysis (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    DialNo varchar(20) null,
    diaDate date null,
    diagnosis varchar(max) null,
    ConnectionTime time(0) null,
    DisconnectionTime time(0) null,
    PreDialAssess varchar(max) null,
    PostDialAssess varchar(max) null,
    hiv varchar(50) null,
    HBsAg varchar(50) null,
    pcv varchar(50) null,
    BloodGP varchar(50) null,
    ClottingTime time(0) null,
    MachineType varchar(100) null,
    DialyserType varchar(100) null,
    ConcType varchar(100) null,
    Duration varchar(50) null,
    AccessRoute varchar(100) null,
    ReqdWtLoss varchar(50) null,
    TMP varchar(50) null,
    UFR varchar(50) null,
    BFR varchar(50) null,
    Heparin varchar(100) null,
    InfusionsDrug varchar(max) null,
    BloodTransfusion varchar(200) null,
    ConnectedBy varchar(20) null,
    CurrentWt float null,
    DryWt float null,
    PrevPostDialWt float null,
    wtGain float null,
    PostDialWt float null,
    WtLoss float null
)
GO
-- ... from vwhdialysis where  Date ='24-Nov-2026'; ... where Date  between ...
create index IX_hDialysis_diaDate on hDialysis (diaDate)
GO
-- the sessions of a patient, through the visits: ... from vwhDialysis where PNo='000000001/001'  order by  SNO desc
create index IX_hDialysis_consultID on hDialysis (consultID)
GO
-- The observations of a session; snoID is its hDialysis.SNo, every reading the text that was typed.
create table hDialysisDetails (
    ID int identity(1,1) not null primary key,
    snoID int null,
    consultID varchar(20) null,
    DialTime time(0) null,
    Bp varchar(50) null,
    pulse varchar(50) null,
    BFR varchar(50) null,
    UFR varchar(50) null,
    NP varchar(50) null,
    VP varchar(50) null,
    IVF varchar(50) null,
    HEPperHR varchar(50) null,
    Remarks varchar(max) null
)
GO
-- Delete From hDialysisDetails where SNoID=1
create index IX_hDialysisDetails_snoID on hDialysisDetails (snoID)
GO
-- The laboratory values before (DialType PRE) and after (POST) a session: ions in meq/l, the others in mg/dl.
create table hDialysisDetails2 (
    ID int identity(1,1) not null primary key,
    snoID int null,
    consultID varchar(20) null,
    DialType varchar(20) null,
    NA varchar(50) null,
    K varchar(50) null,
    cl varchar(50) null,
    HCo3 varchar(50) null,
    urea varchar(50) null,
    Creatininf varchar(50) null,
    RBS varchar(50) null
)
GO
-- Delete From hDialysisDetails2 where SNoID=1
create index IX_hDialysisDetails2_snoID on hDialysisDetails2 (snoID)
GO

-- One row an item of the out-patients' chart that is not given in full.
create view qryhConsultingPatientsForInjection as
select i.ID, i.conID, i.injdate, p.psurname as pSurname, p.pfirstName as pfirstname, i.PNo as pNo, i.injname,
    i.consultID, i.clientCat, c.retainName as Company, i.numOfTimes, i.numtaken as numTaken, i.dosage
from hInjAndDressing i
inner join hPatients p on p.PNo = i.PNo
left join hRetainership c on c.retainID = p.CoyName
where i.attendedto = 0
GO

-- One row an item not given in full, by the patient's full name: the dressings are picked from it by drgcatname. It is
-- not limited to the wards, for out-patients' dressings stand on the same chart.
create view qryhConsultingPatientsForInjAdm as
select i.ID, i.PNo as pNO, p.psurname + ' ' + p.pfirstName as fullname, i.consultID, i.drgCatName as drgcatname,
    i.injname, i.clientCat
from hInjAndDressing i
inner join hPatients p on p.PNo = i.PNo
where i.attendedto = 0
GO

-- One row a dose given to an out-patient.
create view qryhInjections as
select i.SNo, i.dtDate as Date, i.injTime as Time, p.psurname + ' ' + p.pfirstName as FullName,
    i.injname as Injection, e.lastname + ' ' + e.firstname as Nurse, i.PNo, i.consultID
from hinjections i
inner join hPatients p on p.PNo = i.PNo
left join employees e on e.empID = i.injBy
GO

-- One row a dressing done.
create view qryhDressings as
select d.SNo, d.drDate as Date, p.psurname + ' ' + p.pfirstName as FullName, d.drname as Dressing,
    e.lastname + ' ' + e.firstname as Nurse, d.clientCat as ClientCat, d.PNo, d.consultID
from hdressings d
inner join hPatients p on p.PNo = d.PNo
left join employees e on e.empID = d.dressedBy
GO

-- One row a consultation whose prescription is not disposed of; coyName is the retainID, ref how the plan pays.
create view qryhConsultingPatListForDisp as
select n.ID, n.CDate as cDate, p.psurname as pSurname, p.pfirstName as pfirstname, n.consultID, n.Remarks as remarks,
    p.CoyName as coyName, p.ref, c.retainName as company, n.preScription as prescription, n.clientCat as clientcat,
    n.PNo as pno, isnull(e.lastname + ' ' + e.firstname, n.treatedBy) as treatedby,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = n.treatedBy
where n.attendedToByPharm = 0
GO

-- One row a consultation of a patient now in the wards; isinj is 1 once its items are charted.
create view vwConDetailsForInjAndDressingForAdm as
select n.ID, n.CDate as cDate, p.psurname as pSurname, p.pfirstName as pfirstname, n.consultID, n.isinj, p.ref,
    p.CoyName as retainID, c.retainName as company, n.preScription as prescription, n.clientCat as clientcat,
    n.PNo as pno, n.Remarks as remarks, isnull(e.lastname + ' ' + e.firstname, n.treatedBy) as treatedby,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age
from hAdmission a
inner join hConsulting n on n.consultID = a.consultID
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = n.treatedBy
where a.isdischarged = 0
GO

-- One row an immunization visit.
create view vwhImmunization as
select i.ID, p.psurname + ' ' + p.pfirstName as Fullname, i.ImDate, i.imTime as ImTime, i.AgeValue,
    i.IMMUNIZATION as Immunization, i.Remarks, i.consultID as ConsultID, i.empID as EmpID,
    e.lastname + ' ' + e.firstname as EmpName, i.PNo, i.clientCat as clientcat, i.NextApptDate, i.NextApptTime,
    i.ImmType
from hImmunization i
inner join hPatients p on p.PNo = i.PNo
left join employees e on e.empID = i.empID
GO

-- One row a dialysis session; the patient is that of its visit.
create view vwhDialysis as
select d.SNo, d.diaDate as Date, p.psurname + ' ' + p.pfirstName as FullName, d.consultID as ConsultID, r.PNo,
    d.DialNo as SessionNo, d.diagnosis as Diagnosis, d.ConnectionTime, d.DisconnectionTime, d.PreDialAssess,
    d.PostDialAssess, d.hiv as HIV, d.HBsAg, d.pcv as PCV, d.BloodGP, d.ClottingTime, d.MachineType, d.PrevPostDialWt
from hDialysis d
inner join hRecords r on r.consultID = d.consultID
inner join hPatients p on p.PNo = r.PNo
GO
