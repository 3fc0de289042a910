#pragma once

#include <string>

#include "core/care/staff.h"
#include "core/forms/recordform.h"
#include "inpatient/shared/stays.h"
#include "ui/checklist.h"

namespace inpatient {

/// "Allergic Reaction/Anaphylaxis Record": one reaction of a patient in the ward: what preceded it, its signs, and what
/// was done.
class frmAllergy : public core::RecordForm {
public:
    explicit frmAllergy(core::Workplace& place);

    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblNo{*this, "lblNo"};
    ui::Label lblBill{*this, "lblBill"};      ///< the consult number
    ui::Label lblClient{*this, "lblClient"};  ///< the client category
    ui::Label lblWard{*this, "lblWard"};
    ui::Label lblDays{*this, "lblDays"};  ///< the days in the ward
    ui::Label lblDate{*this, "lblDate"};  ///< age and birth date
    ui::Label lblCoy{*this, "lblCoy"};    ///< the client

    ui::DatePicker dtDate{*this, "dtDate"};
    ui::ComboBox cboEvent{*this, "cboEvent"};                              ///< what preceded the reaction
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};  ///< of the reaction
    ui::DatePicker dtDoc{*this, "dtDoc", ui::DatePicker::Format::time};    ///< of the doctor's coming
    core::NurseOnDuty cboCat;
    ui::ComboBox cboDoc{*this, "cboDoc", ui::ComboBox::Style::listOnly};
    ui::CheckList LstDate{*this, "LstDate"};        ///< the signs, while a reaction is added
    ui::TextBox txtSymptoms{*this, "txtSymptoms"};  ///< the signs as they are stored, one a line
    ui::TextBox txtOther{*this, "txtOther"};
    ui::TextBox txtRem{*this, "txtRem"};
    ui::TextBox txtNote{*this, "txtNote"};

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
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void cboVehNo_Click();
    void fillSigns();
    void gatherSigns();
    void showTitle(const std::string& name);
    [[nodiscard]] std::string signs() const;

    StayLabels labels_;
    std::string consultID_;  ///< whose reactions the list shows
    std::string sno_;        ///< of the row under correction, then of the row written
};

}  // namespace inpatient
