#include "core/session/session.h"
#include "tests/inpatient/medication/medication.h"

using namespace db::literals;

namespace test {
namespace {

class MedChart : public PlainScreen {
protected:
    MedChart() : PlainScreen("frmMedChart", &inpatient::provideScreens, &arrangeChart) {}
    static constexpr int musa = 0;
    static constexpr int ada = 1;
    static constexpr int paracetamol = 0;
    static constexpr int amoxycillin = 1;

    void openPatient(int row, Says says = {}) { set("lstPat", {{"row", row}}, says); }
    void openDrug(int row) { set("LstDate", {{"row", row}}); }
    static std::string box(int dose) { return "chk(" + std::to_string(dose) + ")"; }
    void tick(int dose, bool ticked = true) { set(box(dose), ticked); }
    /// The doses of the open line: "g" given, "n" ticked now, "." open.
    std::string doses() {
        std::string all;
        for (int dose = 0; dose < 192 && is(box(dose), "visible"); ++dose)
            all += is(box(dose), "enabled") ? (is(box(dose), "checked") ? "n" : ".") : "g";
        return all;
    }
    std::string chart() {
        return dump(
            "select drgName, numOfTimes, numtaken, attendedto, suppres, Remarks from hMedChartMonitor order by ID"_sql);
    }
    std::string acts() {
        return dump(
            "select conID, mdate, mtime, PNo, drgName, givenBy, consultID, iDNo, numtaken from hMedChartForNurse "
            "order by SNo"_sql);
    }
    std::string audits() { return dump("select userAction, TranCode, Remarks from hAuditTrail"_sql); }
    void charted(Says says = {"Record Succesfully saved"}) {
        hospital.answer("yes");
        fire("OKButton", says);
    }
    static constexpr const char* before = "PARACETAMOL|6|0|False|False|null\nAMOXYCILLIN|3|1|False|False|null\n";
    static constexpr const char* firstAct = "2|23-Nov-2026|12:00:00|P2|AMOXYCILLIN|E001|C2|2|1\n";
};

// -- opening --

TEST_F(MedChart, APatientBringsTheStayTheHistoryAndTheDrugs) {
    EXPECT_EQ(entries("lstPat"), std::string(musaOnChart) + "|" + adaOnChart + "|");
    openPatient(musa);
    EXPECT_EQ(shown({"lblTitle", "lblCon", "lblNo", "lblClient", "lblCoy", "lblRoomNo"}),
              "MEDICATION CHART : Bello Musa|C2|P2|PRIVATE|Axa Mansard|MALE 2");
    EXPECT_EQ(session().gCommentConsultID + session().gCurPatientName, "C2Bello Musa");
    EXPECT_EQ(entries("LstDate"), "PARACETAMOL @23-Nov-2026 10:00:00 [2]|AMOXYCILLIN @23-Nov-2026 10:05:00 [2]|");
    EXPECT_EQ(list({"Drug", "NumTaken", "Nurse"}, "grdData"), "AMOXYCILLIN|1|Joy Nurse\n");
    EXPECT_EQ(hiddenColumns(), "SNo ID ");
    EXPECT_FALSE(is("dtDate", "enabled") || is("cmdPresc", "enabled") || !is("txtNum", "enabled"));
    openDrug(amoxycillin);
    EXPECT_EQ(shown({"lblTitle", "lblDrug", "lblName", "lblUsage", "lblTaken", "txtNum", "lblCNum"}),
              "MEDICATION CHART FOR: AMOXYCILLIN|AMOXYCILLIN|CAPSULES|1 CAP|1|3|0");
    EXPECT_EQ(doses(), "g..");
    EXPECT_EQ(shown({"txtDosage"}).substr(0, 8), "Clinic: ");
    EXPECT_TRUE(is("dtDate", "enabled") && is("cmdPresc", "enabled"));
    sent();
    fire("cmdPresc", {shown({"txtDosage"}).c_str()});
    fire("cmdCancel");
    EXPECT_EQ(shown({"lblDrug", "lblTaken", "txtNum", "txtDosage"}), "|0|0|");
    EXPECT_EQ(doses(), "");
    // One who has left brings nobody.
    hospital.execute("update hAdmission set isdischarged=1 where consultID='C2'"_sql);
    openPatient(musa);
    EXPECT_EQ(shown({"lblTitle", "lblCon", "lblNo"}), "MEDICATION CHART||");
    fire("cmdRefresh");
    EXPECT_EQ(entries("lstPat"), std::string(adaOnChart) + "|");
    EXPECT_EQ(entries("LstDate"), "");
}

TEST_F(MedChart, TheLimitBarsAtItsVeryMinute) {
    struct Case {
        const char* limit;
        const char* says;
        const char* title;
    };
    const auto* const expired =
        " This Patient's Stay in Admission has Expired! Call the FrontDesk Officer for Extension";
    hospital.execute(
        "insert into hMedChartMonitor (conID, consultID, PNo, numOfTimes, drgName) values (1, 'C1', 'P1', 2, 'IRON')"_sql);
    for (const auto& [limit, says, title] : std::initializer_list<Case>{
             {"24-Nov-2026 12:10", " This Patient has 4 hrs to Stay in Admission", "Admission Stay Limit"},
             {"24-Nov-2026 10:00", " This Patient has 2 hrs to Stay in Admission", "Admission Stay Limit"},
             {"24-Nov-2026 09:31", " This Patient has 1 hrs to Stay in Admission", "Admission Stay Limit"},
             {"24-Nov-2026 09:30", expired, "Expired Admission"},
             {"", expired, "Expired Admission"}}) {
        hospital.execute("update hAdmission set Comment='SEE WARD', ExtendAdmissionLimitTo="_sql +
                         (*limit ? "'"_sql + std::string(limit) + "'" : "null"_sql) + " where consultID='C1'");
        hospital.expectMessage(says, title);
        const bool bars = says == expired;
        bool commented = false;
        if (!bars)
            hospital.then([&] {
                commented = true;
                place.desktop.fire("frmMedChartComment.CancelButton", false);
            });
        openPatient(ada);
        EXPECT_EQ(entries("LstDate").empty(), bars) << limit;
        EXPECT_EQ(commented, !bars) << limit;
    }
    hospital.execute(
        "update hAdmission set Comment=null, clientCat='PRIVATE', ExtendAdmissionLimitTo=null where consultID='C1'"_sql);
    openPatient(ada);  // neither a limit nor a comment
    EXPECT_NE(entries("LstDate"), "");
    hospital.failStatement("isnull(Comment");
    openPatient(ada, {"Injected failure"});
    EXPECT_EQ(entries("LstDate"), "") << "nobody is charted whose limit cannot be read";
}

TEST_F(MedChart, BoxesStandForTheDosesAsFarAsThereAreBoxes) {
    struct Case {
        int doses, given;
        const char* shows;
    };
    openPatient(musa);
    const std::string full(192, '.');
    for (const auto& [total, given, shows] : std::initializer_list<Case>{{0, 0, ""},
                                                                         {2, 0, ".."},
                                                                         {2, 5, "ggggg"},
                                                                         {191, 0, full.c_str() + 1},
                                                                         {192, 0, full.c_str()},
                                                                         {500, 0, full.c_str()}}) {
        hospital.execute("update hMedChartMonitor set numOfTimes="_sql + total + ", numtaken=" + given + " where ID=1");
        openDrug(paracetamol);
        EXPECT_EQ(doses(), shows) << total;
    }
    hospital.execute("update hMedChartMonitor set numOfTimes=500, numtaken=300 where ID=1"_sql);
    openDrug(paracetamol);
    EXPECT_EQ(doses(), std::string(192, 'g'));
    EXPECT_EQ(shown({"lblTaken"}), "300");
}

// -- charting --

TEST_F(MedChart, ADoseIsCountedStoredAndToldOf) {
    fire("OKButton", {"This record cannot be Saved Consultation ID required."});
    openPatient(musa);
    fire("OKButton", {"Please tick to indicate that Medication has been given"});
    openDrug(paracetamol);
    for (int dose : {0, 1, 2}) tick(dose);
    EXPECT_EQ(shown({"lblTaken", "lblCNum"}), "3|3");
    tick(1, false);
    EXPECT_EQ(shown({"lblTaken", "lblCNum"}), "2|2");
    EXPECT_EQ(doses(), "n.n...");
    set("dtTime", "08:00:00");
    hospital.answer("no");
    fire("OKButton");
    EXPECT_EQ(hospital.boxes().back().title, "Delete");
    EXPECT_EQ(chart(), before);
    charted();
    EXPECT_EQ(chart(), "PARACETAMOL|6|2|False|False|null\nAMOXYCILLIN|3|1|False|False|null\n");
    EXPECT_EQ(acts(), std::string(firstAct) + "2|24-Nov-2026|08:00:00|P2|PARACETAMOL|E001|C2|1|2\n");
    EXPECT_EQ(audits(),
              "Med Chart for: Bello Musa|C2|PARACETAMOL: took (2) , Total taken:(2) out of (6)\r\nGiven to Bello "
              "Musa by Nurse Joy\n");
    EXPECT_EQ(shown({"lblDrug", "lblCNum"}), "|0");
    EXPECT_EQ(place.desktop.get(name + ".grdData")["rows"].size(), 2U) << "the patient's history again";
    EXPECT_EQ(focus(), "frmMedChart.LstDate");
    sent();
}

TEST_F(MedChart, ADrugGivenInFullLeavesTheChartAndStaysOffIt) {
    openPatient(musa);
    openDrug(amoxycillin);
    tick(1);
    tick(2);
    charted();
    EXPECT_EQ(chart(), "PARACETAMOL|6|0|False|False|null\nAMOXYCILLIN|3|3|True|False|null\n");
    EXPECT_EQ(entries("LstDate"), "PARACETAMOL @23-Nov-2026 10:00:00 [2]|");
    // The delete of an act gives its doses back, and the drug does not return.
    set("grdData", {{"row", 0}});
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(hospital.boxes()[hospital.boxes().size() - 2].text,
              "Are you sure to Delete Selected Med Chart Item: AMOXYCILLIN Dated 24-Nov-2026");
    EXPECT_TRUE(ran("update hMedChartMonitor set numTaken = numTaken -2 where ID = 2"));
    EXPECT_EQ(chart(), "PARACETAMOL|6|0|False|False|null\nAMOXYCILLIN|3|1|True|False|null\n");
    EXPECT_EQ(acts(), firstAct);
    EXPECT_EQ(hospital.value("select top 1 userAction from hAuditTrail order by SNo desc"_sql).text(),
              "Med Chart Item: AMOXYCILLIN Charted on 24-Nov-2026:09:30:00 Deleted for: Bello Musa");
    sent();
}

TEST_F(MedChart, TheTotalIsChangedAndTheTicksStay) {
    fire("cmdUpd", {"empty Drug Name not allowed"});
    openPatient(musa);
    openDrug(amoxycillin);
    tick(2);
    for (const auto* wrong : {"", "  ", "two", "1,5x"}) {
        set("txtNum", wrong);
        fire("cmdUpd", {"Please specify Numeric figure"});
    }
    set("txtNum", "40000");
    fire("cmdUpd", {"Overflow"});
    EXPECT_EQ(chart(), before);
    set("txtNum", " 5 ");
    fire("cmdUpd", {"Update Successful"});
    EXPECT_EQ(chart(), "PARACETAMOL|6|0|False|False|null\nAMOXYCILLIN|5|1|False|False|null\n");
    EXPECT_EQ(doses(), "gn...");
    EXPECT_EQ(shown({"lblTaken", "lblCNum"}), "2|1");
    // Below what was given nothing is ever full: equality is what counts.
    set("txtNum", "1");
    fire("cmdUpd", {"Update Successful"});
    EXPECT_EQ(shown({"lblTaken", "lblCNum"}), "1|0");
    EXPECT_EQ(hospital.value("select attendedto from hMedChartMonitor where ID=2"_sql).flag(), false);
}

TEST_F(MedChart, TwoNursesAtOneLine) {
    openPatient(musa);
    openDrug(paracetamol);
    tick(0);
    hospital.execute("update hMedChartMonitor set numtaken=4 where ID=1"_sql);
    charted();
    EXPECT_EQ(hospital.value("select numtaken from hMedChartMonitor where ID=1"_sql).int32(), 1)
        << "the later figure stands";
    // A line that another nurse discontinued meanwhile is told of, and nothing of it opens.
    hospital.execute("update hMedChartMonitor set suppres=1 where ID=1"_sql);
    set("LstDate", {{"row", 0}}, {"This drug has left the chart meanwhile: it was given in full, or discontinued"});
    EXPECT_EQ(entries("LstDate"), "AMOXYCILLIN @23-Nov-2026 10:05:00 [2]|");
}

TEST_F(MedChart, ADiscontinuedDrugNeedsAReasonAndNoRight) {
    openPatient(musa);
    openDrug(paracetamol);
    hospital.answer("no");
    fire("LstDate.DblClick");
    for (const auto* none : {"cancel", ""}) {
        hospital.answer("yes");
        hospital.answer(none);
        fire("LstDate.DblClick", {"Please Specify Reason to Discontinue Drug"});
    }
    EXPECT_EQ(chart(), before);
    hospital.answer("yes");
    hospital.answer("PATIENT'S WISH");
    fire("LstDate.DblClick");
    EXPECT_EQ(hospital.boxes().back().text, "Give Reason to Discontinue this Drug PARACETAMOL");
    EXPECT_EQ(chart(), "PARACETAMOL|6|0|False|True|PATIENT'S WISH\nAMOXYCILLIN|3|1|False|False|null\n");
    EXPECT_EQ(audits(), "PARACETAMOL Discontinued for: Bello Musa|C2|PATIENT'S WISH\n");
    EXPECT_EQ(entries("LstDate"), "AMOXYCILLIN @23-Nov-2026 10:05:00 [2]|");
    sent();
}

// -- drugs that were dispensed --

TEST_F(MedChart, DispensedDrugsAreTakenOverOnceByTheirNames) {
    fire("cmdPat", {"Specify a Patient"});
    openPatient(musa);
    fire("cmdPat",
         {"All Dispensed Drugs for this Patient are showing on the Med Chart Page!. Check if it is Discomtinued "
          "OR Completely given as shown in the grid"});
    const auto* const limit = " This Patient has 4 hrs to Stay in Admission";
    hospital.expectMessage(limit, "Admission Stay Limit");
    openPatient(ada);
    hospital.expectMessage("Patient Chart Added Successfully");
    hospital.expectMessage(limit, "Admission Stay Limit");
    fire("cmdPat");
    const auto lines =
        "select conID, consultID, PNo, mdate, mtime, numOfTimes, numtaken, drgName, clientCat, drgCatName, "
        "dosage, attendedto from hMedChartMonitor where consultID='C1'"_sql;
    const std::string first =
        "1|C1|P1|24-Nov-2026|08:45:00|4|0|ARTEMETHER|HMO|INJECTIONS|AT ONCE|False\n"
        "1|C1|P1|24-Nov-2026|08:46:00|18|0|PARACETAMOL|HMO|TABLETS|2 TABS|False\n";
    EXPECT_EQ(dump(lines), first);
    EXPECT_EQ(hospital.value("select Remarks from hConsulting where consultID='C1'"_sql).text(), "ADMISSION");
    // A drug of the same name does not come a second time.
    hospital.execute(
        "insert into hconsultingDetails (consultID, conID, PNo, drgName, Qty) values ('C1', 1, 'P1', "
        "'PARACETAMOL', 6), ('C1', 1, 'P1', 'IRON', 1)"_sql);
    hospital.expectMessage("Patient Chart Updated Successfully");
    hospital.expectMessage(limit, "Admission Stay Limit");
    fire("cmdPat");
    EXPECT_EQ(dump(lines), first + "1|C1|P1|null|null|1|0|IRON|HMO|null|null|False\n");
    EXPECT_EQ(audits(),
              "Dispensed Drugs Added by Button Click (cmdPat) to Med Chart for: Obi Ada|C1|\n"
              "Outstanding Dispensed Drugs Added to Med Chart for: Obi Ada|C1|\n");
    sent();
    hospital.execute("delete from hMedChartMonitor where consultID='C1'"_sql);
    hospital.execute("delete from hconsultingDetails"_sql);
    fire("cmdPat", {"No Drug Dispensed for this Patient"});
}

// -- faults --

TEST_F(MedChart, EachWriteThatFailsLeavesTheChartAndTheScreen) {
    hospital.execute("update hAdmission set clientCat='PRIVATE'"_sql);
    struct Act {
        const char* name;
        int patient;
        int writes;
        std::function<void()> prepare;
        std::function<void()> run;
    };
    const std::vector<Act> all = {{"charting", musa, 2,
                                   [&] {
                                       openDrug(paracetamol);
                                       tick(0);
                                       tick(1);
                                   },
                                   [&] {
                                       hospital.answer("yes");
                                       fire("OKButton");
                                   }},
                                  {"loading", ada, 3, [] {}, [&] { fire("cmdPat"); }},
                                  {"deleting", musa, 2, [] {},
                                   [&] {
                                       hospital.answer("yes");
                                       fire("cmdDel");
                                   }},
                                  {"discontinuing", musa, 1, [&] { openDrug(paracetamol); },
                                   [&] {
                                       hospital.answer("yes");
                                       hospital.answer("WHY");
                                       fire("LstDate.DblClick");
                                   }},
                                  {"the total", musa, 1,
                                   [&] {
                                       openDrug(paracetamol);
                                       set("txtNum", "9");
                                   },
                                   [&] { fire("cmdUpd"); }}};
    hospital.setTakesMessages(true);
    for (const auto& act : all) {
        SCOPED_TRACE(act.name);
        openPatient(act.patient);
        act.prepare();
        const auto rows = chart() + acts();
        const auto screen = place.desktop.get(name);
        for (int write = 1; write <= act.writes; ++write) {
            hospital.failWrite(write);
            act.run();
            EXPECT_FALSE(hospital.failurePending()) << "it has fewer writes";
            EXPECT_EQ(chart() + acts(), rows) << write;
            EXPECT_EQ(place.desktop.get(name), screen) << write;
            hospital.forgetAnswers();
        }
        act.run();
        EXPECT_NE(chart() + acts(), rows);
    }
}

TEST(MedChartInFiles, ALineThatBreaksAtAnyStatementLeavesTheChartAndTheTicks) {
    const HospitalFiles files;
    Ward hospital(files);
    hospital.start();
    inpatient::provideScreens(hospital.place);
    arrangeChart(hospital);
    hospital.place.desktop.show("frmMedChart");
    hospital.setTakesMessages(true);
    const auto broken = hospital.breakTheLineAtEachStatement(
        "frmMedChart",
        [&] {
            enter(hospital.place, "frmMedChart",
                  {{"lstPat", {{"row", 0}}}, {"LstDate", {{"row", 0}}}, {"chk(0)", true}, {"chk(1)", true}});
        },
        [&] {
            return hospital.dump("select * from hMedChartMonitor"_sql) +
                   hospital.dump("select * from hMedChartForNurse"_sql);
        });
    EXPECT_GE(broken.size(), 3U);
}

}  // namespace
}  // namespace test
