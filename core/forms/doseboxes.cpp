#include "core/forms/doseboxes.h"

#include <algorithm>

#include "ui/raised.h"

namespace core {

DoseBoxes::DoseBoxes(ui::Screen& screen, const std::string& name, int boxes, std::function<void()> counted)
    : counted_(std::move(counted)) {
    for (int place = 0; place < boxes; ++place) {
        auto& box =
            boxes_.emplace_back(screen, name + "(" + std::to_string(place) + ")", "Dose " + std::to_string(place + 1));
        box.on(ui::Event::click, [this, &box] { count(box); });
    }
    clear();
}

void DoseBoxes::layOut(int doses, int given, int ticked) {
    const ui::Raised layingOut(layingOut_);
    const int open = std::max(0, std::clamp(doses, 0, static_cast<int>(boxes_.size())) - given);
    given_ = given;
    ticked_ = std::min(ticked, open);
    for (int place = 0; auto& box : boxes_) {
        box.setVisible(place < given + open);
        box.setEnabled(place >= given && place < doses);
        box.setChecked(place < given + ticked_);
        ++place;
    }
}

void DoseBoxes::count(const ui::CheckBox& box) {
    if (layingOut_) return;
    ticked_ += box.checked() ? 1 : -1;
    counted_();
}

}  // namespace core
