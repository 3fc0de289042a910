#include "db/dialect/dialect.h"

#include "db/sqlite/writer.h"
#include "tests/db/line.h"

namespace {

using test::failureOf;
using test::Line;

struct Case {
    const char* name;
    const char* statement;
    const char* rows;
    std::vector<db::Value> values = {};
};

/// A few patients and visits, in the words of the schema.
class Dialect : public testing::Test {
protected:
    Dialect() {
        line.script(R"(
            create table hPatients (PNo varchar(20) not null primary key, pSurname varchar(30), Debt money,
                DOB datetime, expired bit default 0, RoleID int, Details text, [qty/Unit] int, Date date);
            create index ix_name on dbo.hPatients (pSurname desc) include (DOB)
            GO
            create table hRecords (recID int identity(1,1) primary key, consultID varchar(12), PNo varchar(20),
                recDate date, hTime time, attendedTo bit not null default 0)
            GO
            insert hPatients (PNo, pSurname, Debt, DOB, RoleID, Details, [qty/Unit], Date)
                values ('001', 'Okoro', 10.5, '05-Jan-1980', 7, 'x', 3, '24-Nov-2026'),
                       ('002', 'bello ', 0, '1990-12-31', 8, null, null, '20261101'),
                       ('003', 'O''Hara', 2, null, 9, 'y', 1, '01/12/2026');
            insert into hRecords (consultID, PNo, recDate, hTime) values ('001000000001', '001', '23-Nov-2026', '9:05');
            insert hRecords(consultID, PNo, recDate, hTime) values ('001000000002', '002', '24-Nov-2026', '10:00 PM')
            GO
            create view vwNames as
            select h.PNo as pno, pSurname + ' (' + h.PNo + ')' as fullname, month(DOB) as mth, DOB, Date,
                isnull(RoleID, 0) as Role, case when expired = 0 then 'YES' else 'NO' end as live
            from dbo.hPatients h
        )");
    }
    void expect(const std::vector<Case>& cases) {
        for (const auto& test : cases) EXPECT_EQ(line.rows(test.statement, test.values), test.rows) << test.name;
    }
    Line line;
};

TEST_F(Dialect, Queries) {
    expect({
        {"top", "select top 1 PNo from hPatients order by PNo desc", "003"},
        {"top in brackets behind distinct", "select distinct TOP (2) PNo from hPatients order by PNo", "001/002"},
        {"top of a value", "select  top ?1  PNo from hPatients where RoleID >= ?2 order by PNo", "002", {"1", "8"}},
        {"top in a sub-select",
         "select PNo from hPatients where PNo in (select top 1 PNo from hRecords order by recID desc)", "002"},
        {"top of an arm", "select top 1 PNo from hPatients union all select top 100 percent PNo from hRecords",
         "001/001/002"},
        {"all by percent", "select top 100 percent count(*) n from hPatients with (nolock)", "3"},
        {"order by what is not selected", "select top 1 PNo from hPatients order by RoleID desc", "003"},
        {"distinct by the source's name",
         "select distinct PNo as Nr, RoleID as R from hPatients order by pno desc, RoleID", "003|9/002|8/001|7"},
        {"names",
         "select [PNo] as[Old FileNo], hpatients.[qty/Unit], dbo.hPatients.Debt from HPATIENTS where pno = '001'",
         "001|3|10.5"},
        {"own database", "select count(recID) n from Hospital.dbo.hPatients, hospital..hRecords", "6"},
        {"keyword as a column", "select Date from hPatients where Date = '1-Dec-2026' order by Date desc",
         "01-Dec-2026"},
        {"doubled quote", "select PNo from hPatients where pSurname in ('BELLO','O''HARA')  order by PNo ", "002/003"},
        {"no blank behind a literal", "select PNo from hPatients where pSurname ='OKORO'and RoleID =7", "001"},
        {"empty by a false rule", "select * from hRecords where 1=    2", ""},
        {"alias in front", "select n = 1 + 1, 'RM XXX' as RoomNo, N'x' 'c'", "2|RM XXX|x"},
        {"joins",
         "select r.recID, p.pSurname from hRecords r (nolock) left outer join hPatients p on p.PNo = r.PNo"
         " inner join hPatients q on q.PNo = p.PNo where exists (select 1 x from hPatients) order by 1 desc",
         "2|bello /1|Okoro"},
        {"groups", "select attendedTo, count(*) n from hRecords group by attendedTo having count(*) > 1", "False|2"},
        {"row numbers",
         "select row_number() over (partition by attendedTo order by recID desc) n, recID from hRecords"
         " order by n",
         "1|2/2|1"},
        {"comments", "select /* all of\n them */ 1 x -- one", "1"},
    });
}

TEST_F(Dialect, Expressions) {
    expect({
        {"joined texts", "select pSurname + ', ' + PNo x from hPatients where PNo='001'", "Okoro, 001"},
        {"two text columns", "select PNo + Details x, RoleID + RoleID y from hPatients where PNo='001'", "001x|14"},
        {"a null in a chain", "select PNo + ' ' + Details x from hPatients where PNo='002'", "null"},
        {"isnull", "select ISNULL(Details,'NONE') as Details, isNull(RoleID, 0) + 1 x from hPatients where PNo='002'",
         "NONE|9"},
        {"balance",
         "select (ISNULL(Debt , 0) + ISNULL(dbo.hPatients.Debt, 0)) - (ISNULL(null, 0)) as Balance"
         " from hPatients where PNo='001'",
         "21"},
        {"isnull is text without case", "select PNo from hPatients where isnull(pSurname,'') = 'OKORO'", "001"},
        {"isnull as a number beside a text", "select PNo from hPatients where isnull(RoleID,0) = '7'", "001"},
        {"case",
         "select case RoleID when 7 then 'seven' when 8 then null else 'many' end x from hPatients order by PNo",
         "seven/null/many"},
        {"substring",
         "select substring(consultID,1,3) a, substring('abc',0,2) b, substring('abc',2,9) c from hRecords"
         " where recID = 1",
         "001|a|bc"},
        {"texts",
         "select len('ab  ') a, left('\xC3\xA9tc',2) b, right('abc',5) c, charindex('B','abc') d,"
         " upper('\xC3\xA9x') e, replace('aBc','b','--') f, ltrim('  x') g, str(12.6,5,1) h, replicate('ab',2) i",
         "2|\xC3\xA9t|abc|2|\xC3\x89X|a--c|x| 12.6|abab"},
        {"numbers", "select round(2.345,2) a, abs(-3) b, 7 / 2 c, -7 % 4 d, - - 1 e", "2.35|3|3|-3|1"},
        {"conversions",
         "select cast('12' as int) a, convert(int, 3.9) b, cast(5 as varchar(10)) + 'x' c, convert(varchar(3),"
         " 'abcdef') d, cast('1.23456' as money) e, cast('true' as bit) f",
         "12|3|5x|abc|1.2346|1"},
        {"dates by style",
         "select convert(varchar, getdate(), 106) a, convert(varchar(10),getdate(),103) b,"
         " convert(varchar(5), getdate(), 108) c, convert(datetime, '24-Nov-2026 9:30') d",
         "24 Nov 2026|24/11/2026|09:30|24-Nov-2026 09:30:00"},
        {"parts of dates",
         "select year(getdate()) a, datepart(dw, getdate()) b, datename(month, getdate()) c,"
         " datediff(day, '20-Nov-2026', getdate()) d, datediff(month, '30-Nov-2026', '01-Dec-2026') e,"
         " dateadd(dd, 7, '24-Nov-2026') f, datediff(hh, '09:59', '10:01') g",
         "2026|3|November|4|1|01-Dec-2026|1"},
        {"comparison of texts alone", "select 1 x where 'ABC ' = 'abc' and not 'a' <> 'A' and 'x' in ('X')", "1"},
    });
}

TEST_F(Dialect, Comparisons) {
    const char* byDate = "select recID from hRecords where recDate = ?1";
    std::vector<Case> cases = {
        {"no case, no trailing blanks", "select PNo from hPatients where pSurname = ?1", "002", {"BELLO   "}},
        {"a number as a text", "select PNo from hPatients where RoleID = ?1", "002", {"8"}},
        {"a flag as a text", "select recID from hRecords where attendedTo='0' and recID=1", "1"},
        {"between",
         "select recID from hRecords where recDate between ?1 AND ?2 order by recID",
         "1/2",
         {"23-Nov-2026", "24-Nov-2026"}},
        {"earlier", "select recID from hRecords where recDate < '24-Nov-2026'", "1"},
        {"a time", "select recID from hRecords where hTime > '09:30'", "2"},
        {"the server's clock",
         "select recID from hRecords where getDate()>= IsNull(recDate,getDate()) and hTime is not null", "1/2"},
        {"like", "select PNo from hPatients where pSurname like ?1", "001/003", {"%O%[kh]%"}},
        {"like, not in", "select PNo from hPatients where pSurname like '[^a-k]_%' and PNo not in ('003')", "001"},
        {"view: joined text", "select pno from vwNames where fullname = 'okoro (001)'", "001"},
        {"view: order without case", "select pno from vwNames order by fullname", "002/003/001"},
        {"view: number as a text", "select pno from vwNames where mth = ?1", "002", {"12"}},
        {"view: date", "select pno, DOB from vwNames where DOB = '31-Dec-1990'", "002|31-Dec-1990"},
    };
    for (const char* form : {"24-Nov-2026", "24-nov-26", "2026-11-24", "20261124", "24/11/2026", "24 Nov 2026",
                             "Nov 24 2026", "2026-11-24 00:00:00", "24-Nov-2026 00:00"})
        cases.push_back({form, byDate, "2", {form}});
    expect(cases);
}

TEST_F(Dialect, Changes) {
    line.run("update hPatients set RoleID = RoleID ?1, Details .write(?2,0,null), Debt=Debt*?3 where PNo='001'",
             {-2, "new", 2});
    line.run("Update hPatients set expired =1, pSurname='X' + ?1 where PNO = '003'", {"yz"});
    line.run("Delete hRecords where recDate < '24-Nov-2026'");
    line.run(
        "create table hPatientsArchive (PNo varchar(20), a varchar(30), b money, c datetime, d bit, e int, f text,"
        " g int, h date)");
    EXPECT_EQ(line.run("insert into hPatientsArchive select * from hPatients where RoleID > 5").affected, 2);
    EXPECT_EQ(line.run("insert hRecords (PNo) values ('9')").identity, 3);
    expect({
        {"update", "select PNo, RoleID, Details, Debt, expired, pSurname from hPatients order by PNo",
         "001|5|new|21|False|Okoro/002|8|null|0|False|bello /003|9|y|2|True|Xyz"},
        {"delete", "select recID from hRecords", "2/3"},
        {"insert of a query", "select PNo, c from hPatientsArchive order by PNo", "002|31-Dec-1990/003|null"},
        {"output",
         "update hPatients set RoleID = RoleID + 1 output inserted.PNo + '/' + 'x' as Nr, inserted.RoleID"
         " where PNo = ?1",
         "001/x|6",
         {"001"}},
    });
}

TEST_F(Dialect, BinaryConstants) {
    line.script(
        "create table Pictures (PNo varchar(9), Photo image default 0xF, Seal varbinary(9));"
        "insert Pictures (PNo, Seal) values ('001', 0xFFd8), ('002', 0x);"
        "update Pictures set Photo = 0x27003B2D where Seal = 0XFFD8");
    const auto bytes = [](std::initializer_list<int> values) {
        db::Bytes result;
        for (const int value : values) result.push_back(static_cast<std::byte>(value));
        return result;
    };
    const auto rows = line.read("select Photo, isnull(Seal, 0x00) as Seal, 0xABC from Pictures order by PNo");
    const std::vector<db::Bytes> expected[] = {{bytes({0x27, 0, 0x3B, 0x2D}), bytes({0xFF, 0xD8}), bytes({0xA, 0xBC})},
                                               {bytes({0xF}), {}, bytes({0xA, 0xBC})}};
    ASSERT_EQ(rows.rowCount(), 2U);
    for (std::size_t row = 0; row < 2; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            EXPECT_EQ(rows.value(row, column).bytes(), expected[row][column]) << row << ", " << column;
}

/// Keeps at their places in T-SQL what the embedded engine leaves out or moves to the statement's end.
class ServerWriter : public db::sqlite::SqliteWriter {
    [[nodiscard]] std::string top(std::string_view count) const override { return "top (" + std::string(count) + ") "; }
    [[nodiscard]] std::string limit(std::string_view) const override { return {}; }
    [[nodiscard]] std::string arm(const std::string& query) const override { return "(" + query + ")"; }
    [[nodiscard]] std::string hints(const std::vector<std::string>& words) const override {
        return " with (" + words.at(0) + ")";
    }
    [[nodiscard]] std::string outputPrefix(std::string_view row) const override { return std::string(row) + "."; }
    [[nodiscard]] std::string output(const std::string& items) const override { return " output " + items; }
    [[nodiscard]] std::string returning(const std::string&) const override { return {}; }
};

TEST(Writer, MayKeepThePlacesOfTsql) {
    const std::pair<const char*, const char*> cases[] = {
        {"select distinct top 5 a from t (nolock) x where b = 1 order by a",
         R"(select distinct top (5) "a" from "t" with (nolock) as "x" where "b" = 1 order by "a")"},
        {"select top 1 a from t union all (select top ?1 b from u)",
         R"(select top (1) "a" from "t" union all (select top (?1) "b" from "u"))"},
        {"insert t (a) output inserted.*, inserted.a values (1)",
         R"(insert into "t" ("a") output inserted.*, inserted."a" values (1))"},
        {"update t with (rowlock) set a = 1 output inserted.a where b = 2",
         R"(update "t" with (rowlock) set "a" = 1 output inserted."a" where "b" = 2)"},
        {"delete t output deleted.a where b = 1", R"(delete from "t" output deleted."a" where "b" = 1)"},
    };
    for (const auto& [statement, text] : cases)
        EXPECT_EQ(db::dialect::translate(statement, "Hospital", ServerWriter()).text, text);
}

TEST_F(Dialect, RefusesWhatIsNoStatement) {
    const std::pair<const char*, std::vector<const char*>> wrong[] = {
        {"nothing", {"", "   "}},
        {"not finished",
         {"select", "select 1 from", "select * from hPatients where", "update hPatients", "insert hPatients",
          "delete from", "create table t ()", "Update hAdmission set x=1 where c in (select c from hPatients"}},
        {"left open", {"select 'open", "select [open", "select /* open"}},
        {"not known",
         {"selec 1", "truncate table x", "select nosuch(1)", "create table t (a nosuchtype)",
          "select top 5 percent * from hPatients"}},
        {"out of place",
         {"select 1; select 2", "select * from a.b", "select ?x", "select 1 \\ 2", "select datepart('year', 1)",
          "select left('a')", "select 0xFG", "select 0x1.5"}},
    };
    for (const auto& [why, statements] : wrong)
        for (const auto* text : statements)
            EXPECT_EQ(failureOf([&] { db::sqlite::translate(text, "Hospital"); }).first, db::Category::syntax)
                << why << ": " << text;
    for (const char* text : {"create fulltext index on hPatients", "create fulltext index on v (a,) key index c",
                             "create ordered index on v (a) key index a", "drop ordered index on v (a)",
                             "drop fulltext index on v (a)", "drop fulltext index on Archive.dbo.v"})
        EXPECT_EQ(failureOf([&] { line.run(text); }).first, db::Category::syntax) << text;
    const std::string deep = "select " + std::string(100'000, '(') + "1";
    EXPECT_THROW(db::sqlite::translate(deep, "Hospital"), db::Error);
    EXPECT_THROW(db::sqlite::translate(std::string("select 1\0, 2", 12), "Hospital"), db::Error);
}

TEST(Script, Splits) {
    const auto texts = db::dialect::splitScript(
        "-- first\nselect 1; select ';' go_on;;\nGO\ncreate proc p as begin select 1; select 2 end\n  go  \nselect\n "
        "go\n"
        "select 'GO\nGO\n'");
    EXPECT_EQ(texts,
              (std::vector<std::string>{"select 1", "select ';' go_on", "create proc p as begin select 1; select 2 end",
                                        "select", "select 'GO\nGO\n'"}));
}

TEST(Script, ReadsProcedures) {
    const auto read = db::dialect::parseProcedure(
        "CREATE PROCEDURE dbo.SpX @a varchar(50), @When datetime = null as begin set nocount on\n"
        "insert into t (x) select @a union select 'b'\nupdate t set x=@a where y=(select 1)\ndelete t;select x from t "
        "end;");
    EXPECT_EQ(read.name, "SpX");
    EXPECT_EQ(read.parameters.size(), 1U + 1U);
    EXPECT_EQ(read.statements,
              (std::vector<std::string>{"insert into t (x) select @a union select 'b'",
                                        "update t set x=@a where y=(select 1)", "delete t", "select x from t"}));
    for (const char* text :
         {"create procedure", "create procedure p", "create procedure p as begin", "create table t (a int)",
          "create procedure p @a varchar(5 as select 1", "create procedure p @a int, as select 1"})
        EXPECT_THROW(db::dialect::parseProcedure(text), db::Error) << text;
}

}  // namespace
