#include "outpatient/frmconsultinfo/sheet.h"

#include <string>

#include "ui/screen.h"

namespace outpatient {

Sheet::Sheet(ui::Screen& screen, std::initializer_list<Text> texts) {
    for (const auto& [control, column] : texts) add(screen, control, column);
}

Sheet::Sheet(ui::Screen& screen, std::initializer_list<const char*> columns) {
    for (const auto* column : columns) add(screen, std::string("txt") + column, column);
}

void Sheet::add(ui::Screen& screen, const std::string& control, const char* column) {
    auto* box = dynamic_cast<ui::TextBox*>(screen.find(control));
    if (!box) {
        box = &own_.emplace_back(screen, control);
        box->setEnabled(false);
    }
    fields_.push_back({box, column});
}

void Sheet::show(const db::Recordset& row) const {
    if (row.empty()) return;
    for (const auto& [box, column] : fields_) box->setText(row[column].textOr());
}

void Sheet::clear() const {
    for (const auto& field : fields_) field.box->clear();
}

}  // namespace outpatient
