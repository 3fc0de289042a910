// What the main window's watch asks every few seconds, the ward list, and the front desk's searches, on a large
// hospital:
//
//     build/vorel database create --data /tmp/million
//     build/vorel database demo --data /tmp/million --patients 1000000
//     build/bench_lists /tmp/million
//
// Each list is read through our interface and through the bare engine, side by side. The bare engine knows nothing of
// the index behind the name search: its time is that of reading every patient.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <string>

#include "bench/sidebyside.h"
#include "db/databases.h"
#include "db/recordset.h"
#include "db/sqlite/functions.h"
#include "db/sqlite/writer.h"

namespace {

using db::operator""_sql;

struct Hospital {
    explicit Hospital(const std::string& directory)
        : sources(db::DataSources::embedded(directory)), databases(sources) {
        const auto last = connection().read("select max(recDate) as day from hRecords"_sql);
        day = last["day"].moment();
        sources.clock().stopAt(day.plusHours(11));
        if (sqlite3_open((directory + "/Hospital.db").c_str(), &bare) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(bare));
        db::sqlite::registerFunctions(bare, sources.clock());
    }
    Hospital(const Hospital&) = delete;
    Hospital& operator=(const Hospital&) = delete;
    ~Hospital() { sqlite3_close_v2(bare); }
    [[nodiscard]] db::Connection& connection() { return databases.named("Hospital"); }

    db::DataSources sources;
    db::Databases databases;
    db::DateTime day;
    sqlite3* bare = nullptr;
};

/// The bare engine's reading of the same statement: every cell is looked at.
class BareList {
public:
    BareList(Hospital& hospital, const db::Sql& sql) {
        const auto bound = sql.bound();
        const auto translated = db::sqlite::translate(bound.text, "Hospital");
        if (sqlite3_prepare_v2(hospital.bare, translated.text.c_str(), -1, &statement_, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(hospital.bare));
        for (std::size_t i = 0; i < bound.parameters.size(); ++i) {
            const auto& value = bound.parameters[i];
            const auto text = value.text();
            sqlite3_bind_text(statement_, static_cast<int>(i) + 1, text.c_str(), -1, SQLITE_TRANSIENT);
        }
    }
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;
    ~BareList() { sqlite3_finalize(statement_); }
    void read() {
        while (sqlite3_step(statement_) == SQLITE_ROW)
            for (int i = 0; i < sqlite3_column_count(statement_); ++i)
                benchmark::DoNotOptimize(sqlite3_column_text(statement_, i));
        sqlite3_reset(statement_);
    }

private:
    sqlite3_stmt* statement_ = nullptr;
};

void list(benchmark::State& state, Hospital& hospital, const db::Sql& sql) {
    BareList bare(hospital, sql);
    std::size_t rows = 0;
    bench::sideBySide(
        state, [&] { bare.read(); }, [&] { rows = hospital.connection().read(sql).rowCount(); });
    state.counters["rows"] = static_cast<double>(rows);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: bench_lists DIRECTORY [options of the benchmark library]\n", stderr);
        return 2;
    }
    Hospital hospital(argv[1]);
    const auto known = hospital.connection().read(
        "select top 1 OldPNo, pPhoneNo from hPatients where OldPNo > 'A' and pPhoneNo > '0'"_sql);
    const std::pair<const char*, db::Sql> lists[] = {
        {"patientsWaiting",
         "select recDate as Date,hTime as Time,pSurname as Surname,pfirstName as FirstName,Age,ClinicType from qryhPatListForNurse where recDate ='"_sql +
             hospital.day + "' and attendedTo=0"},
        {"admissionsWaiting",
         "select Date,Time,Patient,Sex,Age,Coyname,Doctor,RoomNo from vwAdmissionWaitList where date ='"_sql +
             hospital.day + "'"},
        {"notifications",
         "select SNo, Date, Time, Fullname, Remarks as Drug, AttendedTo, ConsultID FROM  vwhNotify where NotifyDept='NURSING' and Date='"_sql +
             hospital.day + "' order by SNo Desc"},
        {"wardList", "select * from qryhAdmission order by fullname"_sql},
        {"consultedToday",
         "SELECT  distinct id,CDate,fullname,pNo,consultid FROM qryhconsulting where cdate between '"_sql +
             hospital.day + "' and '" + hospital.day + "' order by fullname"},
        {"referredToday",
         "select distinct pNO,pSurname,pFirstname,Company,refDate,consultID from qryhreferal where referTo in ('IN-PATIENT','(IN-PATIENT)') and refdate between '"_sql +
             hospital.day + "' AND '" + hospital.day +
             "' and consultID not in (select ConsultID from hAdmission) order by psurname"},
        {"referralsOfTheDay",
         "select distinct RefDate,RefTime,pno,psurname as Surname,pfirstname as Firstname,ApptDate,ID,ClientCat,referTo,refReason,ConsultID,AttendedTo from qryhreferal where refdate = '"_sql +
             hospital.day + "'"},
        {"admissions",
         "select distinct SNO, AdmDate, aTime as Time, Fullname, WardID as Ward, clientCat,Company,DoctorName as AdmitedBy,Diagnosis, Reason, Remarks, pNo as PatNo, consultID, Age, Sex,PolicyType as HmoPlan from qryhAdmission order by admDate desc,atime desc"_sql},
        {"wardPatients", "select distinct pNO,fullname,consultID from qryhAdmission order by fullname "_sql},
        {"forTheNurses",
         "select pNO,fullname,consultID from qryhAdmission   where consultID in (select consultID from hdischarge)"_sql},
        {"dischargesOfTheDay", "select distinct * from qryhDischarge where dischdate = '"_sql + hospital.day + "'"},
        {"nursesDischargesOfTheDay",
         "select distinct ID,DischDate,DischTime,Fullname,StaffName,WardID,Remarks,Reason,ClientCat,ConsultID,PNo from qryhDischargeForNurse where dischdate = '"_sql +
             hospital.day + "'"},
        {"overdue", "select  distinct sno,consultid,fullname,pno from qryhAdmission order by fullname"_sql},
        {"recall",
         "SELECT distinct consultID,dischDate,remarks,fullname,pNo FROM qryhDischargeForNurse  where dischDate between '"_sql +
             hospital.day + "' and '" + hospital.day + "' order by fullname asc"},
        {"expired",
         "select AdmDate,aTime as Time,FullName,ConsultID,Company,ClientCat,ExtendAdmissionLimitTo as ExpiredAdmission,PNo from qryhAdmission  where ClientCat in ('PHIS','NHIS','HMO') and  getDate()>= IsNull(ExtendAdmissionLimitTo,getDate())"_sql},
        {"comments",
         "select SNo, Date, Time, Fullname, Comment, Dept, AttendedTo, ConsultID FROM  vwhComments where dept='NURSING' order by SNo"_sql},
        {"commentsOfTheDay",
         "select SNo, Date, Time, Fullname, Comment, Dept, AttendedTo, ConsultID FROM  vwhComments where dept='NURSING' and Date='"_sql +
             hospital.day + "' order by SNo Desc"},
        {"cardSearch", "select  * from vwhpatients where oldPno = '"_sql + known["OldPNo"] + "'  order by fullname"},
    };
    std::vector<std::pair<std::string, db::Sql>> searches;
    // From parts that a tenth of all names hold to one that nobody's does.
    for (const std::string part : {"OLA", "ADE", "OKAFOR", "SULEIMAN A", "EZE CHI", "ZUBAIR"})
        searches.emplace_back(
            "nameSearch/" + part,
            "select top "_sql + 20 + "  * from vwhpatients where fullname like '%" + part + "%'  order by fullname");
    const auto phone = known["pPhoneNo"].text();
    for (const auto& digits : {phone.substr(0, 7), phone})
        searches.emplace_back("phoneSearch/" + std::to_string(digits.size()),
                              "select  * from vwhpatients where PhoneNo like '%"_sql + digits + "%' order by fullname");
    for (const auto& [name, sql] : searches)
        benchmark::RegisterBenchmark(name.c_str(), [&](benchmark::State& state) { list(state, hospital, sql); })
            ->UseManualTime()
            ->Iterations(3)
            ->Repetitions(9)
            ->ReportAggregatesOnly()
            ->Unit(benchmark::kMillisecond);
    const auto consulted = "SELECT distinct fullname,pNo FROM qryhConsultedPatients  order by fullname"_sql;
    benchmark::RegisterBenchmark("consultedPatients",
                                 [&](benchmark::State& state) { list(state, hospital, consulted); })
        ->UseManualTime()
        ->Iterations(3)
        ->Unit(benchmark::kMillisecond);
    for (const auto& [name, sql] : lists)
        benchmark::RegisterBenchmark(name, [&](benchmark::State& state) { list(state, hospital, sql); })
            ->UseManualTime()
            ->Iterations(50)
            ->Repetitions(9)
            ->ReportAggregatesOnly()
            ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
