#include "db/command.h"

#include "db/engine.h"
#include "db/error.h"
#include "db/letters.h"

namespace db {

namespace {

[[noreturn]] void wrongType() {
    throw Error(Category::type, "Application uses a value of the wrong type for the current operation.");
}

Value sizedText(const Value& value, int size) {
    auto text = value.text();
    if (size < 0 || characterCount(text) > static_cast<std::size_t>(size)) wrongType();
    return text;
}

Value wholeNumber(const Value& value) {
    const double number = value.number();
    const auto whole = value.int32();
    if (number != whole) wrongType();
    return whole;
}

Value moment(const Value& value) {
    const bool isText = std::holds_alternative<std::string>(value.content());
    if (!isText && !std::holds_alternative<DateTime>(value.content())) wrongType();
    return value.moment();
}

Value converted(Command::Type type, int size, const Value& value) {
    switch (type) {
        case Command::Type::varText:
            return sizedText(value, size);
        case Command::Type::dateTime:
            return moment(value);
        case Command::Type::integer:
            return wholeNumber(value);
    }
    wrongType();
}

}  // namespace

Command& Command::append(std::string name, Type type, int size, Value value) {
    if (!name.starts_with('@')) name.insert(0, 1, '@');
    if (!value.isNull()) {
        try {
            value = converted(type, size, value);
        } catch (const Error&) {
            wrongType();
        }
    }
    parameters_.emplace_back(std::move(name), std::move(value));
    return *this;
}

Recordset Command::execute() {
    if (connection_->recording()) connection_->record(Statement::Kind::call, procedure_, parameters_);
    return Recordset(
        connection_->withEngine("call", [&](Engine& engine) { return engine.call(procedure_, parameters_); }));
}

}  // namespace db
