#include "inpatient/frmmedchart/frmmedchart.h"

#include "core/session/session.h"
#include "db/letters.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

namespace {

constexpr int boxes = 192;
constexpr int boxesOnPage = 64;

}  // namespace

frmMedChart::frmMedChart(core::Workplace& place, ChartedPatient& opened)
    : Form(place, "frmMedChart", "MEDICATION CHART"),
      doses(*this, "chk", boxes, [this] { counted(); }),
      opened_(opened),
      labels_{{&lblCon, "consultID"},
              {&lblClient, "clientCat"},
              {&lblCoy, "Company"},
              {&lblRoomNo, "wardID"},
              {&lblNo, "PNo"}} {
    bind(lstPat, Event::click, &frmMedChart::lstPat_Click);
    bind(LstDate, Event::click, &frmMedChart::LstDate_Click);
    bind(LstDate, Event::dblClick, &frmMedChart::discontinue);
    bind(grdData, Event::dblClick, &frmMedChart::cmdDel_Click);
    bind(OKButton, Event::click, &frmMedChart::OKButton_Click);
    bind(cmdUpd, Event::click, &frmMedChart::cmdUpd_Click);
    bind(cmdPat, Event::click, &frmMedChart::cmdPat_Click);
    bind(cmdDel, Event::click, &frmMedChart::cmdDel_Click);
    bind(cmdDisp, Event::click, &frmMedChart::cmdDisp_Click);
    bind(cmdPresc, Event::click, &frmMedChart::cmdPresc_Click);
    bind(cmdComment, Event::click, &frmMedChart::cmdComment_Click);
    bind(cmdCancel, Event::click, &frmMedChart::clearLine);
    bind(cmdRefresh, Event::click, &frmMedChart::refresh);
    bind(CancelButton, Event::click, [this] { close(); });
    for (int number = 0; number < boxes; ++number) doses.box(number).onPage(SSTab1, number / boxesOnPage);
    // Dressings come to the chart from the prescription's own screen.
    cmdDress.setEnabled(false);
    txtDosage.setEnabled(false);
    for (const char* column : {"ID", "SNo"}) grdData.hideColumn(column);
    clearLine();
}

void frmMedChart::load() {
    dtDate.setValue(session().gServerDate);
    dtTime.setValue(session().gServerTime);
    SSTab1.setPage(0);
    trapped([this] {
        lstPat.clear();
        addStays(lstPat, hospital(), "select distinct pNO,fullname,consultID from qryhAdmission order by fullname "_sql,
                 " ");
    });
    desktop().focus(lstPat);
}

void frmMedChart::refresh() {
    clearPatient();
    load();
}

void frmMedChart::cmdPresc_Click() {
    if (blank(lblCon)) return refuse("Please select Patient's Name", lstPat);
    message(txtDosage.text());
}

void frmMedChart::cmdDisp_Click() {
    if (blank(lblCon)) return refuse("Specify a Patient", lstPat);
    const auto permitted = hospital().read(
        "select username from vwusers where loginrole in ('MANAGEMENT','CONSULTING') and username='"_sql +
        session().gUserName + "'");
    if (permitted.empty())
        return message("You dont have Permission to Recall Discontinued Drug! See the Doctor/Matron");
    opened_ = {consultID_, name_};
    desktop().showModal("frmMedChartDisc");
    clearLine();
    showDrugs();
    showHistory();
}

void frmMedChart::cmdComment_Click() {
    if (blank(lblCon)) return refuse("Please Select Patient Name", lstPat);
    session().gCommentConsultID = consultID_;
    desktop().showModal("frmMedChartComment");
}

ui::Control* frmMedChart::controlOf(std::string_view column) {
    return db::sameName(column, "numOfTimes") ? &txtNum : nullptr;
}

}  // namespace inpatient
