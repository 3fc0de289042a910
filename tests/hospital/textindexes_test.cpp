#include <gtest/gtest.h>

#include "tests/hospital/hospital.h"

namespace {

using namespace db::literals;

class TextIndexes : public testing::Test {
protected:
    /// A text as it stands between quotes.
    static std::string inQuotes(std::string text) {
        for (auto at = text.find('\''); at != std::string::npos; at = text.find('\'', at + 2)) text.insert(at, 1, '\'');
        return text;
    }
    void add(const std::string& pno, const std::string& surname, const std::string& others) {
        house.hospital().execute("insert into hPatients (PNo, psurname, pfirstName) values ('"_sql + pno + "', '" +
                                 inQuotes(surname) + "', '" + others + "')");
    }
    std::string found(const db::Sql& sql) {
        const auto rows = house.hospital().read(sql);
        std::string text;
        for (std::size_t row = 0; row < rows.rowCount(); ++row)
            text += (row > 0 ? "/" : "") + rows.value(row, 0).text();
        return text;
    }
    std::string search(const std::string& pattern) {
        return found("select pno from vwhpatients where fullname like '"_sql + inQuotes(pattern) +
                     "' order by fullname, pno");
    }
    std::string first(int count, const std::string& pattern) {
        return found("select top "_sql + count + " pno from vwhpatients where fullname like '" + inQuotes(pattern) +
                     "' order by fullname");
    }
    /// The same without the index, which serves a bare column alone.
    std::string scan(const std::string& pattern) {
        return found("select pno from vwhpatients where fullname + '' like '"_sql + inQuotes(pattern) +
                     "' order by fullname, pno");
    }
    bool usesIndex(const db::Sql& sql) {
        for (const auto& step : test::planOf(house.databases, "Hospital", sql))
            if (step.find("VIRTUAL TABLE") != std::string::npos) return true;
        return false;
    }
    test::MemoryDatabases house;
};

TEST_F(TextIndexes, FindWhatAScanFinds) {
    const std::pair<const char*, const char*> names[] = {{"ADEWALE", "BOLA"},
                                                         {"adebayo", "Ngozi Ade"},
                                                         {"O'NEIL", "ADE \"BIG\""},
                                                         {"ÖZGÜR", "ÉLODIE"},
                                                         {"ОКАФОР", "Анна"},
                                                         {"محمد", "علي حسن"},
                                                         {"😀😀😀", "SMILE"},
                                                         {"A%B_C[D]", "100%"},
                                                         {"BELLO", ""},
                                                         {"", ""},
                                                         {"ADE WALE", "bola"},
                                                         {"ADEWALE", "BOLA "}};
    int number = 0;
    for (const auto& [surname, others] : names) add(std::to_string(++number), surname, others);
    const char* patterns[] = {"%ade%",  "%ADE%",   "%ADE WALE%", "%le bo%", "%o'n%",  "%\"BIG\"%", "%özgür é%",
                              "%окаф%", "%د علي%", "%😀😀😀%",      "%llo %",  "%bola%", "%bola %",   "%ad%",
                              "%%",     "%a%b%",   "%[ao]de%",   "%_ola%",  "ade%",   "%ola",      "%xyz%",
                              "%c[[]d", "%c[[]d%", "%100[%]%",   "%B_C%",   "%d]%",   "%%%",       "%"};
    for (const auto* pattern : patterns) {
        EXPECT_EQ(search(pattern), scan(pattern)) << pattern;
        const auto all = scan(pattern);
        EXPECT_EQ(first(1, pattern), all.substr(0, all.find('/'))) << pattern;
    }
    EXPECT_EQ(search("%ade%"), "11/2/1/12/3");
    EXPECT_EQ(search("%ade%").find(first(2, "%ade%")), 0U);
}

TEST_F(TextIndexes, FollowEveryChangeOfTheTable) {
    auto& hospital = house.hospital();
    add("1", "ADEWALE", "BOLA");
    add("2", "OKAFOR", "UCHE");
    hospital.execute("update hPatients set psurname = 'ADEBAYO' where PNo = '2'"_sql);
    EXPECT_EQ(search("%ade%") + "," + search("%okafor%"), "2/1,");
    hospital.execute("update hPatients set PNo = '3' where PNo = '2'"_sql);
    EXPECT_EQ(search("%adeb%"), "3");
    hospital.execute("update hPatients set Area = 'YABA', DOB = '24-Nov-1990'"_sql);
    EXPECT_EQ(search("%ade%"), "3/1");
    hospital.execute("delete from hPatients where PNo = '1'"_sql);
    EXPECT_EQ(search("%ade%"), "3");
    hospital.execute("update hPatients set pPhoneNo = '+234 803 1234567'"_sql);
    EXPECT_EQ(found("select pno from vwhpatients where PhoneNo like '%803 12%' order by fullname"_sql), "3");
    EXPECT_EQ(found("select pno from vwhpatients where fullname like '%803 12%'"_sql), "")
        << "a column has its own texts";
    {
        db::Transaction transaction(hospital);
        add("4", "ADEOLA", "JIDE");
        EXPECT_EQ(search("%ade%"), "3/4") << "a transaction sees its own rows";
        hospital.execute("delete from hPatients where PNo = '3'"_sql);
    }
    EXPECT_EQ(search("%ade%"), "3") << "and they go with it";
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, DOB) values ('5', 'ADEKUNLE', 'SEYI', '3 May 2001')"_sql);
    EXPECT_EQ(search("%adek%"), "5") << "a row that is brought into its stored form stands in the index once";
    EXPECT_EQ(first(5, "%ade%"), "3/5");
}

TEST_F(TextIndexes, ServeTheSearchesThatTheyCan) {
    const std::string ade = "ADE";
    const std::pair<db::Sql, bool> served[] = {
        {"select top 20  * from vwhpatients where fullname like '%"_sql + ade + "%'  order by fullname", true},
        {"select pno from vwhpatients where Sex = 'MALE' and fullname like '%"_sql + ade + "%'", true},
        {"select pno from vwhpatients where fullname like '%"_sql + std::string("AD") + "%'", false},
        {"select pno from vwhpatients where fullname not like '%"_sql + ade + "%'", false},
        {"select pno from vwhpatients where Client like '%"_sql + ade + "%'", false},
        {"select  * from vwhpatients where PhoneNo like '%"_sql + std::string("0803123") + "%' order by fullname",
         true},
    };
    for (const auto& [sql, uses] : served) EXPECT_EQ(usesIndex(sql), uses) << sql.text();
}

TEST_F(TextIndexes, LeaveItToTheQueryWhichRowsComeFirst) {
    add("1", "ADEWALE", "BOLA");
    add("2", "ADEBAYO", "NGOZI");
    add("3", "ADEOLA", "JIDE");
    house.hospital().execute("update hPatients set sex = 'MALE' where PNo <> '2'"_sql);
    const std::string ade = "ADE";
    const std::pair<db::Sql, const char*> cases[] = {
        {"select top 1 pno from vwhpatients where Sex = 'MALE' and fullname like '%"_sql + ade + "%' order by fullname",
         "3"},
        {"select top 1 pno from vwhpatients where fullname like '%"_sql + ade + "%' order by fullname desc", "1"},
        {"select top 1 pno from vwhpatients where fullname like '%"_sql + ade + "%' order by pno", "1"},
        {"select top 1 count(*) from vwhpatients where fullname like '%"_sql + ade +
             "%' group by Sex order by count(*) desc",
         "2"},
        {"select top 2 pno from vwhpatients where fullname like '%"_sql + ade + "%' or pno = '1' order by fullname",
         "2/3"},
        {"select PNo from hPatients where PNo in (select pno from vwhpatients where fullname like '%"_sql + ade +
             "%') order by PNo",
         "1/2/3"},
    };
    for (const auto& [sql, rows] : cases) EXPECT_EQ(found(sql), rows) << sql.text();
}

TEST_F(TextIndexes, GoAndComeBack) {
    auto& hospital = house.hospital();
    add("1", "ADEWALE", "BOLA");
    hospital.execute("drop fulltext index on vwhpatients"_sql);
    add("2", "ADEBAYO", "NGOZI");
    const auto create = "create fulltext index on vwhpatients (FullName, PhoneNo) key index pno"_sql;
    hospital.execute(create);
    EXPECT_EQ(search("%ade%"), "2/1");
    EXPECT_THROW(hospital.execute(create), db::Error) << "there is one a view";
    EXPECT_THROW(hospital.execute("create fulltext index on vwhpatients (pno) key index FullName"_sql), db::Error);
    EXPECT_EQ(search("%ade%"), "2/1");
}

}  // namespace
