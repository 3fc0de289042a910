#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "db/error.h"
#include "db/letters.h"
#include "hospital/scripts.h"
#include "tests/hospital/hospital.h"
#include "tests/support/statements.h"

namespace {

using db::operator""_sql;

/// A line of a statements.txt.
struct Known {
    std::string database, mark, text;
    int line = 0;
};

void readStatements(const std::filesystem::path& path, std::vector<Known>& known) {
    std::ifstream file(path);
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line.starts_with('#')) continue;
        const auto first = line.find('\t');
        const auto second = line.find('\t', first + 1);
        if (second == std::string::npos) throw std::runtime_error(path.string() + ": line " + std::to_string(number));
        known.push_back(
            {line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1), number});
    }
}

std::vector<Known> knownStatements() {
    std::vector<Known> known;
    for (const auto& path : test::statementFiles()) readStatements(path, known);
    return known;
}

/// What stands in a place "{kind:sample}".
db::Value sample(const std::string& place) {
    static const std::map<std::string, db::Value> samples = {
        {"pno", "000000001/001"},
        {"consult", "001000000001"},
        {"date", db::DateTime::of(2026, 11, 24)},
        {"time", "10:00"},
        {"moment", db::DateTime::of(2026, 11, 24, 10)},
        {"number", 1},
        {"text", "x"},
        {"like", "ADE"},
    };
    const auto colon = place.find(':');
    const auto kind = place.substr(0, colon);
    if (colon == std::string::npos) return samples.at(kind);
    const auto given = place.substr(colon + 1);
    if (kind == "number") return *db::parseNumber(given);
    return given;
}

/// The statement as a screen would build it, its places filled. A report's "?" is filled like a text.
db::Sql built(const std::string& text) {
    auto sql = ""_sql;
    std::size_t at = 0;
    while (at < text.size()) {
        const auto place = text.find_first_of("{?", at);
        sql += hospital::scriptSql(std::string_view(text).substr(at, place - at));
        if (place == std::string::npos) break;
        if (text[place] == '?') {
            sql += "'"_sql + "1" + "'";
            at = place + 1;
            continue;
        }
        const auto end = text.find('}', place);
        sql += sample(text.substr(place + 1, end - place - 1));
        at = end + 1;
    }
    return sql;
}

class Statements : public testing::Test {
protected:
    /// Runs a statement and takes back what it did; what went wrong, or "".
    std::string run(const Known& known) {
        auto& connection = house.databases.named(known.database);
        db::Transaction transaction(connection);
        try {
            if (db::sameName(known.text.substr(0, 6), "select"))
                EXPECT_GE(connection.read(built(known.text)).fields().size(), 1U) << known.text;
            else
                connection.execute(built(known.text));
            return {};
        } catch (const db::Error& error) {
            return (error.category() == db::Category::syntax ? "syntax: " : "") + std::string(error.what());
        }
    }
    test::DemonstrationFiles house;
};

TEST_F(Statements, EachOneRunsOnTheSchema) {
    int malformed = 0;
    for (const auto& known : knownStatements()) {
        const auto wrong = run(known);
        if (known.mark == "malformed") {
            EXPECT_TRUE(wrong.starts_with("syntax: ")) << known.line << ": " << known.text << "\n" << wrong;
            ++malformed;
        } else {
            EXPECT_EQ(wrong, "") << known.line << ": " << known.text;
        }
    }
    EXPECT_EQ(malformed, 1);
}

TEST_F(Statements, NoKeyedOneScansATableThatGrowsAndNoNewestOneSorts) {
    // hHospital has one row; "r" is what a full-text index has found; the others are the rows that a grouped view has
    // gathered by then.
    const std::set<std::string> mayBeScanned = {"h", "k", "r", "vwDocWaitingListGrouped"};
    std::map<std::string, int> planned;
    for (const auto& known : knownStatements()) {
        if (known.mark == "ok" || known.mark == "malformed") continue;
        ++planned[known.mark];
        SCOPED_TRACE(std::to_string(known.line) + ": " + known.text);
        const auto steps = test::planOf(house.databases, known.database, built(known.text));
        EXPECT_FALSE(steps.empty());
        for (const auto& step : steps) {
            if (known.mark == "newest") {
                EXPECT_EQ(step.find("TEMP B-TREE"), std::string::npos) << step;
            } else if (step.starts_with("SCAN ")) {
                EXPECT_TRUE(mayBeScanned.contains(step.substr(5, step.find(' ', 5) - 5))) << step;
            }
        }
    }
    EXPECT_GT(planned["grows"] + planned["params"], 300);
    EXPECT_EQ(planned["newest"], 3);
}

}  // namespace
