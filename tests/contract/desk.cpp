#include "tests/contract/desk.h"

#include <algorithm>
#include <ostream>

namespace test {

using namespace db::literals;

std::ostream& operator<<(std::ostream& out, const RecordScreen& screen) {
    return out << screen.name;
}

Desk::Desk(const RecordScreen& screen) : screen_(screen) {
    open(true);
}

Desk::Desk(const RecordScreen& screen, const HospitalFiles& files, bool arranges) : Ward(files), screen_(screen) {
    open(arranges);
}

void Desk::open(bool arranges) {
    start();
    screen_.provide(place);
    if (arranges && screen_.arrange) screen_.arrange(*this);
    if (screen_.session) screen_.session(place.session);
    place.desktop.show(screen_.name);
    forget();
    setTakesMessages(true);
}

void Desk::fire(const std::string& control) {
    try {
        place.desktop.fire(screen_.name + "." + control, false);
    } catch (const ui::Refused& refused) {
        ADD_FAILURE() << refused.why;
    }
}

void Desk::set(const std::string& control, const nlohmann::json& content) {
    try {
        place.desktop.set(screen_.name + "." + control, content, false);
    } catch (const ui::Refused& refused) {
        ADD_FAILURE() << refused.why;
    }
}

std::string Desk::rows() {
    std::string all;
    for (const auto& sql : screen_.rows) all += dump(sql) + "-\n";
    return all + dump("select * from hAuditTrail"_sql);
}

std::vector<std::size_t> Desk::counts() {
    std::vector<std::size_t> counts;
    for (const auto& sql : screen_.rows) counts.push_back(read(sql).rowCount());
    return counts;
}

void Desk::pressSave() {
    answer("yes");
    fire("OKButton");
    forgetAnswers();
}

bool Desk::saved() const {
    return std::any_of(boxes().begin(), boxes().end(),
                       [](const auto& box) { return box.text.starts_with("Record Succesfully"); });
}

bool Desk::asked(const std::string& text, const std::string& title) const {
    return std::any_of(boxes().begin(), boxes().end(),
                       [&](const auto& box) { return box.text == text && box.title == title; });
}

void Desk::saveOne() {
    screen_.add(*this);
    pressSave();
    EXPECT_TRUE(saved());
    forget();
}

}  // namespace test
