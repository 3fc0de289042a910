// Works a running host as browsers do: signs in many nurses, leaves some idle, lets others send one event a second, and
// prints the round trips and what a session costs the host in memory.
//
//     build/bench_host PORT PID USER PASSWORD [idle=500] [working=200] [seconds=30]

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "bench/page.h"

namespace {

using bench::Clock;
using bench::Page;
using bench::percentile;

/// Resident memory of a process in KiB.
long residentKiB(const std::string& pid) {
    std::ifstream status("/proc/" + pid + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
    throw std::runtime_error("no such process");
}

/// One nurse: an event a second, from a query with a printed list to a mere rearrangement.
std::vector<double> work(Page& page, int seconds, int number) {
    static const std::vector<nlohmann::json> events = {
        {{"fire", "MdiVorel.mnuPCOA"}}, {{"fire", "MdiVorel.mnuWindowCascade"}}, {{"get", "MdiVorel.lblTime"}}};
    std::vector<double> times;
    auto next = Clock::now() + std::chrono::milliseconds(number * 5);
    for (int i = 0; i < seconds; ++i, next += std::chrono::seconds(1)) {
        std::this_thread::sleep_until(next);
        const auto start = Clock::now();
        page.request(events[static_cast<std::size_t>(i + number) % events.size()]);
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    return times;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fputs("usage: bench_host PORT PID USER PASSWORD [idle] [working] [seconds]\n", stderr);
        return 2;
    }
    const bench::Target target{argv[1], argv[3], argv[4]};
    const int idle = argc > 5 ? std::stoi(argv[5]) : 500;
    const int working = std::min(argc > 6 ? std::stoi(argv[6]) : 200, idle);
    const int seconds = argc > 7 ? std::stoi(argv[7]) : 30;

    const long before = residentKiB(argv[2]);
    std::vector<std::unique_ptr<Page>> pages;
    for (int i = 0; i < idle; ++i) pages.push_back(std::make_unique<Page>(target));
    std::this_thread::sleep_for(std::chrono::seconds(2));
    std::printf("%d idle sessions: %.3f MiB each\n", idle,
                static_cast<double>(residentKiB(argv[2]) - before) / 1024.0 / idle);

    std::mutex mutex;
    std::vector<double> times;
    std::vector<std::thread> nurses;
    for (int i = 0; i < working; ++i)
        nurses.emplace_back([&, i] {
            const auto mine = work(*pages[static_cast<std::size_t>(i)], seconds, i);
            const std::lock_guard lock(mutex);
            times.insert(times.end(), mine.begin(), mine.end());
        });
    for (auto& nurse : nurses) nurse.join();
    std::sort(times.begin(), times.end());
    std::printf("%d working, %zu round trips: median %.2f ms, 99th percentile %.2f ms\n", working, times.size(),
                percentile(times, 0.5), percentile(times, 0.99));
}
