#include "inpatient/frmpreconsultadm/frmpreconsultadm.h"

#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "db/letters.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

frmPreConsultAdm::frmPreConsultAdm(core::Workplace& place, Trend& trend)
    : RecordForm(place, "frmPreConsultAdm", "Vital Signs"),
      labels_{{&lblBill, "consultID"}, {&lblCat, "clientCat"}, {&lblNo, "PNo"},     {&lblWard, "wardID"},
              {&lblSex, "sex"},        {&lblAge, "Age"},       {&lblCoy, "Company"}},
      trend_(trend) {
    auto fields = readings.fields();
    for (const auto& field :
         {core::Field{&dtDate, "date", "preDate"}, core::Field{&txtStool, "Stool", "Stool"},
          core::Field{&txtUrine, "Urine", "urine"}, core::Field{&txtSDrainage, "SpecialDrainage", "SDrainage"},
          core::Field{&txtRem, "Comment"}})
        fields.add(field);
    keep(std::move(fields));
    enableWhileEntering({&dtTime, &readings.txtPressure, &readings.txtPressure2});
    bind(LstDate, Event::click, &frmPreConsultAdm::LstDate_Click);
    bind(cmdBP, Event::click, [this] {
        showTrend("SELECT preDate, Pressure1, Pressure2"_sql, "BP Chart", "frmhPreConsultChart",
                  {{"Systolic", "Pressure1"}, {"Diastolic", "Pressure2"}});
    });
    bind(cmdPulse, Event::click, [this] {
        showTrend("SELECT preDate, pulse"_sql, "Pulse Chart", "frmhPreConsultChartPulse", {{"Pulse", "pulse"}});
    });
    bind(cmdTemp, Event::click, [this] {
        showTrend("SELECT preDate, temp"_sql, "Temp Chart", "frmhPreConsultChartTemp", {{"Temperature", "temp"}});
    });
    bind(cmdResp, Event::click, [this] {
        showTrend("SELECT preDate, respRatio"_sql, "RespRatio Chart", "frmhPreConsultChartResp",
                  {{"Respiration", "respRatio"}});
    });
    for (const char* column : {"ID", "EmpID", "PNo"}) grdData.hideColumn(column);
    showTitle({});
}

void frmPreConsultAdm::fillLists() {
    setNow();
    readings.fillPositions();
    LstDate.clear();
    addStays(LstDate, hospital(), "select distinct pNO,fullname,consultID from qryhAdmission order by fullname "_sql);
}

void frmPreConsultAdm::setNow() {
    dtDate.setValue(session().gServerDate);
    dtTime.setValue(session().gServerTime);
}

/// The observations of the patient opened last, the latest first.
void frmPreConsultAdm::showList() {
    if (consultID_.empty()) return grdData.clear();
    core::refreshRows(
        grdData,
        hospital().read("select [ID],[Date],[Time],[FullName],[Temp],[Pressure],[Pulse], [RespRatio],[weight],"
                        "[Height],[SPO2],[RBS],[Positioning], [Details],[Comment], [Stool], [Urine], [Sdrainage] as "
                        "SpecialDrainage, [UrineAlb],[UrineSug],[Status],[Nurse], [ConsultID],ClientCat,[PNo], [empID] "
                        "from qryhpreconsultForGridAdm where consultID = '"_sql +
                        consultID_ + "' order by Date desc,Time Desc"),
        {"ID"});
}

// A row stays its patient's.
void frmPreConsultAdm::entered(Mode /*mode*/) {
    LstDate.setEnabled(!editing());
}

void frmPreConsultAdm::clear() {
    RecordForm::clear();
    for (auto* pressure : {&readings.txtPressure, &readings.txtPressure2}) pressure->clear();
    labels_.clear();
    last.clear();
    setNow();
    showTitle({});
}

void frmPreConsultAdm::showTitle(const std::string& name) {
    lblTitle.setCaption("Vital Signs [Four Hourly Chart] " + name);
}

/// Runs the opening again, and leaves nobody picked.
void frmPreConsultAdm::refresh() {
    consultID_.clear();
    RecordForm::refresh();
}

void frmPreConsultAdm::LstDate_Click() {
    if (LstDate.index() < 0) return;
    openPatient();
    showList();
}

void frmPreConsultAdm::openPatient() {
    const auto entry = LstDate.text();
    consultID_ = session().gCommentConsultID = core::entryOf(entry).key;
    patient_ = session().gCurPatientName = entry.substr(0, entry.find('['));
    last.clear();
    showTitle({});
    const auto stay = labels_.open(hospital(), consultID_);
    if (stay.empty()) return;
    showTitle(stay["fullName"].textOr());
    last.show(place(), lblNo.caption());
}

/// The patient who is picked stays, also when a save has emptied the form.
void frmPreConsultAdm::startAdding() {
    setNow();
    if (LstDate.index() >= 0 && blank(lblBill)) LstDate_Click();
    desktop().focus(blank(lblBill) ? static_cast<ui::Control&>(LstDate) : readings.txtTemp);
}

void frmPreConsultAdm::startEditing() {
    RecordForm::startEditing();
    readings.showPressure(grdData);
    recordID_ = grdData.text("ID");
    core::showDate(dtTime, grdData.rows()["Time"]);
    lblNo.setCaption(grdData.text("PNo"));
    lblCat.setCaption(grdData.text("ClientCat"));
    lblBill.setCaption(grdData.text("ConsultID"));
    patient_ = grdData.text("FullName");
    showTitle(patient_);
    last.show(place(), lblNo.caption());
    desktop().focus(readings.txtTemp);
}

std::optional<core::Refusal> frmPreConsultAdm::erase() {
    hospital().execute("delete from hpreconsult where id ="_sql + grdData.text("id"));
    return std::nullopt;
}

void frmPreConsultAdm::showTrend(const db::Sql& readingsOf, const char* title, const char* screen, Lines lines) {
    if (consultID_.empty()) return refuse("Select Patient Name", LstDate);
    auto found = hospital().read(readingsOf + " FROM hpreConsultChart where consultID='" + consultID_ +
                                 "' order by predate,pretime");
    if (found.empty()) return message("No Specified Chart for this Patient");
    trend_ = {.title = title, .patient = patient_, .labels = {}, .series = {}};
    for (const auto& [name, column] : lines) trend_.series.push_back({name, {}});
    for (; !found.eof(); found.moveNext()) {
        trend_.labels.push_back(found["preDate"].textOr());
        std::size_t line = 0;
        // A reading that was not taken, or is no number, leaves a gap.
        for (const auto& [name, column] : lines)
            trend_.series[line++].points.push_back(db::parseNumber(found[column].textOr()));
    }
    desktop().showModal(screen);
}

}  // namespace inpatient
