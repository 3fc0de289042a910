#include "web/nursesession.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <nlohmann/json.hpp>
#include <typeinfo>

#include "db/error.h"
#include "web/config.h"
#include "web/log.h"
#include "web/token.h"

namespace web {

namespace {

namespace fs = std::filesystem;

constexpr int mostQueued = 1000;
constexpr std::size_t mostUploads = 10;
constexpr const char* brokenReason = "The session could not go on. Sign in again.";

std::string endedLine(const std::string& reason) {
    const nlohmann::json line{{"events", {{{"ended", reason}}}}, {"waiting", nullptr}};
    return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// A run-time error's description may stand in a log, other exceptions' texts may hold anything.
void logFailure(const std::string& user, const std::exception& error) {
    if (const auto* known = dynamic_cast<const db::Error*>(&error)) {
        log(Level::error, "session-error",
            {{"user", user}, {"operation", known->operation()}, {"error", known->what()}, {"cause", known->cause()}});
    } else {
        log(Level::error, "session-error", {{"user", user}, {"type", typeid(error).name()}});
    }
}

/// ".jpg" of "Photo.JPG"; "" where the name has none that is plain.
std::string plainExtension(const std::string& fileName) {
    std::string extension = fs::path(fileName).extension().string();
    const auto plain = [](unsigned char c) { return std::isalnum(c) != 0; };
    if (extension.size() < 2 || extension.size() > 9 || !std::all_of(extension.begin() + 1, extension.end(), plain))
        return {};
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

}  // namespace

NurseSession::NurseSession(const Config& config, const ui::MakeSeat& makeSeat, ui::SignedIn who)
    : config_(config),
      makeSeat_(makeSeat),
      who_(std::move(who)),
      reports_(static_cast<std::size_t>(config.reportsKept)),
      thread_([this] { work(); }) {}

NurseSession::~NurseSession() {
    end("The host is going down.");
    thread_.join();
}

void NurseSession::attach(std::shared_ptr<Page> page) {
    std::shared_ptr<Page> replaced;
    {
        const std::lock_guard lock(mutex_);
        if (ended_) {
            page->send(lastLine_);
            page->close();
            return;
        }
        replaced = std::exchange(page_, std::move(page));
        greeted_ = false;
    }
    if (replaced) {
        replaced->send(R"({"replaced":true})");
        replaced->close();
    }
    loop_.post([this] { greet(); });
}

void NurseSession::detach(const Page& page) {
    const std::lock_guard lock(mutex_);
    if (page_.get() != &page) return;
    page_.reset();
    abandonedSince_ = Clock::now();
}

bool NurseSession::receive(const Page& page, std::string line) {
    {
        const std::lock_guard lock(mutex_);
        if (page_.get() != &page || ended_) return true;
        if (queued_ >= mostQueued) return false;
        ++queued_;
    }
    loop_.post([this, line = std::move(line)] {
        {
            const std::lock_guard lock(mutex_);
            --queued_;
        }
        conversation_->receive(line);
    });
    return true;
}

void NurseSession::end(const std::string& reason) {
    loop_.post([reason] { throw ui::SessionEnded{reason}; });
}

bool NurseSession::ended() const {
    const std::lock_guard lock(mutex_);
    return ended_;
}

bool NurseSession::over() const {
    const std::lock_guard lock(mutex_);
    return over_;
}

NurseSession::Clock::duration NurseSession::abandoned() const {
    const std::lock_guard lock(mutex_);
    return page_ ? Clock::duration{} : Clock::now() - abandonedSince_;
}

fs::path NurseSession::programDirectory() const {
    const std::lock_guard lock(mutex_);
    return programDirectory_;
}

std::string NurseSession::keepUpload(const std::string& fileName, const std::string& content) {
    const fs::path directory = programDirectory();
    if (directory.empty()) return {};
    std::error_code error;
    fs::create_directory(directory / "uploads", error);
    std::string token = randomToken();
    const fs::path file = directory / "uploads" / (token + plainExtension(fileName));
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    if (!stream.flush()) return {};

    const std::lock_guard lock(mutex_);
    if (uploads_.size() >= mostUploads) {
        fs::remove(uploads_.begin()->second, error);
        uploads_.erase(uploads_.begin());
    }
    uploads_.emplace(token, file);
    return token;
}

void NurseSession::work() noexcept {
    std::string reason = brokenReason;
    try {
        reason = live();
    } catch (const ui::SessionEnded& ended) {
        reason = ended.reason;
    } catch (const std::exception& error) {
        logFailure(who_.user, error);
    } catch (...) {
        log(Level::error, "session-error", {{"user", who_.user}, {"type", "unknown"}});
    }
    finish(reason);
}

std::string NurseSession::live() {
    loop_.setTimersRun(true);
    const auto seat = makeSeat_(who_, loop_);
    seat->desktop().setOpensWithState(true);  // a page draws a screen from the event that opens it
    {
        const std::lock_guard lock(mutex_);
        programDirectory_ = seat->programDirectory();
    }
    ui::Conversation conversation(seat->desktop(), [this](const std::string& line) { write(line); });
    conversation.add("answer",
                     [this](const nlohmann::json& request, nlohmann::json&) { answer(request.at("answer")); });
    seat->desktop().setReportKeeper(
        [this, &seat](const ui::Report& report) { return reports_.keep(report, seat->hospitalName()); });
    seat->desktop().setOnFailure([this, &seat] {
        log(Level::warning, "screen-error", {{"user", who_.user}});
        seat->failed();
    });
    loop_.setBeforeWait([&] {
        conversation.flush();
        seat->idle();
    });
    seat_ = seat.get();
    conversation_ = &conversation;
    std::string reason = runToEnd(*seat, conversation);
    loop_.setBeforeWait({});
    seat_ = nullptr;
    conversation_ = nullptr;
    return reason;
}

std::string NurseSession::runToEnd(ui::Seat& seat, ui::Conversation& conversation) {
    std::string reason;
    try {
        seat.desktop().attempt([&] { seat.start(); });
        for (;;) runOn(seat);
    } catch (const ui::SessionEnded& ended) {
        reason = ended.reason;
    }
    seat.failed();
    conversation.ended(reason);
    return reason;
}

/// Runs the loop. Requests and timers show their own failures; one that comes through here is no run-time error of
/// a screen, and still no reason to take the nurse's work from her.
void NurseSession::runOn(ui::Seat& seat) {
    try {
        loop_.run();
    } catch (const ui::SessionEnded&) {
        throw;
    } catch (const std::exception& error) {
        logFailure(who_.user, error);
        seat.failed();
    } catch (...) {
        log(Level::error, "session-error", {{"user", who_.user}, {"type", "unknown"}});
        seat.failed();
    }
    seat.desktop().message("Unexpected error", ui::Icon::stop);
}

void NurseSession::greet() {
    conversation_->flush();
    const nlohmann::json snapshot = seat_->desktop().snapshot();
    nlohmann::json line{{"snapshot", snapshot}, {"received", conversation_->received()}};
    line["waiting"] = seat_->desktop().question();
    std::string text = line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);

    const std::lock_guard lock(mutex_);
    if (!page_ || greeted_) return;
    page_->send(std::move(text));
    greeted_ = true;
}

void NurseSession::write(const std::string& line) {
    const std::lock_guard lock(mutex_);
    if (page_ && greeted_) page_->send(line);
}

void NurseSession::finish(const std::string& reason) {
    std::shared_ptr<Page> page;
    bool told = false;
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        lastLine_ = endedLine(reason);
        page = std::exchange(page_, nullptr);
        told = greeted_;
    }
    if (page && !told) page->send(lastLine_);
    if (page) page->close();
    page.reset();
    log(Level::info, "session-ended", {{"user", who_.user}, {"address", who_.workstation}});
    const std::lock_guard lock(mutex_);
    over_ = true;
}

/// A page names its own uploads by their tokens and never a path of this machine.
void NurseSession::answer(const nlohmann::json& answer) {
    if (!answer.is_object() || !answer.contains("file")) return seat_->desktop().answer(answer);
    const auto& token = answer["file"];
    fs::path file;
    if (token.is_string()) {
        const std::lock_guard lock(mutex_);
        const auto found = uploads_.find(token.get<std::string>());
        if (found != uploads_.end()) file = found->second;
    }
    if (file.empty()) throw ui::Refused{"no such uploaded file"};
    seat_->desktop().answer({{"file", file.string()}});
}

}  // namespace web
