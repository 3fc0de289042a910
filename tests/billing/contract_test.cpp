#include "billing/screens.h"
#include "tests/contract/recordcontract.h"

using namespace db::literals;

namespace test {
namespace {

RecordScreen stockItems() {
    return {.name = "frmStockItems",
            .provide = &billing::provideScreens,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    for (const auto& [field, text] : {std::pair{"txtName", "OXYGEN"}, std::pair{"txtQty", "1 HOUR"},
                                                      std::pair{"txtPrice", "1,500.50"}, std::pair{"txtPrice2", ""}})
                        desk.set(field, text);
                    desk.set("cboCat", "ADMISSION SERVICES");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtPrice", "1800");
                },
            .rows = {"select * from drugs"_sql},
            .texts = {"txtName", "txtQty"},
            .vanish = "delete from drugs where drgName = 'OXYGEN'"_sql,
            .deleteQuestion = "Are you sure to Delete",
            .saysDeleted = "Record successfully Deleted"};
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Billing, RecordContract, testing::Values(stockItems()), screenName);

}  // namespace test
