-- Wards, stays, and their two discharges: the doctor's, then the nurses'.

create table hWards (
    wardID varchar(50) not null primary key,
    WardName varchar(100) null,
    Location varchar(50) null
)
GO
-- ExtendAdmissionLimitTo is the end of the stay that the scheme pays; AdmitBy and AdmitingDoc are empIDs. DischDate is
-- null for a stay that was closed from the overdue list, and outlives a recall.
create table hAdmission (
    SNO int identity(1,1) not null primary key,
    admdate date null,
    aTime time(0) null,
    ExtendAdmissionLimitTo datetime null,
    PNo varchar(20) null,
    wardID varchar(50) null,
    Reason varchar(max) null,
    Remarks varchar(max) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    AdmitBy varchar(20) null,
    AdmitingDoc varchar(20) null,
    diagnosis varchar(max) null,
    conID int not null default 0,
    isdischarged bit not null default 0,
    DischDate date null,
    Comment varchar(max) null
)
GO
-- update hAdmission set ... where ConsultID='001000000001'; select * from qryhAdmission where consultID=...
create index IX_hAdmission_consultID on hAdmission (consultID)
GO
-- the stays of a patient: where PNo='000000001/001'
create index IX_hAdmission_PNo on hAdmission (PNo)
GO
-- ... from qryhAdmission  where ClientCat in ('PHIS','NHIS','HMO') and ...: the open stays alone
create index IX_hAdmission_isdischarged on hAdmission (isdischarged, clientCat)
GO
-- select * from qryhAdmissionForToday where admdate='24-Nov-2026'
create index IX_hAdmission_admdate on hAdmission (admdate)
GO
-- The doctor's discharge, after which the patient waits for the nurses'. apprvby is the doctor's empID, ApptDate the
-- next appointment; apprvby is null and wardID empty where a stay was closed from the overdue list.
create table hdischarge (
    ID int identity(1,1) not null primary key,
    dischDate date null,
    dischTime time(0) null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    wardID varchar(50) null,
    Reason varchar(max) null,
    Remarks varchar(max) null,
    apprvby varchar(20) null,
    ApptDate date null
)
GO
-- select distinct * from qryhDischarge where dischdate = '24-Nov-2026'
create index IX_hdischarge_dischDate on hdischarge (dischDate)
GO
-- select * from hdischarge where consultID ='001000000001'; ... consultID in (select consultID from hdischarge)
create index IX_hdischarge_consultID on hdischarge (consultID)
GO
-- The nurses' discharge. apprvby is an empID; null where a stay was closed from the overdue list.
create table hdischargeForNurse (
    ID int identity(1,1) not null primary key,
    dischDate date null,
    dischTime time(0) null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    wardID varchar(50) null,
    Reason varchar(max) null,
    Remarks varchar(max) null,
    apprvby varchar(20) null,
    ApptDate date null
)
GO
-- select * from qryhDischargedX where dischdate='24-Nov-2026'
create index IX_hdischargeForNurse_dischDate on hdischargeForNurse (dischDate)
GO
-- ... where consultID='001000000001'
create index IX_hdischargeForNurse_consultID on hdischargeForNurse (consultID)
GO

-- One row a stay that no nurse has closed: the patients now in the wards.
create view qryhAdmission as
select a.SNO, a.admdate as AdmDate, a.aTime, p.psurname + ' ' + p.pfirstName as Fullname, a.wardID as WardID,
    a.clientCat, c.retainName as Company, e.lastname + ' ' + e.firstname as DoctorName, a.diagnosis as Diagnosis,
    a.Reason, a.Remarks, a.PNo as pNo, a.consultID,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.sex as Sex, p.DOB, p.PolicyType, p.CoyName as retainID, c.retainName as CoyName, a.ExtendAdmissionLimitTo,
    a.Comment, a.isdischarged, datediff(day, a.admdate, getdate()) as NoOfDays
from hAdmission a
inner join hPatients p on p.PNo = a.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = a.AdmitingDoc
where a.isdischarged = 0
GO

-- One row a stay, open or closed; NoOfDays runs to the discharge, to now while open, null where its day is not known.
create view qryhAdmissionHist as
select a.SNO, a.admdate, a.aTime, p.psurname + ' ' + p.pfirstName as fullname, a.Reason, c.retainName as company,
    a.wardID, e.lastname + ' ' + e.firstname as DoctorName,
    case when a.isdischarged = 0 then datediff(day, a.admdate, getdate())
        else datediff(day, a.admdate, a.DischDate) end as NoOfDays,
    a.AdmitingDoc, a.PNo, a.consultID, a.DischDate
from hAdmission a
inner join hPatients p on p.PNo = a.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = a.AdmitingDoc
GO

-- One row a stay, open or closed, as in qryhAdmissionHist; the caller names the day of admission.
create view qryhAdmissionForToday as
select h.SNO, h.admdate, h.aTime, h.fullname, h.Reason, h.company, h.wardID, h.DoctorName, h.NoOfDays
from qryhAdmissionHist h
GO

-- One row a stay of a patient, past or present.
create view vwhAdmissionHist as
select a.consultID as ConsultID, p.psurname + ' ' + p.pfirstName as fullname, a.admdate as AdmDate, a.aTime as ATime,
    a.PNo as pNO
from hAdmission a
inner join hPatients p on p.PNo = a.PNo
GO

-- One row a consultation of a stay, one with no cDate for a stay without any; NoOfDays as in qryhAdmissionHist.
create view vwAdmissionForCoy as
select a.SNO, n.ID as conID, a.admdate as AdmDate, c.retainCode, c.retainName as company, a.PNo as pNo,
    a.consultID, n.CDate as cDate, p.psurname + ' ' + p.pfirstName as Fullname,
    isnull(n.diagnosis, a.diagnosis) as diagnosis, n.preScription as prescription, a.DischDate as dischDate,
    case when a.isdischarged = 0 then datediff(day, a.admdate, getdate())
        else datediff(day, a.admdate, a.DischDate) end as NoOfDays
from hAdmission a
inner join hPatients p on p.PNo = a.PNo
left join hRetainership c on c.retainID = p.CoyName
left join hConsulting n on n.consultID = a.consultID
GO

-- One row a discharge by a doctor; StaffNo is that doctor's empID.
create view qryhDischarge as
select d.ID, d.consultID, d.PNo as pno, d.clientCat, d.wardID, d.Remarks as remarks, d.Reason as reason,
    d.apprvby as StaffNo, d.dischDate, d.ApptDate as apptDate
from hdischarge d
GO

-- One row a discharge by a nurse; StaffName is the nurse, null from the overdue list.
create view qryhDischargeForNurse as
select d.ID, d.dischDate as DischDate, d.dischTime as DischTime, p.psurname + ' ' + p.pfirstName as Fullname,
    e.lastname + ' ' + e.firstname as StaffName, d.wardID as WardID, d.Remarks, d.Reason, d.clientCat as ClientCat,
    d.consultID as ConsultID, d.PNo
from hdischargeForNurse d
inner join hPatients p on p.PNo = d.PNo
left join employees e on e.empID = d.apprvby
GO

-- One row a discharge by a nurse, as the lists of the discharged print it.
create view qryhDischargedX as
select d.ID, d.dischDate as dischdate, d.dischTime, p.psurname + ' ' + p.pfirstName as fullname, d.Reason,
    e.lastname + ' ' + e.firstname as Approvedby, d.Remarks, d.wardID
from hdischargeForNurse d
inner join hPatients p on p.PNo = d.PNo
left join employees e on e.empID = d.apprvby
GO
