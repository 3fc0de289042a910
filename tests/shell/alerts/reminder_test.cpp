#include "tests/contract/layouts.h"
#include "tests/shell/mainwindow.h"

using namespace db::literals;

namespace test {
namespace {

class Reminder : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        shell::provideScreens(place);  // the screens themselves
        addPatient();
        hospital.execute("insert into Billing (PNo, ClientID, AmountBilled) values ('000000001/001', '0001', 100)"_sql);
        hospital.execute("insert into hNewBabies (bdate, fullname) values ('20-Nov-2026', 'Baby Obi')"_sql);
        hospital.execute("insert into hAntenatalReg (PNo, dtEdd) values ('000000001/001', '26-Nov-2026')"_sql);
    }
    /// The buttons that can be pressed when the screen opens.
    std::string enabled() {
        place.desktop.unload("frmReminder");
        place.desktop.fire("MdiVorel.mnuRemnd", true);
        std::string names;
        for (const char* button : {"cmdExpected", "cmdPending", "cmdReorder"})
            if (place.desktop.get(std::string("frmReminder.") + button)["enabled"]) names += std::string(button) + " ";
        return names;
    }
};

TEST_F(Reminder, AListCanBeChosenWhereTheMainWindowFoundSomebody) {
    EXPECT_EQ(enabled(), "") << "nothing has looked yet";
    EXPECT_THROW(place.desktop.fire("frmReminder.cmdReorder", false), ui::Refused);
    window().VerifyDueDelivery();
    EXPECT_EQ(enabled(), "cmdExpected ");
    window().VerifyDueDischDate();
    EXPECT_EQ(enabled(), "cmdExpected cmdPending ");
    window().VerifyDueBalance();
    EXPECT_EQ(enabled(), "cmdExpected cmdPending cmdReorder ");
    struct Case {
        const char* button;
        const char* statement;
        const char* title;
    };
    const Case cases[] = {{"cmdExpected", "select * from qryhEDD", "Expectant Mothers due for delivery"},
                          {"cmdPending", "select * from qryhBabyDischarge", "New babies due for discharge"},
                          {"cmdReorder", "select * from qryhBillingBalance", "Balance due for payment"}};
    for (const auto& [button, statement, title] : cases) {
        hospital.forget();
        place.desktop.fire(std::string("frmReminder.") + button, false);
        EXPECT_EQ(hospital.statements(), std::vector<std::string>{statement});
        EXPECT_EQ(place.desktop.get("frmReminder.lblShow")["caption"], title);
        EXPECT_EQ(place.desktop.get("frmReminder.dGexp")["rows"].size(), 1U) << button;
        EXPECT_EQ(faultsOfLayout(*place.desktop.loaded("frmReminder")), std::vector<std::string>{}) << button;
    }
}

TEST_F(Reminder, AlertButtonsOpenTheirLists) {
    hospital.execute("insert into hAdmission (PNo, consultID, clientCat) values ('000000001/001', 'C1', 'HMO')"_sql);
    hospital.then([&] {
        EXPECT_EQ(place.desktop.get("frmFlashExpire.dGexp")["rows"].size(), 1U);
        place.desktop.fire("frmFlashExpire.CancelButton", false);
    });
    fire("cmdExpired");
    fire("cmdNotify");
    place.desktop.fire("frmFlash.cmdDoc", false);
    EXPECT_EQ(place.desktop.activeChild(), place.desktop.loaded("frmFlash"));
    hospital.then([&] { place.desktop.fire("frmCommentsView.CancelButton", false); });
    fire("cmdCommView");
    EXPECT_EQ(place.desktop.loaded("frmCommentsView"), nullptr);
}

}  // namespace
}  // namespace test
