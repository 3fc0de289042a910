#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "db/connection.h"
#include "ui/controls.h"

namespace inpatient {

/// Offers the patients whom a statement finds in the wards, as "NAME [visit]", behind what the list holds already;
/// `gap` stands behind the name besides. Throws db::Error.
void addStays(ui::ItemControl& list, db::Connection& hospital, const db::Sql& sql, const char* gap = "");

/// The stay that a ward screen is about: a label for each thing that is shown of it.
class StayLabels {
public:
    struct Shown {
        ui::Label* label;
        const char* column;  ///< of qryhAdmission
    };
    StayLabels(std::initializer_list<Shown> shown) : shown_(shown) {}

    /// Reads the stay of a visit and shows it; empty labels, and no row, where the visit's patient is in no ward.
    /// Throws db::Error, with empty labels.
    db::Recordset open(db::Connection& hospital, const std::string& consultID) const;
    /// Shows what was read; empty labels where that has no row.
    void show(const db::Recordset& stay) const;
    void clear() const;

private:
    std::vector<Shown> shown_;
};

/// The whole days of a stay up to a day, as a text; "" where the day of admission is not known.
std::string daysInWard(const db::Recordset& stay, const db::DateTime& until);

/// Takes the nurses' discharge of a visit away; the stay itself remains closed. Throws db::Error.
void deleteNursesDischarge(db::Connection& hospital, const std::string& consultID);

}  // namespace inpatient
