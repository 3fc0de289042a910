#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "ui/desktop.h"

namespace ui {

/// A save that was stored: the request of a session's page that brought it, counted from 1, and the screen's name.
struct StoredSave {
    std::uint64_t request;
    std::string screen;
};

/// What a seat needs to note its saves, so that a page whose host went away can ask what became of them.
struct SaveNotes {
    std::string session;                                       ///< a random name of the session, known to its page
    std::function<std::uint64_t()> request;                    ///< the number of the request that is being served
    std::function<void(const std::string& screen)> committed;  ///< hears of each save when it is stored
};

/// One nurse's session as the host sees it: her desktop, and what to do at its turns. It is made, worked and destroyed
/// on the session's thread.
class Seat {
public:
    virtual ~Seat() = default;
    virtual Desktop& desktop() = 0;
    /// Starts the session; returns when the main window is open. May end the session.
    virtual void start() = 0;
    /// The loop is about to wait for the nurse.
    virtual void idle() = 0;
    /// An error that no trap took: what is open is rolled back before its description is shown.
    virtual void failed() = 0;
    /// From now on each save is noted with the request that brought it, in the save's own transaction.
    virtual void noteSaves(const SaveNotes& /*notes*/) {}
    /// The last save of an earlier session of the same user; nothing where there is none.
    [[nodiscard]] virtual std::optional<StoredSave> lastSave(const std::string& /*session*/) { return std::nullopt; }
    /// Where the session's own files lie ("the program directory"); empty where it has none.
    [[nodiscard]] virtual std::filesystem::path programDirectory() const { return {}; }
    /// Stands at the head of printed pages.
    [[nodiscard]] virtual std::string hospitalName() const { return {}; }
};

/// Who sits down.
struct SignedIn {
    std::string user;         ///< the name signed in with
    std::string workstation;  ///< the address of the browser
};

using MakeSeat = std::function<std::unique_ptr<Seat>(const SignedIn&, EventLoop&)>;

}  // namespace ui
