#pragma once

#include <chrono>
#include <string>

#include "billing/billlines.h"
#include "core/forms/recordform.h"
#include "core/rows/entries.h"
#include "registration/shared/clientpick.h"
#include "registration/shared/searchbox.h"
#include "registration/shared/visits.h"

namespace registration {

/// "ATTENDANCE FOR TODAY :": takes the visit of a patient who comes again, and corrects the day's visits. Neither an
/// admission, nor a debt, nor an earlier visit of the day is in the way of one. The list shows the day's visits, or
/// the patients found.
class frmRecords : public core::RecordForm {
public:
    explicit frmRecords(core::Workplace& place);

    void load() override;
    void unload() override;

    ui::Button cmdRenew{*this, "cmdRenew", "Rene&w card"};

    SearchBox finder{place(), *this, SearchKind::sysNo, [this](SearchKind kind) { find(kind); }};
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
    ClientPick client;
    ui::Label lblBill{*this, "lblBill"};  ///< the visit's number
    ui::DatePicker dtDate{*this, "dtDate"};

    // -- the doctors' queue --
    ui::DataGrid grdDoc{*this, "grdDoc"};
    ui::Timer Timer1{*this, "Timer1", std::chrono::seconds(30)};

protected:
    void fillLists() override;
    void showList() override;
    void entered(Mode mode) override;
    void startAdding() override;
    [[nodiscard]] std::optional<core::Refusal> mayEdit() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void undone() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override;
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    void erased() override;
    void clear() override;
    void cancelled() override { showList(); }
    void refresh() override;
    [[nodiscard]] ui::Control& restingPlace() override { return finder.txtName; }
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void openRow();
    void cmdRenew_Click();
    void clearPatient();
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
    void showVisit();
    void showQuietly(ui::ComboBox& list, const std::string& text);

    // Saving.
    void writeCorrection();
    [[nodiscard]] std::optional<core::Refusal> writeNew();
    [[nodiscard]] bool drawNumber();
    [[nodiscard]] billing::ServiceLine billLine(const std::string& name, const std::string& revType) const;
    void addRenewalFee();
    void addAttendanceLine();
    void keepPatientInStep();
    [[nodiscard]] Visit visit() const;

    std::string pno_;       ///< of the patient picked
    std::string retainID_;  ///< the client of the visit, and what picking him settled
    std::string clientName_;
    std::string category_;
    std::string clientType_;
    std::string recID_;            ///< of the row under correction
    std::string written_;          ///< the number of the visit that was saved last
    std::string renewedPNo_;       ///< whose card was sent to be renewed: the fee is his
    bool pickFromSearch_ = false;  ///< the list shows patients: a double click picks one
    bool filling_ = false;         ///< the screen shows what is stored: its picks ask nothing
};

}  // namespace registration
