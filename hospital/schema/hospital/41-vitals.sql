-- Vital signs of out-patients and in-patients, every reading as the text that was typed, and their twin for the trends.

-- Remarks is "OUT-PATIENT" or "ADMISSION", Pressure systolic "/" diastolic, examinedby an empID; a higher ID is newer.
-- temp is in degrees C, Weight in kg, Height in m, SPO2 in per cent.
create table hPreConsult (
    ID int identity(1,1) not null primary key,
    preDate date null,
    preTime time(0) null,
    PNo varchar(20) null,
    examinedby varchar(20) null,
    Remarks varchar(200) null,
    temp varchar(20) null,
    Pressure varchar(20) null,
    pulse varchar(20) null,
    Weight varchar(20) null,
    Height varchar(20) null,
    urineAlb varchar(50) null,
    urineSug varchar(50) null,
    respRatio varchar(20) null,
    clientCat varchar(50) null,
    consultID varchar(20) null,
    Status varchar(200) null,
    SPO2 varchar(20) null,
    RBS varchar(20) null,
    Positioning varchar(100) null,
    Stool varchar(100) null,
    Urine varchar(100) null,
    Sdrainage varchar(100) null,
    Comment varchar(max) null
)
GO
-- select * from qryhvitalsigns where predate='24-Nov-2026'
create index IX_hPreConsult_preDate on hPreConsult (preDate)
GO
-- select * from qryhVitalSigns where consultID='001000000001' order by predate desc,pretime desc
create index IX_hPreConsult_consultID on hPreConsult (consultID)
GO
-- the last readings of a patient: where pno='000000001/001'
create index IX_hPreConsult_PNo on hPreConsult (PNo)
GO
-- The readings of hPreConsult under the same ID, as they are plotted: Pressure1 is systolic, Pressure2 diastolic. A row
-- stays when its readings are deleted.
create table hPreConsultChart (
    ID int not null primary key,
    consultID varchar(20) null,
    preDate date null,
    preTime time(0) null,
    temp varchar(20) null,
    Pressure1 varchar(20) null,
    Pressure2 varchar(20) null,
    pulse varchar(20) null,
    Weight varchar(20) null,
    Height varchar(20) null,
    respRatio varchar(20) null
)
GO
-- SELECT preDate, pulse FROM hpreConsultChart where consultID='001000000001' order by predate,pretime
create index IX_hPreConsultChart_consultID on hPreConsultChart (consultID, preDate, preTime)
GO

-- One row a set of readings, of any day.
create view qryhpreconsultForGridAdm as
select v.ID, v.preDate as Date, v.preTime as Time, p.psurname + ' ' + p.pfirstName as FullName, v.temp as Temp,
    v.Pressure, v.pulse as Pulse, v.respRatio as RespRatio, v.Weight as weight, v.Height, v.SPO2, v.RBS,
    v.Positioning, v.Stool, v.Urine, v.Sdrainage, v.urineAlb as UrineAlb, v.urineSug as UrineSug,
    v.Remarks as Details, v.Comment, v.Status, e.lastname + ' ' + e.firstname as Nurse, v.consultID as ConsultID,
    v.clientCat as ClientCat, v.PNo, v.examinedby as empID
from hPreConsult v
inner join hPatients p on p.PNo = v.PNo
left join employees e on e.empID = v.examinedby
GO

-- One row a set of readings of today or yesterday: a night shift still corrects those of the evening.
create view qryhpreconsultForGrid as
select g.*
from qryhpreconsultForGridAdm g
where g.Date >= dateadd(day, -1, cast(getdate() as date))
GO

-- One row a set of readings, of which only the last four of a visit are here.
create view qryhPreConsult as
select v.ID, v.temp, v.Pressure as pressure, v.preDate as predate, v.preTime as pretime, v.consultID as consultid,
    v.clientCat, v.PNo, p.psurname + ' ' + p.pfirstName as fullName
from hPreConsult v
inner join hPatients p on p.PNo = v.PNo
where (select count(*) from hPreConsult l where l.consultID = v.consultID and l.ID > v.ID) < 4
GO

-- One row a set of readings and consultation of its visit; conID is the ID of hConsulting.
create view qryhPreconsultEdit as
select v.ID, n.ID as conID, v.consultID, v.PNo, v.preDate, v.preTime, v.temp, v.Pressure, v.pulse, v.Weight, v.Height,
    v.respRatio, v.urineAlb, v.urineSug, v.SPO2, v.RBS, e.lastname + ' ' + e.firstname as Nurse
from hConsulting n
inner join hPreConsult v on v.consultID = n.consultID
left join employees e on e.empID = v.examinedby
GO

-- One row a visit with its last readings, which may be none. CoyName is the client's name, Company its key.
create view qryhPreConsultVitalsOptional as
select r.recID, r.consultID, r.PNo, p.psurname + ' ' + p.pfirstName as FullName, r.clientCat, p.sex as Sex,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.occupation, p.bloodGroup, p.genotype, v.temp, v.Pressure, v.pulse, v.Weight, v.Height, v.respRatio, v.urineAlb,
    v.urineSug, c.retainName as CoyName, r.CoyName as Company, isnull(v.Status, r.Remarks) as Status
from hRecords r
inner join hPatients p on p.PNo = r.PNo
left join hRetainership c on c.retainID = r.CoyName
left join hPreConsult v on v.ID = (select max(l.ID) from hPreConsult l where l.consultID = r.consultID)
GO

-- One row a set of readings; AdmDate is null where the visit led to no stay.
create view qryhvitalsigns as
select v.preDate as predate, v.preTime as pretime, p.psurname + ' ' + p.pfirstName as fullname, v.consultID,
    v.Pressure as pressure, v.pulse, v.temp, v.Weight as weight, v.Height as height, v.respRatio as respratio,
    v.SPO2 as spo2, v.Remarks, a.admdate as AdmDate, v.PNo as pNO
from hPreConsult v
inner join hPatients p on p.PNo = v.PNo
left join hAdmission a on a.consultID = v.consultID
GO
