#include <filesystem>
#include <thread>

#include "db/sqlite/writerqueue.h"
#include "tests/db/line.h"
#include "tests/support/failure.h"

namespace {

using test::Line;

class Writers : public testing::Test {
protected:
    Writers() {
        db::createSqliteFile(file);
        Line(file).script(
            "create table idgen (destNAme varchar(50) primary key, id int not null); insert idgen values ('P', 0)");
    }
    test::TemporaryDirectory folder;
    std::string file = folder.file("h.db");
};

TEST_F(Writers, LockAtTheFirstWriteOnly) {
    Line one(file);
    Line two(file);
    one.engine->begin();
    EXPECT_EQ(one.rows("select id from idgen"), "0");
    EXPECT_FALSE(one.engine->holdsWriteLock());
    two.run("update idgen set id = 5");
    EXPECT_EQ(one.rows("select id from idgen"), "5") << "what is committed shows before the first write";
    one.run("update idgen set id = 6");
    EXPECT_TRUE(one.engine->holdsWriteLock());
    EXPECT_EQ(two.rows("select id from idgen"), "5") << "a reader neither waits nor sees it";
    std::thread waiting([&] { two.run("update idgen set id = id + 10"); });
    one.engine->commit();
    waiting.join();
    EXPECT_FALSE(one.engine->holdsWriteLock());
    EXPECT_EQ(one.rows("select id from idgen"), "16");
}

TEST_F(Writers, RollBack) {
    Line line(file);
    line.engine->begin();
    line.run("update idgen set id = 7");
    EXPECT_THROW(line.run("insert idgen values ('P', 1)"), db::Error);
    EXPECT_EQ(line.rows("select id from idgen"), "7") << "a failed statement undoes itself alone";
    line.engine->rollback();
    EXPECT_EQ(line.rows("select id from idgen"), "0");
    {
        Line leaving(file);
        leaving.engine->begin();
        leaving.run("update idgen set id = 8");
    }
    line.run("update idgen set id = id + 1");  // the line that went gave its turn back
    EXPECT_EQ(line.rows("select id from idgen"), "1");
    line.engine->begin();
    line.engine->commit();
    EXPECT_THROW((line.engine->begin(), line.engine->begin()), db::Error);
}

TEST_F(Writers, AreDoneOnceTheLogIsOnTheDisk) {
    Line line(file);
    line.run("update idgen set id = 1");
    std::filesystem::rename(file + "-wal", file + "-away");  // what cannot be synced is not confirmed
    EXPECT_EQ(test::failureOf([&] { line.run("update idgen set id = 2"); }).second, "disk I/O error");
    line.engine->begin();
    EXPECT_EQ(line.rows("select id from idgen"), "2");
    line.engine->commit();  // wrote nothing
    line.engine->begin();
    line.run("update idgen set id = 3");
    EXPECT_THROW(line.engine->commit(), db::Error);
    std::filesystem::rename(file + "-away", file + "-wal");
    line.run("update idgen set id = id + 1");
    EXPECT_EQ(line.rows("select id from idgen"), "4");
}

TEST(WriterQueue, ServesInTurnAndGivesUpInTime) {
    using namespace std::chrono_literals;
    db::sqlite::WriterQueue queue;
    ASSERT_TRUE(queue.enter(0ms));
    EXPECT_FALSE(queue.enter(5ms));
    std::vector<int> order;
    std::vector<std::thread> waiting;
    for (int i = 0; i < 4; ++i) {
        waiting.emplace_back([&, i] {
            if (!queue.enter(30s)) return;
            order.push_back(i);  // the turn guards it
            queue.leave();
        });
        std::this_thread::sleep_for(50ms);
    }
    queue.leave();
    for (auto& thread : waiting) thread.join();
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_TRUE(queue.enter(0ms));
}

}  // namespace
