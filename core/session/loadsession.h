#pragma once

#include "core/session/workplace.h"

namespace core {

/// Starts a session, and reloads its defaults later: reads the two files beside the program, builds the connection
/// strings, confirms the user for this module's role, reads every default, applies the version lock, reads the server's
/// clock and shows `MdiVorel`. Its fatal steps show their message and end the session; any run-time error shows the
/// login message, and ends the session when no main window is open yet.
void LoadSession(Workplace& place);

/// Each reads its file line by line; a missing file throws db::Error(other).
void ReadSysDoc(Workplace& place);
/// Always 0: the result is what `gBillType` and fee lines store.
int ReadMadeSys(Workplace& place);
void ReadEnvironment(Workplace& place);

}  // namespace core
