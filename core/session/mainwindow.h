#pragma once

#include <string>

namespace core {

/// What the shared routines need of the main window; it registers itself with the workplace and is absent before it
/// opens and in tests of single routines.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    virtual void showDebt(const std::string& text) = 0;
    virtual void Timer2_Timer() = 0;
    virtual void enableTimer2(bool enabled) = 0;
};

}  // namespace core
