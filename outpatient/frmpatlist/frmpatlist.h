#pragma once

#include "core/forms/form.h"

namespace outpatient {

/// "Patient List": whose consultations or medication chart are to be read. What it opens is modal where it is itself.
class frmPatList : public core::Form {
public:
    explicit frmPatList(core::Workplace& place);

    [[nodiscard]] std::optional<std::string> patientEntry() const override { return cboVehNo.text(); }

    ui::CheckBox chkToday{*this, "chkToday", "&Today's Patients"};
    ui::CheckBox chkAll{*this, "chkAll", "&All Consulted Patients"};
    ui::CheckBox chkAdmit{*this, "chkAdmit", "Patients on Ad&mission"};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::freeText, ui::upperCase};
    ui::Button OKButton{*this, "OKButton", "Display &Consultation History (If Available)"};
    ui::Button cmdAdmHist{*this, "cmdAdmHist", "View Medication Chart &History"};
    ui::Button cmdView{*this, "cmdView", "&View UnSaved Image"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    /// Lists the patients whom a statement finds, if its box was ticked, and takes the other ticks away.
    void list(const ui::CheckBox& kind, const db::Sql& patients);
    void cboVehNo_Click();
    void cmdView_Click();
    /// Opens a screen about the patient chosen, or says that there is none.
    void openFor(const char* screen);
    void complete();
    void open(const char* screen);
};

}  // namespace outpatient
