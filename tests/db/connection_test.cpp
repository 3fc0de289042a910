#include "db/connection.h"

#include "db/command.h"
#include "tests/db/fakeengine.h"
#include "tests/support/failure.h"

namespace {

using db::Category;
using db::operator""_sql;
using test::failureOf;

class ConnectionTest : public OnFakeServer {
protected:
    void execute() { connection.execute("delete T"_sql); }
    /// The category that a statement fails with.
    std::optional<Category> executeFails() {
        return failureOf([&] { execute(); }).first;
    }
};

TEST_F(ConnectionTest, BorrowsAtTheFirstStatementAndGivesBackWhenIdle) {
    EXPECT_EQ(server.opened, 0);
    execute();
    connection.idle();
    db::Connection other("Hospital", pool, recorder);
    other.execute("delete U"_sql);
    EXPECT_EQ(server.opened, 1) << "the second session got the idle line";
    execute();
    EXPECT_EQ(server.opened, 2);
}

TEST_F(ConnectionTest, ASharedReadHoldsNoLineWhileItWaitsAndSeesItsOwnTransaction) {
    execute();
    static_cast<void>(connection.readShared("select a from T"_sql));
    connection.beginTrans();
    static_cast<void>(connection.readShared("select a from T"_sql));
    connection.rollbackTrans();
    server.failures["read"] = Category::lostConnection;
    EXPECT_EQ(failureOf([&] { static_cast<void>(connection.readShared("select a from T"_sql)); }).first,
              Category::lostConnection);
    static_cast<void>(connection.readShared("select a from T"_sql));
    EXPECT_EQ(server.takeLog(),
              (Log{"open", "execute delete T", "read select a from T", "begin", "read select a from T", "rollback",
                   "read select a from T", "open", "read select a from T"}));
}

TEST_F(ConnectionTest, KeepsItsLineWhileATransactionIsOpen) {
    connection.beginTrans();
    connection.idle();
    execute();
    connection.commitTrans();
    EXPECT_EQ(server.takeLog(), (Log{"open", "begin", "execute delete T", "commit"}));
}

TEST_F(ConnectionTest, OnlyTheOutermostCommitWritesAndWhatRunsAroundItGoesWithIt) {
    int through = 0;
    bool fails = false;
    const db::AroundCommit around{[&](db::Connection& own) {
                                      own.execute("insert Mark"_sql);
                                      if (fails) throw db::Error(Category::injected, "Injected failure");
                                  },
                                  [&] { ++through; }};
    db::Connection marked("Hospital", pool, recorder, around);
    {
        db::Transaction outer(marked);
        db::Transaction inner(marked);
        inner.commit();
        EXPECT_TRUE(marked.inTransaction());
        EXPECT_EQ(through, 0) << "an inner commit is none";
        outer.commit();
    }
    EXPECT_EQ(server.takeLog(), (Log{"open", "begin", "execute insert Mark", "commit"}));
    EXPECT_EQ(through, 1);
    fails = true;
    db::Transaction failing(marked);
    EXPECT_EQ(failureOf([&] { failing.commit(); }).first, Category::injected);
    EXPECT_FALSE(marked.inTransaction());
    EXPECT_EQ(server.takeLog(), (Log{"begin", "execute insert Mark", "rollback"}));
    { db::Transaction left(marked); }
    EXPECT_EQ(server.takeLog(), (Log{"begin", "rollback"}));
    EXPECT_EQ(through, 1);
}

TEST_F(ConnectionTest, AnInnerRollbackDoomsTheOuterCommitAndNoOther) {
    db::Transaction outer(connection);
    { db::Transaction inner(connection); }
    { db::Transaction(connection).commit(); }
    execute();
    EXPECT_EQ(failureOf([&] { outer.commit(); }).second,
              "The transaction was rolled back by an operation inside it and cannot be committed.");
    EXPECT_EQ(server.takeLog(), (Log{"open", "begin", "execute delete T", "rollback"}));
    db::Transaction(connection).commit();
    EXPECT_EQ(server.takeLog(), (Log{"begin", "commit"})) << "the next transaction is whole";
    { db::Transaction both(connection), rolledBack(connection); }
    db::Transaction(connection).commit();
    EXPECT_EQ(server.takeLog(), (Log{"begin", "rollback", "begin", "commit"})) << "an outer rollback ends it too";
}

TEST_F(ConnectionTest, CommitWithoutATransactionFailsAndRollbackDoesNothing) {
    EXPECT_EQ(failureOf([&] { connection.commitTrans(); }).first, Category::other);
    connection.rollbackTrans();
    EXPECT_TRUE(server.log.empty());
}

TEST_F(ConnectionTest, AFailedBeginOrCommitLeavesNoTransaction) {
    for (const auto& [step, category] : {std::pair("open", Category::lostConnection), {"begin", Category::other}}) {
        server.failures[step] = category;
        EXPECT_EQ(failureOf([&] { connection.beginTrans(); }).first, category) << step;
        EXPECT_FALSE(connection.inTransaction()) << step;
        EXPECT_NO_THROW(execute()) << step;
    }
    db::Transaction transaction(connection);
    server.failures["commit"] = Category::busy;
    EXPECT_EQ(failureOf([&] { transaction.commit(); }).first, Category::busy);
    EXPECT_FALSE(connection.inTransaction());
    EXPECT_EQ(server.log.back(), "rollback");
}

TEST_F(ConnectionTest, AFailedStatementLeavesTheTransactionOpen) {
    db::Transaction transaction(connection);
    server.failures["execute"] = Category::constraint;
    EXPECT_EQ(executeFails(), Category::constraint);
    execute();
    EXPECT_NO_THROW(transaction.commit());
}

TEST_F(ConnectionTest, ALostLineIsReplacedAtTheNextStatement) {
    execute();
    server.failures["execute"] = Category::lostConnection;
    EXPECT_EQ(executeFails(), Category::lostConnection);
    EXPECT_EQ(server.closed, 1) << "dropped, not given back";
    execute();
    EXPECT_EQ(server.opened, 2);
}

/// What follows the loss in the same save must not be written by itself.
TEST_F(ConnectionTest, ALostLineTakesItsTransactionAlong) {
    {
        db::Transaction outer(connection);
        server.failures["execute"] = Category::lostConnection;
        EXPECT_EQ(executeFails(), Category::lostConnection);
        server.log.clear();
        EXPECT_EQ(executeFails(), Category::lostConnection);
        EXPECT_EQ(failureOf([&] { db::Transaction inner(connection); }).first, Category::lostConnection);
        EXPECT_EQ(failureOf([&] { outer.commit(); }).first, Category::lostConnection);
        EXPECT_TRUE(server.log.empty());
    }
    execute();
    EXPECT_EQ(server.takeLog(), (Log{"open", "execute delete T"}));

    connection.beginTrans();
    server.failures["read"] = Category::lostConnection;
    EXPECT_THROW(static_cast<void>(connection.read("select 1"_sql)), db::Error);
    connection.rollbackTrans();
    EXPECT_FALSE(connection.inTransaction());
    EXPECT_NO_THROW(execute());
}

TEST_F(ConnectionTest, ErrorsNameTheOperationAndTheDatabase) {
    server.failures["execute"] = Category::constraint;
    try {
        execute();
        FAIL();
    } catch (const db::Error& error) {
        EXPECT_STREQ(error.what(), "failed: execute");
        EXPECT_EQ(error.operation(), "execute on Hospital");
    }
}

TEST_F(ConnectionTest, TheRecorderSeesEachStatementBeforeItRuns) {
    record();
    connection.execute("delete T where a='"_sql + std::string("x") + "'");
    static_cast<void>(connection.read("select 1"_sql));
    db::Command(connection, "getIDNo").append("DestName", db::Command::Type::varText, 50, "PATIENT2").execute();
    EXPECT_EQ(seen, (Log{"Hospital execute: delete T where a='x'", "Hospital read: select 1",
                         "Hospital call: getIDNo @DestName=PATIENT2"}));
    EXPECT_EQ(server.log.back(), "call getIDNo @DestName=PATIENT2");
}

TEST_F(ConnectionTest, ARecorderThatThrowsStopsTheStatement) {
    stopStatements();
    EXPECT_EQ(executeFails(), Category::injected);
    EXPECT_EQ(failureOf([&] { static_cast<void>(connection.read("select 1"_sql)); }).first, Category::injected);
    EXPECT_EQ(failureOf([&] { db::Command(connection, "P").execute(); }).first, Category::injected);
    EXPECT_TRUE(server.log.empty());
}

TEST_F(ConnectionTest, ABrokenStatementNeverReachesTheEngine) {
    const auto broken = "delete T where a='"_sql + std::string("'") + "'";
    EXPECT_EQ(failureOf([&] { connection.execute(broken); }).first, Category::syntax);
    EXPECT_EQ(server.takeLog(), (Log{"open"}));
}

TEST_F(ConnectionTest, CommandsCheckTypesAndSizes) {
    using Type = db::Command::Type;
    const auto day = db::DateTime::of(2026, 11, 24);
    const struct {
        const char* name;
        Type type;
        int size;
        db::Value value;
        std::optional<std::string> sent;
    } cases[] = {
        {"text of the size", Type::varText, 3, "abc", "abc"},
        {"text too long", Type::varText, 3, "abcd", {}},
        {"characters, not bytes", Type::varText, 3, "Ọmọ", "Ọmọ"},
        {"characters too many", Type::varText, 2, "Ọmọ", {}},
        {"null", Type::varText, 3, {}, "null"},
        {"number as a text", Type::varText, 3, 12, "12"},
        {"bytes as a text", Type::varText, 3, db::Bytes(1), {}},
        {"moment", Type::dateTime, 10, day, "24-Nov-2026"},
        {"text of a moment", Type::dateTime, 10, "09:30", "09:30:00"},
        {"text of no moment", Type::dateTime, 10, "today", {}},
        {"number as a moment", Type::dateTime, 10, 5, {}},
        {"integer", Type::integer, 4, -7, "-7"},
        {"text of an integer", Type::integer, 4, "12", "12"},
        {"fraction as an integer", Type::integer, 4, 1.5, {}},
        {"beyond an integer", Type::integer, 4, 3e9, {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        db::Command command(connection, "P");
        const auto failure = failureOf([&] { command.append("@p", each.type, each.size, each.value).execute(); });
        EXPECT_EQ(failure.first, each.sent ? std::nullopt : std::optional(Category::type));
        if (each.sent) {
            EXPECT_EQ(server.log.back(), "call P @p=" + *each.sent);
        }
    }
}

}  // namespace
