#pragma once

#include <string>

#include "inpatient/shared/dischargeform.h"

namespace inpatient {

/// "Doctors : Patient Summary Discharge": the doctor's half of a discharge. The patient stays in the ward until a nurse
/// has written hers.
class frmDischarge : public DischargeForm {
public:
    explicit frmDischarge(core::Workplace& place);

    ui::ComboBox cboCat{*this, "cboCat", ui::ComboBox::Style::listOnly};  ///< the approving doctor
    ui::DatePicker dtAppt{*this, "dtAppt"};                               ///< the next appointment

protected:
    void fillLists() override;
    void showList() override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void clear() override;

private:
    void fillPatients();
    void cboCat_Click();
    void showDoctor(const std::string& empID);
    [[nodiscard]] core::Cells cells() const;
};

}  // namespace inpatient
