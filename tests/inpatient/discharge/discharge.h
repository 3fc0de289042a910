#pragma once

#include "tests/inpatient/ward.h"

namespace test {

/// A doctor has discharged Ada, and no nurse yet.
inline void arrangeDischarged(TestHospital& hospital) {
    using namespace db::literals;
    arrangeWards(hospital);
    hospital.execute(
        "insert into hdischarge (dischDate, PNo, consultID, apprvby) values ('24-Nov-2026', 'P1', 'C1', 'D1')"_sql);
}

/// A nurse has, too.
inline void arrangeGone(TestHospital& hospital) {
    using namespace db::literals;
    arrangeDischarged(hospital);
    hospital.execute(
        "insert into hdischargeForNurse (dischDate, PNo, consultID, apprvby) values ('24-Nov-2026', 'P1', 'C1', "
        "'E001')"_sql);
    hospital.execute("update hAdmission set isdischarged=1, DischDate='24-Nov-2026' where consultID='C1'"_sql);
    hospital.execute("update hRecords set exitdate='24-Nov-2026', BillDate='24-Nov-2026' where consultID='C1'"_sql);
}

}  // namespace test
