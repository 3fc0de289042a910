#pragma once

#include <string>

#include "inpatient/shared/doctorsrecord.h"
#include "inpatient/shared/lastvitals.h"

namespace inpatient {

/// "Doctors' Report": dated notes on a patient in the wards, written down in a doctor's name.
class frmDocNotes : public DoctorsRecord {
public:
    explicit frmDocNotes(core::Workplace& place);

    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TextBox txtRem{*this, "txtRem"};      ///< the notes
    ui::TextBox txtPresc{*this, "txtPresc"};  ///< the prescription; begins as the visit's latest ones
    LastVitals vitals{*this};

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

    std::string sno_;  ///< of the row under correction, then of the row written
};

}  // namespace inpatient
