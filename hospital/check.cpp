#include <map>
#include <set>

#include "db/engine.h"
#include "db/error.h"
#include "db/letters.h"
#include "hospital/schema.h"
#include "hospital/scripts.h"

namespace hospital {
namespace {

/// An engine's line for a while.
class Line {
public:
    explicit Line(db::EnginePool& pool) : pool_(pool), engine_(pool.borrow()) {}
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() { pool_.giveBack(std::move(engine_)); }
    db::Engine* operator->() const noexcept { return engine_.get(); }

private:
    db::EnginePool& pool_;
    std::unique_ptr<db::Engine> engine_;
};

/// Says what running `check` threw, behind `subject`.
template <typename Check>
void saying(const std::string& subject, std::vector<std::string>& wrong, Check check) {
    try {
        check();
    } catch (const db::Error& error) {
        wrong.push_back(subject + ": " + error.what());
    }
}

/// What the schema of this program makes of a new database.
std::vector<db::Object> wantedObjects(const std::string& database) {
    db::ServerClock clock;
    const std::map<std::string, db::Source> sisters;
    const db::Recorder none;
    db::EnginePool pool(database, db::Source{"sqlite", ":memory:"}, sisters, clock);
    {
        db::Connection connection(database, pool, none);
        createSchema(connection);
    }
    return Line(pool)->objects();
}

void checkObjects(const Line& line, const std::string& database, std::vector<std::string>& wrong) {
    std::set<std::pair<std::string, std::string>> present;
    for (const auto& object : line->objects()) present.emplace(object.kind, db::lowered(object.name));
    const auto has = [&](const std::string& kind, const std::string& name) {
        return present.contains({kind, db::lowered(name)});
    };
    for (const auto& object : wantedObjects(database)) {
        const auto& [kind, name] = object;
        if (kind == "column" && !has("table", name.substr(0, name.find('.')))) continue;  // said already
        const auto subject = database + ": the " + kind + " " + name;
        if (!has(kind, name))
            wrong.push_back(subject + " is missing");
        else if (kind == "view")
            saying(subject, wrong, [&] { line->read({"select top 1 * from " + object.name, {}}); });
    }
}

void checkVersion(const Line& line, const std::string& database, std::vector<std::string>& wrong) {
    const auto rows = line->read({"select max(version) from SchemaVersion", {}});
    const auto version = rows.value(0, 0).int32Or(0);
    if (version != schemaVersion)
        wrong.push_back(database + ": the schema has version " + std::to_string(version) + ", this program needs " +
                        std::to_string(schemaVersion));
}

void checkDatabase(db::EnginePool& pool, const std::string& database, std::vector<std::string>& wrong) {
    const Line line(pool);
    for (const auto& fault : line->integrity()) wrong.push_back(database + ": " + fault);
    checkObjects(line, database, wrong);
    saying(database + ": the table SchemaVersion", wrong, [&] { checkVersion(line, database, wrong); });
}

}  // namespace

std::vector<std::string> checkDatabases(db::Databases& databases) {
    databases.idle();
    std::vector<std::string> wrong;
    for (const auto& database : db::DataSources::names())
        saying(database, wrong, [&] { checkDatabase(databases.sources().pool(database), database, wrong); });
    return wrong;
}

}  // namespace hospital
