#pragma once

#include <string>

#include "inpatient/shared/stayrecord.h"

namespace inpatient {

/// A record that the ward keeps for a doctor, who need not be the one signed in.
class DoctorsRecord : public StayRecord {
public:
    ui::ComboBox cboReason{*this, "cboReason", ui::ComboBox::Style::listOnly};  ///< the doctor

protected:
    DoctorsRecord(core::Workplace& place, std::string name, std::string caption, const char* emptyTitle = "Patient :");

    void fillLists() override;
    void startAdding() override;
    void clear() override;
    /// The empID of the doctor chosen.
    [[nodiscard]] std::string doctor() const;
    /// Shows the doctor of a row under correction, also one who has left the department.
    void showDoctor(const std::string& name, const std::string& empID);
};

}  // namespace inpatient
