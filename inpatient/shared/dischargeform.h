#pragma once

#include <optional>
#include <string>

#include "core/forms/recordform.h"
#include "core/rows/cells.h"
#include "inpatient/shared/stays.h"

namespace inpatient {

/// The end of a stay, as a doctor or a nurse writes it; both tables have the same columns.
struct Discharge {
    db::Value date;
    db::Value time;
    std::string ward;
    std::string reason;
    std::string remarks;
    db::Value approvedBy;  ///< an empID
    db::Value nextVisit;   ///< the day of the next appointment
};
/// The cells that a correction writes too.
core::Cells dischargeCells(const Discharge& discharge);

/// Whose discharge it is.
struct DischargedVisit {
    std::string pno;
    std::string consultID;
    std::string category;
};
core::Cells visitCells(const DischargedVisit& visit);

/// A discharge of one stay: its list, the patient picked from it, and what is written of him.
class DischargeForm : public core::RecordForm {
public:
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblBill{*this, "lblBill"};      ///< the consult number
    ui::Label lblClient{*this, "lblClient"};  ///< the client category
    ui::Label lblWard{*this, "lblWard"};
    ui::Label lblNo{*this, "lblNo"};
    ui::Label lblDays{*this, "lblDays"};  ///< the days in the ward
    ui::Label lblDate{*this, "lblDate"};  ///< the day of admission
    ui::Label lblCoy{*this, "lblCoy"};    ///< the client
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TextBox txtREason{*this, "txtREason"};
    ui::TextBox txtRem{*this, "txtRem"};

protected:
    /// `client` is the column of qryhAdmission that names the client; `emptyTitle` what stands over an empty form.
    DischargeForm(core::Workplace& place, std::string name, std::string caption, const char* client,
                  const char* emptyTitle);

    /// Said of a stay that has gone.
    static constexpr const char* noConsultation = "No Consultation No!!! Discharge Not Allowed ";

    /// Offers the patients whom a statement finds in the wards. Throws db::Error.
    void offer(const db::Sql& stays);
    /// A patient was picked for a new discharge: shows the stay, or nobody's. Throws db::Error.
    virtual void picked();
    void entered(Mode mode) override;
    void startEditing() override;
    void afterSave() override;
    void finished() override;
    void clear() override;

    [[nodiscard]] const std::string& consultID() const noexcept { return consultID_; }
    [[nodiscard]] DischargedVisit visit() const { return {lblNo.caption(), consultID_, lblClient.caption()}; }
    /// What the form holds, apart from who approved it and the next appointment.
    [[nodiscard]] Discharge discharge() const;

private:
    StayLabels labels_;
    const char* emptyTitle_;
    std::string consultID_;  ///< of the stay picked, or of the row under correction
    std::string written_;    ///< that of the discharge saved last
};

}  // namespace inpatient
