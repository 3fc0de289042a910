#pragma once

#include "registration/registrationform.h"

namespace registration {

/// "Patient Attendance / Registration": the master record of a patient, and for the front desk the attendance taken
/// with it, with its locks and the doctors' queues.
class frmPatientsNew : public RegistrationForm {
public:
    explicit frmPatientsNew(core::Workplace& place);

    ui::ComboBox cboDoc{*this, "cboDoc", ui::ComboBox::Style::listOnly};
    ui::DataGrid grdDoc{*this, "grdDoc"};
    ui::Timer Timer1{*this, "Timer1", std::chrono::seconds(30), true, [this] { refreshQueues(); }};

protected:
    [[nodiscard]] std::vector<Check> checks() override;
    [[nodiscard]] bool mayTakeAttendance() const override { return session().gModuleRole == "RECORDS"; }
    void cboClin_Click() override;
    [[nodiscard]] ConsultPrice consultPrice() const override { return ConsultPrice::client; }
    void purposePicked() override;
    [[nodiscard]] db::Recordset search(SearchKind kind, const std::string& text) override;
    [[nodiscard]] const char* sysPrompt() const override {
        return "To locate a patient, Enter Patient Tel No and click 'Tel No' Button";
    }
    [[nodiscard]] core::Cells kinshipCells() const override;
    void TakeAttendance() override;
    void writeBehindNewPatient() override;
    void cmdPatDep_Click() override;
    void cmdPix_Click() override;
    [[nodiscard]] const char* deleteRefusal() const override { return "You dont have Permission to Reverse an Entry"; }
    void clearClinic() override;
    void showQueues() override;
    void saveFinished() override;

private:
    bool roomsAreAssigned();
    void offerDoctors();
    void forgetDoctors();
    void SuggestDoctor();
    bool locked();
    void cboDoc_Click();
    void grdDoc_DblClick();
    void refreshQueues();
    void writeVisit();
    void addBalance();
    void anotherDependant();

    std::string assignedDoctorId_;
    std::string assignedDoctorName_;
};

}  // namespace registration
