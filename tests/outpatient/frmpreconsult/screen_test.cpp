#include "core/session/session.h"
#include "tests/outpatient/frmpreconsult/preconsult.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(PreConsult, LoadFillsTheListsAndLocksTheFields) {
    EXPECT_EQ(texts(screen().readings.cboPosition),
              (std::vector<std::string>{"Left Lateral", "Right Lateral", "Sitting", "Upright", "Prone", "Trendelenburg",
                                        "Cardiac"}));
    EXPECT_EQ(texts(screen().CboRef), (std::vector<std::string>{"", "Tunde Ojo [D1]", "Zainab Audu [D2]"}));
    EXPECT_EQ(texts(screen().cboType), (std::vector<std::string>{"", "EYE", "GENERAL", "O'CLOCK"}));
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24));
    for (const char* field : {"cboVehNo", "txtTemp", "txtPressure2", "txtAlb", "txtRem", "CboRef", "cboType"})
        EXPECT_FALSE(screen().find(field)->enabled()) << field;
    EXPECT_FALSE(screen().OKButton.visible() || screen().cmdCancel.visible());
    EXPECT_EQ(screen().caption(), "Vital Signs:");
    // Nobody in the role: the list is asked for a second time, without the order.
    hospital.execute("delete from UserRoles where Username <> 'nurse'"_sql);
    place.desktop.unload("frmPreConsult");
    place.desktop.show("frmPreConsult");
    EXPECT_EQ(texts(screen().CboRef), std::vector<std::string>{""});
    const std::string doctors =
        "select distinct empID,fullname from vwUsers where loginRole ='CONSULTING' and AccountStatus='ENABLED'";
    for (const std::string& statement :
         {doctors + " order by Fullname", doctors,
          std::string("select distinct ClinicName,ClinicID from clinicTypes where ClinicName not in "
                      "('(IN-PATIENT)','IN-PATIENT')  order by clinicName "),
          std::string(
              "select [ID],[Date],[Time],[FullName],[Temp],[Pressure],[Pulse], [RespRatio],[weight],[Height],[SPO2],"
              "[RBS],[Positioning], [Stool], [Urine], [Sdrainage] as SpecialDrainage, [UrineAlb],[UrineSug], [Details],"
              "[Comment],[Status],[Nurse], [ConsultID],ClientCat,[PNo], [empID] from qryhpreconsultForGrid where "
              "details ='OUT-PATIENT'")})
        EXPECT_TRUE(ran(statement)) << statement;
}

TEST_F(PreConsult, AddListsWhoWaitsAndShowAllEverybodyOfTheDay) {
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 9, 45));
    fire("cmdAdd");
    EXPECT_EQ(session().gServerTime.shortTime(), "09:45");
    EXPECT_EQ(texts(screen().cboVehNo), (std::vector<std::string>{"", adaWaits, musaWaits}));
    EXPECT_FALSE(screen().cmdAdd.visible() || screen().cmdEdit.visible() || screen().cmdDel.visible() ||
                 screen().cmdRefresh.visible());
    EXPECT_EQ(focus(), "frmPreConsult.cboVehNo");
    set("chkAll", true);
    EXPECT_EQ(texts(screen().cboVehNo),
              (std::vector<std::string>{"", adaWaits, musaWaits, "Eze Ngozi Ms @24-Nov-2026 08:05:00 GENERAL [C3]"}));
    const auto count = hospital.log().size();
    set("chkAll", false);
    EXPECT_EQ(hospital.log().size(), count) << "taking the tick away changes nothing";
    EXPECT_EQ(hospital.statements(),
              (std::vector<std::string>{
                  "select sysDT from qrySysDateTime",
                  "SELECT distinct Title,recdate,hTime,pSurname,pfirstname,pno,consultID,ClinicType FROM "
                  "qryhPatListForNurse WHERE attendedTo = 0  and recdate='24-Nov-2026' order by consultid asc",
                  "SELECT distinct Title,recdate,hTime,pSurname,pfirstname,pno,consultID,ClinicType FROM "
                  "qryhPatListForNurse where recdate='24-Nov-2026' order by consultid asc"}));
}

TEST_F(PreConsult, APickShowsThePatient) {
    const auto patient = [&] {
        std::string labels;
        for (const ui::Label* label : {&screen().lblNo, &screen().lblCardNo, &screen().lblBill, &screen().lblCat,
                                       &screen().lblAge, &screen().lblSex, &screen().lblRem})
            labels += label->caption() + "|";
        return labels + screen().cboType.text();
    };
    fire("cmdAdd");
    hospital.execute("insert into hPreConsult (preDate, PNo, temp) values ('20-Nov-2026', 'P1', '37.9')"_sql);
    hospital.forget();
    set("cboVehNo", adaWaits);
    EXPECT_EQ(hospital.statements().front(),
              "select Age,OldPNo,Sex,clientcat,consultID,pno,clinicType,remarks,RetainCode,retainID from "
              "qryhPatListForNurse where consultID='C1'");
    EXPECT_EQ(screen().last.grdLast.text("Temp"), "37.9");
    EXPECT_EQ(patient(), "P1|CARD-P1|C1|HMO|36|FEMALE|HEADACHE|GENERAL");
    EXPECT_EQ(screen().Label5.caption(), "Obi Ada Mrs @24-Nov-2026 08:15:00 GENERAL ");
    EXPECT_EQ(session().gCurPatientName, screen().Label5.caption());
    EXPECT_EQ(session().gCommentConsultID, "C1");
    // The visit went while the list stood there.
    hospital.execute("delete from hRecords where consultID='C2'"_sql);
    set("cboVehNo", musaWaits);
    EXPECT_EQ(patient(), "|||||||");
    // A failed reading leaves nobody, so that nothing can be saved for somebody half shown.
    set("cboVehNo", adaWaits);
    hospital.failStatement("qryhPatListForNurse");
    hospital.expectMessage("Injected failure");
    set("cboVehNo", adaWaits);
    EXPECT_EQ(patient(), "|||||||GENERAL");
    set("cboVehNo", adaWaits);
    set("cboVehNo", "");
    EXPECT_EQ(patient(), "|||||||GENERAL");
    EXPECT_EQ(screen().Label5.caption(), "Vital Signs");
}

TEST_F(PreConsult, CommandsOnARowNeedOneAndAnEntryUnderWayIsKept) {
    for (const char* command : {"cmdDel", "cmdEdit", "grdData.DblClick"}) {
        hospital.expectMessage("Please select a record from the list");
        fire(command);
    }
    saveOne();
    take(musaWaits);
    hospital.expectMessage("Save or cancel the current entry first");
    fire("grdData.DblClick");
    EXPECT_EQ(text("cboVehNo") + text("txtTemp"), std::string(musaWaits) + "36.8");
    fire("cmdCancel");
    EXPECT_EQ(text("cboVehNo") + text("txtTemp") + screen().lblBill.caption(), "");
    EXPECT_EQ(focus(), "frmPreConsult.cmdAdd");
}

TEST_F(PreConsult, KeyFiltersLetNumbersThrough) {
    fire("cmdAdd");
    struct Case {
        const char* field;
        const char* passes;
    };
    for (const auto& [field, passes] :
         {Case{"txtTemp", "3.65"}, Case{"txtPressure", "3.65"}, Case{"txtPause", "3.65"}, Case{"txtResp", "3.65"},
          Case{"txtHt", "3.65"}, Case{"txtWt", "3.65"}, Case{"txtPressure2", "365"}, Case{"txtAlb", "3.6.5 x"},
          Case{"txtSugar", "3.6.5 x"}}) {
        set(field, "3.6.5 x");
        EXPECT_EQ(text(field), passes) << field;
    }
}

TEST_F(PreConsult, RefreshMarksWhomNurseOrDoctorSawToday) {
    hospital.execute(
        "insert into hPreConsult (consultID, preDate) values ('C1', '24-Nov-2026'), ('C4', '23-Nov-2026')"_sql);
    hospital.execute("insert into hConsulting (consultID, CDate) values ('C2', '24-Nov-2026')"_sql);
    addVisit(hospital, "P4", "Ojo", "Sade", "Mrs", "C4", "09:00", "GENERAL", 0);
    fire("cmdRefresh");
    EXPECT_EQ(hospital.dump("select consultID, attendedto, attendedToByNurse from hRecords order by consultID"_sql),
              "C1|1|1\nC2|1|1\nC3|1|0\nC4|0|0\n");
    for (const char* seen : {"hPreConsult where predate ='24-Nov-2026')", "hConsulting where CDate ='24-Nov-2026')"})
        EXPECT_TRUE(
            ran("Update hrecords set  attendedto=1,attendedtoByNurse=1 where consultID in (select consultID from " +
                std::string(seen)));
    hospital.failWrite(2);
    hospital.expectMessage("Injected failure");
    fire("cmdRefresh");
}

TEST_F(PreConsult, TheQueueIsReadAgainWithoutMovingTheCursor) {
    const auto waits = [&](const char* consultID, const char* doctor) {
        hospital.execute("update hRecords set PatVal=1, DocAssigned='"_sql + std::string(doctor) +
                         "' where consultID='" + std::string(consultID) + "'");
    };
    const auto current = [&] { return screen().grdDoc.text("DocName") + " " + screen().grdDoc.text("NumOfPat"); };
    waits("C1", "D1");
    place.desktop.tick("frmPreConsult.Timer1");
    EXPECT_TRUE(
        ran("select distinct [Date],RoomNo,DocName,NumOfPat from vwDocWaitingListGrouped where date='24-Nov-2026'"));
    EXPECT_EQ(current(), "Ojo Tunde 1");
    waits("C2", "D2");
    waits("C3", "D1");
    place.desktop.tick("frmPreConsult.Timer1");
    EXPECT_EQ(screen().grdDoc.rows().rowCount(), 2U);
    EXPECT_EQ(current(), "Ojo Tunde 2");
    place.desktop.flushChanges();
    hospital.forget();
    place.desktop.tick("frmPreConsult.Timer1");
    place.desktop.flushChanges();
    EXPECT_TRUE(hospital.events().empty()) << "nothing new, nothing sent";
    fire("grdDoc.DblClick");
    EXPECT_EQ(session().gWaitDate + " " + session().gWaitDocName, "24-Nov-2026 Ojo Tunde");
    // An error keeps the list and opens no box.
    hospital.failStatement("vwDocWaitingListGrouped");
    place.desktop.tick("frmPreConsult.Timer1");
    EXPECT_EQ(current(), "Ojo Tunde 2");
    set("dtDate", "2026-11-23");
    EXPECT_TRUE(screen().grdDoc.rows().empty());
    set("dtDate", nullptr);
    EXPECT_TRUE(screen().grdDoc.rows().empty());
    fire("grdDoc.DblClick");
}

TEST_F(PreConsult, NeighbouringScreensGetThePatient) {
    hospital.expectMessage("Patient System No Required! Please select a Patient");
    session().gCurPNo = "somebody else";
    fire("cmdANC");
    EXPECT_EQ(session().gCurPNo, "");
    fire("cmdAdd");
    set("cboVehNo", adaWaits);
    hospital.expectMessage("This page is not there yet: Ante Natal Reg");
    fire("cmdANC");
    EXPECT_EQ(session().gCurPNo, "P1");
    EXPECT_EQ(session().gCurPatientName, screen().Label5.caption());
    hospital.expectMessage("This page is not there yet: Pat List");
    fire("cmdPresc");
    fire("CancelButton");
    EXPECT_EQ(place.desktop.loaded("frmPreConsult"), nullptr);
}

}  // namespace
}  // namespace test
