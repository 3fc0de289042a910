#include "db/sql.h"

#include "db/sqlscanner.h"

namespace db {

Sql literals_sql(const char* text, std::size_t size) {
    Sql sql;
    sql.append({text, size}, false);
    return sql;
}

Sql trusted(std::string text) {
    Sql sql;
    sql.text_ = std::move(text);
    return sql;
}

void Sql::append(std::string_view text, bool value) {
    if (value) values_.push_back({text_.size(), text_.size() + text.size()});
    text_.append(text);
}

Sql& Sql::operator+=(const Sql& other) {
    const auto shift = text_.size();
    const auto count = other.values_.size();  // `other` may be this statement itself
    for (std::size_t i = 0; i < count; ++i)
        values_.push_back({other.values_[i].begin + shift, other.values_[i].end + shift});
    text_.append(other.text_);
    return *this;
}

Sql::Template Sql::bound() const {
    return SqlScanner(text_, values_).run();
}

}  // namespace db
