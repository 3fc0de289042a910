#include <algorithm>

#include "core/session/session.h"
#include "tests/shell/mainwindow.h"

using namespace db::literals;

namespace test {
namespace {

constexpr const char* exitQuestion = " Do you want to Exit the Application?";

class WindowTest : public MainWindowTest {
protected:
    std::string activity() {
        return hospital.dump("select islogout, AutoLogoff, LogoutDate, LogoutTime, Remarks from UserActivities"_sql);
    }
};

const char* const openActivity = "False|False|null|null|NURSING\n";

TEST_F(WindowTest, LoadShowsWhoWorksWhereAndWhen) {
    EXPECT_EQ(window().caption(), "NURSING (Ver 7) : @ Lagos");
    EXPECT_EQ(window().SbrVorel.panel(1), "NURSING");
    EXPECT_EQ(window().SbrVorel.panel(3), "Nurse Joy : Please Log off your User Account when Necessary");
    EXPECT_EQ(dynamic_cast<ui::MenuItem&>(*window().find("mnuEPE")).caption(), "Log Off nurse");
    EXPECT_EQ(window().lblDate.text() + " " + window().lblTime.text(), "24-Nov-2026 09:30");
    EXPECT_EQ(activity(), openActivity);
}

TEST(WindowLoadTest, AFailedActivityRowDoesNotStopTheNurse) {
    TestHospital hospital;
    shell::provideScreens(hospital.place);
    hospital.failWrite(1);
    hospital.expectMessage("Injected failure");
    core::LoadSession(hospital.place);
    ASSERT_NE(hospital.place.desktop.main(), nullptr);
    EXPECT_TRUE(hospital.place.desktop.main()->visible());
    EXPECT_EQ(hospital.value("select count(*) from UserActivities"_sql), db::Value(0));
    EXPECT_EQ(hospital.place.session.gActivitySNo, 0);
}

TEST_F(WindowTest, TheLeavesCloseTheActivityRow) {
    struct Case {
        const char* name;
        const char* event;
        std::vector<std::string> answers;
        bool forced;
        bool ends;
        const char* activity;
    };
    const char* const left = "True|False|24-Nov-2026|09:30:00|NURSING\n";
    const Case cases[] = {
        {"stays", "Unload", {"no"}, false, false, openActivity},
        {"closes", "Unload", {"yes"}, false, true, left},
        {"logs off", "mnuEPE", {}, false, true, left},
        {"is logged off", "Unload", {}, true, true, "True|True|24-Nov-2026|09:30:00|NURSING\n"},
    };
    for (const auto& each : cases) {
        hospital.execute("update UserActivities set islogout=0, AutoLogoff=0, LogoutDate=null, LogoutTime=null"_sql);
        hospital.forget();
        session().gForcedLogoff = each.forced;
        for (const auto& answer : each.answers) hospital.answer(answer);
        EXPECT_EQ(hospital.ends([&] { place.desktop.fire(std::string("MdiVorel.") + each.event, true); }), each.ends)
            << each.name;
        EXPECT_EQ(activity(), each.activity) << each.name;
        ASSERT_EQ(hospital.boxes().size(), each.answers.size()) << each.name;
        if (each.answers.empty()) continue;
        EXPECT_EQ(hospital.boxes()[0].text, exitQuestion);
        EXPECT_EQ(hospital.boxes()[0].title, "Exit Application");
    }
}

TEST_F(WindowTest, LogOffHidesTheWindow) {
    EXPECT_TRUE(hospital.ends([&] { fire("mnuEPE"); }));
    EXPECT_EQ(events("hidden"), std::vector<nlohmann::json>{"MdiVorel"});
}

TEST_F(WindowTest, AFaultWhileLeavingIsShownAndTheNurseIsStillLetOut) {
    for (const char* event : {"Unload", "mnuEPE"}) {
        hospital.failWrite(1);
        hospital.expectMessage("Injected failure");
        if (std::string(event) == "Unload") hospital.answer("yes");
        EXPECT_TRUE(hospital.ends([&] { place.desktop.fire(std::string("MdiVorel.") + event, true); })) << event;
        EXPECT_FALSE(hospital.failurePending()) << event;
        EXPECT_EQ(activity(), openActivity) << event;
    }
}

TEST_F(WindowTest, ADoubleClickSwitchesTheWatch) {
    const auto running = [&] {
        std::string on;
        for (const auto* timer : {&window().Timer1, &window().tmrMDI, &window().tmrSound, &window().tmrNotify})
            on += timer->running() ? '1' : '0';
        return on;
    };
    ASSERT_TRUE(session().gPatientHasBalance);
    fire("Picture1.DblClick");
    EXPECT_FALSE(session().gPatientHasBalance);
    EXPECT_FALSE(session().gWatchTimersOn);
    EXPECT_EQ(running(), "0000");
    EXPECT_EQ(window().Picture1.backColor(), 0x8080FF);
    EXPECT_TRUE(events("opened").empty());

    fire("Picture1.DblClick");
    EXPECT_TRUE(session().gPatientHasBalance);
    EXPECT_TRUE(session().gWatchTimersOn);
    EXPECT_EQ(running(), "1111");
    EXPECT_EQ(events("opened"), std::vector<nlohmann::json>{"frmFlash"});

    fire("Picture1.DblClick");
    EXPECT_EQ(events("hidden"), std::vector<nlohmann::json>{"frmFlash"});
}

TEST_F(WindowTest, ButtonsOpenTheirScreens) {
    struct Case {
        const char* button;
        const char* screen;
        bool modal;
    };
    const Case cases[] = {{"cmdExpired", "frmFlashExpire", true},
                          {"cmdNotify", "frmFlash", false},
                          {"cmdCommView", "frmCommentsView", true}};
    for (const auto& [button, screen, modal] : cases) {
        hospital.forget();
        if (modal) hospital.then([&, name = screen] { place.desktop.hide(name); });
        fire(button);
        const nlohmann::json opened = {{"opened", screen}, {"modal", modal}};
        EXPECT_NE(std::find(hospital.events().begin(), hospital.events().end(), opened), hospital.events().end())
            << button;
    }
}

TEST_F(WindowTest, ANewCommentNeedsAPatientOnTheActivePage) {
    struct Case {
        std::optional<std::string> patient;  ///< what the page has picked
        const char* says;                    ///< nothing: frmComments opens
    };
    const Case cases[] = {{"", "Select a Patient Name"},
                          {"Obi Ada [C1]", nullptr},
                          {std::nullopt, "Comment Not Applicable for this Page"}};
    hospital.expectMessage("No Patient Name is Selected");
    fire("cmdComm");
    place.desktop.show("frmMedChart");
    for (const auto& each : cases) {
        dynamic_cast<NamedScreen&>(*place.desktop.loaded("frmMedChart")).patient = each.patient;
        hospital.forget();
        if (each.says)
            hospital.expectMessage(each.says);
        else
            hospital.then([&] { place.desktop.hide("frmComments"); });
        fire("cmdComm");
        EXPECT_EQ(events("opened").size(), each.says ? 0U : 1U) << each.patient.value_or("no patient");
    }
}

TEST_F(WindowTest, TheDueRoutinesCollectTheirLines) {
    addPatient();
    window().VerifyDueBalance();
    window().VerifyDueDischDate();
    window().VerifyDueDelivery();
    EXPECT_EQ(window().dueText(), "");
    EXPECT_FALSE(window().balanceDue() || window().dischargeDue() || window().deliveryDue());

    hospital.execute("insert into Billing (PNo, ClientID, AmountBilled) values ('000000001/001', '0001', 100)"_sql);
    hospital.execute("insert into hNewBabies (bdate, fullname) values ('20-Nov-2026', 'Baby Obi')"_sql);
    hospital.execute("insert into hAntenatalReg (PNo, dtEdd) values ('000000001/001', '26-Nov-2026')"_sql);
    window().VerifyDueBalance();
    EXPECT_TRUE(window().balanceDue() && !window().dischargeDue() && !window().deliveryDue());
    window().VerifyDueDischDate();
    EXPECT_TRUE(window().dischargeDue() && !window().deliveryDue());
    window().VerifyDueDelivery();
    EXPECT_TRUE(window().deliveryDue());
    EXPECT_EQ(window().dueText(),
              "--Some Patients Balance are due for payment--\r\n"
              "--Some new born babies are due for Discharge--\r\n"
              "--Some Expectant mothers' EDD are due--\r\n");
}

}  // namespace
}  // namespace test
