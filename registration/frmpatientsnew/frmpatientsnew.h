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
    void clinicPicked() override;
    void clinicCleared() override { forgetDoctors(); }
    void purposePicked() override;
    [[nodiscard]] core::Cells kinshipCells() const override;
    void TakeAttendance() override;
    void writeBehindNewPatient() override;
    void showList() override;
    void refresh() override;
    void finished() override;

private:
    void cmdPatDep_Click();
    void cmdPix_Click();
    bool roomsAreAssigned();
    void offerDoctors();
    void forgetDoctors();
    void SuggestDoctor();
    bool locked();
    void cboDoc_Click();
    void grdDoc_DblClick();
    void refreshQueues();
    void showQueues();
    void forgetPastRooms();
    void writeVisit();
    void addBalance();
    void anotherDependant();

    std::string principalPNo_;  ///< of the dependant that is added
    std::string assignedDoctorId_;
    std::string assignedDoctorName_;
};

}  // namespace registration
