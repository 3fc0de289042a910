#pragma once

#include <optional>
#include <string>

#include "core/forms/form.h"
#include "core/forms/waitinglist.h"

namespace outpatient {

/// "Dressings": each dressing as it is done, with its own price as its fee. The nurse says which one is the last.
class frmNurseDressing : public core::Form {
public:
    explicit frmNurseDressing(core::Workplace& place);

    void load() override;
    void showing() override;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    core::WaitingList waiting;
    ui::Label lblPatient{*this, "lblPatient"};  ///< the name
    ui::Label lblNo{*this, "lblNo"};            ///< the system number
    ui::Label lblCon{*this, "lblCon"};          ///< the consult number
    ui::Label lblClient{*this, "lblClient"};    ///< the client category
    ui::ListBox LstDate{*this, "LstDate"};      ///< the patient's items that are not done with
    ui::Label lblName{*this, "lblName"};        ///< the item picked
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::DataGrid grdData{*this, "grdData"};  ///< the dressings done
    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void showPatients();
    void openPatient();
    void clearPatient();
    void showItems();
    void showDone();
    void LstDate_Click();
    void OKButton_Click();
    /// The dressing and its fee. Throws db::Error.
    void record();
    /// The item is done with. Throws db::Error.
    void finish(const std::string& item);

    std::string consultID_;  ///< of the patient picked; "" while none is
};

}  // namespace outpatient
