-- Requests and results of the laboratory, which its own module writes.

-- One row a laboratory number. conID is the row of hConsulting that asked for it. A number without it is the public's:
-- somebody sent from outside, who need be no patient of the hospital, so fullname, sex, Age and RequestedBy hold the
-- person and the sender as they were written down.
create table hLabRequests (
    LabNo varchar(20) not null primary key,
    invDate date null,
    invTime time(0) null,
    conID int null,
    consultID varchar(20) null,
    PNo varchar(20) null,
    fullname varchar(100) null,
    sex varchar(10) null,
    Age int null,
    RequestedBy varchar(100) null,
    Remarks varchar(200) null
)
GO
-- SELECT distinct ConID,fullname,Labno,invDate FROM vwInvResultForRptAlt where invdate between '23-Nov-2026' and ...
create index IX_hLabRequests_invDate on hLabRequests (invDate)
GO
-- select top 1 invDate,... from vwhInvResForPrevConsultation where treatedBy= 'D001' and consultID='001000000001'
create index IX_hLabRequests_consultID on hLabRequests (consultID)
GO
-- One row a test of a laboratory number, in the order of SerialNo. doneBy is the scientist's empID.
create table hLabResults (
    ID int identity(1,1) not null primary key,
    LabNo varchar(20) not null,
    SerialNo int not null default 0,
    investigate varchar(200) null,
    invResult varchar(max) null,
    Unit varchar(50) null,
    RefRange varchar(100) null,
    Remarks varchar(200) null,
    doneBy varchar(20) null
)
GO
-- select distinct * from vwInvResultForRpt where LabNo='L26/00001' and conID=17  order by SerialNo asc
create index IX_hLabResults_LabNo on hLabResults (LabNo)
GO
-- The Widal test: the titres of the O and H antigens of Salmonella typhi and of paratyphi A, B and C, as "1/80".
create table hLabWidal (
    LabNo varchar(20) not null primary key,
    TyphiO varchar(20) null,
    TyphiH varchar(20) null,
    ParatyphiAO varchar(20) null,
    ParatyphiAH varchar(20) null,
    ParatyphiBO varchar(20) null,
    ParatyphiBH varchar(20) null,
    ParatyphiCO varchar(20) null,
    ParatyphiCH varchar(20) null,
    Remarks varchar(200) null
)
GO
-- The pathologist's report on tissue. pathologist is an empID.
create table hLabHistology (
    LabNo varchar(20) not null primary key,
    reportDate date null,
    specimen varchar(200) null,
    clinicalDetails varchar(max) null,
    macroscopy varchar(max) null,
    microscopy varchar(max) null,
    diagnosis varchar(max) null,
    comment varchar(max) null,
    pathologist varchar(20) null
)
GO

-- One row a laboratory number that has a result of any kind; ConID is null for the public's.
create view vwInvResultForRptAlt as
select q.conID as ConID, isnull(p.psurname + ' ' + p.pfirstName, q.fullname) as fullname, q.LabNo as Labno, q.invDate
from hLabRequests q
left join hPatients p on p.PNo = q.PNo
where exists (select r.ID from hLabResults r where r.LabNo = q.LabNo)
    or exists (select w.LabNo from hLabWidal w where w.LabNo = q.LabNo)
    or exists (select h.LabNo from hLabHistology h where h.LabNo = q.LabNo)
GO

-- One row a test that a consultation asked for; Age in whole years.
create view vwInvResultForRpt as
select r.ID, q.LabNo, q.conID, r.SerialNo, q.invDate, q.invTime, q.consultID, q.PNo,
    p.psurname + ' ' + p.pfirstName as fullname, p.sex as Sex,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    c.retainName as CoyName, d.lastname + ' ' + d.firstname as Doctor, r.investigate, r.invResult, r.Unit, r.RefRange,
    r.Remarks, s.lastname + ' ' + s.firstname as DoneBy
from hLabRequests q
inner join hLabResults r on r.LabNo = q.LabNo
inner join hPatients p on p.PNo = q.PNo
left join hRetainership c on c.retainID = p.CoyName
left join hConsulting n on n.ID = q.conID
left join employees d on d.empID = n.treatedBy
left join employees s on s.empID = r.doneBy
where q.conID is not null
GO

-- One row a test of the public.
create view vwInvResultForRptPublic as
select r.ID, q.LabNo as labNo, r.SerialNo, q.invDate, q.invTime, q.PNo,
    isnull(p.psurname + ' ' + p.pfirstName, q.fullname) as fullname, isnull(p.sex, q.sex) as Sex, q.Age,
    q.RequestedBy as Doctor, r.investigate, r.invResult, r.Unit, r.RefRange, r.Remarks,
    s.lastname + ' ' + s.firstname as DoneBy
from hLabRequests q
inner join hLabResults r on r.LabNo = q.LabNo
left join hPatients p on p.PNo = q.PNo
left join employees s on s.empID = r.doneBy
where q.conID is null
GO

-- One row a Widal test.
create view vwWidal as
select LabNo, TyphiO, TyphiH, ParatyphiAO, ParatyphiAH, ParatyphiBO, ParatyphiBH, ParatyphiCO, ParatyphiCH, Remarks
from hLabWidal
GO

-- One row a tissue report that a consultation asked for; Age in whole years.
create view vwHistPathology as
select h.LabNo, q.conID, q.invDate, h.reportDate, q.consultID, q.PNo, p.psurname + ' ' + p.pfirstName as fullname,
    p.sex as Sex,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    c.retainName as CoyName, d.lastname + ' ' + d.firstname as Doctor, h.specimen, h.clinicalDetails, h.macroscopy,
    h.microscopy, h.diagnosis, h.comment, s.lastname + ' ' + s.firstname as Pathologist
from hLabHistology h
inner join hLabRequests q on q.LabNo = h.LabNo
inner join hPatients p on p.PNo = q.PNo
left join hRetainership c on c.retainID = p.CoyName
left join hConsulting n on n.ID = q.conID
left join employees d on d.empID = n.treatedBy
left join employees s on s.empID = h.pathologist
where q.conID is not null
GO

-- One row a tissue report of the public.
create view vwHistPathologyPublic as
select h.LabNo as labNo, q.invDate, h.reportDate, q.PNo,
    isnull(p.psurname + ' ' + p.pfirstName, q.fullname) as fullname, isnull(p.sex, q.sex) as Sex, q.Age,
    q.RequestedBy as Doctor, h.specimen, h.clinicalDetails, h.macroscopy, h.microscopy, h.diagnosis, h.comment,
    s.lastname + ' ' + s.firstname as Pathologist
from hLabHistology h
inner join hLabRequests q on q.LabNo = h.LabNo
left join hPatients p on p.PNo = q.PNo
left join employees s on s.empID = h.pathologist
where q.conID is null
GO

-- One row a test that a consultation asked for, with the doctor who asked; a higher ID is newer.
create view vwhInvResForPrevConsultation as
select r.ID, q.invDate, q.PNo as pno, q.consultID as consultid, r.investigate, r.invResult, n.treatedBy
from hLabRequests q
inner join hLabResults r on r.LabNo = q.LabNo
inner join hConsulting n on n.ID = q.conID
GO
