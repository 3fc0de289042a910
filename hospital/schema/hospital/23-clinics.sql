-- Clinics with their doctors and days, the consulting rooms, the doctors' queues, and referrals to a clinic or a ward.

-- Visits, appointments and referrals name a clinic by its ClinicID. clinicdays is a text to be read, "MON, THU".
create table clinicTypes (
    ClinicID varchar(100) not null primary key,
    ClinicName varchar(100) null,
    Regfee money null,
    clinicdays varchar(100) null
)
GO
-- The clinics that a doctor sees patients in.
create table hDoctorClinics (
    empID varchar(20) not null,
    ClinicID varchar(100) not null,
    primary key (empID, ClinicID)
)
GO
-- The hours at which a clinic takes appointments. WeekDayNo is 1 for Monday to 7 for Sunday; Places is how many are
-- taken a day, null for any number.
create table hClinicDays (
    SNo int identity(1,1) not null primary key,
    ClinicID varchar(100) not null,
    WeekDayNo int not null,
    ClinicTime time(0) null,
    Places int null
)
GO
-- ... from vwClinicDays where clinic='IMMUNIZATION'
create index IX_hClinicDays_ClinicID on hClinicDays (ClinicID)
GO
-- How many weeks ahead appointments are given: one row a week, 0 for the seven days from tomorrow.
create table hClinicWeeks (
    WeekNo int not null primary key
)
GO
insert into hClinicWeeks (WeekNo) values (0), (1), (2), (3), (4), (5), (6), (7), (8), (9), (10), (11), (12), (13), (14),
    (15), (16), (17), (18), (19), (20), (21), (22), (23), (24), (25), (26), (27), (28), (29), (30), (31), (32), (33),
    (34), (35), (36), (37), (38), (39)
GO
create table hConsultingRooms (
    ConRmName varchar(50) not null primary key,
    Location varchar(50) null
)
GO
-- Which doctor sits in which room on a day; docNo is an empID, isOff 1 once the doctor has closed for the day.
create table hConRoomAssign (
    SNO int identity(1,1) not null primary key,
    schdDate date null,
    ConRoomNo varchar(50) null,
    docNo varchar(20) null,
    isOff bit not null default 0
)
GO
-- Delete hConRoomAssign where SchdDate < '24-Nov-2026'; the room of a doctor on a day
create index IX_hConRoomAssign_schdDate on hConRoomAssign (schdDate, docNo)
GO

-- conID is the row of hConsulting that refers the patient; referto names the clinic.
create table hreferal (
    ID int identity(1,1) not null primary key,
    consultID varchar(20) null,
    clientCat varchar(50) null,
    referto varchar(100) null,
    ApptDate date null,
    ApptTime time(0) null,
    refReason varchar(max) null,
    PNo varchar(20) null,
    refDate date null,
    refTime time(0) null,
    attendedto int not null default 0,
    conID int null,
    entryDate date null,
    entryTime time(0) null
)
GO
-- ... where consultID='001000000001'
create index IX_hreferal_consultID on hreferal (consultID)
GO
-- ... from vwAdmissionWaitList where date='24-Nov-2026'; ... and refdate between '23-Nov-2026' AND '24-Nov-2026'
create index IX_hreferal_refDate on hreferal (refDate, attendedto)
GO

-- One row a doctor and clinic; a doctor without a clinic has one row, with a null ClinicID.
create view qryUserRoleClinic as
select u.EmpID, u.Fullname, u.Fullname as Doctor, d.ClinicID
from vwUsers u
left join hDoctorClinics d on d.empID = u.EmpID
where u.loginrole = 'CONSULTING' and u.AccountStatus = 'Enabled'
GO

-- One row a doctor's room on a day.
create view vwdocAssign as
select a.SNO, a.schdDate as Date, e.lastname + ' ' + e.firstname as DocName, a.ConRoomNo as RoomNo, m.Location,
    a.docNo as empID
from hConRoomAssign a
left join hConsultingRooms m on m.ConRmName = a.ConRoomNo
left join employees e on e.empID = a.docNo
GO

-- One row a doctor's room on a day and clinic of the doctor.
create view vwDocClinicAndPatAssignedAll as
select a.docNo as EmpID, e.lastname + ' ' + e.firstname as Doctor, e.lastname + ' ' + e.firstname as DocName,
    a.ConRoomNo, a.ConRoomNo as RoomNo, a.isOff as IsOff, a.schdDate as Date, d.ClinicID
from hConRoomAssign a
inner join hDoctorClinics d on d.empID = a.docNo
left join employees e on e.empID = a.docNo
GO

-- The same with the number of patients who wait for the doctor, in any clinic.
create view vwDocMinNumOfPat as
select a.docNo as EmpID, e.lastname + ' ' + e.firstname as Doctor, e.lastname + ' ' + e.firstname as DocName,
    a.ConRoomNo, a.ConRoomNo as RoomNo, a.isOff as IsOff, a.schdDate as Date, d.ClinicID,
    (select count(*) from hRecords r where r.recDate = a.schdDate and r.DocAssigned = a.docNo and r.PatVal = 1
        and r.attendedtoByDoc = 0) as NumOfPat
from hConRoomAssign a
inner join hDoctorClinics d on d.empID = a.docNo
left join employees e on e.empID = a.docNo
GO

-- One row a patient who waits for a doctor.
create view vwDocWaitingList as
select r.recID, r.recDate as Date,
    (select max(a.ConRoomNo) from hConRoomAssign a where a.schdDate = r.recDate and a.docNo = r.DocAssigned) as RoomNo,
    t.ClinicName, e.lastname + ' ' + e.firstname as Doctor, e.lastname + ' ' + e.firstname as DocName,
    p.psurname + ' ' + p.pfirstName as Patient, r.DocAssigned as empID, r.clinicType as ClinicID
from hRecords r
inner join hPatients p on p.PNo = r.PNo
left join clinicTypes t on t.ClinicID = r.clinicType
left join employees e on e.empID = r.DocAssigned
where r.PatVal = 1 and r.attendedtoByDoc = 0 and r.DocAssigned <> ''
GO

-- One row a doctor, room, day and clinic in which somebody waits; a doctor who is in and for whom nobody waits has one
-- row, with NumOfPat 0. NumOfPat counts all who wait for the doctor, in any clinic.
create view vwDocWaitingListGrouped as
select k.recDate as Date, a.ConRoomNo as RoomNo, e.lastname + ' ' + e.firstname as DocName,
    e.lastname + ' ' + e.firstname as Doctor, k.clinicType as ClinicID, k.DocAssigned as EmpID,
    (select count(*) from hRecords q where q.recDate = k.recDate and q.DocAssigned = k.DocAssigned and q.PatVal = 1
        and q.attendedtoByDoc = 0) as NumOfPat
from (select distinct w.recDate, w.DocAssigned, w.clinicType from hRecords w
    where w.PatVal = 1 and w.attendedtoByDoc = 0 and w.DocAssigned <> '') k
left join hConRoomAssign a on a.schdDate = k.recDate and a.docNo = k.DocAssigned
left join employees e on e.empID = k.DocAssigned
union all
select a.schdDate, a.ConRoomNo, e.lastname + ' ' + e.firstname, e.lastname + ' ' + e.firstname,
    (select min(d.ClinicID) from hDoctorClinics d where d.empID = a.docNo), a.docNo, 0
from hConRoomAssign a
left join employees e on e.empID = a.docNo
where a.isOff = 0 and not exists (select * from hRecords r where r.recDate = a.schdDate and r.DocAssigned = a.docNo
    and r.PatVal = 1 and r.attendedtoByDoc = 0)
GO

-- One row a weekly hour at which a clinic takes appointments.
create view vwClinicDays as
select d.SNo, d.ClinicID as Clinic, d.WeekDayNo, d.ClinicTime, d.Places
from hClinicDays d
GO

-- One row a clinic and hour of the coming weeks, from tomorrow; the first of January 1900 was a Monday.
create view vwhClinicDates as
select d.SNo * 100 + w.WeekNo as SNo, d.ClinicID as Clinic,
    dateadd(day, (d.WeekDayNo + 5 - datediff(day, '1900-01-01', getdate()) % 7) % 7 + 1 + 7 * w.WeekNo,
        cast(getdate() as date)) as ClinicDate,
    d.ClinicTime, d.Places
from hClinicDays d
cross join hClinicWeeks w
GO

-- One row a referral to the wards that nobody has attended to yet; the room is the referring doctor's of that day.
create view vwAdmissionWaitList as
select f.refDate as Date, f.refTime as Time, p.psurname + ' ' + p.pfirstName as Patient, p.sex as Sex,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    c.retainName as Coyname, e.lastname + ' ' + e.firstname as Doctor,
    (select max(a.ConRoomNo) from hConRoomAssign a where a.schdDate = f.refDate and a.docNo = n.treatedBy) as RoomNo
from hreferal f
inner join hPatients p on p.PNo = f.PNo
left join hRetainership c on c.retainID = p.CoyName
left join hConsulting n on n.ID = f.conID
left join employees e on e.empID = n.treatedBy
where f.referto in ('(IN-PATIENT)', 'IN-PATIENT') and f.attendedto = 0
GO

-- One row a referral, attended to or not; treatedBy is the empID of the doctor in ReferedBy.
create view qryhreferal as
select f.ID, f.PNo as pNO, p.psurname as pSurname, p.pfirstName as pFirstname, c.retainName as Company, f.refDate,
    f.refTime as RefTime, f.ApptDate, f.ApptTime, f.clientCat as ClientCat, f.referto as referTo, f.refReason,
    f.consultID as ConsultID, f.attendedto as AttendedTo, e.lastname + ' ' + e.firstname as ReferedBy, n.treatedBy,
    n.diagnosis, f.conID
from hreferal f
inner join hPatients p on p.PNo = f.PNo
left join hRetainership c on c.retainID = p.CoyName
left join hConsulting n on n.ID = f.conID
left join employees e on e.empID = n.treatedBy
GO

-- The days from tomorrow on which a clinic has a place left.
create procedure getDatesForClinic
    @clinic varchar(200)
as
begin
    select c.ClinicDate, c.ClinicTime, c.SNo
    from vwhClinicDates c
    where c.Clinic = @clinic and (c.Places is null or c.Places > (select count(*) from happointment a
        where a.clinicType = c.Clinic and a.ApptDate = c.ClinicDate))
    order by c.ClinicDate, c.ClinicTime
end
GO
