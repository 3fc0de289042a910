#include "inpatient/screens.h"
#include "tests/contract/recordcontract.h"
#include "tests/inpatient/admission/admission.h"
#include "tests/inpatient/charts/charts.h"
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

RecordScreen fluidChart() {
    return {.name = "frmFluidChart",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.set("cboVehNo", adaLies);
                    desk.fire("cmdAdd");
                    desk.set("cboTime", "9 AM");
                    desk.set("txtInVol", "200");
                },
            .correct =
                [](Desk& desk) {
                    desk.set("cboVehNo", adaLies);
                    desk.fire("grdData.DblClick");
                    desk.set("txtInVol", "250");
                },
            .rows = {"select * from hfluidChart"_sql},
            .texts = {"txtInOthers", "txtOutOthers"},
            .vanish = "delete from hfluidChart"_sql,
            .deletes = false};
}

RecordScreen allergy() {
    return {.name = "frmAllergy",
            .provide = &inpatient::provideScreens,
            .arrange =
                [](TestHospital& hospital) {
                    arrangeWards(hospital);
                    hospital.execute("insert into hdischargeForNurse (consultID, PNo) values ('C1', 'P1')"_sql);
                },
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    for (const auto& [field, content] : Entries{{"cboVehNo", adaLies},
                                                                {"cboCat", "Nurse Joy [E001]"},
                                                                {"cboDoc", "Zainab Audu [D2]"},
                                                                {"dtTime", "08:10:00"},
                                                                {"dtDoc", "08:25:00"},
                                                                {"txtNote", "ADRENALINE"},
                                                                {"cboEvent", "BLOOD ADMINISTERED"}})
                        desk.set(field, content);
                    desk.set("LstDate", {{"row", 1}, {"checked", true}});
                },
            .correct =
                [](Desk& desk) {
                    if (desk.form()["controls"]["grdData"]["rows"].empty()) {
                        desk.fire("cmdAdd");
                        desk.set("cboVehNo", adaLies);
                        desk.fire("cmdCancel");
                    }
                    desk.fire("grdData.DblClick");
                    desk.set("cboCat", "Nurse Joy [E001]");
                    desk.set("txtNote", "REST");
                },
            .rows = {"select * from hNurseAllergy"_sql, "select * from hdischargeForNurse"_sql},
            .texts = {"cboEvent", "txtOther", "txtRem", "txtNote"},
            .vanish = "delete from hNurseAllergy"_sql};
}

RecordScreen observations() {
    return {.name = "frmPreConsultAdm",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.set("LstDate", {{"row", 1}});
                    desk.fire("cmdAdd");
                    for (const auto& [field, content] : observation) desk.set(field, content);
                },
            .correct =
                [](Desk& desk) {
                    desk.set("LstDate", {{"row", 1}});
                    desk.fire("grdData.DblClick");
                    desk.set("txtTemp", "37");
                },
            .rows = {"select * from hPreConsult"_sql, "select * from hPreConsultChart"_sql},
            .texts = {"txtTemp", "txtPressure", "txtPause", "txtResp", "txtHt", "txtWt", "txtSPO2", "txtRBS",
                      "cboPosition", "txtStool", "txtUrine", "txtSDrainage"},
            .vanish = "delete from hPreConsult"_sql};
}

RecordScreen nursingHistory() {
    return {.name = "frmNursingHist",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", adaLies);
                    desk.set("txtPresent", "CALM");
                    desk.set("chkBCG", true);
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtPresent", "WELL");
                },
            .rows = {"select * from hNursingHist"_sql},
            .texts = {"txtInfo", "txtNutri", "txtValues", "txtNursing", "txtOthers", "txtAssess"},
            .vanish = "delete from hNursingHist"_sql,
            .deletes = false};
}

RecordScreen nursesNote() {
    return {.name = "frmNurseNote",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", "Obi Ada  [C1]");
                    desk.set("txtRem", "SLEPT WELL");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", "Obi Ada  [C1]");
                    desk.fire("cmdCancel");
                    desk.fire("grdData.DblClick");
                    desk.set("txtRem", "SLEPT BADLY");
                },
            .rows = {"select * from hInPatientNotesForNurses"_sql},
            .texts = {"txtRem"},
            .vanish = "delete from hInPatientNotesForNurses"_sql,
            .deletes = false};
}

RecordScreen dailyReport() {
    return {.name = "frmNurseDaily",
            .provide = &inpatient::provideScreens,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    for (const auto& [field, content] : Entries{{"cboShift", "NIGHT"},
                                                                {"cboVehNo", "ADMIN REPORT"},
                                                                {"cboYes", "NO"},
                                                                {"txtAdmin", "ALL CALM"}})
                        desk.set(field, content);
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("grdData.DblClick");
                    desk.set("txtAdmin", "ONE ADMITTED");
                },
            .rows = {"select * from hNurseOverRpt"_sql},
            .texts = {"txtSub", "txtAdmin"},
            .vanish = "delete from hNurseOverRpt"_sql,
            .deletes = false};
}

RecordScreen doctorsNote() {
    return {.name = "frmDocNotes",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", adaLies);
                    desk.set("cboReason", "Ojo Tunde [D1]");
                    desk.set("txtRem", "SEEN");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", adaLies);
                    desk.fire("cmdCancel");
                    desk.fire("grdData.DblClick");
                    desk.set("txtRem", "SEEN AGAIN");
                },
            .rows = {"select * from hInPatientNotesForDoctors"_sql},
            .texts = {"txtRem", "txtPresc"},
            .vanish = "delete from hInPatientNotesForDoctors"_sql,
            .deletes = false};
}

RecordScreen operation() {
    return {.name = "frmSurgery",
            .provide = &inpatient::provideScreens,
            .arrange = &arrangeWards,
            .add =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", adaLies);
                    desk.set("cboReason", "Ojo Tunde [D1]");
                    desk.set("txtFields(4)", "APPENDICECTOMY");
                },
            .correct =
                [](Desk& desk) {
                    desk.fire("cmdAdd");
                    desk.set("cboVehNo", adaLies);
                    desk.fire("cmdCancel");
                    desk.fire("grdData.DblClick");
                    desk.set("txtFields(32)", "INFLAMED");
                },
            .rows = {"select * from hSurgery"_sql},
            .texts = {"txtFields(3)", "txtFields(5)", "txtFields(14)", "txtFields(25)", "txtFields(36)"},
            .vanish = "delete from hSurgery"_sql,
            .deletes = false};
}

INSTANTIATE_TEST_SUITE_P(Inpatient, RecordContract,
                         testing::Values(wards(), referalEdit(), admission(), dischargeByDoctor(), dischargeByNurse(),
                                         fluidChart(), allergy(), observations(), nursingHistory(), nursesNote(),
                                         dailyReport(), doctorsNote(), operation()),
                         screenName);

}  // namespace
}  // namespace test
