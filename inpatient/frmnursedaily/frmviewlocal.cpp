#include "inpatient/frmnursedaily/frmviewlocal.h"

namespace inpatient {

frmViewLocal::frmViewLocal(core::Workplace& place, const std::string& text)
    : Form(place, "frmViewLocal", "View Local (Read Only)") {
    txtAdmin.setText(text);
    txtAdmin.setEnabled(false);
    bind(CancelButton, ui::Event::click, [this] { close(); });
}

}  // namespace inpatient
