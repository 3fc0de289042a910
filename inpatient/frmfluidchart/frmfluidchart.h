#pragma once

#include <string>

#include "core/forms/recordform.h"
#include "inpatient/shared/stays.h"

namespace inpatient {

/// "Fluid Chart": the hourly lines of what a patient took in and put out, and what they come to on one date. A line
/// belongs to the date on the screen: there is no split at midnight, and no balance.
class frmFluidChart : public core::RecordForm {
public:
    explicit frmFluidChart(core::Workplace& place);

    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Label lblTitle{*this, "lblTitle", "Patient :"};
    ui::Label lblNo{*this, "lblNo"};
    ui::Label lblBill{*this, "lblBill"};      ///< the consult number
    ui::Label lblClient{*this, "lblClient"};  ///< the client category
    ui::DatePicker dtDate{*this, "dtDate"};

    ui::ComboBox cboTime{*this, "cboTime", ui::ComboBox::Style::listOnly};  ///< the hour of the chart
    ui::ComboBox cboIntake{*this, "cboIntake", ui::ComboBox::Style::listOnly};
    ui::TextBox txtInOthers{*this, "txtInOthers"};             ///< the fluid
    ui::TextBox txtInVol{*this, "txtInVol", ui::decimalOnly};  ///< ml
    ui::ComboBox cboOutput{*this, "cboOutput", ui::ComboBox::Style::listOnly};
    ui::TextBox txtOutOthers{*this, "txtOutOthers"};
    ui::TextBox txtOutVol{*this, "txtOutVol", ui::decimalOnly};  ///< ml

    ui::Label lblIntVol{*this, "lblIntVol", "0"};  ///< the intake of the date, ml
    ui::Label lblOutVol{*this, "lblOutVol", "0"};
    ui::Button cmdChart{*this, "cmdChart", "&View Chart"};

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
    void refresh() override;
    [[nodiscard]] ui::Control& restingPlace() override { return cboVehNo; }
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void cboVehNo_Click();
    void cmdChart_Click();
    void showTotals();

    StayLabels labels_{{&lblBill, "consultID"}, {&lblClient, "clientCat"}, {&lblNo, "PNo"}};
    std::string sno_;  ///< of the line under correction, then of the line written
};

}  // namespace inpatient
