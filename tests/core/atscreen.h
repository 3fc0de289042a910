#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/stubs.h"

namespace test {

/// Controls with what is typed or picked in each, in this order.
using Entries = std::vector<std::pair<const char*, nlohmann::json>>;

inline void enter(core::Workplace& place, const std::string& screen, const Entries& entries) {
    for (const auto& [control, content] : entries) place.desktop.set(screen + "." + control, content, false);
}

/// A check that stops a save, and how the nurse goes on.
struct Stop {
    const char* says;
    const char* field;                ///< gets the cursor; "" where it stays
    nlohmann::json mends = {};        ///< what that field takes then; null: nothing
    Entries further = {};             ///< what leads to the next stop
    std::function<void()> step = {};  ///< the part of it that no control takes
    const char* title = "";
};

/// A nurse at a screen of a room, with the rows that `arrange` makes.
class AtScreen : public testing::Test {
protected:
    AtScreen(std::string screen, void (*provide)(core::Workplace&), void (*arrange)(TestHospital&) = {})
        : name(std::move(screen)) {
        hospital.start();
        provide(place);
        if (arrange) arrange(hospital);
        place.desktop.show(name);
        hospital.forget();
    }
    using Says = std::initializer_list<const char*>;
    using Names = std::initializer_list<const char*>;

    template <class Screen>
    Screen& as() {
        return dynamic_cast<Screen&>(*place.desktop.loaded(name));
    }
    core::Session& session() { return place.session; }

    // -- what she does; `says` are the boxes with OK that it opens, in order --
    void expect(Says says) {
        for (const auto* text : says) hospital.expectMessage(text);
    }
    void fire(const std::string& control, Says says = {}) {
        expect(says);
        place.desktop.fire(name + "." + control, false);
    }
    void set(const std::string& control, const nlohmann::json& content, Says says = {}) {
        expect(says);
        place.desktop.set(name + "." + control, content, false);
    }
    void fill(const Entries& entries) { enter(place, name, entries); }
    void save(Says says = {"Record Succesfully saved"}) {
        hospital.answer("yes");
        fire("OKButton", says);
    }
    /// Presses Save at each stop, which has to send no statement and to keep the entry open.
    void stopsInOrder(const std::vector<Stop>& stops) {
        for (const auto& stop : stops) {
            SCOPED_TRACE(stop.says);
            hospital.forget();
            hospital.expectMessage(stop.says, stop.title);
            fire("OKButton");
            EXPECT_EQ(focus(), *stop.field ? name + "." + stop.field : "");
            EXPECT_TRUE(hospital.log().empty());
            EXPECT_TRUE(is("OKButton", "visible") && is("OKButton", "enabled"));
            if (!stop.mends.is_null()) set(stop.field, stop.mends);
            fill(stop.further);
            if (stop.step) stop.step();
        }
    }

    // -- what she sees --
    bool is(const std::string& control, const char* property) {
        return place.desktop.get(name + "." + control)[property];
    }
    /// The texts or captions of controls, "a|b".
    std::string shown(Names controls) {
        std::string all;
        for (const auto* control : controls) {
            const auto state = place.desktop.get(name + "." + control);
            all += "|" + state[state.contains("text") ? "text" : "caption"].get<std::string>();
        }
        return all.substr(1);
    }
    /// The entries of a list, "a|b|".
    std::string entries(const std::string& list) {
        std::string all;
        const auto state = place.desktop.get(name + "." + list);
        for (const auto& item : state["items"]) all += item["text"].get<std::string>() + "|";
        return all;
    }
    std::string hiddenColumns(const std::string& grid = "grdData") {
        std::string hidden;
        const auto state = place.desktop.get(name + "." + grid);
        for (const auto& column : state["columns"])
            if (!column["visible"].get<bool>()) hidden += column["name"].get<std::string>() + " ";
        return hidden;
    }

    // -- what came of it --
    std::string focus() { return hospital.focus(); }
    bool ran(const std::string& statement) { return hospital.ran(statement); }
    std::string dump(const db::Sql& sql) { return hospital.dump(sql); }

    const std::string name;
    Ward hospital;
    core::Workplace& place = hospital.place;
};

}  // namespace test
