#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/forms/part.h"
#include "registration/shared/patientsearch.h"

namespace registration {

/// The search box for patients with its three buttons: by name, by the card's number, and by one more number. Enter
/// presses the one that suits what stands there.
class SearchBox : public core::Part {
public:
    /// `numberSearch` is what the third button looks for; `search` runs when something stands in the box.
    SearchBox(core::Workplace& place, ui::Screen& screen, SearchKind numberSearch,
              std::function<void(SearchKind)> search);

    ui::TextBox txtName{screen(), "txtName"};
    ui::Button cmdOK{screen(), "cmdOK", "By &Name"};
    ui::Button cmdCard{screen(), "cmdCard", "Card No"};
    ui::Button cmdSys;
    ui::Label lblFound{screen(), "lblFound"};  ///< how many were found

    /// Searches, or says what an empty box wants.
    void find(SearchKind kind);
    /// What stands in the box; a system number is completed there first.
    [[nodiscard]] std::string wanted(SearchKind kind);
    void setEnabled(bool enabled);
    [[nodiscard]] std::vector<ui::Control*> controls() { return {&txtName, &cmdOK, &cmdCard, &cmdSys, &lblFound}; }

private:
    std::function<void(SearchKind)> search_;
};

}  // namespace registration
