#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "core/forms/entrygrid.h"
#include "core/forms/form.h"
#include "core/forms/waitinglist.h"
#include "outpatient/frmimmune/schedule.h"

namespace outpatient {

/// "Immunization": a child's visit, with the vaccines given, which are charged, and the next appointment. What is saved
/// of a visit replaces all that was saved of it before.
class frmImmune : public core::Form {
public:
    explicit frmImmune(core::Workplace& place);

    void load() override;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    // -- the child --
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};
    ui::CheckBox chkAll{*this, "chkAll", "Sho&w All"};
    ui::Label lblPatient{*this, "lblPatient"};  ///< the name
    ui::Label lblNo{*this, "lblNo"};            ///< the system number
    ui::Label lblBill{*this, "lblBill"};        ///< the consult number
    ui::Label lblClient{*this, "lblClient"};    ///< the client category
    ui::Label lblCoy{*this, "lblCoy"};          ///< the client
    ui::Label lblSex{*this, "lblSex"};
    ui::Label lblAge{*this, "lblAge"};  ///< years
    ui::Label lblOccup{*this, "lblOccup"};
    ui::Label lblBlood{*this, "lblBlood"};
    ui::Label lblGeno{*this, "lblGeno"};
    ui::Label lblRem{*this, "lblRem"};  ///< the visit's purpose
    std::deque<ui::TextBox> txtVital;   ///< the vital signs of the visit, each with its unit
    core::WaitingList waiting{place(), *this, cboVehNo};
    ChildSchedule schedule{place(), *this};

    // -- the visit --
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::ComboBox cboAge{*this, "cboAge"};
    ui::TextBox txtRem{*this, "txtRem"};
    ui::CheckBox chkRef{*this, "chkRef", "A next appointment &is wanted"};

    // -- a line --
    ui::ComboBox cboDrug{*this, "cboDrug", ui::ComboBox::Style::listOnly};
    ui::TextBox txtPrice{*this, "txtPrice"};  ///< of one unit, in naira
    ui::Label lblSource{*this, "lblSource"};  ///< where the price came from
    ui::TextBox txtQty{*this, "txtQty"};      ///< units
    ui::Button cmdAddToGrid{*this, "cmdAddToGrid", "Add to &Grid"};
    core::EntryGrid OrderGrid{*this, "OrderGrid",
                              "-------Item/Service------|-------Category------|------Price---------|"
                              "-------------------No Of Units--------------|-------------------Sub Total------------|"
                              "------Capitated------"};
    ui::Label lblTotal{*this, "lblTotal"};

    // -- the next appointment --
    ui::Picture fraAppt{*this, "fraAppt"};
    ui::DatePicker dtNext{*this, "dtNext"};
    ui::DatePicker dtRefTime{*this, "dtRefTime", ui::DatePicker::Format::time};
    ui::Button cmdDate{*this, "cmdDate", "C&hoose Date"};
    ui::TextBox txtImm{*this, "txtImm"};  ///< the vaccine that is given then

    // -- what was saved --
    ui::TextBox txtSearch{*this, "txtSearch"};
    ui::DataGrid grdData{*this, "grdData"};
    ui::Button cmdDel{*this, "cmdDel", "&Delete"};
    ui::Button cmdPrint{*this, "cmdPrint", "&Print Immunization History by Patient"};

    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdCancel{*this, "cmdCancel", "&Clear"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    static constexpr const char* clinic = "IMMUNIZATION";
    enum Column : std::uint8_t { item, category, price, units, subTotal, capitated };

    void fillWaiting();
    void clear();
    void clearVisit();

    // -- a child, or a saved visit (opening.cpp) --
    void cboVehNo_Click();
    void openVisit(const std::string& consultID);
    void showSchedule(const ScheduledChild& child);
    void clearPatient();
    void showPatient(const db::Recordset& visit);
    void showVitals(const db::Recordset& readings);
    void grdData_DblClick();
    void showAppointment(const db::Recordset& next);
    void showItems(db::Recordset& lines);
    void showRows();
    void search();

    // -- a line --
    void cboDrug_Click();
    void cmdAddToGrid_Click();
    void takeLineBack();
    void clearLine();
    void showTotal();

    // -- saving (save.cpp) --
    void OKButton_Click();
    [[nodiscard]] std::vector<core::Check> checks();
    void write();
    void writeLines();
    [[nodiscard]] std::string itemNames() const;
    void writeAppointment();
    void cmdDel_Click();
    void deleteVisit(const std::string& consultID);

    void cmdDate_Click();
    void cmdPrint_Click();

    std::string consultID_;     ///< of the visit opened last
    std::string company_;       ///< its client, a retainID
    std::string phone_;         ///< the patient's
    std::string itemCategory_;  ///< of the vaccine picked
    int searchTurn_ = 0;
};

}  // namespace outpatient
