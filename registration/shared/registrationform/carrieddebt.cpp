#include "registration/shared/registrationform/carrieddebt.h"

#include "core/session/session.h"
#include "core/texts/texts.h"

namespace registration {

CarriedDebt::CarriedDebt(core::Workplace& place, ui::Screen& screen, const Stage& stage)
    : Part(place, screen), stage_(stage) {
    bind(lblDebt, ui::Event::dblClick, [this] { enter(); });
}

void CarriedDebt::enter() {
    if (stage_.editing) return message("Debt Information Cannot be Edited Here! Only Carry Over Debt can be Entered");
    const auto answer = place().desktop.askInput("Carry Over Debt", "Debt", "0");
    if (!answer) return;
    session().gPatientBalance = db::Value(*answer).number();
    lblDebt.setCaption(core::moneyText(session().gPatientBalance));
}

void CarriedDebt::clear() {
    lblDebt.setCaption("0");
    session().gPatientBalance = 0;
}

void CarriedDebt::normalise() {
    if (!db::parseNumber(lblDebt.caption()) && !db::withoutThousandsSeparators(lblDebt.caption()))
        lblDebt.setCaption("0");
}

double CarriedDebt::amount() const {
    const auto shown = db::withoutThousandsSeparators(lblDebt.caption()).value_or(lblDebt.caption());
    return db::parseNumber(shown).value_or(0);
}

core::Cells CarriedDebt::cells() const {
    const auto balance = session().gPatientBalance;
    if (balance == 0) return {};
    return {{"Debt", balance}, {"DebtBF", balance}};
}

}  // namespace registration
