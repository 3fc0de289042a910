#pragma once

#include <string>

#include "tests/support/hospital.h"

namespace test {

/// A stay, or what leads to one.
struct Stay {
    std::string pno, surname, firstName, consultID, category;
    std::string ward = "FEMALE 1";
    std::string admitted = "20-Nov-2026";
};

/// A patient with the visit of today and its consultation by doctor D1, of whom nobody has spoken of the wards yet.
inline void addConsulted(TestHospital& hospital, const Stay& of) {
    using namespace db::literals;
    hospital.execute(
        "insert into hPatients (PNo, OldPNo, psurname, pfirstName, DOB, sex, ClientCatID, CoyName) "
        "values ('"_sql +
        of.pno + "', 'CARD-" + of.pno + "', '" + of.surname + "', '" + of.firstName + "', '01-Jan-1990', 'FEMALE', '" +
        of.category + "', '0007')");
    hospital.execute(
        "insert into hRecords (recDate, PNo, consultID, htime, clinicType, clientCat, CoyName) values ('24-Nov-2026', '"_sql +
        of.pno + "', '" + of.consultID + "', '08:15', '(GENERAL)', '" + of.category + "', '0007')");
    hospital.execute(
        "insert into hConsulting (consultID, PNo, CDate, cTime, treatedBy, clientCat, diagnosis) values ('"_sql +
        of.consultID + "', '" + of.pno + "', '24-Nov-2026', '08:40', 'D1', '" + of.category + "', 'MALARIA')");
}

/// The same, admitted to a ward.
inline void addStay(TestHospital& hospital, const Stay& of) {
    using namespace db::literals;
    addConsulted(hospital, of);
    hospital.execute(
        "insert into hAdmission (admdate, aTime, PNo, wardID, Reason, consultID, clientCat, AdmitingDoc, "
        "diagnosis) values ('"_sql +
        of.admitted + "', '10:00', '" + of.pno + "', '" + of.ward + "', 'FEVER', '" + of.consultID + "', '" +
        of.category + "', 'D1', 'MALARIA')");
}

/// A morning in the wards: Ada (HMO) and Musa (private) lie there; Doctors Ojo (D1) and Audu (D2) are in.
inline void arrangeWards(TestHospital& hospital) {
    using namespace db::literals;
    hospital.addUser("ojo", "CONSULTING", "Tunde Ojo", "D1");
    hospital.addUser("audu", "CONSULTING", "Zainab Audu", "D2");
    hospital.execute(
        "insert into employees (empID, lastname, firstname, deptID) values ('D1', 'Ojo', 'Tunde', 'MED'), ('D2', "
        "'Audu', 'Zainab', 'MEDICAL'), ('E001', 'Joy', 'Nurse', 'NUR')"_sql);
    hospital.execute(
        "insert into hRetainership (retainID, retainName, retainCode) values ('0007', 'Axa Mansard', 'AXM')"_sql);
    addStay(hospital, {"P1", "Obi", "Ada", "C1", "HMO"});
    addStay(hospital, {"P2", "Bello", "Musa", "C2", "PRIVATE", "MALE 2", "23-Nov-2026"});
}
inline constexpr const char* adaLies = "Obi Ada [C1]";
inline constexpr const char* musaLies = "Bello Musa [C2]";

}  // namespace test
