#pragma once

#include <cstdint>
#include <initializer_list>

namespace hospital::demo {

/// Numbers that look random and are the same for the same seed on every machine (the splitmix64 generator of Steele,
/// Lea and Flood, "Fast splittable pseudorandom number generators", 2014).
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// A generator for one subject of its own (a patient's number, say), whatever was drawn from this one.
    [[nodiscard]] Random about(std::uint64_t subject) const {
        return Random(mixed(seed_ + mixed(subject + 0x9E3779B97F4A7C15ULL)));
    }

    std::uint64_t next() { return mixed(state_ += 0x9E3779B97F4A7C15ULL); }
    /// From 0 to `count` - 1.
    int below(int count) { return static_cast<int>((next() >> 32U) * static_cast<std::uint64_t>(count) >> 32U); }
    /// Both ends included.
    int between(int least, int most) { return least + below(most - least + 1); }
    /// True in `percent` of a hundred cases.
    bool percent(int percent) { return below(100) < percent; }
    template <typename List>
    const auto& pick(const List& list) {
        return *(std::begin(list) + below(static_cast<int>(std::size(list))));
    }

private:
    static std::uint64_t mixed(std::uint64_t number) {
        number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9ULL;
        number = (number ^ (number >> 27U)) * 0x94D049BB133111EBULL;
        return number ^ (number >> 31U);
    }

    std::uint64_t state_;
    std::uint64_t seed_ = state_;
};

}  // namespace hospital::demo
