#include "tests/outpatient/frmimmune/immune.h"

using namespace db::literals;

namespace test {

void arrangeImmunization(TestHospital& hospital) {
    hospital.place.session.gPrivateTariff = "0001";
    hospital.execute("insert into employees (empID, lastname, firstname) values ('E001', 'Joy', 'Nurse')"_sql);
    hospital.execute(
        "insert into hRetainership (retainID, retainName) values ('0007', 'Axa Mansard'), ('0004', 'Scheme')"_sql);
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, DOB, sex, pPhoneNo, occupation, bloodGroup, genotype) "
        "values "
        "('P1', 'Obi', 'Ada', '13-Oct-2026', 'FEMALE', '08031234567', 'INFANT', 'O+', 'AA'), "
        "('P2', 'Bello', 'Musa', '20-Jan-2025', 'MALE', '', '', '', ''), "
        "('P3', 'Eze', 'Ngozi', '01-Jan-1990', 'FEMALE', '', '', '', '')"_sql);
    hospital.execute(
        "insert into hRecords (recDate, PNo, consultID, htime, clinicType, Remarks, clientCat, CoyName) values "
        "('24-Nov-2026', 'P1', 'C1', '24-Nov-2026 08:15', 'IMMUNIZATION', 'ROUTINE', 'HMO', '0007'), "
        "('24-Nov-2026', 'P2', 'C2', '24-Nov-2026 08:40', 'IMMUNIZATION', 'ROUTINE', 'NHIS', '0004'), "
        "('24-Nov-2026', 'P3', 'C3', '24-Nov-2026 09:00', '(GENERAL)', 'HEADACHE', 'PRIVATE', '0001')"_sql);
    hospital.execute(
        "insert into hPreConsult (consultID, PNo, preDate, temp, Pressure, pulse, Weight, Height, respRatio, urineAlb, "
        "urineSug, Status) values ('C1', 'P1', '24-Nov-2026', '36.8', '80/50', '130', '4.6', '0.55', '40', 'NIL', '+', "
        "'WELL')"_sql);
    hospital.execute("delete from DrugMaster"_sql);
    hospital.execute(
        "insert into DrugMaster (drgName, drgCatName) values ('BCG', 'VACCINES'), ('OPV 1', 'DROP'), ('PENTA 1', "
        "'VACCINES'), ('VITAMIN A', 'ORAL'), ('CHILD''S VACCINE', 'VACCINES'), ('ANTI-D', 'VACCINE''INJECTIONS'), "
        "('TETANUS', 'VACCINE'), ('IRON', 'TABLETS')"_sql);
    hospital.execute(
        "insert into DrugNHIS (drgName, drgCatName, Price, Company, Capitated) values "
        "('OPV 1', 'DROP', 1000, '0007', 'YES'), ('PENTA 1', 'VACCINES', 2000.5, '0007', 'NO'), "
        "('OPV 1', 'DROP', 100, 'NHIS', 'YES'), ('OPV 1', 'DROP', 1100, '0001', 'YES'), ('OPV 1', 'DROP', 7, '0004', "
        "'YES'), ('CHILD''S VACCINE', 'VACCINES', 1234.5, '0007', 'NO'), ('BCG', 'VACCINES', 0, '0007', 'NO'), "
        "('BCG', 'VACCINES', 900, '0001', 'NO'), ('VITAMIN A', 'ORAL', null, '0007', 'NO')"_sql);
    hospital.execute(
        "insert into hImmunizationSchedule (Vaccine, DueAge, DueUnit, Sex, Source) values ('BCG', 0, 'WEEKS', null, "
        "'National schedule'), ('OPV 0', 0, 'WEEKS', null, 'National schedule'), ('HEP B 0', 0, 'WEEKS', null, null), "
        "('OPV 1', 6, 'WEEKS', null, null), ('OPV 2', 10, 'WEEKS', null, null), ('MEASLES 1', 9, 'MONTHS', null, "
        "null), "
        "('HPV', 9, 'YEARS', 'FEMALE', null)"_sql);
    hospital.execute(
        "insert into hImmunization (ImDate, PNo, empID, imTime, AgeValue, IMMUNIZATION, consultID, clientCat) values "
        "('14-Oct-2026', 'P1', 'E001', '09:00', 'At birth', 'BCG,opv 0 ', 'C0', 'HMO'), "
        "('20-Nov-2026', 'P1', 'E001', '09:00', '5 weeks', 'OPV 0', 'C00', 'HMO')"_sql);
    hospital.execute("insert into SmsPatients (pno, Fullname, Fullname2, PhoneNo) values ('P1', 'Ada Obi', '', '')"_sql,
                     "SmsCenter");
    hospital.execute("delete from hClinicDays"_sql);
}

}  // namespace test
