#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/dialect.h"
#include "db/dialect_lexer.h"

namespace db::dialect {

/// What an expression gives, as far as its text tells.
enum class Type { unknown, null, text, number, date };

struct Expression {
    std::string sql;
    Type type = Type::unknown;
    bool column = false;   ///< a bare column: it brings its own collation and affinity
    bool certain = true;   ///< the type is sure and no guess
    bool literal = false;  ///< a text literal, a place or a variable: takes the other side's type in a comparison
};

/// A type name of T-SQL: the family decides how the embedded engine stores it.
struct TypeName {
    enum class Family { text, integer, flag, number, money, decimal, date, time, datetime, bytes };
    Family family;
    /// Of a text in characters: 0 where none is given, -1 without a bound; of a decimal its scale.
    long length = -1;
    std::string_view smallest = {}, largest = {};  ///< of an integer
};

/// A recursive descent over the tokens of one statement that writes SQLite's text as it goes.
class Parser {
public:
    Parser(std::string_view statement, std::string_view database);
    Translated statement();

private:
    struct Deeper;

    // The token stream.
    [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
    Token take();
    [[nodiscard]] bool at(std::string_view wordOrSign, std::size_t ahead = 0) const;
    bool accept(std::string_view wordOrSign);
    void expect(std::string_view wordOrSign);
    [[nodiscard]] bool atName(std::size_t ahead = 0) const;
    std::string name();
    [[noreturn]] void fail() const;

    // Expressions.
    Expression expression();
    Expression conjunction();
    Expression negation();
    Expression predicate();
    Expression comparison(const Expression& left, const std::string& sign);
    Expression between(const Expression& left, bool negated);
    Expression membership(const Expression& left, bool negated);
    Expression like(const Expression& left, bool negated);
    Expression sum();
    Expression product();
    Expression unary();
    Expression primary();
    Expression parenthesised();
    Expression caseOf();
    Expression castOf();
    Expression convertOf();
    Expression converted(const TypeName& type, const std::string& value, const std::string& style);
    Expression function();
    Expression aggregate(const std::string& function);
    Expression datePart(const std::string& function);
    std::string over();
    Expression column();
    std::vector<Expression> arguments();
    TypeName typeName();

    // Queries.
    std::string query(bool nested);
    void takeSearch(const std::string& list, const std::string& order, const std::string& limit);
    std::string selectCore(std::string& limit);
    std::string top();
    std::string selectItem();
    std::string itemText(const Expression& item) const;
    std::string alias();
    std::string sources();
    std::string source();
    std::string joined();
    std::string tableFactor();
    void hints();
    std::string object();
    std::string orderBy();
    std::string list();

    // Changes.
    std::string insert();
    std::string update();
    std::string assignment();
    std::string write(const std::string& column);
    std::string deletion();
    std::string output(std::string_view row);
    std::string optionalWhere();

    // Definitions.
    struct TableText;
    std::string create();
    std::string alter();
    std::string alteredColumn(TableText& table);
    std::string drop();
    std::string createTable();
    std::string createIndex(bool unique);
    std::string createView();
    std::string createTextIndex();
    static std::string storing(const std::string& tableName, const std::string& label, const TableText& table);
    void columnDefinition(TableText& table);
    void columnRules(TableText& table, const std::string& column, bool& identity, bool& notNull);
    void tableConstraint(TableText& table);
    std::string references();
    std::string nameList();
    void identity(TableText& table);

    std::vector<Token> tokens_;
    std::string_view database_;
    Translated result_;
    std::size_t position_ = 0;
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

/// The collation that an expression needs where it is compared, sorted or made distinct; "" where it needs none.
std::string_view collation(const Expression& expression) noexcept;

}  // namespace db::dialect
