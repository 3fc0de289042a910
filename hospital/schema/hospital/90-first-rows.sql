-- The rows without which nothing starts, and a value for every setting that is read.

insert into hHospital (HospitalNo, hname, Address, PhoneNo)
values ('001', 'Vorel Hospital', '14 Marina Road, Lagos', '08030001000')
GO
insert into AppDefaults (ID, idval) values
    ('PRIVATE', '0001'),
    ('NHISFEE', '10'),
    ('LockPrice', 'YES'),
    ('Consult_Revtype', 'CONSULTATION'),
    ('AcctPostOn', 'NO'),
    ('AcctPostType', 'BATCH'),
    ('AUTO_TRAN_NO', 'YES'),
    ('AcctCostCenter', '001'),
    ('AcctNoPOS', '1010'),
    ('AcctNoCheque', '1020'),
    ('AcctNoTransfer', '1030'),
    ('AcctNoCash', '1040'),
    ('AcctNoOthers', '0000'),
    ('CashAccountIndex', '1'),
    ('ARAccountIndex', '2'),
    ('AcctNoSales', '4010'),
    ('AcctNoSalesInv', '4020'),
    ('LockOldVersion', 'YES'),
    ('LockDiscount', 'NO'),
    ('LockDebt', 'NO'),
    ('TranxStartDateForDebt', '01-Jan-06'),
    ('AutoUpdateTariff', 'NO'),
    ('AppLocation', 'Lagos'),
    ('LockAttendanceForInPatients', 'YES'),
    ('LockMultipleAttendnace', 'YES'),
    ('CallDefaults', 'HOURLY'),
    ('shutDown', 'NO'),
    ('SearchValue', '20'),
    ('EnableDOBExport', 'NO'),
    ('SearchWaitTime', '3000'),
    ('Revtype_Consult', 'CONSULTATION'),
    ('LockSignedBill', 'YES'),
    ('RevType_Drug', 'TREATMENT'),
    ('RevType_Misc', 'PROFESSIONAL FEE'),
    ('Clinic_PhoneNo', '08030001000'),
    ('Clinic_Period', 'Between 10am - 3pm'),
    ('Hospital_Archive_Exists', 'NO'),
    ('Admission_Limit_Exists', 'YES'),
    ('Private_Pays_Deposit_Before_Admission', 'YES'),
    ('Assign_Doctors_to_Consulting_Rooms', 'NO'),
    ('Assign_Patients_to_Doctors', 'YES'),
    ('Show_Nurses_As_Doctors', 'NO')
GO
insert into appSettings (ID, idval, idval2, idval3, idval5) values
    ('RECEIPT', null, null, null, 'A5'),
    ('LAB', 'LABSERVER', 'Laboratory', 'LAB', 'A4')
GO
insert into Roles (RoleID, LoginRole, MinVer) values
    (101, 'NURSING', 1),
    (102, 'MANAGEMENT', 1),
    (103, 'CONSULTING', 1),
    (104, 'RECORDS', 1),
    (105, 'TARIFF', 1)
GO
insert into idgen (destNAme, id, prefix, digits, suffix) values
    ('PATIENT2', 0, '', 9, '/001'),
    ('ConsultID2', 0, '001', 9, '')
GO
insert into hRetainership (retainID, retainName, retainCode, ClientType, clientcatID, RegAmount, ConAmount,
    CardRenewAmount)
values ('0001', 'PRIVATE', 'PRIVATE', 'PRIVATE', 'PRIVATE', 5000, 3000, 2000)
GO
insert into hDepts (DeptName) values
    ('NURSING'), ('CONSULTING'), ('PHARMACY'), ('LABORATORY'), ('RECORDS'), ('BILLING')
GO
insert into billingPrice (clientcatID, clientType, pcent, pvalue) values
    ('PRIVATE', 'PRIVATE', 0, 0), ('NHIS', 'NHIS', 0, 0), ('HMO', 'HMO', 10, 0.1), ('PHIS', 'PHIS', 5, 0.05),
    ('COMPANY', 'COMPANY', 25, 0.25)
GO
-- The name of a clinic is its ClinicID: visits and messages look a clinic up by either.
insert into clinicTypes (ClinicID, ClinicName, Regfee, clinicdays) values
    ('(GENERAL)', '(GENERAL)', 5000, 'DAILY'), ('(IN-PATIENT)', '(IN-PATIENT)', 0, 'DAILY'),
    ('IMMUNIZATION', 'IMMUNIZATION', 1000, 'TUE, THU'), ('DIALYSIS', 'DIALYSIS', 10000, 'MON TO SAT')
GO
insert into hClinicPurpose (Purpose) values
    ('(CONSULTATION)'), ('APPOINTMENT'), ('SCREENING'), ('EXEC-SCREENING'), ('PRE-EMPLOYMENT'), ('IMMUNIZATION'),
    ('DIALYSIS')
GO
-- The categories that screens ask for by name. A ward's item has one whose deptbillcenter is "ADMISSION".
insert into drugcategories (drgCatname, deptbillcenter) values
    ('INJECTIONS', 'PHARMACY'), ('VACCINES', 'PHARMACY'), ('DROP', 'PHARMACY'), ('ORAL', 'PHARMACY'),
    ('DRESSING', 'ADMISSION'), ('DRY STOCK', 'ADMISSION'), ('ADMISSION SERVICES', 'ADMISSION'), ('FEES', 'NURSING')
GO
-- The fees that screens charge by name, free until the hospital sets its own.
insert into drugs (drgName, drgCatName, pharmCat, qtyPerUnit, Cost, NHIScost, Remarks) values
    ('INJECTION_FEE', 'FEES', 'NURSING', '1', 0, 0, 'PRIVATE'), ('PHARM_FEE', 'FEES', 'PHARMACY', '1', 0, 0, 'PRIVATE')
GO
