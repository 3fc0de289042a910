#pragma once

#include <deque>
#include <string>

#include "inpatient/shared/doctorsrecord.h"

namespace inpatient {

/// "Operation Notes": one long form for an operation, from the indication to the procedure. The list shows all
/// operations of the patient, of any admission.
class frmSurgery : public DoctorsRecord {
public:
    explicit frmSurgery(core::Workplace& place);

    ui::DatePicker dtRegDate{*this, "dtRegDate"};
    ui::TabStrip SSTab1{
        *this, "SSTab1", {"Operation", "Urine and stool", "Blood", "X-ray and ECG", "Findings and procedure"}};
    std::deque<ui::TextBox> txtFields;    ///< "txtFields(0)" to "txtFields(36)", everything in capital letters
    ui::Label lblAsOf{*this, "lblAsOf"};  ///< since when the list holds what was saved

protected:
    void fillLists() override;
    void showList() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    void clear() override;

private:
    void picked() override;

    std::string pno_;       ///< whose operations the list shows
    std::string recordID_;  ///< of the row under correction, then of the row written
};

}  // namespace inpatient
