#pragma once

#include <string>

#include "core/forms/form.h"

namespace shell {

/// "Prompts": the lists of what is due. A list can be chosen where the main window has found somebody on it.
class frmReminder : public core::Form {
public:
    explicit frmReminder(core::Workplace& place);

    void load() override;

    ui::Button cmdExpected{*this, "cmdExpected", "&Expected Deliveries"};
    ui::Button cmdPending{*this, "cmdPending", "&Pending Discharges"};
    ui::Button cmdReorder{*this, "cmdReorder", "&Balances Due"};
    ui::Label lblShow{*this, "lblShow"};  ///< which list shows
    ui::DataGrid dGexp{*this, "dGexp"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void shows(ui::Button& button, db::Sql (*list)(), const std::string& title);
};

}  // namespace shell
