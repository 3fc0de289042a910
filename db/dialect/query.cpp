#include <utility>

#include "db/dialect/parser.h"
#include "db/error.h"

namespace db::dialect {

/// A query with its unions. A limit of one arm alone stays with that arm.
std::string Parser::query(bool nested) {
    const Deeper deeper(*this);
    const auto sourcesBefore = sourceCount_;
    const auto combinedBefore = combined_;
    std::string limit;
    auto text = selectCore(limit);
    while (at("union") || at("except") || at("intersect")) {
        if (!limit.empty()) text = writer_.arm(text + std::exchange(limit, {}));
        text += " " + take().text;
        if (accept("all")) text += " all";
        text += " " + selectCore(limit);
        if (!limit.empty()) fail();
        combined_ = true;
    }
    const auto order = orderBy();
    text += order + limit;
    if (nested) {
        sourceCount_ = sourcesBefore;
        combined_ = combinedBefore;
        nested_ = true;
    } else if (sourceCount_ != 1 || combined_) {
        result_.object.clear();
    } else {
        result_.listEnd = listEnd_;
        if (!nested_) takeSearch(text.substr(0, listEnd_), order, limit);
    }
    return text;
}

/// A search is the whole query where nothing else picks its rows, counts them or puts them into an order.
void Parser::takeSearch(const std::string& list, const std::string& order, const std::string& limit) {
    result_.search = search_;
    const bool plain = !list.empty() && list.find('(') == std::string::npos;
    const bool whole = plain && where_ == " where " + search_.condition && order == " order by " + search_.column;
    if (whole) result_.search.limit = limit;
}

std::string Parser::selectCore(std::string& limit) {
    const Deeper deeper(*this);
    if (accept("(")) {
        auto inner = query(true);
        expect(")");
        return writer_.arm(inner);
    }
    expect("select");
    std::string text = "select ";
    const bool distinct = accept("distinct");
    if (distinct)
        text += "distinct ";
    else
        accept("all");
    if (accept("top")) text += top(limit);
    text += selectList();
    listEnd_ = distinct ? 0 : text.size();
    if (accept("from")) text += " from " + sources();
    where_ = optionalWhere();
    text += where_;
    if (accept("group")) {
        expect("by");
        text += " group by " + groupKeys();
        combined_ = true;
    }
    if (accept("having")) text += " having " + expression().sql;
    return text;
}

/// What an engine wants of it behind the query goes into `limit`.
std::string Parser::top(std::string& limit) {
    const bool bracketed = accept("(");
    const auto token = take();
    const bool isNumber = token.kind == Token::Kind::number;
    if (!isNumber && token.kind != Token::Kind::place && token.kind != Token::Kind::variable) fail();
    if (bracketed) expect(")");
    if (accept("percent")) {
        if (token.text != "100") throw Error(Category::syntax, "A part of the rows by percent is not supported.");
        return {};
    }
    const auto count = isNumber ? token.text : writer_.parameter(token.text);
    limit = writer_.limit(count);
    return writer_.top(count);
}

std::string Parser::selectList() {
    auto text = selectItem();
    while (accept(",")) text += ", " + selectItem();
    return text;
}

std::string Parser::selectItem() {
    if (accept("*")) return "*";
    if (atName() && at("=", 1)) {  // "alias = expression"
        const auto alias = writer_.name(name());
        expect("=");
        return writer_.item(expression(), definesView_) + " as " + alias;
    }
    if (auto all = allColumns(); !all.empty()) return all;
    const auto item = expression();
    return writer_.item(item, definesView_) + alias();
}

/// "dbo.hPatients.*", or "" where something else follows.
std::string Parser::allColumns() {
    for (std::size_t dots = 1; atName(dots - 1) && at(".", dots); dots += 2)
        if (at("*", dots + 1)) {
            skip(dots - 1);
            const auto table = name();
            skip(2);
            const bool ofOutput = !outputRow_.empty() && sameName(table, outputRow_);
            return (ofOutput ? writer_.outputPrefix(outputRow_) : writer_.name(table) + ".") + "*";
        }
    return {};
}

std::string Parser::alias() {
    const bool announced = accept("as");
    if (peek().kind == Token::Kind::text) {
        const auto text = take().text;
        return " as " + writer_.name(std::string_view(text).substr(1, text.size() - 2));
    }
    if (atName()) return " as " + writer_.name(name());
    // Behind "as" even a keyword is a name.
    if (announced && peek().kind == Token::Kind::word) return " as " + writer_.name(take().text);
    if (announced) fail();
    return {};
}

std::string Parser::sources() {
    auto text = source();
    while (accept(",")) text += ", " + source();
    return text;
}

std::string Parser::source() {
    const Deeper deeper(*this);
    auto text = tableFactor();
    for (auto join = joined(); !join.empty(); join = joined()) {
        combined_ = true;
        text += join + tableFactor();
        if (join == " cross join ") continue;
        expect("on");
        text += " on " + expression().sql;
    }
    return text;
}

/// The words of a join, or "" where none follows.
std::string Parser::joined() {
    if (accept("cross")) return expect("join"), " cross join ";
    for (const std::string_view kind : {"left", "right", "full"})
        if (accept(kind)) {
            accept("outer");
            expect("join");
            return " " + std::string(kind) + " join ";
        }
    if (accept("inner")) return expect("join"), " join ";
    return accept("join") ? " join " : "";
}

std::string Parser::tableFactor() {
    const Deeper deeper(*this);
    std::string text;
    if (accept("(")) {
        ++sourceCount_;
        combined_ = true;
        const bool isQuery = at("select");
        text = "(" + (isQuery ? query(true) : source()) + ")";
        expect(")");
    } else {
        ++sourceCount_;
        text = object();
    }
    text += hints();
    text += alias();
    text += hints();
    return text;
}

std::string Parser::hints() {
    const bool with = accept("with");
    if (!with && !(at("(") && (at("nolock", 1) || at("updlock", 1) || at("holdlock", 1)))) return {};
    expect("(");
    std::vector<std::string> words{name()};
    while (accept(",")) words.push_back(name());
    expect(")");
    return writer_.hints(words);
}

/// A table's or view's name: "T", "dbo.T", "HospitalArchive.dbo.T" or "HospitalArchive..T".
std::string Parser::object() {
    std::vector<std::string> parts{name()};
    while (accept(".")) parts.push_back(at(".") ? std::string("dbo") : name());
    if (parts.size() > 3 || (parts.size() > 1 && !sameName(parts[parts.size() - 2], "dbo")))
        throw Error(Category::syntax, "Invalid object name '" + parts.back() + "'.");
    result_.object = parts.back();
    const bool elsewhere = parts.size() == 3 && !sameName(parts[0], database_);
    if (!elsewhere) return writer_.object({}, parts.back());
    result_.object.clear();
    combined_ = true;
    bool known = false;
    for (const auto& name : result_.databases) known = known || sameName(name, parts[0]);
    if (!known) result_.databases.push_back(parts[0]);
    return writer_.object(parts[0], parts[2]);
}

std::string Parser::orderBy() {
    if (!accept("order")) return {};
    expect("by");
    std::string text = " order by ";
    do {
        const auto key = expression();
        text += writer_.sortKey(key, direction());
        if (at(",")) text += ", ";
    } while (accept(","));
    return text;
}

std::string Parser::groupKeys() {
    auto text = writer_.groupKey(expression());
    while (accept(",")) text += ", " + writer_.groupKey(expression());
    return text;
}

std::string Parser::optionalWhere() {
    return accept("where") ? " where " + expression().sql : std::string();
}

}  // namespace db::dialect
