#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace ui {

/// A name as it is compared: screens, controls and events do not depend on letter case.
inline std::string lowerName(std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

inline bool sameName(std::string_view left, std::string_view right) {
    return left.size() == right.size() && lowerName(left) == lowerName(right);
}

}  // namespace ui
