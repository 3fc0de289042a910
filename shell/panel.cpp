#include "shell/mdivorel.h"

namespace shell {
namespace {

/// Which entry of a screen names the patient that a comment would be about.
struct PatientEntry {
    std::string_view screen;
    std::string_view control;
};
constexpr PatientEntry patientEntries[] = {
    {"frmMedChart", "lstPat"},
    {"frmConsultingAdmission", "lstPat"},
    {"frmPreConsult", "cboVehNo"},
    {"frmPreConsultAdm", "LstDate"},
};

const PatientEntry* patientEntryOf(const ui::Screen& screen) {
    for (const auto& entry : patientEntries)
        if (entry.screen == screen.name()) return &entry;
    return nullptr;
}

std::string textOf(const ui::Control* control) {
    if (const auto* combo = dynamic_cast<const ui::ComboBox*>(control)) return combo->text();
    if (const auto* list = dynamic_cast<const ui::ListBox*>(control)) return list->text();
    if (const auto* box = dynamic_cast<const ui::TextBox*>(control)) return box->text();
    return {};
}

}  // namespace

void MdiVorel::cmdComm_Click() {
    const ui::Screen* child = desktop().activeChild();
    if (!child) return message("No Patient Name is Selected");
    const PatientEntry* entry = patientEntryOf(*child);
    if (!entry) return message("Comment Not Applicable for this Page");
    if (textOf(child->find(entry->control)).empty()) return message("Select a Patient Name");
    desktop().showModal("frmComments");
}

void MdiVorel::Picture1_DblClick() {
    session().gPatientHasBalance = !session().gPatientHasBalance;
    if (session().gPatientHasBalance) {
        desktop().hide("frmFlash");
        desktop().show("frmFlash");
    } else {
        Picture1.setBackColor(calm);
        desktop().hide("frmFlash");
    }
    switchWatch(session().gPatientHasBalance);
}

void MdiVorel::switchWatch(bool on) {
    for (ui::Timer* timer : {&Timer1, &tmrMDI, &tmrSound, &tmrNotify}) timer->setRunning(on);
    session().gWatchTimersOn = on;
}

}  // namespace shell
