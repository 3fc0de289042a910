#pragma once

#include <string>

#include "core/care/referral.h"
#include "core/forms/period.h"
#include "core/forms/recordform.h"

namespace inpatient {

/// "Admission / Referals": asks for a consulted patient's admission, or sends him on to another clinic. A referral is
/// kept with its twin among the appointments.
class frmReferalEdit : public core::RecordForm {
public:
    explicit frmReferalEdit(core::Workplace& place);

    // -- who --
    core::Period days{*this};  ///< the days of the consultations that are offered
    ui::Button cmdPat{*this, "cmdPat", "&Get Patient List"};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblNo{*this, "lblNo"};
    ui::Label lblClient{*this, "lblClient"};  ///< the client category
    ui::TextBox txtGen{*this, "txtGen"};      ///< the diagnosis; shown and never stored

    // -- the referral --
    ui::CheckBox chkAll{*this, "chkAll", "Sh&ow All"};
    ui::ComboBox CboRef{*this, "CboRef", ui::ComboBox::Style::listOnly};
    ui::DatePicker dtDate{*this, "dtDate"};  ///< when it is made
    ui::DatePicker dtNext{*this, "dtNext"};  ///< for when it is
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};
    ui::TextBox txtREason{*this, "txtREason"};

protected:
    void fillLists() override;
    void showList() override;
    void entered(Mode mode) override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] bool maySave() override { return confirmed("Are you sure to save?", "About to save"); }
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override { return std::nullopt; }
    [[nodiscard]] std::string eraseTitle() const override { return "Delete from Clinic"; }
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    void clear() override;

private:
    void cboVehNo_Click();
    void fillClinics();
    void fillPatients();
    void showPatient(const std::string& name);
    [[nodiscard]] std::string clinic() const;
    void addReferral(const core::Cells& referral, const core::Cells& appointment);
    void correctReferral(const core::Cells& referral, const core::Cells& appointment);

    std::string consultID_;  ///< of the patient picked
    std::string written_;    ///< that of the referral saved last
    std::string patient_;    ///< his name
};

}  // namespace inpatient
