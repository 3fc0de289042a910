#include "inpatient/screens.h"
#include "tests/contract/recordcontract.h"
#include "tests/inpatient/admission/admission.h"
#include "tests/inpatient/discharge/discharge.h"

using namespace db::literals;

namespace test {
namespace {

RecordScreen wards() {
    return {.name = "frmWards",
            .provide = &inpatient::provideScreens,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("txtName", "Male Ward");
                    desk.set("txtLocation", "1ST FLR");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtLocation", "GRD FLR");
                },
            .rows = {"select * from hWards"_sql},
            .texts = {"txtID"},
            .vanish = "delete from hWards"_sql};
}

RecordScreen referalEdit() {
    return {.name = "frmReferalEdit",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeReferrals,
            .add = [](Desk& desk) { refer(desk.place); },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("CboRef", wardsClinic);
                    desk.set("dtTime", "14:00:00");
                    desk.set("txtREason", "OPERATION");
                },
            .rows = {"select * from hreferal"_sql, "select * from hAppointment"_sql},
            .texts = {"txtREason"},
            .vanish = "delete from hreferal"_sql,
            .deleteTitle = "Delete from Clinic",
            .question = "Are you sure to save?",
            .questionTitle = "About to save"};
}

RecordScreen admission() {
    return {.name = "frmAdmission",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeReferred,
            .add = [](Desk& desk) { admit(desk.place, nneWaits); },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("cboWard", "ICU");
                },
            .rows = {"select * from hAdmission"_sql, "select * from hreferal"_sql, "select * from hConsulting"_sql,
                     "select * from hRecords"_sql, "select * from hPatients"_sql},
            .texts = {"txtREason", "txtRem", "txtDiag"},
            .vanish = "delete from hAdmission"_sql,
            .deletes = false,
            .refusesDelete = "Invalid Action!!! Delete not Allowed"};
}

RecordScreen dischargeByDoctor() {
    return {.name = "frmDischarge",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", adaLies);
                    desk.set("cboCat", "Ojo Tunde [D1]");
                    desk.set("dtAppt", "2026-12-08");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtREason", "WELL");
                },
            .rows = {"select * from hdischarge"_sql, "select * from hRecords"_sql},
            .texts = {"txtREason", "txtRem"},
            .vanish = "delete from hdischarge"_sql,
            .deletes = false,
            .refusesDelete = ""};
}

RecordScreen dischargeByNurse() {
    return {
        .name = "frmDischargeForNuse",
        .provide = &inpatient::provideScreens,
        .arrange = &arrangeDischarged,
        .add =
            [](Desk& desk) {
                desk.fire("cmdAdd");
                desk.set("dtDate", "2026-11-24");
                desk.set("cboVehNo", adaLies);
            },
        .correct =
            [](Desk& desk) {
                desk.fire("grdData.DblClick");
                desk.set("txtREason", "WELL");
            },
        .rows = {"select * from hdischargeForNurse"_sql, "select * from hAdmission"_sql, "select * from hRecords"_sql},
        .texts = {"txtREason", "txtRem"},
        .vanish = "delete from hdischargeForNurse"_sql,
        .question = "Are you sure to Discharge this Patient",
        .questionTitle = "Discharge"};
}

INSTANTIATE_TEST_SUITE_P(Inpatient, RecordContract,
                         testing::Values(wards(), referalEdit(), admission(), dischargeByDoctor(), dischargeByNurse()),
                         screenName);

}  // namespace
}  // namespace test
