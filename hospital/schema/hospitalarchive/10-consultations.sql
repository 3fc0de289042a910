-- The older consultations, with the names as they were when these were moved here. A table has the columns of its
-- namesake in the hospital's database that are shown, and keeps its keys: so no key is an identity here.

create table hPatients (
    PNo varchar(20) not null primary key,
    psurname varchar(50) not null default '',
    pfirstName varchar(50) not null default '',
    CoyName varchar(20) null
)
GO
create table hRetainership (
    retainID varchar(20) not null primary key,
    retainName varchar(100) not null
)
GO
create table employees (
    empID varchar(20) not null primary key,
    lastname varchar(50) null,
    firstname varchar(50) null
)
GO
create table hConsulting (
    ID int not null primary key,
    consultID varchar(20) null,
    PNo varchar(20) null,
    CDate date null,
    cTime time(0) null,
    treatedBy varchar(20) null,
    clientCat varchar(50) null,
    Complaints varchar(max) null,
    hpc varchar(max) null,
    pmh varchar(max) null,
    drugHx varchar(max) null,
    sysreview varchar(max) null,
    phyexam varchar(max) null,
    diagnosis varchar(max) null,
    diffdiagnosis varchar(max) null,
    investigate varchar(max) null,
    Result varchar(max) null,
    treatPlan varchar(max) null,
    preScription varchar(max) null,
    injprescription varchar(max) null,
    services varchar(max) null,
    medRpt varchar(max) null,
    referal varchar(max) null,
    ClinicRemarks varchar(max) null,
    gestAge varchar(50) null,
    urineAlb varchar(50) null,
    urineSug varchar(50) null,
    Bp varchar(50) null,
    Wt varchar(50) null,
    fundus varchar(50) null,
    presentation varchar(50) null,
    fH varchar(50) null,
    oedema varchar(50) null,
    hb varchar(50) null,
    pcv varchar(50) null,
    tt varchar(50) null,
    mo varchar(50) null
)
GO
-- ... from qryhPrescriptionInfoList where pNo='000000001/001' order by ID desc
create index IX_hConsulting_PNo on hConsulting (PNo)
GO
create table hPreConsult (
    ID int not null primary key,
    consultID varchar(20) null,
    PNo varchar(20) null,
    preDate date null,
    preTime time(0) null,
    examinedby varchar(20) null,
    temp varchar(20) null,
    Pressure varchar(20) null,
    pulse varchar(20) null,
    Weight varchar(20) null,
    Height varchar(20) null,
    respRatio varchar(20) null,
    urineAlb varchar(50) null,
    urineSug varchar(50) null,
    SPO2 varchar(20) null,
    RBS varchar(20) null
)
GO
-- select top 10 * from qryhPreconsultEdit where conID=17 order by ID Desc
create index IX_hPreConsult_consultID on hPreConsult (consultID)
GO
-- The ophthalmic sheet of a consultation: one row each. conID is the row of hConsulting.
create table hEye (
    conID int not null primary key,
    VisualAcuity varchar(200) null,
    Aided varchar(200) null,
    PrevSpecRX varchar(200) null,
    SubjectiveRefraction varchar(200) null,
    ExtExamOD varchar(max) null,
    ExtExamOS varchar(max) null,
    IntExamOD varchar(max) null,
    IntExamOS varchar(max) null,
    RemarksEye varchar(max) null,
    Refraction varchar(200) null,
    Retino varchar(200) null,
    Tonometry varchar(200) null,
    FSPrescLE varchar(max) null,
    FSPrescRE varchar(max) null
)
GO
-- The dental sheet of a consultation: one row each. conID is the row of hConsulting, dtype "ADULT" or "CHILD", arem and
-- crem the remarks on an adult and a child. One column a tooth: A or C for adult or child, U or L for upper or lower, L
-- or R for the side, then incisor, canine, premolar or molar with its number.
create table hDental (
    conID int not null primary key,
    dtype varchar(10) null,
    intraOralExam varchar(max) null,
    extraOralExam varchar(max) null,
    treatDone varchar(max) null,
    arem varchar(max) null,
    crem varchar(max) null,
    AULI1 varchar(50) null, AULI2 varchar(50) null, AULC varchar(50) null, AULPM1 varchar(50) null,
    AULPM2 varchar(50) null, AULM1 varchar(50) null, AULM2 varchar(50) null, AULM3 varchar(50) null,
    AURI1 varchar(50) null, AURI2 varchar(50) null, AURC varchar(50) null, AURPM1 varchar(50) null,
    AURPM2 varchar(50) null, AURM1 varchar(50) null, AURM2 varchar(50) null, AURM3 varchar(50) null,
    ALLI1 varchar(50) null, ALLI2 varchar(50) null, ALLC varchar(50) null, ALLPM1 varchar(50) null,
    ALLPM2 varchar(50) null, ALLM1 varchar(50) null, ALLM2 varchar(50) null, ALLM3 varchar(50) null,
    ALRI1 varchar(50) null, ALRI2 varchar(50) null, ALRC varchar(50) null, ALRPM1 varchar(50) null,
    ALRPM2 varchar(50) null, ALRM1 varchar(50) null, ALRM2 varchar(50) null, ALRM3 varchar(50) null,
    CULI1 varchar(50) null, CULI2 varchar(50) null, CULC varchar(50) null, CULPM1 varchar(50) null,
    CULPM2 varchar(50) null,
    CURI1 varchar(50) null, CURI2 varchar(50) null, CURC varchar(50) null, CURPM1 varchar(50) null,
    CURPM2 varchar(50) null,
    CLLI1 varchar(50) null, CLLI2 varchar(50) null, CLLC varchar(50) null, CLLPM1 varchar(50) null,
    CLLPM2 varchar(50) null,
    CLRI1 varchar(50) null, CLRI2 varchar(50) null, CLRC varchar(50) null, CLRPM1 varchar(50) null,
    CLRPM2 varchar(50) null
)
GO
-- The physiotherapist's sheet of a consultation; conID is the row of hConsulting.
create table hPhysio (
    SNo int not null primary key,
    conID int null,
    ReviewDate date null,
    ApptDate date null,
    Activity varchar(max) null,
    Coping varchar(max) null,
    Limitation varchar(max) null,
    Tests varchar(max) null,
    Impression varchar(max) null,
    Goals varchar(max) null,
    Means varchar(max) null
)
GO
-- select * from hPhysio where conID = 17
create index IX_hPhysio_conID on hPhysio (conID)
GO
create table hSurgery (
    ID int not null primary key,
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
-- select * from qryhPrescriptionInfoForSurgery where ID = 17
create index IX_hSurgery_consultID on hSurgery (consultID)
GO
-- What the laboratory found for a visit; treatedBy is the empID of the doctor who asked for it.
create table hInvResults (
    ID int not null primary key,
    invDate date null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    investigate varchar(max) null,
    invResult varchar(max) null,
    treatedBy varchar(20) null
)
GO
-- ... from vwhInvResForPrevConsultation where treatedBy= 'D001' and consultID='001000000001' order by ID desc
create index IX_hInvResults_consultID on hInvResults (consultID)
GO

-- One row a consultation.
create view qryhPrescriptionInfoList as
select n.ID, p.psurname + ' ' + p.pfirstName as fullname, n.CDate as cDate, n.cTime, n.consultID, n.PNo as pNo
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
GO

-- One row a consultation; treatedBy is the empID of the doctor in lastname and firstName.
create view qryhPrescriptionInfo as
select n.ID, n.consultID, n.CDate as cDate, n.cTime, p.psurname + ' ' + p.pfirstName as fullName, n.PNo, n.treatedBy,
    e.lastname, e.firstname as firstName, n.Complaints, n.sysreview, n.phyexam, n.diagnosis, n.diffdiagnosis,
    n.investigate, n.Result, n.treatPlan, n.preScription, n.injprescription, n.services, n.medRpt, n.hpc, n.pmh,
    n.drugHx, n.clientCat, c.retainName as Company, n.gestAge, n.urineAlb, n.urineSug, n.Bp, n.Wt, n.fundus,
    n.presentation, n.fH, n.oedema, n.hb, n.pcv, n.tt, n.mo, n.referal, n.ClinicRemarks
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = n.treatedBy
GO

-- One row an ophthalmic sheet, under the ID of its consultation.
create view qryhPrescriptionInfoForEye as
select s.conID as ID,
    s.VisualAcuity, s.Aided, s.PrevSpecRX, s.SubjectiveRefraction, s.ExtExamOD, s.ExtExamOS, s.IntExamOD, s.IntExamOS,
    s.RemarksEye, s.Refraction, s.Retino, s.Tonometry, s.FSPrescLE, s.FSPrescRE
from hEye s
GO

-- One row a dental sheet, under the ID of its consultation.
create view qryhPrescriptionInfoForDental as
select s.conID as ID,
    s.dtype, s.intraOralExam, s.extraOralExam, s.treatDone, s.arem, s.crem, s.AULI1, s.AULI2, s.AULC, s.AULPM1,
    s.AULPM2, s.AULM1, s.AULM2, s.AULM3, s.AURI1, s.AURI2, s.AURC, s.AURPM1, s.AURPM2, s.AURM1, s.AURM2, s.AURM3,
    s.ALLI1, s.ALLI2, s.ALLC, s.ALLPM1, s.ALLPM2, s.ALLM1, s.ALLM2, s.ALLM3, s.ALRI1, s.ALRI2, s.ALRC, s.ALRPM1,
    s.ALRPM2, s.ALRM1, s.ALRM2, s.ALRM3, s.CULI1, s.CULI2, s.CULC, s.CULPM1, s.CULPM2, s.CURI1, s.CURI2, s.CURC,
    s.CURPM1, s.CURPM2, s.CLLI1, s.CLLI2, s.CLLC, s.CLLPM1, s.CLLPM2, s.CLRI1, s.CLRI2, s.CLRC, s.CLRPM1, s.CLRPM2
from hDental s
GO

-- One row an operation and consultation of the same visit; ID is the consultation's.
-- One row an operation in a visit, under the ID of each of its consultations.
create view qryhPrescriptionInfoForSurgery as
select n.ID, s.ID as surgeryID, s.sDate, s.indications, s.operation, s.consent, s.relation, s.urinalysis, s.sediments,
    s.sugar, s.acetone, s.aib, s.sg, s.blood, s.hb, s.pcv, s.wbc, s.wbc_p, s.wbc_L, s.wbc_m, s.wbc_e, s.wbc_esr,
    s.urea, s.urea_na, s.urea_cL, s.urea_PCO3, s.occultBlood, s.chestXray, s.ecg, s.bloodGroup, s.surgeon,
    s.Assistant, s.anaesthetist, s.preOPBP, s.pulse, s.postOPBP, s.hgp, s.findings, s.[Procedure] as Prosedure,
    s.[Procedure], s.hiv, s.AnaesthNotePre, s.AnaesthNotePost
from hConsulting n
inner join hSurgery s on s.consultID = n.consultID
GO

-- One row a set of readings and consultation of its visit; conID is the ID of hConsulting.
create view qryhPreconsultEdit as
select v.ID, n.ID as conID, v.consultID, v.PNo, v.preDate, v.preTime, v.temp, v.Pressure, v.pulse, v.Weight, v.Height,
    v.respRatio, v.urineAlb, v.urineSug, v.SPO2, v.RBS, e.lastname + ' ' + e.firstname as Nurse
from hConsulting n
inner join hPreConsult v on v.consultID = n.consultID
left join employees e on e.empID = v.examinedby
GO

-- One row a result.
create view vwhInvResForPrevConsultation as
select i.ID, i.invDate, i.PNo as pno, i.consultID as consultid, i.investigate, i.invResult, i.treatedBy
from hInvResults i
GO
