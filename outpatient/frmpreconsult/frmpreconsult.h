#pragma once

#include <chrono>
#include <string>

#include "core/care/lastreadings.h"
#include "core/care/vitalreadings.h"
#include "core/forms/recordform.h"

namespace outpatient {

/// The nurse's first station for an out-patient: takes the vital signs of an attendance and passes it to a doctor.
class frmPreConsult : public core::RecordForm {
public:
    explicit frmPreConsult(core::Workplace& place);

    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    ui::Button cmdPresc{*this, "cmdPresc", "View Prescription"};
    ui::Button cmdANC{*this, "cmdANC", "AnteNatal Information"};

    // -- the patient --
    ui::Label Label5{*this, "Label5", "Vital Signs"};  ///< whose readings these are
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::CheckBox chkAll{*this, "chkAll", "Show All"};
    ui::Label lblNo{*this, "lblNo"};  ///< the patient's system number
    ui::Label lblCardNo{*this, "lblCardNo"};
    ui::Label lblBill{*this, "lblBill"};  ///< the consult number
    ui::Label lblCat{*this, "lblCat"};
    ui::Label lblAge{*this, "lblAge"};
    ui::Label lblSex{*this, "lblSex"};
    ui::Label lblRem{*this, "lblRem"};  ///< the attendance's remark

    core::VitalReadings readings{*this};
    core::LastReadings last{*this};
    ui::TextBox txtAlb{*this, "txtAlb"};
    ui::TextBox txtSugar{*this, "txtSugar"};
    ui::TextBox txtRem{*this, "txtRem"};  ///< shown and never stored

    // -- where the patient goes --
    ui::ComboBox CboRef{*this, "CboRef", ui::ComboBox::Style::listOnly};  ///< the doctor
    ui::ComboBox cboType{*this, "cboType"};                               ///< the clinic

    // -- the doctors' queue --
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::DataGrid grdDoc{*this, "grdDoc"};
    ui::Timer Timer1{*this, "Timer1", std::chrono::seconds(30)};

protected:
    void fillLists() override;
    void showList() override;
    void entered(Mode mode) override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override { return std::nullopt; }
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    void clear() override;
    void refresh() override;
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void cmdANC_Click();
    void chkAll_Click();
    void cboVehNo_Click();
    void grdDoc_DblClick();

    void clearPatient();
    void showToday() { dtDate.setValue(place().now().date()); }
    void showPatient(const std::string& entry);

    void fillWaiting();
    void refreshQueue();

    [[nodiscard]] bool usedByDoctor();
    void addReadings();
    void correctReadings();
    void passToDoctor();
    [[nodiscard]] core::Cells cells();

    std::string consultID_;   ///< of the patient picked
    std::string retainID_;    ///< his client
    std::string retainCode_;  ///< the code under which his client is billed
    std::string recordID_;    ///< of the row under correction, then of the row written
};

}  // namespace outpatient
