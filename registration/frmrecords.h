#pragma once

#include <chrono>
#include <string>

#include "billing/billlines.h"
#include "core/form.h"
#include "registration/clientpick.h"
#include "registration/patientsearch.h"
#include "registration/visits.h"

namespace registration {

/// "ATTENDANCE FOR TODAY :": takes the visit of a patient who comes again, and corrects the day's visits. Neither an
/// admission, nor a debt, nor an earlier visit of the day is in the way of one.
class frmRecords : public core::Form {
public:
    explicit frmRecords(core::Workplace& place);

    void load() override;
    void unload() override;

    // -- commands --
    ui::Button cmdAdd{*this, "cmdAdd", "&Add", [this] { cmdAdd_Click(); }};
    ui::Button cmdEdit{*this, "cmdEdit", "&Edit", [this] { cmdEdit_Click(); }};
    ui::Button cmdDel{*this, "cmdDel", "&Delete", [this] { cmdDel_Click(); }};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh", [this] { cmdRefresh_Click(); }};
    ui::Button OKButton{*this, "OKButton", "&Save", [this] { OKButton_Click(); }};
    ui::Button cmdCancel{*this, "cmdCancel", "&Cancel", [this] { cmdCancel_Click(); }};
    ui::Button cmdRenew{*this, "cmdRenew", "Rene&w card", [this] { cmdRenew_Click(); }};
    ui::Button CancelButton{*this, "CancelButton", "Close", [this] { close(); }};

    // -- finding --
    ui::TextBox txtName{*this, "txtName"};
    ui::Button cmdOK{*this, "cmdOK", "By &Name", [this] { find(SearchKind::name); }};
    ui::Button cmdCard{*this, "cmdCard", "Card No", [this] { find(SearchKind::cardNo); }};
    ui::Button cmdSys{*this, "cmdSys", "System No", [this] { find(SearchKind::sysNo); }};
    ui::Label lblFound{*this, "lblFound"};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};  ///< the patients found

    // -- the patient --
    ui::Label lblTitle{*this, "lblTitle"};  ///< the name
    ui::Label lblNo{*this, "lblNo"};        ///< the system number
    ui::Label lblOld{*this, "lblOld"};      ///< the card's number
    ui::Label lblOccup{*this, "lblOccup"};
    ui::Label lblPolicy{*this, "lblPolicy"};
    ui::Label lblExpire{*this, "lblExpire"};  ///< the card's last day; a renewal writes the new one here
    ui::Picture imgPix{*this, "imgPix"};

    // -- the visit --
    ui::ComboBox cboType{*this, "cboType", ui::ComboBox::Style::listOnly};  ///< the clinic
    ui::ComboBox cboPurpose{*this, "cboPurpose"};
    ui::ComboBox cboPat{*this, "cboPat", ui::ComboBox::Style::listOnly};        ///< the client
    ui::ComboBox cboClient{*this, "cboClient", ui::ComboBox::Style::listOnly};  ///< the billing category
    ui::ComboBox txtPolicy{*this, "txtPolicy"};                                 ///< the plan
    ui::TextBox txtEmp{*this, "txtEmp"};
    ui::ComboBox CboRef{*this, "CboRef", ui::ComboBox::Style::listOnly};  ///< fee for service
    ui::ComboBox cboRefHmo{*this, "cboRefHmo", ui::ComboBox::Style::listOnly};
    ui::Label lblBill{*this, "lblBill"};  ///< the visit's number
    ui::DatePicker dtDate{*this, "dtDate"};

    // -- the lists --
    ui::DataGrid grdData{*this, "grdData"};
    ui::DataGrid grdDoc{*this, "grdDoc"};
    ui::Timer Timer1{*this, "Timer1", std::chrono::seconds(30), true, [this] { Timer1_Timer(); }};

private:
    enum class Mode { browsing, adding, editing };

    // Commands and lists.
    void bindEvents();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDel_Click();
    void cmdRefresh_Click();
    void cmdCancel_Click();
    void cmdRenew_Click();
    void Timer1_Timer();
    void enter(Mode mode);
    void browse();
    void clearForm();
    void clearPatient();
    void fillLists();
    void showToday();
    void refreshQueue();

    // Finding and picking.
    void find(SearchKind kind);
    void search(SearchKind kind);
    void cboVehNo_Click();
    void pickPatient(const core::Entry& entry);
    void showPatient(const db::Recordset& patient);
    void takeClient(const std::string& retainID, const std::string& name, const std::string& category);
    void checkCard();
    [[nodiscard]] bool cardHasExpired() const;
    void cboPat_Click();
    void cboType_Click();
    void cboPurpose_Click();
    void takeFound();
    void correctVisit();
    void showVisit();
    void showQuietly(ui::ComboBox& list, const std::string& text);

    // Saving.
    void OKButton_Click();
    [[nodiscard]] bool complete();
    void saveCorrection();
    void saveNew();
    bool drawNumber();
    [[nodiscard]] billing::ServiceLine billLine(const std::string& name, const std::string& revType) const;
    void addRenewalFee();
    void addAttendanceLine();
    void keepPatientInStep(const db::Literal& hmoRef);
    void saved(const std::string& says);
    [[nodiscard]] Visit visit() const;

    std::string pno_;       ///< of the patient picked
    std::string retainID_;  ///< the client of the visit, and what picking him settled
    std::string clientName_;
    std::string category_;
    std::string clientType_;
    ClientPick client_;
    Mode mode_ = Mode::browsing;
    std::string recID_;            ///< of the row under correction
    std::string renewedPNo_;       ///< whose card was sent to be renewed: the fee is his
    bool pickFromSearch_ = false;  ///< the grid shows patients: a double click picks one
    bool filling_ = false;         ///< the screen shows what is stored: its picks ask nothing
};

}  // namespace registration
