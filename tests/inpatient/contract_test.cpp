#include "inpatient/screens.h"
#include "tests/contract/recordcontract.h"

using namespace db::literals;

namespace test {
namespace {

RecordScreen wards() {
    return {.name = "frmWards",
            .provide = &inpatient::provideScreens,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("txtName", "Male Ward");
                    desk.set("txtLocation", "1ST FLR");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtLocation", "GRD FLR");
                },
            .rows = {"select * from hWards"_sql},
            .texts = {"txtID"},
            .vanish = "delete from hWards"_sql};
}

INSTANTIATE_TEST_SUITE_P(Inpatient, RecordContract, testing::Values(wards()), screenName);

}  // namespace
}  // namespace test
