#include "tests/contract/corpus.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <vector>

#include "tests/support/statements.h"

namespace test {
namespace {

/// A known statement as the texts between its places for values.
using Pattern = std::vector<std::string>;

Pattern patternOf(const std::string& text) {
    Pattern pattern;
    std::size_t at = 0;
    for (auto open = text.find('{'); open != std::string::npos; open = text.find('{', at)) {
        pattern.push_back(text.substr(at, open - at));
        at = text.find('}', open) + 1;
    }
    pattern.push_back(text.substr(at));
    return pattern;
}

bool matches(const Pattern& pattern, const std::string& statement) {
    if (pattern.size() == 1) return statement == pattern.front();
    if (!statement.starts_with(pattern.front()) || !statement.ends_with(pattern.back())) return false;
    std::size_t at = pattern.front().size();
    for (std::size_t part = 1; part + 1 < pattern.size(); ++part) {
        at = statement.find(pattern[part], at);
        if (at == std::string::npos) return false;
        at += pattern[part].size();
    }
    return at + pattern.back().size() <= statement.size();
}

void read(const std::filesystem::path& path, std::map<std::string, std::vector<Pattern>>& known) {
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        const auto first = line.find('\t');
        if (line.empty() || line.starts_with('#') || first == std::string::npos) continue;
        known[line.substr(0, first)].push_back(patternOf(line.substr(line.find('\t', first + 1) + 1)));
    }
}

std::map<std::string, std::vector<Pattern>> knownStatements() {
    std::map<std::string, std::vector<Pattern>> known;
    for (const auto& file : statementFiles()) read(file, known);
    if (known.empty()) throw std::runtime_error("no known statements");
    return known;
}

}  // namespace

bool isKnown(const std::string& database, const std::string& statement) {
    static const auto known = knownStatements();
    const auto& patterns = known.at(database);
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const Pattern& pattern) { return matches(pattern, statement); });
}

}  // namespace test
