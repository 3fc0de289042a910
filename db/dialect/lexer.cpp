#include "db/dialect/lexer.h"

#include <algorithm>
#include <utility>

#include "db/error.h"

namespace db::dialect {
namespace {

/// Letters of T-SQL names; every byte beyond ASCII counts as one.
bool isNameLetter(char c) {
    return isLetter(c) || c == '_' || c == '#' || static_cast<unsigned char>(c) >= 0x80;
}

bool isHexDigit(char c) {
    return isDigit(c) || (lower(c) >= 'a' && lower(c) <= 'f');
}

class Lexer {
public:
    explicit Lexer(std::string_view source) : source_(source) {}

    std::vector<Token> all() {
        std::vector<Token> result;
        while (skipBlanks()) result.push_back(next());
        result.push_back({Token::Kind::end, "", source_.size(), source_.size()});
        return result;
    }

private:
    [[noreturn]] static void fail(const char* description) { throw Error(Category::syntax, description); }
    [[nodiscard]] char at(std::size_t position) const { return position < source_.size() ? source_[position] : '\0'; }

    bool skipBlanks() {
        while (position_ < source_.size()) {
            if (isBlank(at(position_)))
                ++position_;
            else if (at(position_) == '-' && at(position_ + 1) == '-')
                position_ = std::min(source_.find('\n', position_), source_.size());
            else if (at(position_) == '/' && at(position_ + 1) == '*')
                skipComment();
            else
                return true;
        }
        return false;
    }

    void skipComment() {
        const auto close = source_.find("*/", position_ + 2);
        if (close == std::string_view::npos) fail("Missing end comment mark '*/'.");
        position_ = close + 2;
    }

    Token next() {
        const char c = at(position_);
        if (c == '\'') return text(position_);
        if ((c == 'N' || c == 'n') && at(position_ + 1) == '\'') return text(position_ + 1);
        if (c == '[') return name(']');
        if (c == '"') return name('"');
        if (c == '0' && lower(at(position_ + 1)) == 'x') return bytes();
        if (isDigit(c) || (c == '.' && isDigit(at(position_ + 1)))) return number();
        if (c == '?' && isDigit(at(position_ + 1))) return run(Token::Kind::place, 1);
        if (c == '@') return run(Token::Kind::variable, at(position_ + 1) == '@' ? 2 : 1);
        if (isNameLetter(c)) return run(Token::Kind::word, 0);
        return sign();
    }

    Token take(Token::Kind kind, std::size_t end, std::string content) {
        const auto begin = std::exchange(position_, end);
        return {kind, std::move(content), begin, end};
    }

    Token text(std::size_t open) {
        auto close = source_.find('\'', open + 1);
        while (close != std::string_view::npos && at(close + 1) == '\'') close = source_.find('\'', close + 2);
        if (close == std::string_view::npos) fail("Unclosed quotation mark after the character string.");
        return take(Token::Kind::text, close + 1, std::string(source_.substr(open, close + 1 - open)));
    }

    Token name(char closing) {
        std::string content;
        auto end = position_ + 1;
        for (; end < source_.size(); ++end) {
            if (source_[end] == closing && at(end + 1) != closing) break;
            if (source_[end] == closing) ++end;
            content += source_[end];
        }
        if (end >= source_.size() || content.empty() || content.find('\0') != std::string::npos)
            fail("Unclosed quotation mark or an empty name.");
        return take(Token::Kind::name, end + 1, std::move(content));
    }

    Token number() {
        auto end = position_;
        while (isDigit(at(end))) ++end;
        if (at(end) == '.')
            for (++end; isDigit(at(end));) ++end;
        if (lower(at(end)) == 'e') {
            const auto digits = end + (at(end + 1) == '-' || at(end + 1) == '+' ? 2U : 1U);
            if (isDigit(at(digits)))
                for (end = digits; isDigit(at(end));) ++end;
        }
        if (isNameLetter(at(end))) fail("Incorrect syntax near a number.");
        return take(Token::Kind::number, end, std::string(source_.substr(position_, end - position_)));
    }

    /// "0xFFD8". An odd first digit stands for a byte of its own.
    Token bytes() {
        const auto first = position_ + 2;
        auto end = first;
        while (isHexDigit(at(end))) ++end;
        if (isNameLetter(at(end))) fail("Incorrect syntax near a binary constant.");
        auto digits = std::string((end - first) % 2, '0');
        digits += source_.substr(first, end - first);
        return take(Token::Kind::bytes, end, std::move(digits));
    }

    /// A place, a variable or a word: `prefix` signs, then letters and digits.
    Token run(Token::Kind kind, std::size_t prefix) {
        auto end = position_ + prefix;
        while (isDigit(at(end)) || (kind != Token::Kind::place && (isNameLetter(at(end)) || at(end) == '$'))) ++end;
        std::string content(source_.substr(position_, end - position_));
        const bool badPlace = kind == Token::Kind::place &&
                              (content.size() > 6 || !std::all_of(content.begin() + 1, content.end(), isDigit));
        if (content.size() == prefix || badPlace) fail("Incorrect syntax near a parameter.");
        return take(kind, end, std::move(content));
    }

    Token sign() {
        static constexpr std::string_view pairs[] = {"<>", "!=", "<=", ">=", "!<", "!>"};
        const auto two = source_.substr(position_, 2);
        if (std::find(std::begin(pairs), std::end(pairs), two) != std::end(pairs))
            return take(Token::Kind::sign, position_ + 2, std::string(two));
        if (at(position_) == '\0' ||
            std::string_view("(),.;=<>+-*/%&|^~").find(at(position_)) == std::string_view::npos)
            fail("Incorrect syntax near a character that is no part of a statement.");
        return take(Token::Kind::sign, position_ + 1, std::string(source_.substr(position_, 1)));
    }

    std::string_view source_;
    std::size_t position_ = 0;
};

}  // namespace

std::vector<Token> tokens(std::string_view source) {
    return Lexer(source).all();
}

std::string shown(const Token& token) {
    if (token.kind == Token::Kind::text) return "a text";
    if (token.kind == Token::Kind::bytes) return "a binary constant";
    return "'" + token.text + "'";
}

bool isWord(const Token& token, std::string_view word) noexcept {
    return token.kind == Token::Kind::word && sameName(token.text, word);
}

bool isSign(const Token& token, std::string_view sign) noexcept {
    return token.kind == Token::Kind::sign && token.text == sign;
}

}  // namespace db::dialect
