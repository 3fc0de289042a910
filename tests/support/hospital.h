#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "core/session/workplace.h"
#include "db/databases.h"
#include "tests/support/directory.h"
#include "ui/eventloop.h"

namespace test {

/// The four databases of a new hospital in files, for the tests of several desks and of lines that break.
class HospitalFiles {
public:
    HospitalFiles();
    [[nodiscard]] std::map<std::string, db::Source> sources() const;

private:
    TemporaryDirectory directory_;
};

/// A base that stands before a fixture which works in files.
struct InFiles {
    HospitalFiles files;
};

/// A hospital, in memory unless it is told, and one nurse's workplace in it, with a desktop that a script answers. Its
/// server's clock stands at 24-Nov-2026 09:30:00, its nurse is "nurse" (Nurse Joy, E001) of "General Hospital" with the
/// role NURSING.
///
/// Boxes have to be foretold, in order: an unexpected one, one that was foretold and did not open, and one that opens
/// while other writers wait for this session fail the test.
class TestHospital {
public:
    TestHospital();
    explicit TestHospital(const HospitalFiles& files) : TestHospital(files.sources()) {}
    TestHospital(const TestHospital&) = delete;
    TestHospital& operator=(const TestHospital&) = delete;
    ~TestHospital();

    // -- the script --
    /// The next box with OK only. An empty title is the program's.
    void expectMessage(std::string text, std::string title = {});
    /// While set, boxes with OK only need not be foretold: for tests of what a failure leaves, whatever it says.
    void setTakesMessages(bool takes) noexcept { takesMessages_ = takes; }
    /// The answer to the next question: "yes", "no", "cancel", the text of an input box.
    void answer(nlohmann::json answer) { answers_.push_back(std::move(answer)); }
    /// Takes back the answers that nothing asked for, and the failure that did not come to pass.
    void forgetAnswers() { answers_.clear(); }
    void forgetFailure();
    /// What the nurse does when the session next waits for her with no box open: her work in a modal screen.
    void then(std::function<void()> step) { steps_.push_back(std::move(step)); }
    /// Runs `work`; true when it ended the session.
    bool ends(const std::function<void()>& work);
    /// Boxes as they opened, with the text of each.
    [[nodiscard]] const std::vector<ui::Desktop::Question>& boxes() const noexcept { return boxes_; }

    // -- what the session did --
    [[nodiscard]] const std::vector<nlohmann::json>& events() const noexcept { return events_; }
    [[nodiscard]] const std::vector<db::Statement>& log() const noexcept { return log_; }
    /// The texts of all statements since the start or `forget`.
    [[nodiscard]] std::vector<std::string> statements() const;
    void forget();
    /// Whether a statement of exactly this text ran since then.
    [[nodiscard]] bool ran(const std::string& statement) const;
    /// The control that the cursor was sent to last, "frmX.txtY"; "" without one.
    [[nodiscard]] std::string focus() const;
    /// The `n`th write from now on fails with "Injected failure".
    void failWrite(int n) { writesUntilFailure_ = n; }
    /// The next statement that holds `part` fails in the same way.
    void failStatement(std::string part) { failingPart_ = std::move(part); }
    /// The line of a hospital in files breaks at the `n`th statement from now on.
    void breakLine(int n) { statementsUntilBreak_ = n; }
    /// Breaks the line at each statement of a screen's save in turn, until the save gets through and the break comes
    /// behind it: until then `rows` and the form stand as they stood when `prepare` had filled it.
    /// Gives the statements that were broken.
    std::vector<std::string> breakTheLineAtEachStatement(const std::string& screen,
                                                         const std::function<void()>& prepare,
                                                         const std::function<std::string()>& rows);
    /// The statement that failed last because it was asked to.
    [[nodiscard]] const std::string& failed() const noexcept { return failed_; }
    /// Whether a failure that was asked for is still to come.
    [[nodiscard]] bool failurePending() const noexcept { return writesUntilFailure_ > 0 || !failingPart_.empty(); }

    // -- the rows, behind the session's back --
    std::int64_t execute(const db::Sql& sql, const std::string& on = "Hospital");
    db::Recordset read(const db::Sql& sql, const std::string& on = "Hospital");
    /// The first cell of the first row; null without one.
    db::Value value(const db::Sql& sql, const std::string& on = "Hospital");
    /// All rows as text, one a line, to compare before and after.
    std::string dump(const db::Sql& sql, const std::string& on = "Hospital");
    /// Sets a key of AppDefaults.
    void setDefault(const std::string& key, const db::Value& value);
    void dropDefault(const std::string& key);
    /// Adds a user for a role as `vwUsers` shows him.
    void addUser(const std::string& name, const std::string& role, const std::string& fullName = "Nurse Joy",
                 const std::string& empId = "E001");

    TemporaryDirectory program;
    db::DateTime workstationClock = db::DateTime::of(2026, 11, 24, 9, 31);
    db::DataSources sources;
    ui::EventLoop loop;
    core::Workplace place;

private:
    explicit TestHospital(std::map<std::string, db::Source> sourceTable);
    void boxOpens(const ui::Desktop::Question& box);
    void waits();
    void answerBox();
    void record(const db::Statement& statement);
    void listen();

    struct Message {
        std::string text, title;
    };
    bool takesMessages_ = false;
    std::deque<Message> messages_;
    std::deque<nlohmann::json> answers_;
    std::deque<std::function<void()>> steps_;
    std::vector<ui::Desktop::Question> boxes_;
    std::vector<nlohmann::json> events_;
    std::vector<db::Statement> log_;
    int writesUntilFailure_ = 0;
    std::string failingPart_;
    int statementsUntilBreak_ = 0;
    std::string failed_;
};

}  // namespace test
