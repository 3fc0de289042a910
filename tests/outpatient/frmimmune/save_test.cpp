#include "tests/outpatient/frmimmune/immune.h"

using namespace db::literals;

namespace test {
namespace {

TEST_F(Immune, ChecksComeInOrderAndThePlaceToMendGetsTheCursor) {
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, DOB) values ('', 'No', 'Number', '13-Oct-2026')"_sql);
    hospital.execute(
        "insert into hRecords (recDate, PNo, consultID, htime, clinicType) values ('24-Nov-2026', '', 'C4', "
        "'24-Nov-2026 08:50', 'IMMUNIZATION')"_sql);
    set("chkAll", true);
    const auto* const noNumber = "No Number 24-Nov-2026 @24-Nov-2026 08:50:00 IMMUNIZATION [C4]";
    const auto pickAndGive = [&](const char* child) {
        set("cboVehNo", child);
        give("OPV 1");
    };
    stopsInOrder({
        {.says = "No Item in the Grid! Please Select Item and Add to Grid",
         .field = "cboDrug",
         .step =
             [&] {
                 pickAndGive(adaWaitsForVaccine);
                 set("chkAll", false);  // a fresh list takes the pick away
             }},
        {.says = "Please select a valid Patient Name", .field = "cboVehNo", .mends = adaWaitsForVaccine},
        {.says = " please specify Age of Child",
         .field = "cboAge",
         .mends = "6 weeks",
         .step =
             [&] {
                 // The visit goes while the child is looked up again.
                 hospital.execute("update hRecords set consultID='CX' where consultID='C1'"_sql);
                 set("cboVehNo", adaWaitsForVaccine);
             }},
        {.says = "ConsultID Required for this Patient",
         .field = "cboVehNo",
         .step =
             [&] {
                 hospital.execute("update hRecords set consultID='C1' where consultID='CX'"_sql);
                 set("cboVehNo", adaWaitsForVaccine);
                 set("chkRef", true);
             }},
        {.says = " please specify Next Appointment Vaccine",
         .field = "txtImm",
         .step =
             [&] {
                 set("chkAll", true);
                 pickAndGive(noNumber);
                 set("cboAge", "6 weeks");
             }},
        {.says = "Pat No Required for this Patient", .field = "cboVehNo"},
    });
    EXPECT_EQ(visits() + bill(), "");
}

TEST_F(Immune, ASaveWritesTheLinesTheVisitTheTimelineAndTheMark) {
    enterVisit();
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 25, 0, 1, 59));
    hospital.forget();
    saveVisit();
    EXPECT_EQ(dump("select dtDate, drgName, Category, Price, Qty, SubTotal, PNo, conID, consultID, billType, BillTo, "
                   "CoyName, revType, Capitated, attendedto, isbilled, RevClinic, AppVersion from billAccum"_sql),
              "25-Nov-2026|OPV 1|DROP|1000|1|1000|P1|0|C1|SERVICE|0007|0007|IMMUNIZATION|NO|0|0|IMMUNIZATION|7\n"
              "25-Nov-2026|PENTA 1|VACCINES|2000.5|1|2000.5|P1|0|C1|SERVICE|0007|0007|IMMUNIZATION|NO|0|0|"
              "IMMUNIZATION|7\n");
    EXPECT_EQ(visits(), "24-Nov-2026|P1|E001|Card stamped|00:01:00|6 weeks|OPV 1,PENTA 1|C1|HMO|null|09:30:00|\n")
        << "the day is the picker's, the time the server's";
    EXPECT_EQ(dump("select consultID, ServicePoint, EntryOrExit from hPatientsTimeline"_sql),
              "C1|IMMUNIZATION|ENTRY|EXIT\n");
    EXPECT_EQ(dump("select consultID from hRecords where AttendedToByImmume=1"_sql), "C1\n");
    EXPECT_EQ(audits(), "Insert Immunization for: Obi Ada|C1|Nurse Joy\n");
    EXPECT_EQ(referrals() + appointments() + messages(), "");
    // The screen waits for the next child.
    EXPECT_EQ(shown({"cboVehNo", "lblPatient", "cboAge", "txtRem", "lblTotal"}), "||||0.00");
    EXPECT_EQ(entries("lstWaiting"), std::string(musaWaitsForVaccine) + "|");
    EXPECT_EQ(list({"ConsultID", "Immunization", "Nurse"}, "grdData"), "C1|OPV 1,PENTA 1|Joy Nurse\n");
    EXPECT_EQ(screen().grdData.caption(), "Immunization:");
    EXPECT_EQ(focus(), "frmImmune.cmdNext");
    sent();
}

TEST_F(Immune, TheFiveDeletesRunInOrderAheadOfTheWrites) {
    enterVisit();
    hospital.forget();
    saveVisit();
    std::vector<std::string> writes;
    for (const auto& statement : hospital.log())
        if (statement.writes()) writes.push_back(statement.text);
    ASSERT_EQ(writes.size(), 11U);
    EXPECT_EQ((std::vector<std::string>(writes.begin(), writes.begin() + 10)),
              (std::vector<std::string>{
                  "delete from billaccum  where revType = 'IMMUNIZATION' and consultID = 'C1'",
                  "delete from BillingDetails where revType = 'IMMUNIZATION' and billNo = 'C1'",
                  "delete from hImmunization  where consultID = 'C1'",
                  "delete from hAppointment  where ClinicType = 'IMMUNIZATION' and consultID = 'C1'",
                  "delete from hReferal  where referTo = 'IMMUNIZATION' and consultID = 'C1'", "insert billAccum",
                  "insert billAccum", "insert hPatientsTimeline", "insert hImmunization",
                  "Update hRecords set AttendedToByImmume=1 where consultID = 'C1'"}));
}

TEST_F(Immune, ANextAppointmentIsAReferralAnAppointmentAndMessages) {
    enterVisit(adaWaitsForVaccine, {"CHILD'S VACCINE"});
    wantNext();
    saveVisit();
    EXPECT_EQ(visits(),
              "24-Nov-2026|P1|E001|Card stamped|09:30:00|6 weeks|CHILD'S VACCINE|C1|HMO|22-Dec-2026|08:30:00|OPV 2, "
              "PENTA 2\n");
    EXPECT_EQ(referrals(), "C1|HMO|IMMUNIZATION|22-Dec-2026|08:30:00|OPV 2, PENTA 2|P1|24-Nov-2026|09:30:00|0\n");
    EXPECT_EQ(appointments(), "C1|HMO|IMMUNIZATION|22-Dec-2026|08:30:00|OPV 2, PENTA 2|P1|24-Nov-2026|09:30:00|0|0\n");
    EXPECT_EQ(messages(),
              "21-Dec-2026|2348031234567|IMMUNIZATION|APPT|C1\n24-Nov-2026|2348031234567|IMMUNIZATION|APPT|C1\n")
        << "the phone is the patient's where the template has none";
    EXPECT_EQ(audits(),
              "Insert Immunization for: Obi Ada|C1|Nurse Joy\nInsert Referal for: Obi Ada|C1|Nurse Joy\n"
              "Insert Appt for: Obi Ada|C1|IMMUNIZATION\n");
    sent();
    // Without a day there is an appointment and no message.
    enterVisit(musaWaitsForVaccine, {"OPV 1"});
    wantNext(nullptr);
    saveVisit();
    EXPECT_EQ(dump("select ApptDate, ApptTime from happointment where consultID='C2'"_sql), "null|08:30:00\n");
    EXPECT_EQ(hospital.value("select count(*) from MessageOut"_sql, "SmsCenter"), db::Value(2));
}

TEST_F(Immune, ASecondSaveReplacesWhatTheVisitHad) {
    enterVisit();
    wantNext();
    saveVisit();
    hospital.execute(
        "insert into BillingDetails (billNo, revType, drgName) values ('C1', 'IMMUNIZATION', 'OPV 1'), ('C1', "
        "'TREATMENT', 'IRON'), ('C2', 'IMMUNIZATION', 'BCG')"_sql);
    hospital.execute("insert into billAccum (consultID, drgName, revType) values ('C1', 'IRON', 'TREATMENT')"_sql);
    hospital.execute("insert into happointment (consultID, clinicType) values ('C1', 'EYE')"_sql);
    hospital.execute("insert into hreferal (consultID, referto) values ('C1', 'EYE')"_sql);
    // The saved row comes back as it was entered.
    set("chkAll", true);
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboVehNo", "lblPatient", "lblNo", "lblBill", "cboAge", "txtRem", "txtImm", "lblTotal"}),
              std::string(adaWaitsForVaccine) + "|Obi Ada|P1|C1|6 weeks|Card stamped|OPV 2, PENTA 2|3,000.50");
    EXPECT_TRUE(is("chkRef", "checked") && is("fraAppt", "enabled"));
    EXPECT_EQ(screen().dtNext.value(), db::DateTime::of(2026, 12, 22));
    EXPECT_EQ(screen().dtRefTime.value()->shortTime(), "08:30");
    EXPECT_EQ(lines(), "OPV 1|DROP|1000|1|1000|NO\nPENTA 1|VACCINES|2000.5|1|2000.5|NO\n");
    EXPECT_EQ(shown({"txtVital(0)"}), "36.8deg C");
    EXPECT_EQ(screen().grdData.text("ConsultID"), "C1") << "among the child's rows now";
    EXPECT_EQ(focus(), "frmImmune.cboDrug");
    for (const char* text : {"select top 1 * from hPreConsult where consultID='C1'",
                             "select top 1 * from hAppointment where ClinicType='IMMUNIZATION' and consultID='C1'",
                             "select distinct * from billAccum   where revType = 'IMMUNIZATION' and consultID='C1'"})
        EXPECT_TRUE(ran(text)) << text;
    give("BCG");
    set("chkRef", false);
    saveVisit();
    EXPECT_EQ(dump("select IMMUNIZATION from hImmunization where consultID='C1'"_sql), "OPV 1,PENTA 1,BCG\n");
    EXPECT_EQ(bill(), "IRON|null|null|null\nOPV 1|1000|1|1000\nPENTA 1|2000.5|1|2000.5\nBCG|0|1|0\n");
    EXPECT_EQ(dump("select billNo, revType from BillingDetails"_sql), "C1|TREATMENT\nC2|IMMUNIZATION\n");
    EXPECT_EQ(dump("select referto from hreferal"_sql) + dump("select clinicType from happointment"_sql), "EYE\nEYE\n")
        << "without the tick no new ones follow";
    EXPECT_EQ(dump("select consultID from hPatientsTimeline"_sql), "C1\nC1\n");
    sent();
}

TEST_F(Immune, ARowOpensWhoWaitsNoMoreAndWhatCannotBeReadLeavesTheEntry) {
    enterVisit();
    saveVisit();
    for (const char* reading : {"from hPreConsult where", "from hAppointment", "from billAccum"}) {
        const auto before = place.desktop.get(name);
        hospital.failStatement(reading);
        fire("grdData.DblClick", {"Injected failure"});
        EXPECT_EQ(place.desktop.get(name), before) << reading;
    }
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboVehNo", "lblPatient"}), "Obi Ada 24-Nov-2026 @09:30:00 [C1]|Obi Ada");
    EXPECT_EQ(entries("lstWaiting"), entries("cboVehNo"));
    EXPECT_FALSE(is("chkRef", "checked"));
    fire("cmdCancel");
    EXPECT_EQ(shown({"cboVehNo", "lblPatient", "lblTotal"}), "||0.00");
    EXPECT_EQ(entries("cboVehNo"), std::string(musaWaitsForVaccine) + "|");
    // A row whose visit has gone cannot be saved again.
    hospital.execute("delete from hRecords where consultID='C1'"_sql);
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"lblBill", "cboAge"}), "|");
    EXPECT_EQ(lines(), "");
}

TEST_F(Immune, ADeleteAsksAndTakesAllOfTheVisitAway) {
    fire("cmdDel", {"Please select a record from the list"});
    enterVisit();
    wantNext();
    saveVisit();
    const auto before = rows();
    hospital.answer("no");
    fire("cmdDel");
    EXPECT_EQ(hospital.boxes().back().text + hospital.boxes().back().title, "Are you sure to Delete RecordDelete");
    EXPECT_EQ(rows(), before);
    for (int write = 1; write <= 5; ++write) {
        hospital.failWrite(write);
        hospital.answer("yes");
        fire("cmdDel", {"Injected failure"});
        EXPECT_EQ(rows(), before) << write;
    }
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(visits() + bill() + referrals() + appointments(), "");
    EXPECT_EQ(hospital.value("select AttendedToByImmume from hRecords where consultID='C1'"_sql), db::Value(1));
    EXPECT_EQ(screen().grdData.rows().rowCount(), 0U);
    // A row without a visit's number takes nothing else with it.
    hospital.execute("insert into hImmunization (PNo, ImDate, consultID) values ('P1', '24-Nov-2026', null)"_sql);
    open();
    fire("cmdDel", {"ConsultID Required for this Patient"});
    sent();
}

// -- faults --

TEST_F(Immune, EachWriteThatFailsLeavesTheOldVisitAndTheEntry) {
    enterVisit();
    wantNext();
    saveVisit();
    hospital.execute("insert into BillingDetails (billNo, revType) values ('C1', 'IMMUNIZATION')"_sql);
    fire("grdData.DblClick");
    give("BCG");
    const auto before = rows();
    const auto entry = place.desktop.get(name);
    constexpr int writes = 11;  // five deletes, three lines, timeline, visit, mark
    for (int write = 1; write <= writes; ++write) {
        hospital.failWrite(write);
        saveVisit({"Injected failure"});
        EXPECT_EQ(rows(), before) << write;
        EXPECT_EQ(place.desktop.get(name), entry) << write;
    }
    saveVisit();
    EXPECT_NE(rows(), before);
}

TEST_F(Immune, AnAppointmentThatFailsLeavesTheVisitAndTheEntryForAnotherSave) {
    struct Case {
        const char* write;
        const char *referral, *appointment;  ///< whether each stands
    };
    enterVisit();
    wantNext();
    for (const auto& [write, referral, appointment] :
         std::initializer_list<Case>{{"insert hreferal", "", ""}, {"insert happointment", "C1\n", ""}}) {
        hospital.failStatement(write);
        saveVisit({"Record Succesfully saved", "Injected failure"});
        EXPECT_EQ(dump("select consultID from hImmunization where ImDate='24-Nov-2026'"_sql), "C1\n") << write;
        EXPECT_EQ(dump("select consultID from hreferal"_sql), referral) << write;
        EXPECT_EQ(dump("select consultID from happointment"_sql), appointment) << write;
        EXPECT_EQ(shown({"lblBill", "txtImm", "lblTotal"}), "C1|OPV 2, PENTA 2|3,000.50");
        EXPECT_EQ(screen().grdData.rows().rowCount(), 3U) << "the child's rows with the new one";
    }
    // A message that is lost is told of, and nothing else is.
    hospital.failStatement("insert MessageOut");
    saveVisit({"Record Succesfully saved", "Injected failure"});
    EXPECT_EQ(dump("select consultID from happointment"_sql), "C1\n");
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(shown({"lblBill"}), "");
}

TEST_F(Immune, WhatDoesNotFitIsToldWhereItWasTyped) {
    struct Case {
        const char* field;
        std::size_t length;
    };
    for (const auto& [field, length] : std::initializer_list<Case>{{"cboAge", 51U}, {"txtImm", 201U}}) {
        enterVisit();
        wantNext();
        set(field, std::string(length, 'x'));
        hospital.setTakesMessages(true);
        fire("OKButton");
        EXPECT_EQ(focus(), "frmImmune." + std::string(field));
        EXPECT_EQ(visits() + bill(), "");
        fire("cmdCancel");
    }
}

TEST(ImmuneInFiles, ALineThatBreaksAtAnyStatementLeavesTheOldVisitAndTheEntry) {
    const HospitalFiles files;
    Ward hospital(files);
    hospital.start();
    outpatient::provideScreens(hospital.place);
    arrangeImmunization(hospital);
    hospital.execute("insert into billAccum (consultID, drgName, revType) values ('C1', 'OLD', 'IMMUNIZATION')"_sql);
    hospital.place.desktop.show("frmImmune");
    hospital.setTakesMessages(true);
    const auto broken = hospital.breakTheLineAtEachStatement(
        "frmImmune",
        [&] {
            enter(hospital.place, "frmImmune", {{"cboVehNo", adaWaitsForVaccine}, {"cboDrug", "OPV 1"}});
            hospital.place.desktop.fire("frmImmune.cmdAddToGrid", false);
            enter(hospital.place, "frmImmune", {{"cboAge", "6 weeks"}});
        },
        [&] {
            return hospital.dump("select * from hImmunization"_sql) + hospital.dump("select * from billAccum"_sql) +
                   hospital.dump("select * from hPatientsTimeline"_sql) + hospital.dump("select * from hRecords"_sql);
        });
    EXPECT_GE(broken.size(), 10U);
    hospital.forgetAnswers();
}

}  // namespace
}  // namespace test
