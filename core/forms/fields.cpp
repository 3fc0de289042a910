#include "core/forms/fields.h"

#include <optional>
#include <string>

#include "core/rows/entries.h"
#include "core/texts/texts.h"
#include "db/letters.h"

namespace core {
namespace {

template <class... Each>
struct Cases : Each... {
    using Each::operator()...;
};

std::string kept(const std::string& text, Keeps keeps) {
    switch (keeps) {
        case Keeps::typed:
            return text;
        case Keeps::trimmed:
            return trimmed(text);
        case Keeps::key:
            return entryOf(text).key;
    }
    return text;
}

void showInCombo(ui::ComboBox& list, const std::string& text, Keeps keeps) {
    const int item = keeps == Keeps::key ? itemWithKey(list, text) : -1;
    if (item >= 0)
        list.setIndex(item);
    else if (list.style() == ui::ComboBox::Style::listOnly)
        showEntry(list, text);
    else
        list.setText(text);
}

void show(const Field& field, const std::string& text, const db::Value& value) {
    std::visit(Cases{[&](ui::TextBox* box) { box->setText(text); },
                     [&](ui::ComboBox* combo) { showInCombo(*combo, text, field.keeps); },
                     [&](ui::CheckBox* tick) { tick->setChecked(!value.isNull() && value.number() != 0); },
                     [&](ui::DatePicker* date) { showDate(*date, value); },
                     [&](ui::Label* label) { label->setCaption(text); }},
               field.control);
}

db::Value valueOf(const Field& field) {
    return std::visit(Cases{[&](const ui::TextBox* box) { return db::Value(kept(box->text(), field.keeps)); },
                            [&](const ui::ComboBox* combo) { return db::Value(kept(combo->text(), field.keeps)); },
                            [](const ui::CheckBox* tick) { return db::Value(tick->checked() ? 1 : 0); },
                            [](const ui::DatePicker* date) { return core::valueOf(*date); },
                            [&](const ui::Label* label) { return db::Value(kept(label->caption(), field.keeps)); }},
                      field.control);
}

void empty(const Field& field) {
    std::visit(Cases{[](ui::TextBox* box) { box->clear(); }, [](ui::ComboBox* combo) { combo->clearText(); },
                     [](ui::CheckBox* tick) { tick->setChecked(false); },
                     [](ui::DatePicker* date) { date->setValue({}); }, [](ui::Label* label) { label->setCaption({}); }},
               field.control);
}

}  // namespace

void Fields::fill(const ui::DataGrid& list) const {
    for (const auto& field : fields_)
        if (field.shown) show(field, list.text(field.shown), list.rows()[field.shown]);
}

void Fields::fill(const db::Recordset& row) const {
    for (const auto& field : fields_)
        if (field.shown) show(field, row[field.shown].textOr(), row[field.shown]);
}

Cells Fields::cells() const {
    Cells cells;
    for (const auto& field : fields_)
        if (field.stored) cells.emplace_back(field.stored, valueOf(field));
    return cells;
}

void Fields::clear() const {
    for (const auto& field : fields_) empty(field);
}

ui::Control* Fields::keeping(std::string_view column) const {
    for (const auto& field : fields_)
        if (field.stored && db::sameName(field.stored, column))
            return std::visit([](auto* control) -> ui::Control* { return control; }, field.control);
    return nullptr;
}

}  // namespace core
