#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

namespace db::sqlite {

// What the registered functions share.

using Call = void (*)(sqlite3_context*, int, sqlite3_value**);

inline std::string_view textOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

inline bool isNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

inline bool anyNull(int count, sqlite3_value** values) {
    return std::any_of(values, values + count, isNull);
}

inline void giveText(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

/// Keeps C++ exceptions out of the engine.
template <Call function>
void guarded(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
    try {
        function(context, count, values);
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

/// Registers a function of so many arguments (-1: any number). What depends on the clock is not deterministic.
template <Call function>
void addFunction(sqlite3* line, const char* name, int arguments, bool deterministic = true, void* data = nullptr) {
    const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (deterministic ? SQLITE_DETERMINISTIC : 0);
    sqlite3_create_function_v2(line, name, arguments, flags, data, guarded<function>, nullptr, nullptr, nullptr);
}

}  // namespace db::sqlite
