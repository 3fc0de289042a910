#pragma once

#include <optional>
#include <string>

#include "core/forms/doseboxes.h"
#include "core/forms/form.h"
#include "core/forms/waitinglist.h"
#include "outpatient/shared/openitems.h"

namespace outpatient {

/// "OPD Medication Monitor": what each out-patient still has to be given, and each dose as it is given. One tick is one
/// dose; each save is a row of its own and charges the fee of an injection.
class frmNurseInjection : public core::Form, public OpenItems {
public:
    explicit frmNurseInjection(core::Workplace& place);

    void load() override;
    void showing() override;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }
    void refreshPatients() override;

    // -- the patient --
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    core::WaitingList waiting;
    ui::Label lblPatient{*this, "lblPatient"};  ///< the name
    ui::Label lblNo{*this, "lblNo"};            ///< the system number
    ui::Label lblCon{*this, "lblCon"};          ///< the consult number
    ui::Label lblClient{*this, "lblClient"};    ///< the client category
    ui::Label lblCoy{*this, "lblCoy"};          ///< the client

    // -- an item --
    ui::ListBox LstDate{*this, "LstDate"};      ///< what is still to be given
    ui::Label lblName{*this, "lblName"};        ///< the item
    ui::Label lblUsage{*this, "lblUsage"};      ///< how it is to be given
    ui::TextBox txtDosage{*this, "txtDosage"};  ///< the treatment that the doctors ordered
    ui::TextBox txtNum{*this, "txtNum"};        ///< the doses in all
    ui::Label lblTaken{*this, "lblTaken"};      ///< the doses given, with those ticked now
    ui::Label lblCNum{*this, "lblCNum"};        ///< the doses ticked now
    ui::DatePicker dtDate{*this, "dtDate"};     ///< when they are given
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};
    core::DoseBoxes doses;

    ui::DataGrid grdData{*this, "grdData"};  ///< what was given

    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
    ui::Button cmdUpd{*this, "cmdUpd", "&Update where Necessary"};
    ui::Button cmdPresc{*this, "cmdPresc", "&View Prescription"};
    ui::Button cmdPat{*this, "cmdPat", "&No Patient to Chart?, Add one "};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void listPatients();
    void openPatient();
    void clearPatient();
    void showItems();
    void showGiven();
    void LstDate_Click();
    void openItem();
    void clearItem();
    void counted();
    void OKButton_Click();
    /// Charts the ticked doses of the item. True when it is given in full. Throws db::Error.
    bool chart();
    void cmdUpd_Click();
    void cmdPresc_Click();

    bool refilling_ = false;
    std::string conID_;  ///< of the patient picked; "" while none is
};

}  // namespace outpatient
