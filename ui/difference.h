#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace ui {

/// A run of a sequence that another run takes the place of.
struct Splice {
    std::size_t from;  ///< in the sequence as it was
    std::size_t gone;  ///< how many leave from there
    std::size_t come;  ///< how many take their place
    std::size_t at;    ///< where those stand in the new sequence
};

/// The fewest changes that make `before` into `after`, in rising order. Where the two have little in common, one splice
/// is the whole of what lies between their common beginning and end.
std::vector<Splice> difference(std::span<const std::uint64_t> before, std::span<const std::uint64_t> after);

}  // namespace ui
