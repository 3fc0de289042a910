#include "ui/difference.h"

#include <algorithm>

namespace ui {

namespace {

using Sequence = std::span<const std::uint64_t>;

/// Single changes that are looked for: their square is the work, and more of them are sent as one anyway.
constexpr int mostChanges = 300;

/// E. W. Myers, An O(ND) Difference Algorithm and Its Variations, Algorithmica 1 (1986): for each number of changes the
/// place in `before` that is reached furthest on each diagonal (the place in it less that in `after`).
class Furthest {
public:
    Furthest(Sequence before, Sequence after) : before_(before), after_(after) {}

    /// False where it takes more than `mostChanges`.
    bool search() {
        for (int changes = 0; changes <= mostChanges; ++changes) {
            std::vector<int> reached(2 * static_cast<std::size_t>(changes) + 1);
            for (int diagonal = -changes; diagonal <= changes; diagonal += 2) {
                const int x = along(diagonal, start(changes, diagonal));
                reached[slot(changes, diagonal)] = x;
                if (x < size(before_) || diagonal != size(before_) - size(after_)) continue;
                rounds_.push_back(std::move(reached));
                return true;
            }
            rounds_.push_back(std::move(reached));
        }
        return false;
    }

    /// The way there, from its end: each step takes one out of `before` or puts one of `after` in.
    [[nodiscard]] std::vector<Splice> steps() const {
        std::vector<Splice> steps;
        int diagonal = size(before_) - size(after_);
        for (int changes = static_cast<int>(rounds_.size()) - 1; changes > 0; --changes) {
            const bool comes = inserts(changes, diagonal);
            diagonal += comes ? 1 : -1;
            const int x = at(changes - 1, diagonal);
            steps.push_back({static_cast<std::size_t>(x), comes ? 0U : 1U, comes ? 1U : 0U,
                             static_cast<std::size_t>(x - diagonal)});
        }
        std::reverse(steps.begin(), steps.end());
        return steps;
    }

private:
    static int size(Sequence sequence) { return static_cast<int>(sequence.size()); }
    /// Where a round keeps a diagonal: from the lowest on.
    static std::size_t slot(int changes, int diagonal) {
        const int place = changes + diagonal;
        return static_cast<std::size_t>(place);
    }
    /// Beyond both sequences there is nothing to reach.
    [[nodiscard]] int at(int changes, int diagonal) const {
        if (diagonal < -changes || diagonal > changes) return -1;
        return rounds_[static_cast<std::size_t>(changes)][slot(changes, diagonal)];
    }
    /// Whether the last change on the way to a diagonal puts one in.
    [[nodiscard]] bool inserts(int changes, int diagonal) const {
        return diagonal == -changes ||
               (diagonal != changes && at(changes - 1, diagonal - 1) < at(changes - 1, diagonal + 1));
    }
    [[nodiscard]] int start(int changes, int diagonal) const {
        if (changes == 0) return 0;
        return inserts(changes, diagonal) ? at(changes - 1, diagonal + 1) : at(changes - 1, diagonal - 1) + 1;
    }
    [[nodiscard]] int along(int diagonal, int x) const {
        while (x < size(before_) && x - diagonal < size(after_) &&
               before_[static_cast<std::size_t>(x)] == after_[static_cast<std::size_t>(x - diagonal)])
            ++x;
        return x;
    }

    Sequence before_;
    Sequence after_;
    std::vector<std::vector<int>> rounds_;
};

/// Neighbours as one.
std::vector<Splice> joined(const std::vector<Splice>& steps) {
    std::vector<Splice> result;
    for (const Splice& step : steps) {
        Splice* last = result.empty() ? nullptr : &result.back();
        if (last && step.from == last->from + last->gone && step.at == last->at + last->come) {
            last->gone += step.gone;
            last->come += step.come;
        } else {
            result.push_back(step);
        }
    }
    return result;
}

}  // namespace

std::vector<Splice> difference(Sequence before, Sequence after) {
    const auto [left, right] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto begin = static_cast<std::size_t>(left - before.begin());
    before = before.subspan(begin);
    after = after.subspan(begin);
    while (!before.empty() && !after.empty() && before.back() == after.back()) {
        before = before.first(before.size() - 1);
        after = after.first(after.size() - 1);
    }
    if (before.empty() && after.empty()) return {};
    const Splice whole{begin, before.size(), after.size(), begin};
    Furthest furthest(before, after);
    if (before.empty() || after.empty() || !furthest.search()) return {whole};
    auto splices = joined(furthest.steps());
    for (Splice& splice : splices) {
        splice.from += begin;
        splice.at += begin;
    }
    return splices;
}

}  // namespace ui
