#include "tests/shell/smallscreen.h"

using namespace db::literals;

namespace test {
namespace {

const char* const extended =
    "Stay in Admission Succefully Extended!\r\nFront Desk Officer Should enter the Approval Code in the 'Approval "
    "Code' Page";

/// A stay of the patient P<n> that runs out at `limit`, "" for never set.
void addStay(TestHospital& hospital, const std::string& n, const std::string& name, const std::string& category,
             const std::string& limit, int hours = 0) {
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, DOB, sex, CoyName, AdmissionDaysLimit) values ('P"_sql + n +
        "', '" + name + "', 'Ada', '1990-01-01', 'FEMALE', '0001', " + hours + ")");
    hospital.execute(
        "insert into hAdmission (admdate, aTime, PNo, consultID, clientCat, ExtendAdmissionLimitTo) values "
        "('20-Nov-2026', '10:00', 'P"_sql +
        n + "', 'C" + n + "', '" + category + "', " + (limit.empty() ? "null"_sql : "'"_sql + limit + "'") + ")");
}

void arrangeStays(TestHospital& hospital) {
    addStay(hospital, "1", "Obi", "HMO", "24-Nov-2026 09:30");
    addStay(hospital, "2", "Bello", "NHIS", "", 48);
    addStay(hospital, "3", "Eze", "PHIS", "23-Nov-2026 18:45");
}

class Expire : public SmallScreen {
protected:
    Expire() : SmallScreen("frmFlashExpire", &arrangeStays) {}
    std::string labels() { return shown({"lblName", "lblNo", "lblCon", "lblAdmDate", "lblTime", "lblLimit"}); }
    void choose(int stay, const char* hours) {
        set("dGexp", {{"row", stay}});
        set("txtLimit", hours);
    }
    void update(Says says = {extended}, const char* answer = "yes") {
        hospital.answer(answer);
        fire("cmdUpdate", says);
    }
    /// Each stay's limit, and each patient's hours.
    std::string limits() {
        return dump(
            "select a.ExtendAdmissionLimitTo, p.AdmissionDaysLimit from hAdmission a inner join hPatients p on "
            "p.PNo = a.PNo order by a.SNO"_sql);
    }
    const std::string before = limits();
};

TEST_F(Expire, AStayOfASchemeRunsOutInItsMinuteByTheServersClock) {
    struct Case {
        const char* category;
        const char* limit;
        bool listed;
    };
    const Case cases[] = {{"HMO", "24-Nov-2026 09:29", true},
                          {"HMO", "24-Nov-2026 09:30", true},
                          {"HMO", "24-Nov-2026 09:31", false},
                          {"NHIS", "24-Nov-2026 09:30", true},
                          {"PHIS", "24-Nov-2026 09:30", true},
                          {"PHIS", "", true},
                          {"PRIVATE", "", false},
                          {"PRIVATE", "20-Nov-2026", false}};
    hospital.workstationClock = db::DateTime::of(2027, 1, 1);
    for (const auto& [category, limit, listed] : cases) {
        hospital.execute("delete from hAdmission"_sql);
        hospital.execute("delete from hPatients"_sql);
        addStay(hospital, "1", "Obi", category, limit);
        open();
        EXPECT_EQ(list({"ConsultID"}), listed ? "C1\n" : "") << category << " " << limit;
    }
    EXPECT_EQ(sent(), std::vector<std::string>{
                          "select AdmDate,aTime as Time,FullName,ConsultID,Company,ClientCat,ExtendAdmissionLimitTo as "
                          "ExpiredAdmission,PNo from qryhAdmission  where ClientCat in ('PHIS','NHIS','HMO') and  "
                          "getDate()>= IsNull(ExtendAdmissionLimitTo,getDate())"});
}

TEST_F(Expire, ARowChosenFillsTheLabels) {
    EXPECT_EQ(labels(), "|||||") << "nothing is chosen yet";
    set("dGexp", {{"row", 0}});
    EXPECT_EQ(labels(), "Obi Ada|P1|C1|20-Nov-2026|10:00:00|24-Nov-2026 09:30");
    set("dGexp", {{"row", 1}});
    EXPECT_EQ(labels(), "Bello Ada|P2|C2|20-Nov-2026|10:00:00|24-Nov-2026 00:00");
    fire("dGexp.DblClick");
    EXPECT_EQ(focus(), "frmFlashExpire.txtLimit");
    open();
    fire("txtLimit.GotFocus");
    EXPECT_EQ(shown({"lblCon"}), "C1") << "the hours are those of the stay under the cursor";
    set("dGexp", {{"row", 2}});
    fire("txtLimit.GotFocus");
    EXPECT_EQ(shown({"lblCon"}), "C3");
}

TEST_F(Expire, HoursThatAreNoneAreRefusedAndNothingIsWritten) {
    struct Case {
        const char* hours;
        const char* says;
    };
    const Case cases[] = {{"", "Specify No of Hrs to Extend Stay in  Admission to"},
                          {"0", "Please Specify a Value greater than zero"},
                          {"000", "Please Specify a Value greater than zero"},
                          {"32768", "Overflow"},
                          {"99999999999999999999999999", "Overflow"}};
    for (const auto& [hours, says] : cases) {
        choose(0, hours);
        hospital.forget();
        fire("cmdUpdate", {says});
        EXPECT_EQ(focus(), "frmFlashExpire.txtLimit") << hours;
        EXPECT_EQ(shown({"txtLimit", "lblCon"}), std::string(hours) + "|C1");
        EXPECT_TRUE(sent().empty()) << hours;
    }
    set("txtLimit", "2a4 h");
    EXPECT_EQ(shown({"txtLimit"}), "24");
    open();
    set("txtLimit", "24");
    hospital.forget();
    fire("cmdUpdate", {"Type mismatch"});
    EXPECT_TRUE(sent().empty()) << "no stay is chosen";
}

TEST_F(Expire, AnExtensionCountsFromTheLimitAndFillsThePatientsHoursOnce) {
    choose(0, "24");
    update({}, "no");
    EXPECT_EQ(hospital.boxes().back().text,
              "Are you sure to Extend Stay in Admission of Obi Ada\r\nto 25-Nov-2026 09:30");
    EXPECT_EQ(hospital.boxes().back().title, "Extend Stay in Admission");
    EXPECT_EQ(limits(), before);
    hospital.forget();
    update();
    const auto statements = sent();
    ASSERT_GE(statements.size(), 2U);
    EXPECT_EQ(statements[0], "update hPatients set  AdmissionDaysLimit='24' where PNo='P1' and AdmissionDaysLimit=0");
    EXPECT_EQ(statements[1], "update hAdmission set  ExtendAdmissionLimitTo='25-Nov-2026 09:30' where ConsultID='C1'");
    EXPECT_EQ(dump("select userName, userAction, TranCode, Src from hAuditTrail"_sql),
              "nurse|Extend Stay in Admission of Obi Ada from 24-Nov-2026 09:30 to 25-Nov-2026 09:30|C1|WARD-3: from "
              "NURSING\n");
    EXPECT_EQ(labels() + shown({"txtLimit"}), "|||||");
    EXPECT_EQ(list({"ConsultID"}), "C2\nC3\n");
    EXPECT_EQ(focus(), "frmFlashExpire.dGexp");

    choose(0, "32767");  // no limit yet: it counts from the workstation's midnight
    update();
    choose(0, "1");  // and is over still: the stay keeps its place
    update();
    EXPECT_EQ(list({"ConsultID", "ExpiredAdmission"}), "C3|23-Nov-2026 19:45:00\n");
    choose(0, "100");
    update();
    EXPECT_EQ(limits(),
              "25-Nov-2026 09:30:00|24\n"
              "20-Aug-2030 07:00:00|48\n"
              "27-Nov-2026 23:45:00|1\n");
    EXPECT_EQ(row(), -1);
}

TEST_F(Expire, TheListKeepsItsPlaceBehindAnExtension) {
    choose(1, "24");
    update();
    EXPECT_EQ(row(), 1);
    EXPECT_EQ(list({"ConsultID"}), "C1\nC3\n");
}

TEST_F(Expire, EachWriteThatFailsLeavesWhatStoodBehindIt) {
    const char* const patientOnly = "24-Nov-2026 09:30:00|24\nnull|48\n23-Nov-2026 18:45:00|0\n";
    for (const auto& [write, left] : {std::pair(1, before.c_str()), std::pair(2, patientOnly)}) {
        choose(0, "24");
        hospital.failWrite(write);
        update({"Injected failure"});
        EXPECT_EQ(limits(), left) << write;
        EXPECT_EQ(shown({"lblCon", "txtLimit"}), "C1|24") << write;
        EXPECT_TRUE(is("cmdUpdate", "enabled"));
    }
    hospital.failWrite(3);
    update({"Injected failure", extended});  // the audit row
    EXPECT_EQ(shown({"lblCon"}), "");
    choose(0, "24");
    hospital.failStatement("select AdmDate");
    update({"Injected failure", extended});  // the list
    EXPECT_EQ(shown({"lblCon"}), "") << "nobody extends the same stay twice because of it";
}

/// The same in files, whose line can break.
class ExpireInFiles : public testing::Test {
protected:
    HospitalFiles files;
    Ward hospital{files};
};

TEST_F(ExpireInFiles, ALineThatBreaksLeavesNoHalfACommand) {
    hospital.start();
    shell::provideScreens(hospital.place);
    addStay(hospital, "1", "Obi", "HMO", "24-Nov-2026 09:30");
    hospital.place.desktop.show("frmFlashExpire");
    hospital.setTakesMessages(true);
    const auto rows = [&] {
        return hospital.dump("select ExtendAdmissionLimitTo from hAdmission"_sql) +
               hospital.dump("select AdmissionDaysLimit from hPatients"_sql);
    };
    const char* const left[] = {"24-Nov-2026 09:30:00\n0\n", "24-Nov-2026 09:30:00\n24\n",
                                "25-Nov-2026 09:30:00\n24\n"};
    for (int statement = 1; statement <= 3; ++statement) {
        hospital.place.desktop.set("frmFlashExpire.dGexp", {{"row", 0}}, false);
        hospital.place.desktop.set("frmFlashExpire.txtLimit", "24", false);
        hospital.breakLine(statement);
        hospital.answer("yes");
        hospital.place.desktop.fire("frmFlashExpire.cmdUpdate", false);
        EXPECT_EQ(rows(), left[statement - 1]);
    }
}

}  // namespace
}  // namespace test
