#include <algorithm>
#include <utility>

#include "db/dialect/dialect.h"
#include "db/dialect/lexer.h"
#include "db/error.h"

namespace db::dialect {
namespace {

using Iterator = std::vector<Token>::const_iterator;

[[noreturn]] void failNear(const Token& token) {
    throw Error(Category::syntax, "Incorrect syntax of a procedure near " + shown(token) + ".");
}

/// Walks over a procedure's text.
class ProcedureReader {
public:
    explicit ProcedureReader(std::string_view text) : text_(text), tokens_(tokens(text)), token_(tokens_.begin()) {}

    Procedure read() {
        if (!accept("create") || !(accept("procedure") || accept("proc"))) failNear(*token_);
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
        result_.statements.emplace_back(text_.substr(first->begin, token_[-1].end - first->begin));
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

Procedure parseProcedure(std::string_view text) {
    return ProcedureReader(text).read();
}

}  // namespace db::dialect
