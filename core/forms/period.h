#pragma once

#include <string>

#include "core/rows/cells.h"
#include "ui/controls.h"

namespace core {

/// The days whose patients a screen offers, both of them included.
class Period {
public:
    explicit Period(ui::Screen& screen) : DTPicker1(screen, "DTPicker1"), DTPicker2(screen, "DTPicker2") {}

    ui::DatePicker DTPicker1;
    ui::DatePicker DTPicker2;

    /// Begins as one day.
    void start(const db::DateTime& day) {
        for (auto* picker : {&DTPicker1, &DTPicker2}) picker->setValue(day);
    }
    /// The first and the last day as they stand between the quotes of a statement; "" for a blank one.
    [[nodiscard]] std::string first() const { return textOf(DTPicker1); }
    [[nodiscard]] std::string last() const { return textOf(DTPicker2); }
};

}  // namespace core
