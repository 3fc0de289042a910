#pragma once

#include <string>

#include "inpatient/shared/lastvitals.h"
#include "inpatient/shared/stayrecord.h"

namespace inpatient {

/// "Nursing History/State of Health": the assessment of a patient at admission. The list shows those of the day.
class frmNursingHist : public StayRecord {
public:
    explicit frmNursingHist(core::Workplace& place);

    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TabStrip SSTab1{*this, "SSTab1", {"State of health", "Living", "Person", "Examination", "Immunization"}};

    // -- the state of health --
    ui::TextBox txtInfo{*this, "txtInfo"};  ///< the informant
    ui::TextBox txtPresent{*this, "txtPresent"};
    ui::TextBox txtPast{*this, "txtPast"};
    ui::TextBox txtAllerg{*this, "txtAllerg"};
    ui::TextBox txtPercep{*this, "txtPercep"};  ///< how the patient sees the illness

    // -- living --
    ui::TextBox txtNutri{*this, "txtNutri"};
    ui::TextBox txtElim{*this, "txtElim"};
    ui::TextBox txtActivity{*this, "txtActivity"};
    ui::TextBox txtSleep{*this, "txtSleep"};
    ui::TextBox txtComm{*this, "txtComm"};  ///< communication and the special senses
    ui::TextBox txtHabits{*this, "txtHabits"};

    // -- the person --
    ui::TextBox txtFamily{*this, "txtFamily"};
    ui::TextBox txtSex{*this, "txtSex"};
    ui::TextBox txtCoping{*this, "txtCoping"};
    ui::TextBox txtValues{*this, "txtValues"};
    ui::TextBox txtValuables{*this, "txtValuables"};

    // -- the examination --
    ui::TextBox txtUrine{*this, "txtUrine"};
    ui::TextBox txtGen{*this, "txtGen"};  ///< the inspection from head to toe
    ui::TextBox txtPalpation{*this, "txtPalpation"};
    ui::TextBox txtPercu{*this, "txtPercu"};
    ui::TextBox txtAuscu{*this, "txtAuscu"};
    ui::TextBox txtLab{*this, "txtLab"};
    ui::TextBox txtNursing{*this, "txtNursing"};  ///< the nursing diagnosis
    ui::TextBox txtAssess{*this, "txtAssess"};

    // -- immunization and pregnancy --
    ui::CheckBox chkBCG{*this, "chkBCG", "BCG"};
    ui::CheckBox chkPolio{*this, "chkPolio", "Polio"};
    ui::CheckBox chkTet{*this, "chkTet", "Tetanus"};
    ui::CheckBox chkWhoop{*this, "chkWhoop", "Whooping cough"};
    ui::CheckBox chkDiph{*this, "chkDiph", "Diphtheria"};
    ui::CheckBox chkMea{*this, "chkMea", "Measles"};
    ui::TextBox txtOthers{*this, "txtOthers"};
    ui::DatePicker dtLMP{*this, "dtLMP"};  ///< the last menstrual period
    ui::DatePicker dtEdd{*this, "dtEdd"};  ///< the expected date of delivery

    LastVitals vitals{*this};
    ui::Label lblAsOf{*this, "lblAsOf"};  ///< since when the list holds what was saved

protected:
    void fillLists() override;
    void showList() override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    void clear() override;

private:
    void picked() override;
    void layOutPages();

    std::string recordID_;  ///< of the row under correction, then of the row written
};

}  // namespace inpatient
