#include "core/session/session.h"
#include "inpatient/frmpreconsultadm/frmpreconsultadm.h"
#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/charts/charts.h"

using namespace db::literals;

namespace test {
namespace {

class PreConsultAdm : public AtScreen {
protected:
    PreConsultAdm() : AtScreen("frmPreConsultAdm", &inpatient::provideScreens, &arrangeWards) {
        session().gServerTime = db::DateTime::of(1899, 12, 30, 9, 30);
    }
    inpatient::frmPreConsultAdm& screen() { return as<inpatient::frmPreConsultAdm>(); }
    void pick(int row) { set("LstDate", {{"row", row}}); }
    std::string rows() { return dump("select * from hPreConsult"_sql) + dump("select * from hPreConsultChart"_sql); }
    void addReading(const std::string& day, const std::string& time, const std::string& temp,
                    const std::string& systolic) {
        hospital.execute(
            "insert into hPreConsultChart (ID, consultID, preDate, preTime, temp, Pressure1, Pressure2, "
            "pulse, respRatio) select isnull(max(ID), 0) + 1, 'C1', '"_sql +
            day + "', '" + time + "', '" + temp + "', '" + systolic + "', '80', '72', 'x' from hPreConsultChart");
    }
};

TEST_F(PreConsultAdm, APickOpensThePatientWithTheChart) {
    EXPECT_EQ(entries("LstDate"), std::string(musaLies) + "|" + adaLies + "|");
    EXPECT_EQ(entries("cboPosition"), "Left Lateral|Right Lateral|Sitting|Upright|Prone|Trendelenburg|Cardiac|");
    EXPECT_FALSE(is("txtTemp", "enabled"));
    pick(1);
    EXPECT_EQ(shown({"lblTitle", "lblNo", "lblBill", "lblCat", "lblWard", "lblSex", "lblAge", "lblCoy"}),
              "Vital Signs [Four Hourly Chart] Obi Ada|P1|C1|HMO|FEMALE 1|FEMALE|36|Axa Mansard");
    EXPECT_EQ(session().gCommentConsultID + "|" + session().gCurPatientName, "C1|Obi Ada ");
    EXPECT_EQ(screen().patientEntry(), adaLies);
    // Discharged at another desk: nobody is shown, and nothing is saved for him.
    hospital.execute("update hAdmission set isdischarged=1 where consultID='C2'"_sql);
    fire("cmdAdd");
    pick(0);
    EXPECT_EQ(shown({"lblTitle", "lblNo", "lblBill", "lblWard"}), "Vital Signs [Four Hourly Chart] |||");
    set("dtDate", nullptr);
    set("dtTime", nullptr);
    stopsInOrder({{"Specify Date", "dtDate", "2026-11-24"},
                  {"Specify Time", "dtTime", "06:00:00"},
                  {" Consultation ID is needed for this Patient !!! see Records", "LstDate", {{"row", 1}}}});
    save();
}

TEST_F(PreConsultAdm, AnObservationHasItsTwinAndNeedsNoReading) {
    pick(1);
    fire("cmdAdd");
    EXPECT_EQ(shown({"lblBill"}), "C1") << "Add keeps the patient";
    EXPECT_EQ(focus(), "frmPreConsultAdm.txtTemp");
    save();
    EXPECT_EQ(
        dump("select preDate, preTime, PNo, examinedby, Remarks, temp, Pressure, Comment, consultID, clientCat, Status "
             "from hPreConsult"_sql),
        "24-Nov-2026|09:30:00|P1|E001|ADMISSION||/||C1|HMO|null\n");
    EXPECT_EQ(dump("select ID, consultID, preDate, preTime, temp, Pressure1 from hPreConsultChart"_sql),
              "1|C1|24-Nov-2026|09:30:00||\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert IPD Vitals: Obi Ada |C1|By Nurse\n");
    EXPECT_EQ(dump("select * from billAccum"_sql), "");
    // The list stands where it was, with the observations; the next patient is a key away.
    EXPECT_EQ(focus(), "frmPreConsultAdm.LstDate");
    EXPECT_EQ(screen().LstDate.index(), 1);
    EXPECT_EQ(shown({"lblTitle", "lblNo", "txtTemp"}), "Vital Signs [Four Hourly Chart] ||");
    EXPECT_EQ(screen().grdData.rows().rowCount(), 1U);
    EXPECT_EQ(hiddenColumns(), "ID PNo empID ");

    fire("cmdAdd");
    fill(observation);
    set("dtTime", "10:00:00");
    save();
    EXPECT_EQ(dump("select temp, Pressure, pulse, Weight, Height, respRatio, SPO2, RBS, Positioning, Stool, Urine, "
                   "Sdrainage, Comment from hPreConsult where ID=2"_sql),
              "38.4|150/95|110|64|1.7|24|93|7|Upright|1|200|30|1   ml of 5% glucose\n");
    EXPECT_EQ(
        dump(
            "select temp, Pressure1, Pressure2, pulse, Weight, Height, respRatio from hPreConsultChart where ID=2"_sql),
        "38.4|150|95|110|64|1.7|24\n");

    // An edit moves nothing but what was changed, takes the zeros of its comment, and is the wards' whatever it was.
    hospital.execute("update hPreConsult set Remarks='OUT-PATIENT', Comment='at 10' where ID=2"_sql);
    pick(1);
    set("grdData", {{"row", 0}});
    fire("cmdEdit");
    EXPECT_EQ(shown({"txtTemp", "txtPressure", "txtPressure2", "txtUrine", "txtSDrainage", "txtRem", "lblTitle"}),
              "38.4|150|95|200|30|at 10|Vital Signs [Four Hourly Chart] Obi Ada");
    EXPECT_FALSE(is("LstDate", "enabled"));
    fill({{"dtDate", "2026-11-23"}, {"dtTime", "22:00:00"}, {"txtTemp", ""}});
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select preDate, preTime, temp, Remarks, Comment from hPreConsult where ID=2"_sql),
              "23-Nov-2026|22:00:00||ADMISSION|at 1 \n");
    EXPECT_EQ(dump("select preDate, preTime, temp, Pressure1 from hPreConsultChart where ID=2"_sql),
              "23-Nov-2026|22:00:00||150\n");
    EXPECT_EQ(dump("select top 1 userAction from hAuditTrail order by SNo desc"_sql), "Edit IPD Vitals: Obi Ada\n");

    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(dump("select count(*) from hPreConsult"_sql) + dump("select count(*) from hPreConsultChart"_sql),
              "1\n2\n")
        << "the point stays in the trend";
}

TEST_F(PreConsultAdm, ANumberThatIsNoPatientsIsRefusedAfterTheQuestion) {
    hospital.execute("update hAdmission set PNo='P2' where consultID='C1'"_sql);
    pick(0);
    hospital.execute("delete from hPatients where PNo='P2'"_sql);
    fire("cmdAdd");
    save({" Please select a patient from the list OR specified patient does not exist"});
    EXPECT_TRUE(ran("select pno from hpatients where pno = 'P2'"));
    EXPECT_EQ(focus(), "frmPreConsultAdm.LstDate");
    EXPECT_EQ(rows(), "");
}

TEST_F(PreConsultAdm, TheTrendsDrawTheRowsOfTheVisitWithGapsForWhatWasNotTaken) {
    for (const char* command : {"cmdBP", "cmdPulse", "cmdTemp", "cmdResp"}) fire(command, {"Select Patient Name"});
    pick(1);
    fire("cmdBP", {"No Specified Chart for this Patient"});
    addReading("23-Nov-2026", "22:00", "38.4", "150");
    addReading("23-Nov-2026", "06:00", "", "140");
    struct Drawn {
        const char* command;
        const char* screen;
        const char* title;
        const char* axis;
        nlohmann::json series;
    };
    const Drawn trends[] = {
        {"cmdBP",
         "frmhPreConsultChart",
         "BP Chart",
         "mmHG",
         {{{"name", "Systolic"}, {"points", {140, 150}}}, {{"name", "Diastolic"}, {"points", {80, 80}}}}},
        {"cmdPulse", "frmhPreConsultChartPulse", "Pulse Chart", "BPM", {{{"name", "Pulse"}, {"points", {72, 72}}}}},
        {"cmdTemp",
         "frmhPreConsultChartTemp",
         "Temp Chart",
         "degC",
         {{{"name", "Temperature"}, {"points", {nullptr, 38.4}}}}},
        {"cmdResp",
         "frmhPreConsultChartResp",
         "RespRatio Chart",
         "C/MIN",
         {{{"name", "Respiration"}, {"points", {nullptr, nullptr}}}}}};
    for (const auto& trend : trends) {
        hospital.then([&] {
            const auto form = place.desktop.get(trend.screen);
            EXPECT_TRUE(form["modal"].get<bool>());
            const auto& chart = form["controls"]["chart"];
            EXPECT_EQ(chart["labels"], nlohmann::json({"23-Nov-2026", "23-Nov-2026"}));
            EXPECT_EQ(chart["series"], trend.series) << trend.screen;
            EXPECT_EQ(chart["yTitle"], trend.axis);
            EXPECT_EQ(chart["xTitle"], "Time");
            EXPECT_EQ(form["controls"]["Label5"]["caption"], std::string(trend.title) + "\r\nObi Ada ");
            EXPECT_EQ(faultsOfLayout(*place.desktop.loaded(trend.screen)), std::vector<std::string>{});
            place.desktop.fire(std::string(trend.screen) + ".CancelButton", false);
        });
        fire(trend.command);
        EXPECT_EQ(place.desktop.loaded(trend.screen), nullptr);
    }
    EXPECT_TRUE(ran(
        "SELECT preDate, Pressure1, Pressure2 FROM hpreConsultChart where consultID='C1' order by predate,pretime"));
    EXPECT_TRUE(ran("SELECT preDate, respRatio FROM hpreConsultChart where consultID='C1' order by predate,pretime"));
}

}  // namespace
}  // namespace test
