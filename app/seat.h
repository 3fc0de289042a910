#pragma once

#include "app/config.h"
#include "app/programdirectory.h"
#include "core/audit/pagesaves.h"
#include "core/session/workplace.h"
#include "ui/seat.h"

namespace app {

/// A nurse's session in the host: her program directory and her work place.
class NurseSeat : public ui::Seat {
public:
    /// `samples` opens the page of sample controls beside the main window.
    NurseSeat(db::DataSources& sources, const Config& config, const std::filesystem::path& sessions,
              const ui::SignedIn& who, ui::EventLoop& loop, bool samples = false);

    ui::Desktop& desktop() override { return place_.desktop; }
    void start() override;
    void idle() override { place_.databases.idle(); }
    void failed() override { place_.databases.rollbackAll(); }
    void noteSaves(const ui::SaveNotes& notes) override { core::notePageSaves(place_, user_, notes); }
    [[nodiscard]] std::optional<ui::StoredSave> lastSave(const std::string& session) override {
        return core::lastPageSave(place_, user_, session);
    }
    [[nodiscard]] std::filesystem::path programDirectory() const override { return directory_.path(); }
    [[nodiscard]] std::string hospitalName() const override;

private:
    ProgramDirectory directory_;
    core::Workplace place_;
    std::string user_;
    bool samples_;
};

/// What the suite would leave beside the program for this user.
SuiteFiles suiteFiles(const Config& config, const std::string& user);

}  // namespace app
