// Opening a child's visit, new or saved, and what was saved already.

#include <array>
#include <chrono>

#include "core/clock/clock.h"
#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/session/trap.h"
#include "core/texts/texts.h"
#include "outpatient/frmimmune/frmimmune.h"

namespace outpatient {

using namespace db::literals;

namespace {

struct Vital {
    const char* column;
    const char* unit;
};
constexpr std::array<Vital, 8> vitalColumns = {{{"temp", "deg C"},
                                                {"Pressure", "mm Hg"},
                                                {"pulse", "/min"},
                                                {"Weight", "Kg"},
                                                {"Height", "m"},
                                                {"respRatio", "/min"},
                                                {"urineAlb", ""},
                                                {"urineSug", ""}}};

/// How long the keyboard is quiet before a search begins.
constexpr std::chrono::milliseconds searchAfter(250);

}  // namespace

void frmImmune::cboVehNo_Click() {
    waiting.follow();
    const auto consultID = core::entryOf(cboVehNo.text()).key;
    if (consultID != consultID_) clearVisit();
    openVisit(consultID);
}

/// Nobody half read is shown.
void frmImmune::openVisit(const std::string& consultID) {
    clearPatient();
    consultID_ = session().gCommentConsultID = consultID;
    const auto visit =
        hospital().read("select * from qryhPreConsultVitalsOptional where consultID='"_sql + consultID + "'");
    if (!visit.empty()) {
        const auto person =
            hospital().read("select DOB, pPhoneNo from hPatients where PNo='"_sql + visit["PNo"].textOr() + "'");
        showPatient(visit);
        phone_ = person["pPhoneNo"].textOr();
        showSchedule({person["DOB"].isNullOrEmpty() ? std::nullopt : std::optional(person["DOB"].moment().date()),
                      lblSex.caption(), session().gServerDate});
    }
    showRows();
}

/// The schedule is a help: a visit is recorded without it too.
void frmImmune::showSchedule(const ScheduledChild& child) {
    core::quietly(place(), [&] { schedule.show(lblNo.caption(), child); });
    if (!cboAge.items().empty() || !child.born || *child.born > child.today) return;
    cboAge.add(ageInWords(*child.born, child.today));
    for (const auto& age : schedule.ages())
        if (cboAge.items().find(age) < 0) cboAge.add(age);
}

void frmImmune::clearPatient() {
    for (auto* label : {&lblPatient, &lblNo, &lblBill, &lblClient, &lblCoy, &lblSex, &lblAge, &lblOccup, &lblBlood,
                        &lblGeno, &lblRem})
        label->setCaption({});
    for (auto& vital : txtVital) vital.clear();
    for (auto* text : {&company_, &phone_}) text->clear();
    schedule.clear();
}

void frmImmune::showPatient(const db::Recordset& visit) {
    struct Shown {
        ui::Label* label;
        const char* column;
    };
    for (const auto& [label, column] :
         {Shown{&lblPatient, "FullName"}, Shown{&lblNo, "PNo"}, Shown{&lblBill, "consultID"},
          Shown{&lblClient, "clientCat"}, Shown{&lblCoy, "CoyName"}, Shown{&lblSex, "Sex"}, Shown{&lblAge, "Age"},
          Shown{&lblOccup, "occupation"}, Shown{&lblBlood, "bloodGroup"}, Shown{&lblGeno, "genotype"},
          Shown{&lblRem, "Status"}})
        label->setCaption(visit[column].textOr());
    company_ = visit["Company"].textOr();
    session().gCurPatientName = lblPatient.caption();
    showVitals(visit);
}

/// What was not taken has no unit either.
void frmImmune::showVitals(const db::Recordset& readings) {
    for (std::size_t place = 0; place < vitalColumns.size(); ++place) {
        const auto& [column, unit] = vitalColumns.at(place);
        const auto reading = readings.empty() ? std::string() : readings[column].textOr();
        txtVital[place].setText(reading.empty() ? reading : reading + unit);
    }
}

/// What cannot be read whole leaves the entry as it was.
void frmImmune::grdData_DblClick() {
    if (grdData.row() < 0) return;
    const auto cell = [this](const char* column) { return grdData.text(column); };
    const auto consultID = cell("ConsultID");
    const auto vitals = hospital().read("select top 1 * from hPreConsult where consultID='"_sql + consultID + "'");
    const auto next = hospital().read(
        "select top 1 * from hAppointment where ClinicType='IMMUNIZATION' and consultID='"_sql + consultID + "'");
    auto lines = hospital().read(
        "select distinct * from billAccum   where revType = 'IMMUNIZATION' and consultID='"_sql + consultID + "'");
    const auto id = cell("ID");
    const auto date = grdData.rows()["Date"];
    const auto age = cell("AgeValue");
    const auto remarks = cell("Remarks");
    const auto entry = core::entryText(cell("Fullname") + " " + date.textOr() + " @" + cell("Time"), consultID);
    clear();
    if (core::itemWithKey(cboVehNo, consultID) < 0) {
        cboVehNo.add(entry);
        waiting.show();
    }
    cboVehNo.setIndex(core::itemWithKey(cboVehNo, consultID));
    if (blank(lblBill)) return;
    core::showDate(dtDate, date);
    cboAge.setText(age);
    txtRem.setText(remarks);
    showVitals(vitals);
    showAppointment(next);
    showItems(lines);
    core::selectRow(grdData, "ID", id);
    desktop().focus(cboDrug);
}

void frmImmune::showAppointment(const db::Recordset& next) {
    chkRef.setChecked(!next.empty());
    if (next.empty()) return;
    core::showDate(dtNext, next["ApptDate"]);
    core::showDate(dtRefTime, next["ApptTime"]);
    txtImm.setText(next["Remarks"].textOr());
}

void frmImmune::showItems(db::Recordset& lines) {
    OrderGrid.clearLines();
    for (; !lines.eof(); lines.moveNext()) {
        const auto number = [&](const char* column) { return db::numberText(lines[column].numberOr(0)); };
        OrderGrid.addLine({lines["drgName"].textOr(), lines["Category"].textOr(), number("Price"), number("Qty"),
                           number("SubTotal"), lines["Capitated"].textOr()});
    }
    showTotal();
}

/// The saved visits: the child's, or of today while none is chosen.
void frmImmune::showRows() {
    const bool ofChild = !blank(lblNo);
    core::refreshRows(
        grdData,
        ofChild ? hospital().read("SELECT ID, Fullname, ImDate as Date, ImTime as Time, AgeValue, "
                                  "Immunization,Remarks,ConsultID, EmpID,EmpName as Nurse,PNo,ClientCat from "
                                  "vwhImmunization where pno ='"_sql +
                                  lblNo.caption() + "'")
                : hospital().readShared("SELECT ID, Fullname, ImDate as Date, ImTime as Time, AgeValue, Immunization, "
                                        "Remarks,ConsultID, EmpID,EmpName as Nurse,PNo,clientcat from vwhImmunization "
                                        "where imDate ='"_sql +
                                        session().gServerDate + "'"),
        {"ID"});
    grdData.setCaption(ofChild ? "Child Immunization:" : "Immunization:");
}

/// Each keystroke starts the wait anew.
void frmImmune::search() {
    const int turn = ++searchTurn_;
    if (blank(txtSearch)) return showRows();
    core::WaitWithEvents(place(), searchAfter, {[&] { return turn != searchTurn_; }});
    if (turn != searchTurn_) return;
    core::refreshRows(grdData,
                      hospital().read("SELECT ID, Fullname, ImDate as Date, ImTime as Time, AgeValue, "
                                      "Immunization,Remarks,ConsultID, EmpID,EmpName as Nurse,PNo,ClientCat from "
                                      "vwhImmunization where FullName like '%"_sql +
                                      core::quotesDoubled(core::trimmed(txtSearch.text())) + "%'"),
                      {"ID"});
    grdData.setCaption("Immunization:");
}

}  // namespace outpatient
