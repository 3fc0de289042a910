#include "core/audit/pagesaves.h"
#include "core/texts/texts.h"
#include "tests/outpatient/frmpreconsult/preconsult.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(PreConsult, ChecksComeInOrderAndThePlaceToMendGetsTheCursor) {
    fire("cmdAdd");
    stopsInOrder({
        {" Consultation ID is needed for this Patient !!! see Records", "", nullptr, {{"cboVehNo", adaWaits}}},
        // A fresh list takes the picked entry away, as only the name's own check sees.
        {" please specify Name of Doctor", "CboRef", "Zainab Audu [D2]", {{"chkAll", true}}},
        {"Please select a valid Patient Name", "cboVehNo", adaWaits, {{"cboType", ""}}},
        {"Please select Clinic", "cboType", "EYE"},
        {" please specify Temp of Patient", "txtTemp", "0"},
        {"please specify Pressure of Patient or Enter zero", "txtPressure", "0"},
        {"please specify second Pressure Value of Patient or Enter zero", "txtPressure2", "0"},
        {"please specify Pulse of Patient or Enter zero", "txtPause", "0"},
        {"please specify Respiratory Ratio of Patient or Enter zero", "txtResp", "0"},
        {"please specify Height of Patient or Enter zero", "txtHt", "0"},
        {"please specify Weight of Patient or Enter zero", "txtWt", "0"},
    });
    save();
    EXPECT_EQ(hospital.value("select Pressure from hPreConsult"_sql), db::Value("0/0"));
}

TEST_F(PreConsult, ASaveWritesTheReadingsTheirTwinTheFeeAndThePassingOn) {
    take(adaWaits);
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 25, 0, 1, 59));
    hospital.forget();
    save();
    EXPECT_EQ(
        dump("select ID, preDate, preTime, PNo, examinedby, Remarks, temp, Pressure, pulse, Weight, Height, "
             "urineAlb, urineSug, respRatio, clientCat, consultID, Status, SPO2, RBS, Positioning, Stool, "
             "Urine, Sdrainage, Comment from hPreConsult"_sql),
        "1|25-Nov-2026|00:01:00|P1|E001|OUT-PATIENT|36.8|120/80|72|64.5|1.68|NIL|+|18|HMO|C1|HEADACHE|98|5.4|Sitting|"
        "null|null|null|null\n");
    EXPECT_EQ(dump("select ID, consultID, preDate, preTime, temp, Pressure1, Pressure2, pulse, Weight, Height, "
                   "respRatio from hPreConsultChart"_sql),
              "1|C1|25-Nov-2026|00:01:00|36.8|120|80|72|64.5|1.68|18\n");
    EXPECT_EQ(dump("select dtDate, drgName, Price, Qty, SubTotal, PNo, consultID, billType, conID, CoyName, BillTo, "
                   "attendedto, isbilled, revType, AppVersion from billAccum"_sql),
              "25-Nov-2026|NURSING FEE|0|1|0|P1|C1|SERVICE|null|0007|AXM|0|0|CONSULTATION|7\n");
    EXPECT_EQ(dump("select attendedto, attendedToByNurse, PatVal, DocAssigned, clinicType, attendedtoByDoc from "
                   "hRecords where consultID='C1'"_sql),
              "1|1|1|D1|GENERAL|0\n");
    EXPECT_EQ(dump("select consultID, ServicePoint, EntryOrExit from hPatientsTimeline"_sql), "C1|VITALS|null\n");
    EXPECT_EQ(
        dump("select userName, userAction, ActionDate, ActionTime, TranCode, Remarks, Src from hAuditTrail"_sql),
        "nurse|Insert Vitals of: Obi Ada Mrs @24-Nov-2026 08:15:00 GENERAL |25-Nov-2026|00:01:00|C1|By Nurse|WARD-3: "
        "from NURSING\n");
}

TEST_F(PreConsult, AfterASaveTheScreenWaitsForTheNextPatient) {
    saveOne();
    EXPECT_FALSE(is("cboVehNo", "enabled") || is("txtTemp", "enabled"));
    for (const auto& field : typed) EXPECT_EQ(shown({field.first}), "") << field.first;
    EXPECT_EQ(shown({"cboVehNo", "CboRef", "cboType", "lblBill", "lblNo", "lblRem", "Label5"}), "||||||Vital Signs");
    EXPECT_EQ(screen().caption(), "Vital Signs: 1");
    EXPECT_EQ(screen().grdData.text("FullName"), "Obi Ada");
    EXPECT_EQ(hiddenColumns(), "ID PNo ");
    EXPECT_EQ(screen().grdDoc.text("DocName") + screen().grdDoc.text("NumOfPat"), "Ojo Tunde1");
    // Ada has left the list; Show All still has her, and a second set is a second row and a second line.
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"), "|" + std::string(musaWaits) + "|");
    fire("cmdCancel");
    set("chkAll", true);
    take(adaWaits);
    save();
    EXPECT_EQ(dump("select ID from hPreConsultChart where consultID='C1'"_sql), "1\n2\n");
    EXPECT_EQ(hospital.value("select count(*) from billAccum where drgName='NURSING FEE'"_sql), db::Value(2));
    EXPECT_FALSE(is("chkAll", "checked"));
    EXPECT_EQ(screen().grdData.text("ID"), "2") << "what was just saved can be corrected at once";
}

TEST_F(PreConsult, ACorrectionOverwritesTheRowAndItsTwin) {
    saveOne();
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 25, 8, 0));
    fire("cmdEdit");
    EXPECT_EQ(entries("cboVehNo"), "Obi Ada [C1]|");
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24));
    for (const auto& [field, reading] : typed)
        EXPECT_EQ(shown({field}), field == std::string("txtRem") ? "OUT-PATIENT" : core::trimmed(std::string(reading)))
            << field;
    EXPECT_EQ(shown({"Label5", "cboVehNo", "cboType", "CboRef"}), "Obi Ada|Obi Ada [C1]|GENERAL|");
    EXPECT_FALSE(is("chkAll", "enabled"));
    fill({{"txtTemp", "37.2"}, {"txtPressure2", "85"}, {"CboRef", "Zainab Audu [D2]"}, {"cboType", "O'CLOCK"}});
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select preDate, preTime, temp, Pressure, Remarks, Status, Positioning from hPreConsult"_sql),
              "25-Nov-2026|09:30:00|37.2|120/85|OUT-PATIENT|HEADACHE|Sitting\n");
    EXPECT_EQ(dump("select ID, consultID, preDate, preTime, temp, Pressure1, Pressure2, pulse, Weight, Height, "
                   "respRatio from hPreConsultChart"_sql),
              "1|C1|24-Nov-2026|09:30:00|37.2|120|85|72|64.5|1.68|18\n")
        << "the date of the screen, and the time of the session's last clock reading";
    EXPECT_EQ(dump("select DocAssigned, clinicType from hRecords where consultID='C1'"_sql), "D2|O'CLOCK\n");
    EXPECT_EQ(hospital.value("select count(*) from billAccum"_sql), db::Value(1))
        << "a correction is no second service";
    EXPECT_EQ(hospital.value("select top 1 userAction from hAuditTrail order by SNo desc"_sql),
              db::Value("Edit Vitals of: Obi Ada"));
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24)) << "the workstation's today";
}

TEST_F(PreConsult, ReadingsThatADoctorUsedAreNotCorrectedButGoWhenDeleted) {
    saveOne();
    hospital.execute("insert into hConsulting (consultID, PNo, CDate) values ('C1', 'P1', '24-Nov-2026')"_sql);
    correctVitals(place, "Tunde Ojo [D1]");
    set("txtTemp", "40");
    const auto before = rows();
    save({"Cannot Edit this record! Already used by Doctor for Consultation"});
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(shown({"txtTemp"}), "40");
    EXPECT_TRUE(is("OKButton", "visible"));
    fire("cmdCancel");
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(dump("select * from hPreConsult"_sql), "");
    EXPECT_EQ(dump("select ID from hPreConsultChart"_sql), "1\n") << "the twin stays";
    EXPECT_EQ(hospital.value("select attendedto from hRecords where consultID='C1'"_sql), db::Value(1));
    EXPECT_EQ(screen().caption(), "Vital Signs:");
}

TEST_F(PreConsult, WhatComesBehindABoxWaitsForNobodysOk) {
    take(adaWaits);
    place.desktop.setAcknowledges(false);
    save();
    EXPECT_EQ(place.desktop.waiting()->text, "Record Succesfully saved");
    EXPECT_EQ(dump("select TranCode, Remarks from hAuditTrail"_sql), "C1|By Nurse\n");
    EXPECT_TRUE(is("cmdAdd", "visible"));
    place.desktop.answer("ok");
    EXPECT_EQ(place.desktop.waiting(), nullptr);
}

TEST_F(PreConsult, ASaveIsNotedForItsPageWithItsRowsOrNotAtAll) {
    std::vector<std::string> told;
    std::uint64_t request = 5;
    core::notePageSaves(
        place, "nurse",
        {"page-1", [&] { return request; }, [&](const std::string& screenName) { told.push_back(screenName); }});
    const auto noted = [&] { return dump("select SessionID, userName, Request, Screen from PageSaves"_sql); };
    take(adaWaits);
    const auto before = rows();
    for (const char* write : {"delete from PageSaves", "insert into PageSaves"}) {
        hospital.failStatement(write);
        save({"Injected failure"});
        EXPECT_EQ(rows(), before) << write;
    }
    EXPECT_EQ(noted(), "");
    EXPECT_TRUE(told.empty());
    save();
    EXPECT_EQ(noted(), "page-1|nurse|5|frmPreConsult\n");
    EXPECT_EQ(told, std::vector<std::string>{"frmPreConsult"});

    request = 9;
    take(musaWaits);
    save();
    EXPECT_EQ(noted(), "page-1|nurse|9|frmPreConsult\n") << "the last one of each page";
    const auto last = core::lastPageSave(place, "nurse", "page-1");
    ASSERT_TRUE(last);
    EXPECT_EQ(last->request, 9U);
    EXPECT_EQ(last->screen, "frmPreConsult");
    EXPECT_FALSE(core::lastPageSave(place, "somebody", "page-1")) << "another user's";
    {
        db::Transaction other(place.hospital());
        place.hospital().execute("update hRecords set attendedto=0"_sql);
        other.commit();
    }
    EXPECT_EQ(told.size(), 2U) << "no save";

    hospital.execute("update PageSaves set SavedAt='01-Jan-2020'"_sql);
    core::forgetOldPageSaves(place.databases);
    EXPECT_EQ(noted(), "");
}

}  // namespace
}  // namespace test
