// The sheets of the consultation picked: each is read by itself, and the later ones stand where two share a field.

#include "core/rows/cells.h"
#include "core/session/session.h"
#include "outpatient/frmconsultinfo/frmconsultinfo.h"

namespace outpatient {

using namespace db::literals;

namespace {

constexpr const char* lineBreak = "\r\n";

/// One set of vital signs as a nurse reads it.
std::string vitalSigns(const db::Recordset& row) {
    const auto line = [&row](const char* before, const char* column, const char* unit = "") {
        return before + row[column].textOr() + unit + lineBreak;
    };
    return "Date: " + row["preDate"].textOr() + " : " + row["preTime"].textOr() + lineBreak +  //
           line("T = ", "temp", "deg C") + line("B.P. = ", "Pressure", "mm Hg") + line("Pulse = ", "pulse", "/min") +
           line("Weight = ", "Weight", "Kg") + line("Height = ", "Height", "m") +
           line("RespRatio = ", "respRatio", "/min") + line("Urine Alb = ", "urineAlb") +
           line("Urine Sugar = ", "urineSug") + line("Done by = ", "Nurse") + std::string(35, '-') + lineBreak;
}

}  // namespace

db::Connection& frmConsultInfo::history() {
    return place().databases.open(session().gConsultHistoryArchive ? session().gConnArchive : session().gConnHospital);
}

void frmConsultInfo::showSheets() {
    showGeneral();
    dental.show(history().read("select * from qryhPrescriptionInfoForDental where ID = "_sql + selectedConsultRowId_));
    eye.show(history().read("select * from qryhPrescriptionInfoForEye where ID = "_sql + selectedConsultRowId_));
    showPhysiotherapy();
    showSurgery();
    showLaboratory();
}

void frmConsultInfo::showGeneral() {
    const auto row = history().read("select * from qryhPrescriptionInfo where ID = "_sql + selectedConsultRowId_);
    if (row.empty()) return;
    general.show(row);
    consultantId_ = row["treatedBy"].textOr();
    lblName.setCaption(row["fullName"].textOr());
    lblNo.setCaption(row["PNo"].textOr());
    lblDoc.setCaption(row["lastname"].textOr() + " " + row["firstName"].textOr());
    lblClient.setCaption(row["clientCat"].textOr());
    lblCoy.setCaption(row["Company"].textOr());
    std::string given;
    for (const auto* column : {"preScription", "injprescription", "services"})
        given += row[column].textOr() + lineBreak;
    txtPresc.setText(given);
    // The front desk never reads what a patient has.
    if (session().gModuleRole == "RECORDS")
        for (const auto* field : {"txtDiag", "txtDiff"})
            dynamic_cast<ui::TextBox&>(*find(field)).setText("View Not Allowed");
    showVitalSigns();
}

void frmConsultInfo::showVitalSigns() {
    auto readings = history().read("select top 10 * from qryhPreconsultEdit where conID="_sql + selectedConsultRowId_ +
                                   " order by ID Desc");
    std::string text;
    for (; !readings.eof(); readings.moveNext()) text += vitalSigns(readings);
    txtRem.setText(text);
}

void frmConsultInfo::showPhysiotherapy() {
    const auto row = history().read("select * from hPhysio where conID = "_sql + selectedConsultRowId_);
    if (row.empty()) return;
    core::showDate(dtRevw, row["ReviewDate"]);
    core::showDate(dtApptDate, row["ApptDate"]);
    physio.show(row);
}

void frmConsultInfo::showSurgery() {
    surgery.show(
        history().read("select * from qryhPrescriptionInfoForSurgery where ID = "_sql + selectedConsultRowId_));
    const auto result = history().read(
        "select top 1 invDate,pno,consultid,investigate,invResult from vwhInvResForPrevConsultation where treatedBy= '"_sql +
        consultantId_ + "' and consultID='" + selectedConsultId_ + "' order by ID desc");
    if (result.empty()) return;
    txtLabResult.setText("Lab Result Date: " + result["invDate"].textOr() + " [" + result["consultID"].textOr() + "]" +
                         lineBreak + result["invResult"].textOr() + lineBreak + std::string(44, '-'));
}

/// Always the hospital's, also for a consultation from the archive.
void frmConsultInfo::showLaboratory() {
    grdDataLab.bind(hospital().read("select consultID,sympitem,result from hinvestigate where consultID = '"_sql +
                                    selectedConsultId_ + "'"));
}

void frmConsultInfo::clearSheets() {
    for (const auto* sheet : {&general, &dental, &eye, &physio, &surgery}) sheet->clear();
    for (auto* box : {&txtPresc, &txtRem, &txtLabResult}) box->clear();
    for (auto* date : {&dtRevw, &dtApptDate}) date->setValue({});
    for (auto* label : {&lblName, &lblNo, &lblDoc, &lblClient, &lblCoy}) label->setCaption({});
    grdDataLab.clear();
    consultantId_.clear();
}

}  // namespace outpatient
