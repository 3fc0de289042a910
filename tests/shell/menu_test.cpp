#include <algorithm>
#include <fstream>

#include "core/session/session.h"
#include "tests/shell/mainwindow.h"
#include "tests/support/paths.h"
#include "ui/captions.h"
#include "ui/control.h"

using namespace db::literals;

namespace test {
namespace {

class MenuTest : public MainWindowTest {
protected:
    /// What firing an entry did, in words.
    std::string effect(const std::string& entry) {
        closeChildren();
        place.desktop.flushChanges();
        hospital.forget();
        place.desktop.fire("MdiVorel." + entry, true);
        for (const auto& event : hospital.events()) {
            if (event.contains("opened")) return "opens " + event["opened"].get<std::string>();
            if (event.contains("message")) return "says " + event["message"]["text"].get<std::string>();
            if (event.contains("changed")) return "changes " + event["changed"].begin().key();
        }
        place.desktop.flushChanges();
        const auto arranged = events("changed");
        if (!arranged.empty()) return "arranges " + arranged.front().dump();
        return hospital.log().empty() ? "nothing" : "reads";
    }
    void closeChildren() {
        for (const auto* screen : place.desktop.screens())
            if (screen != place.desktop.main()) place.desktop.hide(screen->name());
    }
    std::string reach(const std::string& entry) {
        const auto* control = place.desktop.main()->find(entry);
        if (!control) return "missing";
        return control->reachable() ? "shown" : "hidden";
    }
};

TEST_F(MenuTest, EveryEntryDoesWhatItsRowSays) {
    std::ifstream rows(sourceDirectory() / "tests/shell/menu.txt");
    std::size_t entries = 1;  // mnuEPE ends the session: see the leaves
    for (std::string row; std::getline(rows, row);) {
        if (row.starts_with('#')) continue;
        ++entries;
        const auto name = row.substr(0, row.find(' '));
        if (const auto says = row.find("says "); says != std::string::npos)
            hospital.expectMessage(row.substr(says + 5));
        EXPECT_EQ(name + " " + reach(name) + " " + effect(name), row);
    }
    std::size_t built = 0;
    for (const auto& heading : shell::mainMenu()) built += heading.entries.size();
    EXPECT_EQ(built, entries);
}

TEST_F(MenuTest, HiddenEntriesAndEntriesUnderHiddenHeadingsAreRefused) {
    for (const char* entry : {"mnuPatAttnd", "mnuAS", "mnuDC", "mnuSIE", "mnuDrugs", "mnuRemnd"})
        EXPECT_THROW(fire(entry), ui::Refused) << entry;
    EXPECT_TRUE(hospital.log().empty());
    EXPECT_TRUE(events("opened").empty());
}

TEST_F(MenuTest, EntriesThatShareAScreenLeaveWordInTheSession) {
    struct Case {
        const char* entry;
        std::function<bool(const core::Session&)> leaves;
    };
    const Case cases[] = {
        {"mnuORE", [](const auto& session) { return session.gNoteScope == "OPD"; }},
        {"mnuNNote", [](const auto& session) { return session.gNoteScope == "IPD"; }},
        {"mnuCOnHist2", [](const auto& session) { return session.gConsultHistoryArchive; }},
        {"mnuConHistQ", [](const auto& session) { return !session.gConsultHistoryArchive; }},
    };
    for (const auto& [entry, leaves] : cases) {
        place.desktop.fire(std::string("MdiVorel.") + entry, true);
        EXPECT_TRUE(leaves(session())) << entry;
    }
}

TEST_F(MenuTest, AScreenThatStandsThereIsHiddenAndShownAgain) {
    fire("mnuSI");
    const auto* first = place.desktop.loaded("frmWards");
    fire("mnuFC");
    hospital.forget();
    fire("mnuSI");
    EXPECT_EQ(place.desktop.loaded("frmWards"), first);
    EXPECT_EQ(events("hidden"), std::vector<nlohmann::json>{"frmWards"});
    EXPECT_EQ(events("opened"), std::vector<nlohmann::json>{"frmWards"});
    EXPECT_EQ(place.desktop.activeChild(), first);
}

TEST_F(MenuTest, PrintPrintsTheActiveChild) {
    fire("mnuSI");
    place.desktop.fire("MdiVorel.mnuPrint", true);
    EXPECT_EQ(events("print"), std::vector<nlohmann::json>{"frmWards"});
}

TEST_F(MenuTest, TheOverdueListNeedsASecondRole) {
    hospital.addUser("nurse", "MANAGEMENT");
    hospital.then([&] { place.desktop.hide("frmDischargeListOverdue"); });
    fire("mnuOLFD");
    ASSERT_EQ(events("opened"), std::vector<nlohmann::json>{"frmDischargeListOverdue"});
    failWhere("MANAGEMENT");
    hospital.expectMessage("Injected failure");
    fire("mnuOLFD");
    EXPECT_EQ(events("opened").size(), 1U);
}

TEST_F(MenuTest, ReloadReadsTheDefaultsAndKeepsTheWindow) {
    hospital.setDefault("AppLocation", "Abuja");
    fire("mnuRDef");
    EXPECT_EQ(session().gAppLocation, "Abuja");
    EXPECT_EQ(hospital.value("select count(*) from UserActivities"_sql), db::Value(1));
    EXPECT_TRUE(events("opened").empty());
}

TEST_F(MenuTest, AReloadThatLacksWhatPostingNeedsEndsTheSession) {
    hospital.setDefault("AcctPostOn", "YES");
    for (const char* key :
         {"AUTO_TRAN_NO", "AcctCostCenter", "AcctNoPOS", "AcctNoCheque", "AcctNoTransfer", "AcctNoCash", "AcctNoOthers",
          "CashAccountIndex", "ARAccountIndex", "AcctNoSales", "AcctNoSalesInv"})
        hospital.setDefault(key, "7");
    struct Case {
        const char* key;
        bool absent;
        const char* says;  ///< nothing: it may be missing
    };
    const Case cases[] = {{"AcctNoCheque", false, "Cheque Acct No needed for Posting"},
                          {"AcctNoTransfer", true, "Transfer Acct No needed for Posting"},
                          {"AcctNoCash", false, "Cash Acct No needed for Posting"},
                          {"AcctNoOthers", false, nullptr}};
    for (const auto& [key, absent, says] : cases) {
        absent ? hospital.dropDefault(key) : hospital.setDefault(key, "");
        if (says) hospital.expectMessage(says);
        EXPECT_EQ(hospital.ends([&] { fire("mnuRDef"); }), says != nullptr) << key;
        hospital.setDefault(key, "7");
    }
}

TEST_F(MenuTest, ScreensThatNobodyProvidesYetSaySo) {
    TestHospital bare;
    shell::provideScreens(bare.place);
    core::LoadSession(bare.place);
    for (const auto& name : notYetProvided) {
        bare.expectMessage("This page is not there yet: " + ui::wordsOfName(name));
        bare.place.desktop.show(name);
        EXPECT_EQ(bare.place.desktop.loaded(name), nullptr);
    }
}

TEST_F(MenuTest, NursesOfTheDeskFindItsScreensInTheMenu) {
    TestHospital desk;
    desk.place.settings.deskInMenu = true;
    shell::provideScreens(desk.place);
    core::LoadSession(desk.place);
    const auto controls = desk.place.desktop.get("MdiVorel")["controls"];
    const std::pair<const char*, bool> entries[] = {
        {"mnuPatAttnd", true}, {"mnuRegis", true}, {"mnuDress", false}, {"mnuServList", false}, {"mnuVitSigns", true}};
    for (const auto& [entry, shown] : entries) EXPECT_EQ(controls[entry]["visible"], shown) << entry;
}

TEST_F(MenuTest, ReportsReadAsWrittenAndShowTheirRows) {
    addPatient();
    hospital.execute(
        "insert into hAdmission (admdate, PNo, consultID, clientCat) values ('24-Nov-2026', '000000001/001', "
        "'001000000001', 'PRIVATE')"_sql);
    hospital.execute(
        "insert into hPreConsult (preDate, PNo, temp) values ('24-Nov-2026', '000000001/001', '36.8')"_sql);
    hospital.execute("insert into hNewBabies (bdate, fullname) values ('24-Nov-2026', 'Baby Obi')"_sql);
    hospital.execute("insert into hNewBabies (bdate, fullname) values ('23-Nov-2026', 'Baby Ade')"_sql);
    hospital.execute("insert into hdischargeForNurse (dischDate, PNo) values ('24-Nov-2026', '000000001/001')"_sql);
    struct Case {
        const char* entry;
        const char* statement;
        const char* report;
        const char* title;
    };
    const Case cases[] = {
        {"mnuPCOA", "select * from qryhAdmission order by fullname", "rptPatientAdmission", "Patient Admission"},
        {"mnuVit", "select * from qryhvitalsigns where predate = '24-Nov-2026'", "rptVitalSigns",
         "Vital Signs for Today"},
        {"mnuRptSI", "select * from qryhNewBabies where bdate = '24-Nov-2026'", "rptNoOfBabies",
         "New Babaies delivered Today"},
        {"mnuRptSB", "select * from qryhAdmissionForToday where admdate = '24-Nov-2026'", "rptPatientAdmission",
         "Admission for Today"},
        {"mnuDischT", "select * from qryhDischargedX where dischdate = '24-Nov-2026'", "rptPatientDischarge",
         "Patients Discharged Today"},
    };
    for (const auto& [entry, statement, report, title] : cases) {
        SCOPED_TRACE(entry);
        hospital.forget();
        place.desktop.fire(std::string("MdiVorel.") + entry, true);
        EXPECT_EQ(hospital.statements(), std::vector<std::string>{statement});
        EXPECT_EQ(events("report"), (std::vector<nlohmann::json>{{{"name", report}, {"title", title}, {"rows", 1}}}));
    }
    failWhere("qryhAdmission ");
    hospital.expectMessage("Injected failure");
    fire("mnuPCOA");
}

}  // namespace
}  // namespace test
