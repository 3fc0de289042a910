// A registration, a set of vital signs and the saves of a stay in the wards, made through their screens, against the
// same writes on the bare engine: from the nurse's "yes" to the box that says it is saved, with all that the save reads
// on the way. Each iteration saves through the screen, then writes the same rows with prepared statements, in the same
// transactions, into a copy of the hospital beside it, with the same durability.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "bench/desk.h"
#include "billing/screens.h"
#include "core/session/loadsession.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "db/dialect/dialect.h"
#include "db/sqlite/functions.h"
#include "db/sqlite/prepared.h"
#include "db/sqlite/writer.h"
#include "hospital/schema.h"
#include "inpatient/screens.h"
#include "outpatient/screens.h"
#include "registration/screens.h"
#include "shell/accounts/users.h"
#include "shell/screens.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// A write that a screen made, and whether it belongs to the save's transaction.
struct Write {
    db::Statement statement;
    bool joined;
};

/// The quoted literals of a statement as parameters, as a program on the bare engine would write it.
std::pair<std::string, std::vector<db::Value>> templated(const std::string& text) {
    std::pair<std::string, std::vector<db::Value>> result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\'') {
            result.first += text[at];
            continue;
        }
        std::string value;
        while (text.at(++at) != '\'' || (at + 1 < text.size() && text[at + 1] == '\'')) {
            value += text[at];
            if (text[at] == '\'') ++at;
        }
        result.second.emplace_back(value);
        result.first += "?" + std::to_string(result.second.size());
    }
    return result;
}

/// The bare engine on a file of its own.
class Bare {
public:
    Bare(const fs::path& file, db::ServerClock& clock) {
        if (sqlite3_open(file.c_str(), &line_) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(line_));
        db::sqlite::registerFunctions(line_, clock);
        run("pragma journal_mode = wal; pragma synchronous = full; pragma foreign_keys = on; pragma temp_store = "
            "memory");
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    ~Bare() {
        statements_.clear();
        sqlite3_close_v2(line_);
    }

    Seconds replay(const std::vector<Write>& writes) {
        struct Ready {
            std::vector<std::pair<sqlite3_stmt*, std::vector<std::pair<int, db::Value>>>> statements;
            bool joined;
        };
        std::vector<Ready> all;  // what a program of the bare engine keeps prepared
        for (const auto& write : writes) all.push_back({prepared(write.statement), write.joined});
        const auto start = Clock::now();
        bool open = false;
        for (const auto& ready : all) {
            if (ready.joined && !std::exchange(open, true)) run("begin immediate");
            if (!ready.joined && std::exchange(open, false)) run("commit");
            for (const auto& [statement, values] : ready.statements) step(statement, values);
        }
        if (open) run("commit");
        return Clock::now() - start;
    }

private:
    using Bound = std::vector<std::pair<int, db::Value>>;

    void run(const char* sql) {
        if (sqlite3_exec(line_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(line_));
    }
    sqlite3_stmt* kept(const std::string& sql) {
        auto& kept = statements_[sql];
        if (kept) return kept.get();
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(line_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(line_));
        kept.reset(statement);
        return statement;
    }
    void step(sqlite3_stmt* statement, const Bound& values) {
        const db::sqlite::Use use(statement);
        for (const auto& [place, value] : values) db::sqlite::bind(statement, place, value);
        int code = SQLITE_OK;
        while ((code = sqlite3_step(statement)) == SQLITE_ROW) benchmark::DoNotOptimize(copied(statement));
        if (code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(line_));
    }
    static std::string copied(sqlite3_stmt* statement) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        return text == nullptr ? "" : text;
    }

    std::vector<std::pair<sqlite3_stmt*, Bound>> prepared(const db::Statement& statement) {
        using Kind = db::Statement::Kind;
        if (statement.kind == Kind::call) return ofCall(statement);
        Bound values;
        if (statement.kind == Kind::insert) {
            std::string columns;
            std::string places;
            for (const auto& [column, value] : statement.parameters) {
                columns += (columns.empty() ? "" : ", ") + column;
                places += places.empty() ? "?" : ", ?";
                values.emplace_back(static_cast<int>(values.size()) + 1, value);
            }
            const auto table = statement.text.substr(statement.text.find(' ') + 1);
            return {{kept("insert into " + table + " (" + columns + ") values (" + places + ")"), values}};
        }
        if (statement.kind == Kind::update) return ofUpdate(statement);
        if (statement.kind != Kind::execute) throw std::runtime_error("no such write expected: " + statement.text);
        const auto [text, literals] = templated(statement.text);
        for (const auto& literal : literals) values.emplace_back(static_cast<int>(values.size()) + 1, literal);
        return {{kept(db::sqlite::translate(text, "Hospital").text), values}};
    }
    /// The recorder does not tell which row an update is of: the last one costs the same.
    std::vector<std::pair<sqlite3_stmt*, Bound>> ofUpdate(const db::Statement& statement) {
        Bound values;
        std::string assignments;
        for (const auto& [column, value] : statement.parameters) {
            assignments += (assignments.empty() ? "" : ", ") + column + " = ?";
            values.emplace_back(static_cast<int>(values.size()) + 1, value);
        }
        const auto table = statement.text.substr(statement.text.find(' ') + 1);
        return {
            {kept("update " + table + " set " + assignments + " where rowid = (select max(rowid) from " + table + ")"),
             values}};
    }
    /// The statements of a stored procedure, its arguments bound by their names.
    std::vector<std::pair<sqlite3_stmt*, Bound>> ofCall(const db::Statement& call) {
        std::vector<std::pair<sqlite3_stmt*, Bound>> result;
        for (const auto& text : procedure(call.text).statements) {
            auto* statement = kept(db::sqlite::translate(text, "Hospital").text);
            Bound values;
            for (const auto& [name, value] : call.parameters)
                if (const auto place = sqlite3_bind_parameter_index(statement, name.c_str()); place > 0)
                    values.emplace_back(place, value);
            result.emplace_back(statement, values);
        }
        return result;
    }
    const db::dialect::Procedure& procedure(const std::string& name) {
        auto& known = procedures_[name];
        if (!known) {
            auto* statement = kept("select text from vorel_procedure where name = ?1");
            sqlite3_bind_text(statement, 1, name.c_str(), -1, SQLITE_STATIC);
            if (sqlite3_step(statement) != SQLITE_ROW) throw std::runtime_error("no procedure " + name);
            known = db::dialect::parseProcedure(copied(statement));
            sqlite3_reset(statement);
        }
        return *known;
    }

    sqlite3* line_ = nullptr;
    std::map<std::string, std::unique_ptr<sqlite3_stmt, db::sqlite::Finalizer>> statements_;
    std::map<std::string, std::optional<db::dialect::Procedure>> procedures_;
};

/// A demonstration hospital with a nurse who answers every question with yes, and its copy.
class Hospital {
public:
    Hospital() : directory_(fs::temp_directory_path() / ("vorel-bench-" + std::to_string(getpid()))) {
        fs::create_directories(directory_);
        hospital::createDatabases(directory_);
        {
            db::DataSources sources(db::DataSources::embedded(directory_));
            sources.clock().stopAt(now());
            db::Databases databases(sources);
            hospital::createDemonstration(databases, {now().date(), 20'000});
            shell::addUser(sources, {"nurse", "benchmark", {"NURSING"}, "Nurse Joy", "E001"},
                           core::Settings::builtInEncodingTable());
        }
        std::ofstream(directory_ / "made.sys") << "SVR=SERVER\nHNO=001\n";
        std::ofstream(directory_ / "sysdoc.sys") << "nurse\n";
        fs::copy_file(directory_ / "Hospital.db", directory_ / "Copy.db");
        sources_.clock().stopAt(now());
        bare_ = std::make_unique<Bare>(directory_ / "Copy.db", sources_.clock());
        start();
    }
    Hospital(const Hospital&) = delete;
    Hospital& operator=(const Hospital&) = delete;
    ~Hospital() {
        place_.databases.setRecorder({});
        bare_.reset();
        fs::remove_all(directory_);
    }

    void show(const std::string& screen) { place_.desktop.show(screen); }
    void fire(const std::string& path) { place_.desktop.fire(path, false); }
    void set(const std::string& path, const nlohmann::json& content) { place_.desktop.set(path, content, false); }
    [[nodiscard]] std::size_t entries(const std::string& path) {
        const auto items = place_.desktop.get(path)["items"];
        return items.is_array() ? items.size() : items["count"].get<std::size_t>();
    }
    [[nodiscard]] std::size_t rows(const std::string& path) { return place_.desktop.get(path)["rows"].size(); }
    /// From now on the client is a page; counts the bytes of what it is told.
    void servePage(std::size_t& bytes) {
        place_.desktop.setServesPage(true);
        place_.desktop.setSink([&bytes](const nlohmann::json& event) { bytes += event.dump().size(); });
    }
    void flushChanges() { place_.desktop.flushChanges(); }

    void unload(const std::string& screen) { place_.desktop.unload(screen); }
    [[nodiscard]] core::Session& session() { return place_.session; }
    /// Takes back what a save did, where the next one needs it undone.
    void execute(const db::Sql& sql) { place_.hospital().execute(sql); }
    [[nodiscard]] db::Value value(const db::Sql& sql) { return place_.hospital().read(sql).value(0, 0); }

    /// Saves through the screen, then writes the same on the bare engine: what each took.
    std::pair<Seconds, Seconds> save(const std::string& button) {
        saved_.reset();
        writes_.clear();
        asked_ = Clock::now();  // the question's "yes" is later, where the screen asks one
        fire(button);
        if (!saved_) throw std::runtime_error(button + ": " + said_);
        return {*saved_, bare_->replay(writes_)};
    }

private:
    static db::DateTime now() { return db::DateTime::of(2026, 11, 24, 11); }
    [[nodiscard]] core::Settings settings() const {
        core::Settings settings;
        settings.programDirectory = directory_;
        settings.computerName = "DESK-1";
        settings.clock = &now;
        return settings;
    }
    void start() {
        shell::provideScreens(place_);
        registration::provideScreens(place_);
        outpatient::provideScreens(place_);
        inpatient::provideScreens(place_);
        billing::provideScreens(place_);
        place_.desktop.setAcknowledges(true);
        place_.desktop.setBeforeBox([this](const auto& box) { boxOpens(box); });
        loop_.setBeforeWait([this] { loop_.post([this] { place_.desktop.answer("yes"); }); });
        core::LoadSession(place_);
        place_.session.gPrivatePaysDeposit = "NO";  // an admission then has its limit, whoever is picked
        place_.databases.setRecorder([this](const db::Statement& statement) {
            if (statement.writes() && !saved_) writes_.push_back({statement, place_.databases.inTransaction()});
        });
    }
    void boxOpens(const ui::Desktop::Question& box) {
        const auto moment = Clock::now();
        said_ = box.text;
        if (box.kind == ui::Desktop::Question::Kind::yesno) {
            writes_.clear();
            asked_ = moment;
        } else if (box.text.starts_with("Record Succesfully saved")) {
            saved_ = moment - asked_;
        }
    }

    fs::path directory_;
    db::DataSources sources_{db::DataSources::embedded(directory_)};
    ui::EventLoop loop_;
    core::Workplace place_{sources_, loop_, settings()};
    std::unique_ptr<Bare> bare_;
    std::vector<Write> writes_;
    Clock::time_point asked_;
    std::optional<Seconds> saved_;
    std::string said_;
};

Hospital& hospital() {
    static Hospital hospital;
    return hospital;
}

void fill(const std::string& screen, const bench::Fields& fields) {
    for (const auto& [field, text] : fields) hospital().set(screen + "." + field, text);
}

/// What both sides took, over all iterations.
template <typename Prepare>
void saves(benchmark::State& state, const std::string& screen, Prepare prepare) {
    hospital().show(screen);
    Seconds ours{};
    Seconds bare{};
    std::size_t number = 0;
    for (auto _ : state) {
        prepare(number++);
        const auto [mine, same] = hospital().save(screen + ".OKButton");
        ours += mine;
        bare += same;
        state.SetIterationTime(mine.count());
    }
    state.counters["ratio"] = ours / bare;
}

void registration(benchmark::State& state) {
    saves(state, "frmPatientsNew", [](std::size_t number) {
        hospital().fire("frmPatientsNew.cmdAdd");
        fill("frmPatientsNew", bench::patient);
        hospital().set("frmPatientsNew.txtsurNAme", "BENCH" + std::to_string(number));
    });
}
BENCHMARK(registration)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void takeSigns(std::size_t number) {
    hospital().fire("frmPreConsult.cmdAdd");
    hospital().set("frmPreConsult.chkAll", true);
    const auto waiting = hospital().entries("frmPreConsult.cboVehNo") - 1;
    hospital().set("frmPreConsult.cboVehNo", {{"row", number % waiting + 1}});
    hospital().set("frmPreConsult.CboRef", {{"row", 1}});
    fill("frmPreConsult", bench::readings);
}

void vitalSigns(benchmark::State& state) {
    saves(state, "frmPreConsult", takeSigns);
}
BENCHMARK(vitalSigns)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

using db::operator""_sql;

/// The first patient of a list, picked behind its empty entry where it has one.
void pick(const std::string& list, std::size_t row) {
    hospital().set(list, {{"row", row}});
}

void referral(benchmark::State& state) {
    saves(state, "frmReferalEdit", [](std::size_t number) {
        hospital().fire("frmReferalEdit.cmdAdd");
        pick("frmReferalEdit.cboVehNo", number % hospital().entries("frmReferalEdit.cboVehNo"));
        fill("frmReferalEdit", {{"dtNext", "2026-11-25"}, {"dtTime", "10:00:00"}, {"txtREason", "MALARIA"}});
    });
}
BENCHMARK(referral)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void admission(benchmark::State& state) {
    saves(state, "frmAdmission", [](std::size_t) {
        hospital().execute("delete from hAdmission where admdate='24-Nov-2026' and Remarks='BENCH'"_sql);
        hospital().fire("frmAdmission.cmdAdd");
        pick("frmAdmission.cboVehNo", 1);
        pick("frmAdmission.cboWard", 1);
        fill("frmAdmission", {{"txtRem", "BENCH"}});
    });
}
BENCHMARK(admission)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void observation(benchmark::State& state) {
    saves(state, "frmPreConsultAdm", [](std::size_t number) {
        pick("frmPreConsultAdm.LstDate", number % hospital().entries("frmPreConsultAdm.LstDate"));
        hospital().fire("frmPreConsultAdm.cmdAdd");
        fill("frmPreConsultAdm",
             {{"txtTemp", "37.2"}, {"txtPressure", "120"}, {"txtPressure2", "80"}, {"txtPause", "72"}});
    });
}
BENCHMARK(observation)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void fluidLine(benchmark::State& state) {
    saves(state, "frmFluidChart", [](std::size_t number) {
        pick("frmFluidChart.cboVehNo", 1 + number % (hospital().entries("frmFluidChart.cboVehNo") - 1));
        hospital().fire("frmFluidChart.cmdAdd");
        fill("frmFluidChart", {{"cboTime", "9 AM"}, {"txtInVol", "200"}});
    });
}
BENCHMARK(fluidLine)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void doctorsDischarge(benchmark::State& state) {
    saves(state, "frmDischarge", [](std::size_t number) {
        hospital().fire("frmDischarge.cmdAdd");
        pick("frmDischarge.cboVehNo", number % hospital().entries("frmDischarge.cboVehNo"));
        pick("frmDischarge.cboCat", 1);
        fill("frmDischarge", {{"dtAppt", "2026-12-08"}});
    });
}
BENCHMARK(doctorsDischarge)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

void nursesDischarge(benchmark::State& state) {
    saves(state, "frmDischargeForNuse", [](std::size_t) {
        hospital().execute("update hAdmission set isdischarged=0 where DischDate='25-Nov-2026'"_sql);
        hospital().fire("frmDischargeForNuse.cmdAdd");
        fill("frmDischargeForNuse", {{"dtDate", "2026-11-25"}});
        pick("frmDischargeForNuse.cboVehNo", 0);
    });
}
BENCHMARK(nursesDischarge)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

/// Five lines of a bill, each of them priced.
void billSaved(benchmark::State& state) {
    saves(state, "frmBillService", [](std::size_t number) {
        hospital().fire("frmBillService.cmdBill");
        pick("frmBillService.cboReason", 1);
        pick("frmBillService.cboVehNo", 1 + number % (hospital().entries("frmBillService.cboVehNo") - 1));
        pick("frmBillService.cboCat", 1);
        for (std::size_t line = 0; line < 5; ++line) {
            pick("frmBillService.cboDrug", (number + line) % hospital().entries("frmBillService.cboDrug"));
            fill("frmBillService", {{"txtPrice", "1250.50"}, {"txtQty", "2"}, {"txtUsage", "DAILY"}, {"cboCap", "NO"}});
            hospital().fire("frmBillService.cmdAdd");
        }
    });
}
BENCHMARK(billSaved)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

/// A child with three vaccines. The screen asks no question: the time runs from the click.
void immunized(benchmark::State& state) {
    saves(state, "frmImmune", [](std::size_t) {
        hospital().execute("update hRecords set AttendedToByImmume=0 where recDate='24-Nov-2026'"_sql);
        hospital().fire("frmImmune.cmdCancel");
        pick("frmImmune.cboVehNo", 0);
        for (std::size_t vaccine = 1; vaccine <= 3; ++vaccine) {
            pick("frmImmune.cboDrug", vaccine);
            hospital().fire("frmImmune.cmdAddToGrid");
        }
        fill("frmImmune", {{"cboAge", "6 weeks"}, {"txtRem", "BENCH"}});
        hospital().set("frmImmune.chkRef", true);
        fill("frmImmune", {{"dtNext", "2026-12-22"}, {"txtImm", "PENTA 2"}});
    });
}
BENCHMARK(immunized)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

/// One line of so many doses on the chart of everybody in the wards, none of whom has a limit.
void chartForAll(int lines, int doses) {
    hospital().execute("update hAdmission set clientCat='PRIVATE', Comment=null where isdischarged=0"_sql);
    hospital().execute("delete from hMedChartMonitor"_sql);
    for (int line = 0; line < lines; ++line)
        hospital().execute(
            "insert into hMedChartMonitor (conID, consultID, PNo, numOfTimes, drgName) select 1, consultID, PNo, "_sql +
            doses + ", 'BENCH' from hAdmission where isdischarged=0");
}

void dose(benchmark::State& state) {
    chartForAll(1, 192);
    saves(state, "frmMedChart", [](std::size_t number) {
        const auto patients = hospital().entries("frmMedChart.lstPat");
        pick("frmMedChart.lstPat", number % patients);
        pick("frmMedChart.LstDate", 0);
        hospital().set("frmMedChart.chk(" + std::to_string(number / patients) + ")", true);
    });
}
BENCHMARK(dose)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

/// An out-patient's injection with its fee: the chart, the dose, the line. The time runs from the click, for nothing is
/// asked.
void injection(benchmark::State& state) {
    saves(state, "frmNurseInjection", [](std::size_t number) {
        hospital().execute("update hInjAndDressing set numOfTimes=24, numtaken=0 where attendedto=0"_sql);
        pick("frmNurseInjection.cboVehNo", number % hospital().entries("frmNurseInjection.cboVehNo"));
        pick("frmNurseInjection.LstDate", 0);
        hospital().set("frmNurseInjection.chk(0)", true);
    });
}
BENCHMARK(injection)->UseManualTime()->Iterations(300)->Unit(benchmark::kMillisecond);

/// A patient's chart of 200 lines: picked, and its first line opened.
void chartOpened(benchmark::State& state) {
    chartForAll(200, 20);
    hospital().unload("frmMedChart");
    hospital().show("frmMedChart");
    for (auto _ : state) {
        pick("frmMedChart.lstPat", 0);
        pick("frmMedChart.LstDate", 0);
        hospital().flushChanges();
    }
    state.counters["lines"] = static_cast<double>(hospital().entries("frmMedChart.LstDate"));
}
BENCHMARK(chartOpened)->Iterations(50)->Unit(benchmark::kMillisecond);

/// The history of a patient with 5,000 consultations: opened, the latest one read; and all of them listed.
void historyOpened(benchmark::State& state, bool all) {
    static const bool written = [] {
        for (int row = 0; row < 5000; ++row)
            hospital().execute("insert into hConsulting (consultID, PNo, CDate, cTime, diagnosis) select 'B"_sql +
                               std::to_string(row) + "', min(PNo), '24-Nov-2020', '10:00', 'MALARIA' from hPatients");
        return true;
    }();
    benchmark::DoNotOptimize(written);
    hospital().session().gCurConsultPNo = hospital().value("select min(PNo) as PNo from hPatients"_sql).text();
    for (auto _ : state) {
        hospital().show("frmConsultInfo");
        if (all) hospital().fire("frmConsultInfo.cmdAll");
        pick("frmConsultInfo.LstDate", 0);
        hospital().flushChanges();
        state.counters["consultations"] = static_cast<double>(hospital().entries("frmConsultInfo.LstDate"));
        state.PauseTiming();
        hospital().unload("frmConsultInfo");
        state.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(historyOpened, latest, false)->Iterations(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(historyOpened, all, true)->Iterations(50)->Unit(benchmark::kMillisecond);

/// The tariff of drugs as an officer sees it, with 5,000 items in the private template.
void atTariff() {
    static const bool written = [] {
        hospital().execute("delete from DrugNHIS where Company='0001'"_sql);
        for (int item = 0; item < 5000; ++item)
            hospital().execute(
                "insert into DrugNHIS (drgName, drgCatName, Price, Company, Capitated, tariffStatus) values ('BENCH "_sql +
                std::to_string(item) + "', 'TABLETS', 1000, '0001', 'NO', 'FIXED')");
        return true;
    }();
    benchmark::DoNotOptimize(written);
    hospital().session().gModuleRole = "TARIFF";
    hospital().unload("frmDrugPriceHMO");
    hospital().show("frmDrugPriceHMO");
}

void templateOpened(benchmark::State& state) {
    atTariff();
    for (auto _ : state) {
        hospital().set("frmDrugPriceHMO.cboHMO", "PRIVATE [0001]");
        hospital().flushChanges();
        state.PauseTiming();
        hospital().fire("frmDrugPriceHMO.cmdRefresh");
        state.ResumeTiming();
    }
    hospital().session().gModuleRole = "NURSING";
}
BENCHMARK(templateOpened)->Iterations(30)->Unit(benchmark::kMillisecond);

/// A template of 5,000 items at 90% of the private one, in place of the one before it.
void templateBuilt(benchmark::State& state) {
    atTariff();
    saves(state, "frmDrugPriceHMO", [](std::size_t) {
        hospital().set("frmDrugPriceHMO.cboHMO", "AXIS CARE HMO [0002]");
        hospital().set("frmDrugPriceHMO.chkDel", true);
        fill("frmDrugPriceHMO", {{"cboDrug", "NO"}, {"cboUse", "PRIVATE [0001]"}, {"cboPCent", "90"}});
    });
    hospital().session().gModuleRole = "NURSING";
}
BENCHMARK(templateBuilt)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

/// What goes to a page by a save while the list has 2,500 rows.
void bytesOfASave(benchmark::State& state) {
    constexpr std::size_t rows = 2500;
    std::size_t bytes = 0;
    hospital().servePage(bytes);
    hospital().show("frmPreConsult");
    for (std::size_t number = 0; number % 100 != 0 || hospital().rows("frmPreConsult.grdData") < rows; ++number) {
        takeSigns(number);
        hospital().fire("frmPreConsult.OKButton");
    }
    double most = 0;
    std::size_t number = 0;
    for (auto _ : state) {
        takeSigns(number++);
        hospital().flushChanges();
        bytes = 0;
        hospital().fire("frmPreConsult.OKButton");
        hospital().flushChanges();
        most = std::max(most, static_cast<double>(bytes));
    }
    state.counters["rows"] = static_cast<double>(hospital().rows("frmPreConsult.grdData"));
    state.counters["bytes"] = most;
}
BENCHMARK(bytesOfASave)->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
