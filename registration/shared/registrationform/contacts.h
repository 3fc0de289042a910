#pragma once

#include <string>
#include <vector>

#include "registration/shared/part.h"

namespace registration {

/// Where a patient is reached, what else is known of him, his kin, and who of the staff introduced him.
class Contacts : public Part {
public:
    Contacts(core::Workplace& place, ui::Screen& screen);

    ui::ComboBox cboArea;
    ui::TextBox txtPhone;
    ui::ComboBox cboMat;  ///< the maturity
    ui::TextBox txtHomeAddress;
    ui::TextBox txtOfficeAddress;
    ui::TextBox txtEmail;
    ui::ComboBox cboMStatus;
    ui::ComboBox txtBG;
    ui::ComboBox txtGeno;
    ui::TextBox txtOccu;
    ui::ComboBox cboStatus;  ///< the religion
    ui::ComboBox cboIntro;
    ui::TextBox txtKin;
    ui::TextBox txtNOKPhone;
    ui::ComboBox txtKinRel;
    ui::TextBox txtKinAddress;

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
