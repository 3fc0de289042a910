#include "tests/outpatient/history/history.h"

#include "core/session/session.h"
#include "tests/support/picture.h"

using namespace db::literals;

namespace test {

void arrangeHistory(TestHospital& hospital) {
    hospital.execute(
        "insert into employees (empID, lastname, firstname, deptID) values ('D1', 'Ojo', 'Tunde', 'MED'), "
        "('D2', 'Audu', 'Zainab', 'MED')"_sql);
    hospital.execute("insert into hRetainership (retainID, retainName) values ('0007', 'Axa Mansard')"_sql);
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, DOB, sex, CoyName) values ('P1', 'Obi', 'Ada', "
        "'01-Jan-1990', 'FEMALE', '0007'), ('P2', 'Bello', 'Musa', '01-Jan-1980', 'MALE', '0007')"_sql);
    hospital.execute(
        "insert into hConsulting (consultID, PNo, CDate, cTime, treatedBy, clientCat, diagnosis, diffdiagnosis, "
        "Complaints, preScription, injprescription, services, urineSug, hb, pcv) values "
        "('C1', 'P1', '20-Nov-2026', '09:00', 'D1', 'HMO', 'MALARIA', 'TYPHOID', 'FEVER', 'PCM', 'IV', 'X-RAY', 'NIL', "
        "'11', '33'), "
        "('C2', 'P1', '22-Nov-2026', '10:00', 'D2', 'HMO', 'APPENDICITIS', '', 'PAIN', '', '', '', 'TRACE', '12', "
        "'36'), "
        "('C3', 'P1', '24-Nov-2026', '08:40', 'D1', 'HMO', 'REVIEW', '', '', '', '', '', '', '', '')"_sql);
    hospital.execute(
        "insert into hPreConsult (consultID, PNo, preDate, preTime, temp, Pressure, pulse, Weight, Height, "
        "respRatio, urineAlb, urineSug, examinedby) values ('C1', 'P1', '20-Nov-2026', '08:30', '38', "
        "'120/80', '90', '60', '1.7', '18', 'NIL', 'NIL', 'D2')"_sql);
    hospital.execute("insert into hEye (conID, VisualAcuity) values (2, '6/6')"_sql);
    hospital.execute("insert into hDental (conID, dtype, AULI1) values (2, 'ADULT', 'CARIES')"_sql);
    hospital.execute(
        "insert into hPhysio (conID, ReviewDate, ApptDate, Goals) values (2, '25-Nov-2026', "
        "'26-Nov-2026', 'WALK')"_sql);
    hospital.execute(
        "insert into hSurgery (PNo, consultID, sDate, operation, hb, sugar) values ('P1', 'C2', "
        "'22-Nov-2026', 'APPENDICECTOMY', '9', 'POSITIVE')"_sql);
    hospital.execute("insert into hinvestigate (consultID, sympitem, result) values ('C2', 'FBC', 'WBC 15')"_sql);
    const auto picture = jpeg(40, 30);
    const auto* first = reinterpret_cast<const std::byte*>(picture.data());
    const db::Bytes image(first, first + picture.size());
    db::Recordset images(hospital.place.hospital(), "select * from hPix where 1=2"_sql);
    for (const auto& [remarks, bytes] : {std::pair{"CHEST", db::Value(image)}, {"LOST", db::Value()}}) {
        images.addNew();
        for (const auto& [column, value] : {std::pair{"DtDate", db::Value("22-Nov-2026")},
                                            {"DtTime", db::Value("10:05")},
                                            {"PNo", db::Value("P1")},
                                            {"Image", bytes},
                                            {"Remarks", db::Value(remarks)}})
            images.set(column, value);
        images.update();
    }
    hospital.execute("insert into hPatients (PNo, psurname, pfirstName) values ('P1', 'Obi', 'Ada')"_sql,
                     "HospitalArchive");
    hospital.execute(
        "insert into hConsulting (ID, consultID, PNo, CDate, cTime, diagnosis) values (3, 'C0', 'P1', "
        "'02-Jan-2019', '09:00', 'OLD')"_sql,
        "HospitalArchive");
    hospital.place.session.gCurConsultPNo = "P1";
    hospital.place.session.gCurConsultName = "Obi Ada";
}

}  // namespace test
