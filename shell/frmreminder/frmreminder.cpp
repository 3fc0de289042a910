#include "shell/frmreminder/frmreminder.h"

#include "shell/duelists.h"

namespace shell {

using ui::Event;

frmReminder::frmReminder(core::Workplace& place) : Form(place, "frmReminder", "Prompts") {
    dGexp.setVisible(false);  // until a list is chosen: an empty grid would say that nothing is due
    shows(cmdExpected, expectedDeliveries, "Expectant Mothers due for delivery");
    shows(cmdPending, babiesToDischarge, "New babies due for discharge");
    shows(cmdReorder, balancesDue, "Balance due for payment");
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmReminder::load() {
    const auto* due = dynamic_cast<const DueFlags*>(desktop().main());
    cmdExpected.setEnabled(due && due->deliveryDue());
    cmdPending.setEnabled(due && due->dischargeDue());
    cmdReorder.setEnabled(due && due->balanceDue());
}

void frmReminder::shows(ui::Button& button, db::Sql (*list)(), const std::string& title) {
    bind(button, Event::click, [this, list, title] {
        dGexp.bind(hospital().readShared(list()));
        dGexp.setVisible(true);
        lblShow.setCaption(title);
    });
}

}  // namespace shell
