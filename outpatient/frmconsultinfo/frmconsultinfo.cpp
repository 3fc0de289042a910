#include "outpatient/frmconsultinfo/frmconsultinfo.h"

#include "core/pictures/imagefile.h"
#include "core/rows/entries.h"
#include "core/session/session.h"

namespace outpatient {

using namespace db::literals;
using ui::Event;

frmConsultInfo::frmConsultInfo(core::Workplace& place)
    : Form(place, "frmConsultInfo", "Consultation History"),
      general(*this, {{"txtDiag", "diagnosis"},
                      {"txtDiff", "diffdiagnosis"},
                      {"txtComp", "Complaints"},
                      {"txtHPC", "hpc"},
                      {"txtPMH", "pmh"},
                      {"txtDrugHx", "drugHx"},
                      {"txtSys", "sysreview"},
                      {"txtPhy", "phyexam"},
                      {"txtLab", "investigate"},
                      {"txtLabFind", "Result"},
                      {"txtPlan", "treatPlan"},
                      {"txtMEdRpt", "medRpt"},
                      {"txtRef", "referal"},
                      {"txtMedRemarks", "ClinicRemarks"},
                      {"txtGest", "gestAge"},
                      {"txtAlb", "urineAlb"},
                      {"txtSugar", "urineSug"},
                      {"txtBP", "Bp"},
                      {"txtWgth", "Wt"},
                      {"txtFundus", "fundus"},
                      {"txtPresent", "presentation"},
                      {"txtFH", "fH"},
                      {"txtOed", "oedema"},
                      {"txtHB", "hb"},
                      {"txtPCV", "pcv"},
                      {"txtTT", "tt"},
                      {"txtMO", "mo"}}),
      dental(*this,
             {"dtype",  "intraOralExam", "extraOralExam", "treatDone", "arem",  "crem",   "AULI1",  "AULI2",  "AULC",
              "AULPM1", "AULPM2",        "AULM1",         "AULM2",     "AULM3", "AURI1",  "AURI2",  "AURC",   "AURPM1",
              "AURPM2", "AURM1",         "AURM2",         "AURM3",     "ALLI1", "ALLI2",  "ALLC",   "ALLPM1", "ALLPM2",
              "ALLM1",  "ALLM2",         "ALLM3",         "ALRI1",     "ALRI2", "ALRC",   "ALRPM1", "ALRPM2", "ALRM1",
              "ALRM2",  "ALRM3",         "CULI1",         "CULI2",     "CULC",  "CULPM1", "CULPM2", "CURI1",  "CURI2",
              "CURC",   "CURPM1",        "CURPM2",        "CLLI1",     "CLLI2", "CLLC",   "CLLPM1", "CLLPM2", "CLRI1",
              "CLRI2",  "CLRC",          "CLRPM1",        "CLRPM2"}),
      eye(*this, {"VisualAcuity", "Aided", "PrevSpecRX", "SubjectiveRefraction", "ExtExamOD", "ExtExamOS", "IntExamOD",
                  "IntExamOS", "RemarksEye", "Refraction", "Retino", "Tonometry", "FSPrescLE", "FSPrescRE"}),
      physio(*this, {"Activity", "Coping", "Limitation", "Tests", "Impression", "Goals", "Means"}),
      // The haemoglobin, the packed cells and the sugar have one field with those of the antenatal sheet.
      surgery(*this, {"sDate",
                      "indications",
                      "operation",
                      "consent",
                      "relation",
                      "urinalysis",
                      "sediments",
                      "sugar",
                      "acetone",
                      "aib",
                      "sg",
                      "blood",
                      "hb",
                      "pcv",
                      "wbc",
                      "wbc_p",
                      "wbc_L",
                      "wbc_m",
                      "wbc_e",
                      "wbc_esr",
                      "urea",
                      "urea_na",
                      "urea_cL",
                      "urea_PCO3",
                      "occultBlood",
                      "chestXray",
                      "ecg",
                      "bloodGroup",
                      "surgeon",
                      "Assistant",
                      "anaesthetist",
                      "preOPBP",
                      "pulse",
                      "postOPBP",
                      "hgp",
                      "findings",
                      "Prosedure",
                      "hiv",
                      "AnaesthNotePre",
                      "AnaesthNotePost"}) {
    bind(LstDate, Event::click, &frmConsultInfo::LstDate_Click);
    bind(LstDate, Event::dblClick, &frmConsultInfo::cmdEdit_Click);
    bind(cmdEdit, Event::click, &frmConsultInfo::cmdEdit_Click);
    bind(cmdAll, Event::click, [this] { readArchive(false); });
    bind(cmdArchive, Event::click, [this] { readArchive(true); });
    bind(lstDate2, Event::click, &frmConsultInfo::lstDate2_Click);
    bind(imgPix, Event::dblClick, [this] {
        if (modal()) return desktop().showModal("frmSuperPicture");
        desktop().show("frmSuperPicture");
    });
    bind(cmdANC, Event::click, &frmConsultInfo::cmdANC_Click);
    bind(cmdCancel, Event::click, &frmConsultInfo::cmdCancel_Click);
    bind(CancelButton, Event::click, [this] { close(); });
    // Nobody adds a consultation here.
    cmdAdd.setEnabled(false);
    for (auto* box : {&txtPresc, &txtRem, &txtLabResult, &txtDesc}) box->setEnabled(false);
    for (auto* date : {&dtRevw, &dtApptDate}) date->setEnabled(false);
    grdDataLab.hideColumn("consultID");
}

void frmConsultInfo::load() {
    pno_ = session().gCurConsultPNo;
    session().gConsultHistoryArchive = false;
    showAllConsults_ = false;
    cmdCancel_Click();
    trapped([this] {
        fillConsultations();
        fillImages();
    });
    desktop().focus(LstDate);
}

/// Another patient may have been chosen since the screen was open last.
void frmConsultInfo::showing() {
    if (pno_ != session().gCurConsultPNo) load();
}

void frmConsultInfo::fillConsultations() {
    LstDate.clear();
    const auto columns = "ID,fullname,cDate,cTime,consultID from qryhPrescriptionInfoList where pNo='"_sql;
    const auto half = db::Value(db::Value(session().gSearchValue).number() / 2).int32();
    auto found =
        history().read((showAllConsults_ ? "select "_sql + columns : "select  top "_sql + half + "  " + columns) +
                       pno_ + "' order by ID desc");
    Label9.setCaption(found.empty() ? "0 Consultation" : std::to_string(found.rowCount()) + " Consultations");
    if (found.empty()) {
        lblDisplay.setCaption({});
        lblName.setCaption({});
        selectedConsultId_.clear();
        selectedConsultRowId_.clear();
    }
    LstDate.expect(found.rowCount());
    for (; !found.eof(); found.moveNext())
        LstDate.add(
            core::entryText(found["cDate"].textOr() + " @" + found["cTime"].textOr(), found["consultID"].textOr()),
            found["ID"].text());
}

void frmConsultInfo::fillImages() {
    lstDate2.clear();
    auto images = hospital().read("select SNo,DtDate,DtTime from vwhPix where PNo='"_sql + pno_ + "'");
    for (; !images.eof(); images.moveNext())
        lstDate2.add(core::entryText(images["DtDate"].textOr(), images["DtTime"].textOr()), images["SNo"].text());
}

void frmConsultInfo::readArchive(bool archive) {
    session().gConsultHistoryArchive = archive;
    showAllConsults_ = true;
    fillConsultations();
    desktop().focus(LstDate);
}

void frmConsultInfo::LstDate_Click() {
    const auto entry = LstDate.text();
    if (entry.empty()) return refuse("empty Date value in the Box not allowed", LstDate);
    selectedConsultId_ = core::entryOf(entry).key;
    selectedConsultRowId_ = LstDate.key();
    clearSheets();
    lblCon.setCaption(selectedConsultId_);
    lblDisplay.setCaption(entry.substr(0, entry.find(" @")));
    showSheets();
}

void frmConsultInfo::lstDate2_Click() {
    if (lstDate2.text().empty()) return refuse("empty Date value not allowed", lstDate2);
    session().gPictureCaller = name();
    showImage(lstDate2.key());
}

void frmConsultInfo::showImage(const std::string& number) {
    imgPix.setImage({});
    txtDesc.clear();
    session().gPictureFile.clear();
    const auto row = hospital().read("Select Image,Remarks from hPix where SNo="_sql + number);
    if (row.empty()) return;
    txtDesc.setText(row["Remarks"].textOr());
    if (row["Image"].isNull()) return;
    const auto stored = row["Image"];
    const auto& image = stored.bytes();
    core::requireImage(image);
    const auto file = place().programFile(number + ".JPG");
    core::writeImage(file, image);
    session().gPictureFile = file.string();
    imgPix.setImage(image);
}

void frmConsultInfo::cmdEdit_Click() {
    if (LstDate.index() < 0) return refuse("Select a Value in the Box to Edit", LstDate);
    session().gConsultHistoryArchive = false;
    if (consultantId_ == session().gEmpID) return;
    LstDate_Click();
    message("Cannot Edit Another Doctor's Consultation Details! Viewing is Allowed");
}

void frmConsultInfo::cmdCancel_Click() {
    for (auto* command : {&cmdAdd, &cmdEdit}) command->setVisible(true);
    for (auto* command : {&OKButton, &cmdCancel}) command->setVisible(false);
    clear();
}

void frmConsultInfo::cmdANC_Click() {
    if (blank(lblNo)) return message("Patient System No Required! Please select a Patient");
    session().gCurPNo = lblNo.caption();
    session().gCurPatientName = lblName.caption();
    desktop().show("frmAnteNatalReg");
}

void frmConsultInfo::clear() {
    clearSheets();
    for (auto* label : {&lblDisplay, &lblCon}) label->setCaption({});
    imgPix.setImage({});
    txtDesc.clear();
}

}  // namespace outpatient
