#include "registration/shared/registrationform/patientfinder.h"

#include "core/clock/clock.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "registration/shared/purposes.h"

namespace registration {

using namespace db::literals;

PatientFinder::PatientFinder(core::Workplace& place, ui::Screen& screen, ui::DataGrid& grid, SearchKind numberSearch,
                             Statements statements)
    : SearchBox(place, screen, numberSearch,
                [this](SearchKind kind) {
                    stop();
                    show(kind);
                }),
      grid_(grid),
      statements_(statements),
      title_(screen.caption()) {
    bind(txtName, ui::Event::change, [this] { searchWhileTyping(); });
}

void PatientFinder::show(SearchKind kind, bool limited) {
    if (core::blank(txtName.text())) return;
    showFound(grid_, lblFound, statements_(place(), kind, wanted(kind), limited), {"Surname", "expired", "coyname"});
}

void PatientFinder::showToday() {
    const auto today = session().gServerDate.date();
    showFound(grid_, lblFound,
              hospital().readShared("select  * from vwhpatients where RegDate='"_sql + today + "' order by fullname"),
              {"expired", "coyname"});
}

void PatientFinder::showAgain() {
    if (core::blank(txtName.text())) return showToday();
    show(SearchKind::name);
}

void PatientFinder::stop() {
    ++turn_;
    grid_.setSearching(false);
}

/// Digits of a number fire no search by name, and each keystroke starts the wait anew. A limit of 0 is none.
void PatientFinder::searchWhileTyping() {
    stop();
    const int turn = turn_;
    const auto& text = txtName.text();
    if (text.empty()) {
        grid_.clear();
        return lblFound.setCaption("0 Records Found");
    }
    if (db::characterCount(text) < 3 || text.find_first_of("10") != std::string::npos) return;
    grid_.setSearching(true);
    const std::chrono::milliseconds wait(session().gSearchWaitTime);
    core::WaitWithEvents(place(), wait, {[&] { return turn != turn_; }});
    if (turn != turn_) return;
    screen().setCaption("Retrieving data...Please wait");
    place().desktop.showProgress();
    trapped([this] { show(SearchKind::name, settingNumber(session().gSearchValue) != db::Value(0)); });
    screen().setCaption(title_);
    grid_.setSearching(false);
}

}  // namespace registration
