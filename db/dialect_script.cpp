#include <algorithm>
#include <utility>

#include "db/dialect.h"
#include "db/dialect_lexer.h"
#include "db/error.h"

namespace db::dialect {
namespace {

using Iterator = std::vector<Token>::const_iterator;

[[noreturn]] void failNear(const Token& token) {
    throw Error(Category::syntax, "Incorrect syntax of a procedure near " +
                                      (token.kind == Token::Kind::text ? "a text." : "'" + token.text + "'."));
}

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

/// Walks over a procedure's text.
class ProcedureReader {
public:
    explicit ProcedureReader(std::string_view text) : text_(text), tokens_(tokens(text)), token_(tokens_.begin()) {}

    Procedure read() {
        if (!startsProcedure(tokens_.begin(), tokens_.end())) failNear(*token_);
        token_ += 2;
        readName();
        const bool bracketed = accept("(");
        while (token_->kind == Token::Kind::variable) readParameter();
        if (bracketed && !accept(")")) failNear(*token_);
        if (!accept("as")) failNear(*token_);
        readBody();
        return std::move(result_);
    }

private:
    bool accept(std::string_view word) {
        const bool found = isWord(*token_, word) || isSign(*token_, word);
        if (found) ++token_;
        return found;
    }
    [[nodiscard]] bool atEnd() const { return token_->kind == Token::Kind::end; }

    std::string takeName() {
        if (token_->kind != Token::Kind::word && token_->kind != Token::Kind::name) failNear(*token_);
        return (token_++)->text;
    }

    void readName() {
        result_.name = takeName();
        while (accept(".")) result_.name = takeName();
    }

    /// "@a varchar(50)", with the comma behind it.
    void readParameter() {
        result_.parameters.push_back((token_++)->text);
        accept("as");
        takeName();
        if (accept("("))
            while (!accept(")")) {
                if (atEnd()) failNear(*token_);
                ++token_;
            }
        if (accept("=") && !atEnd()) ++token_;  // a default: every call gives all of them
        if (accept(",") && token_->kind != Token::Kind::variable) failNear(*token_);
    }

    void readBody() {
        auto last = tokens_.cend() - 1;
        while (last != token_ && isSign(last[-1], ";")) --last;
        if (accept("begin")) {
            if (last == token_ || !isWord(last[-1], "end")) failNear(*last);
            --last;
        }
        while (token_ < last) readStatement(last);
        if (result_.statements.empty()) failNear(*last);
    }

    void readStatement(Iterator last) {
        const auto first = token_;
        if (accept(";")) return;
        token_ = statementEnd(first, last);
        if (isWord(*first, "set") && token_ - first == 3 && isWord(first[1], "nocount")) return;
        addText(result_.statements, text_, first, token_);
    }

    /// A statement ends at a semicolon, or before a word that can only begin the next one.
    static Iterator statementEnd(Iterator first, Iterator last) {
        int depth = 0;
        bool wantsSet = isWord(*first, "update");
        bool wantsSelect = isWord(*first, "insert");
        for (auto token = first + 1; token < last; ++token) {
            if (isSign(*token, "(")) ++depth;
            if (isSign(*token, ")")) --depth;
            if (depth > 0) continue;
            if (isSign(*token, ";")) return token;
            if (isWord(*token, "values")) wantsSelect = false;
            if (isWord(*token, "union") || isWord(*token, "except") || isWord(*token, "intersect")) wantsSelect = true;
            if (isWord(*token, "select") && !std::exchange(wantsSelect, false)) return token;
            if (isWord(*token, "set") && !std::exchange(wantsSet, false)) return token;
            if (isWord(*token, "insert") || isWord(*token, "update") || isWord(*token, "delete")) return token;
        }
        return last;
    }

    std::string_view text_;
    std::vector<Token> tokens_;
    Iterator token_;
    Procedure result_;
};

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
    const bool isTextIndex = kind == "fulltext" && isWord(*token, "index");
    if (isTextIndex) token += isWord(token[1], "on") ? 2 : 1;
    if (isWord(*token, "dbo") && isSign(token[1], ".")) token += 2;
    if (isTextIndex) return {std::string(*verb), "fulltext index", "on " + token->text};
    return {std::string(*verb), std::move(kind), token->text};
}

Procedure parseProcedure(std::string_view text) {
    return ProcedureReader(text).read();
}

}  // namespace db::dialect
