#include "db/sqlscanner.h"

#include <array>

#include "db/dialect/dialect.h"
#include "db/error.h"
#include "db/letters.h"

namespace db {

namespace {

[[noreturn]] void syntaxError(const std::string& description) {
    throw Error(Category::syntax, description);
}
[[noreturn]] void unclosedQuote() {
    syntaxError("Unclosed quotation mark after the character string.");
}

/// A character that goes on a name, a number or a variable.
constexpr bool goesOn(char c) noexcept {
    return isLetter(c) || isDigit(c) || c == '_' || c == '@' || c == '#' || c == '$' || c == '.' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Whether a number may stand right before `c`. A letter starts a keyword there ("5and"), unless the number would take
/// it for its exponent or its hexadecimal mark.
constexpr bool endsNumber(char c) noexcept {
    return !goesOn(c) || (isLetter(c) && lower(c) != 'e' && lower(c) != 'x');
}

/// Characters that begin something of their own. All others are copied as they stand.
constexpr auto special = [] {
    std::array<bool, 256> table{};
    for (const char c : {'\'', '[', '"', '-', '/', ';', '?'}) table[static_cast<unsigned char>(c)] = true;
    return table;
}();
constexpr bool isSpecial(char c) noexcept {
    return special[static_cast<unsigned char>(c)];
}

Value numberValue(std::string_view text) {
    if (const auto whole = parseInteger(text)) return *whole;
    if (const auto number = parseNumber(text)) return *number;
    return Null{};
}

}  // namespace

Sql::Template SqlScanner::run() {
    if (text_.find('\0') != text_.npos) syntaxError("A statement cannot hold a NUL character.");
    out_.text.reserve(text_.size() + values_.size());
    out_.parameters.reserve(values_.size());
    while (!atEnd()) step();
    return std::move(out_);
}

std::string_view SqlScanner::takeValue() noexcept {
    const auto value = values_[next_++];
    at_ = value.end;
    return text_.substr(value.begin, value.end - value.begin);
}

void SqlScanner::step() {
    if (valueAt(at_)) return bareValue();
    switch (text_[at_]) {
        case '\'':
            return quoted();
        case '[':
            return name(']');
        case '"':
            return name('"');
        case '-':
            return literalAt(at_ + 1, '-') ? lineComment() : plain();
        case '/':
            return literalAt(at_ + 1, '*') ? blockComment() : plain();
        case ';':
            return end();
        case '?':
            return refuse();
        default:
            return plain();
    }
}

/// Copies what needs no look, at least one character.
void SqlScanner::plain() {
    const auto stop = next_ < values_.size() ? values_[next_].begin : text_.size();
    auto end = at_ + 1;
    while (end < stop && !isSpecial(text_[end])) ++end;
    out_.text.append(text_, at_, end - at_);
    at_ = end;
}

/// Values side by side outside quotes are one number, as their texts are.
void SqlScanner::bareValue() {
    if (!out_.text.empty() && goesOn(out_.text.back())) refuse();
    const auto begin = at_;
    while (valueAt(at_)) static_cast<void>(takeValue());
    const auto text = text_.substr(begin, at_ - begin);
    auto number = numberValue(text);
    const bool comment = text.starts_with('-') && out_.text.ends_with('-');
    if (number.isNull() || comment || (at_ < text_.size() && !endsNumber(text_[at_]))) refuse();
    addParameter(std::move(number));
}

/// A quoted literal: as it stands, or one parameter where it holds a value.
void SqlScanner::quoted() {
    const auto quote = at_++;
    std::string content;
    bool holdsValue = false;
    for (;;) {
        if (valueAt(at_)) {
            if (!holdsValue) startStringParameter(quote);
            holdsValue = true;
            quotedValue(content);
        } else if (at_ == text_.size()) {
            unclosedQuote();
        } else if (text_[at_] != '\'') {
            content += text_[at_++];
        } else if (literalAt(at_ + 1, '\'')) {
            content += '\'';
            at_ += 2;
        } else {
            break;
        }
    }
    ++at_;
    if (holdsValue)
        addParameter(std::move(content));
    else
        out_.text.append(text_, quote, at_ - quote);
}

/// A quote of a value's own has to come doubled inside that value.
void SqlScanner::quotedValue(std::string& content) {
    auto value = takeValue();
    for (auto quote = value.find('\''); quote != value.npos; quote = value.find('\'')) {
        if (quote + 1 == value.size() || value[quote + 1] != '\'') unclosedQuote();
        content.append(value, 0, quote + 1);
        value.remove_prefix(quote + 2);
    }
    content.append(value);
}

/// The mark of a Unicode literal (N'...') goes with its quotes: a parameter needs none.
void SqlScanner::startStringParameter(std::size_t quote) {
    const bool marked = quote > 0 && lower(text_[quote - 1]) == 'n' && out_.text.ends_with(text_[quote - 1]) &&
                        (quote == 1 || !goesOn(text_[quote - 2]));
    if (marked) out_.text.pop_back();
}

/// [name] or "name", with a doubled closing mark inside.
void SqlScanner::name(char closing) {
    const auto begin = at_++;
    for (;; ++at_) {
        if (valueAt(at_)) refuse();
        if (at_ == text_.size()) unclosedQuote();
        if (text_[at_] != closing) continue;
        if (!literalAt(at_ + 1, closing)) break;
        ++at_;
    }
    ++at_;
    out_.text.append(text_, begin, at_ - begin);
}

void SqlScanner::lineComment() {
    for (; !valueAt(at_) && at_ < text_.size() && text_[at_] != '\n'; ++at_) {
    }
    if (valueAt(at_)) refuse();
    out_.text += ' ';
}

/// Comments of this kind nest.
void SqlScanner::blockComment() {
    int depth = 0;
    do {
        if (valueAt(at_)) refuse();
        if (at_ == text_.size()) syntaxError("Missing end comment mark '*/'.");
        const bool opens = literalAt(at_, '/') && literalAt(at_ + 1, '*');
        const bool closes = literalAt(at_, '*') && literalAt(at_ + 1, '/');
        depth += opens ? 1 : closes ? -1 : 0;
        at_ += opens || closes ? 2 : 1;
    } while (depth > 0);
    out_.text += ' ';
}

void SqlScanner::end() {
    if (values_.empty() && dialect::definition(out_.text).kind == "procedure") return plain();
    for (++at_; !valueAt(at_) && at_ < text_.size(); ++at_)
        if (!isBlank(text_[at_])) break;
    if (!atEnd()) syntaxError("Incorrect syntax near ';'. One statement at a time.");
}

/// The place's number must not run into what stands beside it.
void SqlScanner::addParameter(Value value) {
    out_.parameters.push_back(std::move(value));
    if (!out_.text.empty() && goesOn(out_.text.back())) out_.text += ' ';
    out_.text += '?';
    out_.text += std::to_string(out_.parameters.size());
    if (at_ < text_.size() && !valueAt(at_) && goesOn(text_[at_])) out_.text += ' ';
}

/// Names the place by what the program wrote before it: the values stay out of it.
void SqlScanner::refuse() const {
    const std::string_view before = out_.text;
    const auto blank = before.find_last_of(" \t\r\n", before.find_last_not_of(" \t\r\n"));
    const auto word = withoutBlanksAround(before.substr(blank == before.npos ? 0 : blank + 1));
    syntaxError("Incorrect syntax near '" + std::string(word) + "'.");
}

}  // namespace db
