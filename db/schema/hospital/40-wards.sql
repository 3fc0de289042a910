-- Wards, stays, and the nurses' discharges.

create table hWards (
    wardID varchar(50) not null primary key,
    WardName varchar(100) null,
    Location varchar(50) null
)
GO
-- ExtendAdmissionLimitTo is the end of the stay that the scheme pays; AdmitBy and AdmitingDoc are empIDs.
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
-- apprvby is an empID; null where a stay was closed from the overdue list.
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

-- One row a stay, open or closed; the caller names the day of admission. NoOfDays runs to the discharge.
create view qryhAdmissionForToday as
select a.admdate, a.aTime, p.psurname + ' ' + p.pfirstName as fullname, a.Reason, c.retainName as company, a.wardID,
    e.lastname + ' ' + e.firstname as DoctorName,
    datediff(day, a.admdate, isnull(a.DischDate, getdate())) as NoOfDays
from hAdmission a
inner join hPatients p on p.PNo = a.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = a.AdmitingDoc
GO

-- One row a discharge by a nurse.
create view qryhDischargedX as
select d.dischDate as dischdate, d.dischTime, p.psurname + ' ' + p.pfirstName as fullname, d.Reason,
    e.lastname + ' ' + e.firstname as Approvedby, d.Remarks, d.wardID
from hdischargeForNurse d
inner join hPatients p on p.PNo = d.PNo
left join employees e on e.empID = d.apprvby
GO
