#include "shell/mdivorel/mdivorel.h"

#include "core/audit/activities.h"
#include "core/session/loadsession.h"
#include "core/session/roles.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "shell/mdivorel/menu.h"

using namespace db::literals;
using ui::Event;

namespace shell {

MdiVorel::MdiVorel(core::Workplace& place) : Form(place, "MdiVorel", "") {
    buildMenu();
    for (ui::Control* held : std::initializer_list<ui::Control*>{&cmdExpired, &cmdComm, &cmdNotify, &cmdCommView})
        held->heldBy(Picture1);
    for (ui::Label* held : {&lblServer, &lblDate, &lblTime}) held->heldBy(Frame1);
    bind(Picture1, Event::dblClick, &MdiVorel::Picture1_DblClick);
    bind(cmdExpired, Event::click, &MdiVorel::cmdExpired_Click);
    bind(cmdComm, Event::click, &MdiVorel::cmdComm_Click);
    bind(cmdNotify, Event::click, &MdiVorel::cmdNotify_Click);
    bind(cmdCommView, Event::click, &MdiVorel::cmdCommView_Click);
    quietly(Timer1, &MdiVorel::Timer1_Timer);
    bind(Timer2, Event::timer, &MdiVorel::Timer2_Timer);
    bind(Timer3, Event::timer, &MdiVorel::Timer3_Timer);
    bind(tmrExpired, Event::timer, &MdiVorel::tmrExpired_Timer);
    bind(tmrNotify, Event::timer, &MdiVorel::tmrNotify_Timer);
    bind(tmrMDI, Event::timer, &MdiVorel::tmrMDI_Timer);
    bind(tmrSound, Event::timer, &MdiVorel::tmrSound_Timer);
    bind(tmrIdle, Event::timer, &MdiVorel::tmrIdle_Timer);
}

void MdiVorel::buildMenu() {
    const bool desk = place().settings.deskInMenu;
    const auto isShown = [desk](Shown shown) { return shown == Shown::always || (desk && shown == Shown::atDesk); };
    for (const MenuHeading& heading : mainMenu()) {
        const auto& parent = menu_.emplace_back(*this, heading.name, heading.caption);
        menu_.back().setVisible(isShown(heading.shown));
        for (const MenuEntry& entry : heading.entries) {
            auto& item = menu_.emplace_back(*this, entry.name, entry.caption, &parent);
            item.setVisible(isShown(entry.shown));
            if (const auto& run = entry.action.run) bind(item, Event::click, [this, &run] { run(*this); });
        }
    }
}

void MdiVorel::markWhatIsComing() {
    for (const MenuHeading& heading : mainMenu())
        for (const MenuEntry& entry : heading.entries) {
            const auto& screen = entry.action.screen;
            if (!screen.empty() && !desktop().provides(screen))
                dynamic_cast<ui::MenuItem&>(*find(entry.name)).setComing(true);
        }
}

void MdiVorel::load() {
    desktop().setMain(*this);
    place().mainWindow = this;
    SbrVorel.setPanel(3, session().gUserFullName + " : Please Log off your User Account when Necessary");
    SbrVorel.setPanel(1, session().gModuleRole);
    dynamic_cast<ui::MenuItem&>(*find("mnuEPE")).setCaption("Log Off " + session().gUserName);
    setCaption(session().gModuleRole + " (Ver " + std::to_string(place().settings.version.major) + ") : @ " +
               session().gAppLocation);
    markWhatIsComing();
    showClock();
    tmrIdle.setRunning(place().settings.idleMinutes > 0 || place().settings.mostHours > 0);
    core::OpenUserActivity(place(), false, false, session().gModuleRole);
}

void MdiVorel::showClock() {
    lblDate.setCaption(session().gServerDate.shortDate());
    lblTime.setCaption(session().gServerTime.shortTime());
}

bool MdiVorel::queryUnload() {
    if (session().gForcedLogoff) leave(true);
    if (confirmed(" Do you want to Exit the Application?", "Exit Application")) leave(false);
    return false;
}

void MdiVorel::leave(bool automatic) {
    core::CloseUserActivity(place(), true, automatic, session().gModuleRole);
    if (automatic) desktop().dropTold();  // nobody is there to press OK
    place().endProcess(logoffReason_);
}

void MdiVorel::mnuEPE_Click() {
    core::CloseUserActivity(place(), true, false, session().gModuleRole + "/SELF");
    hide();
    place().endProcess();
}

void MdiVorel::mnuRDef_Click() {
    core::LoadSession(place());
}

void MdiVorel::mnuPrint_Click() {
    if (const ui::Screen* child = desktop().activeChild()) desktop().print(*child);
}

void MdiVorel::mnuAS_Click() {
    message("This information is already in the system");
}

bool MdiVorel::isManagement() {
    if (core::isManager(place())) return true;
    message("This Action requires Management Permission to Discharge Patient on Discharge Overdue List");
    return false;
}

}  // namespace shell
