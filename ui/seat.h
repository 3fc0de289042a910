#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "ui/desktop.h"

namespace ui {

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
