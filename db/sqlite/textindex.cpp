#include "db/sqlite/textindex.h"

#include "db/dialect/tokenstream.h"
#include "db/letters.h"

namespace db::sqlite {

TextIndex readTextIndex(std::string_view statement) {
    dialect::TokenStream tokens(statement);
    const bool creates = tokens.accept("create");
    if (!creates) tokens.expect("drop");
    for (const auto* word : {"fulltext", "index", "on"}) tokens.expect(word);
    TextIndex index;
    index.view = tokens.name();
    if (sameName(index.view, "dbo") && tokens.accept(".")) index.view = tokens.name();
    if (creates) {
        tokens.expect("(");
        do index.columns.push_back(tokens.name());
        while (tokens.accept(","));
        for (const auto* word : {")", "key", "index"}) tokens.expect(word);
        index.key = tokens.name();
    }
    tokens.expectEnd();
    return index;
}

}  // namespace db::sqlite
