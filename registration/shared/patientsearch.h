#pragma once

#include <initializer_list>
#include <string>

#include "core/session/workplace.h"
#include "ui/controls.h"

namespace registration {

/// What a search box is searched for.
enum class SearchKind { name, cardNo, sysNo, phoneNo };

/// Shows patients in a grid and says how many there are; without one the grid is empty.
void showFound(ui::DataGrid& grid, ui::Label& lblFound, db::Recordset patients,
               std::initializer_list<std::string_view> hidden);

/// The search of the attendance desk: the name with a "%" at both ends, the card's number or the system's exactly.
/// Quotes are doubled. Throws db::Error.
db::Recordset searchAtDesk(core::Workplace& place, SearchKind kind, const std::string& text);

/// The first `gSearchValue` patients whose name holds the text, which stands in the statement as it is: for the search
/// while typing. Throws db::Error.
db::Recordset firstByName(core::Workplace& place, const std::string& text);

/// What an empty search box says to each button.
const char* searchPrompt(SearchKind kind);

/// "123" as 000000123 and the hospital's number; a number with a "/" as it stands.
std::string systemNumber(const core::Session& session, const std::string& text);

}  // namespace registration
