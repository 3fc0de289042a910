#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "db/databases.h"
#include "db/dialect/dialect.h"
#include "db/engine.h"
#include "db/sqlite/line.h"
#include "db/sqlite/orderedindex.h"
#include "db/sqlite/prepared.h"
#include "db/sqlite/textindex.h"

namespace db::sqlite {

class SqliteEngine : public Engine {
public:
    SqliteEngine(std::string database, const Source& source, const std::map<std::string, Source>& sisters,
                 ServerClock& clock);
    ~SqliteEngine() override;

    RowBuffer read(const Sql::Template& statement) override;
    Outcome execute(const Sql::Template& statement) override;
    RowBuffer call(std::string_view procedure, const std::vector<std::pair<std::string, Value>>& arguments) override;

    const Table* table(std::string_view name) override;
    Outcome insertRow(const Table& table, const std::vector<std::string>& columns,
                      const std::vector<Value>& values) override;
    Outcome updateRow(const Table& table, const std::vector<std::string>& columns, const std::vector<Value>& values,
                      const std::vector<std::string>& keys, const std::vector<Value>& keyValues) override;

    void begin() override;
    void commit() override;
    void rollback() noexcept override;
    [[nodiscard]] bool holdsWriteLock() const noexcept override { return state_ == State::writing; }
    [[nodiscard]] bool alive() noexcept override { return line_.present(); }

    std::vector<Object> objects() override;
    std::vector<std::string> integrity() override;
    std::vector<std::string> plan(const Sql::Template& statement) override;

private:
    /// Nothing is sent at `begin`: until its first write a transaction is only an intention.
    enum class State { none, intended, writing, broken };
    class WriteTurn;
    struct TableInfo {
        Table table;
        std::vector<char> kinds;  ///< see columnKind, in the order of the columns
    };

    // Statements.
    Prepared& prepared(const std::string& statement);
    Prepared& prepared(const Sql::Template& statement);
    template <typename Text>
    Prepared& preparedRow(const char* kind, const Table& table, const std::vector<std::string>& columns,
                          const std::vector<std::string>& keys, Text text);
    static char kindOf(const TableInfo& info, const std::string& column);
    Prepared prepare(const std::string& sql);
    void addKey(Prepared& fresh, const dialect::Translated& translated);
    Prepared prepareWithViews(const std::string& sql);
    std::string updatedTable(const Prepared& prepared);
    void bindAll(sqlite3_stmt* statement, const std::vector<Value>& parameters);
    void step(Prepared& prepared, RowBuffer* rows);
    void stepInTurn(Prepared& prepared, RowBuffer* rows);
    Outcome runRow(Prepared& prepared, const std::vector<Value>& values, const std::vector<Value>& keyValues);
    bool hasIdentity(std::string_view table);
    Outcome outcome(const Prepared& prepared);
    void attach(const std::string& database);
    [[nodiscard]] std::vector<std::string> texts(const std::string& sql, int column = 0);

    // Definitions.
    void define(const dialect::Definition& definition, const std::string& statement);
    void defineProcedure(const dialect::Definition& definition, const std::string& statement);
    void redefine(const dialect::Translated& altered);
    void keepText(const dialect::Definition& definition, const std::string& text);
    bool dropText(const dialect::Definition& definition);
    std::vector<std::pair<std::string, std::string>> keptTexts(const std::string& kind);
    bool openViews();

    // Full-text indexes.
    void createTextIndex(const TextIndex& index);
    void dropTextIndex(const std::string& view);
    const std::vector<TextIndex>& textIndexes();
    void addIndexed(Prepared& fresh, const dialect::Translated& translated);

    // Ordered indexes.
    void createOrderedIndex(const OrderedIndex& index);
    void dropOrderedIndex(const std::string& view);
    const std::vector<std::string>& orderedViews();
    std::string overKeptRows(std::string query);

    // Tables and procedures.
    TableInfo* tableInfo(std::string_view name);
    const dialect::Procedure& procedure(std::string_view name);
    void runProcedure(const dialect::Procedure& procedure, const std::vector<std::pair<std::string, Value>>& arguments,
                      RowBuffer& rows);
    void whole(const std::function<void()>& work);

    void startWriting();
    void leaveQueue() noexcept;
    void requireUsable();

    std::string database_;
    std::map<std::string, Source> sisters_;
    Line line_;
    State state_ = State::none;
    StatementCache statements_;
    std::string rowKey_;  ///< kept for its room: a row that was written before allocates nothing
    std::map<std::string, std::unique_ptr<TableInfo>, std::less<>> tables_;
    std::map<std::string, dialect::Procedure, std::less<>> procedures_;
    std::set<std::string> attached_;
    std::optional<std::vector<TextIndex>> textIndexes_;
    std::optional<std::vector<std::string>> orderedViews_;
    bool viewsOpen_ = false;  ///< whether the views over other databases are there on this line
};

}  // namespace db::sqlite
