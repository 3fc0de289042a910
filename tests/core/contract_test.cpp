#include "docs/example/frmnotices.h"
#include "tests/contract/recordcontract.h"

using namespace db::literals;

namespace test {
namespace {

/// The screen that docs/screens.md shows: the frame itself, with next to nothing around it.
RecordScreen notices() {
    return {.name = "frmNotices",
            .provide =
                [](core::Workplace& place) {
                    place.desktop.provide("frmNotices",
                                          [&place] { return std::make_unique<example::frmNotices>(place); });
                },
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboDept", "NURSING");
                    desk.set("txtRem", " Ward 3 is out of saline ");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtRem", "Saline has come");
                },
            .rows = {"select * from hNotify"_sql},
            .texts = {"txtRem"},
            .vanish = "delete from hNotify"_sql,
            .deletes = false};
}

INSTANTIATE_TEST_SUITE_P(Core, RecordContract, testing::Values(notices()), screenName);

}  // namespace
}  // namespace test
