#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/forms/recordform.h"
#include "core/rows/cells.h"
#include "core/session/workplace.h"
#include "registration/shared/clientpick.h"
#include "registration/shared/photograph.h"
#include "registration/shared/registrationform/card.h"
#include "registration/shared/registrationform/carrieddebt.h"
#include "registration/shared/registrationform/contacts.h"
#include "registration/shared/registrationform/patientfinder.h"
#include "registration/shared/registrationform/person.h"
#include "registration/shared/registrationform/stage.h"
#include "registration/shared/registrationform/visitentry.h"

namespace registration {

/// The registration of a patient, as the front desk's screen and the nurses' screen share it: one record, put together
/// from its parts. In what the two differ is one of their ways, or of the virtual members below.
class RegistrationForm : public core::RecordForm, protected VisitEntry::Follower {
protected:
    /// In what the two screens differ, where a word says it.
    struct Ways {
        SearchKind numberSearch;           ///< what the third search button looks for
        PatientFinder::Statements search;  ///< what a search reads
        VisitEntry::Ways visit;
        const char* deleteRefusal;  ///< what is said to who may not delete
    };
    RegistrationForm(core::Workplace& place, std::string name, std::string caption, const Ways& ways);

public:
    ui::TabStrip SSTab1{*this, "SSTab1", {"Find", "Contacts and kin", "Attendance"}};
    PatientFinder finder;
    ui::ComboBox cboNew{*this, "cboNew", ui::ComboBox::Style::listOnly};
    Person person{place(), *this, stage_};
    ui::TextBox txtSupp{*this, "txtSupp"};
    ClientPick client;
    ui::CheckBox chkAll{*this, "chkAll", "Show All"};
    Card card{place(), *this, stage_};
    ui::TextBox txtAdmitLimit{*this, "txtAdmitLimit", ui::decimalOnly};
    CarriedDebt debt{place(), *this, stage_};
    Photograph photograph{place(), *this};
    Contacts contacts{place(), *this};
    VisitEntry visit;
    ui::Button cmdPatDep{*this, "cmdPatDep", "Dependant"};
    ui::Button cmdPlan{*this, "cmdPlan", "Plan..."};
    ui::Button cmdANC{*this, "cmdANC", "Antenata&l"};
    ui::Button cmdComm{*this, "cmdComm", "C&onsultations"};

    void load() override;
    void unload() override;

protected:
    /// The class of the fees of a registration.
    static constexpr const char* registrationClass = "(GENERAL)";

    // -- where the two screens differ --
    /// The checks of a save, in their order.
    [[nodiscard]] virtual std::vector<core::Check> checksOfPatient() = 0;
    /// What picking a billing category sets beyond the lists.
    virtual void categoryPicked() {}
    /// `Principal` and `pCatID` of a new patient.
    [[nodiscard]] virtual core::Cells kinshipCells() const = 0;
    /// The visit of a save with `chkReg` ticked, inside its transaction.
    virtual void TakeAttendance() = 0;
    /// What a new patient's save writes behind the row, the visit's number and the visit.
    virtual void writeBehindNewPatient() = 0;
    /// After a save: another dependant, or an empty form.
    void finished() override { clear(); }

    // -- the steps of a record screen --
    void fillLists() override;
    void showList() override { finder.showToday(); }
    void entered(Mode mode) override;
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
    [[nodiscard]] ui::Control& restingPlace() override { return finder.txtName; }
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

    // -- what both work with --
    [[nodiscard]] std::string pno() const;
    /// Takes the clinic from a private patient whose card is not good.
    void checkCard();
    void writeAppointment();
    /// `billAccum`'s line for a fee of this patient and visit; further cells as the fee has them.
    void addFee(const std::string& name, double amount, const std::string& revType, const core::Cells& further);
    void addRegistrationFee(double amount);

    bool dependantMode_ = false;
    std::string currentPNo_;
    std::string patCatLoaded_;

private:
    void bindEvents();

    // Picks, and the row that is shown.
    void pickClient();
    void pickCategory();
    void pickCard();
    void pickMaturity();
    void grdData_DblClick();
    void LoadPatientFromGrid();
    void fillFromGrid();

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
    void PostCardRenewalFee();
    void auditEdit();

    Stage stage_;
    const char* deleteRefusal_;
    std::string title_;         ///< the caption while no patient is shown
    std::string cardBefore_;    ///< what a save that is undone gives back
    double balanceBefore_ = 0;  ///< likewise, naira
};

}  // namespace registration
