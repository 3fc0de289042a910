#pragma once

#include <string>

#include "inpatient/shared/stayrecord.h"

namespace inpatient {

/// "Nurses' Report on Individual Patients": the running notes on one patient, in the wards or of today's out-patients.
/// `gNoteScope` says which of them a nurse came for.
class frmNurseNote : public StayRecord {
public:
    explicit frmNurseNote(core::Workplace& place);

    void showing() override;

    ui::ComboBox cboDept{*this, "cboDept", ui::ComboBox::Style::listOnly};  ///< "IPD" or "OPD"
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TextBox txtRem{*this, "txtRem"};      ///< the note
    ui::TextBox txtPresc{*this, "txtPresc"};  ///< what the doctors prescribed; a new note keeps it
    ui::TextBox txtPlan{*this, "txtPlan"};    ///< what they plan

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
    void clear() override;

private:
    db::Recordset visitOf(const std::string& consultID) override;
    void picked() override;
    void offerPatients();
    void showOrders();
    [[nodiscard]] bool outPatients() const { return cboDept.text() == "OPD"; }

    std::string sno_;  ///< of the row under correction, then of the row written
};

}  // namespace inpatient
