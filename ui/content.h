#pragma once

// Readings of what a client sends as a control's content.

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "ui/controls.h"

namespace ui {

/// The number under `key`, if it is a row of `count` rows from 0.
inline std::optional<int> rowOf(const nlohmann::json& content, const char* key, std::size_t count) {
    if (!content.is_object() || !content.contains(key) || !content[key].is_number_integer()) return std::nullopt;
    const nlohmann::json& number = content[key];
    if (number < 0 || number >= count) return std::nullopt;
    return number.get<int>();
}

/// The same, refused where it is none.
inline int rowIn(const Control& control, const nlohmann::json& content, std::size_t count) {
    if (const auto row = rowOf(content, "row", count)) return *row;
    throw Refused{control.path() + R"( takes {"row":N} of its )" + std::to_string(count) + " rows"};
}

inline bool flagOf(const Control& control, const nlohmann::json& content) {
    if (!content.is_boolean()) throw Refused{control.path() + " takes true or false"};
    return content.get<bool>();
}

/// What stands in a box after somebody typed the text, character by character; `maxLength` in characters, 0 for any.
std::string typed(std::string_view text, KeyFilter filter, std::size_t maxLength = 0);

/// 0xRRGGBB as "#RRGGBB"; null for none.
nlohmann::json colorForm(int color);

}  // namespace ui
