-- The sheets and orders of the doctors' consultations, images of patients, and how consultations are read.

-- What a doctor ordered, one row an item; conID is the row of hConsulting, Qty the number of doses.
create table hconsultingDetails (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    conID int null,
    PNo varchar(20) null,
    dtDate date null,
    dtTime time(0) null,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    Qty int null,
    usage varchar(200) null,
    attendedTo int not null default 0
)
GO
-- select distinct * from hconsultingDetails where consultID='001000000001'
create index IX_hconsultingDetails_consultID on hconsultingDetails (consultID)
GO
-- the orders of one consultation in the reports: conID = ID of qryhConsulting
create index IX_hconsultingDetails_conID on hconsultingDetails (conID)
GO
-- Orders that are not yet final.
create table hConsultingDetailsTemp (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    conID int null,
    PNo varchar(20) null,
    dtDate date null,
    dtTime time(0) null,
    drgName varchar(200) null,
    drgCatName varchar(100) null,
    Qty int null,
    usage varchar(200) null,
    attendedTo int not null default 0
)
GO
-- The tests that a visit's doctor asked for and what they gave.
create table hinvestigate (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    sympitem varchar(200) null,
    result varchar(max) null
)
GO
-- select consultID,sympitem,result from hinvestigate where consultID = '001000000001'
create index IX_hinvestigate_consultID on hinvestigate (consultID)
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
    SNo int identity(1,1) not null primary key,
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
-- Images of patients: Image holds the bytes of a JPEG, Remarks its caption.
create table hPix (
    SNo int identity(1,1) not null primary key,
    DtDate date null,
    DtTime time(0) null,
    PNo varchar(20) null,
    Image varbinary(max) null,
    Remarks varchar(200) null
)
GO
-- select SNo,DtDate,DtTime from vwhPix where PNo='000000001/001'
create index IX_hPix_PNo on hPix (PNo)
GO
-- Diseases to choose a report by.
create table hdiseases (
    disease varchar(200) not null primary key
)
GO

-- One row a patient with a consultation.
create view qryhConsultedPatients as
select p.psurname + ' ' + p.pfirstName as fullname, p.PNo as pNo
from hPatients p
where p.PNo in (select n.PNo from hConsulting n)
GO

-- One row a patient with a consultation, here or in the archive.
create view qryhConsultedPatientsArchiveUnion as
select c.fullname, c.pNo from qryhConsultedPatients c
union
select p.psurname + ' ' + p.pfirstName, p.PNo
from hPatients p
where p.PNo in (select a.PNo from HospitalArchive.dbo.hConsulting a)
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

-- One row an image.
create view vwhPix as
select x.SNo, x.DtDate, x.DtTime, x.PNo, x.Remarks
from hPix x
GO

-- One row a consultation, for the reports by diagnosis; coyname is the client's name.
create view qryhConsultingDiagnosis as
select n.ID, n.consultID, n.CDate as cDate, n.PNo as pNo, p.OldPNo as oldpno,
    p.psurname + ' ' + p.pfirstName as Fullname,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.sex as Sex, n.diagnosis, c.retainName as coyname
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
GO

-- One row a consultation, for the reports by client; coyNAme is the client's name.
create view qryhConsultingDiagnosisHMO as
select n.ID, n.consultID, n.PNo as pNo, p.psurname + ' ' + p.pfirstName as Fullname, n.CDate as cDate, n.cTime,
    n.diagnosis, n.investigate, c.retainName as coyNAme, n.preScription as prescription, p.sex as Sex,
    p.OldPNo as oldpNo,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    n.Remarks as remarks, p.empNo as empno, c.retainCode
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
GO

-- One row a consultation; treatedby is the doctor's name, ref whether the patient pays by service.
create view vwhConsultingDetailsForBillingAlt as
select n.ID, p.psurname + ' ' + p.pfirstName as FullName, c.retainName as RetainName, p.clientCatID as ClientCatID,
    p.CoyName as retainID, c.retainCode as RetainCode, n.CDate as cdate, n.cTime, p.ref, n.BillRemarks,
    c.retainName as company, n.preScription as prescription, n.diagnosis as Diagnosis, n.investigate as Investigate,
    n.investigate2, n.services, n.consultID, n.clientCat as clientcat, n.PNo as pno, n.Remarks as remarks,
    e.lastname + ' ' + e.firstname as treatedby,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = n.treatedBy
GO
