// What keeps the lines short: rows that changed, and windows of long lists.

#include <gtest/gtest.h>

#include <random>

#include "tests/ui/fixture.h"
#include "ui/difference.h"

namespace {

using test::json;
using test::Talk;
using Numbers = std::vector<std::uint64_t>;

Numbers spliced(const Numbers& before, const Numbers& after, const std::vector<ui::Splice>& splices) {
    Numbers result;
    std::size_t at = 0;
    const auto copy = [&result](const Numbers& from, std::size_t begin, std::size_t end) {
        for (; begin < end; ++begin) result.push_back(from.at(begin));
    };
    for (const auto& splice : splices) {
        copy(before, at, splice.from);
        copy(after, splice.at, splice.at + splice.come);
        at = splice.from + splice.gone;
    }
    copy(before, at, before.size());
    return result;
}

std::size_t come(const std::vector<ui::Splice>& splices) {
    std::size_t come = 0;
    for (const auto& splice : splices) come += splice.come;
    return come;
}

TEST(Difference, makesTheOneSequenceOfTheOtherAndIsSmallWhereLittleChanged) {
    std::mt19937 random(7);  // NOLINT(bugprone-random-generator-seed): the same each time
    for (int round = 0; round < 300; ++round) {
        Numbers before(random() % 40);
        for (auto& number : before) number = random() % 30;
        Numbers after = before;
        for (auto edits = random() % 8; edits > 0; --edits) {
            const auto place = after.begin() + static_cast<std::ptrdiff_t>(random() % (after.size() + 1));
            if (random() % 2 == 0)
                after.insert(place, 100 + random() % 5);
            else if (place != after.end())
                after.erase(place);
        }
        EXPECT_EQ(spliced(before, after, ui::difference(before, after)), after);
    }

    Numbers long_(2500);
    for (std::size_t at = 0; at < long_.size(); ++at) long_[at] = at;
    EXPECT_TRUE(ui::difference(long_, long_).empty());
    Numbers later = long_;
    later[1200] = 7777;
    later.erase(later.begin() + 2000);
    later.insert(later.begin(), 5555);
    const auto splices = ui::difference(long_, later);
    EXPECT_EQ(splices.size(), 3U) << "a row at the top, one changed and one gone below";
    EXPECT_EQ(come(splices), 2U);
    later = long_;
    std::rotate(later.begin(), later.end() - 1, later.end());
    EXPECT_EQ(come(ui::difference(long_, later)), 1U) << "one that moved to the top";
    Numbers other = long_;
    for (auto& number : other) number += 10'000;
    other.front() = long_.front();
    EXPECT_EQ(ui::difference(long_, other).size(), 1U);
    EXPECT_EQ(spliced(long_, other, ui::difference(long_, other)), other);
}

db::Recordset rowsOf(const std::vector<std::pair<std::string, int>>& rows) {
    db::RowBuffer buffer;
    buffer.addColumn("name", db::RowBuffer::Reading::plain);
    buffer.addColumn("no", db::RowBuffer::Reading::plain);
    for (const auto& [name, number] : rows) {
        buffer.addText(name);
        buffer.addInteger(number);
    }
    return db::Recordset(std::move(buffer));
}

TEST(Rows, hashesTellEveryDifferenceOfACell) {
    db::RowBuffer rows;
    for (const char* column : {"a", "b", "c"}) rows.addColumn(column, db::RowBuffer::Reading::plain);
    const auto add = [&rows](const char* a, const char* b) {
        rows.addText(a);
        rows.addText(b);
        rows.addInteger(1);
    };
    add("ab", "c");
    add("a", "bc");
    add("ab", "c");
    rows.addText("ab");
    rows.addText("c");
    rows.addNumber(1);
    rows.addText("abc");
    rows.addNull();
    rows.addInteger(1);
    const db::Recordset set(std::move(rows));
    EXPECT_EQ(set.rowHash(0), set.rowHash(2));
    for (const std::size_t other : {1U, 3U, 4U}) EXPECT_NE(set.rowHash(0), set.rowHash(other)) << other;
    EXPECT_EQ(rowsOf({{"Ada", 1}}).rowHash(0), rowsOf({{"Bola", 2}, {"Ada", 1}}).rowHash(1));
    EXPECT_THROW(static_cast<void>(set.rowHash(5)), db::Error);
}

/// What a page makes of the rows that it is told of.
class GridPage : public Talk {
protected:
    GridPage() {
        desktop.setServesPage(true);
        desktop.hide("frmWard");
        ward().grdData.bind(rowsOf({{"Ada", 1}, {"Bola", 2}, {"Chidi", 3}}));
        desktop.show("frmWard");
        hear();
    }
    /// The `rows` that were told, and what the page shows then.
    json bind(const std::vector<std::pair<std::string, int>>& rows) {
        ward().grdData.bind(rowsOf(rows));
        return hear();
    }
    json hear() {
        conversation.flush();
        json told;
        for (const json& reply : std::exchange(sent, {}))
            for (const json& event : reply["events"]) {
                if (event.contains("state")) shown = event["state"]["controls"]["grdData"]["rows"];
                const json change = event.value("/changed/frmWard.grdData"_json_pointer, json());
                if (change.contains("rows")) apply(told = change["rows"]);
            }
        EXPECT_EQ(shown, ward().grdData.state()["rows"]);
        return told;
    }

    json shown;

private:
    void apply(const json& rows) {
        if (rows.is_array()) {
            shown = rows;
            return;
        }
        json result = json::array();
        std::size_t at = 0;
        for (const json& splice : rows["splices"]) {
            for (; at < splice["from"]; ++at) result.push_back(shown.at(at));
            for (const json& row : splice["come"]) result.push_back(row);
            at += splice["gone"].get<std::size_t>();
        }
        for (; at < shown.size(); ++at) result.push_back(shown.at(at));
        shown = result;
    }
};

TEST_F(GridPage, hearsOfTheRowsThatChangedAndOfAllWhereItKnowsNone) {
    EXPECT_EQ(
        bind({{"Zainab", 9}, {"Ada", 1}, {"Bola", 2}, {"Chidi", 4}}).dump(),
        R"({"splices":[{"come":[["Zainab","9"]],"from":0,"gone":0},{"come":[["Chidi","4"]],"from":2,"gone":1}]})");
    EXPECT_TRUE(bind({{"Zainab", 9}, {"Ada", 1}, {"Bola", 2}, {"Chidi", 4}}).is_null());
    EXPECT_EQ(bind({{"Ada", 1}}).dump(),
              R"({"splices":[{"come":[],"from":0,"gone":1},{"come":[],"from":2,"gone":2}]})");
    EXPECT_EQ(bind({}).dump(), "[]");
    EXPECT_EQ(bind({{"Ada", 1}, {"Bola", 2}}).size(), 2U);
    desktop.hide("frmWard");
    ward().grdData.bind(rowsOf({{"Musa", 3}, {"Bola", 2}}));
    hear();
    desktop.show("frmWard");
    hear();
    EXPECT_EQ(bind({{"Musa", 3}})["splices"].size(), 1U) << "the opened screen brought its rows";
}

TEST_F(Talk, ofAScriptHearsWholeRows) {
    for (const int number : {1, 2}) {
        ward().grdData.bind(rowsOf({{"Ada", number}, {"Bola", 2}}));
        conversation.flush();
        EXPECT_TRUE(sent.back()["events"][0]["changed"]["frmWard.grdData"]["rows"].is_array());
    }
}

TEST(ItemList, findsTextsInAnyLetterCaseThoseThatStartFirst) {
    ui::ItemList list;
    for (const char* text : {"Bola Ada", "ADA OBI", "Ọláyíwọlá", "", "adamu", "Ça va", "obI"}) list.add(text, {});
    using Places = std::vector<int>;
    EXPECT_EQ(list.matching("ada"), (Places{1, 4, 0}));
    EXPECT_EQ(list.matching("OBI"), (Places{6, 1}));
    EXPECT_EQ(list.matching("ọLÁY"), (Places{2}));
    EXPECT_EQ(list.matching("íwọ"), (Places{2}));
    EXPECT_EQ(list.matching("ç"), (Places{5}));
    EXPECT_EQ(list.matching("obiola"), Places{}) << "no text goes on into the next";
    EXPECT_EQ(list.matching("amuÇ"), Places{});
    EXPECT_EQ(list.matching("").size(), 7U);
    EXPECT_EQ(list.find("adamu"), 4);
    EXPECT_EQ(list.find("ADAMU"), -1);
    EXPECT_EQ(list.key(4), "") << "nobody gave keys";
    list.add("last", "key");
    EXPECT_EQ(std::string(list.key(6)) + std::string(list.key(7)) + list.back().key, "keykey");
    EXPECT_THROW(static_cast<void>(list.at(8)), std::out_of_range);
    std::string all;
    for (const auto& item : list) all += item.text + "|";
    EXPECT_EQ(all, "Bola Ada|ADA OBI|Ọláyíwọlá||adamu|Ça va|obI|last|");
}

class LongList : public Talk {
protected:
    LongList() { fill(1000); }
    void fill(int count, const std::string& name = "Ward ") {
        ward().cboWard.clear();
        for (int number = 0; number < count; ++number) ward().cboWard.add(name + std::to_string(number));
        conversation.flush();
        sent.clear();
    }
    json window(const std::string& request) {
        return say(request)["events"].at(0)["changed"]["frmWard.cboWard"]["window"];
    }
    std::string error(const std::string& request) { return say(request)["events"].at(0).value("error", ""); }
};

TEST_F(LongList, staysWithTheHostWhichTellsWindowsOfIt) {
    const json items = ward().cboWard.state()["items"];
    EXPECT_EQ(items["count"], 1000);
    const json first = window(R"({"list":"frmWard.cboWard","holds":"ARD 99"})");
    EXPECT_EQ(first["count"], 11);
    EXPECT_EQ(first["filling"], items["filling"]);
    EXPECT_EQ(first["items"][1].dump(), R"({"row":990,"text":"Ward 990"})");
    const json last = window(R"({"list":"frmWard.cboWard","from":950})");
    EXPECT_EQ(last["items"].size(), 50U);
    EXPECT_EQ(last["count"], 1000);
    EXPECT_EQ(window(R"({"list":"frmWard.cboWard","from":18446744073709551615})")["items"].size(), 0U);
    EXPECT_EQ(window(R"({"list":"frmWard.cboWard"})")["items"].size(), ui::ItemControl::mostShown);

    ward().cboWard.setItems({{"Male", "M"}});
    conversation.flush();
    EXPECT_EQ(sent.back()["events"][0]["changed"]["frmWard.cboWard"]["items"].dump(), R"([{"text":"Male"}])");
    fill(301);
    EXPECT_NE(ward().cboWard.state()["items"]["filling"], items["filling"]);
}

TEST_F(LongList, isPickedByNumberAndTextAndNeverByThoseOfAnOlderFilling) {
    const auto reply = say(R"({"set":"frmWard.cboWard","to":{"row":990,"text":"Ward 990"}})");
    EXPECT_EQ(reply["events"][0]["changed"]["frmWard.cboWard"].dump(), R"({"index":990})") << "no echo of its text";
    fill(995, "Bed ");
    for (const char* to :
         {R"({"row":990,"text":"Ward 990"})", R"({"row":999,"text":"Ward 999"})", R"({"row":1,"text":["Bed 1"]})"})
        EXPECT_EQ(error(std::string(R"({"set":"frmWard.cboWard","to":)") + to + "}"),
                  "the list of frmWard.cboWard has changed: pick again");
    EXPECT_EQ(ward().cboWard.index(), -1);
    say(R"({"set":"frmWard.cboWard","to":{"row":990}})");
    EXPECT_EQ(ward().cboWard.text(), "Bed 990");
    ward().cboWard.add("\xFF bytes");
    conversation.flush();
    say(R"({"set":"frmWard.cboWard","to":{"row":995,"text":")"
        "\xEF\xBF\xBD"
        R"( bytes"}})");
    EXPECT_EQ(ward().cboWard.index(), 995) << "what is no UTF-8 is known by how it was shown";
}

TEST_F(LongList, isAskedForWithoutRunningAnythingAndOnlyWhereItShows) {
    const std::string ask = R"({"list":"frmWard.cboWard","holds":"x"})";
    const auto activity = desktop.lastActivity();
    EXPECT_EQ(window(ask)["count"], 0);
    EXPECT_EQ(desktop.lastActivity(), activity) << "a page asks by itself when a list changes";
    const auto replies = say(std::deque<std::string>{R"({"fire":"frmWard.cmdAsk"})", ask, R"({"answer":"no"})"});
    EXPECT_TRUE(replies.at(1)["events"][0].contains("changed")) << "a box covers no list";
    EXPECT_EQ(replies.at(1)["waiting"]["text"], "Sure?");
    EXPECT_EQ(error(R"({"list":"frmWard.cboWard","holds":7})"), "holds takes a text");
    EXPECT_EQ(error(R"({"list":"frmWard.cboWard","holds":")" + std::string(1001, 'x') + "\"}"),
              "holds takes a text of up to 1000 bytes");
    for (const char* from : {"-1", "1.5", "\"0\"", "null"})
        EXPECT_EQ(error(std::string(R"({"list":"frmWard.cboWard","from":)") + from + "}"),
                  "from takes a place, counted from 0");
    EXPECT_EQ(error(R"({"list":"frmWard.txtName"})"), "frmWard.txtName is no list");
    EXPECT_EQ(error(R"({"list":"frmWard.cboWard","most":5})"), "list has a key that it does not take");
    ward().cboWard.setEnabled(false);
    conversation.flush();
    EXPECT_EQ(window(ask)["count"], 0) << "a list may be looked at";
    ward().cboWard.heldBy(ward().panel);
    ward().panel.setVisible(false);
    conversation.flush();
    EXPECT_EQ(error(ask), "frmWard.cboWard is hidden");
    ward().panel.setVisible(true);
    desktop.hide("frmWard");
    conversation.flush();
    EXPECT_EQ(error(ask), "frmWard.cboWard is hidden");
}

}  // namespace
