#include "outpatient/shared/prescriptions.h"

#include "core/rows/entries.h"

namespace outpatient {

void addPrescriptions(ui::ComboBox& list, db::Recordset rows) {
    list.clear();
    list.expect(rows.rowCount());
    for (; !rows.eof(); rows.moveNext()) {
        const auto text = [&](const char* column) { return rows[column].textOr(); };
        list.add(core::entryText(
                     text("pSurname") + " " + text("pfirstname") + " @" + text("cDate") + " (" + text("ID") + ")",
                     text("consultID")),
                 text("ID"));
    }
}

std::string nameIn(const std::string& entry) {
    return entry.substr(0, entry.find(" @"));
}

}  // namespace outpatient
