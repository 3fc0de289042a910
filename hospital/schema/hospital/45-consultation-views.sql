-- How consultations and referrals are read where the stays in the wards count too.

-- One row a consultation; WardID is that of the visit's stay, null where it led to none. treatedBy is the name of the
-- doctor in empID; coyname is the key of the client in client and company.
create view qryhConsulting as
select n.ID, n.CDate as cDate, n.cTime, p.psurname + ' ' + p.pfirstName as fullname, n.PNo as pNo, n.consultID,
    n.genphy, n.clientCat as clientcat, n.diagnosis, n.preScription as prescription, n.treatPlan,
    (select max(a.wardID) from hAdmission a where a.consultID = n.consultID) as WardID,
    e.lastname + ' ' + e.firstname as treatedBy, n.nextApptDate, n.Preconsult, n.Complaints as complaints,
    n.sysreview as sysReview, n.phyexam as phyExam, n.diffdiagnosis as diffDiagnosis, n.investigate, n.referto,
    n.Result as result, c.retainName as company,
    (datediff(month, p.DOB, getdate()) - case when day(p.DOB) > day(getdate()) then 1 else 0 end) / 12 as Age,
    p.sex as Sex, c.retainCode, n.treatedBy as empID, p.CoyName as coyname, p.OldPNo as oldpNo, n.Treatment, p.empNo,
    p.PolicyType as policyType, c.retainName as client
from hConsulting n
inner join hPatients p on p.PNo = n.PNo
left join hRetainership c on c.retainID = p.CoyName
left join employees e on e.empID = n.treatedBy
GO

-- One row a referral of a visit whose patient was admitted on it.
create view qryhReferalForEdit as
select f.*
from qryhreferal f
where exists (select * from hAdmission a where a.consultID = f.ConsultID)
GO
