#pragma once

#include <string>

#include "core/forms/part.h"
#include "registration/shared/registrationform/stage.h"

namespace registration {

/// A patient's card: its number, for whom it is, and how long it holds.
class Card : public core::Part {
public:
    Card(core::Workplace& place, ui::Screen& screen, const Stage& stage);

    ui::TextBox txtOLD{screen(), "txtOLD"};  ///< the number on the card
    ui::ComboBox cboCard{screen(), "cboCard",
                         ui::ComboBox::Style::listOnly};  ///< for the patient alone, or for his family
    ui::ComboBox cboFile{screen(), "cboFile", ui::ComboBox::Style::listOnly};  ///< how long it holds
    ui::DatePicker dtRegDate{screen(), "dtRegDate"};
    ui::DatePicker dtExpDate{screen(), "dtExpDate"};
    ui::Button cmdRenew{screen(), "cmdRenew", "Rene&w card"};

    /// The number that goes by the patient's own, where the hospital gives it so and none was typed.
    void drawNumber(const std::string& pno);
    /// Whether the card lets a private patient into a clinic: it has a last day, which is to come.
    [[nodiscard]] bool isGood() const;
    /// Says why it does not, and offers the renewal. Throws db::Error.
    void refuseVisit(const std::string& pno);
    /// The class of a fee: a general one is the card's type.
    [[nodiscard]] std::string feeClass(const std::string& patientClass) const;

private:
    void pickDuration();

    const Stage& stage_;
};

}  // namespace registration
