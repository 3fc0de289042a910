#pragma once

#include "core/forms/part.h"
#include "core/rows/cells.h"
#include "registration/shared/registrationform/stage.h"

namespace registration {

/// What a new patient owes from an older account, in naira: it is entered before he is saved, and kept with him.
class CarriedDebt : public core::Part {
public:
    CarriedDebt(core::Workplace& place, ui::Screen& screen, const Stage& stage);

    ui::Label lblDebtCap{screen(), "lblDebtCap", "Carry Over Debt"};
    ui::Label lblDebt{screen(), "lblDebt", "0"};

    void clear();
    /// Shows 0 in place of what is no number.
    void normalise();
    /// What is shown; 0 for what is no number.
    [[nodiscard]] double amount() const;
    /// The cells of a new patient's row; none where he owes nothing.
    [[nodiscard]] core::Cells cells() const;

private:
    void enter();

    const Stage& stage_;
};

}  // namespace registration
