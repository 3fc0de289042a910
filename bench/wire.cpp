// The opening of a list of a million patients as a page hears it, and what a keystroke in it costs: the screen is
// shown, its combo filled from the database, and the page asks for what is in sight.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "core/rows/entries.h"
#include "db/databases.h"
#include "hospital/schema.h"
#include "ui/controls.h"
#include "ui/conversation.h"
#include "ui/desktop.h"
#include "ui/screen.h"

namespace {

namespace fs = std::filesystem;
using db::operator""_sql;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// What this thread has worked so far, whatever else the machine does.
Seconds worked() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

constexpr int patients = 1'000'000;

/// A hospital with a table of a million names and numbers.
class Hospital {
public:
    Hospital() : directory_(fs::temp_directory_path() / ("vorel-wire-" + std::to_string(getpid()))) {
        fs::create_directories(directory_);
        hospital::createDatabases(directory_);
        fill();
        sources_ = std::make_unique<db::DataSources>(db::DataSources::embedded(directory_));
        databases_ = std::make_unique<db::Databases>(*sources_);
    }
    Hospital(const Hospital&) = delete;
    Hospital& operator=(const Hospital&) = delete;
    ~Hospital() {
        databases_.reset();
        sources_.reset();
        fs::remove_all(directory_);
    }
    [[nodiscard]] db::Connection& connection() { return databases_->named("Hospital"); }
    /// Gives back what no list holds.
    void idle() { databases_->idle(); }

private:
    void fill() {
        sqlite3* line = nullptr;
        const auto run = [&line](const std::string& sql) {
            if (sqlite3_exec(line, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
                throw std::runtime_error(sqlite3_errmsg(line));
        };
        if (sqlite3_open((directory_ / "Hospital.db").c_str(), &line) != SQLITE_OK) throw std::runtime_error("no file");
        run("create table BenchNames(Name text, PNo text)");
        run("with recursive n(i) as (select 1 union all select i + 1 from n where i < " + std::to_string(patients) +
            ") insert into BenchNames select substr('OKAFOR BELLO  ADEBAYODANJUMAGARBA  IBEKWELAWAL  ', i % 7 * 7 + 1, "
            "6) "
            "|| ' ' || substr('OBIAGELIMUSA    CHIDI   ZAINAB  NGOZI   ', i % 5 * 8 + 1, 8), "
            "printf('%09d/001', i) from n");
        sqlite3_close_v2(line);
    }

    fs::path directory_;
    std::unique_ptr<db::DataSources> sources_;
    std::unique_ptr<db::Databases> databases_;
};

class frmMillion : public ui::Screen {
public:
    frmMillion(ui::Desktop& desktop, Hospital& hospital)
        : Screen(desktop, "frmMillion", "Every patient"), hospital_(hospital) {}
    void load() override {
        core::addEntries(
            cboPatient, hospital_.connection(), "select Name, PNo from BenchNames"_sql,
            [](const db::Recordset& row) { return core::entryText(row["Name"].textOr(), row["PNo"].textOr()); });
    }
    ui::ComboBox cboPatient{*this, "cboPatient", ui::ComboBox::Style::listOnly};

private:
    Hospital& hospital_;
};

/// Resident memory in MB, but for what the allocator only keeps.
double residentMB() {
    malloc_trim(0);
    std::ifstream status("/proc/self/statm");
    long all = 0;
    long resident = 0;
    status >> all >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1e6;
}

void millionEntries(benchmark::State& state) {
    Hospital hospital;
    Seconds opening{};
    Seconds keystroke{};
    std::size_t sent = 0;
    double held = 0;
    for (auto _ : state) {
        hospital.idle();
        const double before = residentMB();
        ui::EventLoop loop;
        ui::Desktop desktop(loop, "Bench");
        desktop.setServesPage(true);
        ui::Conversation conversation(desktop, [&sent](const std::string& line) { sent += line.size(); });
        desktop.provide("frmMillion", [&] { return std::make_unique<frmMillion>(desktop, hospital); });
        const auto ask = [&conversation](const char* request) {
            conversation.receive(request);
            conversation.flush();
        };
        sent = 0;
        const auto start = Clock::now();
        auto begin = worked();
        desktop.show("frmMillion");
        conversation.flush();
        ask(R"({"list":"frmMillion.cboPatient"})");
        state.SetIterationTime(Seconds(Clock::now() - start).count());
        opening = worked() - begin;
        const std::size_t openingBytes = sent;
        begin = worked();
        ask(R"({"list":"frmMillion.cboPatient","holds":"or obi"})");
        keystroke = worked() - begin;
        sent = openingBytes;
        hospital.idle();
        held = residentMB() - before;
    }
    state.counters["sentBytes"] = static_cast<double>(sent);
    state.counters["heldMB"] = held;
    state.counters["openCpuMs"] = opening.count() * 1e3;
    state.counters["keystrokeCpuMs"] = keystroke.count() * 1e3;
}
BENCHMARK(millionEntries)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
