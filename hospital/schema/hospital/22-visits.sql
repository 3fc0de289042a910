-- Visits, what is noted at the desk about them, and the doctors' consultations.

-- CoyName holds the client's retainID; a higher recID is newer. A patient waits for the doctor in DocAssigned while
-- PatVal is 1 and attendedtoByDoc 0. htime is a time of day on the zero date, 30-Dec-1899.
create table hRecords (
    recID int identity(1,1) not null primary key,
    recDate date null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    empID varchar(20) null,
    clinicType varchar(100) null,
    Remarks varchar(200) null,
    htime datetime null,
    HMORef varchar(10) null,
    referal varchar(10) null,
    DocAssigned varchar(20) null,
    PatVal int null,
    suppres int not null default 0,
    attendedto int not null default 0,
    attendedtoByDoc int not null default 0,
    attendedToByNurse int not null default 0,
    AttendedToByImmume int not null default 0,
    BillDate date null,
    clientCat varchar(50) null,
    CoyName varchar(20) null,
    Debt money null,
    LastConsultID varchar(20) null,
    LastAttndDate date null,
    LastClinicVisited varchar(100) null,
    LastPurpose varchar(100) null,
    exitdate date null
)
GO
-- ... from qryhPatListForNurse where recDate='24-Nov-2026' and attendedTo=0
create index IX_hRecords_recDate on hRecords (recDate, attendedto)
GO
-- select pno from qryhVisitsForToday where pno='000000001/001'; the previous visit of a patient
create index IX_hRecords_PNo on hRecords (PNo, recDate)
GO
-- Update hrecords set  attendedto=1,attendedtoByNurse=1,... where consultID = '001000000001'
create index IX_hRecords_consultID on hRecords (consultID)
GO
-- who waits for a doctor: ... from vwDocWaitingListGrouped where date='24-Nov-2026'
create index IX_hRecords_DocAssigned on hRecords (recDate, DocAssigned, PatVal, attendedtoByDoc)
GO
-- The service points that a visit has passed.
create table hPatientsTimeline (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    ServicePoint varchar(50) null,
    EntryOrExit varchar(50) null
)
GO
-- One row a visit for a screening; Remarks is its purpose.
create table hhScreeningAttnd (
    SNo int identity(1,1) not null primary key,
    recDate date null,
    consultID varchar(20) null,
    Remarks varchar(200) null
)
GO
-- conID is the row of hConsulting that asks for the appointment, 0 or null where none does.
create table happointment (
    SNo int identity(1,1) not null primary key,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    clinicType varchar(100) null,
    ApptDate date null,
    ApptTime time(0) null,
    Remarks varchar(200) null,
    PNo varchar(20) null,
    entryDate date null,
    entryTime time(0) null,
    attendedto int not null default 0,
    conID int null
)
GO
-- Select * from happointment where consultid='001000000001'
create index IX_happointment_consultID on happointment (consultID)
GO
-- how many are booked into a clinic on a day: getDatesForClinic
create index IX_happointment_clinicType on happointment (clinicType, ApptDate)
GO
create table hClinicPurpose (
    Purpose varchar(100) not null primary key
)
GO

-- What a doctor noted on one visit; a higher ID is newer. treatedBy is an empID. Remarks turns "ADMISSION" once the
-- patient is admitted.
create table hConsulting (
    ID int identity(1,1) not null primary key,
    consultID varchar(20) null,
    PNo varchar(20) null,
    CDate date null,
    cTime time(0) null,
    treatedBy varchar(20) null,
    clientCat varchar(50) null,
    Remarks varchar(200) null,
    attendedToByPharm bit not null default 0,
    suppres bit not null default 0,
    isinj bit not null default 0,
    isDress bit not null default 0,
    Preconsult varchar(max) null,
    Complaints varchar(max) null,
    hpc varchar(max) null,
    pmh varchar(max) null,
    drugHx varchar(max) null,
    sysreview varchar(max) null,
    genphy varchar(max) null,
    phyexam varchar(max) null,
    diagnosis varchar(max) null,
    diffdiagnosis varchar(max) null,
    investigate varchar(max) null,
    investigate2 varchar(max) null,
    Result varchar(max) null,
    treatPlan varchar(max) null,
    Treatment varchar(max) null,
    preScription varchar(max) null,
    injprescription varchar(max) null,
    services varchar(max) null,
    medRpt varchar(max) null,
    referal varchar(max) null,
    referto varchar(100) null,
    ClinicRemarks varchar(max) null,
    BillRemarks varchar(max) null,
    nextApptDate date null,
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
-- ... where consultID='001000000001'
create index IX_hConsulting_consultID on hConsulting (consultID)
GO
-- a patient's history: where pno='000000001/001' order by ID desc
create index IX_hConsulting_PNo on hConsulting (PNo)
GO
-- the day's consultations: where CDate='24-Nov-2026'
create index IX_hConsulting_CDate on hConsulting (CDate)
GO

-- One row a visit of today.
create view qryhVisitsForToday as
select p.psurname + ' ' + p.pfirstName as Fullname, r.recDate as RecDate, r.htime as Time, c.retainName as CoyName,
    r.clientCat as ClientCat, r.clinicType as ClinicType, r.recID, p.psurname as Surname, r.PNo as pNO, r.empID,
    r.Remarks, r.attendedto as attendedTo, r.consultID as ConsultID, r.referal as Referal, r.HMORef,
    r.CoyName as RetainID, p.PolicyType, p.empNo as EmpNo
from hRecords r
inner join hPatients p on p.PNo = r.PNo
left join hRetainership c on c.retainID = r.CoyName
where r.recDate = cast(getdate() as date)
GO

-- One row a visit, seen by the nurse (attendedTo 1) or not; Age in whole years.
create view qryhPatListForNurse as
select p.Title, r.recDate as recdate, r.htime as hTime, p.psurname as pSurname, p.pfirstName as pfirstname,
    r.PNo as pno, r.consultID, r.clinicType as ClinicType, r.attendedto as attendedTo,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.OldPNo, p.sex as Sex, r.clientCat as clientcat, r.Remarks as remarks, c.retainCode as RetainCode,
    r.CoyName as retainID
from hRecords r
inner join hPatients p on p.PNo = r.PNo
left join hRetainership c on c.retainID = r.CoyName
GO

-- One row a visit.
create view vwhRecords as
select r.recID, r.recDate, r.htime, p.psurname + ' ' + p.pfirstName as FullName, r.clinicType as ClinicType, r.Remarks,
    c.retainName as RetainName, r.consultID as ConsultID, r.PNo as pno
from hRecords r
inner join hPatients p on p.PNo = r.PNo
left join hRetainership c on c.retainID = r.CoyName
GO

-- One row a visit to the immunization clinic, or to another one with that purpose.
create view qryhPatListForImmune as
select r.recDate as recdate, r.htime as hTime, p.psurname as pSurname, p.pfirstName as pfirstname, r.PNo as pno,
    r.consultID, r.clinicType as ClinicType, r.AttendedToByImmume
from hRecords r
inner join hPatients p on p.PNo = r.PNo
where r.clinicType = 'IMMUNIZATION' or r.Remarks = 'IMMUNIZATION'
GO

-- One row a visit to the dialysis clinic, or to another one with that purpose; Age in whole years.
create view qryhPatListForDialysis as
select p.Title, r.recDate as recdate, p.psurname as pSurname, p.pfirstName as pfirstname, r.PNo as pno, r.consultID,
    r.clinicType as ClinicType, r.attendedto as attendedTo, r.suppres,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.OldPNo, p.sex as Sex, r.clientCat as clientcat, r.Remarks as remarks
from hRecords r
inner join hPatients p on p.PNo = r.PNo
where r.clinicType = 'DIALYSIS' or r.Remarks = 'DIALYSIS'
GO
