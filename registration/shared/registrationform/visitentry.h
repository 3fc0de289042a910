#pragma once

#include <string>
#include <vector>

#include "core/forms/part.h"
#include "core/rows/cells.h"
#include "registration/shared/clientpick.h"
#include "registration/shared/purposes.h"
#include "registration/shared/registrationform/stage.h"

namespace registration {

/// The visit that is taken along with a registration: its clinic, its purpose, an appointment; and the past ones.
class VisitEntry : public core::Part {
public:
    /// What hangs on the picks of a visit. What throws from the pick of a clinic takes the pick back.
    class Follower {
    public:
        Follower(const Follower&) = delete;
        Follower& operator=(const Follower&) = delete;
        virtual void clinicPicked() = 0;
        virtual void clinicCleared() {}
        /// Behind the purpose's routing.
        virtual void purposePicked() {}

    protected:
        Follower() = default;
        ~Follower() = default;
    };
    /// In what the screens differ.
    struct Ways {
        bool deskOnly;              ///< only a session of the front desk takes a visit here
        ConsultPrice consultPrice;  ///< where the price of a consultation comes from
    };
    VisitEntry(core::Workplace& place, ui::Screen& screen, const Stage& stage, Follower& follower, const Ways& ways);

    ui::CheckBox chkReg{screen(), "chkReg", "Auto&matic Attendance"};
    ui::Picture fraAttd{screen(), "fraAttd"};
    ui::ComboBox cboClin{screen(), "cboClin", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboPurpose{screen(), "cboPurpose"};
    ui::DatePicker dtNext{screen(), "dtNext"};
    ui::DatePicker dtRefTime{screen(), "dtRefTime", ui::DatePicker::Format::time};
    ui::Button cmdAttend{screen(), "cmdAttend", "Past &visits"};
    ui::DataGrid grdAttend{screen(), "grdAttend"};

    [[nodiscard]] std::vector<ui::Control*> controls();
    /// Reads the clinics and the purposes. Throws db::Error.
    void loadLists();
    [[nodiscard]] bool allowed() const;
    /// Ticks the visit where it may be taken.
    void offer();
    /// Ticks it, or says why it may not be taken.
    void request();
    [[nodiscard]] bool taken() const { return chkReg.checked(); }
    [[nodiscard]] bool isAppointment() const { return cboPurpose.text() == "APPOINTMENT"; }
    void clearClinic();
    /// No clinic and no purpose are picked any more.
    void forgetPicks();
    void clear();
    /// The patient's earlier visits. Throws db::Error, as all below.
    void showPast(const std::string& pno);

    /// Draws the visit's number; false where none is given.
    [[nodiscard]] bool drawNumber();
    [[nodiscard]] const std::string& number() const noexcept { return consultId_; }
    void forgetNumber() { consultId_.clear(); }
    /// The cells of the visit's row that all screens write.
    [[nodiscard]] core::Cells cells(const std::string& pno, const ClientPick& client) const;
    void writeAppointment(const std::string& pno);
    /// The message to the patient; `extra` is said behind its text.
    void queueMessage(const std::string& pno, const std::string& phone, const std::string& extra);

private:
    void take();
    void pickClinic();
    void pickPurpose();

    const Stage& stage_;
    Follower& follower_;
    Ways ways_;
    std::string consultId_;
};

}  // namespace registration
