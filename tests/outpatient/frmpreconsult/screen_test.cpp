#include "tests/outpatient/frmpreconsult/preconsult.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(PreConsult, LoadFillsTheListsAndLocksTheFields) {
    EXPECT_EQ(entries("cboPosition"), "Left Lateral|Right Lateral|Sitting|Upright|Prone|Trendelenburg|Cardiac|");
    EXPECT_EQ(entries("CboRef"), "|Tunde Ojo [D1]|Zainab Audu [D2]|");
    EXPECT_EQ(entries("cboType"), "|EYE|GENERAL|O'CLOCK|");
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24));
    for (const char* field : {"cboVehNo", "txtTemp", "txtPressure2", "txtAlb", "txtRem", "CboRef", "cboType"})
        EXPECT_FALSE(is(field, "enabled")) << field;
    EXPECT_EQ(screen().caption(), "Vital Signs:");
    // Nobody in the role: the list is asked for a second time, without the order.
    hospital.execute("delete from UserRoles where Username <> 'nurse'"_sql);
    place.desktop.unload(name);
    place.desktop.show(name);
    EXPECT_EQ(entries("CboRef"), "|");
    const std::string doctors =
        "select distinct empID,fullname from vwUsers where loginRole ='CONSULTING' and AccountStatus='ENABLED'";
    for (const auto& statement : {doctors + " order by Fullname", doctors}) EXPECT_TRUE(ran(statement)) << statement;
}

TEST_F(PreConsult, AddListsWhoWaitsAndShowAllEverybodyOfTheDay) {
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 9, 45));
    fire("cmdAdd");
    EXPECT_EQ(session().gServerTime.shortTime(), "09:45");
    const auto waiting = std::string("|") + adaWaits + "|" + musaWaits + "|";
    EXPECT_EQ(entries("cboVehNo"), waiting);
    EXPECT_EQ(focus(), "frmPreConsult.cboVehNo");
    set("chkAll", true);
    EXPECT_EQ(entries("cboVehNo"), waiting + "Eze Ngozi Ms @24-Nov-2026 08:05:00 GENERAL [C3]|");
    EXPECT_EQ(hospital.statements().back(),
              "SELECT distinct Title,recdate,hTime,pSurname,pfirstname,pno,consultID,ClinicType FROM "
              "qryhPatListForNurse where recdate='24-Nov-2026' order by consultid asc");
    const auto count = hospital.log().size();
    set("chkAll", false);
    EXPECT_EQ(hospital.log().size(), count) << "taking the tick away changes nothing";
}

TEST_F(PreConsult, APickShowsThePatient) {
    const auto patient = [&] {
        return shown({"lblNo", "lblCardNo", "lblBill", "lblCat", "lblAge", "lblSex", "lblRem", "cboType"});
    };
    hospital.execute("insert into hPreConsult (preDate, PNo, temp) values ('20-Nov-2026', 'P1', '37.9')"_sql);
    fire("cmdAdd");
    set("cboVehNo", adaWaits);
    EXPECT_EQ(screen().last.grdLast.text("Temp"), "37.9");
    EXPECT_EQ(patient(), "P1|CARD-P1|C1|HMO|36|FEMALE|HEADACHE|GENERAL");
    EXPECT_EQ(shown({"Label5"}), "Obi Ada Mrs @24-Nov-2026 08:15:00 GENERAL ");
    EXPECT_EQ(session().gCurPatientName, shown({"Label5"}));
    EXPECT_EQ(session().gCommentConsultID, "C1");
    // The visit went while the list stood there.
    hospital.execute("delete from hRecords where consultID='C2'"_sql);
    set("cboVehNo", musaWaits);
    EXPECT_EQ(patient(), "|||||||");
    // A failed reading leaves nobody, so that nothing can be saved for somebody half shown.
    set("cboVehNo", adaWaits);
    hospital.failStatement("qryhPatListForNurse");
    set("cboVehNo", adaWaits, {"Injected failure"});
    EXPECT_EQ(patient(), "|||||||GENERAL");
    set("cboVehNo", adaWaits);
    set("cboVehNo", "");
    EXPECT_EQ(patient(), "|||||||GENERAL");
    EXPECT_EQ(shown({"Label5"}), "Vital Signs");
}

TEST_F(PreConsult, ADeleteNeedsARow) {
    fire("cmdDel", {"Please select a record from the list"});
}

TEST_F(PreConsult, KeyFiltersLetNumbersThrough) {
    fire("cmdAdd");
    for (const char* number : {"txtTemp", "txtPressure", "txtPause", "txtResp", "txtHt", "txtWt"}) {
        set(number, "3.6.5 x");
        EXPECT_EQ(shown({number}), "3.65") << number;
    }
    for (const char* other : {"txtPressure2", "txtAlb", "txtSugar"}) set(other, "3.6.5 x");
    EXPECT_EQ(shown({"txtPressure2", "txtAlb", "txtSugar"}), "365|3.6.5 x|3.6.5 x");
}

TEST_F(PreConsult, RefreshMarksWhomNurseOrDoctorSawToday) {
    hospital.execute(
        "insert into hPreConsult (consultID, preDate) values ('C1', '24-Nov-2026'), ('C4', '23-Nov-2026')"_sql);
    hospital.execute("insert into hConsulting (consultID, CDate) values ('C2', '24-Nov-2026')"_sql);
    addVisit(hospital, "P4", "Ojo", "Sade", "Mrs", "C4", "09:00", "GENERAL", 0);
    fire("cmdRefresh");
    EXPECT_EQ(dump("select consultID, attendedto, attendedToByNurse from hRecords order by consultID"_sql),
              "C1|1|1\nC2|1|1\nC3|1|0\nC4|0|0\n");
    hospital.failWrite(2);
    fire("cmdRefresh", {"Injected failure"});
}

TEST_F(PreConsult, TheQueueIsReadAgainWithoutMovingTheCursor) {
    const auto waits = [&](const char* consultID, const char* doctor) {
        hospital.execute("update hRecords set PatVal=1, DocAssigned='"_sql + std::string(doctor) +
                         "' where consultID='" + std::string(consultID) + "'");
    };
    const auto current = [&] { return screen().grdDoc.text("DocName") + " " + screen().grdDoc.text("NumOfPat"); };
    waits("C1", "D1");
    place.desktop.tick("frmPreConsult.Timer1");
    EXPECT_EQ(current(), "Ojo Tunde 1");
    waits("C2", "D2");
    waits("C3", "D1");
    place.desktop.tick("frmPreConsult.Timer1");
    EXPECT_EQ(screen().grdDoc.rows().rowCount(), 2U);
    EXPECT_EQ(current(), "Ojo Tunde 2");
    fire("grdDoc.DblClick");
    EXPECT_EQ(session().gWaitDate + " " + session().gWaitDocName, "24-Nov-2026 Ojo Tunde");
    for (const nlohmann::json& day : {nlohmann::json("2026-11-23"), nlohmann::json("2026-11-24"), nlohmann::json()}) {
        set("dtDate", day);
        EXPECT_EQ(screen().grdDoc.rows().empty(), day != "2026-11-24") << day;
    }
    fire("grdDoc.DblClick");
}

TEST_F(PreConsult, NeighbouringScreensGetThePatient) {
    session().gCurPNo = "somebody else";
    fire("cmdANC", {"Patient System No Required! Please select a Patient"});
    EXPECT_EQ(session().gCurPNo, "");
    fire("cmdAdd");
    set("cboVehNo", adaWaits);
    fire("cmdANC", {"This page is not there yet: Ante Natal Reg"});
    EXPECT_EQ(session().gCurPNo + "|" + session().gCurPatientName, "P1|" + shown({"Label5"}));
    hospital.then([&] {
        EXPECT_TRUE(place.desktop.loaded("frmPatList")->modal());
        place.desktop.unload("frmPatList");
    });
    fire("cmdPresc");
    fire("CancelButton");
    EXPECT_EQ(place.desktop.loaded("frmPreConsult"), nullptr);
}

}  // namespace
}  // namespace test
