#pragma once

#include <optional>
#include <string>

#include "core/forms/entrygrid.h"
#include "core/forms/form.h"
#include "core/forms/period.h"
#include "core/forms/waitinglist.h"
#include "outpatient/shared/itemchoice.h"

namespace outpatient {

/// "Add Injections & Dressing for Charting": items of a prescription that a nurse puts on the chart by hand. Nothing is
/// charged for them here.
class frmInjAndDress : public core::Form {
public:
    explicit frmInjAndDress(core::Workplace& place);

    void load() override;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    // -- the prescription --
    core::Period period{*this};
    ui::Button cmdList{*this, "cmdList", "&Get List"};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    core::WaitingList waiting;
    ui::Label lblPatient{*this, "lblPatient"};  ///< the name
    ui::Label lblNo{*this, "lblNo"};            ///< the system number
    ui::Label lblCon{*this, "lblCon"};          ///< the consult number
    ui::Label lblClient{*this, "lblClient"};    ///< the client category
    ui::Label lblCoy{*this, "lblCoy"};          ///< the client
    ui::Label lblAge{*this, "lblAge"};          ///< years
    ui::Label lblRem{*this, "lblRem"};          ///< the clinic; "ADMISSION" for the wards
    ui::TextBox txtDosage{*this, "txtDosage"};  ///< the treatment that the doctors ordered

    // -- a line, and the lines --
    ui::CheckBox chkDress{*this, "chkDress", "&Tick here to Add Dressing Item"};
    ItemChoice item;
    ui::TextBox txtNum{*this, "txtNum", ui::digitsOnly};  ///< how often the item is to be given
    ui::TextBox txtUsage{*this, "txtUsage"};
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::Button cmdAdd{*this, "cmdAdd", "&Add to Grid"};
    core::EntryGrid OrderGrid{*this, "OrderGrid", "Item|Category|No Of Times|Usage"};

    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdIgnore{*this, "cmdIgnore", "&Dispose if Entry is NOT Drug"};
    ui::Button cmdStock{*this, "cmdStock", "View Consultation &History"};
    ui::Button cmdCost{*this, "cmdCost", "View &Lab Result"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void showPatients(const db::Sql& prescriptions);
    void showToday();
    void showPeriod();
    void openPatient();
    void clearPatient();
    void clearLine();
    void cmdAdd_Click();
    void OKButton_Click();
    /// Puts the lines on the chart. Throws db::Error.
    void chart();
    void cmdIgnore_Click();
    void openHistory();

    std::string conID_;  ///< of the prescription picked; "" while none is
};

}  // namespace outpatient
