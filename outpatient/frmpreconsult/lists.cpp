// What the screen chooses from and what it shows of the day.

#include "core/care/staff.h"
#include "core/patients/doctorsqueue.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "outpatient/frmpreconsult/frmpreconsult.h"

using namespace db::literals;

namespace outpatient {

void frmPreConsult::fillLists() {
    showToday();
    readings.fillPositions();
    core::fillStaff(CboRef, hospital(), "CONSULTING", core::StaffOrder::byName);
    cboType.clear();
    cboType.add("");
    core::addColumn(cboType, hospital(),
                    "select distinct ClinicName,ClinicID from clinicTypes where ClinicName not in "
                    "('(IN-PATIENT)','IN-PATIENT')  order by clinicName "_sql,
                    "ClinicID");
}

/// The day's attendances: those that no nurse has seen yet, or all of them.
void frmPreConsult::fillWaiting() {
    const auto columns =
        "SELECT distinct Title,recdate,hTime,pSurname,pfirstname,pno,consultID,ClinicType "
        "FROM qryhPatListForNurse "_sql;
    const auto day = chkAll.checked() ? "where recdate='"_sql : "WHERE attendedTo = 0  and recdate='"_sql;
    cboVehNo.clear();
    cboVehNo.add("");
    core::addEntries(
        cboVehNo, hospital().readShared(columns + day + session().gServerDate + "' order by consultid asc"),
        [](const db::Recordset& row) {
            const auto text = [&](const char* column) { return row[column].textOr(); };
            return core::entryText(text("psurname") + " " + text("pfirstName") + " " + text("Title") + " @" +
                                       text("recDate") + " " + text("htime") + " " + text("clinicType"),
                                   text("consultID"));
        });
}

void frmPreConsult::showList() {
    core::refreshRows(grdData,
                      hospital().readShared(
                          "select [ID],[Date],[Time],[FullName],[Temp],[Pressure],[Pulse], [RespRatio],[weight],"
                          "[Height],[SPO2],[RBS],[Positioning], [Stool], [Urine], [Sdrainage] as SpecialDrainage, "
                          "[UrineAlb],[UrineSug], [Details],[Comment],[Status],[Nurse], [ConsultID],ClientCat,[PNo], "
                          "[empID] from qryhpreconsultForGrid where details ='"_sql +
                          session().gDefaultPatClass + "'"),
                      {"ID"});
    const auto count = grdData.rows().rowCount();
    setCaption("Vital Signs:" + (count == 0 ? std::string() : " " + std::to_string(count)));
    grdData.setCaption(caption());
}

void frmPreConsult::refreshQueue() {
    core::refreshDoctorsQueue(place(), grdDoc, dtDate);
}

}  // namespace outpatient
