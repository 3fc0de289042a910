#include "tests/contract/recordcontract.h"

#include <algorithm>

#include "tests/contract/corpus.h"
#include "tests/contract/layouts.h"

namespace test {

std::vector<RecordContract::Way> RecordContract::ways() const {
    return {{"add", screen().add}, {"correct", [this](Desk& desk) {
                                        desk.saveOne();
                                        screen().correct(desk);
                                    }}};
}

namespace {

std::string differences(const nlohmann::json& before, const nlohmann::json& after) {
    const auto diff = nlohmann::json::diff(before, after);
    return diff.empty() ? std::string() : diff.dump();
}

/// The first line that is not as it was; "" where all are.
std::string differences(const std::string& before, const std::string& after) {
    const auto [was, is] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    if (was == before.end() && is == after.end()) return {};
    const auto lineOf = [](const std::string& text, auto place) {
        const auto at = static_cast<std::size_t>(place - text.begin());
        const auto start = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
        return text.substr(start, text.find('\n', at) - start);
    };
    return lineOf(before, was) + " became " + lineOf(after, is);
}

/// A screen as it is filled, whatever stands beside its fields of what is wrong with them, and whichever of its pages
/// the cursor has brought to the front.
nlohmann::json filled(const Desk& desk) {
    auto form = desk.form();
    for (auto& control : form["controls"])
        for (const auto* other : {"problem", "page"}) control.erase(other);
    return form;
}

/// What a save that failed leaves.
class Untouched {
public:
    explicit Untouched(Desk& desk) : desk_(desk), rows_(desk.rows()), form_(filled(desk)) { desk.forget(); }
    void expect(const std::string& of) const {
        EXPECT_EQ(differences(rows_, desk_.rows()), "") << of;
        EXPECT_EQ(differences(form_, filled(desk_)), "") << of;
    }

private:
    Desk& desk_;
    std::string rows_;
    nlohmann::json form_;
};

TEST_P(RecordContract, AWriteOfASaveThatFailsLeavesTheRowsAndTheForm) {
    for (const auto& [way, prepare] : ways()) {
        std::vector<std::size_t> whole;
        {
            Desk desk(screen());
            prepare(desk);
            desk.pressSave();
            ASSERT_TRUE(desk.saved()) << way;
            whole = desk.counts();
        }
        for (int write = 1;; ++write) {
            Desk desk(screen());
            prepare(desk);
            const Untouched before(desk);
            desk.failWrite(write);
            desk.pressSave();
            if (desk.failurePending()) {
                EXPECT_GT(write, 1) << way;
                desk.forgetFailure();
                break;
            }
            // A trap of its own may take the failure, as that of an audit row: the rest is stored nevertheless.
            EXPECT_EQ(desk.saved() ? desk.counts() : whole, whole) << way << ": " << desk.failed();
            if (!desk.saved()) before.expect(way + (": " + desk.failed()));
        }
    }
}

TEST_P(RecordContract, ASaveAsksAndNoStoresNothing) {
    for (const auto& [way, prepare] : ways()) {
        Desk desk(screen());
        prepare(desk);
        const Untouched before(desk);
        desk.answer("no");
        desk.fire("OKButton");
        EXPECT_TRUE(desk.asked(screen().question, screen().questionTitle)) << way;
        before.expect(way);
    }
}

TEST_P(RecordContract, ALineThatBreaksAtAnyStatementOfASaveLeavesTheRowsAndTheForm) {
    for (const bool corrects : {false, true}) {
        const HospitalFiles files;
        Desk desk(screen(), files);
        if (corrects) desk.saveOne();
        const auto broken = desk.breakTheLineAtEachStatement(
            screen().name, [&] { (corrects ? screen().correct : screen().add)(desk); }, [&] { return desk.rows(); });
        EXPECT_GT(broken.size(), 2U) << (corrects ? "correct" : "add");
    }
}

TEST_P(RecordContract, AHostileTextIsStoredAsItIsOrRefusedWhole) {
    for (const auto& field : screen().texts) {
        Desk desk(screen());
        screen().add(desk);
        desk.set(field, "O'Brien'); drop table hPatients-- \xF0\x9F\xA9\xBA \xD7\xA9\xD7\x9C");
        const auto typed = desk.text(field);
        const Untouched before(desk);
        desk.pressSave();
        if (desk.saved()) {
            EXPECT_NE(desk.rows().find(typed), std::string::npos)
                << field << " is not stored as it was typed: " << typed;
            continue;
        }
        before.expect(field);
    }
}

TEST_P(RecordContract, AnEndlessTextIsNeverCutAndItsFieldGetsTheCursor) {
    for (const auto& field : screen().texts) {
        Desk desk(screen());
        screen().add(desk);
        desk.set(field, std::string(100'000, '7'));
        const Untouched before(desk);
        desk.pressSave();
        if (desk.saved()) {
            EXPECT_NE(desk.rows().find(std::string(100'000, '7')), std::string::npos) << field << " was cut";
            continue;
        }
        before.expect(field);
        EXPECT_EQ(desk.focus(), screen().name + "." + field);
    }
}

TEST_P(RecordContract, TheLastOfTwoDesksWinsAndNeitherSeesAnError) {
    const HospitalFiles files;
    Desk one(screen(), files);
    one.saveOne();
    Desk other(screen(), files, false);
    for (auto* desk : {&one, &other}) screen().correct(*desk);
    for (auto* desk : {&other, &one}) {
        desk->forget();
        desk->pressSave();
        EXPECT_TRUE(desk->saved());
    }
}

TEST_P(RecordContract, ARecordThatSomebodyDeletedMeanwhileIsNotWrittenAgain) {
    Desk desk(screen());
    desk.saveOne();
    screen().correct(desk);
    desk.execute(screen().vanish);
    const Untouched before(desk);
    desk.pressSave();
    EXPECT_FALSE(desk.saved());
    before.expect("the save");
}

TEST_P(RecordContract, ADeleteAsksAndAWriteOfItThatFailsLeavesTheRows) {
    if (!screen().deletes) {
        Desk desk(screen());
        desk.saveOne();
        if (screen().refusesDelete.empty()) {
            EXPECT_FALSE(desk.shows("cmdDel"));
            return;
        }
        const Untouched before(desk);
        desk.fire("cmdDel");
        EXPECT_EQ(desk.boxes().back().text, screen().refusesDelete);
        return before.expect("the delete");
    }
    for (int write = 0;; ++write) {
        Desk desk(screen());
        desk.saveOne();
        const auto rows = desk.rows();
        desk.answer(write == 0 ? "no" : "yes");
        desk.failWrite(write);
        desk.fire("cmdDel");
        const bool deleted = std::any_of(desk.boxes().begin(), desk.boxes().end(),
                                         [&](const auto& box) { return box.text == screen().saysDeleted; });
        if (write > 0 && desk.failurePending()) {
            EXPECT_TRUE(deleted);
            EXPECT_NE(differences(rows, desk.rows()), "");
            desk.forgetFailure();
            break;
        }
        EXPECT_TRUE(desk.asked(screen().deleteQuestion, screen().deleteTitle));
        EXPECT_EQ(desk.rows() == rows, !deleted) << desk.failed();
        EXPECT_FALSE(deleted && write == 0) << "no is no";
    }
}

TEST_P(RecordContract, ATimerThatFailsOpensNoBox) {
    Desk desk(screen());
    std::vector<std::string> timers;
    const auto form = desk.form();
    for (const auto& [name, control] : form["controls"].items())
        if (control["kind"] == "timer" && control["running"]) timers.push_back(name);
    for (const auto& timer : timers) {
        desk.breakLine(1);
        desk.place.desktop.tick(screen().name + "." + timer);
        EXPECT_TRUE(desk.boxes().empty()) << timer;
    }
}

TEST_P(RecordContract, ItsLayoutHasItsControlsAndItsCommandsHaveCaptions) {
    Desk desk(screen());
    EXPECT_EQ(faultsOfLayout(*desk.place.desktop.loaded(screen().name)), std::vector<std::string>{});
}

TEST_P(RecordContract, EveryStatementThatItSendsIsKnown) {
    Desk desk(screen());
    desk.place.desktop.unload(screen().name);
    desk.place.desktop.show(screen().name);
    const auto check = [&desk](const char* step) {
        for (const auto& statement : desk.log()) {
            const bool text =
                statement.kind == db::Statement::Kind::read || statement.kind == db::Statement::Kind::execute;
            EXPECT_TRUE(!text || isKnown(statement.database, statement.text)) << step << ": " << statement.text;
        }
        desk.forget();
    };
    check("open");
    screen().add(desk);
    desk.pressSave();
    check("add");
    screen().correct(desk);
    desk.pressSave();
    check("correct");
    if (screen().deletes) desk.answer("yes");
    if (desk.shows("cmdDel")) desk.fire("cmdDel");
    check("delete");
    desk.fire("cmdRefresh");
    check("refresh");
}

}  // namespace
}  // namespace test
