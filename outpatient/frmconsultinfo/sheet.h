#pragma once

#include <deque>
#include <initializer_list>
#include <vector>

#include "db/recordset.h"
#include "ui/controls.h"

namespace outpatient {

/// One sheet of a consultation, for reading: text fields, each with the column that fills it. A field that another
/// sheet of the screen has already is shared with it: whichever is shown last stands there.
class Sheet {
public:
    struct Text {
        const char* control;
        const char* column;
    };
    Sheet(ui::Screen& screen, std::initializer_list<Text> texts);
    /// Each field is named "txt" and its column.
    Sheet(ui::Screen& screen, std::initializer_list<const char*> columns);

    /// Fills the fields from the current row; without a row they stay.
    void show(const db::Recordset& row) const;
    void clear() const;

private:
    void add(ui::Screen& screen, const std::string& control, const char* column);

    struct Field {
        ui::TextBox* box;
        const char* column;
    };
    std::deque<ui::TextBox> own_;
    std::vector<Field> fields_;
};

}  // namespace outpatient
