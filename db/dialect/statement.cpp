#include <utility>

#include "db/dialect/dialect.h"
#include "db/dialect/parser.h"

namespace db::dialect {

Parser::Parser(std::string_view statement, std::string_view database, const Writer& writer)
    : TokenStream(statement), database_(database), writer_(writer) {}

Translated Parser::statement() {
    result_.text = at("select") || at("(") ? query(false) : changeOrDefinition();
    expectEnd();
    return std::move(result_);
}

std::string Parser::changeOrDefinition() {
    static constexpr std::pair<std::string_view, std::string (Parser::*)()> readers[] = {
        {"insert", &Parser::insert}, {"update", &Parser::update}, {"delete", &Parser::deletion},
        {"create", &Parser::create}, {"alter", &Parser::alter},   {"drop", &Parser::drop}};
    for (const auto& [verb, reader] : readers)
        if (accept(verb)) return (this->*reader)();
    fail();
}

Translated translate(std::string_view statement, std::string_view database, const Writer& writer) {
    return Parser(statement, database, writer).statement();
}

}  // namespace db::dialect
