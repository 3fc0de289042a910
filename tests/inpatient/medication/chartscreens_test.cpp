#include "core/session/session.h"
#include "tests/inpatient/medication/medication.h"

using namespace db::literals;

namespace test {
namespace {

// -- discontinued and completed drugs --

void arrangeDiscontinued(TestHospital& hospital) {
    arrangeChart(hospital);
    hospital.execute("update hMedChartMonitor set suppres=1, Remarks='VOMITED' where ID=1"_sql);
    hospital.execute("update hMedChartMonitor set attendedto=1 where ID=2"_sql);
}

class Discontinued : public PlainScreen {
protected:
    Discontinued() : PlainScreen("frmMedChart", &inpatient::provideScreens, &arrangeDiscontinued) {
        set("lstPat", {{"row", 0}});
    }
    /// Works the screen of the discontinued drugs while it is open.
    void at(const std::function<void()>& work) {
        hospital.addUser("nurse", "MANAGEMENT");
        hospital.then([this, work] {
            work();
            place.desktop.unload("frmMedChartDisc");
        });
        fire("cmdDisp");
    }
    void recall() { place.desktop.fire("frmMedChartDisc.cmdDisp", false); }
};

TEST_F(Discontinued, ADrugIsRecalledWithAReasonUnlessItWasGivenInFull) {
    EXPECT_EQ(entries("LstDate"), "");
    at([&] {
        const auto screen = place.desktop.get("frmMedChartDisc");
        EXPECT_EQ(screen["caption"], "Discontinued/Completed Drug for Bello Musa");
        EXPECT_EQ(faultsOfLayout(*place.desktop.loaded("frmMedChartDisc")), std::vector<std::string>{});
        EXPECT_EQ(screen["controls"]["grdData"]["rows"].size(), 2U);
        hospital.expectMessage("This Drug has been Fully Charted! Check the Grid");
        recall();  // the first by name was given in full
        place.desktop.set("frmMedChartDisc.grdData", {{"row", 1}}, false);
        EXPECT_EQ(place.desktop.get("frmMedChartDisc.lblReason")["caption"], "VOMITED");
        hospital.answer("yes");
        hospital.answer("");
        hospital.expectMessage("Please Specify Reason to Recall Drug to Chart");
        recall();
        hospital.answer("yes");
        hospital.answer("DOCTOR'S ORDER");
        recall();
        EXPECT_EQ(hospital.boxes().back().text, "Give Reason to Recall this Drug to ChartDrug to Recall");
    });
    EXPECT_TRUE(ran("Update hMedchartMonitor set suppres=0,Remarks='DOCTOR''S ORDER' where ID =1"));
    EXPECT_EQ(dump("select suppres, Remarks from hMedChartMonitor where ID=1"_sql), "False|DOCTOR'S ORDER\n");
    EXPECT_EQ(entries("LstDate"), "PARACETAMOL @23-Nov-2026 10:00:00 [2]|") << "the chart reads its list anew";
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "PARACETAMOL Recalled to Chart for: Bello Musa|C2|DOCTOR'S ORDER\n");
    sent();
}

TEST_F(Discontinued, OnlyDoctorsAndManagersGetThere) {
    fire("cmdDisp", {"You dont have Permission to Recall Discontinued Drug! See the Doctor/Matron"});
    fire("cmdRefresh");
    fire("cmdDisp", {"Specify a Patient"});
}

TEST_F(Discontinued, AFailedRecallLeavesTheDrugWhereItWas) {
    at([&] {
        place.desktop.set("frmMedChartDisc.grdData", {{"row", 1}}, false);
        hospital.failWrite(1);
        hospital.answer("yes");
        hospital.answer("WHY");
        hospital.expectMessage("Injected failure");
        recall();
    });
    EXPECT_EQ(dump("select suppres, Remarks from hMedChartMonitor where ID=1"_sql), "True|VOMITED\n");
}

// -- the standing comment --

class ChartComment : public PlainScreen {
protected:
    ChartComment()
        : PlainScreen("frmMedChartComment", &inpatient::provideScreens, [](TestHospital& arranged) {
              arrangeChart(arranged);
              arranged.place.session.gCommentConsultID = "C2";
          }) {}
};

TEST_F(ChartComment, ItIsWrittenIntoTheStay) {
    EXPECT_EQ(shown({"lblTitle", "txtDrug"}), "Medication Chart Comment for: \r\nBello Musa|NONE");
    for (const auto* nothing : {"NONE", " NONE ", "  "}) {
        set("txtDrug", nothing);
        fire("OKButton", {"Empty Details Not Allowed for Med Chart Commnents"});
    }
    set("txtDrug", " ALLERGIC TO IRON ");
    hospital.failWrite(1);
    fire("OKButton", {"Injected failure"});
    EXPECT_EQ(shown({"txtDrug"}), " ALLERGIC TO IRON ");
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(dump("select Comment from hAdmission where consultID='C2'"_sql), "ALLERGIC TO IRON\n");
    EXPECT_FALSE(isOpen());
    sent();
}

// -- the printed history --

class ChartHistory : public PlainScreen {
protected:
    ChartHistory()
        : PlainScreen("frmMedChartHistory", &inpatient::provideScreens, [](TestHospital& arranged) {
              arrangeChart(arranged);
              arranged.place.session.gCurConsultPNo = "P2";
              arranged.place.session.gCurConsultName = "Bello Musa";
          }) {}
    std::string report() {
        for (const auto& event : hospital.events())
            if (event.contains("report")) return event["report"]["title"].get<std::string>();
        return {};
    }
};

TEST_F(ChartHistory, OneDrugOrAllOfAnAdmissionArePrinted) {
    EXPECT_EQ(place.desktop.get(name)["caption"], "Medication Chart History for Bello Musa");
    EXPECT_EQ(entries("cboCust"), "Bello Musa @23-Nov-2026 10:00:00 [C2]|");
    fire("cmdDisplay", {"Please select Admission"});
    set("cboCust", "Bello Musa @23-Nov-2026 10:00:00 [C2]");
    EXPECT_EQ(entries("cboDrug"), "(ALL)|AMOXYCILLIN|PARACETAMOL|");
    fire("cmdDisplay", {"Please select Drug"});
    set("cboDrug", "PARACETAMOL");
    fire("cmdDisplay", {"No Report for the specified Patient"});
    set("cboDrug", "AMOXYCILLIN");
    fire("cmdDisplay");
    EXPECT_EQ(report(), "Med Chart History for: Bello Musa (AMOXYCILLIN)");
    hospital.forget();
    set("cboDrug", "(ALL)");
    fire("cmdDisplay");
    EXPECT_EQ(report(), "Med Chart History for: Bello Musa (ALL Drugs Given)");
    EXPECT_EQ(place.desktop.get(name)["visible"], true);
    sent();
    // Opened again for another patient it lists hers.
    session().gCurConsultPNo = "P1";
    session().gCurConsultName = "Obi Ada";
    place.desktop.show(name);
    EXPECT_EQ(entries("cboCust") + entries("cboDrug"), "Obi Ada @20-Nov-2026 10:00:00 [C1]|");
}

TEST_F(ChartHistory, ALaboratorysNumberStandsInTheList) {
    set("cboCust", "L26/'1");
    fire("cmdHist", {"No HistPathology Report for the specified Patient"});
    EXPECT_TRUE(ran("select distinct * from vwHistPathologyPublic where LabNo='L26/''1'"));
    set("cboCust", "Bello Musa @23-Nov-2026 10:00:00 [C2]");
    fire("cmdHist", {"No HistPathology Report for the specified Patient"});
    EXPECT_TRUE(ran("select distinct * from vwHistPathology where LabNo='Bello Musa @23-Nov-2026 10:00:00 [C2]'"));
}

}  // namespace
}  // namespace test
