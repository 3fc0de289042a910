-- The rows of the demonstration hospital that no patient stands behind: staff, clients, clinics, wards, items and
-- prices. Every "@today" stands for the day on which it is made.

-- Staff. A user's name is the first name, short for two. Those who left keep their rows, and an account that is off.

insert into employees (empID, lastname, firstname, deptID) values
    ('N001', 'OKAFOR', 'ADAOBI', 'NUR'), ('N002', 'BELLO', 'HALIMA', 'NUR'), ('N003', 'ADEYEMI', 'FOLAKE', 'NUR'),
    ('N004', 'EFFIONG', 'INIOBONG', 'NUR'), ('N005', 'OGUNDIPE', 'MORENIKE', 'NURSING'),
    ('N006', 'IDRIS', 'RAKIYA', 'NUR'), ('N007', 'ANYANWU', 'NKECHI', 'NUR'), ('N008', 'TAMUNO', 'IBIERE', 'NUR'),
    ('N009', 'AIGBE', 'ESOSA', 'NUR'), ('N010', 'ONUOHA', 'PEACE', 'NUR'), ('N011', 'BAKARE', 'KUDIRAT', 'NURSING'),
    ('N012', 'JATAU', 'LARABA', 'NUR'), ('N013', 'UDOH', 'EKAETTE', 'NUR'), ('N014', 'IORLIAM', 'DOOSHIMA', 'NUR'),
    ('N015', 'OSAWE', 'ITOHAN', 'NUR'), ('N016', 'EZEUGO', 'IJEOMA', 'NUR'), ('N017', 'ALABI', 'TEMITOPE', 'NUR'),
    ('N018', 'SHEHU', 'MARYAM', 'NURSING'), ('N019', 'DAVIES', 'OMOTOLA', 'NUR'), ('N020', 'OTOBO', 'EJIRO', 'NUR'),
    ('N021', 'MAIGARI', 'NUHU', 'NUR'), ('N022', 'ONWUKA', 'KELECHI', 'NUR'), ('N023', 'OLORUNTOBA', 'BOSEDE', 'NUR'),
    ('N024', 'SA''ID', 'HADIZA', 'NUR'), ('N025', 'MBAH', 'ROSELINE', 'LEFT'), ('D001', 'NWOSU', 'CHUKWUEMEKA', 'MED'),
    ('D002', 'YAKUBU', 'SADIQ', 'MED'), ('D003', 'ADEGOKE', 'OLUFUNKE', 'MED'), ('D004', 'ETUK', 'ANIETIE', 'MED'),
    ('D005', 'OKORIE', 'UCHENNA', 'MED'), ('D006', 'BALOGUN', 'RASHEED', 'MED'), ('D007', 'DANLADI', 'HANNATU', 'MED'),
    ('D008', 'IKPEME', 'GODWIN', 'MED'), ('D009', 'AJIBOLA', 'MODUPE', 'MEDICAL'),
    ('D010', 'ONYEKWERE', 'CHINEDU', 'MEDICAL'), ('D011', 'TIJANI', 'KAFAYAT', 'MEDICAL'),
    ('D012', 'OMOROGBE', 'OSARETIN', 'MED'), ('D013', 'EKE', 'NKIRUKA', 'MED'), ('D014', 'LAWANI', 'SULEIMAN', 'MED'),
    ('D015', 'ABOLARIN', 'KEHINDE', 'LEFT'), ('M001', 'OLAWALE', 'BISI', 'ADM'), ('R001', 'OLADELE', 'SIMBIAT', 'REC'),
    ('R002', 'NNADI', 'CHIOMA', 'REC'), ('T001', 'ABIODUN', 'WASIU', 'ACC'), ('B001', 'ODUSANYA', 'LATEEF', 'ACC'),
    ('P001', 'OKWUDILI', 'FRANCA', 'PHM'), ('P002', 'YARO', 'HAMISU', 'PHM'), ('L001', 'ASUQUO', 'NSE', 'LAB'),
    ('L002', 'FAGBEMI', 'TUNDE', 'LAB'), ('L003', 'BRIGGS', 'IBINABO', 'LAB')
GO
-- No account has a password yet.
insert into Users (Username, EmpID, Fullname, Branchcode)
select case empID when 'N004' then 'ini' when 'D001' then 'emeka' else lower(firstname) end, empID,
    lastname + ' ' + firstname, '001'
from employees
GO
insert into ApplicationUsers (Username, AccountStatus)
select u.Username, case e.deptID when 'LEFT' then 'Disabled' else 'Enabled' end
from Users u
inner join employees e on e.empID = u.EmpID
GO
-- Everybody's first role; pharmacy, laboratory and cashier have theirs from their own modules.
insert into UserRoles (Username, RoleID)
select u.Username, r.RoleID
from Users u
inner join (select 'N' as kind, 101 as RoleID union all select 'M', 102 union all select 'D', 103
    union all select 'R', 104 union all select 'T', 105) r on r.kind = left(u.EmpID, 1)
GO
-- The matrons manage too.
insert into UserRoles (Username, RoleID)
select Username, 102 from Users where EmpID in ('N002', 'N005', 'N011')
GO

-- Who pays. 0011 is paid for by the same scheme as 0004; 0015 is the hospital for its own staff.

insert into billingPrice (clientcatID, clientType, pcent, pvalue) values
    ('STAFF', 'COMPANY', 0, 0)
GO
insert into hRetainership (retainID, retainName, retainCode, ClientType, clientcatID, RegAmount, ConAmount,
    CardRenewAmount, RetainDate, Contact, Address, PhoneNo, Email) values
    ('0002', 'AXIS CARE HMO', 'AXC', 'HMO', 'HMO', 0, 2500, 0, dateadd(day, -2410, @today), 'Mrs Bimbo Olaniyan',
        '18 Kingsway Road, Ikoyi', '08030002002', 'claims@axiscare.example'),
    ('0003', 'SUNRISE HEALTHCARE HMO', 'SRH', 'HMO', 'HMO', 0, 2500, 0, dateadd(day, -1895, @today), 'Mr Obiora Nduka',
        '5 Adeniyi Close, Ikeja', '08030002003', 'claims@sunrisehealthcare.example'),
    ('0004', 'NATIONAL HEALTH SCHEME', 'NHIS', 'NHIS', 'NHIS', 0, 1500, 0, dateadd(day, -3300, @today),
        'The Zonal Desk', '2 Secretariat Way, Ikoyi', '08030002004', 'desk@nationalscheme.example'),
    ('0005', 'LAGOON PUBLIC HEALTH SCHEME', 'PHIS', 'PHIS', 'PHIS', 0, 1500, 0, dateadd(day, -1460, @today),
        'Mr Ganiyu Oseni', '40 Secretariat Road, Ikeja', '08030002005', 'claims@lagoonscheme.example'),
    ('0006', 'NIGER BREEZE CEMENT PLC', 'NBC', 'COMPANY', 'COMPANY', 3000, 3000, 1500, dateadd(day, -2920, @today),
        'Mrs Patience Odili', 'Km 12 Badagry Expressway', '08030002006', 'hr@nigerbreeze.example'),
    ('0007', 'KOLA AND SONS TRANSPORT', 'KST', 'COMPANY', 'COMPANY', 3000, 3000, 1500, dateadd(day, -1310, @today),
        'Mr Kola Adisa', '77 Ikorodu Road, Maryland', '08030002007', 'office@kolaandsons.example'),
    ('0008', 'PALM TREE HEALTH HMO', 'PTH', 'HMO', 'HMO', 0, 2500, 0, dateadd(day, -980, @today), 'Miss Ene Ogbole',
        '11 Hughes Avenue, Yaba', '08030002008', 'claims@palmtreehealth.example'),
    ('0009', 'SAVANNAH MEDICARE HMO', 'SVM', 'HMO', 'HMO', 0, 2500, 0, dateadd(day, -75, @today), 'Mallam Bashir Tukur',
        '3 Commerce Street, Apapa', '08030002009', 'claims@savannahmedicare.example'),
    ('0010', 'UNITED TEACHERS HEALTH PLAN', 'UTP', 'PHIS', 'PHIS', 0, 1500, 0, dateadd(day, -700, @today),
        'Mr Sunday Achike', '9 School Road, Agege', '08030002010', 'plan@unitedteachers.example'),
    ('0011', 'UNIFORMED SERVICES SCHEME', 'USS', 'NHIS', 'NHIS', 0, 1500, 0, dateadd(day, -1620, @today),
        'Capt Istifanus Bako', '1 Barracks Road, Ojo', '08030002011', 'desk@uniformedscheme.example'),
    ('0012', 'BRIGHTWATER SAVINGS BANK PLC', 'BSB', 'COMPANY', 'COMPANY', 3000, 4000, 1500,
        dateadd(day, -2050, @today), 'Mrs Aderonke Phillips', '24 Broad Avenue, Lagos Island', '08030002012',
        'welfare@brightwater.example'),
    ('0013', 'QUAYSIDE CARGO HANDLING LTD', 'QCH', 'COMPANY', 'COMPANY', 3000, 3000, 1500, dateadd(day, -430, @today),
        'Mr Preye Amadi', '6 Wharf Lane, Apapa', '08030002013', 'hr@quaysidecargo.example'),
    ('0014', 'GOLDEN SHEAF FOODS LTD', 'GSF', 'COMPANY', 'COMPANY', 3000, 3000, 1500, dateadd(day, -48, @today),
        'Mrs Hauwa Dikko', '31 Industrial Crescent, Ilupeju', '08030002014', 'hr@goldensheaf.example'),
    ('0015', 'VOREL HOSPITAL STAFF', 'VHS', 'COMPANY', 'STAFF', 0, 1000, 0, dateadd(day, -3650, @today),
        'The Administrator', '14 Marina Road, Lagos', '08030001000', 'staffclinic@vorelhospital.example')
GO
insert into HmoPlan (planName, CoyCode, Limit, LimitPeriod) values
    ('BRONZE', '0002', 60000, 'QTERLY'), ('SILVER', '0002', 150000, 'YEARLY'), ('GOLD', '0002', 400000, 'YEARLY'),
    ('PLATINUM', '0002', 0, 'YEARLY'), ('SILVER', '0003', 120000, 'YEARLY'), ('GOLD FAMILY', '0003', 350000, 'YEARLY'),
    ('(GENERAL)', '0004', 0, 'YEARLY'), ('BASIC', '0005', 25000, 'MTHLY'), ('BASIC PLUS', '0005', 60000, 'TWO-MMTHLY'),
    ('CLASSIC', '0008', 80000, 'SIX-MTHLY'), ('PREMIUM', '0008', 250000, 'YEARLY'),
    ('STARTER', '0009', 30000, 'QTERLY'), ('STANDARD', '0009', 100000, 'YEARLY'),
    ('TEACHER', '0010', 50000, 'SIX-MTHLY'), ('RETIREE', '0010', 35000, 'SIX-MTHLY'), ('OFFICERS', '0011', 0, 'YEARLY'),
    ('OTHER RANKS', '0011', 0, 'YEARLY')
GO
insert into hScreeningAmount (coycode, Amount) values
    ('0001', 15000), ('0002', 12000), ('0003', 12000), ('0004', 0), ('0005', 8000), ('0006', 18000), ('0007', 15000),
    ('0008', 12000), ('0009', 12000), ('0010', 8000), ('0011', 0), ('0012', 25000), ('0013', 15000), ('0014', 15000),
    ('0015', 0)
GO

-- Clinics, their days and doctors, and the rooms that the doctors sit in today.

insert into clinicTypes (ClinicID, ClinicName, Regfee, clinicdays) values
    ('ANTENATAL', 'ANTENATAL', 15000, 'MON, WED'), ('POSTNATAL', 'POSTNATAL', 0, 'FRI'),
    ('GYNAECOLOGY', 'GYNAECOLOGY', 7500, 'THU'), ('FAMILY PLANNING', 'FAMILY PLANNING', 2000, 'TUE, FRI'),
    ('PAEDIATRICS', 'PAEDIATRICS', 5000, 'MON TO FRI'), ('MEDICAL', 'MEDICAL', 7500, 'TUE, THU'),
    ('SURGICAL', 'SURGICAL', 7500, 'WED'), ('ORTHOPAEDIC', 'ORTHOPAEDIC', 7500, 'FRI'),
    ('PHYSIOTHERAPY', 'PHYSIOTHERAPY', 3000, 'MON TO FRI'), ('SICKLE CELL', 'SICKLE CELL', 3000, 'THU'),
    ('DENTAL', 'DENTAL', 5000, 'MON, WED, FRI'), ('EYE', 'EYE', 5000, 'TUE, THU'), ('ENT', 'ENT', 5000, 'MON, THU'),
    ('EMERGENCY', 'EMERGENCY', 5000, 'DAILY')
GO
insert into hClinicDays (ClinicID, WeekDayNo, ClinicTime, Places) values
    ('(GENERAL)', 1, '08:30', 60), ('(GENERAL)', 2, '08:30', 60), ('(GENERAL)', 3, '08:30', 60),
    ('(GENERAL)', 4, '08:30', 60), ('(GENERAL)', 5, '08:30', 60), ('(GENERAL)', 6, '09:00', 40),
    ('IMMUNIZATION', 2, '08:00', 40), ('IMMUNIZATION', 4, '08:00', 40), ('ANTENATAL', 1, '08:00', 35),
    ('ANTENATAL', 3, '08:00', 35), ('POSTNATAL', 5, '09:00', 20), ('GYNAECOLOGY', 4, '10:00', 20),
    ('FAMILY PLANNING', 2, '10:00', null), ('FAMILY PLANNING', 5, '10:00', null), ('PAEDIATRICS', 1, '09:00', 30),
    ('PAEDIATRICS', 2, '09:00', 30), ('PAEDIATRICS', 3, '09:00', 30), ('PAEDIATRICS', 4, '09:00', 30),
    ('PAEDIATRICS', 5, '09:00', 30), ('MEDICAL', 2, '10:00', 25), ('MEDICAL', 4, '10:00', 25),
    ('SURGICAL', 3, '11:00', 20), ('ORTHOPAEDIC', 5, '11:00', 15), ('PHYSIOTHERAPY', 1, '09:00', 12),
    ('PHYSIOTHERAPY', 2, '09:00', 12), ('PHYSIOTHERAPY', 3, '09:00', 12), ('PHYSIOTHERAPY', 4, '09:00', 12),
    ('PHYSIOTHERAPY', 5, '09:00', 12), ('SICKLE CELL', 4, '08:30', 20), ('DENTAL', 1, '09:00', 15),
    ('DENTAL', 3, '09:00', 15), ('DENTAL', 5, '09:00', 15), ('EYE', 2, '09:00', 20), ('EYE', 4, '09:00', 20),
    ('ENT', 1, '12:00', 15), ('ENT', 4, '12:00', 15), ('DIALYSIS', 1, '07:00', 8), ('DIALYSIS', 2, '07:00', 8),
    ('DIALYSIS', 3, '07:00', 8), ('DIALYSIS', 4, '07:00', 8), ('DIALYSIS', 5, '07:00', 8), ('DIALYSIS', 6, '07:00', 6)
GO
insert into hClinicPurpose (Purpose) values
    ('FOLLOW-UP'), ('ANTENATAL VISIT'), ('INJECTION'), ('DRESSING'), ('LABORATORY'), ('MEDICAL REPORT')
GO
insert into hDoctorClinics (empID, ClinicID) values
    ('D001', '(GENERAL)'), ('D001', 'MEDICAL'), ('D002', '(GENERAL)'), ('D002', 'EMERGENCY'), ('D003', 'ANTENATAL'),
    ('D003', 'GYNAECOLOGY'), ('D003', 'POSTNATAL'), ('D004', 'SURGICAL'), ('D005', 'PAEDIATRICS'),
    ('D005', 'IMMUNIZATION'), ('D006', '(GENERAL)'), ('D006', 'SICKLE CELL'), ('D007', '(GENERAL)'),
    ('D007', 'FAMILY PLANNING'), ('D008', 'DIALYSIS'), ('D008', 'MEDICAL'), ('D009', 'DENTAL'), ('D010', 'EYE'),
    ('D011', 'ENT'), ('D012', 'ORTHOPAEDIC'), ('D012', 'PHYSIOTHERAPY'), ('D013', '(GENERAL)'), ('D013', 'ANTENATAL'),
    ('D014', '(GENERAL)'), ('D014', 'EMERGENCY')
GO
insert into hConsultingRooms (ConRmName, Location) values
    ('ROOM 1', 'GRD FLR'), ('ROOM 2', 'GRD FLR'), ('ROOM 3', 'GRD FLR'), ('ROOM 4', 'GRD FLR'), ('ROOM 5', 'GRD FLR'),
    ('ROOM 6', 'GRD FLR'), ('ROOM 7', '1ST FLR'), ('ROOM 8', '1ST FLR'), ('ROOM 9', '1ST FLR'), ('ROOM 10', '1ST FLR'),
    ('ANC ROOM', '1ST FLR'), ('DENTAL ROOM', '2ND FLR'), ('EYE ROOM', '2ND FLR'), ('DIALYSIS UNIT', '2ND FLR')
GO
-- D011 and D012 are not in today.
insert into hConRoomAssign (schdDate, ConRoomNo, docNo) values
    (@today, 'ROOM 1', 'D001'), (@today, 'ROOM 2', 'D002'), (@today, 'ANC ROOM', 'D003'), (@today, 'ROOM 7', 'D004'),
    (@today, 'ROOM 8', 'D005'), (@today, 'ROOM 3', 'D006'), (@today, 'ROOM 4', 'D007'),
    (@today, 'DIALYSIS UNIT', 'D008'), (@today, 'DENTAL ROOM', 'D009'), (@today, 'EYE ROOM', 'D010'),
    (@today, 'ROOM 5', 'D013'), (@today, 'ROOM 6', 'D014')
GO
insert into hPatientArea (AreaName) values
    ('Agege'), ('Ajah'), ('Alimosho'), ('Amuwo Odofin'), ('Apapa'), ('Badagry'), ('Bariga'), ('Ebute Metta'),
    ('Egbeda'), ('Ejigbo'), ('Epe'), ('Festac'), ('Gbagada'), ('Ikeja'), ('Ikorodu'), ('Ikotun'), ('Ikoyi'),
    ('Ilupeju'), ('Isolo'), ('Ketu'), ('Lagos Island'), ('Lekki'), ('Magodo'), ('Maryland'), ('Mushin'), ('Ogba'),
    ('Ojo'), ('Ojodu'), ('Ojota'), ('Oshodi'), ('Satellite Town'), ('Shomolu'), ('Surulere'), ('Victoria Island'),
    ('Yaba')
GO
-- A ward, or a room of one where each has its own.
insert into hWards (wardID, WardName, Location) values
    ('MALE WARD', 'Male ward', 'GRD FLR'), ('FEMALE WARD', 'Female ward', 'GRD FLR'),
    ('EMERGENCY WARD', 'Emergency ward', 'GRD FLR'), ('ISOLATION ROOM', 'Isolation room', 'GRD FLR'),
    ('MATERNITY', 'Maternity', '1ST FLR'), ('LABOUR WARD', 'Labour ward', '1ST FLR'),
    ('CHILDREN WARD', 'Children ward', '1ST FLR'), ('NEONATAL UNIT', 'Neonatal unit', '1ST FLR'),
    ('SURGICAL WARD', 'Surgical ward', '2ND FLR'), ('ICU', 'Intensive care unit', '2ND FLR'),
    ('PRIVATE WING', 'Private wing', '2ND FLR'), ('PRIVATE RM 1', 'Private room 1', '2ND FLR'),
    ('PRIVATE RM 2', 'Private room 2', '2ND FLR'), ('PRIVATE RM 3', 'Private room 3', '2ND FLR')
GO

-- Drugs, vaccines and what the wards use and charge, with the hospital's own cost of a unit in naira.

insert into drugcategories (drgCatname, deptbillcenter) values
    ('TABLETS', 'PHARMACY'), ('CAPSULES', 'PHARMACY'), ('SYRUPS', 'PHARMACY'), ('INFUSIONS', 'PHARMACY'),
    ('INHALERS', 'PHARMACY'), ('CREAMS', 'PHARMACY'), ('EYE AND EAR DROPS', 'PHARMACY')
GO
-- The fees have their own prices here.
delete from drugs where drgCatName = 'FEES'
GO
-- First what is sold by the piece, then what has a quantity.
insert into drugs (drgName, drgCatName, pharmCat, Cost) values
    ('PARACETAMOL TAB 500MG', 'TABLETS', 'ANALGESIC', 20), ('IBUPROFEN TAB 400MG', 'TABLETS', 'ANALGESIC', 40),
    ('DICLOFENAC TAB 50MG', 'TABLETS', 'ANALGESIC', 50), ('TRAMADOL CAP 50MG', 'CAPSULES', 'ANALGESIC', 120),
    ('ARTEMETHER/LUMEFANTRINE TAB 80/480MG', 'TABLETS', 'ANTIMALARIAL', 350),
    ('ARTEMETHER/LUMEFANTRINE TAB', 'TABLETS', 'ANTIMALARIAL', 90),
    ('SULFADOXINE/PYRIMETHAMINE TAB 500/25MG', 'TABLETS', 'ANTIMALARIAL', 250),
    ('PROGUANIL TAB 100MG', 'TABLETS', 'ANTIMALARIAL', 60), ('AMOXICILLIN CAP 500MG', 'CAPSULES', 'ANTIBIOTIC', 60),
    ('AMOXICILLIN/CLAVULANATE TAB 625MG', 'TABLETS', 'ANTIBIOTIC', 350),
    ('CIPROFLOXACIN TAB 500MG', 'TABLETS', 'ANTIBIOTIC', 90), ('CEFUROXIME TAB 500MG', 'TABLETS', 'ANTIBIOTIC', 400),
    ('AZITHROMYCIN TAB 500MG', 'TABLETS', 'ANTIBIOTIC', 500), ('METRONIDAZOLE TAB 400MG', 'TABLETS', 'ANTIBIOTIC', 30),
    ('DOXYCYCLINE CAP 100MG', 'CAPSULES', 'ANTIBIOTIC', 60), ('FLUCONAZOLE CAP 150MG', 'CAPSULES', 'ANTIFUNGAL', 300),
    ('ALBENDAZOLE TAB 400MG', 'TABLETS', 'ANTHELMINTIC', 200),
    ('AMLODIPINE TAB 5MG', 'TABLETS', 'ANTIHYPERTENSIVE', 60),
    ('LISINOPRIL TAB 10MG', 'TABLETS', 'ANTIHYPERTENSIVE', 80),
    ('LOSARTAN TAB 50MG', 'TABLETS', 'ANTIHYPERTENSIVE', 120),
    ('METHYLDOPA TAB 250MG', 'TABLETS', 'ANTIHYPERTENSIVE', 80),
    ('HYDROCHLOROTHIAZIDE TAB 25MG', 'TABLETS', 'DIURETIC', 30), ('FUROSEMIDE TAB 40MG', 'TABLETS', 'DIURETIC', 30),
    ('METFORMIN TAB 500MG', 'TABLETS', 'ANTIDIABETIC', 40), ('GLIMEPIRIDE TAB 2MG', 'TABLETS', 'ANTIDIABETIC', 80),
    ('ATORVASTATIN TAB 20MG', 'TABLETS', 'STATIN', 100), ('ASPIRIN TAB 75MG', 'TABLETS', 'ANTIPLATELET', 20),
    ('OMEPRAZOLE CAP 20MG', 'CAPSULES', 'ANTIULCER', 60), ('FOLIC ACID TAB 5MG', 'TABLETS', 'HAEMATINIC', 10),
    ('FERROUS SULPHATE TAB 200MG', 'TABLETS', 'HAEMATINIC', 10), ('VITAMIN C TAB 100MG', 'TABLETS', 'VITAMIN', 10),
    ('VITAMIN B COMPLEX TAB', 'TABLETS', 'VITAMIN', 10), ('PREDNISOLONE TAB 5MG', 'TABLETS', 'STEROID', 20),
    ('CHLORPHENIRAMINE TAB 4MG', 'TABLETS', 'ANTIHISTAMINE', 10),
    ('HYDROXYUREA CAP 500MG', 'CAPSULES', 'SICKLE CELL', 350), ('MISOPROSTOL TAB 200MCG', 'TABLETS', 'OXYTOCIC', 400),
    ('ZINC SULPHATE TAB 20MG', 'TABLETS', 'REHYDRATION', 40),
    ('ARTESUNATE INJ 60MG', 'INJECTIONS', 'ANTIMALARIAL', 1800),
    ('ARTEMETHER INJ 80MG', 'INJECTIONS', 'ANTIMALARIAL', 900),
    ('CEFTRIAXONE INJ 1G', 'INJECTIONS', 'ANTIBIOTIC', 1500), ('GENTAMICIN INJ 80MG', 'INJECTIONS', 'ANTIBIOTIC', 300),
    ('CRYSTALLINE PENICILLIN INJ 1MU', 'INJECTIONS', 'ANTIBIOTIC', 400),
    ('PARACETAMOL INJ 300MG', 'INJECTIONS', 'ANALGESIC', 350), ('DICLOFENAC INJ 75MG', 'INJECTIONS', 'ANALGESIC', 300),
    ('PENTAZOCINE INJ 30MG', 'INJECTIONS', 'ANALGESIC', 800),
    ('HYDROCORTISONE INJ 100MG', 'INJECTIONS', 'STEROID', 900),
    ('METOCLOPRAMIDE INJ 10MG', 'INJECTIONS', 'ANTIEMETIC', 300), ('OXYTOCIN INJ 10IU', 'INJECTIONS', 'OXYTOCIC', 500),
    ('MAGNESIUM SULPHATE INJ 5G', 'INJECTIONS', 'ANTICONVULSANT', 1200),
    ('DIAZEPAM INJ 10MG', 'INJECTIONS', 'ANTICONVULSANT', 400),
    ('HYDRALAZINE INJ 20MG', 'INJECTIONS', 'ANTIHYPERTENSIVE', 2500),
    ('FUROSEMIDE INJ 20MG', 'INJECTIONS', 'DIURETIC', 300),
    ('ERYTHROPOIETIN INJ 4000IU', 'INJECTIONS', 'HAEMATINIC', 9500),
    ('VITAMIN K INJ 1MG', 'INJECTIONS', 'VITAMIN', 400), ('TETANUS TOXOID INJ 0.5ML', 'INJECTIONS', 'VACCINE', 1500),
    ('ANTI-D IMMUNOGLOBULIN INJ 300MCG', 'INJECTIONS', 'IMMUNOGLOBULIN', 45000),
    ('INJECTION_FEE', 'FEES', 'NURSING', 500), ('PHARM_FEE', 'FEES', 'PHARMACY', 300),
    ('WOUND DRESSING (SMALL)', 'DRESSING', 'WOUND CARE', 2000),
    ('WOUND DRESSING (MEDIUM)', 'DRESSING', 'WOUND CARE', 3500),
    ('WOUND DRESSING (LARGE)', 'DRESSING', 'WOUND CARE', 5000), ('BURNS DRESSING', 'DRESSING', 'WOUND CARE', 7500),
    ('DIABETIC FOOT DRESSING', 'DRESSING', 'WOUND CARE', 6000),
    ('POST-OPERATIVE DRESSING', 'DRESSING', 'WOUND CARE', 4000), ('CORD DRESSING', 'DRESSING', 'WOUND CARE', 1500),
    ('IV CANNULA 20G', 'DRY STOCK', 'CONSUMABLE', 500), ('INFUSION GIVING SET', 'DRY STOCK', 'CONSUMABLE', 500),
    ('SYRINGE AND NEEDLE 5ML', 'DRY STOCK', 'CONSUMABLE', 100),
    ('URETHRAL CATHETER 16F', 'DRY STOCK', 'CONSUMABLE', 1500), ('URINE BAG', 'DRY STOCK', 'CONSUMABLE', 700)
GO
insert into drugs (drgName, drgCatName, pharmCat, qtyPerUnit, Cost) values
    ('ORAL REHYDRATION SALT', 'SYRUPS', 'REHYDRATION', '1 LITRE', 150),
    ('PARACETAMOL SYRUP 120MG/5ML', 'SYRUPS', 'ANALGESIC', '60ML', 700),
    ('AMOXICILLIN SUSP 125MG/5ML', 'SYRUPS', 'ANTIBIOTIC', '100ML', 1200),
    ('MULTIVITAMIN SYRUP', 'SYRUPS', 'VITAMIN', '100ML', 800),
    ('SALBUTAMOL INHALER', 'INHALERS', 'BRONCHODILATOR', '200 PUFFS', 4500),
    ('SALBUTAMOL NEBULE 5MG', 'INHALERS', 'BRONCHODILATOR', '2.5ML', 500),
    ('CLOTRIMAZOLE CREAM 1%', 'CREAMS', 'ANTIFUNGAL', '20G', 900),
    ('SILVER SULFADIAZINE CREAM 1%', 'CREAMS', 'BURNS', '50G', 2500),
    ('CHLORAMPHENICOL EYE DROPS 0.5%', 'EYE AND EAR DROPS', 'ANTIBIOTIC', '10ML', 800),
    ('TIMOLOL EYE DROPS 0.5%', 'EYE AND EAR DROPS', 'GLAUCOMA', '5ML', 3000),
    ('SOLUBLE INSULIN INJ 100IU/ML', 'INJECTIONS', 'ANTIDIABETIC', '10ML', 6500),
    ('MIXED INSULIN INJ 30/70', 'INJECTIONS', 'ANTIDIABETIC', '10ML', 7500),
    ('HEPARIN INJ 5000IU', 'INJECTIONS', 'ANTICOAGULANT', '5ML', 3500),
    ('LIDOCAINE INJ 2%', 'INJECTIONS', 'ANAESTHETIC', '20ML', 1500),
    ('NORMAL SALINE 0.9% 500ML', 'INFUSIONS', 'FLUID', '500ML', 900),
    ('DEXTROSE SALINE 500ML', 'INFUSIONS', 'FLUID', '500ML', 900),
    ('DEXTROSE 50% 100ML', 'INFUSIONS', 'FLUID', '100ML', 1200),
    ('RINGER''S LACTATE 500ML', 'INFUSIONS', 'FLUID', '500ML', 1000),
    ('METRONIDAZOLE INF 500MG', 'INFUSIONS', 'ANTIBIOTIC', '100ML', 900),
    ('CIPROFLOXACIN INF 200MG', 'INFUSIONS', 'ANTIBIOTIC', '100ML', 1200)
GO
-- The national schedule: at birth, 6, 10 and 14 weeks, 6, 9 and 15 months, and later; the cost is that of the giving.
insert into drugs (drgName, drgCatName, pharmCat, qtyPerUnit, Cost) values
    ('BCG', 'VACCINES', 'AT BIRTH', '0.05ML', 1500), ('HEP B 0', 'VACCINES', 'AT BIRTH', '0.5ML', 1500),
    ('OPV 0', 'DROP', 'AT BIRTH', '2 DROPS', 1000), ('OPV 1', 'DROP', '6 WEEKS', '2 DROPS', 1000),
    ('OPV 2', 'DROP', '10 WEEKS', '2 DROPS', 1000), ('OPV 3', 'DROP', '14 WEEKS', '2 DROPS', 1000),
    ('PENTA 1', 'VACCINES', '6 WEEKS', '0.5ML', 2000), ('PENTA 2', 'VACCINES', '10 WEEKS', '0.5ML', 2000),
    ('PENTA 3', 'VACCINES', '14 WEEKS', '0.5ML', 2000), ('PCV 1', 'VACCINES', '6 WEEKS', '0.5ML', 2000),
    ('PCV 2', 'VACCINES', '10 WEEKS', '0.5ML', 2000), ('PCV 3', 'VACCINES', '14 WEEKS', '0.5ML', 2000),
    ('ROTA 1', 'ORAL', '6 WEEKS', '5 DROPS', 2000), ('ROTA 2', 'ORAL', '10 WEEKS', '5 DROPS', 2000),
    ('ROTA 3', 'ORAL', '14 WEEKS', '5 DROPS', 2000),
    ('IPV 1', 'VACCINES', '6 WEEKS', '0.5ML', 1500), ('IPV 2', 'VACCINES', '14 WEEKS', '0.5ML', 1500),
    ('VITAMIN A 100000IU', 'ORAL', '6 MONTHS', '1 CAP', 500), ('VITAMIN A 200000IU', 'ORAL', '12 MONTHS', '1 CAP', 500),
    ('MEASLES-RUBELLA 1', 'VACCINES', '9 MONTHS', '0.5ML', 1500),
    ('MEASLES-RUBELLA 2', 'VACCINES', '15 MONTHS', '0.5ML', 1500),
    ('YELLOW FEVER', 'VACCINES', '9 MONTHS', '0.5ML', 2000), ('MEN A', 'VACCINES', '9 MONTHS', '0.5ML', 2000),
    ('HPV', 'VACCINES', '9 YEARS', '0.5ML', 3000), ('TD', 'VACCINES', 'PREGNANCY', '0.5ML', 1500)
GO
insert into hImmunizationSchedule (Vaccine, DueAge, DueUnit, Sex) values
    ('BCG', 0, 'WEEKS', null), ('HEP B 0', 0, 'WEEKS', null), ('OPV 0', 0, 'WEEKS', null),
    ('OPV 1', 6, 'WEEKS', null), ('PENTA 1', 6, 'WEEKS', null), ('PCV 1', 6, 'WEEKS', null),
    ('ROTA 1', 6, 'WEEKS', null), ('IPV 1', 6, 'WEEKS', null), ('OPV 2', 10, 'WEEKS', null),
    ('PENTA 2', 10, 'WEEKS', null), ('PCV 2', 10, 'WEEKS', null), ('ROTA 2', 10, 'WEEKS', null),
    ('OPV 3', 14, 'WEEKS', null), ('PENTA 3', 14, 'WEEKS', null), ('PCV 3', 14, 'WEEKS', null),
    ('ROTA 3', 14, 'WEEKS', null), ('IPV 2', 14, 'WEEKS', null), ('VITAMIN A 100000IU', 6, 'MONTHS', null),
    ('MEASLES-RUBELLA 1', 9, 'MONTHS', null), ('YELLOW FEVER', 9, 'MONTHS', null), ('MEN A', 9, 'MONTHS', null),
    ('VITAMIN A 200000IU', 12, 'MONTHS', null), ('MEASLES-RUBELLA 2', 15, 'MONTHS', null),
    ('HPV', 9, 'YEARS', 'FEMALE')
GO
update hImmunizationSchedule set Source = 'Routine immunization, National Primary Health Care Development Agency, Nigeria'
GO
insert into drugs (drgName, drgCatName, pharmCat, qtyPerUnit, Cost) values
    ('REMOVAL OF STITCHES', 'DRESSING', 'WOUND CARE', '1 SITTING', 3000),
    ('GAUZE SWAB', 'DRY STOCK', 'CONSUMABLE', '1 PACK', 600),
    ('CREPE BANDAGE 4 INCH', 'DRY STOCK', 'CONSUMABLE', '1 ROLL', 500),
    ('COTTON WOOL 100G', 'DRY STOCK', 'CONSUMABLE', '1 ROLL', 700),
    ('ADHESIVE PLASTER 3 INCH', 'DRY STOCK', 'CONSUMABLE', '1 ROLL', 900),
    ('SURGICAL GLOVES 7.5', 'DRY STOCK', 'CONSUMABLE', '1 PAIR', 400),
    ('OXYGEN', 'ADMISSION SERVICES', 'WARD', '1 HOUR', 1500),
    ('NURSING CARE', 'ADMISSION SERVICES', 'WARD', '1 DAY', 3000),
    ('FEEDING', 'ADMISSION SERVICES', 'WARD', '1 DAY', 4500),
    ('NEBULIZATION', 'ADMISSION SERVICES', 'WARD', '1 SITTING', 2500),
    ('SUCTIONING', 'ADMISSION SERVICES', 'WARD', '1 SITTING', 1500),
    ('PHOTOTHERAPY', 'ADMISSION SERVICES', 'WARD', '1 DAY', 8000),
    ('INCUBATOR CARE', 'ADMISSION SERVICES', 'WARD', '1 DAY', 15000)
GO
update drugs set Remarks = 'PRIVATE', NHIScost = Cost * 0.1, qtyPerUnit = isnull(qtyPerUnit, '1'),
    Capitated = case when Cost <= 2000 and drgCatName <> 'ADMISSION SERVICES' then 'YES' else 'NO' end
GO
-- The other groups: a patient of the scheme pays a tenth, clients who settle later pay more.
insert into drugs (drgName, drgCatName, pharmCat, qtyPerUnit, Cost, NHIScost, Remarks, Capitated)
select d.drgName, d.drgCatName, d.pharmCat, d.qtyPerUnit, d.Cost * g.factor, 0, g.Remarks, d.Capitated
from drugs d
cross join (select 'NHIS' as Remarks, 0.1 as factor union all select 'MTHLY', 1.1 union all select '3MTHLY', 1.2
    union all select '6MTHLY', 1.3 union all select 'CBN', 1.2 union all select 'NEPA', 1.2
    union all select 'HMO', 0.9) g
where d.Remarks = 'PRIVATE'
GO
insert into DrugMaster (drgName, drgCatName, pharmCat, Capitated)
select drgName, drgCatName, pharmCat, Capitated from drugs where Remarks = 'PRIVATE'
GO
-- What the pharmacy has; three items are out of stock.
insert into stockItemsRetail (itemID, UnitsInStock)
select drgName, case when drgName in ('HYDROXYUREA CAP 500MG', 'TIMOLOL EYE DROPS 0.5%', 'ERYTHROPOIETIN INJ 4000IU')
    then 0 else 15 + ID * 37 % 460 end
from drugs
where Remarks = 'PRIVATE' and drgCatName not in ('FEES', 'DRESSING', 'ADMISSION SERVICES')
GO

-- Laboratory tests and services, with the private price.

insert into LabServiceNHIS (drgName, drgCatName, Price, Capitated) values
    ('FULL BLOOD COUNT', 'HAEMATOLOGY', 4000, 'YES'), ('PACKED CELL VOLUME', 'HAEMATOLOGY', 1500, 'YES'),
    ('WHITE BLOOD CELL COUNT', 'HAEMATOLOGY', 2500, 'YES'), ('ESR', 'HAEMATOLOGY', 2000, 'YES'),
    ('PLATELET COUNT', 'HAEMATOLOGY', 2500, 'YES'), ('HB GENOTYPE', 'HAEMATOLOGY', 3000, 'YES'),
    ('BLOOD GROUP', 'HAEMATOLOGY', 2000, 'YES'), ('CLOTTING PROFILE (PT/INR)', 'HAEMATOLOGY', 8000, 'NO'),
    ('GROUPING AND CROSS MATCHING', 'BLOOD BANK', 6000, 'NO'), ('BLOOD (1 PINT, SCREENED)', 'BLOOD BANK', 35000, 'NO'),
    ('MALARIA PARASITE', 'PARASITOLOGY', 1500, 'YES'), ('STOOL MICROSCOPY', 'PARASITOLOGY', 1500, 'YES'),
    ('URINE MICROSCOPY', 'PARASITOLOGY', 1500, 'YES'), ('URINALYSIS', 'CHEMISTRY', 1500, 'YES'),
    ('RANDOM BLOOD SUGAR', 'CHEMISTRY', 1000, 'YES'), ('FASTING BLOOD SUGAR', 'CHEMISTRY', 1500, 'YES'),
    ('2HRS POST PRANDIAL SUGAR', 'CHEMISTRY', 1500, 'YES'), ('GLYCATED HAEMOGLOBIN (HBA1C)', 'CHEMISTRY', 9000, 'NO'),
    ('ELECTROLYTES, UREA AND CREATININE', 'CHEMISTRY', 7500, 'YES'), ('UREA', 'CHEMISTRY', 2500, 'YES'),
    ('CREATININE', 'CHEMISTRY', 2500, 'YES'), ('LIVER FUNCTION TEST', 'CHEMISTRY', 8000, 'YES'),
    ('LIPID PROFILE', 'CHEMISTRY', 8000, 'NO'), ('URIC ACID', 'CHEMISTRY', 3000, 'NO'),
    ('SERUM BILIRUBIN', 'CHEMISTRY', 3500, 'YES'), ('CALCIUM', 'CHEMISTRY', 3500, 'NO'),
    ('PSA', 'HORMONES', 10000, 'NO'), ('THYROID FUNCTION TEST', 'HORMONES', 18000, 'NO'),
    ('PREGNANCY TEST (SERUM)', 'HORMONES', 2500, 'YES'), ('PROLACTIN', 'HORMONES', 9000, 'NO'),
    ('WIDAL', 'SEROLOGY', 2000, 'YES'), ('HIV SCREENING', 'SEROLOGY', 2000, 'YES'), ('HBSAG', 'SEROLOGY', 2000, 'YES'),
    ('HCV', 'SEROLOGY', 2500, 'YES'), ('VDRL', 'SEROLOGY', 2000, 'YES'), ('H. PYLORI', 'SEROLOGY', 4000, 'NO'),
    ('URINE CULTURE', 'MICROBIOLOGY', 5000, 'YES'), ('STOOL CULTURE', 'MICROBIOLOGY', 5000, 'YES'),
    ('HIGH VAGINAL SWAB CULTURE', 'MICROBIOLOGY', 5000, 'YES'), ('WOUND SWAB CULTURE', 'MICROBIOLOGY', 5000, 'YES'),
    ('BLOOD CULTURE', 'MICROBIOLOGY', 9000, 'NO'), ('SPUTUM AFB', 'MICROBIOLOGY', 2000, 'YES'),
    ('HISTOLOGY', 'HISTOLOGY', 25000, 'NO'), ('PAP SMEAR', 'HISTOLOGY', 12000, 'NO')
GO
update LabServiceNHIS set Company = '0001', pharmCat = 'LABORATORY', Remarks = 'PRIVATE', CoyName = 'PRIVATE',
    tariffStatus = 'FIXED'
GO
insert into labservices (drgname, drgCatName, pharmCat, Capitated)
select drgName, drgCatName, pharmCat, Capitated from LabServiceNHIS
GO
insert into labserviceCat (category) select distinct drgCatName from labservices
GO
insert into hServiceNHIS (drgName, drgCatName, Price, Capitated) values
    ('CONSULTATION (GENERAL)', 'CONSULTATION', 3000, 'YES'), ('CONSULTATION (SPECIALIST)', 'CONSULTATION', 10000, 'NO'),
    ('CONSULTATION (REVIEW)', 'CONSULTATION', 2000, 'YES'), ('CONSULTATION (EMERGENCY)', 'CONSULTATION', 6000, 'YES'),
    ('REGISTRATION (SINGLE)', 'REGISTRATION', 5000, 'NO'), ('REGISTRATION (FAMILY)', 'REGISTRATION', 12000, 'NO'),
    ('MEDICAL REPORT', 'REGISTRATION', 10000, 'NO'), ('WARD FEE (GENERAL)', 'WARD FEE', 8000, 'NO'),
    ('WARD FEE (MATERNITY)', 'WARD FEE', 10000, 'NO'), ('WARD FEE (CHILDREN)', 'WARD FEE', 8000, 'NO'),
    ('WARD FEE (PRIVATE ROOM)', 'WARD FEE', 25000, 'NO'), ('WARD FEE (NEONATAL UNIT)', 'WARD FEE', 20000, 'NO'),
    ('WARD FEE (ICU)', 'WARD FEE', 80000, 'NO'), ('SUTURING', 'PROCEDURE', 8000, 'YES'),
    ('INCISION AND DRAINAGE', 'PROCEDURE', 15000, 'YES'), ('CATHETERIZATION', 'PROCEDURE', 5000, 'YES'),
    ('NASOGASTRIC TUBE PASSAGE', 'PROCEDURE', 5000, 'NO'), ('LUMBAR PUNCTURE', 'PROCEDURE', 20000, 'NO'),
    ('BLOOD TRANSFUSION', 'PROCEDURE', 10000, 'NO'), ('EXCHANGE BLOOD TRANSFUSION', 'PROCEDURE', 60000, 'NO'),
    ('CIRCUMCISION', 'PROCEDURE', 20000, 'NO'), ('EAR PIERCING', 'PROCEDURE', 5000, 'NO'),
    ('POP APPLICATION', 'PROCEDURE', 30000, 'NO'), ('ECG', 'PROCEDURE', 7500, 'NO'),
    ('NORMAL DELIVERY', 'MATERNITY', 120000, 'NO'), ('ASSISTED DELIVERY', 'MATERNITY', 160000, 'NO'),
    ('ANTENATAL PACKAGE', 'MATERNITY', 60000, 'NO'), ('EVACUATION (MVA)', 'MATERNITY', 50000, 'NO'),
    ('IUCD INSERTION', 'MATERNITY', 8000, 'NO'), ('IMPLANT INSERTION', 'MATERNITY', 12000, 'NO'),
    ('CAESAREAN SECTION', 'THEATRE', 450000, 'NO'), ('APPENDICECTOMY', 'THEATRE', 350000, 'NO'),
    ('HERNIORRHAPHY', 'THEATRE', 300000, 'NO'), ('MYOMECTOMY', 'THEATRE', 500000, 'NO'),
    ('PROSTATECTOMY', 'THEATRE', 600000, 'NO'), ('ANAESTHESIA', 'THEATRE', 80000, 'NO'),
    ('DIALYSIS SESSION', 'DIALYSIS', 60000, 'NO'), ('DIALYSIS CATHETER INSERTION', 'DIALYSIS', 90000, 'NO'),
    ('ABDOMINAL SCAN', 'RADIOLOGY', 7500, 'YES'), ('PELVIC SCAN', 'RADIOLOGY', 6000, 'YES'),
    ('OBSTETRIC SCAN', 'RADIOLOGY', 6000, 'YES'), ('CHEST X-RAY', 'RADIOLOGY', 7500, 'YES'),
    ('LIMB X-RAY', 'RADIOLOGY', 8000, 'NO'), ('CT SCAN (BRAIN)', 'RADIOLOGY', 85000, 'NO'),
    ('ECHOCARDIOGRAPHY', 'RADIOLOGY', 35000, 'NO'), ('PHYSIOTHERAPY SESSION', 'PHYSIOTHERAPY', 7500, 'NO'),
    ('SCALING AND POLISHING', 'DENTAL', 20000, 'NO'), ('TOOTH EXTRACTION', 'DENTAL', 12000, 'YES'),
    ('TOOTH FILLING', 'DENTAL', 20000, 'NO'), ('REFRACTION', 'EYE', 5000, 'NO'), ('TONOMETRY', 'EYE', 4000, 'NO'),
    ('AMBULANCE SERVICE', 'TRANSPORT', 40000, 'NO'), ('SCREENING (PRE-EMPLOYMENT)', 'SCREENING', 15000, 'NO'),
    ('SCREENING (EXECUTIVE)', 'SCREENING', 75000, 'NO')
GO
-- A dressing is priced as a service too.
insert into hServiceNHIS (drgName, drgCatName, Price, Capitated)
select drgName, drgCatName, Cost, Capitated
from drugs
where Remarks = 'PRIVATE' and drgCatName in ('DRESSING', 'DRY STOCK')
GO
update hServiceNHIS set Company = '0001', pharmCat = 'SERVICE', Remarks = 'PRIVATE', CoyName = 'PRIVATE',
    tariffStatus = 'FIXED'
GO
insert into hServices (service, Category, drgName, drgCatName, pharmCat, Capitated)
select drgName, drgCatName, drgName, drgCatName, pharmCat, Capitated from hServiceNHIS
GO
insert into HserviceCat (catName) select distinct Category from hServices
GO

-- The templates: every client's starts as a part of the private one. 0009, 0013 and 0014 have none yet, so their
-- patients pay the private price.

insert into DrugNHIS (drgName, drgCatName, Price, Company, pharmCat, Remarks, CoyName, Capitated, tariffStatus)
select drgName, drgCatName, Cost, '0001', pharmCat, 'PRIVATE', 'PRIVATE', Capitated, 'FIXED'
from drugs
where Remarks = 'PRIVATE'
GO
insert into DrugNHISListEntered (CoyID, Type, remarks, useTariff, Pcent)
select k.CoyID, t.Type, isnull(c.ClientType, k.CoyID), '0001',
    case when k.CoyID = 'NHIS' and t.Type = 'DRUG' then 0.1 else k.Pcent end
from (select '0001' as CoyID, 1.0 as Pcent union all select 'NHIS', 0.7 union all select '0002', 0.95
    union all select '0003', 0.9 union all select '0005', 0.85 union all select '0006', 1.1
    union all select '0007', 1.0 union all select '0008', 0.9 union all select '0010', 0.8
    union all select '0012', 1.2 union all select '0015', 0.5) k
cross join (select 'DRUG' as Type union all select 'LAB' union all select 'SERVICE') t
left join hRetainership c on c.retainID = k.CoyID
GO
insert into DrugNHIS (drgName, drgCatName, Price, Company, pharmCat, Remarks, CoyName, Capitated, tariffStatus)
select p.drgName, p.drgCatName, round(p.Price * e.Pcent, 2), e.CoyID, p.pharmCat, e.remarks,
    isnull(c.retainName, e.CoyID), p.Capitated, p.tariffStatus
from DrugNHISListEntered e
inner join DrugNHIS p on p.Company = e.useTariff
left join hRetainership c on c.retainID = e.CoyID
where e.Type = 'DRUG' and e.CoyID <> e.useTariff
GO
insert into LabServiceNHIS (drgName, drgCatName, Price, Company, pharmCat, Remarks, CoyName, Capitated, tariffStatus)
select p.drgName, p.drgCatName, round(p.Price * e.Pcent, 2), e.CoyID, p.pharmCat, e.remarks,
    isnull(c.retainName, e.CoyID), p.Capitated, p.tariffStatus
from DrugNHISListEntered e
inner join LabServiceNHIS p on p.Company = e.useTariff
left join hRetainership c on c.retainID = e.CoyID
where e.Type = 'LAB' and e.CoyID <> e.useTariff
GO
insert into hServiceNHIS (drgName, drgCatName, Price, Company, pharmCat, Remarks, CoyName, Capitated, tariffStatus)
select p.drgName, p.drgCatName, round(p.Price * e.Pcent, 2), e.CoyID, p.pharmCat, e.remarks,
    isnull(c.retainName, e.CoyID), p.Capitated, p.tariffStatus
from DrugNHISListEntered e
inner join hServiceNHIS p on p.Company = e.useTariff
left join hRetainership c on c.retainID = e.CoyID
where e.Type = 'SERVICE' and e.CoyID <> e.useTariff
GO
-- These went their own way since; the others follow the private price.
update DrugNHISListEntered set useTariff = CoyID, Pcent = 1 where CoyID in ('NHIS', '0002', '0005', '0006', '0012')
GO

-- What doctors diagnose.

insert into hdiseases (disease) values
    ('ANAEMIA'), ('ANAEMIA IN PREGNANCY'), ('APPENDICITIS'), ('ARTHRITIS'), ('BENIGN PROSTATE'), ('BIRTH ASPHYXIA'),
    ('BRONCHIAL ASTHMA'), ('BRONCHOPNEUMONIA'), ('BURNS'), ('CANDIDIASIS'), ('CATARACT'), ('CELLULITIS'),
    ('CHICKEN POX'), ('CHRONIC KIDNEY DISEASE'), ('CONGESTIVE CARDIAC FAILURE'), ('CONJUNCTIVITIS'), ('DENTAL CARIES'),
    ('DERMATITIS'), ('DIABETES MELLITUS'), ('DIABETIC FOOT ULCER'), ('DYSMENORRHOEA'), ('ECLAMPSIA'), ('ENTERIC FEVER'),
    ('EPILEPSY'), ('FEBRILE CONVULSION'), ('FIBROID'), ('FRACTURE'), ('GASTROENTERITIS'), ('GINGIVITIS'), ('GLAUCOMA'),
    ('HAEMORRHOIDS'), ('HEPATITIS B'), ('HYPERTENSION'), ('HYPERTENSIVE CRISIS'), ('INCOMPLETE ABORTION'),
    ('INGUINAL HERNIA'), ('LACERATION OF THE FOREARM'), ('LUMBAR SPONDYLOSIS'), ('MALARIA'), ('MALARIA IN PREGNANCY'),
    ('MASTITIS'), ('MEASLES'), ('MIGRAINE'), ('NEONATAL JAUNDICE'), ('NEONATAL SEPSIS'), ('OTITIS MEDIA'),
    ('PELVIC INFLAMMATORY DISEASE'), ('PEPTIC ULCER DISEASE'), ('PNEUMONIA'), ('PRE-ECLAMPSIA'), ('PREGNANCY AT TERM'),
    ('PREMATURITY'), ('REFRACTIVE ERROR'), ('ROAD TRAFFIC INJURY'), ('SEPTICAEMIA'), ('SEVERE MALARIA'),
    ('SICKLE CELL CRISIS'), ('SINUSITIS'), ('STROKE'), ('TONSILLITIS'), ('TUBERCULOSIS'), ('TYPHOID FEVER'),
    ('UPPER RESPIRATORY TRACT INFECTION'), ('URINARY TRACT INFECTION'), ('WORM INFESTATION')
GO

-- The demonstration has an archive.
update AppDefaults set idval = 'YES' where ID = 'Hospital_Archive_Exists'
GO
