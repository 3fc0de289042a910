#pragma once

#include <span>
#include <string>
#include <string_view>

#include "db/sql.h"

namespace db {

/// The one pass over a statement that makes a template of it. It walks the text with the next value's place in hand, so
/// at every character it knows whether the program or somebody else wrote it.
class SqlScanner {
public:
    SqlScanner(std::string_view text, std::span<const Sql::Span> values) noexcept : text_(text), values_(values) {}

    /// Throws Error(syntax), as Sql::bound says.
    Sql::Template run();

private:
    [[nodiscard]] bool atEnd() const noexcept { return at_ == text_.size() && next_ == values_.size(); }
    /// Whether a value, perhaps of no characters, begins at `position`.
    [[nodiscard]] bool valueAt(std::size_t position) const noexcept {
        return next_ < values_.size() && values_[next_].begin == position;
    }
    /// Whether the program wrote the character at `position`, and it is `c`.
    [[nodiscard]] bool literalAt(std::size_t position, char c) const noexcept {
        return position < text_.size() && text_[position] == c && !valueAt(position);
    }
    [[nodiscard]] std::string_view takeValue() noexcept;

    void step();
    void plain();
    void bareValue();
    void quoted();
    void quotedValue(std::string& content);
    void name(char closing);
    void lineComment();
    void blockComment();
    void end();

    void addParameter(Value value);
    void startStringParameter(std::size_t quote);
    [[noreturn]] void refuse() const;

    std::string_view text_;
    std::span<const Sql::Span> values_;
    std::size_t at_ = 0;    ///< the next character
    std::size_t next_ = 0;  ///< the next value
    Sql::Template out_;
};

}  // namespace db
