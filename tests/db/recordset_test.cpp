#include "db/recordset.h"

#include "tests/db/fakeengine.h"
#include "tests/support/failure.h"

namespace {

using db::Category;
using db::Recordset;
using db::Value;
using db::operator""_sql;
using test::Failure;
using test::failureOf;

const Failure noField{Category::other,
                      "Item cannot be found in the collection corresponding to the requested name or ordinal."};
const Failure noRow{Category::other, "Either BOF or EOF is True, or the current record has been deleted."};
const Failure noKey{Category::other, "Insufficient key column information for updating or refreshing."};
const Failure notAllowed{Category::other, "Operation is not allowed in this context."};
const Failure notUpdatable{Category::other,
                           "Current Recordset does not support updating. This may be a limitation of the provider, or "
                           "of the selected locktype."};

/// Two rows of a table T (ID identity and key, Name, Age), on a server that a test holds in its hand.
class RecordsetTest : public OnFakeServer {
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
};

TEST_F(RecordsetTest, WalksAndReadsByName) {
    auto rows = open();
    EXPECT_EQ(rows.rowCount(), 2U);
    EXPECT_EQ(rows["NAME"], Value("Ada"));
    rows.moveNext();
    EXPECT_EQ(rows["name"], Value("Bola"));
    EXPECT_TRUE(rows["Age"].isNull());
    EXPECT_EQ(failureOf([&] { return rows["Nme"]; }), noField);
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    rows.moveNext();
    EXPECT_EQ(rows.row(), 2U) << "no further than the end";
    EXPECT_EQ(failureOf([&] { return rows["Name"]; }), noRow);
    EXPECT_EQ(failureOf([&] { rows.set("Name", "x"); }), noRow);
    EXPECT_EQ(failureOf([&] { rows.update(); }), noRow);
    rows.moveTo(99);
    EXPECT_EQ(rows.row(), 2U);
    rows.moveFirst();
    EXPECT_EQ(rows["ID"], Value(1));
    EXPECT_EQ(failureOf([&] { static_cast<void>(rows.value(2, 0)); }), noRow);
    EXPECT_EQ(failureOf([&] { static_cast<void>(rows.value(0, 3)); }), noField);
}

TEST_F(RecordsetTest, AnEmptyOneHasNothing) {
    Recordset rows;
    EXPECT_TRUE(rows.empty());
    EXPECT_TRUE(rows.eof());
    EXPECT_FALSE(rows.hasField("Name"));
    EXPECT_EQ(failureOf([&] { return rows["Name"]; }), noField);
    EXPECT_EQ(failureOf([&] { rows.addNew(), rows.update(); }), notUpdatable);
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
    EXPECT_EQ(failureOf([&] { rows.update(); }).first, Category::other) << "the row is gone";
    server.outcome.affected = 1;
    server.log.clear();
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T Name=x where ID=1"}));

    rows.addNew();
    rows.set("Name", "new");
    stopStatements();
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
    EXPECT_EQ(failureOf([&] { rows.set("Name", "y"); }), notAllowed);
    EXPECT_EQ(failureOf([&] { rows.addNew(); }), notAllowed);
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"update T Name=x where ID=1"}));
    EXPECT_EQ(rows.row(), 0U);
}

TEST_F(RecordsetTest, RowsThatNoTableTakesCannotBeWritten) {
    auto update = [this] {
        auto rows = open();
        rows.set("Name", "x");
        return failureOf([&] { rows.update(); });
    };
    server.table->columns[0].key = false;
    EXPECT_EQ(update(), noKey) << "no key at all";
    server.table->columns[3].key = true;
    EXPECT_EQ(update(), noKey) << "a key that was not read";
    server.table->columns.erase(server.table->columns.begin() + 1);
    EXPECT_EQ(update(), noField) << "a field of another table";
    server.table.reset();
    EXPECT_EQ(update(), notUpdatable) << "a view";
    server.rows.table.clear();
    EXPECT_EQ(update(), notUpdatable) << "a join";
    EXPECT_TRUE(server.log.empty());
}

TEST_F(RecordsetTest, TheRecorderSeesRowsWithTheirColumns) {
    record();
    auto rows = open();
    rows.set("Age", 9);
    rows.update();
    rows.addNew();
    rows.set("Name", "Chi");
    rows.update();
    EXPECT_EQ(seen, (Log{"Hospital read: select ID, Name, Age from T", "Hospital update: update T Age=9",
                         "Hospital insert: insert T Name=Chi"}));
}

TEST_F(RecordsetTest, OutlivesTheLineItWasReadOn) {
    auto rows = open();
    connection.idle();
    const auto otherSession = pool.borrow();
    rows.set("Name", "x");
    rows.update();
    EXPECT_EQ(server.takeLog(), (Log{"open", "update T Name=x where ID=1"}));
}

TEST(RecordsetOnSqlite, WritesRowsThatComeWithTheirKey) {
    db::DataSources sources({{"Hospital", {"sqlite", ":memory:"}}});
    db::Databases databases(sources);
    auto& hospital = databases.named("Hospital");
    hospital.execute("create table hTest (ID int identity(1,1) not null primary key, Name varchar(50) not null)"_sql);
    Recordset rows(hospital, "select * from hTest where 1=2"_sql);
    for (const char* name : {"first", "second"}) {
        rows.addNew();
        EXPECT_EQ(failureOf([&] { rows.update(); }).first, Category::constraint) << "a name is needed";
        rows.set("Name", name);
        rows.update();
    }
    EXPECT_EQ(rows["ID"], Value(2));

    Recordset names(hospital, "select Name from hTest order by ID"_sql);
    EXPECT_EQ(names.fields(), (std::vector<std::string>{"Name"})) << "the key is read along, out of sight";
    names.moveNext();
    names.set("Name", "x");
    names.update();
    Recordset read(hospital, "select Name from hTest order by ID"_sql);
    ASSERT_EQ(read.rowCount(), 2U);
    EXPECT_EQ(read.value(0, 0), Value("first"));
    EXPECT_EQ(read.value(1, 0), Value("x"));
    const std::pair<db::Sql, Failure> fixed[] = {
        {"select distinct Name from hTest"_sql, noKey},
        {"select max(Name) Name from hTest"_sql, notUpdatable},
        {"select Name from hTest union select Name from hTest"_sql, notUpdatable},
    };
    for (const auto& [sql, refusal] : fixed) {
        Recordset none(hospital, sql);
        none.set("Name", "y");
        EXPECT_EQ(failureOf([&] { none.update(); }), refusal) << sql.text();
    }
}

}  // namespace
