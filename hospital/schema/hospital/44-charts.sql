-- The ward's charts and records: medication, fluids, allergies, nursing histories, notes, daily reports, operations.

-- The drugs of a stay: numOfTimes doses in all, numtaken given so far. attendedto is 1 when all are given, suppres 1
-- while discontinued, Remarks the reason of the last discontinuation or recall. conID is the row of hConsulting.
-- drgName is never null: dispensed drugs are looked for with "drgName not in (select drgNAme from hMedChartMonitor
-- ...)", which one null would empty.
create table hMedChartMonitor (
    ID int identity(1,1) not null primary key,
    conID int null,
    consultID varchar(20) null,
    PNo varchar(20) null,
    mdate date null,
    mtime time(0) null,
    numOfTimes int null,
    numtaken int not null default 0,
    drgName varchar(200) not null default '',
    clientCat varchar(50) null,
    drgCatName varchar(100) null,
    dosage varchar(max) null,
    attendedto bit not null default 0,
    suppres bit not null default 0,
    Remarks varchar(max) null
)
GO
-- select * from qryhMedChartMonitor where consultID='001000000001'
create index IX_hMedChartMonitor_consultID on hMedChartMonitor (consultID)
GO
-- The acts of charting: numtaken doses of the line iDNo (hMedChartMonitor.ID), given by the empID givenBy.
create table hMedChartForNurse (
    SNo int identity(1,1) not null primary key,
    conID int null,
    mdate date null,
    mtime time(0) null,
    PNo varchar(20) null,
    drgName varchar(200) null,
    givenBy varchar(20) null,
    consultID varchar(20) null,
    iDNo int null,
    numtaken int null
)
GO
-- ... from qryhmedChartForNurse where idno ='1' order by mdate desc,mTime desc,drgName
create index IX_hMedChartForNurse_iDNo on hMedChartForNurse (iDNo)
GO
-- ... from qryhmedChartForNurse where consultID ='001000000001'; ... where mdate between ... and consultid=...
create index IX_hMedChartForNurse_consultID on hMedChartForNurse (consultID, mdate)
GO
-- Intake and output, in ml: ChartTime is the hour of the chart ("6 AM"), nTime the time of the entry.
create table hfluidChart (
    sno int identity(1,1) not null primary key,
    nDate date null,
    nTime time(0) null,
    ChartTime varchar(10) null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    empID varchar(20) null,
    IntakeFluidType varchar(50) null,
    IntakeFluid varchar(200) null,
    IntVol float null,
    OutputFluidType varchar(50) null,
    OutPutFluid varchar(200) null,
    OutVol float null
)
GO
-- ... from qryhfluidchart where consultID = '001000000001' and Date='24-Nov-2026'
create index IX_hfluidChart_consultID on hfluidChart (consultID, nDate)
GO
-- Allergic reactions: tReaction and tDoc are the times of the reaction and of the doctor's coming, Symptoms holds one
-- sign a line, Nurse and Doctor are empIDs.
create table hNurseAllergy (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    PNo varchar(20) null,
    ADate date null,
    Event varchar(200) null,
    tReaction time(0) null,
    tDoc time(0) null,
    Symptoms varchar(max) null,
    others varchar(max) null,
    Comments varchar(max) null,
    Note varchar(max) null,
    Nurse varchar(20) null,
    Doctor varchar(20) null
)
GO
-- select distinct * from vwhNurseAllergy where consultID = '001000000001'
create index IX_hNurseAllergy_consultID on hNurseAllergy (consultID)
GO
-- The hospital's own list of signs; while it is empty, the screen's list stands.
create table hNurseAllergyList (
    Allergy varchar(200) not null primary key
)
GO
-- The assessments at admission; bcg to measles are 1 for a child that had the immunization.
create table hNursingHist (
    ID int identity(1,1) not null primary key,
    dtDate date null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    empID varchar(20) null,
    informnt varchar(max) null,
    present varchar(max) null,
    past varchar(max) null,
    nutrition varchar(max) null,
    elimin varchar(max) null,
    exercise varchar(max) null,
    sleep varchar(max) null,
    comm varchar(max) null,
    perception varchar(max) null,
    socialstat varchar(max) null,
    sexuality varchar(max) null,
    stress varchar(max) null,
    beliefs varchar(max) null,
    habits varchar(max) null,
    valuables varchar(max) null,
    urinalysis varchar(max) null,
    genInspec varchar(max) null,
    palpation varchar(max) null,
    percussion varchar(max) null,
    auscultation varchar(max) null,
    labresult varchar(max) null,
    nursediag varchar(max) null,
    allergies varchar(max) null,
    bcg int not null default 0,
    polio int not null default 0,
    tetanus int not null default 0,
    whooping int not null default 0,
    dipthe int not null default 0,
    measles int not null default 0,
    others varchar(max) null,
    LMP date null,
    EDD date null,
    nurAssess varchar(max) null
)
GO
-- ... from qryhNursingHist where dtdate = '24-Nov-2026'
create index IX_hNursingHist_dtDate on hNursingHist (dtDate)
GO
-- Nurses' notes on one patient, in the ward or not; preScription is the doctors' orders as they stood.
create table hInPatientNotesForNurses (
    sno int identity(1,1) not null primary key,
    nDate date null,
    nTime time(0) null,
    PNo varchar(20) null,
    notes varchar(max) null,
    preScription varchar(max) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    empID varchar(20) null
)
GO
-- ... from qryhInPatientNotesForNurses where consultID = '001000000001' ORDER BY nDate DESC,nTime DESC
create index IX_hInPatientNotesForNurses_consultID on hInPatientNotesForNurses (consultID, nDate)
GO
-- ... from qryhInPatientNotesForNurses  where ndate between ...
create index IX_hInPatientNotesForNurses_nDate on hInPatientNotesForNurses (nDate)
GO
-- Doctors' notes on one patient; empID is the doctor's.
create table hInPatientNotesForDoctors (
    sno int identity(1,1) not null primary key,
    nDate date null,
    nTime time(0) null,
    PNo varchar(20) null,
    notes varchar(max) null,
    preScription varchar(max) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    empID varchar(20) null
)
GO
-- ... from qryhInPatientNotesForDoctors where consultID = '001000000001'
create index IX_hInPatientNotesForDoctors_consultID on hInPatientNotesForDoctors (consultID)
GO
-- ... from qryhInPatientNotesForDoctors where ndate between ...
create index IX_hInPatientNotesForDoctors_nDate on hInPatientNotesForDoctors (nDate)
GO
-- The daily reports; isOLD is 0 for the current one of a shift and heading. Details is written in place, so never null.
create table hNurseOverRpt (
    sno int identity(1,1) not null primary key,
    dtDate date null,
    dtTime time(0) null,
    Shift varchar(20) null,
    EmpID varchar(20) null,
    RptHead varchar(50) null,
    subHead varchar(200) null,
    Completed varchar(10) not null default 'NO',
    Details varchar(max) not null default '',
    isOLD bit not null default 0
)
GO
-- ... from vwhNurseRpt where dtdate='24-Nov-2026' and shift ='NIGHT' and rptHead ='ADMIN REPORT'
create index IX_hNurseOverRpt_dtDate on hNurseOverRpt (dtDate, Shift, RptHead)
GO
-- Update hNurseOverRpt set isOLD = 1 where  shift ='NIGHT' and rptHead ='ADMIN REPORT'
create index IX_hNurseOverRpt_RptHead on hNurseOverRpt (RptHead, Shift)
GO
-- Operations: empID is the doctor's, hgp the pulse after the operation. The anaesthetist's notes are another module's.
create table hSurgery (
    ID int identity(1,1) not null primary key,
    sDate date null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    empID varchar(20) null,
    occultBlood varchar(max) null,
    urea_PCO3 varchar(200) null,
    urea_cL varchar(200) null,
    indications varchar(max) null,
    operation varchar(max) null,
    consent varchar(max) null,
    relation varchar(max) null,
    urinalysis varchar(max) null,
    sediments varchar(max) null,
    sugar varchar(200) null,
    acetone varchar(200) null,
    aib varchar(200) null,
    sg varchar(200) null,
    blood varchar(200) null,
    hb varchar(200) null,
    pcv varchar(200) null,
    wbc varchar(200) null,
    wbc_p varchar(200) null,
    wbc_L varchar(200) null,
    wbc_m varchar(200) null,
    wbc_e varchar(200) null,
    wbc_esr varchar(200) null,
    chestXray varchar(max) null,
    ecg varchar(max) null,
    bloodGroup varchar(200) null,
    surgeon varchar(max) null,
    Assistant varchar(max) null,
    anaesthetist varchar(max) null,
    preOPBP varchar(200) null,
    pulse varchar(200) null,
    postOPBP varchar(200) null,
    hgp varchar(200) null,
    findings varchar(max) null,
    [Procedure] varchar(max) null,
    urea_na varchar(200) null,
    urea varchar(200) null,
    hiv varchar(200) null,
    AnaesthNotePre varchar(max) null,
    AnaesthNotePost varchar(max) null
)
GO
-- select * from qryhSurgery where pno = '000000001/001'
create index IX_hSurgery_PNo on hSurgery (PNo)
GO
-- the operations of a consultation's visit: select * from qryhPrescriptionInfoForSurgery where ID=1
create index IX_hSurgery_consultID on hSurgery (consultID)
GO

-- One row a drug that is still to be given: neither discontinued nor given in full.
create view qryhMedChartMonitor as
select m.ID, m.drgName, m.drgCatName, m.numOfTimes, m.numtaken as numTaken, m.dosage, m.mdate, m.mtime, m.conID,
    m.consultID
from hMedChartMonitor m
where m.attendedto = 0 and m.suppres = 0
GO

-- One row a drug that is discontinued or given in full; Reason is that of the last discontinuation or recall.
create view qryhMedChartMonitorForDisconDrugs as
select m.ID, m.drgName, m.numOfTimes as NumOfTimes, m.numtaken as NumTaken,
    case when m.attendedto = 1 then 'YES' else 'NO' end as DrugFullyGiven,
    case when m.suppres = 1 then 'YES' else 'NO' end as Discontinued, m.Remarks as Reason, m.consultID as ConsultID
from hMedChartMonitor m
where m.attendedto = 1 or m.suppres = 1
GO

-- One row an act of charting; Remarks are those of the drug's line.
create view qryhmedChartForNurse as
select c.SNo, c.mdate as mDate, c.mtime, c.drgName, c.iDNo as IDNo, c.numtaken as NumTaken,
    e.lastname + ' ' + e.firstname as Nurse, m.Remarks, c.consultID as ConsultID,
    p.psurname + ' ' + p.pfirstName as FullName
from hMedChartForNurse c
inner join hPatients p on p.PNo = c.PNo
left join hMedChartMonitor m on m.ID = c.iDNo
left join employees e on e.empID = c.givenBy
GO

-- One row a line of the fluid chart, an intake, an output or both.
create view qryhFluidChart as
select f.sno as SNo, f.empID as EmpID, f.nDate as Date, f.ChartTime, p.psurname + ' ' + p.pfirstName as FullName,
    f.IntakeFluidType, f.IntakeFluid as InTakeFluid, f.IntVol, f.OutputFluidType as OutPutFluidType,
    f.OutPutFluid as OutputFluid, f.OutVol, f.consultID as ConsultID, f.PNo, f.clientCat as ClientCat
from hfluidChart f
inner join hPatients p on p.PNo = f.PNo
GO

-- One row an allergic reaction.
create view vwhNurseAllergy as
select a.SNo, a.PNo as pno, a.consultID, p.psurname + ' ' + p.pfirstName as fullname, a.ADate as Date, a.Event,
    a.tReaction as ReactionTime, a.tDoc as TimeSeenByDoctor, a.Symptoms as SignsAndSymptoms, a.others as Others,
    a.Comments, a.Note, n.lastname + ' ' + n.firstname as Nurse, a.Nurse as NurseID,
    d.lastname + ' ' + d.firstname as Doctor, a.Doctor as DocID
from hNurseAllergy a
inner join hPatients p on p.PNo = a.PNo
left join employees n on n.empID = a.Nurse
left join employees d on d.empID = a.Doctor
GO

-- One row an assessment at admission.
create view qryhNursingHist as
select h.ID, h.dtDate as dtdate, h.PNo as pno, h.consultID as consultid, h.empID,
    p.psurname + ' ' + p.pfirstName as fullname, e.lastname + ' ' + e.firstname as empfullname, h.informnt, h.present,
    h.past, h.nutrition, h.elimin, h.exercise, h.sleep, h.comm, h.perception, h.socialstat, h.sexuality, h.stress,
    h.beliefs, h.habits, h.valuables, h.urinalysis, h.genInspec, h.palpation, h.percussion, h.auscultation,
    h.labresult, h.nursediag, h.allergies, h.bcg, h.polio, h.tetanus, h.whooping, h.dipthe, h.measles, h.others,
    h.LMP, h.EDD, h.nurAssess
from hNursingHist h
inner join hPatients p on p.PNo = h.PNo
left join employees e on e.empID = h.empID
GO

-- One row a nurse's note; LastName, FirstName and empname are the nurse's.
create view qryhInPatientNotesForNurses as
select e.lastname as LastName, e.firstname as FirstName, n.nDate as ndate, n.nTime as ntime, n.notes, n.empID,
    n.PNo as pno, n.sno, p.psurname + ' ' + p.pfirstName as fullname, n.preScription as prescription,
    n.clientCat as clientcat, n.consultID as consultid, e.lastname + ' ' + e.firstname as empname
from hInPatientNotesForNurses n
inner join hPatients p on p.PNo = n.PNo
left join employees e on e.empID = n.empID
GO

-- One row a doctor's note; empname is the doctor's.
create view qryhInPatientNotesForDoctors as
select n.empID, n.PNo as pno, n.sno, p.psurname + ' ' + p.pfirstName as fullname, n.clientCat as clientcat,
    n.consultID as consultid, n.nDate as ndate, n.nTime as ntime, n.notes, e.lastname + ' ' + e.firstname as empname,
    n.preScription as prescription
from hInPatientNotesForDoctors n
inner join hPatients p on p.PNo = n.PNo
left join employees e on e.empID = n.empID
GO

-- One row a daily report, current or old.
create view vwhNurseRpt as
select n.sno as SNO, n.dtDate, n.dtTime, n.Shift, n.EmpID as empID, n.Details, n.RptHead as rptHead,
    n.subHead as SubHead, n.Completed, e.firstname as FirstName, e.lastname as LastName,
    e.lastname + ' ' + e.firstname as empFullname, n.isOLD
from hNurseOverRpt n
left join employees e on e.empID = n.EmpID
GO

-- One row an operation; lastname and firstname are the doctor's.
create view qryhSurgery as
select s.ID, s.sDate, s.PNo as pno, s.consultID as consultid, s.empID as empid,
    p.psurname + ' ' + p.pfirstName as fullname, e.lastname, e.firstname, s.occultBlood, s.urea_PCO3, s.urea_cL,
    s.indications, s.operation, s.consent, s.relation, s.urinalysis, s.sediments, s.sugar, s.acetone, s.aib, s.sg,
    s.blood, s.hb, s.pcv, s.wbc, s.wbc_p, s.wbc_L, s.wbc_m, s.wbc_e, s.wbc_esr, s.chestXray, s.ecg, s.bloodGroup,
    s.surgeon, s.Assistant, s.anaesthetist, s.preOPBP, s.pulse, s.postOPBP, s.hgp, s.findings, s.[Procedure],
    s.urea_na, s.urea, s.hiv
from hSurgery s
inner join hPatients p on p.PNo = s.PNo
left join employees e on e.empID = s.empID
GO

-- One row an operation and consultation of the same visit; ID is the consultation's.
create view qryhPrescriptionInfoForSurgery as
select n.ID, s.ID as surgeryID, s.sDate, s.indications, s.operation, s.consent, s.relation, s.urinalysis, s.sediments,
    s.sugar, s.acetone, s.aib, s.sg, s.blood, s.hb, s.pcv, s.wbc, s.wbc_p, s.wbc_L, s.wbc_m, s.wbc_e, s.wbc_esr,
    s.urea, s.urea_na, s.urea_cL, s.urea_PCO3, s.occultBlood, s.chestXray, s.ecg, s.bloodGroup, s.surgeon,
    s.Assistant, s.anaesthetist, s.preOPBP, s.pulse, s.postOPBP, s.hgp, s.findings, s.[Procedure] as Prosedure,
    s.[Procedure], s.hiv, s.AnaesthNotePre, s.AnaesthNotePost
from hConsulting n
inner join hSurgery s on s.consultID = n.consultID
GO
