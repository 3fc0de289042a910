#include <algorithm>
#include <utility>

#include "db/dialect/dialect.h"
#include "db/dialect/lexer.h"

namespace db::dialect {
namespace {

using Iterator = std::vector<Token>::const_iterator;

bool startsProcedure(Iterator first, Iterator last) {
    return last - first >= 2 && isWord(*first, "create") && (isWord(first[1], "procedure") || isWord(first[1], "proc"));
}

/// Whether the token stands alone on its line.
bool aloneOnLine(const Token& token, std::string_view source) {
    const auto lineBegin = source.rfind('\n', token.begin) + 1;  // npos + 1 is the start
    const auto lineEnd = std::min(source.find('\n', token.end), source.size());
    const auto blank = [](std::string_view text) { return text.find_first_not_of(" \t\r") == std::string_view::npos; };
    return blank(source.substr(lineBegin, token.begin - lineBegin)) &&
           blank(source.substr(token.end, lineEnd - token.end));
}

void addText(std::vector<std::string>& texts, std::string_view source, Iterator first, Iterator last) {
    if (first != last) texts.emplace_back(source.substr(first->begin, (last - 1)->end - first->begin));
}

void splitBatch(std::vector<std::string>& texts, std::string_view source, Iterator first, Iterator last) {
    if (startsProcedure(first, last)) return addText(texts, source, first, last);
    for (;;) {
        const auto end = std::find_if(first, last, [](const auto& token) { return isSign(token, ";"); });
        addText(texts, source, first, end);
        if (end == last) return;
        first = end + 1;
    }
}

}  // namespace

std::vector<std::string> splitScript(std::string_view script) {
    std::vector<std::string> texts;
    const auto all = tokens(script);
    const auto end = all.cend() - 1;
    for (auto first = all.cbegin();;) {
        const auto go = std::find_if(
            first, end, [&](const auto& token) { return isWord(token, "go") && aloneOnLine(token, script); });
        splitBatch(texts, script, first, go);
        if (go == end) return texts;
        first = go + 1;
    }
}

Definition definition(std::string_view statement) {
    static constexpr std::string_view verbs[] = {"create", "alter", "drop"};
    const auto text = withoutBlanksAround(statement);
    const bool maybe = text.starts_with("--") || text.starts_with("/*") ||
                       std::any_of(std::begin(verbs), std::end(verbs),
                                   [&](auto verb) { return sameName(text.substr(0, verb.size()), verb); });
    if (!maybe) return {};  // nearly every statement: not worth its tokens
    const auto all = tokens(statement);
    const auto* verb =
        std::find_if(std::begin(verbs), std::end(verbs), [&](auto word) { return isWord(all.front(), word); });
    if (verb == std::end(verbs)) return {};
    auto token = all.begin() + 1;
    const auto skip = [&](std::string_view word) { token += isWord(*token, word) ? 1 : 0; };
    for (const auto word : {"unique", "clustered", "nonclustered"}) skip(word);
    auto kind = lowered(token->text);
    if (kind == "proc") kind = "procedure";
    if (token->kind != Token::Kind::end) ++token;
    const bool isOfView = (kind == "fulltext" || kind == "ordered") && isWord(*token, "index");
    if (isOfView) token += isWord(token[1], "on") ? 2 : 1;
    if (isWord(*token, "dbo") && isSign(token[1], ".")) token += 2;
    if (isOfView) return {std::string(*verb), kind + " index", "on " + token->text};
    return {std::string(*verb), std::move(kind), token->text};
}

}  // namespace db::dialect
