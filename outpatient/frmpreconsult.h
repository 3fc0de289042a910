#pragma once

#include <array>
#include <chrono>
#include <string>

#include "core/entries.h"
#include "core/form.h"
#include "ui/controls.h"

namespace outpatient {

/// The nurse's first station for an out-patient: takes the vital signs of an attendance and passes it to a doctor.
/// Every reading is stored as the text that was typed; nothing is computed from it.
class frmPreConsult : public core::Form {
public:
    explicit frmPreConsult(core::Workplace& place);

    void load() override;

    // -- commands --
    ui::Button cmdAdd{*this, "cmdAdd", "Add", [this] { cmdAdd_Click(); }};
    ui::Button cmdEdit{*this, "cmdEdit", "Edit", [this] { cmdEdit_Click(); }};
    ui::Button cmdDel{*this, "cmdDel", "Delete", [this] { cmdDel_Click(); }};
    ui::Button cmdRefresh{*this, "cmdRefresh", "Refresh", [this] { cmdRefresh_Click(); }};
    ui::Button OKButton{*this, "OKButton", "Save", [this] { OKButton_Click(); }};
    ui::Button cmdCancel{*this, "cmdCancel", "Cancel", [this] { cmdCancel_Click(); }};
    ui::Button cmdPresc{*this, "cmdPresc", "View Prescription", [this] { desktop().showModal("frmPatList"); }};
    ui::Button cmdANC{*this, "cmdANC", "AnteNatal Information", [this] { cmdANC_Click(); }};
    ui::Button CancelButton{*this, "CancelButton", "Close", [this] { desktop().unload(name()); }};

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

    // -- the readings --
    ui::TextBox txtTemp{*this, "txtTemp", ui::decimalOnly};
    ui::TextBox txtPressure{*this, "txtPressure", ui::decimalOnly};
    ui::TextBox txtPressure2{*this, "txtPressure2", ui::digitsOnly};
    ui::TextBox txtPause{*this, "txtPause", ui::decimalOnly};  ///< the pulse
    ui::TextBox txtResp{*this, "txtResp", ui::decimalOnly};
    ui::TextBox txtHt{*this, "txtHt", ui::decimalOnly};
    ui::TextBox txtWt{*this, "txtWt", ui::decimalOnly};
    ui::TextBox txtSPO2{*this, "txtSPO2"};
    ui::TextBox txtRBS{*this, "txtRBS"};
    ui::ComboBox cboPosition{*this, "cboPosition"};
    ui::TextBox txtAlb{*this, "txtAlb"};
    ui::TextBox txtSugar{*this, "txtSugar"};
    ui::TextBox txtRem{*this, "txtRem"};  ///< shown and never stored

    // -- where the patient goes --
    ui::ComboBox CboRef{*this, "CboRef", ui::ComboBox::Style::listOnly};  ///< the doctor
    ui::ComboBox cboType{*this, "cboType"};                               ///< the clinic

    // -- the lists --
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::DataGrid grdDoc{*this, "grdDoc"};
    ui::DataGrid grdData{*this, "grdData"};
    ui::Timer Timer1{*this, "Timer1", std::chrono::seconds(30), true, [this] { Timer1_Timer(); }};

private:
    enum class Mode { browsing, adding, editing };

    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDel_Click();
    void cmdRefresh_Click();
    void cmdCancel_Click() { browse(); }
    void cmdANC_Click();
    void OKButton_Click();
    void chkAll_Click();
    void cboVehNo_Click();
    void grdDoc_DblClick();
    void Timer1_Timer();

    void enter(Mode mode);
    void browse();
    void clearFields();
    void clearPatient();
    void showToday() { dtDate.setValue(place().now().date()); }
    void showPatient(const std::string& entry);
    void loadReadings();

    void fillPositions();
    void fillDoctors();
    void fillClinics();
    void fillWaiting();
    void refreshGrid();
    void refreshQueue();

    [[nodiscard]] bool complete();
    [[nodiscard]] bool usedByDoctor() const;
    void addReadings();
    void correctReadings();
    void save();
    void passToDoctor();
    [[nodiscard]] core::Cells readings() const;
    [[nodiscard]] core::Cells chartedReadings(const db::Value& id, const db::Value& date, db::DateTime time) const;

    const std::array<ui::TextBox*, 12> texts_{&txtTemp, &txtPressure, &txtPressure2, &txtPause, &txtResp,  &txtHt,
                                              &txtWt,   &txtSPO2,     &txtRBS,       &txtAlb,   &txtSugar, &txtRem};
    Mode mode_ = Mode::browsing;
    std::string consultID_;   ///< of the patient picked
    std::string retainID_;    ///< his client
    std::string retainCode_;  ///< the code under which his client is billed
    std::string recordID_;    ///< of the row under correction
};

}  // namespace outpatient
