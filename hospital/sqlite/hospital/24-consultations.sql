-- What the embedded engine has besides: the patients with a consultation stand ready in the order of their names.

-- SELECT distinct fullname,pNo FROM qryhConsultedPatients  order by fullname
create ordered index on qryhConsultedPatients (fullname, pNo) key index pNo
following hPatients (PNo, psurname, pfirstName), hConsulting (PNo)
GO
