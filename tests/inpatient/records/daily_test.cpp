#include <fstream>

#include "core/session/session.h"
#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

class NurseDaily : public AtScreen {
protected:
    NurseDaily() : AtScreen("frmNurseDaily", &inpatient::provideScreens) {
        hospital.execute(
            "insert into employees (empID, lastname, firstname, deptID) values ('E001', 'Joy', 'Nurse', "
            "'NUR'), ('E002', 'Eze', 'Ngozi', 'NUR')"_sql);
    }
    /// A report as another nurse left it; gives its number.
    std::string report(const char* heading, const char* details, const char* completed = "NO",
                       const char* date = "24-Nov-2026") {
        hospital.execute(
            "insert into hNurseOverRpt (dtDate, dtTime, Shift, EmpID, RptHead, Completed, Details) values ('"_sql +
            std::string(date) + "', '06:00', 'NIGHT', 'E002', '" + std::string(heading) + "', '" +
            std::string(completed) + "', '" + std::string(details) + "')");
        return hospital.value("select max(sno) as sno from hNurseOverRpt"_sql).text();
    }
    void choose(const char* heading, const char* shift = "NIGHT") {
        if (shown({"cboVehNo"}).empty()) expect({"Please Report Heading"});
        set("cboShift", shift);
        set("cboVehNo", heading);
    }
    void openLatest() {
        fire("cmdRefresh");
        fire("grdData.DblClick");
    }
    std::string reports() {
        return dump(
            "select dtDate, dtTime, Shift, EmpID, RptHead, subHead, Completed, Details, isOLD from hNurseOverRpt "
            "order by sno"_sql);
    }
    void write(const std::string& number, const std::string& text) {
        std::ofstream(hospital.program.path() / (number + ".txt")) << text;
    }
};

TEST_F(NurseDaily, AReportIsAskedForPieceByPieceAndRetiresTheOlderOnes) {
    report("ADMIN REPORT", "last week", "YES", "17-Nov-2026");
    report("SITUATION REPORT", "another heading");
    fire("cmdAdd");
    EXPECT_EQ(
        entries("cboShift") + entries("cboVehNo") + entries("cboYes"),
        "MORNING|AFTERNOON|NIGHT|ADMIN REPORT|MINOR THEATHER|MAIN THEATHER|SITUATION REPORT|OVERALL REPORT|YES|NO|");
    set("dtDate", nullptr);
    stopsInOrder({{"Please specify Date", "dtDate", "2026-11-24"},
                  {"Please specify Shift", "cboShift", "NIGHT"},
                  {"Please specify Report Heading", "cboVehNo", "ADMIN REPORT"},
                  {"Please specify 'YES' if the Report is Complete or Choose 'NO' if it can still be Edited Later",
                   "cboYes", "NO"},
                  {"Please enter Report Details", "txtAdmin", " Mrs Obi's drip ran 'til dawn "}});
    set("txtSub", " WARD 3's ");
    save();
    EXPECT_EQ(reports(),
              "17-Nov-2026|06:00:00|NIGHT|E002|ADMIN REPORT|null|YES|last week|True\n"
              "24-Nov-2026|06:00:00|NIGHT|E002|SITUATION REPORT|null|NO|another heading|False\n"
              "24-Nov-2026|09:31:00|NIGHT|E001|ADMIN REPORT|WARD 3's|NO|Mrs Obi's drip ran 'til dawn|False\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert Nurse Report: ADMIN REPORT| WARD 3's |By Nurse\n");
    fire("cmdDel", {" Record cannot be deleted "});
}

TEST_F(NurseDaily, APickLoadsTheLatestReportThatFits) {
    report("ADMIN REPORT", "older");
    report("ADMIN REPORT", "newer", "YES");
    set("cboVehNo", "ADMIN REPORT", {"Please specify Date and Shift"});
    set("cboShift", "NIGHT");
    EXPECT_EQ(shown({"txtAdmin", "cboYes"}), "newer|YES");
    set("cboShift", "MORNING");
    EXPECT_EQ(shown({"txtAdmin", "cboYes", "txtSub"}), "||") << "none of that shift";
    set("cboShift", "NIGHT");
    set("dtDate", "2026-11-23");
    EXPECT_EQ(shown({"txtAdmin"}), "") << "nor of that date";
    set("dtDate", nullptr);
    set("cboShift", "NIGHT", {"Please specify Date"});
    // Whoever writes a new one is not disturbed by the old ones.
    fire("cmdAdd");
    set("txtAdmin", "typed");
    set("cboShift", "NIGHT");
    set("cboVehNo", "ADMIN REPORT");
    EXPECT_EQ(shown({"txtAdmin"}), "typed");
}

TEST_F(NurseDaily, WhatIsOpenedIsAnyReportOfTheShiftThatIsNotComplete) {
    fire("cmdEdit", {"Please specify Date and Shift"});
    choose("ADMIN REPORT");
    fire("cmdEdit", {"This Report is Not Allowed for Editing!!! Already Completed"});
    report("ADMIN REPORT", "closed", "YES");
    const auto open = report("SITUATION REPORT", "still open");
    choose("ADMIN REPORT");
    fire("cmdEdit");
    EXPECT_EQ(shown({"txtAdmin", "lblTitle"}), "closed|Nurses' Daily Report : NIGHT, SITUATION REPORT");
    EXPECT_FALSE(is("cboShift", "enabled") || is("cboVehNo", "enabled") || is("dtDate", "enabled"));
    set("txtAdmin", "it's closed now");
    set("cboYes", "YES");
    save({"Record Succesfully updated"});
    EXPECT_TRUE(
        ran("update hNurseOverRpt set dtDate='24-Nov-2026',dtTime='09:31:00',Shift='NIGHT',EmpID='E001',RptHead="
            "'ADMIN REPORT',subHead='',Completed='YES',Details .write('it''s closed now',0,null) where sno=" +
            open));
    EXPECT_EQ(reports(),
              "24-Nov-2026|06:00:00|NIGHT|E002|ADMIN REPORT|null|YES|closed|False\n"
              "24-Nov-2026|09:31:00|NIGHT|E001|ADMIN REPORT||YES|it's closed now|False\n");
}

TEST_F(NurseDaily, TheLaterOfTwoCorrectionsStandsAndIsWarned) {
    report("ADMIN REPORT", "first");
    openLatest();
    EXPECT_EQ(shown({"cboShift", "cboVehNo", "txtAdmin"}), "NIGHT|ADMIN REPORT|first");
    hospital.execute("update hNurseOverRpt set Details='second', dtTime='09:15'"_sql);
    set("txtAdmin", "third");
    hospital.answer("no");
    fire("OKButton");
    EXPECT_EQ(
        hospital.boxes().back().text,
        "Eze Ngozi has changed this report at 09:15:00, after you opened it. What you save takes the place of that "
        "text.\r\n\r\nAre you sure to save");
    EXPECT_EQ(shown({"txtAdmin"}), "third");
    save({"Record Succesfully updated"});
    EXPECT_EQ(hospital.value("select Details from hNurseOverRpt"_sql).text(), "third");
}

TEST_F(NurseDaily, AMegabyteOfQuotesIsStoredWhole) {
    const std::string text(1'000'000, '\'');
    report("ADMIN REPORT", "short");
    openLatest();
    set("txtAdmin", text);
    save({"Record Succesfully updated"});
    EXPECT_TRUE(hospital.value("select Details from hNurseOverRpt"_sql).text() == text);
}

TEST_F(NurseDaily, TheLocalCopyIsWrittenReadAndViewed) {
    const auto number = report("ADMIN REPORT", "stored");
    EXPECT_FALSE(is("cmdLocal", "enabled") || is("cmdRet", "enabled") || is("cmdView", "enabled"));
    openLatest();
    set("txtAdmin", "  typed so far ");
    fire("cmdLocal", {"File Saved Temporarily to your Local Disk!!! Continue with your Report"});
    set("txtAdmin", "stored");
    fire("cmdRet");
    EXPECT_EQ(shown({"txtAdmin"}), "typed so far");
    EXPECT_FALSE(is("cmdRet", "enabled"));
    hospital.then([&] {
        EXPECT_EQ(place.desktop.get("frmViewLocal.txtAdmin")["text"], "typed so far");
        EXPECT_FALSE(place.desktop.get("frmViewLocal.txtAdmin")["enabled"].get<bool>());
        place.desktop.fire("frmViewLocal.CancelButton", false);
    });
    fire("cmdView");
    EXPECT_TRUE(std::filesystem::exists(hospital.program.path() / (number + ".txt")));
}

TEST_F(NurseDaily, ACopyThatCannotBeReadLosesNothing) {
    const auto number = report("ADMIN REPORT", "stored");
    openLatest();
    set("txtAdmin", "typed");
    for (const auto* command : {"cmdRet", "cmdView"}) fire(command, {"No such file or directory"});
    EXPECT_TRUE(is("cmdRet", "enabled"));
    std::filesystem::create_directory(hospital.program.path() / (number + ".txt"));
    fire("cmdRet", {"Is a directory"});
    fire("cmdLocal", {"Is a directory"});
    std::filesystem::remove(hospital.program.path() / (number + ".txt"));
    EXPECT_EQ(shown({"txtAdmin"}), "typed");
    // What was typed since the report was opened goes for an older copy only with her word.
    write(number, "older");
    hospital.answer("no");
    fire("cmdRet");
    EXPECT_EQ(shown({"txtAdmin"}), "typed");
    hospital.answer("yes");
    fire("cmdRet");
    EXPECT_EQ(shown({"txtAdmin"}), "older");
}

}  // namespace
}  // namespace test
