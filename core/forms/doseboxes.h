#pragma once

#include <deque>
#include <functional>
#include <string>

#include "ui/controls.h"

namespace core {

/// The doses of a drug as a control array of tick boxes, "chk(0)" and so on: those given before are ticked and locked,
/// those still to be given are open, the rest is locked.
class DoseBoxes {
public:
    /// `counted` runs when a user's tick has changed the counts.
    DoseBoxes(ui::Screen& screen, const std::string& name, int boxes, std::function<void()> counted);
    DoseBoxes(const DoseBoxes&) = delete;
    DoseBoxes& operator=(const DoseBoxes&) = delete;

    /// Opens as many boxes as there are doses, as far as there are boxes, and locks the first `given` of them, ticked.
    /// `ticked` of the open ones have their tick already. The others do not show.
    void layOut(int doses, int given, int ticked = 0);
    /// No box is open or ticked.
    void clear() { layOut(0, 0); }
    /// The box of a dose, from 0.
    [[nodiscard]] ui::CheckBox& box(int place) { return boxes_.at(static_cast<std::size_t>(place)); }
    /// Doses that were ticked since the boxes were laid out.
    [[nodiscard]] int ticked() const noexcept { return ticked_; }
    /// The same with those given before.
    [[nodiscard]] int taken() const noexcept { return given_ + ticked_; }

private:
    void count(const ui::CheckBox& box);

    std::deque<ui::CheckBox> boxes_;
    std::function<void()> counted_;
    int given_ = 0;
    int ticked_ = 0;
    bool layingOut_ = false;
};

}  // namespace core
