#pragma once

#include "inpatient/screens.h"
#include "tests/contract/corpus.h"
#include "tests/contract/plainscreen.h"
#include "tests/inpatient/ward.h"

namespace test {

/// Ada (HMO, with a limit) and Musa (private) lie in the wards. Musa has two drugs on the chart, the second with one of
/// three doses given; for Ada two were dispensed, and none is on the chart yet.
inline void arrangeChart(TestHospital& hospital) {
    using namespace db::literals;
    arrangeWards(hospital);
    hospital.execute("update hAdmission set ExtendAdmissionLimitTo='24-Nov-2026 12:10' where consultID='C1'"_sql);
    hospital.execute(
        "insert into hMedChartMonitor (conID, consultID, PNo, mdate, mtime, numOfTimes, numtaken, drgName, drgCatName, "
        "dosage) values (2, 'C2', 'P2', '23-Nov-2026', '10:00', 6, 0, 'PARACETAMOL', 'TABLETS', '2 TABS 3 TIMES "
        "DAILY'), "
        "(2, 'C2', 'P2', '23-Nov-2026', '10:05', 3, 1, 'AMOXYCILLIN', 'CAPSULES', '1 CAP')"_sql);
    hospital.execute(
        "insert into hMedChartForNurse (conID, mdate, mtime, PNo, drgName, givenBy, consultID, iDNo, numtaken) values "
        "(2, "
        "'23-Nov-2026', '12:00', 'P2', 'AMOXYCILLIN', 'E001', 'C2', 2, 1)"_sql);
    hospital.execute(
        "insert into hconsultingDetails (consultID, conID, PNo, dtDate, dtTime, drgName, drgCatName, Qty, usage) "
        "values "
        "('C1', 1, 'P1', '24-Nov-2026', '08:45', 'ARTEMETHER', 'INJECTIONS', 4, 'AT ONCE'), "
        "('C1', 1, 'P1', '24-Nov-2026', '08:46', 'PARACETAMOL', 'TABLETS', 18, '2 TABS')"_sql);
}
inline constexpr const char* musaOnChart = "Bello Musa  [C2]";
inline constexpr const char* adaOnChart = "Obi Ada  [C1]";

}  // namespace test
