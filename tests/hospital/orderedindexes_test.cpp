#include <gtest/gtest.h>

#include "hospital/schema.h"
#include "tests/hospital/hospital.h"

namespace {

using namespace db::literals;

std::string all(const db::Recordset& rows) {
    std::string text;
    for (std::size_t row = 0; row < rows.rowCount(); ++row)
        text += rows.value(row, 0).text() + " [" + rows.value(row, 1).text() + "]/";
    return text;
}

class OrderedIndexes : public testing::Test {
protected:
    db::Connection& hospital() { return house.hospital(); }
    void add(const std::string& pno, const std::string& surname, const std::string& others) {
        hospital().execute("insert into hPatients (PNo, psurname, pfirstName) values ('"_sql + pno + "', '" + surname +
                           "', '" + others + "')");
    }
    void consult(const std::string& pno) {
        hospital().execute("insert into hConsulting (PNo, consultID) values ('"_sql + pno + "', 'C" + pno + "')");
    }
    /// The list, which has to be that of the tables behind the view, and to cost neither sorting nor looking up.
    std::string list() {
        const auto kept = all(hospital().read(ordered));
        EXPECT_EQ(kept, all(hospital().read("select distinct p.psurname + ' ' + p.pfirstName as fullname, p.PNo from "
                                            "hPatients p where p.PNo in (select PNo from hConsulting) "
                                            "order by fullname, PNo"_sql)));
        return kept;
    }
    const db::Sql ordered = "SELECT distinct fullname,pNo FROM QRYHCONSULTEDPATIENTS  order by fullname"_sql;
    test::MemoryDatabases house;
};

TEST_F(OrderedIndexes, FollowEveryChangeBehindTheView) {
    EXPECT_EQ(list(), "");
    add("1", "OKAFOR", "UCHE");
    add("2", "adewale", "BOLA");
    add("3", "BELLO ", "MUSA");
    EXPECT_EQ(list(), "");
    for (const auto* pno : {"1", "2", "1", "9"}) consult(pno);
    EXPECT_EQ(list(), "adewale BOLA [2]/OKAFOR UCHE [1]/");
    hospital().execute("update hPatients set psurname = 'ABE' where PNo = '1'"_sql);
    EXPECT_EQ(list(), "ABE UCHE [1]/adewale BOLA [2]/");
    add("9", "ZUBAIRU", "ÖZGÜR");
    EXPECT_EQ(list(), "ABE UCHE [1]/adewale BOLA [2]/ZUBAIRU ÖZGÜR [9]/");
    hospital().execute("update hConsulting set PNo = '3' where PNo = '2'"_sql);
    EXPECT_EQ(list(), "ABE UCHE [1]/BELLO  MUSA [3]/ZUBAIRU ÖZGÜR [9]/");
    hospital().execute("update hPatients set PNo = '8' where PNo = '9'"_sql);
    hospital().execute("delete from hConsulting where ID = 1"_sql);
    EXPECT_EQ(list(), "ABE UCHE [1]/BELLO  MUSA [3]/");
    hospital().execute("delete from hPatients"_sql);
    EXPECT_EQ(list(), "");
}

TEST_F(OrderedIndexes, GoWithWhatIsRolledBack) {
    add("1", "OKAFOR", "UCHE");
    consult("1");
    {
        db::Transaction transaction(hospital());
        hospital().execute("update hPatients set psurname = 'ABE'"_sql);
        EXPECT_EQ(all(hospital().read(ordered)), "ABE UCHE [1]/");
        hospital().execute("delete from hConsulting"_sql);
        EXPECT_EQ(list(), "");
    }
    EXPECT_EQ(list(), "OKAFOR UCHE [1]/");
}

TEST(OrderedIndexesInFiles, StandInTheViewsThatAreMadeFromTheirs) {
    const test::TemporaryDirectory directory;
    hospital::createDatabases(directory.path());
    test::OpenDatabases open(directory.path());
    auto& hospital = open.hospital();
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName) values ('1', 'OKAFOR', 'UCHE'), "
        "('2', 'ADEWALE', 'BOLA'), ('3', 'BELLO', 'MUSA')"_sql);
    hospital.execute("insert into hConsulting (PNo, consultID) values ('1', 'C1')"_sql);
    open.databases.named("HospitalArchive")
        .execute("insert into hConsulting (ID, PNo, consultID) values (1, '1', 'A1'), (2, '2', 'A2')"_sql);
    const auto both = "SELECT distinct fullname,pNo FROM qryhConsultedPatientsArchiveUnion  order by fullname"_sql;
    EXPECT_EQ(all(hospital.read(both)), "ADEWALE BOLA [2]/OKAFOR UCHE [1]/");
    hospital.execute("update hConsulting set PNo = '3'"_sql);
    EXPECT_EQ(all(hospital.read(both)), "ADEWALE BOLA [2]/BELLO MUSA [3]/OKAFOR UCHE [1]/");
    const auto list = "SELECT distinct fullname,pNo FROM qryhConsultedPatients  order by fullname"_sql;
    for (const auto& step : test::planOf(open.databases, "Hospital", list))
        EXPECT_EQ(step.find("TEMP B-TREE"), std::string::npos) << step;
}

}  // namespace
