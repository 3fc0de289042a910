#pragma once

#include "registration/registrationform.h"

namespace registration {

/// " Registration": the nurses' way of taking a patient in and booking the visit in the same stroke. Everyone may take
/// the attendance here, fewer fields are asked for, and the visit's fee reaches the bill.
class frmPatientsNewNur : public RegistrationForm {
public:
    explicit frmPatientsNewNur(core::Workplace& place) : RegistrationForm(place, "frmPatientsNewNur", " Registration") {
        cmdSys.setCaption("System No");
    }

protected:
    [[nodiscard]] std::vector<Check> checks() override;
    [[nodiscard]] bool mayTakeAttendance() const override { return true; }
    void cboClin_Click() override;
    [[nodiscard]] ConsultPrice consultPrice() const override { return ConsultPrice::service; }
    void categoryPicked() override;
    [[nodiscard]] db::Recordset search(SearchKind kind, const std::string& text) override;
    [[nodiscard]] const char* sysPrompt() const override {
        return "To locate a patient, Enter Patient Sys No and click 'System No' Button";
    }
    [[nodiscard]] core::Cells kinshipCells() const override;
    void TakeAttendance() override;
    void writeBehindNewPatient() override;
    void cmdPatDep_Click() override;
    void cmdPix_Click() override;
    [[nodiscard]] const char* deleteRefusal() const override {
        return "You dont have Permission to Reverse a Receipt Entry";
    }

private:
    [[nodiscard]] double purposeAmount() const;
    [[nodiscard]] double registrationAmount() const;
    void addBalance();
    void referNewborn();
};

}  // namespace registration
