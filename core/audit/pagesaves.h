#pragma once

#include "core/session/workplace.h"
#include "ui/seat.h"

namespace core {

/// Notes each save of a page's session (core::Form::saves) in PageSaves, in the transaction of the save itself: after a
/// crash the row is there exactly where the save is.
void notePageSaves(Workplace& place, const std::string& user, const ui::SaveNotes& notes);

/// The last save of the user's session of this name. Throws db::Error.
std::optional<ui::StoredSave> lastPageSave(Workplace& place, const std::string& user, const std::string& session);

/// Forgets what no page will ask for any more: saves of more than a month ago. Throws db::Error.
void forgetOldPageSaves(db::Databases& databases);

}  // namespace core
