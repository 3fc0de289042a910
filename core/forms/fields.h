#pragma once

#include <initializer_list>
#include <string_view>
#include <variant>
#include <vector>

#include "core/rows/cells.h"
#include "ui/controls.h"

namespace core {

/// How the content of a field becomes the value that is stored.
enum class Keeps {
    typed,    ///< as it stands
    trimmed,  ///< without the blanks at its ends
    key,      ///< the key of an entry "NAME [key]"
};

/// One field of a record: a control, the column of the list that fills it and the column of the table that keeps it;
/// either may be missing. A blank date is stored as Null, a tick as 1 or 0.
struct Field {
    using Control = std::variant<ui::TextBox*, ui::ComboBox*, ui::CheckBox*, ui::DatePicker*, ui::Label*>;
    Control control;
    const char* shown = nullptr;
    const char* stored = nullptr;
    Keeps keeps = Keeps::typed;
};

/// The fields of a record, each named once: they fill the form from a row of the list and give the cells of a save.
class Fields {
public:
    Fields() = default;
    Fields(std::initializer_list<Field> fields) : fields_(fields) {}

    void add(const Field& field) { fields_.push_back(field); }
    /// Shows the current row of a list. A combo picks the entry of that text or key, or holds the text alone. Throws
    /// db::Error for a column that the list does not have.
    void fill(const ui::DataGrid& list) const;
    /// The same from the current row of a result set.
    void fill(const db::Recordset& row) const;
    /// What the fields hold, as it is stored, in the order of the table. Throws db::Error.
    [[nodiscard]] Cells cells() const;
    void clear() const;
    /// The control that a column of the table is kept from, in any letter case, or nothing.
    [[nodiscard]] ui::Control* keeping(std::string_view column) const;
    [[nodiscard]] const std::vector<Field>& all() const noexcept { return fields_; }

private:
    std::vector<Field> fields_;
};

}  // namespace core
