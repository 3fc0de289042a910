#include "tests/inpatient/discharge/discharge.h"
#include <algorithm>

#include "core/session/session.h"
#include "inpatient/screens.h"
#include "tests/core/atscreen.h"

using namespace db::literals;

namespace test {
namespace {

constexpr const char* banner[] = {"lblTitle", "lblBill", "lblClient", "lblWard",
                                  "lblNo",    "lblDays", "lblDate",   "lblCoy"};

const auto fromDoctor = " from hdischarge"_sql;
const auto fromNurse = " from hdischargeForNurse"_sql;

class Discharging : public AtScreen {
protected:
    explicit Discharging(const char* screen, void (*arrange)(TestHospital&) = &arrangeWards)
        : AtScreen(screen, &inpatient::provideScreens, arrange) {}
    std::string patient() {
        std::string all;
        for (const auto* label : banner) all += shown({label}) + "|";
        return all;
    }
    std::string discharges(const db::Sql& from) {
        return dump(
            "select dischDate, dischTime, PNo, consultID, clientCat, wardID, Reason, Remarks, apprvby, ApptDate"_sql +
            from);
    }
    std::string flags(const std::string& consultID) {
        return dump("select isdischarged, DischDate from hAdmission where consultID='"_sql + consultID + "'") +
               dump("select exitdate, BillDate from hRecords where consultID='"_sql + consultID + "'");
    }
};

class ByDoctor : public Discharging {
protected:
    ByDoctor() : Discharging("frmDischarge") {}
};

TEST_F(ByDoctor, APickShowsTheStayAndASaveLeavesThePatientInTheWard) {
    hospital.workstationClock = db::DateTime::of(2026, 11, 25, 8, 0);
    fire("cmdRefresh");
    EXPECT_EQ(entries("cboCat"), " |Ojo Tunde [D1]|Audu Zainab [D2]|");
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"), std::string(adaLies) + "|" + musaLies + "|");
    stopsInOrder({{"Please specify Patient Name", "cboVehNo", adaLies}, {"Please specify Ward No", "cboCat", {}}});
    set("cboCat", " ", {"Please enter Name of Staff on Duty"});
    stopsInOrder({{"Please specify Ward No", "cboCat", "Audu Zainab [D2]"},
                  {"Please specify Next Appt Date", "dtAppt", "2026-12-08"}});
    EXPECT_EQ(patient(), "Patient Discharge : Obi Ada|C1|HMO|FEMALE 1|P1|4|20-Nov-2026|Axa Mansard|");
    fill({{"txtREason", "WELL"}, {"txtRem", "walks"}});
    save({"Record Succesfully saved!!! Awaiting Nurses' Attention "});
    EXPECT_EQ(discharges(fromDoctor), "25-Nov-2026|09:30:00|P1|C1|HMO|FEMALE 1|WELL|walks|D2|08-Dec-2026\n");
    EXPECT_EQ(flags("C1"), "False|null\n25-Nov-2026|null\n");
    EXPECT_EQ(dump("select * from hAuditTrail"_sql), "");
    EXPECT_FALSE(is("cmdDel", "visible"));
    EXPECT_EQ(patient(), "Patient Discharge||||||||");

    fire("cmdEdit");
    EXPECT_EQ(shown({"cboVehNo", "cboCat", "txtREason", "lblWard"}), "P1|Audu Zainab [D2]|WELL|FEMALE 1");
    EXPECT_FALSE(is("cboVehNo", "enabled"));
    fill({{"txtREason", "BETTER"}, {"dtAppt", "2026-12-09"}, {"cboCat", "Ojo Tunde [D1]"}});
    hospital.execute("update hRecords set exitdate=null"_sql);
    save({"Record Succesfully updated"});
    EXPECT_EQ(discharges(fromDoctor), "25-Nov-2026|09:30:00|P1|C1|HMO|FEMALE 1|BETTER|walks|D1|09-Dec-2026\n");
    EXPECT_EQ(flags("C1"), "False|null\nnull|null\n") << "a correction leaves the attendance alone";
}

TEST_F(ByDoctor, AStayThatHasGoneLeavesNobodyButTheSelection) {
    fire("cmdAdd");
    set("cboVehNo", adaLies);
    hospital.execute("update hAdmission set isdischarged=1 where consultID='C2'"_sql);
    set("txtREason", "WELL");
    set("cboVehNo", musaLies, {"No Consultation No!!! Discharge Not Allowed "});
    EXPECT_EQ(patient(), "Patient Discharge||||||||");
    EXPECT_EQ(shown({"cboVehNo", "txtREason"}), std::string(musaLies) + "|");
    fill({{"cboCat", "Ojo Tunde [D1]"}, {"dtAppt", "2026-12-08"}});
    stopsInOrder({{"No Consultation No!!! Discharge Not Allowed ", "cboVehNo", {}}});
}

TEST_F(ByDoctor, ADoctorWhoIsNoEntryAnyMoreIsShownByHisNumber) {
    hospital.execute(
        "insert into hdischarge (dischDate, PNo, consultID, apprvby) values ('24-Nov-2026', 'P1', 'C1', 'D9'), "
        "('24-Nov-2026', 'P2', 'C2', null)"_sql);
    fire("cmdRefresh");
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboCat"}), " [D9]");
    fire("cmdCancel");
    set("grdData", {{"row", 1}});
    fire("cmdEdit");
    EXPECT_EQ(shown({"cboVehNo", "cboCat"}), "P2|");
}

class ByNurse : public Discharging {
protected:
    ByNurse() : Discharging("frmDischargeForNuse", &arrangeDischarged) {}
};

TEST_F(ByNurse, TheNurseEndsAStayThatADoctorHasDischarged) {
    EXPECT_EQ(hiddenColumns(), "ID ");
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"), std::string(adaLies) + "|");
    set("cboVehNo", adaLies, {"Specify Discharge Date"});
    EXPECT_EQ(shown({"cboVehNo", "lblNo"}), "|");
    EXPECT_EQ(focus(), "frmDischargeForNuse.dtDate");
    set("dtDate", "2026-11-24");
    stopsInOrder({{"Please specify Patient Name", "cboVehNo", adaLies}});
    EXPECT_EQ(patient(), "Patient Discharge : Obi Ada|C1|HMO|FEMALE 1|P1|4|20-Nov-2026|Axa Mansard|");
    set("dtDate", nullptr);
    stopsInOrder({{"Please specify Discharge Date", "dtDate", "2026-11-24"}});
    fill({{"txtREason", "WELL"}, {"txtRem", "walks"}});
    save();
    EXPECT_EQ(discharges(fromNurse), "24-Nov-2026|09:30:00|P1|C1|HMO|FEMALE 1|WELL|walks|E001|24-Nov-2026\n");
    EXPECT_EQ(flags("C1"), "True|24-Nov-2026\n24-Nov-2026|24-Nov-2026\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert Pat Discharge: Patient Discharge : Obi Ada|C1|4on Adm\n");
    EXPECT_EQ(shown({"lblTitle"}), "Nursing Summary Discharge");

    fire("grdData.DblClick");
    EXPECT_EQ(patient(), "Patient Discharge : Obi Ada|C1|HMO|FEMALE 1|P1||||");
    EXPECT_EQ(shown({"cboVehNo", "txtREason"}), "Obi Ada|WELL");
    session().gEmpID = "D2";
    set("txtRem", "rides");
    save({"Record Succesfully updated"});
    EXPECT_EQ(discharges(fromNurse), "24-Nov-2026|09:30:00|P1|C1|HMO|FEMALE 1|WELL|rides|D2|24-Nov-2026\n");
    EXPECT_EQ(dump("select top 1 Remarks from hAuditTrail order by SNo desc"_sql), "on Adm\n");

    // A delete is not the way to undo a discharge.
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(discharges(fromNurse), "");
    EXPECT_EQ(flags("C1"), "True|24-Nov-2026\n24-Nov-2026|24-Nov-2026\n");
}

TEST_F(ByNurse, WithoutTheDoctorNothingIsWrittenAndTheFieldsStay) {
    fire("cmdAdd");
    fill({{"dtDate", "2026-11-24"}, {"cboVehNo", adaLies}, {"txtREason", "WELL"}});
    hospital.execute("delete from hdischarge"_sql);
    save({"Doctor has not discharged this Patient!!! Discharge Disallowed"});
    EXPECT_EQ(discharges(fromNurse), "");
    EXPECT_EQ(flags("C1"), "False|null\nnull|null\n");
    EXPECT_EQ(shown({"cboVehNo", "txtREason", "lblNo"}), std::string(adaLies) + "|WELL|P1");
    // Discharged at another desk while the screen stood open.
    hospital.execute("update hAdmission set isdischarged=1"_sql);
    set("cboVehNo", adaLies, {"No Consultation No!!! Discharge Not Allowed "});
    stopsInOrder({{"Invalid ConsultID! Please Re-Select Name of Patient", "cboVehNo", {}}});
}

class Overdue : public Discharging {
protected:
    Overdue() : Discharging("frmDischargeListOverdue", &arrangeDischarged) {}
    void tick(int row) { set("lstPat", {{"row", row}, {"checked", true}}); }
    static constexpr const char* question =
        "Are you sure to Delete these Patients from Admission List (Overdue List already Discharged) ?";
};

TEST_F(Overdue, EachOneTickedLeavesTheListWithHisDatesAsTheyWere) {
    EXPECT_EQ(entries("lstPat"), "Bello Musa [C2](P2)|Obi Ada [C1](P1)|");
    EXPECT_EQ(place.desktop.get(name + ".lstPat")["notes"], nlohmann::json({"1 day", "4 days"}));
    EXPECT_EQ(place.desktop.loaded(name)->caption(), "Admission List : 2");
    fire("cmdProcess", {"No Item is selected"});
    fire("cmdAll");
    EXPECT_EQ(place.desktop.get(name + ".lstPat")["checked"].size(), 2U);
    fire("cmdDeSelect");
    fire("cmdProcess", {"No Item is selected"});
    fire("cmdAll");
    hospital.answer("no");
    fire("cmdProcess");
    EXPECT_EQ(flags("C1") + flags("C2"), "False|null\nnull|null\nFalse|null\nnull|null\n");

    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 26, 10, 15, 20));
    hospital.answer("yes");
    fire("cmdProcess", {"2 Overdue Patients Discharge Done"});
    EXPECT_EQ(hospital.boxes().back().text, "2 Overdue Patients Discharge Done");
    const std::string cleared =
        "26-Nov-2026|10:15:00|P2|C2|N/A||From Discharge Overdue List|From Discharge Overdue List|null|26-Nov-2026\n";
    EXPECT_EQ(discharges(fromNurse), cleared) << "none for whom a doctor has discharged";
    EXPECT_EQ(dump("select count(*) from hdischarge"_sql), "2\n");
    EXPECT_EQ(flags("C1") + flags("C2"), "True|null\nnull|null\nTrue|null\nnull|null\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Patient Discharged from Overdue List: Bello Musa|C2|Overdue Dischrge List\n"
              "Patient Discharged from Overdue List: Obi Ada|C1|Overdue Dischrge List\n");
    EXPECT_EQ(entries("lstPat") + place.desktop.loaded(name)->caption(), "Admission List : 0");
    fire("cmdAll", {"No Item to select"});
    fire("cmdDeSelect", {"No Item to Deselect"});
}

TEST_F(Overdue, AWriteThatFailsUndoesThemAllAndKeepsTheTicks) {
    for (const int write : {1, 2, 3, 5}) {
        tick(0);
        tick(1);
        hospital.failWrite(write);
        hospital.answer("yes");
        fire("cmdProcess", {"Injected failure"});
        EXPECT_EQ(flags("C1") + flags("C2"), "False|null\nnull|null\nFalse|null\nnull|null\n") << write;
        EXPECT_EQ(discharges(fromNurse) + dump("select * from hAuditTrail"_sql), "") << write;
        EXPECT_EQ(place.desktop.get(name + ".lstPat")["checked"].size(), 2U);
        fire("cmdDeSelect");
    }
    // An audit row that fails stops nothing.
    tick(0);
    hospital.failStatement("SpAudiTrail");
    hospital.answer("yes");
    fire("cmdProcess", {"Injected failure", "1 Overdue Patients Discharge Done"});
    EXPECT_EQ(flags("C2"), "True|null\nnull|null\n");
}

class Recover : public Discharging {
protected:
    Recover() : Discharging("frmRecover", &arrangeGone) {}
    void pickAda() {
        fire("cmdPat");
        set("cboVehNo", adaWent);
    }
    static constexpr const char* adaWent = "Obi Ada @24-Nov-2026 [C1]";
};

TEST_F(Recover, TheNursesDischargeGoesAndAllElseStands) {
    fire("cmdRecall", {"Please specify Patient Name"});
    pickAda();
    EXPECT_EQ(entries("cboVehNo"), std::string("|") + adaWent + "|");
    EXPECT_TRUE(
        ran("SELECT distinct consultID,dischDate,remarks,fullname,pNo FROM qryhDischargeForNurse  where dischDate "
            "between '24-Nov-2026' and '24-Nov-2026' order by fullname asc"));
    for (int write = 1; write <= 2; ++write) {
        hospital.failWrite(write);
        hospital.answer("yes");
        fire("cmdRecall", {"Injected failure"});
        EXPECT_EQ(flags("C1"), "True|24-Nov-2026\n24-Nov-2026|24-Nov-2026\n") << write;
        EXPECT_NE(discharges(fromNurse), "") << write;
    }
    hospital.answer("no");
    fire("cmdRecall");
    hospital.answer("yes");
    fire("cmdRecall", {"Patient Info Successfully recalled"});
    EXPECT_EQ(flags("C1"), "False|24-Nov-2026\n24-Nov-2026|24-Nov-2026\n");
    EXPECT_EQ(discharges(fromNurse), "");
    EXPECT_NE(discharges(fromDoctor), "");
    EXPECT_EQ(dump("select * from hAuditTrail"_sql), "");
    EXPECT_EQ(entries("cboVehNo"), "|");
}

TEST_F(Recover, OneWhoLiesInTheWardIsLeftAndOneWithoutAStayIsAnError) {
    pickAda();
    hospital.execute("update hAdmission set isdischarged=0"_sql);
    hospital.answer("yes");
    fire("cmdRecall");
    EXPECT_NE(discharges(fromNurse), "");
    hospital.execute("delete from hAdmission"_sql);
    hospital.setTakesMessages(true);
    hospital.answer("yes");
    fire("cmdRecall");
    EXPECT_TRUE(ran("select * from hreferal where consultID ='C1' and referTo in ('IN-PATIENT','(IN-PATIENT)'"));
    EXPECT_NE(hospital.boxes().back().text, "Patient Info Successfully recalled");
    EXPECT_FALSE(place.databases.inTransaction());
    EXPECT_NE(discharges(fromNurse), "");
}

TEST(DischargeOverALine, BreaksLeaveTheOverdueAndTheRecalledAsTheyWere) {
    struct Command {
        const char* screen;
        void (*arrange)(TestHospital&);
        std::function<void(core::Workplace&)> prepare;
        const char* button;
        const char* done;
    };
    const Command commands[] = {
        {"frmDischargeListOverdue", &arrangeDischarged,
         [](core::Workplace& place) { place.desktop.fire("frmDischargeListOverdue.cmdAll", false); }, "cmdProcess",
         "2 Overdue Patients Discharge Done"},
        {"frmRecover", &arrangeGone,
         [](core::Workplace& place) {
             place.desktop.fire("frmRecover.cmdPat", false);
             enter(place, "frmRecover", {{"cboVehNo", "Obi Ada @24-Nov-2026 [C1]"}});
         },
         "cmdRecall", "Patient Info Successfully recalled"}};
    for (const auto& command : commands) {
        const HospitalFiles files;
        Ward hospital(files);
        hospital.start();
        inpatient::provideScreens(hospital.place);
        command.arrange(hospital);
        hospital.place.desktop.show(command.screen);
        hospital.setTakesMessages(true);
        const auto rows = [&] {
            return hospital.dump("select * from hAdmission"_sql) + hospital.dump("select * from hdischarge"_sql) +
                   hospital.dump("select * from hdischargeForNurse"_sql) +
                   hospital.dump("select * from hAuditTrail"_sql);
        };
        const auto before = rows();
        int broken = 0;
        for (bool done = false; !done; ++broken) {
            command.prepare(hospital.place);
            hospital.forget();
            hospital.breakLine(broken + 1);
            hospital.answer("yes");
            hospital.place.desktop.fire(std::string(command.screen) + "." + command.button, false);
            done = std::any_of(hospital.boxes().begin(), hospital.boxes().end(),
                               [&](const auto& box) { return box.text == command.done; });
            if (done) break;
            EXPECT_EQ(rows(), before) << command.screen << " " << broken + 1;
        }
        EXPECT_GE(broken, 3) << command.screen;
        EXPECT_NE(rows(), before) << command.screen;
    }
}

}  // namespace
}  // namespace test
