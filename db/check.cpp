#include <algorithm>
#include <set>
#include <sstream>

#include "db/engine.h"
#include "db/error.h"
#include "db/letters.h"
#include "db/schema.h"
#include "db/scripts.h"

namespace db {
namespace {

struct Object {
    std::string kind;  ///< "table", "view", "index", "procedure"
    std::string name;
};

std::string lowered(std::string text) {
    for (auto& letter : text) letter = lower(letter);
    return text;
}

/// The statement without the comment lines and blanks before its first word.
std::string_view withoutComments(std::string_view statement) {
    while (true) {
        statement.remove_prefix(std::min(statement.find_first_not_of(" \t\r\n"), statement.size()));
        if (!statement.starts_with("--")) return statement;
        statement.remove_prefix(std::min(statement.find('\n'), statement.size()));
    }
}

/// What a statement creates; no kind for one that creates nothing.
Object created(std::string_view statement) {
    std::istringstream words{std::string(withoutComments(statement))};
    std::string create, kind, name;
    words >> create >> kind;
    if (!sameName(create, "create")) return {};
    if (sameName(kind, "unique")) words >> kind;
    words >> name;
    return {lowered(kind), name.substr(0, name.find('('))};
}

/// An engine's line for a while.
class Line {
public:
    explicit Line(EnginePool& pool) : pool_(pool), engine_(pool.borrow()) {}
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() { pool_.giveBack(std::move(engine_)); }
    Engine* operator->() const noexcept { return engine_.get(); }

private:
    EnginePool& pool_;
    std::unique_ptr<Engine> engine_;
};

/// Says what running `check` threw, behind `subject`.
template <typename Check>
void saying(const std::string& subject, std::vector<std::string>& wrong, Check check) {
    try {
        check();
    } catch (const Error& error) {
        wrong.push_back(subject + ": " + error.what());
    }
}

void checkObjects(const Line& line, const std::string& database, std::vector<std::string>& wrong) {
    std::set<std::string> present;
    for (const auto& name : line->objects()) present.insert(lowered(name));
    for (const auto& statement : schemaStatements(database)) {
        const auto object = created(statement);
        if (object.kind.empty()) continue;
        if (!present.contains(lowered(object.name)))
            wrong.push_back(database + ": the " + object.kind + " " + object.name + " is missing");
        else if (object.kind == "view")
            saying(database + ": the view " + object.name, wrong, [&] {
                line->read({"select top 1 * from " + object.name, {}});
            });
    }
}

void checkVersion(const Line& line, const std::string& database, std::vector<std::string>& wrong) {
    const auto rows = line->read({"select max(version) from SchemaVersion", {}});
    const auto version = rows.value(0, 0).int32Or(0);
    if (version != schemaVersion)
        wrong.push_back(database + ": the schema has version " + std::to_string(version) + ", this program needs " +
                        std::to_string(schemaVersion));
}

void checkDatabase(EnginePool& pool, const std::string& database, std::vector<std::string>& wrong) {
    const Line line(pool);
    for (const auto& fault : line->integrity()) wrong.push_back(database + ": " + fault);
    checkObjects(line, database, wrong);
    saying(database + ": the table SchemaVersion", wrong, [&] { checkVersion(line, database, wrong); });
}

}  // namespace

std::vector<std::string> checkDatabases(Databases& databases) {
    databases.idle();
    std::vector<std::string> wrong;
    for (const auto& database : DataSources::names())
        saying(database, wrong, [&] { checkDatabase(databases.sources().pool(database), database, wrong); });
    return wrong;
}

}  // namespace db
