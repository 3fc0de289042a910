#pragma once

#include <string>

#include "core/forms/form.h"
#include "outpatient/frmconsultinfo/sheet.h"

namespace outpatient {

/// "Consultation History": every consultation of a patient (`gCurConsultPNo`), with its sheets, readings, results and
/// the patient's images. The doctors write them elsewhere; here they are read.
class frmConsultInfo : public core::Form {
public:
    explicit frmConsultInfo(core::Workplace& place);

    void load() override;
    void showing() override;

    // -- which consultation --
    ui::ListBox LstDate{*this, "LstDate"};  ///< the consultations, the latest first
    ui::Label Label9{*this, "Label9"};      ///< how many there are
    ui::Label lblDisplay{*this, "lblDisplay"};
    ui::Label lblName{*this, "lblName"};
    ui::Label lblNo{*this, "lblNo"};
    ui::Label lblCon{*this, "lblCon"};        ///< the visit
    ui::Label lblDoc{*this, "lblDoc"};        ///< the doctor
    ui::Label lblClient{*this, "lblClient"};  ///< the billing category
    ui::Label lblCoy{*this, "lblCoy"};        ///< the client
    ui::Button cmdAll{*this, "cmdAll", "Show &All"};
    ui::Button cmdArchive{*this, "cmdArchive", "Ar&chive"};
    ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
    ui::Button cmdAdd{*this, "cmdAdd", "Add"};
    ui::Button cmdANC{*this, "cmdANC", "Antenatal &Record"};
    ui::Button OKButton{*this, "OKButton", "Save"};
    ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

    // -- the sheets --
    Sheet general;
    ui::TextBox txtPresc{*this, "txtPresc"};          ///< what was prescribed, injected and served
    ui::TextBox txtRem{*this, "txtRem"};              ///< the vital signs
    ui::TextBox txtLabResult{*this, "txtLabResult"};  ///< the last result that the doctor asked for
    ui::DataGrid grdDataLab{*this, "grdDataLab"};
    Sheet dental;
    Sheet eye;
    Sheet physio;
    ui::DatePicker dtRevw{*this, "dtRevw"};          ///< the physiotherapist's review
    ui::DatePicker dtApptDate{*this, "dtApptDate"};  ///< and next appointment
    Sheet surgery;

    // -- images --
    ui::ListBox lstDate2{*this, "lstDate2"};
    ui::Picture imgPix{*this, "imgPix"};
    ui::TextBox txtDesc{*this, "txtDesc"};  ///< what the image shows

private:
    void fillConsultations();
    void fillImages();
    void LstDate_Click();
    void lstDate2_Click();
    void showImage(const std::string& number);
    void cmdEdit_Click();
    void cmdCancel_Click();
    void cmdANC_Click();
    void readArchive(bool archive);
    void clear();

    // -- the sheets of a consultation (sheets.cpp) --
    /// The connection that the archive switch selects.
    [[nodiscard]] db::Connection& history();
    void showSheets();
    void showGeneral();
    void showVitalSigns();
    void showPhysiotherapy();
    void showSurgery();
    void showLaboratory();
    void clearSheets();

    bool showAllConsults_ = false;
    std::string consultantId_;          ///< the doctor of the consultation shown
    std::string selectedConsultId_;     ///< its visit
    std::string selectedConsultRowId_;  ///< its row
    std::string pno_;                   ///< whose consultations the list shows
};

}  // namespace outpatient
