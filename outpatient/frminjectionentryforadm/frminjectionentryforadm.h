#pragma once

#include <optional>
#include <string>

#include "core/forms/entrygrid.h"
#include "core/forms/form.h"
#include "core/forms/waitinglist.h"
#include "core/rows/cells.h"
#include "outpatient/shared/itemchoice.h"

namespace outpatient {

/// "Admission Treatment": a doctor's prescription for a patient in the wards, priced and put on the bill and on the
/// charts. A save charges the doctor's fee once.
class frmInjectionEntryForAdm : public core::Form {
public:
    explicit frmInjectionEntryForAdm(core::Workplace& place);

    void load() override;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    // -- the prescription --
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    core::WaitingList waiting;
    ui::Label lblPatient{*this, "lblPatient"};  ///< the name
    ui::Label lblNo{*this, "lblNo"};            ///< the system number
    ui::Label lblCon{*this, "lblCon"};          ///< the consult number
    ui::Label lblClient{*this, "lblClient"};    ///< the client category
    ui::Label lblCoy{*this, "lblCoy"};          ///< the client
    ui::Label lblAge{*this, "lblAge"};          ///< years
    ui::Label lblRem{*this, "lblRem"};          ///< the clinic; "ADMISSION" for the wards
    ui::Label lblFFS{*this, "lblFFS"};          ///< whether the patient pays by service, "YES" or "NO"
    ui::TextBox txtDosage{*this, "txtDosage"};  ///< the treatment that the doctors ordered
    ui::ComboBox cboReason{*this, "cboReason", ui::ComboBox::Style::listOnly};  ///< the nurses

    // -- the line in preparation --
    ItemChoice item;
    ui::Label lblCat{*this, "lblCat"};        ///< the item's category
    ui::TextBox txtPrice{*this, "txtPrice"};  ///< of a unit, in naira
    ui::Label lblSource{*this, "lblSource"};  ///< where the price came from
    ui::Label lblStock{*this, "lblStock"};    ///< units in stock
    ui::Label lblUnit{*this, "lblUnit"};      ///< what one unit holds
    ui::TextBox txtQty{*this, "txtQty"};      ///< units
    ui::TextBox txtUsage{*this, "txtUsage"};
    ui::Button cmdAdd{*this, "cmdAdd", "&Add to Grid"};

    // -- the lines --
    core::EntryGrid OrderGrid{
        *this, "OrderGrid",
        "-------Drug/Service------|-------Category------|------Price---------|-------------------No Of "
        "Units--------------|-------------------Sub Total------------|Usage|Capitated"};
    ui::Label lblTotal{*this, "lblTotal", "0.00"};  ///< of the lines, in naira
    ui::DatePicker dtDate{*this, "dtDate"};

    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdIgnore{*this, "cmdIgnore", "Exclude &from List"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void showPatients();
    void openPatient();
    void showPatient(const db::Recordset& row);
    void clearPatient();
    void cboDrug_Click();
    void checkStock();
    void clearLine();
    void cmdAdd_Click();
    void showTotal();
    void OKButton_Click();
    /// Bills and charts the lines. Throws db::Error.
    void store();
    void bill(std::size_t line);
    void chart(std::size_t line);
    [[nodiscard]] core::Cells capitation(std::size_t line) const;
    /// The prescription leaves the list. Throws db::Error.
    void takeOffTheList();
    void cmdIgnore_Click();

    std::string conID_;      ///< of the prescription picked; "" while none is
    std::string retainID_;   ///< the patient's client
    std::string capitated_;  ///< of the item priced last
};

}  // namespace outpatient
