#include "inpatient/frmwards/frmwards.h"

#include "core/rows/entries.h"
#include "core/rows/grids.h"

namespace inpatient {

using namespace db::literals;

frmWards::frmWards(core::Workplace& place) : RecordForm(place, "frmWards", "Hospital Ward") {
    // The name stands ahead of the key: a new name becomes the key too, until the key is changed by itself.
    keep({{&txtName, "WardName", "WardName"}, {&txtID, "wardID", "wardID"}, {&txtLocation, "Location", "Location"}});
    bind(txtName, ui::Event::change, [this] { txtID.setText(txtName.text()); });
}

void frmWards::fillLists() {
    core::fill(txtLocation, {"GRD FLR", "1ST FLR", "2ND FLR"});
}

void frmWards::showList() {
    core::refreshRows(grdData, hospital().read("select * from hwards "_sql), {"wardID"});
}

void frmWards::startAdding() {
    clear();
    desktop().focus(txtName);
}

void frmWards::startEditing() {
    RecordForm::startEditing();
    keptID_ = grdData.text("wardID");
    desktop().focus(txtName);
}

std::vector<core::Check> frmWards::checks() {
    return {{txtID.text().empty(), "Please enter Ward Name", &txtID},
            {txtLocation.text().empty(), "Please Select Ward Location ", &txtLocation}};
}

std::optional<core::Refusal> frmWards::write() {
    db::Recordset row(
        hospital(), editing() ? "select * from hWards where WardID='"_sql + keptID_ + "'" : "select * from hWards"_sql);
    if (adding()) row.addNew();
    core::setCells(row, fields().cells());
    row.update();
    return std::nullopt;
}

void frmWards::committed() {
    keptID_ = txtID.text();
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
}

void frmWards::finished() {
    core::selectRow(grdData, "wardID", keptID_);
}

std::optional<core::Refusal> frmWards::erase() {
    hospital().execute("delete from hWards where wardID = '"_sql + grdData.text("wardID") + "'");
    return std::nullopt;
}

}  // namespace inpatient
