#include "hospital/schema.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <regex>
#include <set>
#include <thread>

#include "db/letters.h"
#include "db/sqlite/engine.h"
#include "db/sqlite/functions.h"
#include "hospital/embedded.h"
#include "hospital/scripts.h"
#include "tests/hospital/hospital.h"
#include "tests/support/paths.h"

namespace {

namespace fs = std::filesystem;
using namespace db::literals;
using test::failureOf;

using Lines = std::vector<std::string>;

/// Runs statements of the engine's own on a database's file, past the program; the rows that they give.
Lines runOn(const fs::path& file, const std::string& statements) {
    Lines lines;
    sqlite3* line = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &line), SQLITE_OK);
    db::ServerClock clock;
    db::sqlite::registerFunctions(line, clock);
    const auto add = [](void* to, int count, char** cells, char**) {
        std::string text;
        for (int i = 0; i < count; ++i) text += (i > 0 ? "|" : "") + std::string(cells[i] ? cells[i] : "null");
        static_cast<Lines*>(to)->push_back(text);
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(line, statements.c_str(), add, &lines, nullptr), SQLITE_OK) << sqlite3_errmsg(line);
    sqlite3_close(line);
    return lines;
}
/// What a database holds and how its tables are built, sorted.
Lines structure(const fs::path& file) {
    return runOn(file,
                 "select type, name, '' from sqlite_master where name not like 'sqlite_auto%'"
                 " union all select m.name, c.name, c.type || c.\"notnull\" || coalesce(c.dflt_value, '')"
                 " from sqlite_master m, pragma_table_xinfo(m.name) c where m.type = 'table' order by 1, 2");
}
Lines rowsOf(const fs::path& file, const Lines& tables) {
    Lines rows;
    for (const auto& table : tables)
        for (auto& row : runOn(file, "select * from \"" + table + "\"")) rows.push_back(table + ": " + row);
    return rows;
}

class SchemaFiles : public testing::Test {
protected:
    [[nodiscard]] fs::path file(const std::string& name = "Hospital.db") const { return directory.file(name); }
    void meddle(const std::string& statements) const { runOn(file(), statements); }
    /// Puts the databases of an older version, with rows of a hospital at work, into the directory.
    void loadSnapshot(const std::string& version) const {
        const auto snapshots = test::sourceDirectory() / "tests/hospital/snapshots" / version;
        for (const auto& name : db::DataSources::names()) {
            std::ifstream dump(snapshots / (name + ".sql"));
            const std::string text{std::istreambuf_iterator<char>(dump), {}};
            ASSERT_FALSE(text.empty()) << name;
            db::createSqliteFile(file(name + ".db"));
            runOn(file(name + ".db"), text);
        }
    }
    /// Makes the databases, or brings them forward; the steps that it took.
    [[nodiscard]] Lines create() const {
        Lines steps;
        hospital::createDatabases(directory.path(), [&](const std::string& step) { steps.push_back(step); });
        return steps;
    }
    [[nodiscard]] Lines check() const {
        test::OpenDatabases open(directory.path());
        return hospital::checkDatabases(open.databases);
    }
    static void expectRefusal(const fs::path& where, const std::string& part) {
        const auto [category, description] = failureOf([&] { hospital::createDatabases(where); });
        EXPECT_TRUE(category && description.find(part) != std::string::npos) << part << ": " << description;
    }
    const test::TemporaryDirectory directory;
};

TEST_F(SchemaFiles, NoDirectoryNoDatabaseNoOtherVersion) {
    expectRefusal(file("nowhere"), "no such directory");
    expectRefusal("/proc/self", "/proc/self/");  // nothing can be written there
    directory.write("SmsCenter.db", "This is a letter to a patient and no database. " + std::string(4096, '.'));
    expectRefusal(directory.path(), "SmsCenter.db");
    fs::remove(file("SmsCenter.db"));
    hospital::createDatabases(directory.path());
    meddle("insert into SchemaVersion (version) values (99)");
    expectRefusal(directory.path(), "version 99");
    EXPECT_EQ(check().size(), 1U);
}

TEST_F(SchemaFiles, AnInterruptedRunLeavesADatabaseWholeOrAbsent) {
    directory.write("Hospital.db.new", "half of a file");
    directory.write("Hospital.db.new-wal", "half of a log");
    for (const auto milliseconds : {5, 20, 40, 80, 150}) {
        const auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                hospital::createDatabases(directory.path());
            } catch (...) {
                _exit(1);
            }
            _exit(0);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        for (const auto& line : check()) {
            const bool archive = line.ends_with("Could not locate the database \"HospitalArchive\".");
            const auto database = archive ? "HospitalArchive" : line.substr(0, line.find(':'));
            EXPECT_FALSE(fs::exists(file(database + ".db"))) << milliseconds << ": " << line;
        }
    }
    hospital::createDatabases(directory.path());
    EXPECT_EQ(check(), Lines{});
    for (const auto& entry : fs::directory_iterator(directory.path()))
        EXPECT_EQ(entry.path().string().find(".new"), std::string::npos) << entry.path();
}

TEST_F(SchemaFiles, AnOlderVersionComesForwardWithAllItsRows) {
    loadSnapshot("version1");
    const Lines tables = {"hPatients",   "hRecords",  "hAdmission", "hPreConsult", "hAntenatalReg",
                          "AppDefaults", "Users",     "employees",  "idgen",       "hRetainership",
                          "UserRoles",   "hComments", "Billing",    "hConsulting"};
    const auto before = rowsOf(file(), tables);
    ASSERT_GT(before.size(), 200U);
    EXPECT_GT(check().size(), 20U) << "the older databases lack much";

    EXPECT_EQ(create().size(), 4U);
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(rowsOf(file(), tables), before);
    const test::TemporaryDirectory fresh;
    hospital::createDatabases(fresh.path());
    for (const auto& name : db::DataSources::names())
        EXPECT_EQ(structure(file(name + ".db")), structure(fresh.file(name + ".db"))) << name;
    EXPECT_EQ(rowsOf(file(), {"hClinicWeeks"}), rowsOf(fresh.file("Hospital.db"), {"hClinicWeeks"}))
        << "a new table has its first rows";
    EXPECT_EQ(create(), Lines{}) << "it is done once";
}

/// Version 2 had no search inside names and too little room for a blood group.
TEST_F(SchemaFiles, Version2GetsItsSearchAndItsRoom) {
    hospital::createDatabases(directory.path());
    const auto whole = structure(file());
    {
        test::OpenDatabases open(directory.path());
        for (const auto& name : db::DataSources::names())
            open.databases.named(name).execute("update SchemaVersion set version = 2"_sql);
        for (const auto& statement :
             {"drop fulltext index on vwhpatients"_sql,
              "alter table hPatients alter column bloodGroup varchar(10) null"_sql,
              "alter table hpatientsArchive alter column bloodGroup varchar(10) null"_sql,
              "insert into hPatients (PNo, psurname, pfirstName) values ('1', 'ADEWALE', 'BOLA')"_sql})
            open.hospital().execute(statement);
    }
    EXPECT_NE(structure(file()), whole);
    hospital::createDatabases(directory.path());
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(structure(file()), whole);
    test::OpenDatabases open(directory.path());
    const std::string wanted = "%DEW%";
    EXPECT_EQ(open.count("select pno from vwhpatients where fullname like '"_sql + wanted + "'"), 1U);
    open.hospital().execute("update hPatients set bloodGroup = 'AB-NEGATIVE'"_sql);
    open.hospital().execute("insert into hpatientsArchive select * from hpatients where pno = '1'"_sql);
}

/// Up to version 6 a client stood once for each kind in the register of templates.
TEST_F(SchemaFiles, Version6LosesTheKeyOfTheRegisterAndNoRow) {
    hospital::createDatabases(directory.path());
    const auto whole = structure(file());
    {
        test::OpenDatabases open(directory.path());
        for (const auto& name : db::DataSources::names())
            open.databases.named(name).execute("update SchemaVersion set version = 6"_sql);
        for (const auto& statement :
             {"drop table DrugNHISListEntered"_sql,
              "create table DrugNHISListEntered (CoyID varchar(20) not null, Type varchar(20) not null, remarks "
              "varchar(50) null, useTariff varchar(20) null, Pcent float null, primary key (CoyID, Type))"_sql,
              "insert into DrugNHISListEntered values ('O''B', 'DRUG', 'HMO', '0001', 0.9), ('0001', 'LAB', null, "
              "null, "
              "null)"_sql})
            open.hospital().execute(statement);
    }
    const auto rows = rowsOf(file(), {"DrugNHISListEntered"});
    hospital::createDatabases(directory.path());
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(structure(file()), whole);
    EXPECT_EQ(rowsOf(file(), {"DrugNHISListEntered"}), rows);
    test::OpenDatabases open(directory.path());
    open.hospital().execute("insert into DrugNHISListEntered select * from DrugNHISListEntered"_sql);
    EXPECT_EQ(open.count("select * from DrugNHISListEntered"_sql), 4U);
}

TEST_F(SchemaFiles, ABreakOnTheWayForwardLeavesTheDatabaseAsItWas) {
    const struct {
        const char* from;
        std::function<void()> prepare;
        int every;  ///< how many writes lie between those that fail
    } cases[] = {
        {"an older version", [&] { loadSnapshot("version1"); }, 37},
        {"this version with something missing",
         [&] {
             hospital::createDatabases(directory.path());
             meddle("drop view qryhBabyDischarge; drop index IX_hRecords_PNo");
         },
         1},
    };
    for (const auto& [from, prepare, every] : cases) {
        for (const auto& entry : fs::directory_iterator(directory.path())) fs::remove(entry);
        prepare();
        const auto before = structure(file());
        int failing = 1;
        for (;; failing += every) {
            SCOPED_TRACE(from + (": write " + std::to_string(failing)));
            int writes = 0;
            {
                test::OpenDatabases open(directory.path());
                open.databases.setRecorder(test::failingWrite(failing, writes));
                const auto [category, description] = failureOf([&] { hospital::bringForward(open.hospital()); });
                ASSERT_EQ(category.has_value(), writes >= failing);
                ASSERT_EQ(category.value_or(db::Category::injected), db::Category::injected) << description;
            }
            if (writes < failing) break;
            ASSERT_EQ(structure(file()), before);
        }
        EXPECT_GT(failing, every) << from;
        hospital::createDatabases(directory.path());
        EXPECT_EQ(check(), Lines{}) << from;
    }
}

TEST_F(SchemaFiles, CheckNamesWhatIsWrong) {
    const std::pair<std::string, Lines> cases[] = {
        {"drop view qryhBabyDischarge", {"Hospital: the view qryhBabyDischarge is missing"}},
        {"drop index IX_hRecords_PNo", {"Hospital: the index IX_hRecords_PNo is missing"}},
        {"alter table hComments rename column Comment to Text", {"Hospital: the column hComments.Comment is missing"}},
        {"delete from vorel_view; delete from vorel_procedure where name = 'getIDNo'",
         {"Hospital: the view qryhConsultedPatientsArchiveUnion is missing",
          "Hospital: the procedure getIDNo is missing"}},
        {"drop view vwhComments; drop table hComments",
         {"Hospital: the table hComments is missing", "Hospital: the index IX_hComments_Dept is missing",
          "Hospital: the view vwhComments is missing"}},
        {"drop view qryhEDD; create view qryhEDD as select dtEdd from hNobody", {"Hospital: the view qryhEDD: "}},
    };
    for (const auto& [statement, expected] : cases) {
        hospital::createDatabases(directory.path());
        meddle(statement);
        const auto wrong = check();
        ASSERT_EQ(wrong.size(), expected.size()) << statement;
        for (std::size_t i = 0; i < wrong.size(); ++i) EXPECT_TRUE(wrong[i].starts_with(expected[i])) << wrong[i];
        fs::remove(file());
    }
}

TEST_F(SchemaFiles, WhatIsMissingComesBackAndALostTableDoesNot) {
    const auto drop = [&](const std::string& database, const std::string& what) {
        test::OpenDatabases(directory.path()).databases.named(database).execute(hospital::scriptSql("drop " + what));
    };
    hospital::createDatabases(directory.path());
    const auto whole = structure(file());
    meddle("update hHospital set hname = 'Kept'");
    const struct {
        const char *database, *what, *on;
    } dropped[] = {
        {"Hospital", "view qryhBabyDischarge", ""},
        {"Hospital", "view qryhConsultedPatientsArchiveUnion", ""},
        {"Hospital", "index IX_hRecords_PNo", " on hRecords"},
        {"Hospital", "procedure getIDNo", ""},
        {"Hospital", "fulltext index on vwhpatients", ""},
        {"Hospital", "ordered index on qryhConsultedPatients", ""},
        {"SmsCenter", "view vwFullnamePatAppt", ""},
    };
    std::multiset<std::string> expected;
    for (const auto& [database, what, on] : dropped) {
        drop(database, std::string(what) + on);
        expected.insert("Creating the missing " + std::string(what) + " of " + database);
    }
    EXPECT_EQ(check().size(), expected.size());
    fs::remove(file("Accounting.db"));
    const auto steps = create();
    EXPECT_EQ(std::multiset<std::string>(steps.begin(), steps.end()), expected);
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(structure(file()), whole);
    EXPECT_EQ(rowsOf(file(), {"hHospital"}).front(), "hHospital: 001|Kept|14 Marina Road, Lagos|08030001000");

    drop("Hospital", "view vwhComments");
    drop("Hospital", "table hComments");
    const auto before = structure(file());
    expectRefusal(directory.path(), "the table hComments is missing, and its rows with it");
    EXPECT_EQ(structure(file()), before);
}

TEST_F(SchemaFiles, CheckSeesADamagedFileAndAMissingOne) {
    hospital::createDatabases(directory.path());
    fs::remove(file("Accounting.db"));
    {
        std::fstream damaged(file(), std::ios::in | std::ios::out | std::ios::binary);
        const auto size = static_cast<std::streamoff>(fs::file_size(file()));
        for (std::streamoff at = size / 2; at < size; at += 1024) damaged.seekp(at) << "damaged";
    }
    const auto wrong = check();
    const auto about = [&](const std::string& name) {
        return std::any_of(wrong.begin(), wrong.end(), [&](auto& line) { return line.starts_with(name + ":"); });
    };
    EXPECT_TRUE(about("Hospital"));
    EXPECT_TRUE(about("Accounting"));
    EXPECT_FALSE(about("SmsCenter"));
}

/// A script in small letters, without comments, blanks run together, one behind it.
std::string bare(std::string_view script) {
    const auto code = std::regex_replace(db::lowered(script), std::regex("--[^\n]*"), "");
    return std::string(db::withoutBlanksAround(std::regex_replace(code, std::regex("\\s+"), " "))) + " ";
}

/// What a T-SQL server asks of a script and the embedded engine does not: a view or a procedure stands alone in its
/// batch, and nothing is said in another engine's words.
TEST(Schema, IsTSqlAsItStands) {
    const std::regex start(
        "create (table|index|view|procedure) |insert into |update |alter table |drop (index|table) ");
    const std::regex second(" create (view|procedure) ");
    const std::regex foreign(
        "fulltext|\\|\\||pragma|autoincrement|strftime|if (not )?exists|create or replace|on conflict|returning |"
        " limit [0-9]|(ifnull|substr|now|length) ?\\(");
    int batches = 0;
    for (const auto& [path, text] : hospital::embeddedFiles()) {
        if (!path.starts_with("schema/") && !path.starts_with("migrations/")) continue;
        const auto all = bare(text);
        std::smatch found;
        EXPECT_FALSE(std::regex_search(all, found, foreign)) << path << ": " << found.str();
        EXPECT_TRUE(all.ends_with(" go ")) << path;
        for (std::size_t begin = 0, end = 0; (end = all.find(" go ", begin)) != std::string::npos; begin = end + 4) {
            const auto batch = all.substr(begin, end - begin);
            EXPECT_TRUE(std::regex_search(batch, start, std::regex_constants::match_continuous))
                << path << ": " << batch;
            EXPECT_FALSE(std::regex_search(batch, second)) << path << ": " << batch;
            ++batches;
        }
    }
    EXPECT_GT(batches, 300);
}

TEST(Schema, NewHospitalsHaveTheNamedFeesFree) {
    test::MemoryDatabases memory;
    for (const std::string fee : {"INJECTION_FEE", "PHARM_FEE"})
        EXPECT_EQ(memory.count("select cost from qryhdrugPrice where cost = 0 and drgname='"_sql + fee + "'"), 1U)
            << fee;
}

TEST(Schema, NumbersHaveTheirFormsAndRise) {
    test::MemoryDatabases memory;
    const auto next = [&](const char* series) { return test::nextNumber(memory.hospital(), series); };
    EXPECT_EQ(next("PATIENT2"), "000000001/001");
    EXPECT_EQ(next("patient2"), "000000002/001");
    EXPECT_EQ(next("ConsultID2"), "001000000001");
    memory.hospital().execute("update idgen set id=122 where destNAme='PATIENT2'"_sql);
    memory.hospital().execute("update idgen set id=999999998 where destNAme='ConsultID2'"_sql);
    EXPECT_EQ(next("PATIENT2"), "000000123/001");
    EXPECT_EQ(next("ConsultID2"), "001999999999");
    EXPECT_EQ(next("NOBODY"), "");
}

}  // namespace
