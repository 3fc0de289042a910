#pragma once

#include "core/forms/operations.h"
#include "ui/screen.h"

namespace core {

/// A part of a screen, which owns its controls and what they do. It knows nothing of the screen but what it is given.
class Part : public Operations {
protected:
    Part(Workplace& place, ui::Screen& screen) : Operations(place), screen_(screen) {}
    ~Part() = default;

    [[nodiscard]] ui::Screen& screen() const noexcept { return screen_; }

private:
    ui::Screen& screen_;
};

}  // namespace core
