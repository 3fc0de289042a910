#include "tests/support/hospital.h"

#include <algorithm>

#include "db/error.h"
#include "hospital/schema.h"

namespace test {
namespace {

using namespace db::literals;

std::map<std::string, db::Source> inMemory() {
    std::map<std::string, db::Source> sources;
    for (const auto& name : db::DataSources::names()) sources[name] = {"sqlite", ":memory:"};
    return sources;
}

}  // namespace

HospitalFiles::HospitalFiles() {
    hospital::createDatabases(directory_.path());
}

std::map<std::string, db::Source> HospitalFiles::sources() const {
    return db::DataSources::embedded(directory_.path());
}

TestHospital::TestHospital() : TestHospital(inMemory()) {}

TestHospital::TestHospital(std::map<std::string, db::Source> sourceTable)
    : sources(std::move(sourceTable)), place(sources, loop, [this] {
          core::Settings settings;
          settings.programDirectory = program.path();
          settings.computerName = "WARD-3";
          settings.osUserName = "station";
          settings.version = {7, 2};
          settings.clock = [this] { return workstationClock; };
          return settings;
      }()) {
    program.write("made.sys", "SVR=SERVER\r\nHNO=001\r\n");
    program.write("sysdoc.sys", "nurse\r\n");
    sources.clock().stopAt(db::DateTime::of(2026, 11, 24, 9, 30));
    for (const auto& name : db::DataSources::names())
        if (sources.sources().at(name).location == ":memory:") hospital::createSchema(place.databases.named(name));
    execute("update hHospital set hname='General Hospital'"_sql);
    addUser("nurse", "NURSING");
    place.desktop.setAcknowledges(true);
    place.desktop.setSink([this](nlohmann::json event) { events_.push_back(std::move(event)); });
    place.desktop.setBeforeBox([this](const auto& box) { boxOpens(box); });
    loop.setBeforeWait([this] { waits(); });
    listen();
}

TestHospital::~TestHospital() {
    for (const auto& message : messages_) ADD_FAILURE() << "This message did not show: " << message.text;
    for (const auto& answer : answers_) ADD_FAILURE() << "Nothing asked for this answer: " << answer;
    if (!steps_.empty()) ADD_FAILURE() << steps_.size() << " steps of the script did not run";
    if (failurePending()) ADD_FAILURE() << "The statement that was to fail did not run";
    if (place.databases.inTransaction()) ADD_FAILURE() << "A transaction was left open";
    place.databases.setRecorder({});
    place.desktop.setSink({});
}

void TestHospital::expectMessage(std::string text, std::string title) {
    messages_.push_back({std::move(text), title.empty() ? place.desktop.programTitle() : std::move(title)});
}

bool TestHospital::ends(const std::function<void()>& work) {
    try {
        work();
        return false;
    } catch (const ui::SessionEnded&) {
        place.databases.rollbackAll();
        return true;
    }
}

void TestHospital::forgetFailure() {
    writesUntilFailure_ = statementsUntilBreak_ = 0;
    failingPart_.clear();
}

void TestHospital::boxOpens(const ui::Desktop::Question& box) {
    boxes_.push_back(box);
    if (place.databases.holdsWriteLock()) ADD_FAILURE() << "A box opens while other writers wait: " << box.text;
    if (box.kind != ui::Desktop::Question::Kind::message || takesMessages_) return;
    if (messages_.empty()) {
        ADD_FAILURE() << "Unexpected message: " << box.text;
        return;
    }
    EXPECT_EQ(box.text, messages_.front().text);
    EXPECT_EQ(box.title.empty() ? place.desktop.programTitle() : box.title, messages_.front().title);
    messages_.pop_front();
}

void TestHospital::waits() {
    if (place.desktop.waiting() != nullptr) {
        loop.post([this] { answerBox(); });
    } else if (!steps_.empty()) {
        loop.post([step = std::move(steps_.front())] { step(); });
        steps_.pop_front();
    } else {
        ADD_FAILURE() << "The session waits for a nurse whose script is over";
        throw ui::SessionEnded{};
    }
}

void TestHospital::answerBox() {
    if (answers_.empty()) {
        const auto& box = *place.desktop.waiting();
        ADD_FAILURE() << "Unexpected question: " << box.text;
        place.desktop.answer(box.kind == ui::Desktop::Question::Kind::yesno ? "no" : "cancel");
        return;
    }
    const auto answer = std::move(answers_.front());
    answers_.pop_front();
    place.desktop.answer(answer);
}

void TestHospital::record(const db::Statement& statement) {
    log_.push_back(statement);
    const bool partFails = !failingPart_.empty() && statement.text.find(failingPart_) != std::string::npos;
    if (partFails) failingPart_.clear();
    const bool writeFails = statement.writes() && writesUntilFailure_ > 0 && --writesUntilFailure_ == 0;
    if (statementsUntilBreak_ > 0 && --statementsUntilBreak_ == 0)
        throw db::Error(db::Category::lostConnection, "Communication link failure");
    if (!partFails && !writeFails) return;
    failed_ = statement.text;
    throw db::Error(db::Category::injected, "Injected failure");
}

std::vector<std::string> TestHospital::breakTheLineAtEachStatement(const std::string& screen,
                                                                   const std::function<void()>& prepare,
                                                                   const std::function<std::string()>& rows) {
    std::vector<std::string> broken;
    for (;;) {
        prepare();
        const auto form = place.desktop.get(screen);
        const auto before = rows();
        forget();
        breakLine(static_cast<int>(broken.size()) + 1);
        answer("yes");
        place.desktop.fire(screen + ".OKButton", false);
        if (std::any_of(boxes_.begin(), boxes_.end(), [](auto& box) { return box.text.starts_with("Record "); })) break;
        forgetAnswers();  // a line that breaks ahead of the question leaves nothing to ask
        broken.push_back(log_.at(broken.size()).text);
        EXPECT_EQ(rows(), before) << broken.back();
        EXPECT_EQ(nlohmann::json::diff(form, place.desktop.get(screen)), nlohmann::json::array()) << broken.back();
        place.desktop.fire(screen + ".cmdCancel", false);
    }
    return broken;
}

void TestHospital::listen() {
    place.databases.setRecorder([this](const db::Statement& statement) { record(statement); });
}

std::vector<std::string> TestHospital::statements() const {
    std::vector<std::string> texts;
    for (const auto& statement : log_) texts.push_back(statement.text);
    return texts;
}

bool TestHospital::ran(const std::string& statement) const {
    const auto texts = statements();
    return std::find(texts.begin(), texts.end(), statement) != texts.end();
}

std::string TestHospital::focus() const {
    std::string last;
    for (const auto& event : events_)
        if (event.contains("focus")) last = event["focus"].get<std::string>();
    return last;
}

void TestHospital::forget() {
    log_.clear();
    events_.clear();
    boxes_.clear();
}

std::int64_t TestHospital::execute(const db::Sql& sql, const std::string& on) {
    place.databases.setRecorder({});
    const auto affected = place.databases.named(on).execute(sql);
    listen();
    return affected;
}

db::Recordset TestHospital::read(const db::Sql& sql, const std::string& on) {
    place.databases.setRecorder({});
    auto rows = place.databases.named(on).read(sql);
    listen();
    return rows;
}

db::Value TestHospital::value(const db::Sql& sql, const std::string& on) {
    const auto rows = read(sql, on);
    return rows.empty() ? db::Value() : rows.value(0, 0);
}

std::string TestHospital::dump(const db::Sql& sql, const std::string& on) {
    const auto rows = read(sql, on);
    std::string text;
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        for (std::size_t column = 0; column < rows.fields().size(); ++column)
            text += (column == 0 ? "" : "|") + rows.value(row, column).textOr("null");
        text += "\n";
    }
    return text;
}

void TestHospital::addUser(const std::string& name, const std::string& role, const std::string& fullName,
                           const std::string& empId) {
    if (read("select Username from Users where Username='"_sql + name + "'").empty())
        execute("insert into Users (Username, EmpID, Fullname) values ('"_sql + name + "', '" + empId + "', '" +
                fullName + "')");
    execute("insert into UserRoles (Username, RoleID) select '"_sql + name + "', RoleID from Roles where LoginRole='" +
            role + "' and RoleID not in (select RoleID from UserRoles where Username='" + name + "')");
}

void TestHospital::setDefault(const std::string& key, const db::Value& value) {
    dropDefault(key);
    if (value.isNull())
        execute("insert into AppDefaults (ID, idval) values ('"_sql + key + "', null)");
    else
        execute("insert into AppDefaults (ID, idval) values ('"_sql + key + "', '" + value.text() + "')");
}

void TestHospital::dropDefault(const std::string& key) {
    execute("delete from AppDefaults where ID='"_sql + key + "'");
}

}  // namespace test
