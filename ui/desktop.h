#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "ui/captions.h"
#include "ui/eventloop.h"
#include "ui/screen.h"

namespace ui {

enum class Icon { none, information, warning, stop };

/// A printable list: what a report entry opens.
struct Report {
    std::string name;   ///< "rptVitalSigns"
    std::string title;  ///< may be empty
    db::Recordset rows;
    std::string period = {};  ///< whom and which days it is about, in a line under the title; may be empty

    /// What stands above it: its title, or its name in words.
    [[nodiscard]] std::string heading() const { return title.empty() ? wordsOfName(name) : title; }
};

/// Where a session's screens live: it opens and closes them, shows boxes, moves the focus, and tells a client in order
/// what happened. All members run on the session's thread.
class Desktop {
public:
    using Factory = std::function<std::unique_ptr<Screen>()>;
    /// Takes an event of the wire form as it happens. The sink hears of changes right before the next event that is
    /// none, and at `flushChanges`.
    using Sink = std::function<void(nlohmann::json)>;
    /// A question that waits for its answer. Answers are the texts of the protocol.
    struct Question {
        enum class Kind { message, yesno, input, file };
        Kind kind;
        std::string text;
        std::string title;
        std::string preset;  ///< of an input box
        Icon icon = Icon::none;
        std::string accept = {};  ///< of a file pick: the media type that is wanted ("image/jpeg"), or "" for any
    };

    Desktop(EventLoop& loop, std::string programTitle);
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop();

    [[nodiscard]] EventLoop& loop() const noexcept { return loop_; }

    // -- screens --
    /// Makes a screen known by its name.
    void provide(std::string name, Factory factory);
    [[nodiscard]] bool provides(std::string_view name) const;
    /// The provided names, sorted.
    [[nodiscard]] std::vector<std::string> provided() const;
    /// Shows a screen as a child: hidden first if it exists, made and loaded if it does not, and then the active one.
    /// A screen that nobody provides yet says so in a box.
    void show(std::string_view name);
    /// The same, and returns when the screen has been hidden or closed.
    void showModal(std::string_view name);
    void hide(std::string_view name);
    /// Closes a screen: asks `queryUnload`, runs `unload`, and drops it when no operation of it runs any more. False if
    /// it refused.
    bool unload(std::string_view name);
    /// The loaded screen of this name in any letter case, or nothing.
    [[nodiscard]] Screen* loaded(std::string_view name) const;
    /// The loaded screens, in the order of loading.
    [[nodiscard]] std::vector<Screen*> screens() const;
    /// The child screen that the user works in, or nothing. The main window is no child.
    [[nodiscard]] Screen* activeChild() const noexcept { return activeChild_; }
    void activate(Screen& screen);
    /// Says which loaded screen is the main window.
    void setMain(Screen& screen) noexcept { main_ = &screen; }
    [[nodiscard]] Screen* main() const noexcept { return main_; }

    // -- boxes: questions return when they are answered --
    /// A box with OK only. It waits for its OK by itself, and the operation goes on behind it until it asks something,
    /// opens a modal screen or ends the session: what a save still has to do never waits for a nurse who has gone.
    /// The same box a second time, while nobody has read it, shows once. An empty title stands for the program's.
    void message(const std::string& text, Icon icon = Icon::none, const std::string& title = {});
    [[nodiscard]] bool askYesNo(const std::string& text, const std::string& title);
    /// Nothing when it was cancelled.
    [[nodiscard]] std::optional<std::string> askInput(const std::string& text, const std::string& title,
                                                      const std::string& preset = {});
    /// The name of the chosen file, which a text box may hold: see `chosenFile`. `accept` is a hint for the page: a
    /// tablet then offers its camera for pictures.
    [[nodiscard]] std::optional<std::string> pickFile(const std::string& title, const std::string& accept = {});
    /// The file behind such a name; nothing where this session chose none of that name. For a script the name is the
    /// file's path; a host sets what its pages may name (`setFileFinder`).
    [[nodiscard]] std::optional<std::filesystem::path> chosenFile(const std::string& name) const;
    using FileFinder = std::function<std::optional<std::filesystem::path>(const std::string& name)>;
    void setFileFinder(FileFinder finder) { findFile_ = std::move(finder); }
    /// Runs before any box opens; tests refuse there boxes that keep other writers waiting.
    void setBeforeBox(std::function<void(const Question&)> beforeBox) { beforeBox_ = std::move(beforeBox); }
    /// Boxes with OK only answer themselves (scripts), instead of waiting.
    void setAcknowledges(bool acknowledges) noexcept { acknowledges_ = acknowledges; }
    /// The box that shows, or nothing.
    [[nodiscard]] const Question* waiting() const noexcept;
    /// The wire form of the open question, or null.
    [[nodiscard]] nlohmann::json question() const;
    /// Answers the open question: "ok", "yes", "no", "cancel", the text of an input box, or {"file":NAME}.
    /// Throws Refused where none is open or the answer is none to it.
    void answer(const nlohmann::json& answer);

    // -- what a client hears --
    void setSink(Sink sink) { sink_ = std::move(sink); }
    /// Moves the focus, with the page that the control lies on; on a screen that does not show yet, when it opens.
    void focus(Control& control);
    void sound(const std::string& file);
    void report(Report report);
    /// Asks the page to print a screen: `{"print":"frmX"}`.
    void print(const Screen& screen);
    /// Keeps each report for whoever shows it and gives its number, which the event then carries as `id`. Called on
    /// the session's thread.
    using ReportKeeper = std::function<std::uint64_t(const Report&)>;
    void setReportKeeper(ReportKeeper keeper) { reportKeeper_ = std::move(keeper); }
    void flushChanges();
    /// For an operation that will take a while, when it has said so on its screen: a client that can look on is told
    /// what happened so far (`setOnProgress`), and not only when all is done.
    void showProgress();
    void setOnProgress(std::function<void()> onProgress) { onProgress_ = std::move(onProgress); }
    /// The client is a page: `opened` events carry the screen's whole state under "state", which it draws at once, and
    /// boxes are told by the open question alone, which it shows.
    void setServesPage(bool servesPage) noexcept { servesPage_ = servesPage; }
    /// Gives the address under which the client finds a picture, or "" where it finds none, as long as the picture
    /// stands. Without one pictures go over the wire themselves. Called on the session's thread.
    using PictureKeeper = std::function<std::string(const std::shared_ptr<const db::Bytes>& jpeg)>;
    void setPictureKeeper(PictureKeeper keeper) { pictureKeeper_ = std::move(keeper); }
    [[nodiscard]] const PictureKeeper& pictureKeeper() const noexcept { return pictureKeeper_; }
    [[nodiscard]] const std::string& programTitle() const noexcept { return programTitle_; }
    /// The main window, the open screens in order, the active one: what a page needs to draw itself.
    [[nodiscard]] nlohmann::json snapshot() const;

    /// Ends the session: unwinds everything that runs. Boxes that still show are waited for; then the page closes with
    /// the reason.
    [[noreturn]] void endSession(const std::string& reason = {});

    // -- the user --
    /// The user did something: a request came. Tests say when.
    void noteActivity(EventLoop::Clock::time_point when = EventLoop::Clock::now()) noexcept { lastActivity_ = when; }
    [[nodiscard]] EventLoop::Clock::time_point lastActivity() const noexcept { return lastActivity_; }
    /// Takes boxes with OK only away unread: for a user who is not there any more.
    void dropTold();

    // -- work from outside --
    /// Runs work for a client: an error that none of its traps took rolls back what is open (`setOnFailure`) and shows
    /// its description. Refused and SessionEnded pass.
    void attempt(const std::function<void()>& work);
    /// What a user reads of a run-time error, which whoever keeps the log (`setOnError`) hears of: a database error's
    /// own description, and a plain sentence for anything else, whose own text is for developers.
    [[nodiscard]] std::string describe(const std::exception& error) const;
    void setOnError(std::function<void(const std::exception&)> onError) { onError_ = std::move(onError); }
    /// Runs before the description of an error that no trap took is shown.
    void setOnFailure(std::function<void()> onFailure) { onFailure_ = std::move(onFailure); }
    /// Runs an event by its path: "MdiVorel.mnuVitSigns", "frmX.grdData.DblClick", "frmX.Unload", "frmX.Activate".
    /// Throws Refused for unknown names, and for controls out of reach unless forced.
    void fire(std::string_view path, bool force);
    /// What a user's typing or picking does. Throws Refused.
    void set(std::string_view path, const nlohmann::json& content, bool force);
    /// Tells a window of a list: the items that hold a text, from a place among them on. Runs nothing of the screen.
    /// Throws Refused for what is no list, and for one that does not show.
    void browse(std::string_view path, std::string_view wanted, std::size_t from);
    /// Runs a timer's job once if the timer runs. Throws Refused for what is no timer.
    void tick(std::string_view path);
    /// A control's or screen's state. Throws Refused.
    [[nodiscard]] nlohmann::json get(std::string_view path) const;

private:
    friend class Screen;
    friend class Control;
    struct Impl;
    class Operation;
    struct Modal;
    struct Target {
        Screen* screen;
        Control* control;
        std::string event;
    };

    void changed(const Control& control, std::string_view property);
    void captionChanged(const Screen& screen);
    void forget(const Control& control) noexcept;

    void rowsTold(const Screen& screen);
    nlohmann::json changeOf(const Control& control, std::string_view property);
    nlohmann::json newsOf(const Control& control, const std::vector<std::string_view>& properties);
    void emit(nlohmann::json event);
    void emitBox(nlohmann::json event);
    /// The screen of this name, hidden and ready to be shown; nothing when there is none, which a box has said.
    Screen* ready(std::string_view name);
    Screen* make(std::string_view name);
    void open(Screen& screen, bool modal);
    void hide(Screen& screen);
    void close(Screen& screen);
    void drop(Screen& screen);
    void leave(Screen& screen, nlohmann::json event);
    [[nodiscard]] bool isChild(const Screen& screen) const;
    void childrenChanged();
    nlohmann::json ask(const Question& question);
    void awaitTold();

    [[nodiscard]] Target target(std::string_view path) const;
    void checkWorkable(const Target& target) const;
    bool fireScreen(const Target& target);
    void believe(Control& control, const nlohmann::json& content);

    EventLoop& loop_;
    std::string programTitle_;
    std::unique_ptr<Impl> impl_;
    Screen* activeChild_ = nullptr;
    Screen* main_ = nullptr;
    const Question* asked_ = nullptr;
    EventLoop::Clock::time_point lastActivity_ = EventLoop::Clock::now();
    bool acknowledges_ = false;
    bool servesPage_ = false;
    Sink sink_;
    std::function<void()> onProgress_;
    std::function<void(const Question&)> beforeBox_;
    ReportKeeper reportKeeper_;
    PictureKeeper pictureKeeper_;
    FileFinder findFile_ = [](const std::string& name) { return std::filesystem::path(name); };
    std::function<void()> onFailure_;
    std::function<void(const std::exception&)> onError_;
};

}  // namespace ui
