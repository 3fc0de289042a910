// Opening a patient's chart, and a line of it.

#include "core/care/staylimit.h"
#include "core/care/treatmenttext.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "inpatient/frmmedchart/frmmedchart.h"

namespace inpatient {

using namespace db::literals;

namespace {

constexpr std::int64_t hour = 3600;

/// The hours that a stay has left, by the strokes of the clock between, and the one that has begun.
std::int64_t hoursLeft(const db::DateTime& now, const db::DateTime& limit) {
    return limit.seconds() / hour - now.seconds() / hour + 1;
}

}  // namespace

void frmMedChart::lstPat_Click() {
    if (lstPat.index() >= 0) openPatient();
}

void frmMedChart::openPatient() {
    const auto id = core::entryOf(lstPat.text()).key;
    clearPatient();
    consultID_ = session().gCommentConsultID = id;
    const auto stay = hospital().read("select * from qryhAdmission where consultID='"_sql + id + "'");
    labels_.show(stay);
    if (!stay.empty()) {
        name_ = session().gCurPatientName = stay["fullName"].textOr();
        lblPatient.setCaption(name_);
        lblTitle.setCaption(caption() + " : " + name_);
    }
    showHistory();
    showDrugs();
    // A limit that cannot be read bars like one that has passed.
    bool charted = false;
    db::Recordset period;
    trapped([&] {
        period = hospital().read(
            "select isnull(Comment,'NONE') as Comment, getDate() as Period,FullName,ConsultID,clientCat,"
            "ExtendAdmissionLimitTo from qryhAdmission  where ConsultID='"_sql +
            id + "'");
        charted = period.empty() || mayBeCharted(period);
    });
    if (!charted) {
        LstDate.clear();
        return clearLine();
    }
    if (!period.empty() && period["Comment"].textOr() != "NONE") desktop().showModal("frmMedChartComment");
}

bool frmMedChart::mayBeCharted(const db::Recordset& stay) {
    if (!core::isManagedCare(stay["clientCat"].textOr())) return true;
    const auto now = stay["Period"].moment();
    const auto limit = stay["ExtendAdmissionLimitTo"];
    if (limit.isNull() || now >= limit.moment()) {
        message(" This Patient's Stay in Admission has Expired! Call the FrontDesk Officer for Extension",
                ui::Icon::stop, "Expired Admission");
        return false;
    }
    message(" This Patient has " + std::to_string(hoursLeft(now, limit.moment())) + " hrs to Stay in Admission",
            ui::Icon::information, "Admission Stay Limit");
    return true;
}

void frmMedChart::clearPatient() {
    clearLine();
    consultID_.clear();
    name_.clear();
    lblPatient.setCaption({});
    labels_.clear();
    lblTitle.setCaption(caption());
    LstDate.clear();
    grdData.clear();
}

void frmMedChart::showDrugs() {
    LstDate.clear();
    if (consultID_.empty()) return;
    auto drugs = hospital().read("select * from qryhMedChartMonitor where consultID='"_sql + consultID_ + "'");
    for (; !drugs.eof(); drugs.moveNext())
        LstDate.add(
            core::entryText(drugs["drgName"].textOr() + " @" + drugs["mdate"].textOr() + " " + drugs["mtime"].textOr(),
                            drugs["conID"].textOr()),
            drugs["ID"].text());
}

/// What was given: of the open line, or else of the patient.
void frmMedChart::showHistory() {
    const auto given =
        "select SNo,mDate as Date,mtime as Time,drgName as Drug,IDNo as ID,NumTaken,Nurse,Remarks,ConsultID,FullName "
        "from qryhmedChartForNurse where "_sql;
    const auto of = line_ ? "idno ='"_sql + line_->id : "consultID ='"_sql + lblCon.caption();
    core::refreshRows(grdData, hospital().read(given + of + "' order by mdate desc,mTime desc,drgName"), {"SNo"});
}

void frmMedChart::LstDate_Click() {
    if (LstDate.text().empty()) return refuse("empty Drug Name not allowed", LstDate);
    openLine();
}

void frmMedChart::openLine() {
    clearLine();
    const auto entry = LstDate.text();
    const auto bracket = entry.rfind('[');
    line_ =
        Line{LstDate.key(), core::entryOf(entry.substr(bracket)).key, core::trimmed(entry.substr(0, entry.find('@')))};
    cmdPresc.setEnabled(true);
    lblTitle.setCaption("MEDICATION CHART FOR: " + line_->drug);
    lblDrug.setCaption(line_->drug);
    txtDosage.setText(core::treatmentText(hospital(), line_->conID));
    showHistory();
    const auto row = hospital().read(
        "select ID,drgname,drgCatname,numOfTimes,numTaken,dosage from qryhMedChartMonitor where ID="_sql + line_->id);
    if (row.empty()) {
        clearLine();
        showDrugs();
        return message("This drug has left the chart meanwhile: it was given in full, or discontinued");
    }
    lblTaken.setCaption(row["numTaken"].textOr());
    txtNum.setText(row["numOfTimes"].textOr());
    lblName.setCaption(row["drgCatName"].textOr());
    lblUsage.setCaption(row["dosage"].textOr());
    doses.layOut(row["numOfTimes"].int32Or(0), row["numTaken"].int32Or(0));
    SSTab1.setPage(0);
    for (auto* when : {&dtDate, &dtTime}) when->setEnabled(true);
}

void frmMedChart::clearLine() {
    line_.reset();
    cmdPresc.setEnabled(false);
    for (auto* label : {&lblName, &lblDrug, &lblUsage}) label->setCaption({});
    for (auto* count : {&lblTaken, &lblCNum}) count->setCaption("0");
    txtDosage.clear();
    txtNum.setText("0");
    doses.clear();
    for (auto* when : {&dtDate, &dtTime}) when->setEnabled(false);
    lblTitle.setCaption(name_.empty() ? caption() : caption() + " : " + name_);
}

void frmMedChart::counted() {
    lblTaken.setCaption(std::to_string(doses.taken()));
    lblCNum.setCaption(std::to_string(doses.ticked()));
}

}  // namespace inpatient
