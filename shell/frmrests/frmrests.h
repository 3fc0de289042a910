#pragma once

#include <string>

#include "core/forms/fields.h"
#include "core/forms/form.h"

namespace shell {

/// "Patient Rest": one row a death in the hospital. A patient who has a row is corrected, another gets one.
class frmRests : public core::Form {
public:
    explicit frmRests(core::Workplace& place);

    void load() override;

    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};  ///< the patient's system number
    ui::ComboBox txtAge{*this, "txtAge"};                                     ///< in words
    ui::DatePicker dtDate{*this, "dtDate"};                                   ///< of rest
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};
    ui::ComboBox cboCat{*this, "cboCat", ui::ComboBox::Style::listOnly};        ///< the ward
    ui::ComboBox cboCause{*this, "cboCause"};                                   ///< the reason
    ui::ComboBox cboReason{*this, "cboReason", ui::ComboBox::Style::listOnly};  ///< who certified it: an empID
    ui::DatePicker dtDisch{*this, "dtDisch"};                                   ///< when the body left the ward
    ui::TextBox txtRem{*this, "txtRem"};
    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override { return fields_.keeping(column); }

private:
    void cboVehNo_Click();
    void OKButton_Click();
    void write();
    void clear();
    [[nodiscard]] bool editing() const noexcept { return !editedPNo_.empty(); }

    core::Fields fields_;
    core::Cells untouched_;  ///< what each field holds as long as the nurse has not filled it in herself
    std::string editedPNo_;  ///< the patient whose row is corrected; "" for a new row
};

}  // namespace shell
