#include "hospital/schema.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>
#include <thread>

#include "db/command.h"
#include "db/error.h"
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

class SchemaFiles : public testing::Test {
protected:
    SchemaFiles() {
        auto pattern = (fs::temp_directory_path() / "vorel-schema-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory");
        directory = pattern;
    }
    ~SchemaFiles() override {
        std::error_code ignored;
        fs::remove_all(directory, ignored);
    }
    [[nodiscard]] fs::path file(const std::string& name = "Hospital.db") const { return directory / name; }
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(file(name), std::ios::binary) << content;
    }
    /// Runs a statement of the engine's own on the hospital's file, past the program.
    void meddle(const std::string& statement) const {
        sqlite3* line = nullptr;
        ASSERT_EQ(sqlite3_open(file().c_str(), &line), SQLITE_OK);
        db::ServerClock clock;
        db::sqlite::registerFunctions(line, clock);
        EXPECT_EQ(sqlite3_exec(line, statement.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(line);
        sqlite3_close(line);
    }
    [[nodiscard]] std::vector<std::string> check() const {
        db::DataSources sources(db::DataSources::embedded(directory));
        db::Databases databases(sources);
        return hospital::checkDatabases(databases);
    }
    [[nodiscard]] std::string refusal(const fs::path& where) const {
        try {
            hospital::createDatabases(where);
            return {};
        } catch (const db::Error& error) {
            return error.what();
        }
    }
    fs::path directory;
};

using Lines = std::vector<std::string>;

/// What a database holds and how its tables are built, sorted; or all its rows, table by table.
Lines readFile(const fs::path& file, const std::string& query) {
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
    EXPECT_EQ(sqlite3_exec(line, query.c_str(), add, &lines, nullptr), SQLITE_OK) << sqlite3_errmsg(line);
    sqlite3_close(line);
    return lines;
}
Lines structure(const fs::path& file) {
    return readFile(file,
                    "select type, name, '' from sqlite_master where name not like 'sqlite_auto%'"
                    " union all select m.name, c.name, c.type || c.\"notnull\" || coalesce(c.dflt_value, '')"
                    " from sqlite_master m, pragma_table_xinfo(m.name) c where m.type = 'table' order by 1, 2");
}
Lines rowsOf(const fs::path& file, const Lines& tables) {
    Lines rows;
    for (const auto& table : tables)
        for (auto& row : readFile(file, "select * from \"" + table + "\"")) rows.push_back(table + ": " + row);
    return rows;
}

/// Puts the databases of an older version, with rows of a hospital at work, into a directory.
void loadSnapshot(const fs::path& directory, const std::string& version) {
    const auto snapshots = test::sourceDirectory() / "tests/hospital/snapshots" / version;
    for (const auto& name : db::DataSources::names()) {
        std::ifstream dump(snapshots / (name + ".sql"));
        const std::string text{std::istreambuf_iterator<char>(dump), {}};
        ASSERT_FALSE(text.empty()) << name;
        db::createSqliteFile(directory / (name + ".db"));
        readFile(directory / (name + ".db"), text);
    }
}

TEST_F(SchemaFiles, CreatesWhatIsMissingAndKeepsWhatIsThere) {
    hospital::createDatabases(directory);
    EXPECT_EQ(check(), Lines{});
    meddle("update hHospital set hname = 'Kept'");
    fs::remove(file("SmsCenter.db"));
    hospital::createDatabases(directory);
    EXPECT_EQ(check(), Lines{});
    db::DataSources sources(db::DataSources::embedded(directory));
    db::Databases databases(sources);
    EXPECT_EQ(databases.named("Hospital").read("select hname from hHospital"_sql)["hname"].text(), "Kept");
}

TEST_F(SchemaFiles, NoDirectoryNoDatabaseNoOtherVersion) {
    EXPECT_NE(refusal(directory / "nowhere").find("no such directory"), std::string::npos);
    EXPECT_NE(refusal("/proc/self").find("/proc/self/"), std::string::npos);  // nothing can be written there
    write("SmsCenter.db", "This is a letter to a patient and no database. " + std::string(4096, '.'));
    EXPECT_NE(refusal(directory).find("SmsCenter.db"), std::string::npos);
    fs::remove(file("SmsCenter.db"));
    hospital::createDatabases(directory);
    meddle("insert into SchemaVersion (version) values (99)");
    EXPECT_NE(refusal(directory).find("version 99"), std::string::npos);
    EXPECT_EQ(check().size(), 1U);
}

TEST_F(SchemaFiles, AnInterruptedRunLeavesADatabaseWholeOrAbsent) {
    write("Hospital.db.new", "half of a file");
    write("Hospital.db.new-wal", "half of a log");
    for (const auto milliseconds : {5, 20, 40, 80, 150}) {
        const auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                hospital::createDatabases(directory);
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
    hospital::createDatabases(directory);
    EXPECT_EQ(check(), Lines{});
    for (const auto& entry : fs::directory_iterator(directory))
        EXPECT_EQ(entry.path().string().find(".new"), std::string::npos) << entry.path();
}

TEST_F(SchemaFiles, AnOlderVersionComesForwardWithAllItsRows) {
    loadSnapshot(directory, "version1");
    const Lines tables = {"hPatients",   "hRecords",  "hAdmission", "hPreConsult", "hAntenatalReg",
                          "AppDefaults", "Users",     "employees",  "idgen",       "hRetainership",
                          "UserRoles",   "hComments", "Billing",    "hConsulting"};
    const auto before = rowsOf(file(), tables);
    ASSERT_GT(before.size(), 200U);
    EXPECT_GT(check().size(), 20U) << "the older databases lack much";

    Lines steps;
    hospital::createDatabases(directory, [&](const std::string& step) { steps.push_back(step); });
    EXPECT_EQ(steps.size(), 4U);
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(rowsOf(file(), tables), before);
    fs::create_directories(directory / "new");
    hospital::createDatabases(directory / "new");
    for (const auto& name : db::DataSources::names())
        EXPECT_EQ(structure(file(name + ".db")), structure(directory / "new" / (name + ".db"))) << name;
    EXPECT_EQ(rowsOf(file(), {"hClinicWeeks"}), rowsOf(directory / "new" / "Hospital.db", {"hClinicWeeks"}))
        << "a new table has its first rows";
    steps.clear();
    hospital::createDatabases(directory, [&](const std::string& step) { steps.push_back(step); });
    EXPECT_TRUE(steps.empty()) << "it is done once";
}

/// Version 2 had no search inside names and too little room for a blood group.
TEST_F(SchemaFiles, Version2GetsItsSearchAndItsRoom) {
    hospital::createDatabases(directory);
    const auto whole = structure(file());
    {
        db::DataSources sources(db::DataSources::embedded(directory));
        db::Databases databases(sources);
        for (const auto& name : db::DataSources::names())
            databases.named(name).execute("update SchemaVersion set version = 2"_sql);
        auto& hospital = databases.named("Hospital");
        hospital.execute("drop fulltext index on vwhpatients"_sql);
        hospital.execute("alter table hPatients alter column bloodGroup varchar(10) null"_sql);
        hospital.execute("alter table hpatientsArchive alter column bloodGroup varchar(10) null"_sql);
        hospital.execute("insert into hPatients (PNo, psurname, pfirstName) values ('1', 'ADEWALE', 'BOLA')"_sql);
    }
    EXPECT_NE(structure(file()), whole);
    hospital::createDatabases(directory);
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(structure(file()), whole);
    db::DataSources sources(db::DataSources::embedded(directory));
    db::Databases databases(sources);
    auto& hospital = databases.named("Hospital");
    const auto wanted = std::string("%DEW%");
    EXPECT_EQ(hospital.read("select pno from vwhpatients where fullname like '"_sql + wanted + "'").rowCount(), 1U);
    hospital.execute("update hPatients set bloodGroup = 'AB-NEGATIVE'"_sql);
    hospital.execute("insert into hpatientsArchive select * from hpatients where pno = '1'"_sql);
}

TEST_F(SchemaFiles, ABrokenStepForwardLeavesTheOlderVersion) {
    loadSnapshot(directory, "version1");
    const auto before = structure(file());
    for (int failing = 1;; failing += 37) {
        int writes = 0;
        {
            db::DataSources sources(db::DataSources::embedded(directory));
            db::Databases databases(sources);
            databases.setRecorder([&](const db::Statement& statement) {
                if (statement.writes() && ++writes == failing)
                    throw db::Error(db::Category::injected, "Injected failure");
            });
            try {
                hospital::bringForward(databases.named("Hospital"));
            } catch (const db::Error& error) {
                ASSERT_EQ(error.category(), db::Category::injected) << failing << ": " << error.what();
            }
        }
        if (writes < failing) break;
        ASSERT_EQ(structure(file()), before) << failing;
    }
    hospital::createDatabases(directory);
    EXPECT_EQ(check(), Lines{});
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
        hospital::createDatabases(directory);
        meddle(statement);
        const auto wrong = check();
        ASSERT_EQ(wrong.size(), expected.size()) << statement;
        for (std::size_t i = 0; i < wrong.size(); ++i) EXPECT_TRUE(wrong[i].starts_with(expected[i])) << wrong[i];
        fs::remove(file());
    }
}

TEST_F(SchemaFiles, WhatHoldsNoRowsComesBackAndALostTableDoesNot) {
    db::DataSources sources(db::DataSources::embedded(directory));
    const auto drop = [&](const std::string& database, const std::string& what) {
        db::Databases databases(sources);
        databases.named(database).execute(hospital::scriptSql("drop " + what));
    };
    hospital::createDatabases(directory);
    const auto whole = structure(file());
    meddle("update hHospital set hname = 'Kept'");
    drop("Hospital", "view qryhBabyDischarge");
    drop("Hospital", "view qryhConsultedPatientsArchiveUnion");
    drop("Hospital", "index IX_hRecords_PNo on hRecords");
    drop("Hospital", "procedure getIDNo");
    drop("Hospital", "fulltext index on vwhpatients");
    drop("SmsCenter", "view vwFullnamePatAppt");
    EXPECT_EQ(check().size(), 6U);
    Lines steps;
    hospital::createDatabases(directory, [&](const std::string& step) { steps.push_back(step); });
    EXPECT_EQ(std::set<std::string>(steps.begin(), steps.end()),
              (std::set<std::string>{"Creating the missing view qryhBabyDischarge of Hospital",
                                     "Creating the missing view qryhConsultedPatientsArchiveUnion of Hospital",
                                     "Creating the missing index IX_hRecords_PNo of Hospital",
                                     "Creating the missing procedure getIDNo of Hospital",
                                     "Creating the missing fulltext index on vwhpatients of Hospital",
                                     "Creating the missing view vwFullnamePatAppt of SmsCenter"}));
    EXPECT_EQ(check(), Lines{});
    EXPECT_EQ(structure(file()), whole);
    EXPECT_EQ(rowsOf(file(), {"hHospital"}).front(), "hHospital: 001|Kept|14 Marina Road, Lagos|08030001000");

    drop("Hospital", "view vwhComments");
    drop("Hospital", "table hComments");
    const auto before = structure(file());
    EXPECT_NE(refusal(directory).find("the table hComments is missing, and its rows with it"), std::string::npos);
    EXPECT_EQ(structure(file()), before);
}

TEST_F(SchemaFiles, AnInterruptedReturnOfWhatIsMissingLeavesTheDatabaseAsItWas) {
    hospital::createDatabases(directory);
    meddle("drop view qryhBabyDischarge; drop index IX_hRecords_PNo");
    const auto before = structure(file());
    {
        db::DataSources sources(db::DataSources::embedded(directory));
        db::Databases databases(sources);
        databases.setRecorder([writes = 0](const db::Statement& statement) mutable {
            if (statement.writes() && ++writes == 2) throw db::Error(db::Category::injected, "Injected failure");
        });
        EXPECT_THROW(hospital::bringForward(databases.named("Hospital")), db::Error);
    }
    EXPECT_EQ(structure(file()), before);
}

TEST_F(SchemaFiles, CheckSeesADamagedFileAndAMissingOne) {
    hospital::createDatabases(directory);
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
    const std::regex start("create (table|index|view|procedure) |insert into |update |alter table |drop index ");
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
        EXPECT_EQ(memory.value("select cost from qryhdrugPrice where drgname='"_sql + fee + "'").number(), 0) << fee;
}

TEST(Schema, NumbersHaveTheirFormsAndRise) {
    test::MemoryDatabases memory;
    const auto next = [&](const char* name) {
        db::Command command(memory.hospital(), "getIDNo");
        command.append("DestName", db::Command::Type::varText, 50, name);
        const auto rows = command.execute();
        return rows.empty() ? "" : rows["getIDNo"].text();
    };
    EXPECT_EQ(next("PATIENT2"), "000000001/001");
    EXPECT_EQ(next("patient2"), "000000002/001");
    EXPECT_EQ(next("ConsultID2"), "001000000001");
    memory.hospital().execute("update idgen set id=122 where destNAme='PATIENT2'"_sql);
    memory.hospital().execute("update idgen set id=999999998 where destNAme='ConsultID2'"_sql);
    EXPECT_EQ(next("PATIENT2"), "000000123/001");
    EXPECT_EQ(next("ConsultID2"), "001999999999");
    EXPECT_EQ(next("NOBODY"), "");
}

TEST(Schema, TheAuditProcedureKeepsWhatItIsGiven) {
    test::MemoryDatabases memory;
    db::Command command(memory.hospital(), "SpAudiTrail");
    const auto text = db::Command::Type::varText;
    const auto moment = db::Command::Type::dateTime;
    command.append("@userName", text, 50, "ada").append("@userAction", text, 1000, "It's done");
    command.append("@ActionDate", moment, 10, "24-Nov-2026").append("@ActionTime", moment, 10, "09:30");
    command.append("@TranCode", text, 50, "001000000001").append("@Remarks", text, 1000, db::Null{});
    command.append("@Src", text, 100, "WARD-3: from NURSING").execute();
    const auto row = memory.hospital().read("select * from hAuditTrail"_sql);
    ASSERT_EQ(row.rowCount(), 1U);
    EXPECT_EQ(row["userAction"].text(), "It's done");
    EXPECT_EQ(row["ActionDate"].moment(), db::DateTime::of(2026, 11, 24));
    EXPECT_EQ(row["ActionTime"].text(), "09:30:00");
    EXPECT_TRUE(row["Remarks"].isNull());
}

/// Each statement reads or changes few rows of large tables: no step of its plan may walk through one of them.
TEST(Schema, KeyedStatementsUseAnIndex) {
    test::MemoryDatabases memory;
    const std::string text = "000000001/001";
    const auto date = db::DateTime::of(2026, 11, 24);
    const db::Sql statements[] = {
        "select pno from qryhVisitsForToday where pno='"_sql + text + "'",
        "select recDate as Date,hTime as Time,pSurname as Surname,pfirstName as FirstName,Age,ClinicType from "
        "qryhPatListForNurse where recDate ='"_sql +
            date + "' and attendedTo=0",
        "select Age,OldPNo,Sex from qryhPatListForNurse where consultID='"_sql + text + "'",
        "select Date,Time,Patient,Sex,Age,Coyname,Doctor,RoomNo from vwAdmissionWaitList where date ='"_sql + date +
            "'",
        "select SNo, Date, Time, Fullname, Remarks as Drug, AttendedTo, ConsultID FROM  vwhNotify where NotifyDept='"_sql +
            text + "' and Date='" + date + "' order by SNo Desc",
        "select SNo, Date, Time, Fullname, Comment, Dept, AttendedTo, ConsultID FROM  vwhComments where dept='"_sql +
            text + "' and Date='" + date + "' order by SNo Desc",
        "select ClientCat,ExtendAdmissionLimitTo from qryhAdmission  where ClientCat in ('PHIS','NHIS','HMO') and  "
        "getDate()>= IsNull(ExtendAdmissionLimitTo,getDate())"_sql,
        "select * from qryhAdmission order by fullname"_sql,
        "select * from qryhAdmission where consultID='"_sql + text + "'",
        "select * from qryhAdmission where PNo='"_sql + text + "'",
        "select * from qryhvitalsigns where predate = '"_sql + date + "'",
        "select * from qryhVitalSigns where consultID = '"_sql + text + "' order by predate desc,pretime desc",
        "select * from qryhNewBabies where bdate = '"_sql + date + "'",
        "select * from qryhAdmissionForToday where admdate = '"_sql + date + "'",
        "select * from qryhDischargedX where dischdate = '"_sql + date + "'",
        "select * from qryhEDD"_sql,
        "select * from qryhBabyDischarge"_sql,
        "SELECT EmpID, Fullname,username,loginrole,hname FROM vwUsers WHERE Username = '"_sql + text +
            "'  and loginrole='" + text + "'",
        "select * from UserActivities where SNO="_sql + 7,
        "select top 1  ANCInfo  from hPatients where PNo='"_sql + text + "'",
        "select top 1 ClientID, (ISNULL(AmountBilled , 0) + ISNULL(dbo.Billing.DebtBF, 0)) - (ISNULL(Discount, 0) + "
        "ISNULL(AmountPaid, 0)) as Balance from Billing where PNo='"_sql +
            text + "' order by ID desc",
        "update hPatients set isRev = 1, DebtBF="_sql + 0 + ", Debt=" + 0 + " where pno = '" + text + "'",
        "update hAdmission set  ExtendAdmissionLimitTo='"_sql + date + "' where ConsultID='" + text + "'",
        "Update hComments set AttendedTo='YES' where Dept='"_sql + text + "'",
    };
    for (const auto& statement : statements) {
        const auto steps = memory.plan(statement);
        EXPECT_FALSE(steps.empty()) << statement.text();
        for (const auto& step : steps) {
            const bool small = step.ends_with("SCAN h");  // the one row of hHospital
            EXPECT_TRUE(small || step.find("SCAN") == std::string::npos) << statement.text() << "\n" << step;
        }
    }
    // The newest row by its key: a walk that stops at once.
    for (const auto& statement :
         {"select top 1 SNO from UserActivities order by SNO desc"_sql,
          "select top 1 PNO from hPatients  order by PNO  desc"_sql,
          "select top 1 ConsultID from hRecords where substring(consultID,1,3) = '001' order by "
          "recID  desc"_sql})
        for (const auto& step : memory.plan(statement))
            EXPECT_EQ(step.find("TEMP B-TREE"), std::string::npos) << statement.text() << "\n" << step;
}

}  // namespace
