#pragma once

#include <condition_variable>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "db/error.h"
#include "tests/support/directory.h"
#include "tests/support/paths.h"
#include "ui/controls.h"
#include "ui/seat.h"
#include "web/config.h"
#include "web/nursesession.h"

namespace webtest {

namespace fs = std::filesystem;

/// A screen that does what a test needs to happen in a session.
class frmTest : public ui::Screen {
public:
    explicit frmTest(ui::Desktop& owner) : Screen(owner, "frmTest", "Test") {
        cmdHidden.setVisible(false);
        txtLocked.setEnabled(false);
    }
    static inline std::function<void()> works = [] {};  ///< on the session's thread
    std::function<void()> saves = [] {};
    ui::TextBox txtName{*this, "txtName"};
    ui::Button cmdAsk{*this, "cmdAsk", "Ask",
                      [this] { txtName.setText(desktop().askYesNo("Sure?", "Check") ? "yes" : "no"); }};
    ui::Button cmdFile{*this, "cmdFile", "File", [this] {
                           const auto name = desktop().pickFile("Choose");
                           const auto file = name ? desktop().chosenFile(*name) : std::nullopt;
                           txtName.setText(file && fs::exists(*file) ? file->extension().string() : "none");
                       }};
    ui::Button cmdReport{*this, "cmdReport", "Report", [this] {
                             desktop().report({"rptTest", "A <test>", db::Recordset()});
                         }};
    ui::Button cmdFail{*this, "cmdFail", "Fail", [] { throw db::Error(db::Category::other, "It failed"); }};
    ui::Button cmdHidden{*this, "cmdHidden", "Hidden", [this] { txtName.setText("worked"); }};
    ui::TextBox txtLocked{*this, "txtLocked"};
    ui::Button cmdWork{*this, "cmdWork", "Work", [this] {
                           txtName.setText("working");
                           desktop().showProgress();
                           works();
                           txtName.setText("done");
                       }};
    ui::Picture picPhoto{*this, "picPhoto"};
    ui::Button cmdPhoto{*this, "cmdPhoto", "Photo", [this] {
                            const auto size = static_cast<std::size_t>(std::stoi(txtName.text()));
                            picPhoto.setImage(db::Bytes(size, std::byte{'j'}));
                        }};
    ui::Button cmdSave{*this, "cmdSave", "Save", [this] { saves(); }};
    ui::Button cmdThrow{*this, "cmdThrow", "Throw", [] { throw 42; }};
    ui::Button cmdExit{*this, "cmdExit", "Exit", [this] { desktop().endSession("Good bye"); }};
};

class TestSeat : public ui::Seat {
public:
    explicit TestSeat(ui::EventLoop& loop) : desktop_(loop, "Test") {
        desktop_.provide("frmTest", [this] {
            auto screen = std::make_unique<frmTest>(desktop_);
            screen->saves = [this] { notes_.committed("frmTest"); };
            return screen;
        });
        directory_.write("ring1.wav", "RIFF");
        directory_.write("sysdoc.sys", "nurse");
    }
    ui::Desktop& desktop() override { return desktop_; }
    void start() override { desktop_.show("frmTest"); }
    void idle() override {}
    void failed() override {}
    void noteSaves(const ui::SaveNotes& notes) override { notes_ = notes; }
    std::optional<ui::StoredSave> lastSave(const std::string& session) override {
        if (session != std::string(64, 'a')) return std::nullopt;
        return ui::StoredSave{7, "frmTest"};
    }
    [[nodiscard]] fs::path programDirectory() const override { return directory_.path(); }
    [[nodiscard]] std::string hospitalName() const override { return "General & Co"; }

private:
    test::TemporaryDirectory directory_;
    ui::SaveNotes notes_;
    ui::Desktop desktop_;
};

inline std::unique_ptr<ui::Seat> makeTestSeat(const ui::SignedIn& who, ui::EventLoop& loop) {
    if (who.user == "nobody") throw std::runtime_error("no seat");
    return std::make_unique<TestSeat>(loop);
}

/// A page without a network: keeps what the session sends.
class TestPage : public web::Page {
public:
    void send(std::string line) override {
        const std::lock_guard lock(mutex_);
        lines_.push_back(nlohmann::json::parse(line));
        changed_.notify_all();
    }
    void close() override {
        const std::lock_guard lock(mutex_);
        closed_ = true;
        changed_.notify_all();
    }
    void readOn() override {
        const std::lock_guard lock(mutex_);
        ++readsOn_;
    }
    /// How often the session let it go on.
    int readsOn() {
        const std::lock_guard lock(mutex_);
        return readsOn_;
    }
    /// The next line; null where none comes.
    nlohmann::json next() {
        std::unique_lock lock(mutex_);
        if (!changed_.wait_for(lock, std::chrono::seconds(10), [&] { return read_ < lines_.size(); })) return {};
        return lines_[read_++];
    }
    bool closed() {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, std::chrono::seconds(10), [&] { return closed_; });
    }
    std::size_t unread() {
        const std::lock_guard lock(mutex_);
        return lines_.size() - read_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<nlohmann::json> lines_;
    std::size_t read_ = 0;
    bool closed_ = false;
    int readsOn_ = 0;
};

/// Waits until `holds` does, for a minute at most: sanitizers are slow.
template <class Holds>
bool eventually(const Holds& holds) {
    for (int i = 0; i < 6000 && !holds(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return holds();
}

}  // namespace webtest
