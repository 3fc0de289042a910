#include "tests/inpatient/admission/admission.h"

using namespace db::literals;

namespace test {
namespace {

class ReferalEdit : public AtScreen {
protected:
    ReferalEdit() : AtScreen("frmReferalEdit", &inpatient::provideScreens, &arrangeReferrals) {}
    void referNne() {
        refer(place);
        save();
        hospital.forget();
    }
};

TEST_F(ReferalEdit, OffersTheConsultedOfTheDaysAndTheClinics) {
    EXPECT_EQ(entries("CboRef"), std::string("|") + wardsClinic + "|");
    EXPECT_EQ(shown({"CboRef"}), wardsClinic);
    set("chkAll", true);
    EXPECT_EQ(entries("CboRef"), std::string("|") + wardsClinic + "|Eye :MON: [EYE]|");
    EXPECT_TRUE(ran("select clinicID,clinicName,clinicdays from ClinicTypes"));
    set("chkAll", false);
    EXPECT_TRUE(ran("select clinicID,clinicName,clinicdays from ClinicTypes where clinicID='(IN-PATIENT)'"));
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"),
              "Bello Musa @24-Nov-2026 (2) [C2]|Eze Nne @24-Nov-2026 (3) [C3]|Obi Ada @24-Nov-2026 (1) [C1]|");
    set("DTPicker1", "2026-11-25");
    set("DTPicker2", "2026-11-26");
    fire("cmdPat");
    EXPECT_EQ(entries("cboVehNo"), "");
    EXPECT_TRUE(ran(
        "SELECT  distinct id,CDate,fullname,pNo,consultid FROM qryhconsulting where cdate between '25-Nov-2026' and "
        "'26-Nov-2026' order by fullname"));
}

TEST_F(ReferalEdit, ASaveStopsAtTheFirstFieldThatIsMissing) {
    fire("cmdAdd");
    set("CboRef", "");
    set("dtDate", nullptr);
    stopsInOrder({{"Please specify Patient Name", "cboVehNo", {}, {{"cboVehNo", "Eze Nne @24-Nov-2026 (3) [C3]"}}},
                  {"Please specify Referal Clinic", "CboRef", wardsClinic},
                  {"Please specify EntryDate", "dtDate", "2026-11-24"},
                  {"Please specify Referal/Admission Date", "dtNext", "2026-11-25"},
                  {"Please specify Referal Time for referal", "dtTime", "11:00:00"},
                  {"Please specify Reason for Referal", "txtREason", "SEVERE MALARIA"}});
    hospital.failStatement("select genphy");
    set("cboVehNo", "Obi Ada @24-Nov-2026 (1) [C1]", {"Injected failure"});
    stopsInOrder({{"Please specify Patient Name", "cboVehNo", "Eze Nne @24-Nov-2026 (3) [C3]"}});
    EXPECT_EQ(shown({"lblTitle", "lblNo", "lblClient", "txtGen"}), "Patient Referal for : Eze Nne|P3|NHIS|MALARIA");
    save();
}

TEST_F(ReferalEdit, AReferralHasItsTwinAmongTheAppointments) {
    hospital.sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 9, 47, 30));
    referNne();
    EXPECT_EQ(dump("select consultID, clientCat, referto, ApptDate, ApptTime, refReason, PNo, refDate, refTime, "
                   "attendedto, conID from hreferal"_sql),
              "C3|NHIS|(IN-PATIENT)|25-Nov-2026|11:00:00|SEVERE MALARIA|P3|24-Nov-2026|09:47:00|0|3\n");
    EXPECT_EQ(dump("select consultID, clientCat, clinicType, ApptDate, ApptTime, Remarks, PNo, entryDate, entryTime, "
                   "attendedto, conID from hAppointment"_sql),
              "C3|NHIS|(IN-PATIENT)|25-Nov-2026|11:00:00|REFERAL EDIT|P3|24-Nov-2026|09:47:00|0|3\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Add Referal/Appt: Eze Nne|C3|Add Ref: (IN-PATIENT)\n");

    hospital.execute("update hreferal set attendedto=1"_sql);
    fire("cmdEdit");
    EXPECT_EQ(shown({"cboVehNo", "CboRef", "lblTitle"}), "P3||Patient Referal for : Eze Nne");
    EXPECT_FALSE(is("cboVehNo", "enabled"));
    stopsInOrder({{"Please specify Referal Clinic!!! Last chosen clinic was (IN-PATIENT)", "CboRef", wardsClinic},
                  {"Please specify Referal Time for referal", "dtTime", "15:00:00"}});
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select ApptTime, attendedto, conID from hreferal"_sql), "15:00:00|0|3\n");
    EXPECT_EQ(dump("select ApptTime, Remarks from hAppointment"_sql), "15:00:00|REFERAL'\n");
    EXPECT_EQ(hospital.value("select top 1 Remarks from hAuditTrail order by SNo desc"_sql),
              db::Value("Edit Ref to: (IN-PATIENT)"));
}

TEST_F(ReferalEdit, ANewbornsReferralWithoutATwinIsCorrectedAndDeletedLikeOthers) {
    addReferral(hospital, "C3", "P3", "NHIS", "24-Nov-2026", "(IN-PATIENT)");
    fire("cmdRefresh");
    fire("grdData.DblClick");
    fill({{"CboRef", wardsClinic}, {"dtNext", "2026-11-24"}, {"dtTime", "10:00:00"}, {"txtREason", "DELIVERY"}});
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select refReason from hreferal"_sql), "DELIVERY\n");
    EXPECT_EQ(dump("select * from hAppointment"_sql), "");
    EXPECT_EQ(hiddenColumns(), "pNO ID ");
    hospital.answer("yes");
    fire("cmdDel", {" Record successfully deleted "});
    EXPECT_EQ(dump("select * from hreferal"_sql), "");
    EXPECT_TRUE(ran("delete from hAppointment where consultID = 'C3'"));
}

}  // namespace
}  // namespace test
