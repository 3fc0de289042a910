#pragma once

#include <string>

#include "registration/shared/searchbox.h"

namespace registration {

/// Finds the patients of a registration and shows them in a grid, also while the nurse types.
class PatientFinder : public SearchBox {
public:
    /// The statements of a search; a limited one takes the first `gSearchValue` patients alone.
    using Statements = db::Recordset (*)(core::Workplace& place, SearchKind kind, const std::string& text,
                                         bool limited);
    PatientFinder(core::Workplace& place, ui::Screen& screen, ui::DataGrid& grid, SearchKind numberSearch,
                  Statements statements);

    /// Shows who was registered today. Throws db::Error, as the next.
    void showToday();
    /// Searches by the name that stands in the box, or shows today's.
    void showAgain();
    /// Drops a search that waits for the nurse to stop typing.
    void stop();

private:
    void show(SearchKind kind, bool limited = false);
    void searchWhileTyping();

    ui::DataGrid& grid_;
    Statements statements_;
    std::string title_;  ///< the screen's caption while no patient is shown
    int turn_ = 0;       ///< a keystroke during the wait of an earlier one starts it afresh
};

}  // namespace registration
