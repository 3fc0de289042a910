#pragma once

#include <string>

#include "core/forms/form.h"
#include "core/forms/period.h"

namespace inpatient {

/// "Patient Info Recall": takes a nurse's discharge back. The doctor's stands, with all dates: a nurse can discharge
/// the patient again at once.
class frmRecover : public core::Form {
public:
    explicit frmRecover(core::Workplace& place);

    void load() override;

    core::Period days{*this};  ///< the days of the discharges that are offered
    ui::Button cmdPat{*this, "cmdPat", "&Get Patients"};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Button cmdRecall{*this, "cmdRecall", "Re&call Patient"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void fillDischarged();
    void cmdRecall_Click();
    void lookForReferral(const std::string& consultID);
    [[nodiscard]] bool recall(const std::string& consultID);
};

}  // namespace inpatient
