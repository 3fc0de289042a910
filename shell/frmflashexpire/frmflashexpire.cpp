#include "shell/frmflashexpire/frmflashexpire.h"

#include "core/care/staylimit.h"
#include "core/rows/grids.h"
#include "db/connection.h"
#include "db/value.h"
#include "shell/waitinglists.h"

namespace shell {

using namespace db::literals;
using ui::Event;

frmFlashExpire::frmFlashExpire(core::Workplace& place) : Form(place, "frmFlashExpire", "Expired Admission") {
    dGexp.setCaption("List of Expired Admission");
    bind(dGexp, Event::click, &frmFlashExpire::chooseStay);
    bind(dGexp, Event::dblClick, &frmFlashExpire::dGexp_DblClick);
    bind(txtLimit, Event::gotFocus, &frmFlashExpire::txtLimit_GotFocus);
    bind(cmdUpdate, Event::click, &frmFlashExpire::cmdUpdate_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmFlashExpire::load() {
    trapped([this] { dGexp.bind(expiredStays()); });
}

db::Recordset frmFlashExpire::expiredStays() {
    return hospital().readShared(
        "select AdmDate,aTime as Time,FullName,ConsultID,Company,ClientCat,ExtendAdmissionLimitTo as "
        "ExpiredAdmission,PNo"_sql +
        fromExpiredStays());
}

void frmFlashExpire::chooseStay() {
    if (dGexp.row() < 0) return;
    lblName.setCaption(dGexp.text("FullName"));
    lblCon.setCaption(dGexp.text("ConsultID"));
    lblNo.setCaption(dGexp.text("PNo"));
    lblAdmDate.setCaption(dGexp.text("AdmDate"));
    lblTime.setCaption(dGexp.text("Time"));
    const auto limit = dGexp.rows()["ExpiredAdmission"];
    lblLimit.setCaption(core::limitText(limit.isNullOrEmpty() ? place().now().date() : limit.moment()));
}

void frmFlashExpire::dGexp_DblClick() {
    chooseStay();
    desktop().focus(txtLimit);
}

/// Who goes on to the hours means the stay under the list's cursor.
void frmFlashExpire::txtLimit_GotFocus() {
    if (lblCon.caption().empty()) chooseStay();
}

void frmFlashExpire::cmdUpdate_Click() {
    if (!passes({{blank(txtLimit), "Specify No of Hrs to Extend Stay in  Admission to", &txtLimit},
                 {db::leadingNumber(txtLimit.text()) == 0, "Please Specify a Value greater than zero", &txtLimit}}))
        return;
    Extension wanted;
    if (!trapped([&] { wanted = extension(); })) return desktop().focus(txtLimit);
    if (confirmed("Are you sure to Extend Stay in Admission of " + lblName.caption() + "\r\nto " + wanted.until,
                  "Extend Stay in Admission"))
        extend(wanted);
}

frmFlashExpire::Extension frmFlashExpire::extension() const {
    const int hours = db::Value(txtLimit.text()).int16();
    return {hours, core::limitText(core::limitOf(lblLimit.caption()).plusHours(hours))};
}

void frmFlashExpire::extend(const Extension& extension) {
    // Two commands that stand or fall by themselves: a fault between them leaves the patient's hours set and the stay's
    // limit as it was. The page's note of the save goes with the second, which extends the stay.
    const bool extended = saves(cmdUpdate, [&] {
        hospital().execute("update hPatients set  AdmissionDaysLimit='"_sql + extension.hours + "' where PNo='" +
                           lblNo.caption() + "' and AdmissionDaysLimit=0");
        db::Transaction stay(hospital());
        hospital().execute("update hAdmission set  ExtendAdmissionLimitTo='"_sql + extension.until +
                           "' where ConsultID='" + lblCon.caption() + "'");
        stay.commit();
    });
    if (!extended) return;
    audit("Extend Stay in Admission of " + lblName.caption() + " from " + lblLimit.caption() + " to " + extension.until,
          lblCon.caption());
    clearStay();
    trapped([this] { core::refreshRows(dGexp, expiredStays(), {"ConsultID"}); });
    message(
        "Stay in Admission Succefully Extended!\r\nFront Desk Officer Should enter the Approval Code in the 'Approval "
        "Code' Page");
    desktop().focus(dGexp);
}

void frmFlashExpire::clearStay() {
    for (auto* label : {&lblName, &lblCon, &lblNo, &lblAdmDate, &lblTime, &lblLimit}) label->setCaption({});
    txtLimit.clear();
}

}  // namespace shell
