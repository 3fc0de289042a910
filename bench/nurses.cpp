// Works a running host as many nurses who register patients and take vital signs, with a pause between two saves, and
// reconciles what they were told with the rows afterwards:
//
//     build/bench_nurses PORT DIRECTORY USER PASSWORD [nurses=50] [seconds=60] [pause in ms=0]
//
// It fails where a save failed, a row is missing or one is too many.

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "bench/desk.h"
#include "bench/page.h"
#include "db/databases.h"

namespace {

using namespace db::literals;
using bench::Clock;
using bench::Page;
using nlohmann::json;

/// What all nurses did together.
struct Work {
    std::mutex mutex;
    std::map<std::string, std::vector<double>> times;  ///< milliseconds of each save that went through, by screen
    std::vector<std::string> failures;
};

class Nurse {
public:
    Nurse(const bench::Target& target, int number) : page_(target), number_(number) {
        tell({{"fire", "MdiVorel.mnuPatReg"}});
        tell({{"fire", "MdiVorel.mnuVitSigns"}});
    }

    /// One patient after the other until the time is over.
    void work(Clock::time_point end, std::chrono::milliseconds pause, Work& work) {
        std::this_thread::sleep_for(std::max(pause, std::chrono::milliseconds(1000)) * (number_ % 50) / 50);
        while (Clock::now() < end) {
            registers(work);
            std::this_thread::sleep_for(pause);
            charts(work);
            std::this_thread::sleep_for(pause);
        }
    }

private:
    void registers(Work& work) {
        const auto name = "NURSE" + std::to_string(number_) + " " + std::to_string(++patients_);
        tell({{"fire", "frmPatientsNew.cmdAdd"}});
        fill("frmPatientsNew", bench::patient);
        enter("frmPatientsNew.txtsurNAme", name);
        save("frmPatientsNew", work);
    }
    void charts(Work& work) {
        tell({{"fire", "frmPreConsult.cmdAdd"}});
        enter("frmPreConsult.chkAll", true);
        enter("frmPreConsult.cboVehNo", {{"row", number_ % visits() + 1}});
        enter("frmPreConsult.CboRef", {{"row", 1}});
        fill("frmPreConsult", bench::readings);
        save("frmPreConsult", work);
    }
    int visits() {
        const auto state = page_.request({{"get", "frmPreConsult.cboVehNo"}});
        const auto& items = state["state"]["items"];
        const int entries = items.is_array() ? static_cast<int>(items.size()) : items["count"].get<int>();
        return std::max(1, entries - 1);
    }

    void enter(const std::string& path, const json& content) { tell({{"set", path}, {"to", content}}); }
    void fill(const std::string& screen, const bench::Fields& fields) {
        for (const auto& [field, text] : fields) enter(screen + "." + field, text);
    }
    json tell(const json& request) {
        auto reply = page_.request(request);
        for (const auto& event : reply["events"])
            if (event.contains("error")) throw std::runtime_error(request.dump() + ": " + event["error"].dump());
        return reply;
    }
    void save(const std::string& screen, Work& work) {
        std::string said;
        auto reply = tell({{"fire", screen + ".OKButton"}});
        std::chrono::duration<double, std::milli> time{};
        while (!reply["waiting"].is_null()) {
            const bool asked = reply["waiting"]["kind"] == "yesno";
            if (!asked) said += reply["waiting"]["text"].get<std::string>();
            const auto start = Clock::now();
            reply = tell({{"answer", asked ? "yes" : "ok"}});
            if (asked) time = Clock::now() - start;
        }
        const std::lock_guard lock(work.mutex);
        if (said == "Record Succesfully saved")
            work.times[screen].push_back(time.count());
        else
            work.failures.push_back(screen + ": " + said);
    }

    Page page_;
    int number_;
    int patients_ = 0;
};

/// The counts that the saves change.
std::map<std::string, std::int64_t> counts(const std::string& directory) {
    db::DataSources sources(db::DataSources::embedded(directory));
    db::Databases databases(sources);
    const std::pair<const char*, db::Sql> all[] = {
        {"patients", "select count(*) from hPatients"_sql},
        {"patients in the name index",
         "select count(*) from vwhpatients where fullname like '%"_sql + std::string("NURSE") + "%'"},
        {"registration fees", "select count(*) from billAccum where drgName = 'REGISTRATION'"_sql},
        {"patient numbers", "select id from idgen where destNAme = 'PATIENT2'"_sql},
        {"visit numbers", "select id from idgen where destNAme = 'ConsultID2'"_sql},
        {"vital signs", "select count(*) from hPreConsult"_sql},
        {"charted with their twin", "select count(*) from hPreConsult p, hPreConsultChart c where c.ID = p.ID"_sql},
        {"nursing fees", "select count(*) from billAccum where drgName = 'NURSING FEE'"_sql},
        {"steps of visits", "select count(*) from hPatientsTimeline where ServicePoint = 'VITALS'"_sql},
        {"audit rows", "select count(*) from hAuditTrail"_sql}};
    std::map<std::string, std::int64_t> result;
    for (const auto& [name, sql] : all) result[name] = databases.named("Hospital").read(sql).value(0, 0).int64();
    return result;
}

/// Says what is not as it should be; the number of faults.
int reconcile(const std::map<std::string, std::int64_t>& before, const std::map<std::string, std::int64_t>& after,
              Work& work) {
    const auto registered = static_cast<std::int64_t>(work.times["frmPatientsNew"].size());
    const auto charted = static_cast<std::int64_t>(work.times["frmPreConsult"].size());
    int faults = 0;
    for (const auto& [name, count] : after) {
        const auto expected = name == "audit rows" ? 2 * registered + charted
                              : name == "vital signs" || name == "charted with their twin" || name == "nursing fees" ||
                                      name == "steps of visits"
                                  ? charted
                                  : registered;
        const auto grown = count - before.at(name);
        if (grown != expected) ++faults;
        std::printf("%s: %lld more, %lld expected%s\n", name.c_str(), static_cast<long long>(grown),
                    static_cast<long long>(expected), grown == expected ? "" : "  <-- WRONG");
    }
    for (const auto& failure : work.failures) std::printf("failed save: %s\n", failure.c_str());
    return faults + static_cast<int>(work.failures.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fputs("usage: bench_nurses PORT DIRECTORY USER PASSWORD [nurses] [seconds] [pause]\n", stderr);
        return 2;
    }
    const bench::Target target{argv[1], argv[3], argv[4]};
    const int count = argc > 5 ? std::stoi(argv[5]) : 50;
    const int seconds = argc > 6 ? std::stoi(argv[6]) : 60;
    const std::chrono::milliseconds pause(argc > 7 ? std::stoi(argv[7]) : 0);

    std::vector<std::unique_ptr<Nurse>> nurses;
    for (int i = 0; i < count; ++i) nurses.push_back(std::make_unique<Nurse>(target, i));
    const auto before = counts(argv[2]);
    Work work;
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    std::vector<std::thread> threads;
    for (const auto& nurse : nurses)
        threads.emplace_back([&work, &nurse, end, pause] {
            try {
                nurse->work(end, pause, work);
            } catch (const std::exception& error) {
                const std::lock_guard lock(work.mutex);
                work.failures.emplace_back(error.what());
            }
        });
    for (auto& thread : threads) thread.join();
    const int faults = reconcile(before, counts(argv[2]), work);
    for (auto& [screen, times] : work.times) {
        std::sort(times.begin(), times.end());
        std::printf("%s: %zu saves, %.0f a second, median %.1f ms, 99th percentile %.1f ms\n", screen.c_str(),
                    times.size(), static_cast<double>(times.size()) / seconds, bench::percentile(times, 0.5),
                    bench::percentile(times, 0.99));
    }
    return faults == 0 ? 0 : 1;
}
