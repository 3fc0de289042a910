#include "core/session/session.h"
#include "tests/contract/recordcontract.h"
#include "tests/registration/frmpatientsnew/patientsnew.h"
#include "tests/registration/frmpatientsnewnur/patientsnewnur.h"
#include "tests/registration/frmrecords/records.h"

using namespace db::literals;

namespace test {
namespace {

/// An attendance for a screening, with a card that was renewed.
RecordScreen records() {
    return {.name = "frmRecords",
            .provide = &registration::provideScreens,
            .arrange =
                [](TestHospital& hospital) {
                    arrangeRegistration(hospital);
                    arrangeAttendance(hospital);
                },
            .add =
                [](Desk& desk) {
                    takeAttendance(desk.place, "1", "SCREENING");
                    desk.place.session.gRenewPending = true;
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("cmdEdit");
                    desk.set("cboRefHmo", "YES");
                },
            .rows = {"select * from hRecords"_sql, "select * from billAccum"_sql, "select * from hPatients"_sql,
                     "select * from hhScreeningAttnd"_sql, "select * from idgen"_sql},
            .texts = {"txtEmp", "txtPolicy"},
            .vanish = "delete from hRecords"_sql};
}

std::vector<db::Sql> rowsOfRegistration() {
    return {"select * from hPatients"_sql,         "select * from hRecords"_sql,
            "select * from billAccum"_sql,         "select * from hPatientClinics"_sql,
            "select * from hreferal"_sql,          "select * from happointment"_sql,
            "select * from hPatientsTimeline"_sql, "select * from hpatientsArchive"_sql};
}

/// The front desk: a new patient with her visit and what she owes from before; then a renewed card and another visit.
RecordScreen patientsNew() {
    return {.name = "frmPatientsNew",
            .provide = &registration::provideScreens,
            .arrange =
                [](TestHospital& hospital) {
                    arrangeRegistration(hospital);
                    hospital.addUser("nurse", "MANAGEMENT");
                },
            .session =
                [](core::Session& session) {
                    session.gModuleRole = "RECORDS";
                    session.gLockMultipleAttendance = "NO";
                },
            .add =
                [](Desk& desk) {
                    typePatient(desk.place, "frmPatientsNew");
                    desk.set("txtAdmitLimit", "0");
                    desk.set("chkReg", true);
                    desk.set("cboClin", "EYE");
                    desk.set("cboPurpose", "APPOINTMENT");
                    desk.answer("1,200.50");
                    desk.fire("lblDebt.DblClick");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("cmdRefresh");
                    desk.fire("grdData.DblClick");
                    desk.place.session.gRenewPending = true;
                    desk.set("txtPhone", "0700");
                    desk.set("cboClin", "EYE");
                    desk.set("cboPurpose", "(CONSULTATION)");
                },
            .rows = rowsOfRegistration(),
            .texts = {"txtHomeAddress", "txtOfficeAddress", "txtEmail", "txtsurNAme", "txtfirstNAme", "txtKin",
                      "txtKinRel", "txtNOKPhone", "txtKinAddress", "txtOLD", "txtOccu", "cboArea", "cboTitle"},
            .vanish = "delete from hPatients"_sql};
}

/// A child born in the house: her appointment, her bed and what her mother owes.
RecordScreen patientsNewNur() {
    return {.name = "frmPatientsNewNur",
            .provide = &registration::provideScreens,
            .arrange =
                [](TestHospital& hospital) {
                    arrangeRegistration(hospital);
                    priceServices(hospital);
                    hospital.addUser("nurse", "MANAGEMENT");
                },
            .add =
                [](Desk& desk) {
                    bookPatient(desk.place, privateClient, "(IN-PATIENT)", "APPOINTMENT");
                    desk.place.session.gPatientBalance = 100;
                    desk.set("txtAdmitLimit", "0");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("cmdRefresh");
                    desk.fire("grdData.DblClick");
                    desk.set("chkReg", false);
                    desk.set("txtPhone", "0700");
                },
            .rows = rowsOfRegistration(),
            .texts = {"txtHomeAddress", "txtKin", "txtOLD", "cboArea", "txtEmail", "txtsurNAme"},
            .vanish = "delete from hPatients"_sql};
}

INSTANTIATE_TEST_SUITE_P(Registration, RecordContract, testing::Values(records(), patientsNew(), patientsNewNur()),
                         screenName);

}  // namespace
}  // namespace test
