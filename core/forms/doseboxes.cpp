#include "core/forms/doseboxes.h"

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

void DoseBoxes::layOut(int doses, int given) {
    const ui::Raised layingOut(layingOut_);
    given_ = given;
    ticked_ = 0;
    for (int place = 0; auto& box : boxes_) {
        box.setEnabled(place >= given && place < doses);
        box.setChecked(place < given);
        ++place;
    }
}

void DoseBoxes::count(const ui::CheckBox& box) {
    if (layingOut_) return;
    ticked_ += box.checked() ? 1 : -1;
    counted_();
}

}  // namespace core
