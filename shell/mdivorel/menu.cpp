#include "shell/mdivorel/menu.h"

#include <set>

#include "core/session/session.h"
#include "shell/mdivorel/mdivorel.h"

namespace shell {
namespace {

constexpr auto shown = Shown::always;
constexpr auto hidden = Shown::never;
constexpr auto atDesk = Shown::atDesk;
const MenuAction nothing{};

MenuAction runs(std::function<void(MdiVorel&)> operation) {
    return {{}, std::move(operation)};
}

MenuAction opens(const std::string& screen) {
    return {screen, [screen](MdiVorel& window) { window.desktop().show(screen); }};
}

/// Leaves word in the session for the screen that opens.
MenuAction opens(const std::string& screen, const std::function<void(core::Session&)>& before) {
    return {screen, [screen, before](MdiVorel& window) {
                before(window.variables());
                window.desktop().show(screen);
            }};
}

MenuAction opensModally(const std::string& screen, const std::function<bool(MdiVorel&)>& allowed) {
    return {screen, [screen, allowed](MdiVorel& window) {
                if (allowed(window)) window.desktop().showModal(screen);
            }};
}

std::function<void(core::Session&)> noteScope(const std::string& scope) {
    return [scope](core::Session& session) { session.gNoteScope = scope; };
}

std::function<void(core::Session&)> historyFromArchive(bool archive) {
    return [archive](core::Session& session) { session.gConsultHistoryArchive = archive; };
}

}  // namespace

const std::vector<MenuHeading>& mainMenu() {
    static const std::vector<MenuHeading> menu = {
        {"mnuFile",
         "&File",
         shown,
         {
             {"mnuServList", "Assign Doctors to Consulting Rooms", hidden, opens("frmSchedDoctor")},
             {"mnuSI", "Wards/Bed No", shown, opens("frmWards")},
             {"mnuPatAttnd", "Patient Attendance", atDesk, opens("frmRecords")},
             {"mnuPatReg", "Antenatal Update for Patients", shown, opens("frmPatientsNew")},
             {"mnuRDef", "Reload Defaults", shown, runs(&MdiVorel::mnuRDef_Click)},
             {"mnuDash", "-", shown, nothing},
             {"mnuAuto", "Auto ID Generator", hidden, nothing},
             {"mnuPrint", "Print", hidden, runs(&MdiVorel::mnuPrint_Click)},
             {"mnuRsts", "Rests", hidden, opens("frmRests")},
             {"mnuEPE", "Exit", shown, runs(&MdiVorel::mnuEPE_Click)},
         }},
        {"mnuDT",
         "OPD",
         shown,
         {
             {"mnuVitSigns", "OPD Vital Signs", shown, opens("frmPreConsult")},
             {"mnuDial", "Dialysis", hidden, opens("frmDialysis")},
             {"mnuRegis", "Registration", atDesk, opens("frmPatientsNewNur")},
             {"mnuImmune", "Immunization", shown, opens("frmImmune")},
             {"mnuPresc", "Prescription from Doctor", hidden, opens("frmInjectionEntryForAdm")},
             {"mnuInj", "OPD Medication Chart", shown, opens("frmNurseInjection")},
             {"mnuORE", "OPD Report Entry", shown, opens("frmNurseNote", noteScope("OPD"))},
             {"mnuDress", "Dressing", hidden, opens("frmNurseDressing")},
             {"mnuDashImm", "-", shown, nothing},
             {"mnuSERP", "Antenatal Update for Patients", shown, opens("frmPatientsNew")},
         }},
        {"mnuNP",
         "Admission",
         shown,
         {
             {"mnuSIss", "Admit Patient", shown, opens("frmAdmission")},
             {"mnuGPFA", "Get Patient for Admission", shown, opens("frmReferalEdit")},
             {"mnudash1", "-", shown, nothing},
             {"mnuAllergy", "Allergic Reaction/Anaphylaxis Record", shown, opens("frmAllergy")},
             {"mnuConHistQ", "Consultation History", shown, opens("frmPatList", historyFromArchive(false))},
             {"mnuCOnHist2", "Consultation History (Archive)", hidden, opens("frmPatList", historyFromArchive(true))},
             {"mnuDTC", "Vital Signs [Admission]", shown, opens("frmPreConsultAdm")},
             {"mnuAS", "Assessment Sheet", hidden, runs(&MdiVorel::mnuAS_Click)},
             {"mnuMC", "Medication Chart", shown, opens("frmMedChart")},
             {"mnuFC", "Fluid Chart", shown, opens("frmFluidChart")},
             {"mnuNH", "Nursing History", hidden, opens("frmNursingHist")},
             {"mnuNCP", "Nursing Care Plan", hidden, opens("frmNursingHist")},
             {"mnuMDTR", "Multi-Disciplinary Team Referrals", hidden, nothing},
             {"mnuNDRS", "Nurses Daily Report Sheet", hidden, nothing},
             {"mnuDPC", "Discharge Planning Checklist", hidden, nothing},
             {"mnuDSAR", "Nurse's Discharge Summary", shown, opens("frmDischargeForNuse")},
             {"mnuDashRpt", "-", shown, nothing},
             {"mnuNNote", "Nurses' Note Entry", shown, opens("frmNurseNote", noteScope("IPD"))},
             {"mnuNDR", "Nurses' Daily Report Entry", shown, opens("frmNurseDaily")},
             {"mnuRecall", "-", shown, nothing},
             {"mnuOLFD", "Overdue List For Discharge", shown,
              opensModally("frmDischargeListOverdue", &MdiVorel::isManagement)},
             {"mnuRecover", "Recall Discharged Patient", shown, opens("frmRecover")},
             {"mnuPO", "Baby Delivery (Birth)", shown, opens("frmANCAndDelv")},
         }},
        {"mnuCon",
         "Consulting",
         hidden,
         {
             {"mnuDIN", "Doctor's In-Patient Notes / Treatment Chart", shown, nothing},
             {"mnuDC", "Doctors' Note", shown, opens("frmDocNotes")},
             {"mnuDisch", "Doctor's Summary Discharge", shown, opens("frmDischarge")},
             {"mnuOpr", "Operation Notes", shown, opens("frmSurgery")},
         }},
        {"mnuBilling",
         "Billing",
         hidden,
         {
             {"mnuGenBill", "Generate Bill on Discharge", shown, opens("frmBillService")},
             {"mnuDAN", " Collate/Verify Bill", shown, nothing},
             {"mnuBillCorp", "Billing for Corporate", shown, nothing},
             {"mnuVerify", "Verify Patient Bill", shown, nothing},
             {"mnuPI", "Print Invoice", shown, nothing},
             {"mnuCollate", "Collate Bill", shown, nothing},
             {"mnuReceipt", "Issue Receipt", shown, nothing},
             {"mnuDashBill", "-", shown, nothing},
             {"mnuSIE", "Service Item Entry", shown, opens("frmStockItems")},
             {"mnuSPE", "Service Price Entry", shown, opens("frmDrugPrice")},
         }},
        {"mnuTariff",
         "Tariff",
         hidden,
         {
             {"mnuDrugs", "Drugs", shown, opens("frmDrugPriceHMO")},
             {"mnuInv", "Investigations", shown, opens("frmLabPriceHMO")},
             {"mnuServ", "Services", shown, opens("frmServPriceHMO")},
         }},
        {"mnuVSF",
         "View",
         hidden,
         {
             {"mnuEditFind", "Find", shown, nothing},
             {"mnuVSII", "Patient Information", shown, nothing},
             {"mnuRemnd", "Reminders", shown, opens("frmReminder")},
         }},
        {"mnuReport",
         "&Report",
         shown,
         {
             {"mnuPCOA", "Patients Currently on Admission", shown, runs(&MdiVorel::mnuPCOA_Click)},
             {"mnuVit", "Vital Signs for Today", shown, runs(&MdiVorel::mnuVit_Click)},
             {"mnuConDetl", "Consultation Details by Date Range", shown, opens("rptPanelCon")},
             {"mnuRptSI", "New Births for Today", hidden, runs(&MdiVorel::mnuRptSI_Click)},
             {"mnuRptSB", "Admissions for Today", shown, runs(&MdiVorel::mnuRptSB_Click)},
             {"mnuDischT", "Discharge for Today", shown, runs(&MdiVorel::mnuDischT_Click)},
             {"mnuLab", "Lab Result", shown, opens("FrmRptSummQRV")},
             {"mnuDashInc", "-", shown, nothing},
             {"mnuANCAD", "ANC && Delivery", shown, opens("rptPanelNursing")},
             {"mnuMRpts", "More Reports....", shown, opens("rptPanelWardRound")},
         }},
        {"mnuSec",
         "Security",
         shown,
         {
             {"mnuChg", "Change Password", shown, opens("frmChngPwd")},
         }},
        {"mnuWindow",
         "&Window",
         shown,
         {
             {"mnuWindowTV", "Tile Vertical", shown, runs(&MdiVorel::mnuWindowTV_Click)},
             {"mnuWindowTH", "Tile Horizontal", shown, runs(&MdiVorel::mnuWindowTH_Click)},
             {"mnuWindowCascade", "Cascade", shown, runs(&MdiVorel::mnuWindowCascade_Click)},
         }},
    };
    return menu;
}

std::vector<std::string> screensOfMenu() {
    std::set<std::string> screens{"frmFlash", "frmFlashExpire", "frmComments", "frmCommentsView"};
    for (const auto& heading : mainMenu())
        for (const auto& entry : heading.entries)
            if (!entry.action.screen.empty()) screens.insert(entry.action.screen);
    return {screens.begin(), screens.end()};
}

}  // namespace shell
