#pragma once

#include <string>

#include "core/forms/form.h"

namespace inpatient {

/// "View Local (Read Only)": the local copy of a daily report.
class frmViewLocal : public core::Form {
public:
    /// `text` is what the screen that opens this one has read.
    frmViewLocal(core::Workplace& place, const std::string& text);

    ui::TextBox txtAdmin{*this, "txtAdmin"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};
};

}  // namespace inpatient
