#pragma once

#include <string>

#include "inpatient/shared/dischargeform.h"

namespace inpatient {

/// "Patient Summary Discharge : Nurses": the nurse's half, which ends a stay that a doctor has discharged.
class frmDischargeForNuse : public DischargeForm {
public:
    explicit frmDischargeForNuse(core::Workplace& place);

protected:
    void showList() override;
    void startAdding() override;
    void startEditing() override;
    void picked() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] bool maySave() override { return confirmed("Are you sure to Discharge this Patient", "Discharge"); }
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override { return std::nullopt; }
    [[nodiscard]] std::optional<core::Refusal> erase() override;

private:
    [[nodiscard]] core::Cells cells() const;
    [[nodiscard]] bool dischargedByDoctor();
    void endStay();
};

}  // namespace inpatient
