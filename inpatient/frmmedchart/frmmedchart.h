#pragma once

#include <optional>
#include <string>

#include "core/forms/doseboxes.h"
#include "core/forms/form.h"
#include "inpatient/frmmedchart/chartedpatient.h"
#include "inpatient/shared/stays.h"

namespace inpatient {

/// "MEDICATION CHART": what each patient in the wards still has to take, and each dose as it is given. A line of the
/// chart holds a number of doses and how many of them were given; one tick is one dose. Nothing is charged here.
class frmMedChart : public core::Form {
public:
    /// `opened` is where the screens that are opened from here look for the patient.
    frmMedChart(core::Workplace& place, ChartedPatient& opened);

    void load() override;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return lstPat.text(); }

    // -- the patient --
    ui::ListBox lstPat{*this, "lstPat"};  ///< all patients in the wards
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblPatient{*this, "lblPatient"};  ///< the name
    ui::Label lblCon{*this, "lblCon"};          ///< the consult number
    ui::Label lblNo{*this, "lblNo"};            ///< the system number
    ui::Label lblClient{*this, "lblClient"};    ///< the client category
    ui::Label lblCoy{*this, "lblCoy"};          ///< the client
    ui::Label lblRoomNo{*this, "lblRoomNo"};    ///< the ward

    // -- a line of the chart --
    ui::ListBox LstDate{*this, "LstDate"};  ///< the drugs that are still to be given; a double click discontinues one
    ui::Label lblDrug{*this, "lblDrug"};
    ui::Label lblName{*this, "lblName"};        ///< the drug's category
    ui::Label lblUsage{*this, "lblUsage"};      ///< how the drug is to be taken
    ui::TextBox txtDosage{*this, "txtDosage"};  ///< the treatment that the doctors ordered
    ui::TextBox txtNum{*this, "txtNum"};        ///< the doses in all
    ui::Label lblTaken{*this, "lblTaken"};      ///< the doses given, with those ticked now
    ui::Label lblCNum{*this, "lblCNum"};        ///< the doses ticked now
    ui::DatePicker dtDate{*this, "dtDate"};     ///< when they are given
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};
    ui::TabStrip SSTab1{*this, "SSTab1", {"Doses 1 to 64", "65 to 128", "129 to 192"}};
    core::DoseBoxes doses;

    // -- what was given --
    ui::DataGrid grdData{*this, "grdData"};

    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdUpd{*this, "cmdUpd", "&Update where Necessary"};
    ui::Button cmdPat{*this, "cmdPat", "&No Patient Drugs to Chart?, Add one "};
    ui::Button cmdDel{*this, "cmdDel", "&Delete"};
    ui::Button cmdDisp{*this, "cmdDisp", "View D&iscontinued/Completed Drugs"};
    ui::Button cmdPresc{*this, "cmdPresc", "View Prescri&ption"};
    ui::Button cmdComment{*this, "cmdComment", "C&omment"};
    ui::Button cmdDress{*this, "cmdDress", "Add Dressing to Chart"};
    ui::Button cmdCancel{*this, "cmdCancel", "&Clear"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    /// The line of the chart that is open.
    struct Line {
        std::string id;
        std::string conID;
        std::string drug;
    };

    // -- opening a patient and a line (opening.cpp) --
    void lstPat_Click();
    void openPatient();
    void clearPatient();
    /// Whether a scheme patient's stay still runs; says either. Throws db::Error.
    bool mayBeCharted(const db::Recordset& stay);
    void showDrugs();
    void showHistory();
    void LstDate_Click();
    void openLine();
    void clearLine();
    void counted();

    // -- charting (charting.cpp) --
    void OKButton_Click();
    void chart();
    void cmdUpd_Click();
    void discontinue();
    void cmdDel_Click();
    void deleteAct();

    void cmdPat_Click();
    /// Takes dispensed drugs over into the chart: one line each. Throws db::Error.
    void loadDrugs(db::Recordset& dispensed);

    // -- what else the chart opens --
    void cmdPresc_Click();
    void cmdDisp_Click();
    void cmdComment_Click();
    void refresh();

    ChartedPatient& opened_;
    StayLabels labels_;
    std::string consultID_;  ///< of the patient opened last
    std::string name_;       ///< the patient's
    std::optional<Line> line_;
};

}  // namespace inpatient
