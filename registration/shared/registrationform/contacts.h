#pragma once

#include <string>
#include <vector>

#include "core/forms/part.h"

namespace registration {

/// Where a patient is reached, what else is known of him, his kin, and who of the staff introduced him.
class Contacts : public core::Part {
public:
    Contacts(core::Workplace& place, ui::Screen& screen);

    ui::ComboBox cboArea{screen(), "cboArea"};
    ui::TextBox txtPhone{screen(), "txtPhone", ui::digitsOnly};
    ui::ComboBox cboMat{screen(), "cboMat", ui::ComboBox::Style::listOnly};  ///< the maturity
    ui::TextBox txtHomeAddress{screen(), "txtHomeAddress"};
    ui::TextBox txtOfficeAddress{screen(), "txtOfficeAddress"};
    ui::TextBox txtEmail{screen(), "txtEmail"};
    ui::ComboBox cboMStatus{screen(), "cboMStatus", ui::ComboBox::Style::listOnly};
    ui::ComboBox txtBG{screen(), "txtBG", ui::ComboBox::Style::listOnly};
    ui::ComboBox txtGeno{screen(), "txtGeno", ui::ComboBox::Style::listOnly};
    ui::TextBox txtOccu{screen(), "txtOccu"};
    ui::ComboBox cboStatus{screen(), "cboStatus", ui::ComboBox::Style::listOnly};  ///< the religion
    ui::ComboBox cboIntro{screen(), "cboIntro"};
    ui::TextBox txtKin{screen(), "txtKin"};
    ui::TextBox txtNOKPhone{screen(), "txtNOKPhone"};
    ui::ComboBox txtKinRel{screen(), "txtKinRel"};
    ui::TextBox txtKinAddress{screen(), "txtKinAddress"};

    /// Reads the areas and the staff. Throws db::Error.
    void loadLists();
    /// Shows who introduced the patient; a staff member who has left stands with the number alone.
    void showIntroducer(const std::string& empID);
    [[nodiscard]] const std::string& introducer() const noexcept { return introducedById_; }
    void forgetIntroducer();
    /// Those that share a page; the area stands with the patient.
    [[nodiscard]] std::vector<ui::Control*> controls();

private:
    void pickIntroducer();

    std::string introducedById_;
};

}  // namespace registration
