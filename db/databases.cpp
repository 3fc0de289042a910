#include "db/databases.h"

#include <algorithm>

#include "db/engine.h"
#include "db/error.h"
#include "db/letters.h"

namespace db {

namespace {

/// The value of a connection string's key ("Database=Hospital;..."), without the braces that may stand around it.
std::string_view connectionValue(std::string_view connectionString, std::string_view key) {
    while (!connectionString.empty()) {
        const auto entry = connectionString.substr(0, connectionString.find(';'));
        connectionString.remove_prefix(std::min(entry.size() + 1, connectionString.size()));
        const auto equals = entry.find('=');
        if (equals == entry.npos || !sameName(withoutBlanksAround(entry.substr(0, equals)), key)) continue;
        auto value = withoutBlanksAround(entry.substr(equals + 1));
        if (value.size() > 1 && value.front() == '{' && value.back() == '}') value = value.substr(1, value.size() - 2);
        return value;
    }
    return {};
}

}  // namespace

DateTime ServerClock::now() const {
    const std::lock_guard lock(mutex_);
    return stopped_ ? *stopped_ : DateTime::now();
}

void ServerClock::stopAt(DateTime moment) {
    const std::lock_guard lock(mutex_);
    stopped_ = moment;
}

DataSources::DataSources(std::map<std::string, Source> sources) : sources_(std::move(sources)) {}

DataSources::~DataSources() = default;

const std::vector<std::string>& DataSources::names() {
    static const std::vector<std::string> names = {"Hospital", "HospitalArchive", "SmsCenter", "Accounting"};
    return names;
}

std::map<std::string, Source> DataSources::embedded(const std::filesystem::path& directory) {
    std::map<std::string, Source> sources;
    for (const auto& name : names()) sources[name] = {"sqlite", (directory / (name + ".db")).string()};
    return sources;
}

const std::string& DataSources::served(std::string_view database) const {
    for (const auto& [name, source] : sources_)
        if (sameName(name, database)) return name;
    throw Error(Category::lostConnection,
                "Cannot open database \"" + std::string(database) + "\": no data source serves it.");
}

EnginePool& DataSources::pool(const std::string& database) {
    const auto& name = served(database);
    const std::lock_guard lock(mutex_);
    auto& pool = pools_[name];
    if (!pool) pool = std::make_unique<EnginePool>(name, sources_.at(name), sources_, clock_);
    return *pool;
}

Connection& Databases::open(std::string_view connectionString) {
    const auto database = connectionValue(connectionString, "Database");
    if (database.empty()) throw Error(Category::lostConnection, "The connection string names no database.");
    return named(std::string(database));
}

Connection& Databases::named(const std::string& database) {
    const auto& name = sources_.served(database);
    auto& connection = open_[name];
    if (!connection) connection = std::make_unique<Connection>(name, sources_.pool(name), recorder_, aroundCommit_);
    return *connection;
}

void Databases::idle() noexcept {
    for (auto& [name, connection] : open_) connection->idle();
}

void Databases::rollbackAll() noexcept {
    for (auto& [name, connection] : open_)
        while (connection->inTransaction()) connection->rollbackTrans();
}

bool Databases::holdsWriteLock() const noexcept {
    return std::any_of(open_.begin(), open_.end(), [](auto& entry) { return entry.second->holdsWriteLock(); });
}

}  // namespace db
