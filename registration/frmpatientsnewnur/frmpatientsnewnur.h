#pragma once

#include "registration/shared/registrationform/registrationform.h"

namespace registration {

/// " Registration": the nurses' way of taking a patient in and booking the visit in the same stroke. Everyone may take
/// the attendance here, fewer fields are asked for, and the visit's fee reaches the bill.
class frmPatientsNewNur : public RegistrationForm {
public:
    explicit frmPatientsNewNur(core::Workplace& place);

protected:
    [[nodiscard]] std::vector<core::Check> checksOfPatient() override;
    void clinicPicked() override;
    void categoryPicked() override;
    [[nodiscard]] core::Cells kinshipCells() const override;
    void TakeAttendance() override;
    void writeBehindNewPatient() override;

private:
    void cmdPatDep_Click();
    void cmdPix_Click();
    [[nodiscard]] double purposeAmount() const;
    [[nodiscard]] double registrationAmount();
    void addBalance();
    void referNewborn();
};

}  // namespace registration
