#include <thread>

#include "tests/db/line.h"

namespace {

using db::Category;
using test::Failure;
using test::failureOf;
using test::Line;
using Reading = db::RowBuffer::Reading;

const char* const allTypes =
    "create table T (id int identity(10,1) primary key, name varchar(5) not null unique, small smallint, flag bit,"
    " ratio float, amount money, day date, hour time, moment datetime default getdate(), body image, long ntext);"
    "create view V as select id, name, flag, day, moment as at, amount from T";

class Sqlite : public testing::Test {
protected:
    Sqlite() { line.script(allTypes); }
    Line line;
};

TEST_F(Sqlite, RefusesWhatAColumnCannotHold) {
    line.run("insert T (name) values ('taken')");
    const struct {
        const char* statement;
        std::optional<Category> category;
        const char* description;
    } cases[] = {
        {"insert T (name) values ('\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9')", {}, "nothing"},
        {"insert T (name) values ('longer')", Category::type,
         "String or binary data would be truncated, column 'name'."},
        {"insert T (name) values (null)", Category::constraint,
         "Cannot insert the value NULL into column 'name', table 'T'; column does not allow nulls."},
        {"insert T (name) values ('TAKEN ')", Category::type,
         "String or binary data would be truncated, column 'name'."},
        {"insert T (name) values ('TAKEN')", Category::constraint,
         "Violation of UNIQUE KEY constraint. Cannot insert duplicate key in object 'T'."},
        {"update T set small=40000", Category::type, "Arithmetic overflow error for an integer, column 'small'."},
        {"update T set small='x'", Category::type,
         "Conversion failed when converting a value to an integer, column 'small'."},
        {"update T set flag=2", Category::type, "Conversion failed when converting a value to a bit, column 'flag'."},
        {"update T set ratio='x'", Category::type, "Error converting a text to a number, column 'ratio'."},
        {"update T set day='31-Feb-2026'", Category::type,
         "Conversion failed when converting date and/or time from character string."},
        {"select nosuch from T", Category::syntax, "Invalid column name 'nosuch'."},
        {"select * from nosuch", Category::syntax, "Invalid object name 'nosuch'."},
        {"select cast('x' as int)", Category::type, "Conversion failed when converting a text to an integer."},
        {"select cast(300 as tinyint)", Category::type, "Arithmetic overflow error converting to an integer."},
        {"select dateadd(year, 9000, getdate())", Category::type,
         "Adding a value to a 'datetime' column caused an overflow."},
        {"create table T (a int)", Category::other, "table \"T\" already exists"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(failureOf([&] { line.read(test.statement); }), Failure(test.category, test.description))
            << test.statement;
    }
    EXPECT_EQ(line.rows("select name, small from T"), "taken|null/\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9|null");
}

TEST_F(Sqlite, StoresDatesInOneForm) {
    const struct {
        const char* text;
        const char* day;
        const char* hour;
        const char* moment;
    } cases[] = {
        {"24-Nov-2026 9:30", "2026-11-24", "09:30:00", "2026-11-24 09:30:00"},
        {"2026-11-24", "2026-11-24", "00:00:00", "2026-11-24 00:00:00"},
        {"", "1900-01-01", "00:00:00", "1900-01-01 00:00:00"},
        {"11:59 PM", "1900-01-01", "23:59:00", "1900-01-01 23:59:00"},
    };
    const auto* table = line.engine->table("t");
    for (const auto& test : cases) {
        line.run("delete T");
        line.run("insert T (name, day, hour, moment) values ('a', ?1, ?1, ?1)", {test.text});
        line.engine->insertRow(*table, {"name", "day", "hour", "moment"}, {"b", test.text, test.text, test.text});
        line.run("insert T (name) values ('c')");
        line.run("update T set day=?1, hour=?1, moment=?1 where name='c'", {test.text});
        const auto want = std::string(test.day) + "|" + test.hour + "|" + test.moment;
        EXPECT_EQ(line.rows("select day + '' as d, hour + '' as h, moment + '' as m from T where day + '' = ?1"
                            " and cast(day as varchar(20)) + ' ' + cast(moment as varchar(20)) = ?2",
                            {test.day, std::string(test.day) + " " + test.moment}),
                  line.rows("select day, hour, moment from T"))
            << test.text;
        const auto rows = line.read("select day, hour, moment from T");
        ASSERT_EQ(rows.rowCount(), 3U);
        for (std::size_t row = 0; row < 3; ++row)
            EXPECT_EQ(rows.value(row, 0).moment().isoDate() + "|" + rows.value(row, 1).moment().isoTime() + "|" +
                          rows.value(row, 2).moment().iso(),
                      want);
    }
}

TEST_F(Sqlite, ReadsColumnsByTheirType) {
    line.run(
        "insert T (name, small, flag, ratio, amount, day, hour) values ('a', 1, '1', '2.5', 1.00005, '24-Nov-2026', "
        "'9:30')");
    const auto rows = line.read("select * from T");
    EXPECT_EQ(rows.table, "T");
    EXPECT_EQ(Line::shown(rows), "10|a|1|True|2.5|1.0001|24-Nov-2026|09:30:00|24-Nov-2026 09:30:00|null|null");
    const auto view = line.read("select * from V where at >= '24-Nov-2026'");
    EXPECT_EQ(view.table, "") << "a view's rows are not updatable";
    EXPECT_EQ(Line::shown(view), "10|a|True|24-Nov-2026|24-Nov-2026 09:30:00|1.0001");
    EXPECT_TRUE(std::holds_alternative<db::DateTime>(view.value(0, 4).content()));
    EXPECT_TRUE(std::holds_alternative<db::DateTime>(line.read("select getdate() p").value(0, 0).content()));
    EXPECT_EQ(line.read("select a.id, b.id from T a, T b").table, "") << "rows of two tables";
    EXPECT_EQ(line.engine->table("V"), nullptr);
    EXPECT_EQ(line.engine->table("nobody"), nullptr);
}

TEST_F(Sqlite, WritesRowsByColumn) {
    const auto* table = line.engine->table("T");
    ASSERT_NE(table, nullptr);
    EXPECT_TRUE(table->columns.at(0).identity && table->columns.at(0).key && !table->columns.at(1).key);
    const auto moment = db::DateTime::of(2026, 11, 24, 9, 30);
    const db::Bytes bytes{std::byte{0}, std::byte{255}};
    const auto made = line.engine->insertRow(
        *table, {"NAME", "small", "flag", "ratio", "amount", "day", "hour", "moment", "body", "long"},
        {5, "7", -1, "2.5", 0.00005, moment, moment, db::Null(), bytes, moment});
    EXPECT_EQ(made.identity, 10);
    EXPECT_EQ(made.affected, 1);
    EXPECT_EQ(line.read("select body from T").value(0, 0).bytes(), bytes);
    EXPECT_EQ(line.rows("select name, small, flag, ratio, amount, day, hour, moment, long from T"),
              "5|7|True|2.5|0.0001|24-Nov-2026|09:30:00|null|24-Nov-2026 09:30:00");
    EXPECT_EQ(line.engine->updateRow(*table, {"small", "name"}, {2.5, "z"}, {"id"}, {10}).affected, 1);
    EXPECT_EQ(line.rows("select small, name from T"), "2|z");
    for (const auto& [column, value] : std::vector<std::pair<std::string, db::Value>>{
             {"small", 70000}, {"small", ""}, {"day", "nodate"}, {"name", "longer"}, {"nosuch", 1}, {"ratio", "x"}})
        EXPECT_THROW(line.engine->updateRow(*table, {column}, {value}, {"id"}, {10}), db::Error) << column;
    EXPECT_EQ(line.rows("select small, name from T"), "2|z");
}

TEST_F(Sqlite, KeepsMoreStatementsThanItsCache) {
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 300; ++i)
            ASSERT_EQ(line.rows("select " + std::to_string(i) + " x where 1 = ?1", {1}), std::to_string(i));
    line.rows("select * from T");
    EXPECT_THROW(line.read("select ?1 x, ?2 y", {1}), db::Error) << "a place without a value";
    EXPECT_EQ(line.rows("select ?1 x", {"a"}) + line.rows("select ?1 x", {db::Null()}), "anull");
}

TEST_F(Sqlite, RefusesAResultThatWouldTakeTheHostsMemory) {
    const std::string megabyte(1024 * 1024, 'x');
    for (int i = 0; i <= 128; ++i) line.run("insert T (name, long) values (?1, ?2)", {std::to_string(i), megabyte});
    const auto refused = failureOf([&] { line.read("select * from T"); });
    EXPECT_EQ(refused.second, "The result is too large. Please narrow what is asked for.");
    EXPECT_EQ(line.read("select top 3 * from T").rowCount(), 3U);
    EXPECT_EQ(line.rows("select count(*) from T"), "129");
}

TEST_F(Sqlite, CallsProceduresWhole) {
    using Arguments = std::vector<std::pair<std::string, db::Value>>;
    const auto call = [this](const char* procedure, const Arguments& arguments = {}) {
        return Line::shown(line.engine->call(procedure, arguments));
    };
    line.script(
        "create procedure Put @name varchar(5), @n int as begin insert T (name) values (@name)\n"
        "update T set small = @n where name = @NAME\nselect id, small from T where name = @name end\nGO\n"
        "create procedure Names as select name from T order by name\nGO\n");
    EXPECT_EQ(call("put", {{"name", "a"}, {"@N", 3}}), "10|3");
    EXPECT_EQ(call("put", {{"name", "it's"}, {"n", db::Null()}}), "11|null");
    EXPECT_THROW(call("Put", {{"name", "b"}, {"n", 99999}}), db::Error);
    EXPECT_EQ(call("NAMES"), "a/it's") << "the half of the failed call went";
    line.engine->begin();
    line.run("insert T (name) values ('kept')");
    EXPECT_THROW(call("Put", {{"name", "b"}, {"n", 99999}}), db::Error);
    line.engine->commit();
    EXPECT_EQ(call("Names"), "a/it's/kept");

    const struct {
        const char* procedure;
        Arguments arguments;
        const char* description;
    } wrong[] = {
        {"x", {}, "Could not find stored procedure 'x'."},
        {"Put", {{"name", "b"}}, "Procedure or function 'Put' expects parameter '@n', which was not supplied."},
        {"Names", {{"x", 1}}, "Procedure or function Names has too many arguments specified."},
    };
    for (const auto& [procedure, arguments, description] : wrong)
        EXPECT_EQ(failureOf([&] { call(procedure, arguments); }).second, description);
    EXPECT_THROW(line.run("create procedure put as select 1 x"), db::Error);
    line.run("drop procedure [put]");
    EXPECT_THROW(call("Put", {{"name", "b"}, {"n", 1}}), db::Error);
    EXPECT_THROW(line.run("drop procedure Put"), db::Error);
    line.run("create procedure Put as select 'new' x");
    EXPECT_EQ(call("Put"), "new");
    EXPECT_TRUE(line.engine->integrity().empty());
}

std::string objectsOf(db::Engine& engine) {
    std::string text;
    for (const auto& [kind, name] : engine.objects()) text += (text.empty() ? "" : ", ") + kind + " " + name;
    return text;
}

TEST_F(Sqlite, ChangesAndDropsWhatItHolds) {
    line.script(
        "drop view V; drop table T; create table U (id int identity(1,1) primary key, a varchar(5));"
        "create index IX_U_a on U (a); insert U (a) values ('old'); create view W as select a from U;"
        "create procedure P as select a from U");
    EXPECT_EQ(objectsOf(*line.engine), "table U, column U.id, column U.a, index IX_U_a, view W, procedure P");
    line.rows("select * from U");  // what a line knows of a table does not outlive the change
    line.run("alter table dbo.U add day date null, amount money null, seen int not null default 0");
    line.run("alter table U add at datetime null");
    EXPECT_EQ(line.rows("select * from U"), "1|old|null|null|0|null");
    line.run("update U set day = '24-Nov-2026', amount = 1.23456, at = '24-Nov-2026 9:30'");
    EXPECT_EQ(line.rows("select day, amount, at from U where day = '2026-11-24'"),
              "24-Nov-2026|1.2346|24-Nov-2026 09:30:00");
    EXPECT_THROW(line.run("update U set seen = 'x'"), db::Error);
    const auto* table = line.engine->table("U");
    EXPECT_EQ(line.engine->insertRow(*table, {"a", "day"}, {"new", "25-Nov-2026"}).identity, 2);
    for (const char* wrong :
         {"alter table U add a int null", "alter table U add b int not null", "alter table U add b int identity(1,1)",
          "alter table U drop column a", "alter table Nobody add b int null", "alter procedure P as select 1 x",
          "drop table Nobody", "drop view U", "drop index IX_U_a"})
        EXPECT_THROW(line.run(wrong), db::Error) << wrong;
    line.script("drop index IX_U_a on U; drop view W; drop procedure P");
    EXPECT_EQ(objectsOf(*line.engine),
              "table U, column U.id, column U.a, column U.day, column U.amount, column U.seen, column U.at");
}

class SqliteFile : public testing::Test {
protected:
    /// A line to a new file of a table T with one row.
    std::unique_ptr<Line> create(const char* name, const std::string& row) {
        db::createSqliteFile(folder.file(name));
        auto line = std::make_unique<Line>(folder.file(name), sisters);
        line->script("create table T (a varchar(9)); insert T values ('" + row + "')");
        return line;
    }
    const test::TemporaryDirectory folder;
    const std::map<std::string, db::Source> sisters = {{"HospitalArchive", {"sqlite", folder.file("a.db")}},
                                                       {"Accounting", {"sqlite", folder.file("missing.db")}}};
};

TEST_F(SqliteFile, OpensOnlyADatabase) {
    const auto lost = [this](const std::filesystem::path& file) { return failureOf([&] { Line one(file); }); };
    EXPECT_EQ(lost(folder.file("missing.db")).first, Category::lostConnection);
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing.db"))) << "none is created";
    folder.write("text.db", std::string(5000, 'x'));
    EXPECT_EQ(lost(folder.file("text.db")),
              Failure(Category::lostConnection, "Cannot open database \"Hospital\": its file is no database."));
    EXPECT_EQ(lost(folder.path()).first, Category::lostConnection);
    db::createSqliteFile(folder.file("new.db"));
    EXPECT_THROW(db::createSqliteFile(folder.file("new.db")), db::Error);
    EXPECT_EQ(Line(folder.file("new.db")).rows("select 1 x"), "1");
}

TEST_F(SqliteFile, NoticesThatItWentAway) {
    const auto line = create("h.db", "x");
    const auto away = folder.path().string() + ".away";
    std::filesystem::rename(folder.path(), away);
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    EXPECT_EQ(failureOf([&] { line->rows("select * from T"); }).first, Category::lostConnection);
    EXPECT_FALSE(line->engine->alive());
    std::filesystem::rename(away, folder.path());
    EXPECT_FALSE(line->engine->alive()) << "a new line is needed";
    Line again(folder.file("h.db"));
    EXPECT_TRUE(again.engine->alive());
    EXPECT_EQ(again.rows("select a from T"), "x");
}

TEST_F(SqliteFile, ReadsSisters) {
    const auto archive = create("a.db", "old");
    const auto line = create("h.db", "new");
    EXPECT_EQ(line->rows("select a from T union select a from hospitalarchive.dbo.T order by a"), "new/old");
    EXPECT_EQ(line->rows("select x.a from HospitalArchive..T x where a = 'OLD'"), "old");
    for (const char* statement : {"select * from Accounting.dbo.T", "select * from Nobody.dbo.T"})
        EXPECT_EQ(failureOf([&] { line->rows(statement); }).first, Category::lostConnection) << statement;
}

TEST_F(SqliteFile, KeepsViewsOverSisters) {
    create("a.db", "old");
    const std::string view = "create view Both as select a from T union all select a from HospitalArchive.dbo.T";
    const std::string all = "select a from Both where a <> 'x' order by a";
    const auto maker = create("h.db", "new");
    maker->run(view);
    EXPECT_EQ(maker->rows(all), "new/old");
    EXPECT_THROW(maker->run(view), db::Error) << "it is there already";

    Line line(folder.file("h.db"), sisters);
    line.engine->begin();
    line.run("insert T values ('more')");
    EXPECT_THROW(line.rows("select * from Neither"), db::Error);
    line.engine->rollback();
    EXPECT_FALSE(line.engine->plan({all, {}}).empty());
    EXPECT_EQ(line.rows(all), "new/old");
    EXPECT_NE(objectsOf(*line.engine).find("view Both"), std::string::npos);
    line.run("drop view Both");
    EXPECT_THROW(line.rows("select * from Both"), db::Error);
    EXPECT_EQ(objectsOf(*line.engine), "table T, column T.a");
}

}  // namespace
