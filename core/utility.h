#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/workplace.h"

namespace core {

/// What the shared routines need of the main window; it registers itself here and is absent before it opens and in
/// tests of single routines.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    virtual void showDebt(const std::string& text) = 0;
    virtual void Timer2_Timer() = 0;
    virtual void enableTimer2(bool enabled) = 0;
};

/// The server's date and time; the zero date when the view gives no row. Throws db::Error.
db::DateTime GetServerNow(Workplace& place);
/// A moment's time of day as the "short time" form has it: without seconds, on the zero date.
db::DateTime shortTime(db::DateTime moment);
/// `gServerDate` and `gServerTime` (to the minute) from `gServerNow`.
void splitServerClock(Session& session);
/// GetServerNow into `gServerNow`, `gServerDate` and `gServerTime`.
void refreshServerClock(Workplace& place);

/// Adds this run's row to UserActivities and keeps its number in `gActivitySNo`. An error shows its description.
void OpenUserActivity(Workplace& place, bool isLogout, bool autoLogoff, const std::string& remarks);
/// Closes this run's row. `remarks` is accepted and not stored: the row keeps the module's role.
void CloseUserActivity(Workplace& place, bool isLogout, bool autoLogoff, const std::string& remarks);

/// One row of LoginTrail for an attempt to sign in, stamped with the workstation's clock. Throws db::Error.
void WriteLoginTrailSuccess(db::Connection& connection, const std::string& userName, db::DateTime now);
void WriteLoginTrailFailure(db::Connection& connection, const std::string& userName, db::DateTime now);
/// The same for the host's sign-in page, which anybody may try: it reads none of the trail's rows.
void noteSignIn(db::Connection& connection, const std::string& userName, bool accepted, db::DateTime now);

/// Writes an audit row through the server's procedure, stamped with `gServerNow` as last read. An error shows its
/// description, so a failed audit never stops the work.
void AuditTrail(Workplace& place, const std::string& userName, const std::string& userAction,
                const std::string& tranCode, const std::string& remarks, const std::string& src);

/// Whether the patient has a visit today; false after an error, which shows its description.
bool HasVisitToday(Workplace& place, const std::string& pno);
/// Draws the next number of `destName` ("PATIENT2", "ConsultID2") into `gNextId`; "" when the server gives none, and
/// unchanged after an error, which shows its description.
void GetNextIdNo(Workplace& place, const std::string& destName);

/// The age at `today` of somebody born on `date`: "1 yr, 2 mths and 1 day". Negative parts for a date in the future.
std::string AgeText(db::DateTime date, db::DateTime today);

/// Opens `frmComments` modally when the patient has an antenatal remark. An error shows its description.
void ShowAncInfo(Workplace& place, const std::string& pno);
/// Brings a private patient's debt or credit to the main window and to the patient's row. Throws db::Error.
void RefreshDebtInfo(Workplace& place, const std::string& pno);

/// Put the number counters behind the highest number in use, with a gap of 5, so that a number handed out meanwhile
/// cannot collide. Throw db::Error.
void ResyncConsultId(Workplace& place);
void ResyncPatientId(Workplace& place);

/// Lets the session go on working for so long, or until one of `handles` is signalled: the result is that handle's
/// index, or 258 at the deadline.
inline constexpr int waitTimedOut = 258;
int WaitWithEvents(Workplace& place, std::chrono::milliseconds wait,
                   const std::vector<std::function<bool()>>& handles = {});

/// What is wrong with an encoding table, in words, or "": it holds 94 characters of printable ASCII.
std::string checkEncodingTable(std::string_view table);
/// The stored form of a password. Each character from code 33 to 126 becomes the table's character at its code less 32,
/// counting from 1; any other is skipped after `invalid` was told.
std::string EncodeText(std::string_view text, std::string_view table, const std::function<void()>& invalid);
/// The same with the session's table; an invalid character shows "Invalid character detected!".
std::string EncodeText(Workplace& place, std::string_view text);

/// "1,234.50": two decimals, thousands separators. Halves are rounded away from zero.
std::string moneyText(double amount);

}  // namespace core
