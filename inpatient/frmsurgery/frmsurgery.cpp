#include "inpatient/frmsurgery/frmsurgery.h"

#include <array>
#include <utility>

#include "core/clock/clock.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"

namespace inpatient {

using namespace db::literals;

namespace {

struct StoredText {
    const char* column;
    int field;
    int page;
};

constexpr int fieldCount = 37;
/// The field that no column keeps.
constexpr int unstored = 13;

/// The specific gravity and the blood of the urine share one field: whatever it holds is stored as both, and a loaded
/// operation shows there its blood.
constexpr std::array storedTexts = std::to_array<StoredText>({
    {"occultBlood", 0, 1}, {"urea_PCO3", 1, 2},  {"urea_cL", 2, 2},       {"indications", 3, 0}, {"operation", 4, 0},
    {"consent", 5, 0},     {"relation", 6, 0},   {"urinalysis", 7, 1},    {"sediments", 8, 1},   {"sugar", 9, 1},
    {"acetone", 10, 1},    {"aib", 11, 1},       {"sg", 12, 1},           {"blood", 12, 1},      {"hb", 14, 2},
    {"pcv", 15, 2},        {"wbc", 16, 2},       {"wbc_p", 17, 2},        {"wbc_L", 18, 2},      {"wbc_m", 19, 2},
    {"wbc_e", 20, 2},      {"wbc_esr", 21, 2},   {"chestXray", 22, 3},    {"ecg", 23, 3},        {"bloodGroup", 24, 2},
    {"surgeon", 25, 0},    {"Assistant", 26, 0}, {"anaesthetist", 27, 0}, {"preOPBP", 28, 4},    {"pulse", 29, 4},
    {"postOPBP", 30, 4},   {"hgp", 31, 4},       {"findings", 32, 4},     {"Procedure", 33, 4},  {"urea_na", 34, 2},
    {"urea", 35, 2},       {"hiv", 36, 2},
});

}  // namespace

frmSurgery::frmSurgery(core::Workplace& place)
    : DoctorsRecord(place, "frmSurgery", "Operation Notes", "Surgery Notes") {
    for (int number = 0; number < fieldCount; ++number)
        txtFields.emplace_back(*this, "txtFields(" + std::to_string(number) + ")", ui::upperCase);
    txtFields[unstored].setVisible(false);
    core::Fields fields{{&lblNo, "pno", "PNo"}, {&lblBill, "consultid", "consultID"}, {&dtRegDate, "sDate", "sDate"}};
    for (const auto& [column, field, page] : storedTexts) {
        auto& box = txtFields[static_cast<std::size_t>(field)];
        box.onPage(SSTab1, page);
        fields.add({&box, column, column});
    }
    keep(std::move(fields));
    for (const char* column : {"ID", "empID", "pno", "consultid", "fullname", "lastname", "firstname"})
        grdData.hideColumn(column);
}

void frmSurgery::fillLists() {
    DoctorsRecord::fillLists();
    dtRegDate.setValue(session().gServerDate);
}

void frmSurgery::showList() {
    if (pno_.empty()) return grdData.clear();
    core::refreshRows(grdData, hospital().read("select * from qryhSurgery where pno = '"_sql + pno_ + "'"), {"ID"});
}

void frmSurgery::picked() {
    DoctorsRecord::picked();
    pno_ = lblNo.caption();
    showList();
}

void frmSurgery::startEditing() {
    RecordForm::startEditing();
    recordID_ = grdData.text("ID");
    showPatient(grdData.text("fullname"), core::entryText(grdData.text("fullname") + " ", lblBill.caption()));
    showDoctor(grdData.text("lastname") + " " + grdData.text("firstname"), grdData.text("empid"));
    desktop().focus(txtFields[3]);
}

std::vector<core::Check> frmSurgery::checks() {
    return {{nobody(), "Select a Patient", &cboVehNo}, {blank(cboReason), "Specify Doctor's name", &cboReason}};
}

std::optional<core::Refusal> frmSurgery::write() {
    db::Recordset row(hospital(), editing() ? "select * from hSurgery where ID='"_sql + recordID_ + "'"
                                            : "select * from hSurgery where 1=2"_sql);
    if (adding()) row.addNew();
    core::setCells(row, core::joined(fields().cells(), {{"empID", doctor()}}));
    row.update();
    recordID_ = row["ID"].text();
    return std::nullopt;
}

void frmSurgery::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
}

void frmSurgery::finished() {
    core::selectRow(grdData, "ID", recordID_);
    lblAsOf.setCaption(core::upToDateAsOf(session().gServerNow));
}

void frmSurgery::clear() {
    DoctorsRecord::clear();
    dtRegDate.setValue(session().gServerDate);
    SSTab1.setPage(0);
    lblAsOf.setCaption({});
}

}  // namespace inpatient
