#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/dialect/dialect.h"
#include "db/dialect/expression.h"
#include "db/dialect/table.h"
#include "db/dialect/tokenstream.h"
#include "db/dialect/writer.h"

namespace db::dialect {

/// A recursive descent over the tokens of one statement that has the engine's writer spell it as it goes.
class Parser : private TokenStream {
public:
    Parser(std::string_view statement, std::string_view database, const Writer& writer);
    Translated statement();

private:
    struct Deeper;

    std::string changeOrDefinition();

    // Conditions.
    Expression expression();
    Expression conjunction();
    Expression negation();
    Expression predicate();
    Expression existence();
    Expression comparison(const Expression& left, std::string_view sign);
    Expression between(const Expression& left, bool negated);
    Expression membership(const Expression& left, bool negated);
    Expression like(const Expression& left, bool negated);

    // Values.
    Expression sum();
    Expression added(const Expression& left, const Expression& right) const;
    Expression product();
    Expression unary();
    Expression primary();
    Expression parenthesised();
    Expression caseOf();
    Expression column();

    // Functions and types.
    Expression function();
    Expression aggregate(const std::string& function);
    Expression rowNumber();
    Expression dateCall(std::string_view function);
    Expression castOf();
    Expression convertOf();
    Expression converted(TypeName type, const Expression& value, std::string_view style) const;
    std::string over();
    std::vector<Expression> arguments();
    TypeName typeName();
    void typeLength(TypeName& type);

    // Queries.
    std::string query(bool nested);
    void takeSearch(const std::string& list, const std::string& order, const std::string& limit);
    std::string selectCore(std::string& limit);
    std::string top(std::string& limit);
    std::string selectList();
    std::string selectItem();
    std::string allColumns();
    std::string alias();
    std::string sources();
    std::string source();
    std::string joined();
    std::string tableFactor();
    std::string hints();
    std::string object();
    std::string orderBy();
    std::string groupKeys();
    std::string optionalWhere();

    // Changes.
    struct Output {
        std::string here, behind;  ///< see Writer::output and Writer::returning
    };
    std::string insert();
    std::string valueRows();
    std::string update();
    std::string assignment();
    std::string write(const std::string& column);
    std::string deletion();
    Output output(std::string_view row);

    // Definitions.
    std::string create();
    std::string createTable();
    std::string createIndex(bool unique);
    std::string createView();
    std::string alter();
    std::string alterColumn(TableDefinition& table);
    std::string drop();
    void columnDefinition(TableDefinition& table);
    bool columnRule(TableDefinition& table, TableColumn& column);
    long identity();
    void tableConstraint(TableDefinition& table);
    std::string references();
    void clustered();
    std::string nameList();
    std::vector<std::string> names();
    std::vector<KeyColumn> keyColumns();
    std::string direction();

    std::string_view database_;
    const Writer& writer_;
    Translated result_;
    int depth_ = 0;
    int sourceCount_ = 0;
    std::size_t listEnd_ = 0;   ///< of the query read last
    std::string where_;         ///< of the query read last
    Search search_;             ///< the first one found
    bool combined_ = false;     ///< a union, a group or a join: no single table stands behind the rows
    bool nested_ = false;       ///< a query inside the query has been read
    bool definesView_ = false;  ///< names and types of items outlive the statement
    std::string outputRow_;     ///< "inserted" or "deleted" while an output clause is read
};

/// Counts the depth of nesting, so that no text can exhaust the stack.
struct Parser::Deeper {
    explicit Deeper(Parser& owner) : parser(owner) {
        if (++parser.depth_ > 120) parser.fail();
    }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;
    ~Deeper() { --parser.depth_; }
    Parser& parser;
};

}  // namespace db::dialect
