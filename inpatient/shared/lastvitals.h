#pragma once

#include <string>

#include "db/connection.h"
#include "ui/controls.h"

namespace inpatient {

/// Four readings of a visit beside the fields of a record, for reference.
class LastVitals {
public:
    explicit LastVitals(ui::Screen& screen) : DataGrid1(screen, "DataGrid1") {}

    ui::DataGrid DataGrid1;

    /// Throws db::Error, with an empty grid.
    void show(db::Connection& hospital, const std::string& consultID);
    void clear() { DataGrid1.clear(); }
};

}  // namespace inpatient
