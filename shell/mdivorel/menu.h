#pragma once

#include <functional>
#include <string>
#include <vector>

namespace shell {

class MdiVorel;

/// What an entry does.
struct MenuAction {
    std::string screen;                  ///< the screen that it opens, if it opens one
    std::function<void(MdiVorel&)> run;  ///< empty for an entry that does nothing, and for a separator
};

enum class Shown {
    always,
    never,
    atDesk  ///< where the host's nurses work the front desk too: `Settings::deskInMenu`
};

struct MenuEntry {
    std::string name;
    std::string caption;  ///< "-" for a separator
    Shown shown;
    MenuAction action;
};

/// A heading of the menu bar. Under a hidden one every entry is out of reach, whatever its own mark.
struct MenuHeading {
    std::string name;
    std::string caption;
    Shown shown;
    std::vector<MenuEntry> entries;
};

/// The main window's menu tree, in the order of the screen. Nothing changes an entry's visibility later.
const std::vector<MenuHeading>& mainMenu();

/// Every screen that the main window opens, from its menu or its panel: sorted, each once.
std::vector<std::string> screensOfMenu();

}  // namespace shell
