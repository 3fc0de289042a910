-- What departments tell one another: notifications and comments.

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
