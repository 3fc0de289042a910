#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/forms/form.h"
#include "core/session/loadsession.h"
#include "core/session/mainwindow.h"
#include "core/session/workplace.h"
#include "tests/support/hospital.h"

namespace test {

/// Stands for the main window, and notes what the shared routines ask of it.
class MainStub : public core::Form, public core::MainWindow {
public:
    explicit MainStub(core::Workplace& place) : Form(place, "MdiVorel", "") {
        desktop().setMain(*this);
        place.mainWindow = this;
    }
    void showDebt(const std::string& text) override { calls.push_back("debt " + text); }
    void Timer2_Timer() override { calls.emplace_back("Timer2"); }
    void enableTimer2(bool enabled) override { calls.emplace_back(enabled ? "enable" : "disable"); }
    std::vector<std::string> calls;
};

/// A hospital whose nurse has a main window to come to.
class Ward : public TestHospital {
public:
    Ward() { provideMainWindow(); }
    explicit Ward(const HospitalFiles& files) : TestHospital(files) { provideMainWindow(); }
    /// Starts the session, and forgets what that did.
    void start() {
        core::LoadSession(place);
        forget();
    }
    [[nodiscard]] MainStub& main() const { return dynamic_cast<MainStub&>(*place.desktop.main()); }
    int mainWindowsMade = 0;

private:
    void provideMainWindow() {
        place.desktop.provide("MdiVorel", [this] {
            ++mainWindowsMade;
            return std::make_unique<MainStub>(place);
        });
    }
};

}  // namespace test
