#include <utility>

#include "db/dialect_parser.h"
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
        if (!limit.empty()) text.insert(0, "select * from (").append(std::exchange(limit, {})).append(")");
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
        return "select * from (" + inner + ")";
    }
    expect("select");
    std::string text = "select ";
    const bool distinct = accept("distinct");
    if (distinct)
        text += "distinct ";
    else
        accept("all");
    if (accept("top")) limit = top();
    text += selectItem();
    while (accept(",")) text += ", " + selectItem();
    listEnd_ = distinct ? 0 : text.size();
    if (accept("from")) text += " from " + sources();
    where_ = optionalWhere();
    text += where_;
    if (accept("group")) {
        expect("by");
        text += " group by " + list();
        combined_ = true;
    }
    if (accept("having")) text += " having " + expression().sql;
    return text;
}

std::string Parser::top() {
    const bool bracketed = accept("(");
    const auto token = take();
    if (token.kind != Token::Kind::number && token.kind != Token::Kind::place && token.kind != Token::Kind::variable)
        fail();
    if (bracketed) expect(")");
    if (!accept("percent")) return " limit " + token.text;
    if (token.text != "100") throw Error(Category::syntax, "A part of the rows by percent is not supported.");
    return {};
}

std::string Parser::selectItem() {
    if (accept("*")) return "*";
    if (atName() && at("=", 1)) {  // "alias = expression"
        const auto alias = quoted(name());
        expect("=");
        return itemText(expression()) + " as " + alias;
    }
    for (std::size_t dots = 1; atName(dots - 1) && at(".", dots); dots += 2)
        if (at("*", dots + 1)) {
            while (!at("*", 2)) position_ += 2;
            const auto table = name();
            position_ += 2;
            return !outputRow_.empty() && sameName(table, outputRow_) ? "*" : quoted(table) + ".*";
        }
    const auto item = expression();
    return itemText(item) + alias();
}

/// An expression among the rows' columns takes its collation along; in a view also the affinity of a number.
std::string Parser::itemText(const Expression& item) const {
    if (item.column || item.literal) return item.sql + (item.type == Type::text ? " collate VTEXT" : "");
    if (definesView_ && item.type == Type::number && item.certain) return "cast(" + item.sql + " as numeric)";
    return item.sql + std::string(collation(item));
}

std::string Parser::alias() {
    const bool announced = accept("as");
    if (peek().kind == Token::Kind::text) {
        const auto text = take().text;
        return " as " + quoted(text.substr(1, text.size() - 2));
    }
    if (atName()) return " as " + quoted(name());
    // Behind "as" even a keyword is a name.
    if (announced && peek().kind == Token::Kind::word) return " as " + quoted(take().text);
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
    hints();
    text += alias();
    hints();
    return text;
}

/// "with (nolock)": readers never wait here.
void Parser::hints() {
    const bool with = accept("with");
    if (!with && !(at("(") && (at("nolock", 1) || at("updlock", 1) || at("holdlock", 1)))) return;
    expect("(");
    do name();
    while (accept(","));
    expect(")");
}

/// A table's or view's name: "T", "dbo.T", "HospitalArchive.dbo.T" or "HospitalArchive..T".
std::string Parser::object() {
    std::vector<std::string> parts{name()};
    while (accept(".")) parts.push_back(at(".") ? std::string("dbo") : name());
    if (parts.size() > 3 || (parts.size() > 1 && !sameName(parts[parts.size() - 2], "dbo")))
        throw Error(Category::syntax, "Invalid object name '" + parts.back() + "'.");
    result_.object = parts.back();
    const bool elsewhere = parts.size() == 3 && !sameName(parts[0], database_);
    if (!elsewhere) return quoted(parts.back());
    result_.object.clear();
    combined_ = true;
    bool known = false;
    for (const auto& name : result_.databases) known = known || sameName(name, parts[0]);
    if (!known) result_.databases.push_back(parts[0]);
    return quoted(parts[0]) + "." + quoted(parts[2]);
}

std::string Parser::orderBy() {
    if (!accept("order")) return {};
    expect("by");
    std::string text = " order by ";
    do {
        const auto key = expression();
        const bool position = key.type == Type::number && key.sql.find_first_not_of("0123456789") == std::string::npos;
        text += position || key.column ? key.sql : key.sql + std::string(collation(key));
        if (at("asc") || at("desc")) text += " " + take().text;
        if (at(",")) text += ", ";
    } while (accept(","));
    return text;
}

std::string Parser::list() {
    std::string text;
    do {
        const auto item = expression();
        text += (text.empty() ? "" : ", ") + item.sql + std::string(item.column ? "" : collation(item));
    } while (accept(","));
    return text;
}

std::string Parser::optionalWhere() {
    return accept("where") ? " where " + expression().sql : std::string();
}

}  // namespace db::dialect
