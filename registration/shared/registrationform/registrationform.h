#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/forms/recordform.h"
#include "core/rows/cells.h"
#include "core/session/workplace.h"
#include "registration/shared/clientpick.h"
#include "registration/shared/patientsearch.h"
#include "registration/shared/photograph.h"
#include "registration/shared/purposes.h"

namespace registration {

/// The registration of a patient, as the front desk's screen and the nurses' screen share it: one record, its search,
/// its client, photograph and dependants. In what the two differ is one of their ways, or of the virtual members below.
class RegistrationForm : public core::RecordForm {
public:
    ui::TabStrip SSTab1{*this, "SSTab1", {"Find", "Contacts and kin", "Attendance"}};

    // -- finding --
    ui::TextBox txtName{*this, "txtName"};
    ui::Button cmdOK{*this, "cmdOK", "By &Name"};
    ui::Button cmdCard{*this, "cmdCard", "Card No"};
    ui::Button cmdSys{*this, "cmdSys", "Tel No"};
    ui::Label lblFound{*this, "lblFound"};

    // -- the patient --
    ui::ComboBox cboNew{*this, "cboNew", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboTitle{*this, "cboTitle"};
    ui::TextBox txtsurNAme{*this, "txtsurNAme", ui::upperCase};
    ui::TextBox txtfirstNAme{*this, "txtfirstNAme", ui::upperCase};
    ui::ComboBox txtSex{*this, "txtSex", ui::ComboBox::Style::listOnly};
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TextBox txtAge{*this, "txtAge"};
    ui::TextBox txtSupp{*this, "txtSupp"};
    ui::TextBox txtOLD{*this, "txtOLD"};
    ui::ComboBox cboPat{*this, "cboPat", ui::ComboBox::Style::freeText, ui::upperCase};
    ui::ComboBox cboClient{*this, "cboClient", ui::ComboBox::Style::listOnly};
    ui::CheckBox chkAll{*this, "chkAll", "Show All"};
    ui::ComboBox txtPolicy{*this, "txtPolicy"};
    ui::TextBox txtEmp{*this, "txtEmp"};
    ui::ComboBox cboCard{*this, "cboCard", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboFile{*this, "cboFile", ui::ComboBox::Style::listOnly};
    ui::DatePicker dtRegDate{*this, "dtRegDate"};
    ui::DatePicker dtExpDate{*this, "dtExpDate"};
    ui::ComboBox CboRef{*this, "CboRef", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboRefHmo{*this, "cboRefHmo", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboArea{*this, "cboArea"};
    ui::TextBox txtAdmitLimit{*this, "txtAdmitLimit", ui::decimalOnly};
    ui::Label lblDebtCap{*this, "lblDebtCap", "Carry Over Debt"};
    ui::Label lblDebt{*this, "lblDebt", "0"};
    ui::TextBox txtPix{*this, "txtPix"};
    ui::Picture imgPix{*this, "imgPix"};
    ui::Button cmdPix{*this, "cmdPix", "P&hotograph..."};

    // -- contacts and kin --
    ui::TextBox txtPhone{*this, "txtPhone", ui::digitsOnly};
    ui::ComboBox cboMat{*this, "cboMat", ui::ComboBox::Style::listOnly};
    ui::TextBox txtHomeAddress{*this, "txtHomeAddress"};
    ui::TextBox txtOfficeAddress{*this, "txtOfficeAddress"};
    ui::TextBox txtEmail{*this, "txtEmail"};
    ui::ComboBox cboMStatus{*this, "cboMStatus", ui::ComboBox::Style::listOnly};
    ui::ComboBox txtBG{*this, "txtBG", ui::ComboBox::Style::listOnly};
    ui::ComboBox txtGeno{*this, "txtGeno", ui::ComboBox::Style::listOnly};
    ui::TextBox txtOccu{*this, "txtOccu"};
    ui::ComboBox cboStatus{*this, "cboStatus", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboIntro{*this, "cboIntro"};
    ui::TextBox txtKin{*this, "txtKin"};
    ui::TextBox txtNOKPhone{*this, "txtNOKPhone"};
    ui::ComboBox txtKinRel{*this, "txtKinRel"};
    ui::TextBox txtKinAddress{*this, "txtKinAddress"};

    // -- the attendance at registration --
    ui::CheckBox chkReg{*this, "chkReg", "Automatic &Attendance"};
    ui::Picture fraAttd{*this, "fraAttd"};
    ui::ComboBox cboClin{*this, "cboClin", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboPurpose{*this, "cboPurpose"};
    ui::DatePicker dtNext{*this, "dtNext"};
    ui::DatePicker dtRefTime{*this, "dtRefTime", ui::DatePicker::Format::time};
    ui::Button cmdAttend{*this, "cmdAttend", "Past &visits"};
    ui::DataGrid grdAttend{*this, "grdAttend"};

    ui::Button cmdRenew{*this, "cmdRenew", "Rene&w card"};
    ui::Button cmdPatDep{*this, "cmdPatDep", "Depen&dant"};
    ui::Button cmdPlan{*this, "cmdPlan", "&Plan..."};
    ui::Button cmdANC{*this, "cmdANC", "Ante&natal"};
    ui::Button cmdComm{*this, "cmdComm", "C&onsultations"};

    void load() override;
    void unload() override;

protected:
    /// In what the two screens differ, where a word says it.
    struct Ways {
        SearchKind numberSearch;    ///< what the third search button looks for
        ConsultPrice consultPrice;  ///< where the price of a consultation comes from
        const char* deleteRefusal;  ///< what is said to who may not delete
    };
    RegistrationForm(core::Workplace& place, std::string name, std::string caption, const Ways& ways);

    // -- where the two screens differ --
    /// The checks of a save, in their order.
    [[nodiscard]] virtual std::vector<core::Check> checksOfPatient() = 0;
    /// Whether this session may take an attendance along with a registration.
    [[nodiscard]] virtual bool mayTakeAttendance() const = 0;
    virtual void cboClin_Click() = 0;
    /// What a purpose does beyond its routing.
    virtual void purposePicked() {}
    /// What picking a billing category sets beyond the lists.
    virtual void categoryPicked() {}
    [[nodiscard]] virtual db::Recordset search(SearchKind kind, const std::string& text) = 0;
    /// `Principal` and `pCatID` of a new patient.
    [[nodiscard]] virtual core::Cells kinshipCells() const = 0;
    /// The visit of a save with `chkReg` ticked, inside its transaction.
    virtual void TakeAttendance() = 0;
    /// What a new patient's save writes behind the row, the visit's number and the visit.
    virtual void writeBehindNewPatient() = 0;
    virtual void cmdPatDep_Click() = 0;
    virtual void cmdPix_Click() = 0;
    /// Takes the clinic's pick back, and what hangs on it.
    virtual void clearClinic() { cboClin.clearText(); }
    /// Lists that stand beside the patients'.
    virtual void refreshQueues() {}
    /// After a save: another dependant, or an empty form.
    void finished() override { clear(); }

    // -- the steps of a record screen --
    void fillLists() override;
    void showList() override;
    void startAdding() override;
    [[nodiscard]] std::optional<core::Refusal> mayEdit() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] bool maySave() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void afterSave() override;
    void undone() override;
    void failed() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override;
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    void erased() override;
    void clear() override;
    void refresh() override;
    [[nodiscard]] ui::Control& restingPlace() override { return txtName; }
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

    // -- what both work with --
    [[nodiscard]] bool isPrivate() const { return client_.isPrivate(); }
    [[nodiscard]] std::string fullName() const;
    /// A name as it is stored: without brackets, which mark keys in lists.
    [[nodiscard]] static std::string storedName(const std::string& typed);
    void choosePhotograph() { photograph_.choose(); }
    void clearPhotograph() { photograph_.clear(); }
    /// Whether the running search is the quick one while typing, which is limited to `gSearchValue` rows; 0 is no
    /// limit.
    [[nodiscard]] bool limitedSearch() const;
    void ShowTodaysRegistrations();
    void routeThePurpose();
    /// Refuses a private patient's clinic without a card's date, or with one that has passed; false then.
    bool cardIsGood();
    /// `billAccum`'s line for a fee of this patient and visit; further cells as the fee has them.
    void addFee(const std::string& name, double amount, const std::string& revType, const core::Cells& further);
    /// The fee of a client's row ("RegAmount", "CardRenewAmount"), rounded to 2 places; 0 for none.
    [[nodiscard]] double clientFee(const db::Sql& sql, std::string_view column);
    /// The class of a fee: a general one is the card's type.
    [[nodiscard]] std::string feeClass(const std::string& patientClass) const;
    /// The cells of a visit's row that both screens write.
    [[nodiscard]] core::Cells visitCells() const;
    /// The appointment of a visit for "APPOINTMENT".
    void writeAppointment();

    bool dependantMode_ = false;
    std::string currentPNo_;
    std::string consultId_;
    std::string principalPNo_;
    std::string patCatLoaded_;
    std::string defaultClass_ = "(GENERAL)";

private:
    struct Reference {
        std::string code, name;
    };

    // Lists and picks.
    void bindEvents();
    void placeOnPages();
    void fillFixedLists();
    void pickClinic();
    void LoadLookups();
    void reloadLookups();
    void cboPat_Click();
    void cboClient_Click();
    void cboCard_Click();
    void cboFile_Click();
    void cboMat_Click();
    void cboIntro_Click();
    void chkReg_Click();
    void chkAll_Click();
    void dtDate_Change();
    void txtAge_Change();
    void txtAge_LostFocus();
    void lblDebt_DblClick();

    // Finding.
    void findPatient(SearchKind kind);
    void showSearch(SearchKind kind);
    void txtName_Change();
    void grdData_DblClick();
    void LoadPatientFromGrid();
    void fillFromGrid();
    void showClientOfRow();
    void showIntroducer(const std::string& empId);
    void forgetVisit();
    void txtsurNAme_LostFocus();
    void cmdAttend_Click();

    // Commands.
    void cmdRenew_Click();
    void cmdPlan_Click();
    void cmdANC_Click();
    void cmdComm_Click();

    // Saving.
    [[nodiscard]] std::optional<core::Refusal> writeEdited();
    [[nodiscard]] std::optional<core::Refusal> writeNew();
    [[nodiscard]] core::Cells patientCells() const;
    [[nodiscard]] core::Cells newPatientCells() const;
    bool NewPatientNumber();
    bool NewConsultId();
    void PostCardRenewalFee();
    void auditEdit();
    void queueMessage(const std::string& extra);

    Ways ways_;
    Photograph photograph_;
    ClientPick client_;
    Reference old_;             ///< the client as it was loaded
    std::string cardBefore_;    ///< what a save that is undone gives back
    double balanceBefore_ = 0;  ///< likewise, naira
    std::string introducedById_;
    bool rowLoading_ = false;  ///< a row is being shown: its picks fill in no defaults
    bool typingAge_ = false;   ///< the birth date comes from the age: it puts no words in its place
    bool quickSearch_ = false;
    std::string title_;   ///< the caption while no patient is shown
    int searchTurn_ = 0;  ///< a keystroke during the wait of an earlier one starts it afresh
};

}  // namespace registration
