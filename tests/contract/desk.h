#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/core/stubs.h"

namespace test {

class Desk;

/// A record screen, as the contract of all of them works it.
struct RecordScreen {
    std::string name;                                  ///< "frmPreConsult"
    void (*provide)(core::Workplace&);                 ///< its room's screens
    std::function<void(TestHospital&)> arrange = {};   ///< the rows that it needs
    std::function<void(core::Session&)> session = {};  ///< what the nurse may do, and the hospital's settings
    /// From browsing: all of a new record, up to the save.
    std::function<void(Desk&)> add;
    /// From browsing, with a record that `add` and a save have made: corrects it, up to the save.
    std::function<void(Desk&)> correct;
    /// What a save and a delete write; the audit trail counts besides.
    std::vector<db::Sql> rows;
    /// Fields of a new record whose text is stored.
    std::vector<std::string> texts;
    /// Takes the record away behind the back of who corrects it.
    db::Sql vanish;
    /// What Delete does: it deletes, it says why not, or the screen has none.
    bool deletes = true;
    std::string refusesDelete = " Record cannot be deleted ";
    std::string deleteQuestion = "Are you sure to Delete Record";
    std::string deleteTitle = "Delete";
    std::string saysDeleted = " Record successfully deleted ";
    /// The question of a save, and its title.
    std::string question = "Are you sure to save";
    std::string questionTitle = "Check before save";
};

std::ostream& operator<<(std::ostream& out, const RecordScreen& screen);

/// A nurse at a record screen that has just opened. She reads every box, whatever it says.
class Desk : public Ward {
public:
    explicit Desk(const RecordScreen& screen);
    Desk(const RecordScreen& screen, const HospitalFiles& files, bool arranges = true);

    /// What the screen refuses fails the test, with the control's name.
    void fire(const std::string& control);
    void set(const std::string& control, const nlohmann::json& content);
    [[nodiscard]] nlohmann::json form() const { return place.desktop.get(screen_.name); }
    [[nodiscard]] std::string text(const std::string& field) const { return form()["controls"][field]["text"]; }
    [[nodiscard]] bool shows(const std::string& control) const { return form()["controls"][control]["visible"]; }
    /// All that a save and a delete write.
    std::string rows();
    /// How many rows each of those tables has.
    std::vector<std::size_t> counts();
    /// Presses Save and says yes.
    void pressSave();
    /// Whether a box since the last `forget` says that the record is stored.
    [[nodiscard]] bool saved() const;
    /// Whether this question was asked since then.
    [[nodiscard]] bool asked(const std::string& text, const std::string& title) const;
    /// A new record, saved.
    void saveOne();

private:
    void open(bool arranges);
    const RecordScreen& screen_;
};

}  // namespace test
