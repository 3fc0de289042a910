#include "drive/driver.h"

#include <istream>
#include <nlohmann/json.hpp>
#include <ostream>

#include "db/error.h"
#include "drive/json.h"

namespace drive {

namespace {

using nlohmann::json;

using ui::textOf;

bool flag(const json& request, const char* key) {
    if (!request[key].is_boolean()) throw ui::Refused{std::string(key) + " takes true or false"};
    return request[key].get<bool>();
}

bool forced(const json& request) {
    return request.contains("force") && flag(request, "force");
}

}  // namespace

Driver::Driver(core::Workplace& place, std::function<void(core::Workplace&)> start, std::istream& requests,
               std::ostream& replies)
    : place_(place),
      start_(std::move(start)),
      requests_(requests),
      replies_(replies),
      conversation_(place.desktop, [this](const std::string& line) { replies_ << line << '\n'
                                                                              << std::flush; }) {
    place_.desktop.setAcknowledges(true);
    place_.desktop.setOnFailure([this] { place_.databases.rollbackAll(); });
    place_.databases.setRecorder([this](const db::Statement& statement) { record(statement); });
    place_.desktop.loop().setBeforeWait([this] {
        conversation_.flush();
        place_.databases.idle();
        readNext();
    });
    addSessionRequests();
    addDatabaseRequests();
}

Driver::~Driver() {
    place_.desktop.loop().setBeforeWait({});
    place_.databases.setRecorder({});
    place_.desktop.setOnFailure({});
}

int Driver::run() {
    std::string reason;
    try {
        place_.desktop.loop().run();
    } catch (const ui::SessionEnded& ended) {
        reason = ended.reason;
    }
    place_.databases.rollbackAll();
    if (!scriptOver_) conversation_.ended(reason);
    return 0;
}

/// The script is worked one line at a time: whenever the session waits, the next line comes.
void Driver::readNext() {
    std::string line;
    if (!std::getline(requests_, line)) {
        scriptOver_ = true;
        throw ui::SessionEnded{};
    }
    place_.desktop.loop().post([this, line = std::move(line)] { conversation_.receive(line); });
}

void Driver::addSessionRequests() {
    // A script may reach what a page may not, to test a screen's own checks.
    conversation_.add(
        "fire", [this](const json& request, json&) { place_.desktop.fire(textOf(request, "fire"), forced(request)); },
        {"force"});
    conversation_.add("set",
                      [this](const json& request, json&) {
                          place_.desktop.set(textOf(request, "set"), ui::contentOf(request), forced(request));
                      },
                      {"to", "force"});
    conversation_.add("start", [this](const json& request, json&) { start(request); });
    conversation_.add("show", [this](const json& request, json&) { show(request); });
    conversation_.add("tick", [this](const json& request, json&) { place_.desktop.tick(textOf(request, "tick")); });
    conversation_.add("get", [this](const json& request, json& reply) { get(request, reply); });
    conversation_.add("clock", [this](const json& request, json&) { stopClock(request); });
    conversation_.add("trace", [this](const json& request, json&) { traces_ = flag(request, "trace"); });
    conversation_.add("fail", [this](const json& request, json&) { failLater(request); });
}

void Driver::addDatabaseRequests() {
    const auto query = [this](const json& request, json& reply) {
        apart(request, "query",
              [&](db::Connection& connection, const db::Sql& sql) { reply["rows"] = jsonOf(connection.read(sql)); });
    };
    const auto execute = [this](const json& request, json& reply) {
        apart(request, "execute",
              [&](db::Connection& connection, const db::Sql& sql) { reply["affected"] = connection.execute(sql); });
    };
    conversation_.add("query", query, {"on"});
    conversation_.add("execute", execute, {"on"});
}

void Driver::start(const json& request) {
    if (!flag(request, "start")) throw ui::Refused{"start takes true"};
    if (std::exchange(started_, true)) throw ui::Refused{"the session has been started already"};
    start_(place_);
}

void Driver::show(const json& request) {
    const std::string name = textOf(request, "show");
    if (!started_) throw ui::Refused{"the session has not been started"};
    if (!place_.desktop.provides(name)) throw ui::Refused{"there is no screen " + name};
    place_.desktop.show(name);
}

void Driver::get(const json& request, json& reply) {
    const std::string path = textOf(request, "get");
    reply["state"] = path == "session" ? jsonOf(place_.session) : place_.desktop.get(path);
}

void Driver::stopClock(const json& request) {
    const auto moment = db::DateTime::parse(textOf(request, "clock"));
    if (!moment) throw ui::Refused{R"(clock takes a moment such as "2026-11-24 09:30:00")"};
    place_.databases.sources().clock().stopAt(*moment);
}

void Driver::failLater(const json& request) {
    const json& fail = request["fail"];
    const json* number = fail.is_object() && fail.contains("statement") ? &fail["statement"] : nullptr;
    if (!number || !number->is_number_unsigned() || *number == 0U)
        throw ui::Refused{R"(fail takes {"statement":N}, N counting writes from 1)"};
    writesUntilFailure_ = number->get<std::int64_t>();
}

void Driver::apart(const json& request, const char* key,
                   const std::function<void(db::Connection&, const db::Sql&)>& work) {
    const std::string statement = textOf(request, key);
    const std::string database = textOf(request, "on");
    apart_ = true;
    std::string description;
    try {
        work(place_.databases.named(database), db::trusted(statement));
    } catch (const std::exception& error) {
        description = error.what();
    }
    apart_ = false;
    if (!description.empty()) throw ui::Refused{description};
}

void Driver::record(const db::Statement& statement) {
    if (apart_) return;
    if (traces_) conversation_.tell(jsonOf(statement));
    if (writesUntilFailure_ == 0 || !statement.writes()) return;
    --writesUntilFailure_;
    if (writesUntilFailure_ == 0) throw db::Error(db::Category::injected, "Injected failure");
}

}  // namespace drive
