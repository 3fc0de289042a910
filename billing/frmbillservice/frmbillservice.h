#pragma once

#include <string>

#include "core/care/staff.h"
#include "core/forms/entrygrid.h"
#include "core/forms/form.h"
#include "core/rows/cells.h"

namespace billing {

/// "Admission Billing (Services)": adds the drugs, tests and services that a patient in the wards was given to the
/// account of the visit, and shows what stands on it. A line that is saved stays: the billing module makes the bill.
class frmBillService : public core::Form {
public:
    explicit frmBillService(core::Workplace& place);

    void load() override;

    // -- the patient --
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};  ///< all patients in the wards
    ui::Label lblTitle{*this, "lblTitle"};                                    ///< the patient's name
    ui::Label lblNo{*this, "lblNo"};                                          ///< the system number
    ui::Label lblBill{*this, "lblBill"};                                      ///< the consult number
    ui::Label lblClient{*this, "lblClient"};                                  ///< the client category
    ui::Label lblCoy{*this, "lblCoy"};                                        ///< the client
    ui::Label lblAge{*this, "lblAge"};
    ui::Label lblWard{*this, "lblWard"};
    ui::Label lblDate{*this, "lblDate"};  ///< admitted on
    ui::Label lblDays{*this, "lblDays"};  ///< days in the ward
    ui::Label lblFFS{*this, "lblFFS"};    ///< whether the patient pays by service, "YES" or "NO"
    core::NurseOnDuty cboReason;
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TextBox txtPresc{*this, "txtPresc"};  ///< what the doctors did during the visit

    // -- the line in preparation --
    ui::ComboBox cboCat{*this, "cboCat", ui::ComboBox::Style::listOnly};  ///< "DRUG", "LAB", "SERVICE"
    ui::ComboBox cboDrug{*this, "cboDrug"};                               ///< the item
    ui::Label lblCat{*this, "lblCat"};                                    ///< the item's category
    ui::TextBox txtPrice{*this, "txtPrice"};                              ///< of a unit, in naira
    ui::Label lblSource{*this, "lblSource"};                              ///< where the price came from
    ui::TextBox txtQty{*this, "txtQty"};
    ui::TextBox txtSub{*this, "txtSub"};  ///< of the line that is being added; nobody computes it before
    ui::TextBox txtUsage{*this, "txtUsage"};
    ui::ComboBox cboCap{*this, "cboCap", ui::ComboBox::Style::listOnly};  ///< capitated, "YES" or "NO"
    ui::Button cmdAdd{*this, "cmdAdd", "A&dd to Grid"};

    // -- the account --
    core::EntryGrid OrderGridDrug{
        *this, "OrderGridDrug",
        "Item|Category|Price|No Of Units|Sub Total|Usage|Capitated|EntryType|Status|BillTo|CoyName"};
    ui::Label lblGen{*this, "lblGen", "0"};        ///< charged in all, in naira
    ui::Label lblBilled{*this, "lblBilled", "0"};  ///< of it on the bill
    ui::Label lblPaid{*this, "lblPaid", "0"};
    ui::Label lblTotal{*this, "lblTotal", "0"};  ///< of the lines added

    ui::Button cmdBill{*this, "cmdBill", "Generate &Bill"};
    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdCancel{*this, "cmdCancel", "Cance&l"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button cmdStock{*this, "cmdStock", "Correct Drug Price from Billing &Manual"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    /// The columns of the grid.
    enum Column : std::size_t {
        item,
        category,
        price,
        units,
        subTotal,
        usage,
        capitated,
        entryType,
        status,
        billTo,
        coyName
    };

    // -- the screen's two states --
    void cmdBill_Click();
    void cmdCancel_Click();
    void cmdRefresh_Click();
    void showBilling(bool billing);
    void enableInputs(bool enabled);
    void clear();
    void showName(const std::string& name);

    // -- the visit and its account (opening.cpp) --
    void cboVehNo_Click();
    void leaveVisit();
    void showStay(const db::Recordset& stay);
    void showTreatment(const std::string& consultID);
    void openAccount(db::Recordset& consultations);
    void normaliseLines();
    void showLines();
    void showTotals();

    // -- the line in preparation (line.cpp) --
    void cboCat_Click();
    void cboDrug_Click();
    void cmdAdd_Click();
    void addLine();
    void clearLine();
    void OrderGridDrug_DblClick();
    [[nodiscard]] bool noPatient() const;

    // -- the save (save.cpp) --
    void OKButton_Click();
    void store();
    [[nodiscard]] core::Cells capitation() const;
    [[nodiscard]] double number(std::size_t line, Column column) const;

    std::string name_;         ///< the patient's
    std::string pno_;          ///< of the visit opened last
    std::string retainID_;     ///< the client of the visit opened last
    double runningTotal_ = 0;  ///< in naira; a nurse's tally from patient to patient, which nothing is stored from
};

}  // namespace billing
