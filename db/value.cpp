#include "db/value.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "db/error.h"
#include "db/letters.h"

namespace db {

namespace {

[[noreturn]] void mismatch() {
    throw Error(Category::type, "Type mismatch");
}
[[noreturn]] void overflow() {
    throw Error(Category::type, "Overflow");
}
[[noreturn]] void nullUsed() {
    throw Error(Category::type, "Invalid use of Null");
}

template <typename... Readers>
struct Overloaded : Readers... {
    using Readers::operator()...;
};
template <typename... Readers>
Overloaded(Readers...) -> Overloaded<Readers...>;

constexpr double secondsPerDay = 24.0 * 60 * 60;

double numberOf(const std::string& text) {
    const auto number = parseNumber(text);
    if (number) return *number;
    const auto plain = withoutThousandsSeparators(text);
    const auto grouped = plain ? parseNumber(*plain) : std::nullopt;
    if (!grouped) mismatch();
    return *grouped;
}

std::int64_t rounded(double number) {
    const double whole = std::nearbyint(number);     // the default mode: half to even
    constexpr double limit = 9223372036854775808.0;  // two to the power of 63
    if (!(whole >= -limit && whole < limit)) overflow();
    return static_cast<std::int64_t>(whole);
}

template <typename Integer>
Integer narrowed(std::int64_t number) {
    using Limits = std::numeric_limits<Integer>;
    if (number < Limits::min() || number > Limits::max()) overflow();
    return static_cast<Integer>(number);
}

bool flagOf(const std::string& text) {
    if (sameName(text, "YES") || sameName(text, "TRUE")) return true;
    if (sameName(text, "NO") || sameName(text, "FALSE")) return false;
    return numberOf(text) != 0;
}

DateTime momentOf(const std::string& text) {
    const auto moment = DateTime::parse(text);
    if (!moment) mismatch();
    return *moment;
}

DateTime momentOf(double days) {
    static const auto first = static_cast<double>(DateTime::of(100, 1, 1).seconds());
    static const auto last = static_cast<double>(DateTime::of(9999, 12, 31, 23, 59, 59).seconds());
    const double seconds = std::round(days * secondsPerDay);
    if (!(seconds >= first && seconds <= last)) overflow();
    return DateTime::fromSeconds(static_cast<std::int64_t>(seconds));
}

}  // namespace

bool Value::isNullOrEmpty() const noexcept {
    const auto* text = std::get_if<std::string>(&content_);
    return isNull() || (text && text->empty());
}

std::string Value::text() const {
    return std::visit(Overloaded{
                          [](Null) -> std::string { nullUsed(); },
                          [](std::int64_t number) { return std::to_string(number); },
                          [](double number) { return numberText(number); },
                          [](const std::string& text) { return text; },
                          [](DateTime moment) { return moment.text(); },
                          [](bool flag) -> std::string { return flag ? "True" : "False"; },
                          [](const Bytes&) -> std::string { mismatch(); },
                      },
                      content_);
}

std::string Value::textOr(std::string_view whenNull) const& {
    return isNull() ? std::string(whenNull) : text();
}

std::string Value::textOr(std::string_view whenNull) && {
    auto* text = std::get_if<std::string>(&content_);
    return text ? std::move(*text) : std::as_const(*this).textOr(whenNull);
}

std::int16_t Value::int16() const {
    return narrowed<std::int16_t>(int64());
}

std::int32_t Value::int32() const {
    return narrowed<std::int32_t>(int64());
}

std::int64_t Value::int64() const {
    if (const auto* number = std::get_if<std::int64_t>(&content_)) return *number;
    if (const auto* text = std::get_if<std::string>(&content_))
        if (const auto whole = parseInteger(*text)) return *whole;
    return rounded(number());
}

double Value::number() const {
    return std::visit(Overloaded{
                          [](Null) -> double { nullUsed(); },
                          [](std::int64_t number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](const std::string& text) { return numberOf(text); },
                          [](DateTime moment) { return static_cast<double>(moment.seconds()) / secondsPerDay; },
                          [](bool flag) { return flag ? 1.0 : 0.0; },
                          [](const Bytes&) -> double { mismatch(); },
                      },
                      content_);
}

bool Value::flag() const {
    if (const auto* flag = std::get_if<bool>(&content_)) return *flag;
    if (const auto* text = std::get_if<std::string>(&content_)) return flagOf(*text);
    return number() != 0;
}

DateTime Value::moment() const {
    if (const auto* moment = std::get_if<DateTime>(&content_)) return *moment;
    if (const auto* text = std::get_if<std::string>(&content_)) return momentOf(*text);
    return momentOf(number());
}

const Bytes& Value::bytes() const {
    if (isNull()) nullUsed();
    const auto* bytes = std::get_if<Bytes>(&content_);
    if (!bytes) mismatch();
    return *bytes;
}

}  // namespace db
