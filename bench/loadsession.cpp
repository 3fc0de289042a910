// The start of a nurse's session on the demonstration hospital: both files, the identity check, all defaults, the
// clock, the main window with its UserActivities row.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "core/session/loadsession.h"
#include "core/session/workplace.h"
#include "hospital/schema.h"
#include "shell/accounts/users.h"
#include "shell/screens.h"

namespace {

class Host {
public:
    Host() : directory_(std::filesystem::temp_directory_path() / ("vorel-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(directory_);
        hospital::createDatabases(directory_);
        sources = std::make_unique<db::DataSources>(db::DataSources::embedded(directory_));
        shell::NewUser nurse;
        nurse.name = "nurse";
        nurse.password = "benchmark";
        nurse.roles = {"NURSING"};
        shell::addUser(*sources, nurse, core::Settings::builtInEncodingTable());
        std::ofstream(directory_ / "made.sys") << "SVR=SERVER\nHNO=001\n";
        std::ofstream(directory_ / "sysdoc.sys") << "nurse\n";
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() {
        sources.reset();
        std::filesystem::remove_all(directory_);
    }
    [[nodiscard]] core::Settings settings() const {
        core::Settings settings;
        settings.programDirectory = directory_;
        return settings;
    }
    std::unique_ptr<db::DataSources> sources;

private:
    std::filesystem::path directory_;
};

void loadSession(benchmark::State& state) {
    const Host host;
    for (auto _ : state) {
        ui::EventLoop loop;
        core::Workplace place(*host.sources, loop, host.settings());
        place.desktop.setAcknowledges(true);
        shell::provideScreens(place);
        core::LoadSession(place);
        if (place.desktop.main() == nullptr) state.SkipWithError("the session did not start");
    }
}
BENCHMARK(loadSession)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
