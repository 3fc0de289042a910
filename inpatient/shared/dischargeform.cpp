#include "inpatient/shared/dischargeform.h"

#include <utility>

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"

namespace inpatient {

core::Cells dischargeCells(const Discharge& discharge) {
    return {{"dischDate", discharge.date},    {"wardID", discharge.ward},        {"Reason", discharge.reason},
            {"Remarks", discharge.remarks},   {"apprvby", discharge.approvedBy}, {"dischTime", discharge.time},
            {"ApptDate", discharge.nextVisit}};
}

core::Cells visitCells(const DischargedVisit& visit) {
    return {{"PNo", visit.pno}, {"consultID", visit.consultID}, {"clientCat", visit.category}};
}

DischargeForm::DischargeForm(core::Workplace& place, std::string name, std::string caption, const char* client,
                             const char* emptyTitle)
    : RecordForm(place, std::move(name), std::move(caption)),
      labels_{{&lblBill, "consultID"}, {&lblClient, "clientCat"}, {&lblWard, "wardID"},
              {&lblNo, "PNo"},         {&lblDate, "admdate"},     {&lblCoy, client}},
      emptyTitle_(emptyTitle) {
    keep({{&lblNo, "PNo"},
          {&lblClient, "clientCat"},
          {&lblWard, "wardID"},
          {&lblBill, "consultID"},
          {&dtDate, "dischDate", "dischDate"},
          {&txtREason, "Reason", "Reason"},
          {&txtRem, "Remarks", "Remarks"}});
    // While a discharge is corrected the list shows whose it is, and that is no pick.
    bind(cboVehNo, ui::Event::click, [this] {
        if (adding()) picked();
    });
    grdData.hideColumn("ID");
}

void DischargeForm::offer(const db::Sql& stays) {
    cboVehNo.clear();
    addStays(cboVehNo, hospital(), stays);
}

void DischargeForm::picked() {
    consultID_ = core::entryOf(cboVehNo.text()).key;
    lblDays.setCaption({});
    lblTitle.setCaption("Patient Discharge");
    const auto stay = labels_.open(hospital(), consultID_);
    if (!stay.empty()) {
        lblDays.setCaption(daysInWard(stay, session().gServerDate));
        lblTitle.setCaption("Patient Discharge : " + stay["fullName"].textOr());
        return;
    }
    txtREason.clear();
    if (blank(lblBill)) message(noConsultation);
}

// A discharge stays its patient's.
void DischargeForm::entered(Mode /*mode*/) {
    cboVehNo.setEnabled(adding());
}

void DischargeForm::startEditing() {
    RecordForm::startEditing();
    consultID_ = grdData.text("consultID");
    for (auto* label : {&lblDays, &lblDate, &lblCoy}) label->setCaption({});
    cboVehNo.clear();
    desktop().focus(txtREason);
}

void DischargeForm::afterSave() {
    written_ = consultID_;
    RecordForm::afterSave();
}

void DischargeForm::finished() {
    core::selectRow(grdData, "consultID", written_);
}

void DischargeForm::clear() {
    RecordForm::clear();
    labels_.clear();
    lblDays.setCaption({});
    lblTitle.setCaption(emptyTitle_);
    cboVehNo.clearText();
    consultID_.clear();
}

Discharge DischargeForm::discharge() const {
    return {.date = core::valueOf(dtDate),
            .time = session().gServerTime,
            .ward = lblWard.caption(),
            .reason = txtREason.text(),
            .remarks = txtRem.text(),
            .approvedBy = {},
            .nextVisit = {}};
}

}  // namespace inpatient
