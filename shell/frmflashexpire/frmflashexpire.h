#pragma once

#include <string>

#include "core/forms/form.h"

namespace shell {

/// The stays of scheme patients that have run out, and the only place where a stay is extended. The server's clock
/// says what has run out; a stay without a limit is extended from the workstation's date, at midnight.
class frmFlashExpire : public core::Form {
public:
    explicit frmFlashExpire(core::Workplace& place);

    void load() override;

    ui::DataGrid dGexp{*this, "dGexp"};
    ui::Label lblName{*this, "lblName"};
    ui::Label lblNo{*this, "lblNo"};    ///< the patient's system number
    ui::Label lblCon{*this, "lblCon"};  ///< the stay's consult number
    ui::Label lblAdmDate{*this, "lblAdmDate"};
    ui::Label lblTime{*this, "lblTime"};
    ui::Label lblLimit{*this, "lblLimit"};                    ///< when the stay ran out: "24-Nov-2026 09:30"
    ui::TextBox txtLimit{*this, "txtLimit", ui::digitsOnly};  ///< hours, 1 to 32767
    ui::Button cmdUpdate{*this, "cmdUpdate", "&Update"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    /// An extension that has been worked out.
    struct Extension {
        int hours = 0;
        std::string until;
    };

    void chooseStay();
    void dGexp_DblClick();
    void txtLimit_GotFocus();
    void cmdUpdate_Click();
    /// Throws db::Error where the hours do not fit 16 bits, and without a stay.
    [[nodiscard]] Extension extension() const;
    void extend(const Extension& extension);
    void clearStay();
    [[nodiscard]] db::Recordset expiredStays();
};

}  // namespace shell
