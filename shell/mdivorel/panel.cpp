#include "core/session/session.h"
#include "shell/mdivorel/mdivorel.h"

namespace shell {

void MdiVorel::cmdComm_Click() {
    const ui::Screen* child = desktop().activeChild();
    if (!child) return message("No Patient Name is Selected");
    const auto* form = dynamic_cast<const core::Form*>(child);
    const auto patient = form ? form->patientEntry() : std::nullopt;
    if (!patient) return message("Comment Not Applicable for this Page");
    if (patient->empty()) return message("Select a Patient Name");
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
