#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "hospital/demo/hospital.h"

/// What several parts of the demonstration share.
namespace hospital::demo {

inline db::DateTime minutesAfter(const db::DateTime& moment, std::int64_t minutes) {
    return db::DateTime::fromSeconds(moment.seconds() + 60 * minutes);
}

/// The hour at which the demonstration stands still: eleven in the morning. Nothing is entered later than this.
inline db::DateTime momentOfNow(const Hospital& hospital) {
    return minutesAfter(hospital.today, std::int64_t{11} * 60);
}

/// "07" for 7 and the width 2.
inline std::string zeroPadded(int number, int width) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0*d", width, number);
    return text.data();
}

/// "36.60" for 36.6 and two places.
inline std::string decimals(double number, int places) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%.*f", places, number);
    return text.data();
}

/// The last `most` visits. What hangs on a visit by the dozen is written for these alone, so that the rows of a large
/// hospital stay within bounds; today's are always among them.
inline std::span<const Visit> lastVisits(const Hospital& hospital, std::size_t most) {
    const std::span<const Visit> all(hospital.visits);
    return all.last(std::min(most, all.size()));
}

/// The item of a list by its name, or nothing.
inline const Item* itemNamed(const std::vector<Item>& list, std::string_view name) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const Item& item) { return item.name == name; });
    return found == list.end() ? nullptr : &*found;
}

/// The first item of a category whose name holds a word; without one the category's first item, or nothing.
inline const Item* itemLike(const std::vector<Item>& list, std::string_view category, std::string_view word) {
    const Item* first = nullptr;
    for (const auto& item : list) {
        if (item.category != category) continue;
        if (item.name.find(word) != std::string::npos) return &item;
        if (!first) first = &item;
    }
    return first;
}

/// A doctor's order, "NAME|DOSE|TIMES|DAYS", in its parts.
struct Order {
    std::string name, dose;
    int times = 0, days = 0;

    explicit Order(std::string_view text) {
        const auto part = [&] {
            const auto taken = text.substr(0, text.find('|'));
            text.remove_prefix(std::min(taken.size() + 1, text.size()));
            return std::string(taken);
        };
        name = part();
        dose = part();
        times = std::stoi(part());
        days = std::stoi(part());
    }
    [[nodiscard]] int doses() const noexcept { return times * days; }
    [[nodiscard]] std::string usage() const {
        return dose + " " + std::to_string(times) + " TIMES DAILY FOR " + std::to_string(days) + " DAYS";
    }
};

}  // namespace hospital::demo
