#pragma once

#include <string>
#include <vector>

#include "ui/screen.h"

namespace test {

/// What is wrong with a screen's layout, one line each: a name that the screen does not have, a control that a user
/// could not find in it, a button or tick box without a caption.
std::vector<std::string> faultsOfLayout(const ui::Screen& screen);

}  // namespace test
