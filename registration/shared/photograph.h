#pragma once

#include <string>

#include "core/forms/part.h"
#include "core/pictures/jpeg.h"

namespace registration {

/// Shows the photograph that is stored with the patient, or nothing. Throws db::Error.
void showPhotograph(core::Workplace& place, ui::Picture& picture, const std::string& pno);

/// A patient's photograph: a JPEG in the patient's row, or a file where the hospital keeps them so. What is shown and
/// stored is the chosen file's picture drawn anew (core::redrawnJpeg); the text box holds the name of the chosen file.
class Photograph : public core::Part {
public:
    Photograph(core::Workplace& place, ui::Screen& screen) : Part(place, screen) { txtPix.setVisible(false); }

    ui::TextBox txtPix{screen(), "txtPix"};
    ui::Picture imgPix{screen(), "imgPix"};
    ui::Button cmdPix{screen(), "cmdPix", "P&hotograph..."};

    /// Lets the nurse choose a file and shows it. Throws db::Error for what is no JPEG, or larger than 5 MB.
    void choose();
    /// Stores the chosen picture with the patient and removes the file; nothing without one. Throws db::Error.
    void save(const std::string& pno);
    /// Shows what is stored, or nothing. Throws db::Error.
    void load(const std::string& pno) {
        txtPix.clear();  // what was chosen for somebody else
        showPhotograph(place(), imgPix, pno);
    }
    void clear();
};

}  // namespace registration
