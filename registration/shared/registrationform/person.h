#pragma once

#include <string>

#include "core/forms/part.h"
#include "registration/shared/registrationform/stage.h"

namespace registration {

/// Who a patient is: the names, the sex, and the birth date with the age in words.
class Person : public core::Part {
public:
    Person(core::Workplace& place, ui::Screen& screen, const Stage& stage);

    ui::ComboBox cboTitle{screen(), "cboTitle"};
    ui::TextBox txtsurNAme{screen(), "txtsurNAme", ui::upperCase};
    ui::TextBox txtfirstNAme{screen(), "txtfirstNAme", ui::upperCase};
    ui::ComboBox txtSex{screen(), "txtSex", ui::ComboBox::Style::listOnly};
    ui::DatePicker dtDate{screen(), "dtDate"};
    ui::TextBox txtAge{screen(), "txtAge"};

    /// The names as they are stored: without brackets, which mark keys in lists.
    [[nodiscard]] std::string surname() const;
    [[nodiscard]] std::string firstName() const;
    [[nodiscard]] std::string fullName() const { return surname() + " " + firstName(); }
    /// Shows the age on the birth date, in words.
    void showAge();

private:
    void takeAge();
    void warnOfNamesakes();

    const Stage& stage_;
    bool typingAge_ = false;  ///< the birth date comes from the age: it puts no words in its place
};

}  // namespace registration
