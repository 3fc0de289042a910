-- Vital signs of out-patients and in-patients, every reading as the text that was typed.

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

-- One row a set of readings; AdmDate is null where the visit led to no stay.
create view qryhvitalsigns as
select v.preDate as predate, v.preTime as pretime, p.psurname + ' ' + p.pfirstName as fullname, v.consultID,
    v.Pressure as pressure, v.pulse, v.temp, v.Weight as weight, v.Height as height, v.respRatio as respratio,
    v.SPO2 as spo2, v.Remarks, a.admdate as AdmDate, v.PNo as pNO
from hPreConsult v
inner join hPatients p on p.PNo = v.PNo
left join hAdmission a on a.consultID = v.consultID
GO
