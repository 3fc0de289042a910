-- Each query finds rows of the demonstration hospital that break a rule which screens rely on.
select consultID from qryhAdmission group by consultID having count(*) > 1
select pNo from qryhAdmission group by pNo having count(*) > 1
select recID from hRecords where PNo not in (select PNo from hPatients)
select consultID from hRecords group by consultID having count(*) > 1
select recID from hRecords r where exists (select * from hRecords o where o.recID > r.recID and o.consultID < r.consultID)
select PNo from hPatients where CoyName not in (select retainID from hRetainership)
select retainID from hRetainership where clientcatID not in (select clientcatID from billingPrice)
select PNo from hPatients where Principal is not null and Principal not in (select PNo from hPatients)
select p.PNo from hPatients p inner join hRecords r on r.PNo = p.PNo where r.recDate < p.regDate
select PNo from hPatients where DOB > regDate or regDate > getdate()
select SNO from hAdmission where consultID not in (select consultID from hRecords)
select SNO from hAdmission where wardID not in (select wardID from hWards)
select SNO from hAdmission where isdischarged = 1 and consultID not in (select consultID from hdischargeForNurse)
select a.SNO from hAdmission a inner join hConsulting c on c.ID = a.conID where c.consultID <> a.consultID
select d.ID from hdischargeForNurse d inner join hAdmission a on a.consultID = d.consultID where a.isdischarged = 0
select ID from hPreConsult where consultID not in (select consultID from hRecords)
select ID from hPreConsultChart where ID not in (select ID from hPreConsult)
select ID from hConsulting where consultID not in (select consultID from hRecords)
select conID from hconsultingDetails where conID not in (select ID from hConsulting)
select drgName from hconsultingDetails where drgName not in (select drgName from DrugMaster)
select SNO from billAccum where consultID <> '' and consultID not in (select consultID from hRecords)
select SNO from billAccum where abs(SubTotal - Price * Qty) > 0.01
select BillNo from Payments where BillNo not in (select consultID from hRecords)
select ID from hMedChartMonitor where numtaken > numOfTimes or (attendedto = 1 and numtaken <> numOfTimes)
select SNo from hMedChartForNurse where iDNo not in (select ID from hMedChartMonitor)
select SNo from hDialysis where consultID not in (select consultID from hRecords)
select SNO from hDelivery where consultID not in (select consultID from hRecords)
select r.SNo from hAntenatalReg r inner join hPatients p on p.PNo = r.PNo where p.sex <> 'FEMALE'
select empID from hRecords where empID not in (select empID from employees)
select treatedBy from hConsulting where treatedBy not in (select empID from employees)
select PNo from hPatients where expired = 1 and expirydate > getdate()
-- every dose of the national schedule is an item that can be given
select Vaccine from hImmunizationSchedule where Vaccine not in (select drgName from DrugMaster)
