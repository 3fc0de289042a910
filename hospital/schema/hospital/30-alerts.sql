-- What departments tell one another: notifications and comments; deaths, and how in-patients left against the plan.

create table hDepts (
    DeptName varchar(50) not null primary key
)
GO
-- Notifications of other modules to a department, each about one visit.
create table hNotify (
    SNo int identity(1,1) not null primary key,
    nDate date null,
    nTime time(0) null,
    consultID varchar(20) null,
    PNo varchar(20) null,
    NotifyDept varchar(50) null,
    Remarks varchar(max) null,
    AttendedTo varchar(10) not null default 'NO'
)
GO
-- ... FROM  vwhNotify where NotifyDept='NURSING' and Date='24-Nov-2026' order by SNo Desc
create index IX_hNotify_NotifyDept on hNotify (NotifyDept, nDate)
GO
create table hComments (
    SNo int identity(1,1) not null primary key,
    Dept varchar(50) null,
    consultID varchar(20) null,
    attendedto varchar(10) not null default 'NO',
    Comment varchar(max) null,
    CDate date null,
    ctime time(0) null
)
GO
-- ... FROM  vwhComments where dept='NURSING' and Date='24-Nov-2026'; Update hComments ... where Dept='NURSING'
create index IX_hComments_Dept on hComments (Dept, CDate)
GO
-- Deaths in the hospital: certifiedby is an empID, moveDate the day on which the body left the ward, Age in words.
create table hRests (
    SNo int identity(1,1) not null primary key,
    rDate date null,
    rtime time(0) null,
    PNo varchar(20) null,
    wardID varchar(50) null,
    certifiedby varchar(20) null,
    moveDate date null,
    Remarks varchar(max) null,
    Reason varchar(100) null,
    Age varchar(50) null
)
GO
-- select * from hRests where pNO ='000000001/001'
create index IX_hRests_PNo on hRests (PNo)
GO
-- IncidentType is one of the names that the report panel asks for: discharge against advice, abscond, referred.
create table hInPatientIncidents (
    SNo int identity(1,1) not null primary key,
    IncDate date null,
    IncidentType varchar(100) null,
    PNo varchar(20) null,
    consultID varchar(20) null,
    wardID varchar(50) null,
    Remarks varchar(max) null,
    empID varchar(20) null
)
GO
-- select * from vwhInPatientIncidents where IncidentType='Abscond rate' and IncDate Between '1-Nov-2026' And ...
create index IX_hInPatientIncidents_IncidentType on hInPatientIncidents (IncidentType, IncDate)
GO

-- One row a notification.
create view vwhNotify as
select n.SNo, n.nDate as Date, n.nTime as Time, p.psurname + ' ' + p.pfirstName as Fullname, n.Remarks, n.AttendedTo,
    n.consultID as ConsultID, n.NotifyDept
from hNotify n
left join hPatients p on p.PNo = n.PNo
GO

-- One row a comment; Fullname is that of the visit's patient, null for a comment on no visit.
create view vwhComments as
select c.SNo, c.CDate as Date, c.ctime as Time, p.psurname + ' ' + p.pfirstName as Fullname, c.Comment, c.Dept,
    c.attendedto as AttendedTo, c.consultID as ConsultID
from hComments c
left join hRecords r on r.consultID = c.consultID
left join hPatients p on p.PNo = r.PNo
GO

-- One row an in-patient who left otherwise than by a planned discharge; Age in whole years.
create view vwhInPatientIncidents as
select i.SNo, i.IncidentType, i.IncDate, p.psurname + ' ' + p.pfirstName as Fullname, i.PNo, i.consultID as ConsultID,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.sex as Sex, i.wardID as WardID, i.Remarks, e.lastname + ' ' + e.firstname as EmpName
from hInPatientIncidents i
inner join hPatients p on p.PNo = i.PNo
left join employees e on e.empID = i.empID
GO
