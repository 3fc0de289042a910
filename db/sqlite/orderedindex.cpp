#include "db/sqlite/orderedindex.h"

#include "db/dialect/tokenstream.h"

namespace db::sqlite {
namespace {

std::vector<std::string> readColumns(dialect::TokenStream& tokens) {
    std::vector<std::string> columns;
    tokens.expect("(");
    do columns.push_back(tokens.name());
    while (tokens.accept(","));
    tokens.expect(")");
    return columns;
}

}  // namespace

OrderedIndex readOrderedIndex(std::string_view statement) {
    dialect::TokenStream tokens(statement);
    const bool creates = tokens.accept("create");
    if (!creates) tokens.expect("drop");
    for (const auto* word : {"ordered", "index", "on"}) tokens.expect(word);
    OrderedIndex index;
    index.view = tokens.name();
    if (creates) {
        index.columns = readColumns(tokens);
        for (const auto* word : {"key", "index"}) tokens.expect(word);
        index.key = tokens.name();
        tokens.expect("following");
        do {
            auto table = tokens.name();
            index.tables.push_back({std::move(table), readColumns(tokens)});
        } while (tokens.accept(","));
    }
    tokens.expectEnd();
    return index;
}

}  // namespace db::sqlite
