#include "db/recordset.h"

#include <gtest/gtest.h>

#include "db/connection.h"
#include "fakeengine.h"

namespace {

using db::Category;
using db::Recordset;
using db::Value;
using db::operator""_sql;
using Log = std::vector<std::string>;

template <typename Work>
std::string refusal(Work&& work) {
    try {
        work();
        return "done";
    } catch (const db::Error& error) {
        EXPECT_EQ(error.category(), Category::other);
        return error.what();
    }
}

const std::string noField = "Item cannot be found in the collection corresponding to the requested name or ordinal.";
const std::string noRow = "Either BOF or EOF is True, or the current record has been deleted.";
const std::string noKey = "Insufficient key column information for updating or refreshing.";
const std::string notAllowed = "Operation is not allowed in this context.";

/// Two rows of a table T (ID identity and key, Name, Age), on a server that a test holds in its hand.
class RecordsetTest : public testing::Test {
protected:
    RecordsetTest() {
        for (const auto* name : {"ID", "Name", "Age"}) server.rows.addColumn(name, db::RowBuffer::Reading::plain);
        addRow(1, "Ada");
        addRow(2, "Bola");
        server.rows.table = "T";
        server.table = db::Table{"T", {{"ID", true, true}, {"Name"}, {"Age"}, {"Remarks"}}};
    }
    void addRow(int id, const char* name) {
        server.rows.addInteger(id);
        server.rows.addText(name);
        server.rows.addNull();
    }
    Recordset open() {
        Recordset rows(connection, "select ID, Name, Age from T"_sql);
        server.log.clear();
        return rows;
    }

    FakeServer server;
    db::EnginePool pool{server.opener()};
    db::Recorder recorder;
    db::Connection connection{"Hospital", pool, recorder};
};

TEST_F(RecordsetTest, WalksAndReadsByName) {
    auto rows = open();
    EXPECT_EQ(rows.rowCount(), 2U);
    EXPECT_EQ(rows["NAME"], Value("Ada"));
    rows.moveNext();
    EXPECT_EQ(rows["name"], Value("Bola"));
    EXPECT_TRUE(rows["Age"].isNull());
    EXPECT_EQ(refusal([&] { return rows["Nme"]; }), noField);
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    rows.moveNext();
    EXPECT_EQ(rows.row(), 2U) << "no further than the end";
    EXPECT_EQ(refusal([&] { return rows["Name"]; }), noRow);
    EXPECT_EQ(refusal([&] { rows.set("Name", "x"); }), noRow);
    EXPECT_EQ(refusal([&] { rows.update(); }), noRow);
    rows.moveTo(99);
    EXPECT_EQ(rows.row(), 2U);
    rows.moveFirst();
    EXPECT_EQ(rows["ID"], Value(1));
    EXPECT_EQ(refusal([&] { static_cast<void>(rows.value(2, 0)); }), noRow);
    EXPECT_EQ(refusal([&] { static_cast<void>(rows.value(0, 3)); }), noField);
}

TEST_F(RecordsetTest, AnEmptyOneHasNothing) {
    Recordset rows;
    EXPECT_TRUE(rows.empty());
    EXPECT_TRUE(rows.eof());
    EXPECT_FALSE(rows.hasField("Name"));
    EXPECT_EQ(refusal([&] { return rows["Name"]; }), noField);
    EXPECT_NE(refusal([&] { rows.addNew(), rows.update(); }), "done");
}

TEST_F(RecordsetTest, UpdateWritesTheColumnsThatWereSet) {
    auto rows = open();
    rows.moveNext();
    rows.set("Age", 30);
    rows.set("name", "Bolanle");
    rows.set("AGE", 31);
    EXPECT_EQ(rows["Age"], Value(31));
    EXPECT_EQ(rows.value(1, 2), Value()) << "not written yet";
    EXPECT_TRUE(server.log.empty());
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T Age=31 Name=Bolanle where ID=2"}));
    EXPECT_EQ(rows["Name"], Value("Bolanle"));
    EXPECT_EQ(rows.value(0, 1), Value("Ada"));

    rows.update();
    EXPECT_TRUE(server.log.empty()) << "nothing was set since";
    rows.set("ID", 7);
    rows.update();
    rows.set("Age", 1);
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T ID=7 where ID=2", "update T Age=1 where ID=7"}));
}

TEST_F(RecordsetTest, AddNewBecomesTheCurrentRowWithItsIdentity) {
    auto rows = open();
    server.outcome = {1, 42};
    rows.addNew();
    EXPECT_FALSE(rows.eof());
    EXPECT_TRUE(rows["Name"].isNull());
    rows.set("Name", "Chi");
    EXPECT_EQ(rows["Name"], Value("Chi"));
    EXPECT_EQ(rows.rowCount(), 2U);
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"insert T Name=Chi"}));
    EXPECT_EQ(rows.row(), 2U);
    EXPECT_EQ(rows["ID"], Value(42));
    EXPECT_TRUE(rows["Age"].isNull());

    rows.set("Age", 5);
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T Age=5 where ID=42"}));
    rows.addNew();
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"insert T"}));
    EXPECT_EQ(rows.rowCount(), 4U);
    EXPECT_EQ(rows.value(2, 1), Value("Chi"));
}

TEST_F(RecordsetTest, AFailedUpdateLeavesAllPending) {
    auto rows = open();
    rows.set("Name", "x");
    server.failures["update"] = Category::constraint;
    EXPECT_THROW(rows.update(), db::Error);
    EXPECT_EQ(rows["Name"], Value("x"));
    EXPECT_EQ(rows.value(0, 1), Value("Ada"));
    server.outcome.affected = 0;
    EXPECT_NE(refusal([&] { rows.update(); }), "done") << "the row is gone";
    server.outcome.affected = 1;
    server.log.clear();
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T Name=x where ID=1"}));

    rows.addNew();
    rows.set("Name", "new");
    recorder = [](const db::Statement&) { throw db::Error(Category::injected, "Injected failure"); };
    EXPECT_THROW(rows.update(), db::Error);
    recorder = nullptr;
    EXPECT_EQ(rows.rowCount(), 2U);
    EXPECT_TRUE(server.log.empty());
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"insert T Name=new"}));
}

TEST_F(RecordsetTest, CancelDropsWhatIsPending) {
    auto rows = open();
    rows.moveNext();
    rows.addNew();
    rows.set("Name", "x");
    rows.cancelUpdate();
    EXPECT_EQ(rows["Name"], Value("Bola")) << "back where it stood";
    rows.set("Name", "y");
    rows.cancelUpdate();
    EXPECT_EQ(rows["Name"], Value("Bola"));
    rows.update();
    EXPECT_TRUE(server.log.empty());
}

TEST_F(RecordsetTest, WhatIsPendingStaysWithItsRow) {
    auto rows = open();
    rows.set("Name", "x");
    rows.moveNext();
    EXPECT_EQ(rows["Name"], Value("Bola"));
    EXPECT_EQ(refusal([&] { rows.set("Name", "y"); }), notAllowed);
    EXPECT_EQ(refusal([&] { rows.addNew(); }), notAllowed);
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T Name=x where ID=1"}));
    EXPECT_EQ(rows.row(), 0U);
}

TEST_F(RecordsetTest, RowsThatNoTableTakesCannotBeWritten) {
    auto update = [this] {
        auto rows = open();
        rows.set("Name", "x");
        return refusal([&] { rows.update(); });
    };
    server.table->columns[0].key = false;
    EXPECT_EQ(update(), noKey) << "no key at all";
    server.table->columns[3].key = true;
    EXPECT_EQ(update(), noKey) << "a key that was not read";
    server.table->columns.erase(server.table->columns.begin() + 1);
    EXPECT_EQ(update(), noField) << "a field of another table";
    server.table.reset();
    EXPECT_TRUE(update().starts_with("Current Recordset does not support updating.")) << "a view";
    server.rows.table.clear();
    EXPECT_TRUE(update().starts_with("Current Recordset does not support updating.")) << "a join";
    EXPECT_TRUE(server.log.empty());
}

TEST_F(RecordsetTest, TheRecorderSeesRowsWithTheirColumns) {
    std::vector<db::Statement> seen;
    recorder = [&](const db::Statement& statement) { seen.push_back(statement); };
    auto rows = open();
    rows.set("Age", 9);
    rows.update();
    rows.addNew();
    rows.set("Name", "Chi");
    rows.update();
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_EQ(seen[0].kind, db::Statement::Kind::read);
    EXPECT_EQ(seen[1].kind, db::Statement::Kind::update);
    EXPECT_EQ(seen[1].text, "update T");
    EXPECT_EQ(seen[2].kind, db::Statement::Kind::insert);
    EXPECT_EQ(seen[2].text, "insert T");
    const std::vector<std::pair<std::string, Value>> parameters = {{"Name", "Chi"}};
    EXPECT_EQ(seen[2].parameters, parameters);
}

TEST_F(RecordsetTest, OutlivesTheLineItWasReadOn) {
    auto rows = open();
    connection.idle();
    const auto otherSession = pool.borrow();
    rows.set("Name", "x");
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"open", "update T Name=x where ID=1"}));
}

/// The same over the embedded engine: what is written is what stands there, and a refused row leaves nothing.
TEST(RecordsetOnSqlite, WritesAndReadsBack) {
    db::DataSources sources({{"Hospital", {"sqlite", ":memory:"}}});
    db::Databases databases(sources);
    auto& hospital = databases.named("Hospital");
    hospital.execute(
        "create table hTest (ID int identity(1,1) not null primary key, Name varchar(50) not null, Seen datetime, "
        "Fee money, Done bit)"_sql);

    Recordset rows(hospital, "select * from hTest where 1=2"_sql);
    rows.addNew();
    rows.set("Name", "O'Brien; drop table hTest --");
    rows.set("Seen", db::DateTime::of(2026, 11, 24, 9, 30));
    rows.set("Fee", 0.1 + 0.2);
    rows.set("Done", true);
    rows.update();
    EXPECT_EQ(rows["ID"], Value(1));
    rows.addNew();
    rows.set("Fee", 1.0);
    EXPECT_THROW(rows.update(), db::Error) << "a name is needed";
    rows.set("Name", "second");
    rows.update();

    Recordset read(hospital,
                   "select * from hTest where Name='"_sql + std::string("O''BRIEN; drop table hTest --") + "'");
    ASSERT_EQ(read.rowCount(), 1U);
    EXPECT_EQ(read["Seen"].moment().iso(), "2026-11-24 09:30:00");
    EXPECT_EQ(read["Fee"], Value(0.3));
    EXPECT_EQ(read["Done"], Value(true));
    read.set("Name", "first");
    read.update();
    Recordset all(hospital, "select Name from hTest order by ID"_sql);
    ASSERT_EQ(all.rowCount(), 2U);
    EXPECT_EQ(all.value(0, 0), Value("first"));
    EXPECT_EQ(all.value(1, 0), Value("second"));
    EXPECT_EQ(all.fields(), (std::vector<std::string>{"Name"})) << "the key is read along, out of sight";
    all.moveNext();
    all.set("Name", "x");
    all.update();
    EXPECT_EQ(Recordset(hospital, "select top 1 Name n from hTest order by ID desc"_sql)["n"], Value("x"));
    for (const auto& none : {"select distinct Name from hTest"_sql, "select max(Name) Name from hTest"_sql,
                             "select Name from hTest union select Name from hTest"_sql}) {
        Recordset fixed(hospital, none);
        fixed.set("Name", "y");
        EXPECT_NE(refusal([&] { fixed.update(); }), "") << none.text();
    }
}

}  // namespace
