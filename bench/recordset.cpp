// What a Recordset costs over the bare SQLite C interface with prepared statements: each iteration runs both, side by
// side on one disk, and the counter "ratio" is ours over bare.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "bench/sidebyside.h"
#include "db/databases.h"
#include "db/recordset.h"
#include "hospital/schema.h"

namespace {

using db::operator""_sql;

/// A hospital through our interface, and the same bills in a bare file beside it.
class Hospital {
public:
    Hospital() : directory_(std::filesystem::temp_directory_path() / ("vorel-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(directory_);
        hospital::createDatabases(directory_);
        sources_ = std::make_unique<db::DataSources>(db::DataSources::embedded(directory_));
        ours = std::make_unique<db::Databases>(*sources_);
        fill();
        openBare();
    }
    Hospital(const Hospital&) = delete;
    Hospital& operator=(const Hospital&) = delete;
    ~Hospital() {
        sqlite3_close_v2(bare);
        ours.reset();
        sources_.reset();
        std::filesystem::remove_all(directory_);
    }

    [[nodiscard]] db::Connection& hospital() const { return ours->named("Hospital"); }
    sqlite3_stmt* prepare(const char* text) const {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(bare, text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(bare));
        return statement;
    }

    static constexpr int rows = 10'000;
    std::unique_ptr<db::Databases> ours;
    sqlite3* bare = nullptr;

private:
    /// The same rows in a file of the bare engine's own, with the same index and durability.
    void openBare() {
        sqlite3_open((directory_ / "bare.db").c_str(), &bare);
        const char* schema =
            "pragma journal_mode=wal; pragma synchronous=full;"
            "create table Billing (ID integer primary key autoincrement, PNo text collate nocase, ClientID text "
            "collate nocase,"
            " AmountBilled real, DebtBF real, Discount real, AmountPaid real);"
            "create index Billing_PNo on Billing (PNo, ID);"
            "with recursive n(i) as (select 0 union all select i + 1 from n where i < 9999)"
            " insert into Billing (PNo, ClientID, AmountBilled, AmountPaid)"
            " select printf('%09d/001', i), '0001', 1000.0 + i, 500.0 from n;";
        if (sqlite3_exec(bare, schema, nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(bare));
    }

    void fill() const {
        db::Transaction transaction(hospital());
        db::Recordset bills(hospital(), "select * from Billing where 1=2"_sql);
        for (int i = 0; i < rows; ++i) {
            bills.addNew();
            bills.set("PNo", patient(i));
            bills.set("ClientID", "0001");
            bills.set("AmountBilled", 1000.0 + i);
            bills.set("AmountPaid", 500.0);
            bills.update();
        }
        transaction.commit();
    }

    std::filesystem::path directory_;
    std::unique_ptr<db::DataSources> sources_;

public:
    static std::string patient(int number) {
        const auto digits = std::to_string(number);
        return std::string(9 - digits.size(), '0') + digits + "/001";
    }
};

Hospital& hospital() {
    static Hospital hospital;
    return hospital;
}

template <typename Number>
void append(std::string& row, Number number) {
    row.append(reinterpret_cast<const char*>(&number), sizeof number);
}

/// Copies a row, each cell in its own type, as a client has to before it lets the statement go.
std::string copyRow(sqlite3_stmt* statement) {
    std::string row;
    const int columns = sqlite3_column_count(statement);
    for (int i = 0; i < columns; ++i) {
        const int type = sqlite3_column_type(statement, i);
        if (type == SQLITE_INTEGER)
            append(row, sqlite3_column_int64(statement, i));
        else if (type == SQLITE_FLOAT)
            append(row, sqlite3_column_double(statement, i));
        else if (type == SQLITE_TEXT)
            row.append(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                       static_cast<std::size_t>(sqlite3_column_bytes(statement, i)));
    }
    return row;
}

void keyedRead(benchmark::State& state) {
    auto& place = hospital();
    auto* statement = place.prepare("select ClientID, AmountBilled from Billing where PNo=?1");
    int next = 0;
    bench::sideBySide(
        state,
        [&] {
            const auto pno = Hospital::patient(next);
            sqlite3_bind_text(statement, 1, pno.c_str(), static_cast<int>(pno.size()), SQLITE_STATIC);
            while (sqlite3_step(statement) == SQLITE_ROW) benchmark::DoNotOptimize(copyRow(statement));
            sqlite3_reset(statement);
        },
        [&] {
            const auto pno = Hospital::patient(next);
            const db::Recordset rows(place.hospital(),
                                     "select ClientID, AmountBilled from Billing where PNo='"_sql + pno + "'");
            benchmark::DoNotOptimize(rows["ClientID"]);
            next = (next + 7) % Hospital::rows;
        });
    sqlite3_finalize(statement);
}
BENCHMARK(keyedRead)->UseManualTime()->Iterations(100'000);

void snapshot(benchmark::State& state) {
    auto& place = hospital();
    auto* statement = place.prepare("select ID, PNo, ClientID, AmountBilled, AmountPaid from Billing");
    bench::sideBySide(
        state,
        [&] {
            std::vector<std::string> rows;
            while (sqlite3_step(statement) == SQLITE_ROW) rows.push_back(copyRow(statement));
            benchmark::DoNotOptimize(rows);
            sqlite3_reset(statement);
        },
        [&] {
            const db::Recordset rows(place.hospital(),
                                     "select ID, PNo, ClientID, AmountBilled, AmountPaid from Billing"_sql);
            benchmark::DoNotOptimize(rows.rowCount());
        });
    sqlite3_finalize(statement);
}
BENCHMARK(snapshot)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);

void writtenRow(benchmark::State& state) {
    auto& place = hospital();
    auto* statement = place.prepare("insert into Billing (PNo, ClientID, AmountBilled) values (?1, ?2, ?3)");
    bench::sideBySide(
        state,
        [&] {
            sqlite3_bind_text(statement, 1, "000000001/001", -1, SQLITE_STATIC);
            sqlite3_bind_text(statement, 2, "0001", -1, SQLITE_STATIC);
            sqlite3_bind_double(statement, 3, 1500.0);
            sqlite3_step(statement);
            sqlite3_reset(statement);
        },
        [&] {
            db::Recordset bills(place.hospital(), "select * from Billing where 1=2"_sql);
            bills.addNew();
            bills.set("PNo", "000000001/001");
            bills.set("ClientID", "0001");
            bills.set("AmountBilled", 1500.0);
            bills.update();
        });
    sqlite3_finalize(statement);
}
BENCHMARK(writtenRow)->UseManualTime()->Iterations(1'000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
