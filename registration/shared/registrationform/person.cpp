#include "registration/shared/registrationform/person.h"

#include "core/clock/clock.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "registration/shared/patientsview.h"
#include "ui/raised.h"

namespace registration {

using namespace db::literals;
using ui::Event;

namespace {

std::string storedName(const std::string& typed) {
    auto name = core::trimmed(typed);
    std::erase_if(name, [](char letter) { return letter == '[' || letter == ']'; });
    return name;
}

}  // namespace

Person::Person(core::Workplace& place, ui::Screen& screen, const Stage& stage) : Part(place, screen), stage_(stage) {
    core::fill(cboTitle, {"", "MR", "MRS", "MISS", "MASTER", "DR", "PROF", "ALHAJI", "ALHAJA", "PASTOR", "CHIEF"});
    core::fill(txtSex, {"", "MALE", "FEMALE"});
    bind(txtsurNAme, Event::lostFocus, [this] { warnOfNamesakes(); });
    bind(dtDate, Event::change, [this] {
        if (!typingAge_) showAge();
    });
    bind(txtAge, Event::change, [this] { takeAge(); });
    bind(txtAge, Event::lostFocus, [this] {
        if (dtDate.value()) showAge();
    });
}

std::string Person::surname() const {
    return storedName(txtsurNAme.text());
}

std::string Person::firstName() const {
    return storedName(txtfirstNAme.text());
}

void Person::showAge() {
    txtAge.setText(dtDate.value() ? core::AgeText(*dtDate.value(), place().now().date()) : std::string());
}

/// A number of years makes a birth date while a patient is added; the age shows in words when the cursor has left it.
void Person::takeAge() {
    const auto years = db::parseInteger(txtAge.text());
    if (!stage_.adding || !years || *years < 0 || *years > 150) return;
    const ui::Raised typing(typingAge_);
    dtDate.setValue(place().now().date().plusMonths(static_cast<int>(-12 * *years)));
}

/// Blocks nothing.
void Person::warnOfNamesakes() {
    const auto typed = core::trimmed(txtsurNAme.text());
    if (typed.empty()) return;
    auto same = hospital().read(
        "select distinct psurname as Surname,pfirstname as Firstname,pno as NewFileNo,oldpno as [Old FileNo],homeAddress from hpatients where psurname = '"_sql +
        core::quotesDoubled(typed) + "'");
    if (same.empty()) return;
    message("One or more Surnames match !!! Please Confirm for Duplicates");
    if (auto* verify = opened<PatientsView>("frmVerify")) verify->show(std::move(same));
}

}  // namespace registration
