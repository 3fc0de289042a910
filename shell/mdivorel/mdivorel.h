#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <string_view>

#include "core/forms/form.h"
#include "core/session/mainwindow.h"
#include "core/session/workplace.h"
#include "shell/duelists.h"
#include "ui/controls.h"

namespace shell {

/// The main window: menu tree, alert panel, server clock, debt label, status bar, and the timers that watch the waiting
/// lists. It opens once a session and closing it ends the session.
class MdiVorel : public core::Form, public core::MainWindow, public DueFlags {
public:
    explicit MdiVorel(core::Workplace& place);

    void load() override;
    bool queryUnload() override;

    // -- for the shared routines --
    void showDebt(const std::string& text) override { lblDebt.setCaption(text); }
    /// Flashes the button of expired admissions while a scheme patient's stay is over.
    void Timer2_Timer() override;
    void enableTimer2(bool enabled) override { Timer2.setRunning(enabled); }

    /// Each looks into its view, adds a line to `dueText` and sets its flag when somebody is due. An error shows its
    /// description.
    void VerifyDueBalance();
    void VerifyDueDischDate();
    void VerifyDueDelivery();
    [[nodiscard]] const std::string& dueText() const noexcept { return dueText_; }
    [[nodiscard]] bool balanceDue() const noexcept override { return balanceDue_; }
    [[nodiscard]] bool dischargeDue() const noexcept override { return dischargeDue_; }
    [[nodiscard]] bool deliveryDue() const noexcept override { return deliveryDue_; }

    // -- what menu entries do beyond opening a screen --
    void mnuRDef_Click();
    void mnuPrint_Click();
    void mnuEPE_Click();
    void mnuAS_Click();
    void mnuPCOA_Click();
    void mnuVit_Click();
    void mnuRptSI_Click();
    void mnuRptSB_Click();
    void mnuDischT_Click();
    void mnuWindowTV_Click() { ChildArea.arrange(ui::ChildArea::Arrangement::tileVertical); }
    void mnuWindowTH_Click() { ChildArea.arrange(ui::ChildArea::Arrangement::tileHorizontal); }
    void mnuWindowCascade_Click() { ChildArea.arrange(ui::ChildArea::Arrangement::cascade); }
    /// Whether the user may open the overdue list; says so in a box where not. Throws db::Error.
    [[nodiscard]] bool isManagement();
    [[nodiscard]] core::Session& variables() const noexcept { return session(); }

    ui::Picture Picture1{*this, "Picture1"};
    ui::Button cmdExpired{*this, "cmdExpired", "Expired Admission"};
    ui::Button cmdComm{*this, "cmdComm", "New Comment"};
    ui::Button cmdNotify{*this, "cmdNotify", "Notifications"};
    ui::Button cmdCommView{*this, "cmdCommView", "View Comments"};
    ui::Picture Frame1{*this, "Frame1"};
    ui::Label lblServer{*this, "lblServer", "Server Date && Time: "};
    ui::Label lblDate{*this, "lblDate"};
    ui::Label lblTime{*this, "lblTime"};
    ui::Label lblDebt{*this, "lblDebt"};
    ui::StatusBar SbrVorel{*this, "SbrVorel", 3};
    ui::ChildArea ChildArea{*this, "ChildArea"};

    ui::Timer Timer1{*this, "Timer1", std::chrono::minutes(1)};
    ui::Timer Timer2{*this, "Timer2", std::chrono::minutes(1)};
    ui::Timer Timer3{*this, "Timer3", std::chrono::minutes(1)};
    ui::Timer tmrExpired{*this, "tmrExpired", flashInterval, false};
    ui::Timer tmrNotify{*this, "tmrNotify", flashInterval, false};
    ui::Timer tmrMDI{*this, "tmrMDI", flashInterval, false};
    ui::Timer tmrSound{*this, "tmrSound", std::chrono::minutes(1), false};
    /// Runs only where the hospital has set a limit to idle or to long sessions.
    ui::Timer tmrIdle{*this, "tmrIdle", std::chrono::seconds(10), false};

private:
    static constexpr std::chrono::milliseconds flashInterval{500};
    static constexpr int calm = 0x8080FF;
    static constexpr int red = 0xFF0000;
    static constexpr int cyan = 0x00FFFF;

    void buildMenu();
    void markWhatIsComing();
    void showClock();
    [[noreturn]] void leave(bool automatic);

    void cmdExpired_Click() { desktop().showModal("frmFlashExpire"); }
    void cmdNotify_Click() { desktop().show("frmFlash"); }
    void cmdCommView_Click() { desktop().showModal("frmCommentsView"); }
    void cmdComm_Click();
    void Picture1_DblClick();
    void switchWatch(bool on);

    void Timer1_Timer();
    void watchPatients();
    void watchAdmissions();
    void watchNotifications();
    void flashNotify(bool waiting);
    void Timer3_Timer();
    void tmrExpired_Timer();
    void tmrNotify_Timer();
    void tmrMDI_Timer();
    void tmrSound_Timer();
    void tmrIdle_Timer();
    void forceLogoff(const std::string& reason);

    void showList(const db::Sql& query, const std::string& whenEmpty, const std::string& report,
                  const std::string& title = {});
    void verifyDue(const db::Sql& query, const std::string& line, bool& due);

    std::deque<ui::MenuItem> menu_;
    bool expiredFlashed_ = false;
    bool notifyFlashed_ = false;
    bool pictureFlashed_ = false;
    int soundTicks_ = 0;
    ui::EventLoop::Clock::time_point started_ = ui::EventLoop::Clock::now();
    bool warnedOfLogoff_ = false;
    std::string logoffReason_;
    std::string dueText_;
    bool balanceDue_ = false;
    bool dischargeDue_ = false;
    bool deliveryDue_ = false;
};

}  // namespace shell
