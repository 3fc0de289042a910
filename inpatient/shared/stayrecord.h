#pragma once

#include <string>

#include "core/forms/recordform.h"
#include "inpatient/shared/stays.h"

namespace inpatient {

/// A record about one patient, picked from a list for a new one: whose it is, and the visit that it belongs to.
class StayRecord : public core::RecordForm {
public:
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblNo{*this, "lblNo"};          ///< the system number
    ui::Label lblBill{*this, "lblBill"};      ///< the consult number
    ui::Label lblClient{*this, "lblClient"};  ///< the client category

protected:
    /// `emptyTitle` stands over an empty form.
    StayRecord(core::Workplace& place, std::string name, std::string caption, const char* emptyTitle = "Patient :");

    /// What the visit of a picked entry is read from; by itself the stay in the wards. Throws db::Error.
    virtual db::Recordset visitOf(const std::string& consultID);
    /// A patient was picked for a new record: shows the visit, or nobody's. Throws db::Error.
    virtual void picked();
    /// Shows whose row is under correction; `entry` is the patient's.
    void showPatient(const std::string& fullName, const std::string& entry);
    /// Nobody was picked, or one whose stay has ended meanwhile.
    [[nodiscard]] bool nobody() const { return blank(cboVehNo) || blank(lblBill); }

    void entered(Mode mode) override;
    void clear() override;

    /// Of the patient picked last, whose records the list shows.
    [[nodiscard]] const std::string& consultID() const noexcept { return consultID_; }

private:
    const char* emptyTitle_;
    StayLabels labels_{{&lblBill, "consultID"}, {&lblClient, "clientCat"}, {&lblNo, "PNo"}};
    std::string consultID_;
};

}  // namespace inpatient
