#pragma once

#include <vector>

#include "core/forms/form.h"
#include "ui/checklist.h"

namespace inpatient {

/// "Admission List": clears those who left long ago and still stand on the list of the wards, many at once. Their dates
/// stay as they were.
class frmDischargeListOverdue : public core::Form {
public:
    explicit frmDischargeListOverdue(core::Workplace& place);

    void load() override;

    ui::CheckList lstPat{*this, "lstPat"};
    ui::Label lblProgress{*this, "lblProgress"};
    ui::Button cmdAll{*this, "cmdAll", "Select &All"};
    ui::Button cmdDeSelect{*this, "cmdDeSelect", "Dese&lect All"};
    ui::Button cmdProcess{*this, "cmdProcess", "Re&move"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void showPatients();
    void tickAll(bool ticked, const char* whenEmpty);
    void cmdProcess_Click();
    void discharge(const std::vector<ui::ListItem>& patients);
};

}  // namespace inpatient
