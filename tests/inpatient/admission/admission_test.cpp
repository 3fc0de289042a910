#include "tests/inpatient/admission/admission.h"
#include "core/session/session.h"

using namespace db::literals;

namespace test {
namespace {

constexpr const char* deposit = "This Patient Has to pay Deposit before Admission! see the Cashier";
constexpr const char* noLimit =
    "This Patient Cannot be Admitted! Requires Admission Stay Limit. see the FrontDesk Officer";

class Admission : public AtScreen {
protected:
    Admission() : AtScreen("frmAdmission", &inpatient::provideScreens, &arrangeReferred) {
        session().gAdmissionLimitExists = "YES";
        session().gPrivatePaysDeposit = "YES";
    }
    void takeFrom(const char* day) {
        fire("cmdAdd");
        set("DTPicker1", day);
        fire("cmdList");
    }
    std::string stay() {
        return dump(
            "select admdate, aTime, ExtendAdmissionLimitTo, PNo, wardID, Reason, Remarks, consultID, clientCat, "
            "AdmitBy, AdmitingDoc, diagnosis, conID, isdischarged from hAdmission where consultID='C3'"_sql);
    }
    static constexpr const char* expired = " This Patient's Stay in Admission has Expired! See the FrontDesk Officer";
    void expectExpiry() { hospital.expectMessage(expired, "Expired Admission"); }
};

TEST_F(Admission, OffersTheReferredWhoWereNeverAdmitted) {
    EXPECT_EQ(entries("cboWard"), "|FEMALE 1|ICU|MALE 2|");
    EXPECT_EQ(hiddenColumns(), "SNO ");
    addReferral(hospital, "C1", "P1", "HMO", "24-Nov-2026", "(IN-PATIENT)");
    hospital.execute("update hAdmission set isdischarged=1 where consultID='C1'"_sql);
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"), std::string("|") + nneWaits + "|");
    set("DTPicker1", "2026-11-23");
    fire("cmdList");
    EXPECT_EQ(entries("cboVehNo"), std::string("|") + nneWaits + "|" + sadeWaits + "|");
    EXPECT_TRUE(
        ran("select distinct pNO,pSurname,pFirstname,Company,refDate,consultID from qryhreferal where referTo in "
            "('IN-PATIENT','(IN-PATIENT)') and refdate between '23-Nov-2026' AND '24-Nov-2026' and consultID not in "
            "(select ConsultID from hAdmission) order by psurname"));
    fire("cmdCancel");
    fire("cmdDel", {"Invalid Action!!! Delete not Allowed"});
}

TEST_F(Admission, ASchemePatientIsAdmittedForTheHoursOfTheRecord) {
    fire("cmdAdd");
    set("dtDate", nullptr);
    set("dtTime", nullptr);
    stopsInOrder({{"Please specify Ward No", "cboWard", "FEMALE 1"},
                  {"Please specify Admission Date", "dtDate", "2026-11-24"},
                  {"Please specify Admission Time", "dtTime", "09:30:00"},
                  {"Please specify Patient Name", "cboVehNo", nneWaits}});
    EXPECT_EQ(shown({"lblTitle", "lblNo", "lblClient", "lblBill", "lblDoc", "txtREason", "txtDiag", "lblLimit"}),
              "Patient Admission : Eze Nne|P3|NHIS|C3|Ojo Tunde|SEVERE MALARIA|MALARIA|27-Nov-2026 09:30");
    set("txtRem", " walks ");
    save();
    EXPECT_EQ(stay(),
              "24-Nov-2026|09:30:00|27-Nov-2026 09:30:00|P3|FEMALE 1|SEVERE "
              "MALARIA|walks|C3|NHIS|E001|D1|MALARIA|3|False\n");
    EXPECT_EQ(dump("select attendedto from hreferal where consultID='C3'"_sql), "1\n");
    EXPECT_EQ(dump("select Remarks from hConsulting where consultID='C3'"_sql), "ADMISSION\n");
    EXPECT_EQ(dump("select clinicType from hRecords where consultID='C3'"_sql), "(IN-PATIENT)\n");
    EXPECT_EQ(dump("select LastClinicVisited from hPatients where PNo='P3'"_sql), "(IN-PATIENT)\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Admit Patient: Patient Admission : Eze Nne|C3|By Nurse\n");
    EXPECT_EQ(shown({"lblTitle", "lblLimit", "lblNo"}), "Patient Admission||");
}

TEST_F(Admission, TheRulesOfThePick) {
    // Whose limit nothing sets, and who is in no scheme: as good as unlimited, from the admission on.
    session().gPrivatePaysDeposit = "NO";
    takeFrom("2026-11-23");
    set("cboVehNo", sadeWaits);
    EXPECT_EQ(shown({"lblLimit"}), "20-Aug-2029 09:30");
    session().gAdmissionLimitExists = "NO";
    set("cboVehNo", nneWaits);
    EXPECT_EQ(shown({"lblLimit"}), "20-Aug-2029 09:30");

    // Any deposit will do; without one the limit is not looked at, and what stood there stays.
    session().gPrivatePaysDeposit = "YES";
    set("cboVehNo", sadeWaits, {deposit});
    EXPECT_EQ(shown({"lblNo", "lblLimit"}), "P4|20-Aug-2029 09:30");
    hospital.execute("insert into Payments (BillNo, PaymentFor, AmountPaid) values ('C4', 'WARD DEPOSIT', 0)"_sql);
    set("cboVehNo", sadeWaits);
    EXPECT_TRUE(ran("select AmountPaid from Payments where BillNo ='C4' and PaymentFor like '%DEPOSIT%'"));

    // A record with no hours refuses, and shows now by the workstation's clock.
    session().gAdmissionLimitExists = "YES";
    for (const auto& none : {"update hPatients set AdmissionDaysLimit=0 where PNo='P3'"_sql,
                             "update hPatients set AdmissionDaysLimit=null where PNo='P3'"_sql}) {
        hospital.execute(none);
        set("cboVehNo", nneWaits, {noLimit});
        EXPECT_EQ(shown({"lblLimit"}), "24-Nov-2026 09:31");
    }
    hospital.execute("update hPatients set AdmissionDaysLimit=40000 where PNo='P3'"_sql);
    hospital.setTakesMessages(true);
    set("cboVehNo", nneWaits);
    EXPECT_EQ(hospital.boxes().back().text, "Overflow") << "hours beyond 32767";
    hospital.setTakesMessages(false);

    // The stay has run out when the workstation's clock is past the limit's minute, and not on it.
    hospital.execute("update hPatients set AdmissionDaysLimit=1 where PNo='P3'"_sql);
    set("dtTime", "08:31:00");
    set("cboVehNo", nneWaits);
    hospital.workstationClock = db::DateTime::of(2026, 11, 24, 9, 32);
    expectExpiry();
    set("cboVehNo", nneWaits);
    EXPECT_EQ(shown({"lblLimit"}), "24-Nov-2026 09:31");
}

TEST_F(Admission, ARefusalOfThePickStopsNoSaveButAMissingLimitDoes) {
    takeFrom("2026-11-23");
    set("cboVehNo", sadeWaits, {deposit});
    set("cboWard", "ICU");
    hospital.setTakesMessages(true);
    save({});
    EXPECT_EQ(hospital.boxes().back().text, "Type mismatch");
    EXPECT_EQ(dump("select * from hAdmission where consultID='C4'"_sql), "");
    EXPECT_EQ(shown({"lblNo", "cboWard"}), "P4|ICU");
    hospital.setTakesMessages(false);
    hospital.execute("update hPatients set AdmissionDaysLimit=0 where PNo='P3'"_sql);
    set("cboVehNo", nneWaits, {noLimit});
    save();
    EXPECT_EQ(dump("select ExtendAdmissionLimitTo from hAdmission where consultID='C3'"_sql), "24-Nov-2026 09:31:00\n");
}

TEST_F(Admission, OneWhoLiesInAWardIsNotAdmittedTwice) {
    addConsulted(hospital, {"P9", "Obi", "Ada", "C9", "HMO"});
    addReferral(hospital, "C9", "P1", "HMO", "24-Nov-2026", "(IN-PATIENT)");
    hospital.execute("update hPatients set AdmissionDaysLimit=5 where PNo='P1'"_sql);
    fire("cmdAdd");
    fill({{"cboVehNo", "Obi Ada Axa Mansard @24-Nov-2026 [C9]"}, {"cboWard", "ICU"}});
    hospital.forget();
    fire("OKButton", {"This Patient has Previous Admission(s). Please Discharge before new Admission is made"});
    EXPECT_EQ(focus(), "frmAdmission.cboVehNo");
    EXPECT_TRUE(ran("select consultID from qryhAdmission where PNo='P1'"));
    // A reading that fails, and a referral that was taken back while the list stands there, leave nobody to be saved.
    hospital.failStatement("from qryhreferal");
    set("cboVehNo", nneWaits, {"Injected failure"});
    EXPECT_EQ(shown({"lblNo", "lblBill", "lblTitle"}), "||Patient Admission");
    fire("OKButton", {"Please specify Patient Name"});
    hospital.execute("delete from hreferal where consultID='C3'"_sql);
    set("cboVehNo", nneWaits);
    EXPECT_EQ(shown({"cboVehNo", "lblNo", "lblBill", "lblTitle"}), std::string(nneWaits) + "|||Patient Admission");
    fire("OKButton", {"Please specify Patient Name"});
}

TEST_F(Admission, AnEditMovesThePatientAndThePickRunsLast) {
    admit(place, nneWaits);
    save();
    hospital.execute("update hAdmission set Reason='old', diagnosis='old' where consultID='C3'"_sql);
    hospital.execute("update hAdmission set ExtendAdmissionLimitTo='24-Nov-2026 09:30' where consultID='C3'"_sql);
    fire("cmdRefresh");
    session().gEmpID = "D2";
    place.session.gServerTime = db::DateTime::of(1899, 12, 30, 9, 30);
    expectExpiry();
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"cboVehNo", "txtREason", "txtDiag", "lblLimit", "cboWard", "txtRem"}),
              "Eze Nne Axa Mansard [C3]|SEVERE MALARIA|MALARIA|24-Nov-2026 09:30|FEMALE 1|walks");
    EXPECT_FALSE(is("cboVehNo", "enabled"));
    fill({{"cboWard", "ICU"}, {"txtRem", " moved "}});
    save({"Record Succesfully updated"});
    EXPECT_EQ(stay(),
              "24-Nov-2026|09:30:00|24-Nov-2026 09:30:00|P3|ICU|SEVERE MALARIA| moved "
              "|C3|NHIS|D2|D1|MALARIA|3|False\n");
    EXPECT_EQ(dump("select top 1 userAction, TranCode, Remarks from hAuditTrail order by SNo desc"_sql),
              "Edit Admitted Patient: Patient Admission : Eze Nne|C3|C3\n");

    // A stay without a limit gets the server's moment; one without a referral keeps none of its labels.
    hospital.execute("update hAdmission set ExtendAdmissionLimitTo=null where consultID='C3'"_sql);
    expectExpiry();
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"lblLimit"}), "24-Nov-2026 09:30");
    fire("cmdCancel");
    hospital.execute("delete from hreferal"_sql);
    fire("grdData.DblClick");
    EXPECT_EQ(shown({"lblTitle", "lblNo", "txtREason", "cboWard", "lblLimit"}), "Patient Admission|||ICU|");
}

}  // namespace
}  // namespace test
