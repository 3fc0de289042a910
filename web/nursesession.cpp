#include "web/nursesession.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <nlohmann/json.hpp>
#include <typeinfo>

#include "db/error.h"
#include "web/config.h"

namespace web {

namespace {

namespace fs = std::filesystem;

/// What a line takes in the queue beside its bytes.
constexpr std::size_t lineCost = 200;
constexpr std::size_t mostUploads = 10;
constexpr const char* brokenReason = "The session could not go on. Sign in again.";

std::string endedLine(const std::string& reason) {
    const nlohmann::json line{{"events", {{{"ended", reason}}}}, {"waiting", nullptr}};
    return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
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
        pageWaits_ = false;
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
    const std::size_t bytes = line.size() + lineCost;
    bool more = true;
    {
        const std::lock_guard lock(mutex_);
        if (page_.get() != &page || ended_) return true;
        queued_ += bytes;
        more = queued_ <= static_cast<std::size_t>(config_.mostQueued);
        pageWaits_ = !more;
    }
    loop_.post([this, bytes, line = std::move(line)] {
        workedOff(bytes);
        conversation_->receive(line);
    });
    return more;
}

void NurseSession::workedOff(std::size_t bytes) {
    const std::lock_guard lock(mutex_);
    queued_ -= bytes;
    if (!page_ || !pageWaits_ || queued_ > static_cast<std::size_t>(config_.mostQueued) / 2) return;
    pageWaits_ = false;
    page_->readOn();
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

void NurseSession::log(Level level, std::string_view event, std::vector<LogField> more) const noexcept try {
    web::log(level, event, withSession(std::move(more)));
} catch (const std::exception&) {
    return;
}

std::vector<LogField> NurseSession::withSession(std::vector<LogField> more) const {
    constexpr std::size_t shortName = 8;
    more.insert(more.begin(),
                {{"user", who_.user}, {"address", who_.workstation}, {"session", publicId_.substr(0, shortName)}});
    return more;
}

/// A database error's description holds no value and may stand in a log; other exceptions' texts may hold anything.
void NurseSession::logFailure(const std::exception& error) const {
    if (const auto* known = dynamic_cast<const db::Error*>(&error))
        return log(Level::error, "error-shown",
                   {{"operation", known->operation()}, {"error", known->what()}, {"cause", known->cause()}});
    log(Level::error, "error-shown", {{"type", typeid(error).name()}});
}

std::shared_ptr<void> NurseSession::beginUpload() {
    const std::lock_guard lock(mutex_);
    if (!uploading_.expired()) return nullptr;
    auto turn = std::make_shared<char>();
    uploading_ = turn;
    return turn;
}

std::optional<fs::path> NurseSession::uploaded(const std::string& token) const {
    const std::lock_guard lock(mutex_);
    const auto found = uploads_.find(token);
    if (found == uploads_.end()) return std::nullopt;
    return found->second;
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
        logFailure(error);
    } catch (...) {
        log(Level::error, "error-shown", {{"type", "unknown"}});
    }
    try {
        finish(reason);
    } catch (const std::exception&) {  // no memory for its last words
        log(Level::error, "session-ended");
    }
    const std::lock_guard lock(mutex_);
    over_ = true;
}

std::string NurseSession::live() {
    loop_.setTimersRun(true);
    const auto seat = makeSeat_(who_, loop_);
    {
        const std::lock_guard lock(mutex_);
        programDirectory_ = seat->programDirectory();
    }
    ui::Conversation conversation(seat->desktop(), [this](const std::string& line) { write(line); });
    serve(*seat, conversation);
    seat_ = seat.get();
    conversation_ = &conversation;
    std::string reason = runToEnd(*seat, conversation);
    loop_.setBeforeWait({});
    seat_ = nullptr;
    conversation_ = nullptr;
    return reason;
}

/// Joins the seat, its page's talk and what the host keeps for the page.
void NurseSession::serve(ui::Seat& seat, ui::Conversation& conversation) {
    using nlohmann::json;
    conversation.add("answer", [this](const json& request, json&) { answer(request.at("answer")); });
    conversation.add("stored", [this](const json& request, json& reply) { tellStored(request, reply); });
    conversation.setOnMalformed([this](const std::string& why) {
        logOften(Level::warning, "page-request-refused", withSession({{"why", why}}));
    });
    ui::Desktop& desktop = seat.desktop();
    desktop.setServesPage(true);
    desktop.setOnProgress([&conversation] { conversation.push(); });
    desktop.setReportKeeper(
        [this, &seat](const ui::Report& report) { return reports_.keep(report, seat.hospitalName()); });
    desktop.setPictureKeeper([this](const auto& jpeg) { return pictures_.keep(jpeg); });
    desktop.setOnFailure([&seat] { seat.failed(); });
    desktop.setOnError([this](const std::exception& error) { logFailure(error); });
    desktop.setFileFinder([this](const std::string& token) { return uploaded(token); });
    seat.noteSaves({publicId_, [&conversation] { return conversation.received(); },
                    [&conversation](const std::string& screen) { conversation.note("saved", screen); }});
    loop_.setBeforeWait([this, &seat, &conversation] {
        noteQuestion();
        conversation.flush();
        seat.idle();
    });
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
        logFailure(error);
        seat.failed();
    } catch (...) {
        log(Level::error, "error-shown", {{"type", "unknown"}});
        seat.failed();
    }
    seat.desktop().message("Unexpected error", ui::Icon::stop);
}

void NurseSession::greet() {
    conversation_->flush();
    const nlohmann::json snapshot = seat_->desktop().snapshot();
    nlohmann::json line{{"snapshot", snapshot},
                        {"received", conversation_->received()},
                        {"session", publicId_},
                        {"user", who_.user},
                        {"host", runToken()}};
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
    log(Level::info, "session-ended", {{"reason", reason}});
}

/// Before the page hears of a question for a file it may send one.
void NurseSession::noteQuestion() {
    const auto* open = seat_->desktop().waiting();
    asksForFile_ = open && open->kind == ui::Desktop::Question::Kind::file;
}

/// A page names its own uploads by their tokens and never a path of this machine.
void NurseSession::answer(const nlohmann::json& answer) {
    if (answer.is_object() && answer.contains("file")) {
        const auto& token = answer["file"];
        if (!token.is_string() || !uploaded(token.get<std::string>())) throw ui::Refused{"no such uploaded file"};
    }
    seat_->desktop().answer(answer);
    noteQuestion();
}

/// What became of the saves of an earlier session, whose page asks because its host or its line went away.
void NurseSession::tellStored(const nlohmann::json& request, nlohmann::json& reply) {
    const auto session = ui::textOf(request, "stored");
    if (!isToken(session)) throw ui::Refused{"stored takes the name of a session"};
    const auto save = seat_->lastSave(session);  // without an answer there is no state
    reply["state"] = save ? nlohmann::json{{"request", save->request}, {"screen", save->screen}} : nlohmann::json();
}

}  // namespace web
