#pragma once

#include "shell/screens.h"
#include "tests/contract/plainscreen.h"

namespace test {

/// A nurse at one of the small screens behind the alert panel.
class SmallScreen : public PlainScreen {
protected:
    SmallScreen(std::string screen, void (*arrange)(TestHospital&) = {})
        : PlainScreen(std::move(screen), &shell::provideScreens, arrange) {}
};

}  // namespace test
