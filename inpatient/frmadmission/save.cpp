// The save: the stay, and all that says elsewhere where its patient is, together or not at all.

#include "core/care/staylimit.h"
#include "core/rows/grids.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/letters.h"
#include "inpatient/frmadmission/frmadmission.h"

namespace inpatient {

using namespace db::literals;

std::vector<core::Check> frmAdmission::checks() {
    return {{cboWard.text().empty(), "Please specify Ward No", &cboWard},
            {!dtDate.value(), "Please specify Admission Date", &dtDate},
            {!dtTime.value(), "Please specify Admission Time", &dtTime},
            {!editing() && consultID_.empty(), "Please specify Patient Name", &cboVehNo}};
}

bool frmAdmission::maySave() {
    const bool lies =
        !editing() &&
        !hospital().read("select consultID from qryhAdmission where PNo='"_sql + lblNo.caption() + "'").empty();
    if (!lies) return confirmedSave();
    refuse("This Patient has Previous Admission(s). Please Discharge before new Admission is made", cboVehNo);
    return false;
}

std::optional<core::Refusal> frmAdmission::write() {
    if (editing())
        correctStay();
    else
        addStay();
    written_ = consultID_;
    return std::nullopt;
}

void frmAdmission::addStay() {
    core::addRow(hospital(), "select * from hAdmission where 1=2"_sql,
                 core::joined(cells(), {{"PNo", lblNo.caption()},
                                        {"consultID", consultID_},
                                        {"clientCat", lblClient.caption()},
                                        {"conID", conID_}}));
    const auto consult = " where consultID = '"_sql + consultID_ + "'";
    hospital().execute("Update hreferal set attendedTo = 1 where ConsultID = '"_sql + consultID_ + "'");
    hospital().execute("Update hConsulting set Remarks='ADMISSION'"_sql + consult);
    hospital().execute("Update hrecords set clinicType='(IN-PATIENT)'"_sql + consult);
    hospital().execute("update hPatients set LastClinicVisited ='(IN-PATIENT)' where pno='"_sql + lblNo.caption() +
                       "'");
}

/// A patient who moves to another ward is such a correction; whoever makes it has admitted him.
void frmAdmission::correctStay() {
    auto stay = hospital().read("select * from hAdmission where consultID ='"_sql + consultID_ + "'");
    core::setCells(stay, cells());
    stay.update();
}

/// What a new stay and a corrected one have in common. The limit is the one that the pick showed: without one there is
/// no date to store, which is an error.
core::Cells frmAdmission::cells() {
    return core::joined(fields().cells(), {{"ExtendAdmissionLimitTo", core::limitOf(lblLimit.caption())},
                                           {"Remarks", editing() ? txtRem.text() : core::trimmed(txtRem.text())},
                                           {"AdmitBy", session().gEmpID},
                                           {"AdmitingDoc", doctor_}});
}

void frmAdmission::committed() {
    message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
    if (editing())
        audit("Edit Admitted Patient: " + lblTitle.caption(), consultID_, lblBill.caption());
    else
        audit("Admit Patient: " + lblTitle.caption(), consultID_, "By Nurse");
}

void frmAdmission::finished() {
    core::selectRow(grdData, "consultID", written_);
}

ui::Control* frmAdmission::controlOf(std::string_view column) {
    if (db::sameName(column, "Remarks")) return &txtRem;
    return RecordForm::controlOf(column);
}

}  // namespace inpatient
