#include "tests/contract/recordcontract.h"
#include "tests/outpatient/frmpreconsult/preconsult.h"

using namespace db::literals;

namespace test {
namespace {

RecordScreen preConsult() {
    return {
        .name = "frmPreConsult",
        .provide = &outpatient::provideScreens,
        .arrange = &arrangeStation,
        .add = [](Desk& desk) { takeVitals(desk.place, adaWaits); },
        .correct =
            [](Desk& desk) {
                correctVitals(desk.place, "Zainab Audu [D2]");
                desk.set("txtTemp", "39");
            },
        .rows = {"select * from hPreConsult"_sql, "select * from hPreConsultChart"_sql, "select * from billAccum"_sql,
                 "select * from hRecords"_sql, "select * from hPatientsTimeline"_sql},
        .texts = {"txtTemp", "txtPressure", "txtPause", "txtResp", "txtHt", "txtWt", "txtSPO2", "txtRBS", "cboPosition",
                  "txtAlb", "txtSugar", "cboType"},
        .vanish = "delete from hPreConsult"_sql};
}

INSTANTIATE_TEST_SUITE_P(Outpatient, RecordContract, testing::Values(preConsult()), screenName);

}  // namespace
}  // namespace test
