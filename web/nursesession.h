#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "ui/conversation.h"
#include "ui/seat.h"
#include "web/log.h"
#include "web/pictureshelf.h"
#include "web/reportshelf.h"
#include "web/token.h"

namespace web {

struct Config;

/// The page that shows a session, as the session sees it. Its members may be called on any thread.
class Page {
public:
    virtual ~Page() = default;
    virtual void send(std::string line) = 0;
    /// Closes the connection once everything sent has gone.
    virtual void close() = 0;
    /// The session has worked off what kept the page waiting: its next lines may come.
    virtual void readOn() = 0;
};

/// A signed-in nurse's session: a thread with her event loop and her seat. The network thread hands it the page's
/// lines; whatever goes wrong inside it ends, at worst, itself.
class NurseSession {
public:
    using Clock = std::chrono::steady_clock;

    /// Starts the thread.
    NurseSession(const Config& config, const ui::MakeSeat& makeSeat, ui::SignedIn who);
    NurseSession(const NurseSession&) = delete;
    NurseSession& operator=(const NurseSession&) = delete;
    /// Ends the session and waits for its thread.
    ~NurseSession();

    [[nodiscard]] const ui::SignedIn& who() const noexcept { return who_; }
    [[nodiscard]] Clock::time_point started() const noexcept { return started_; }
    /// A line of the log with the session's user, her address and the session's own short name.
    void log(Level level, std::string_view event, std::vector<LogField> more = {}) const noexcept;

    /// Gives the session a page: it gets the desktop as it is, an earlier page is told and closed.
    void attach(std::shared_ptr<Page> page);
    /// The page's connection is gone.
    void detach(const Page& page);
    /// A line of the page. Lines of a page that was replaced are dropped. False where so many bytes wait for the
    /// session that no more may come until it says so (`Page::readOn`).
    [[nodiscard]] bool receive(const Page& page, std::string line);

    /// Ends the session without the leave procedure, as a closed workstation would.
    void end(const std::string& reason);
    /// True once nothing of the session can be worked any more.
    [[nodiscard]] bool ended() const;
    /// True once the thread has nothing more to do.
    [[nodiscard]] bool over() const;
    /// How long the session has waited for a page; zero while it has one.
    [[nodiscard]] Clock::duration abandoned() const;

    [[nodiscard]] const ReportShelf& reports() const noexcept { return reports_; }
    [[nodiscard]] const PictureShelf& pictures() const noexcept { return pictures_; }
    /// The session's own folder; empty before the session has one.
    [[nodiscard]] std::filesystem::path programDirectory() const;
    /// Whether the session asks its page for a file now.
    [[nodiscard]] bool asksForFile() const noexcept { return asksForFile_; }
    /// The turn of a file that a page sends, one at a time: held while it comes. Nothing while another has it.
    [[nodiscard]] std::shared_ptr<void> beginUpload();
    /// Keeps an uploaded file and gives the token that answers a file question with it; "" where it cannot be kept.
    std::string keepUpload(const std::string& fileName, const std::string& content);

private:
    void work() noexcept;
    std::string live();
    void serve(ui::Seat& seat, ui::Conversation& conversation);
    std::string runToEnd(ui::Seat& seat, ui::Conversation& conversation);
    void runOn(ui::Seat& seat);
    void greet();
    void write(const std::string& line);
    void finish(const std::string& reason);
    void noteQuestion();
    void answer(const nlohmann::json& answer);
    void tellStored(const nlohmann::json& request, nlohmann::json& reply);
    void workedOff(std::size_t bytes);
    [[nodiscard]] std::vector<LogField> withSession(std::vector<LogField> more) const;
    void logFailure(const std::exception& error) const;
    [[nodiscard]] std::optional<std::filesystem::path> uploaded(const std::string& token) const;

    const Config& config_;
    ui::MakeSeat makeSeat_;
    ui::SignedIn who_;
    const Clock::time_point started_ = Clock::now();
    const std::string publicId_ = randomToken();  ///< names the session to its page; opens nothing
    ui::EventLoop loop_;
    ReportShelf reports_;
    PictureShelf pictures_;
    std::atomic<bool> asksForFile_ = false;
    ui::Seat* seat_ = nullptr;                  ///< on the session's thread only
    ui::Conversation* conversation_ = nullptr;  ///< on the session's thread only

    mutable std::mutex mutex_;  ///< for what follows
    std::shared_ptr<Page> page_;
    bool greeted_ = false;    ///< the page has the desktop; what is written before that, the desktop holds
    std::size_t queued_ = 0;  ///< bytes of lines on their way to the session
    bool pageWaits_ = false;  ///< the page was told that no more may come
    bool ended_ = false;
    bool over_ = false;
    std::string lastLine_;  ///< what a page that comes too late is told
    Clock::time_point abandonedSince_ = Clock::now();
    std::filesystem::path programDirectory_;
    std::map<std::string, std::filesystem::path> uploads_;  ///< by token
    std::weak_ptr<void> uploading_;

    std::thread thread_;
};

}  // namespace web
