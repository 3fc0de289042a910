#pragma once

#include <string>

#include "core/forms/period.h"
#include "core/forms/recordform.h"

namespace inpatient {

/// "Patient Admission": brings a referred patient to a ward. On the pick the screen says what the rules of deposit and
/// stay limit found; a refusal there does not stop a save.
class frmAdmission : public core::RecordForm {
public:
    explicit frmAdmission(core::Workplace& place);

    // -- who --
    core::Period days{*this};  ///< the days of the referrals that are offered
    ui::Button cmdList{*this, "cmdList", "&Get Patient List"};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblNo{*this, "lblNo"};
    ui::Label lblClient{*this, "lblClient"};  ///< the client category
    ui::Label lblBill{*this, "lblBill"};      ///< the consult number
    ui::Label lblDoc{*this, "lblDoc"};        ///< who referred the patient
    ui::Label lblRules{*this, "lblRules"};    ///< what deposit and limit came to

    // -- the stay --
    ui::ComboBox cboWard{*this, "cboWard", ui::ComboBox::Style::listOnly};
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};
    ui::Label lblLimit{*this, "lblLimit"};  ///< when the stay runs out, as it is stored
    ui::DatePicker dtAdmitLimit{*this, "dtAdmitLimit"};
    ui::DatePicker dtAdmitLimitTime{*this, "dtAdmitLimitTime", ui::DatePicker::Format::time};
    ui::TextBox txtDiag{*this, "txtDiag"};
    ui::TextBox txtREason{*this, "txtREason"};
    ui::TextBox txtRem{*this, "txtRem"};

protected:
    void fillLists() override;
    void showList() override;
    void entered(Mode mode) override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] bool maySave() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override;
    void clear() override;
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void fillReferrals();
    void cboVehNo_Click();
    void showReferral(const db::Recordset& referral);
    void clearPatient();

    // The rules of the pick.
    [[nodiscard]] bool depositPaid();
    [[nodiscard]] bool findLimit();
    [[nodiscard]] bool limitFromRecord();
    void limitOfStay();
    void limitInHours(int hours);
    void showLimit(const db::DateTime& limit, const std::string& rule);
    void noticeExpiry();

    [[nodiscard]] core::Cells cells();
    void addStay();
    void correctStay();

    std::string consultID_;  ///< of the referral picked, or of the row under correction
    std::string doctor_;     ///< the empID of who referred the patient
    int conID_ = 0;
    std::string written_;  ///< the consultID of the stay saved last
};

}  // namespace inpatient
