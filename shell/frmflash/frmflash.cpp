#include "shell/frmflash/frmflash.h"

#include "core/rows/grids.h"
#include "core/session/session.h"
#include "shell/waitinglists.h"

namespace shell {

using ui::Event;

frmFlash::frmFlash(core::Workplace& place) : Form(place, "frmFlash", "Nursing Prompt") {
    dGexp.setVisible(false);  // until a list is chosen: an empty grid would say that nobody waits
    bind(cmdDoc, Event::click, &frmFlash::cmdDoc_Click);
    bind(cmdCPC, Event::click, &frmFlash::cmdCPC_Click);
    bind(cmdExam, Event::click, &frmFlash::cmdExam_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmFlash::cmdDoc_Click() {
    showList(patientsWaiting(session().gServerDate), "Nursing Waiting List", {"Surname", "FirstName", "Time"});
}

void frmFlash::cmdCPC_Click() {
    showList(admissionsWaiting(place().now().date()), "Nursing Waiting List", {"Patient", "Time"});
}

void frmFlash::cmdExam_Click() {
    showList(notificationsWaiting(session().gModuleRole, session().gServerDate), "New Drugs for Admitted Patients",
             {"SNo"});
}

void frmFlash::showList(const db::Sql& query, const std::string& title, Key key) {
    auto rows = hospital().readShared(query);
    lblShow.setCaption(rows.empty() ? "---" : title);
    dGexp.setVisible(true);
    if (rows.empty()) return dGexp.clear();
    core::refreshRows(dGexp, std::move(rows), key);
}

}  // namespace shell
