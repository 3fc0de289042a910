#include "tests/contract/layouts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

#include "db/letters.h"
#include "tests/support/paths.h"
#include "ui/captions.h"

namespace test {
namespace {

using nlohmann::json;

/// Nothing where the screen has no layout.
json layoutOf(const std::string& screen) {
    std::ifstream file(buildDirectory() / "layouts" / (screen + ".json"));
    return file ? json::parse(file) : json();
}

/// The names in rows, buttons and tab sets: "chk(1..24)" stands for the elements of an array.
void collect(const json& part, std::set<std::string>& names) {
    if (part.is_string()) {
        names.insert(db::lowered(part.get<std::string>()));
    } else if (part.is_array()) {
        for (const auto& each : part) collect(each, names);
    } else if (part.is_object()) {
        for (const char* key : {"control", "for", "tabs", "rows", "pages", "sections", "beside", "buttons", "default",
                                "cancel", "record", "patient", "name", "facts"})
            if (part.contains(key)) collect(part[key], names);
    }
}

const char* const commands[] = {"cmdadd", "cmdedit", "cmddel", "cmdrefresh", "okbutton", "cmdcancel", "cancelbutton"};

bool isDrawn(const std::string& kind) {
    return kind != "timer" && kind != "menuItem" && kind != "childArea";
}

/// Panels, which are drawn as what they hold.
std::set<std::string> holdersOn(const ui::Screen& screen) {
    std::set<std::string> holders;
    for (const auto* control : screen.controls()) {
        const auto state = control->state();
        if (state.contains("holder")) holders.insert(state["holder"].get<std::string>());
    }
    return holders;
}

/// Whether a column's name reads as words: by the table of captions, or as it stands ("Date").
bool inWords(const std::string& column) {
    const auto isSmall = [](char c) { return c == ' ' || (db::isLetter(c) && db::lower(c) == c); };
    return ui::knownCaption(column) || (!isSmall(column[0]) && std::all_of(column.begin() + 1, column.end(), isSmall));
}

std::set<std::string> namesIn(const json& layout) {
    std::set<std::string> names;
    collect(layout, names);
    if (layout.contains("record")) names.insert(std::begin(commands), std::end(commands));
    std::set<std::string> all;
    for (const auto& name : names) {
        const auto dots = name.find("..");
        if (dots == std::string::npos) {
            all.insert(name);
            continue;
        }
        const auto open = name.find('(');
        for (int place = std::stoi(name.substr(open + 1)); place <= std::stoi(name.substr(dots + 2)); ++place)
            all.insert(name.substr(0, open) + "(" + std::to_string(place) + ")");
    }
    return all;
}

}  // namespace

std::vector<std::string> faultsOfLayout(const ui::Screen& screen) {
    const auto layout = layoutOf(screen.name());
    if (layout.is_null()) return {"no layout"};
    auto names = namesIn(layout);
    std::vector<std::string> faults;
    for (const auto& name : names)
        if (!screen.find(name)) faults.push_back("there is no control " + name);
    if (layout.contains("like")) names.merge(namesIn(layoutOf(layout["like"])));
    const auto holders = holdersOn(screen);
    for (const auto* control : screen.controls()) {
        const auto state = control->state();
        const bool drawn = isDrawn(state["kind"]) && control->visible() && !holders.contains(control->name());
        if (drawn && !names.contains(db::lowered(control->name()))) faults.push_back(control->name() + " has no place");
        const bool captioned = state["kind"] == "button" || state["kind"] == "checkBox";
        if (captioned && state["caption"].get<std::string>().empty())
            faults.push_back(control->name() + " has no caption");
        for (const auto& column : state.value("columns", json::array()))
            if (column["visible"] && !inWords(column["name"]))
                faults.push_back(control->name() + ": no words for the column " + column["name"].get<std::string>());
    }
    return faults;
}

}  // namespace test
