#pragma once

#include "registration/shared/registrationform/registrationform.h"

namespace registration {

/// "Patient Attendance / Registration": the master record of a patient, and for the front desk the attendance taken
/// with it, with its locks and the doctors' queues.
class frmPatientsNew : public RegistrationForm {
public:
    explicit frmPatientsNew(core::Workplace& place);

    ui::ComboBox cboDoc{*this, "cboDoc", ui::ComboBox::Style::listOnly};
    ui::DataGrid grdDoc{*this, "grdDoc"};
    ui::Timer Timer1{*this, "Timer1", std::chrono::seconds(30)};

protected:
    [[nodiscard]] std::vector<core::Check> checksOfPatient() override;
    [[nodiscard]] bool mayTakeAttendance() const override;
    void cboClin_Click() override;
    void purposePicked() override;
    [[nodiscard]] db::Recordset search(SearchKind kind, const std::string& text) override;
    [[nodiscard]] core::Cells kinshipCells() const override;
    void TakeAttendance() override;
    void writeBehindNewPatient() override;
    void cmdPatDep_Click() override;
    void cmdPix_Click() override;
    void clearClinic() override;
    void refreshQueues() override;
    void finished() override;

private:
    bool roomsAreAssigned();
    void offerDoctors();
    void forgetDoctors();
    void SuggestDoctor();
    bool locked();
    void cboDoc_Click();
    void grdDoc_DblClick();
    void showQueues();
    void forgetPastRooms();
    void writeVisit();
    void addBalance();
    void anotherDependant();

    std::string assignedDoctorId_;
    std::string assignedDoctorName_;
};

}  // namespace registration
