#include "core/session/session.h"
#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

class FluidChart : public AtScreen {
protected:
    FluidChart() : AtScreen("frmFluidChart", &inpatient::provideScreens, &arrangeWards) {}
    void addLine(const char* hour, const char* intake, const char* output) {
        fire("cmdAdd");
        fill({{"cboTime", hour}, {"txtInVol", intake}, {"txtOutVol", output}});
        save();
    }
    std::string totals() { return shown({"lblIntVol", "lblOutVol"}); }
};

TEST_F(FluidChart, TheLinesOfADateAreSummedForThePatientPicked) {
    EXPECT_EQ(entries("cboVehNo"), std::string("|") + adaLies + "|" + musaLies + "|");
    EXPECT_EQ(entries("cboIntake") + entries("cboOutput"), "ORAL|IV|OTHERS|URINE|VOMIT|ASPIRATION|");
    EXPECT_EQ(entries("cboTime"),
              "6 AM|7 AM|8 AM|9 AM|10 AM|11 AM|12 NOON|1 PM|2 PM|3 PM|4 PM|5 PM|6 PM|7 PM|8 PM|9 PM|10 PM|11 PM|12 MN|"
              "1 AM|2 AM|3 AM|4 AM|5 AM|");
    fire("cmdAdd");
    set("dtDate", nullptr);
    stopsInOrder({{"Please specify Patient's Name", "cboVehNo", adaLies},
                  {"Please specify date", "dtDate", "2026-11-24"},
                  {"Please specify Time", "cboTime", "9 AM"}});
    EXPECT_EQ(shown({"lblTitle", "lblBill", "lblClient", "lblNo", "txtInVol", "txtOutVol", "lblIntVol"}),
              "Patient : Obi Ada|C1|HMO|P1|0|0|0");
    fill({{"cboIntake", "IV"},
          {"txtInOthers", " N/S "},
          {"txtInVol", "1000.5"},
          {"cboOutput", "URINE"},
          {"txtOutVol", ""}});
    EXPECT_EQ(shown({"txtOutOthers"}), "URINE");
    save();
    EXPECT_EQ(
        dump("select nDate, nTime, ChartTime, PNo, consultID, clientCat, empID, IntakeFluidType, IntakeFluid, IntVol, "
             "OutputFluidType, OutPutFluid, OutVol from hfluidChart"_sql),
        "24-Nov-2026|09:30:00|9 AM|P1|C1|HMO|E001|IV|N/S|1000.5|URINE|URINE|null\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert Fluid Chart: Patient : Obi Ada|C1|Nurse Joy\n");
    EXPECT_EQ(totals(), "1000.50|0");
    // The list stands where it was: the next line is this patient's unless another is picked.
    EXPECT_EQ(shown({"cboVehNo", "lblBill", "cboTime"}), std::string(adaLies) + "|C1|");
    EXPECT_EQ(focus(), "frmFluidChart.cboVehNo");
    addLine("9 AM", "200", "300");
    EXPECT_EQ(totals(), "1200.50|300.00");
    EXPECT_EQ(hiddenColumns(), "SNo EmpID OutPutFluidType ");
    set("cboVehNo", musaLies);
    EXPECT_EQ(totals(), "0|0");
    set("dtDate", "2026-11-23");
    set("cboVehNo", adaLies);
    EXPECT_EQ(totals(), "0|0") << "of another date";
}

TEST_F(FluidChart, ALineIsCorrectedForItsPatientAndNeverDeleted) {
    set("cboVehNo", adaLies);
    addLine("12 MN", "100", "50");
    hospital.execute("update hfluidChart set OutputFluidType='VOMIT', OutPutFluid='green'"_sql);
    set("cboVehNo", adaLies);
    hospital.execute("update hAdmission set isdischarged=1"_sql);
    fire("cmdRefresh");
    set("cboVehNo", "");
    EXPECT_EQ(shown({"lblTitle", "lblBill"}), "Patient :|");
    hospital.execute("update hAdmission set isdischarged=0"_sql);
    fire("cmdRefresh");
    set("cboVehNo", adaLies);
    session().gEmpID = "D2";
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboVehNo", "cboTime", "cboOutput", "txtOutOthers", "txtOutVol"}),
              std::string(adaLies) + "|12 MN|VOMIT|green|50");
    EXPECT_FALSE(is("cboVehNo", "enabled"));
    set("txtOutVol", "75");
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select PNo, consultID, empID, IntVol, OutVol from hfluidChart"_sql), "P1|C1|D2|100|75\n");
    EXPECT_EQ(dump("select top 1 userAction, TranCode, Remarks from hAuditTrail order by SNo desc"_sql),
              "Edit FLUID CHART: Patient : Obi Ada|C1|By Nurse\n");
    EXPECT_EQ(totals(), "100.00|75.00");
    fire("cmdDel", {" Record cannot be deleted "});
}

TEST_F(FluidChart, NobodyIsChartedWhoHasLeftAndNoVolumeIsGuessed) {
    hospital.execute("update hAdmission set isdischarged=1 where consultID='C2'"_sql);
    fire("cmdAdd");
    fill({{"cboVehNo", musaLies}, {"cboTime", "9 AM"}});
    stopsInOrder({{"Please specify Patient's Name", "cboVehNo", adaLies}});
    set("txtOutVol", ".");
    hospital.setTakesMessages(true);
    save({});
    EXPECT_EQ(dump("select * from hfluidChart"_sql), "");
    EXPECT_EQ(focus(), "frmFluidChart.txtOutVol");
    EXPECT_EQ(shown({"txtOutVol", "cboTime"}), ".|9 AM");
}

TEST_F(FluidChart, ThePrintedChartNamesThePatientAndTheDate) {
    fire("cmdChart", {"Please specify Patient's Name"});
    set("cboVehNo", adaLies);
    set("dtDate", nullptr);
    fire("cmdChart", {"Please specify date"});
    set("dtDate", "2026-11-24");
    fire("cmdChart", {"No Report for the Specfied Patient and Date"});
    EXPECT_TRUE(ran("Select * from qryhFluidChart  where consultID='C1' and Date = '24-Nov-2026' order by SNo"));
    addLine("9 AM", "200", "300");
    fire("cmdChart");
    EXPECT_EQ(hospital.events().back()["report"], nlohmann::json({{"name", "rptFluidChart"},
                                                                  {"title", "Fluid Chart Report"},
                                                                  {"period", "Obi Ada Fluid Chart for 24-Nov-2026"},
                                                                  {"rows", 1}}));
}

}  // namespace
}  // namespace test
