#pragma once

// The private side of the desktop, for its own source files and Control.

#include <deque>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "ui/desktop.h"
#include "ui/rows.h"

namespace ui {

/// A screen that runs modally: its nested loop ends when it has left.
struct Desktop::Modal {
    Screen* screen;
    bool left = false;
};

struct Desktop::Impl {
    struct Entry {
        std::unique_ptr<Screen> screen;
        bool told = false;       ///< a client knows the screen: from its first `opened` its changes count
        std::string focus = {};  ///< the control that gets the keyboard when the screen opens, by path
    };
    struct Provided {
        std::string name;
        Factory factory;
    };

    std::map<std::string, Provided> provided;  ///< by the name in lower case
    std::vector<Entry> entries;                ///< the loaded screens
    std::vector<Screen*> order;                ///< the open children, the active one last
    std::vector<Modal*> modals;                ///< the innermost last
    /// Closed screens whose operations may still be on the stack.
    std::vector<std::unique_ptr<Screen>> graveyard;
    int operations = 0;

    // What a client has not heard yet.
    std::unordered_map<const Control*, std::vector<std::string_view>> changes;  ///< the properties that changed
    std::unordered_set<const Screen*> renamed;                                  ///< screens with a new caption
    /// What a client shows for a property because it sent it itself: no echo is due while the content is the same.
    std::unordered_map<const Control*, nlohmann::json> shown;
    /// The rows that a page shows.
    std::unordered_map<const Control*, ToldRows> toldRows;
    std::deque<Question> told;  ///< boxes with OK only that wait for it, the first one showing
    /// The answer to the open question, once it has come.
    std::optional<nlohmann::json>* answer = nullptr;

    Entry* entry(const Screen& screen) {
        for (Entry& entry : entries)
            if (entry.screen.get() == &screen) return &entry;
        return nullptr;
    }
};

/// An operation that runs: while one does, no closed screen goes, for its code may be on the stack.
class Desktop::Operation {
public:
    enum class After { nothing, buries };

    explicit Operation(Desktop& desktop, After after = After::nothing) : impl_(*desktop.impl_), after_(after) {
        ++impl_.operations;
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    ~Operation() {
        if (--impl_.operations > 0 || after_ == After::nothing) return;
        const auto gone = std::move(impl_.graveyard);
        impl_.graveyard.clear();
    }

private:
    Impl& impl_;
    After after_;
};

}  // namespace ui
