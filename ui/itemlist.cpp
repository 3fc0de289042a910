#include "ui/itemlist.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <stdexcept>

#include "ui/content.h"

namespace ui {

namespace {

std::string capitals(std::string_view text) {
    return typed(text, upperCase);
}

/// A text to look for in any letter case.
class Wanted {
public:
    explicit Wanted(std::string_view text) : capitals_(capitals(text)) {
        const auto first = static_cast<unsigned char>(capitals_[0]);
        starts_[first] = true;
        if (first >= 'A' && first <= 'Z') starts_[first - 'A' + 'a'] = true;
        if (first >= 0x80) std::fill(starts_.begin() + 0x80, starts_.end(), true);
    }

    /// Where it stands in `text` first, or npos.
    [[nodiscard]] std::size_t in(std::string_view text) const {
        for (std::size_t at = 0; at + capitals_.size() <= text.size(); ++at)
            if (starts_[static_cast<unsigned char>(text[at])] && startOf(text.substr(at))) return at;
        return std::string_view::npos;
    }

private:
    [[nodiscard]] bool startOf(std::string_view text) const {
        std::size_t at = 0;
        while (at < capitals_.size()) {
            if (at >= text.size()) return false;
            const char c = text[at];
            if (static_cast<unsigned char>(c) >= 0x80) return restStarts(text.substr(at), at);
            if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) != capitals_[at]) return false;
            ++at;
        }
        return true;
    }
    /// The same from a character beyond ASCII on. A capital has as many bytes as its small letter.
    [[nodiscard]] bool restStarts(std::string_view text, std::size_t at) const {
        const auto wanted = std::string_view(capitals_).substr(at);
        return capitals(text.substr(0, wanted.size())) == wanted;
    }

    std::string capitals_;
    std::array<bool, 256> starts_{};  ///< the bytes that it may start with
};

}  // namespace

ListItem ItemList::at(std::size_t at) const {
    if (at >= size()) throw std::out_of_range("no such item");
    return (*this)[at];
}

void ItemList::append(std::string& all, Ends& ends, std::string_view more) {
    if (more.size() > std::numeric_limits<std::uint32_t>::max() - all.size())
        throw std::length_error("a list of more than 4 GB");
    // Where more items are expected, the texts grow once, by the length of those that are there.
    constexpr std::size_t sample = 1000;
    if (all.size() + more.size() > all.capacity() && ends.size() > sample)
        all.reserve(std::max(2 * all.size(), all.size() / ends.size() * (ends.capacity() + sample)));
    all.append(more);
    ends.push_back(static_cast<std::uint32_t>(all.size()));
}

void ItemList::add(std::string_view text, std::string_view key) {
    if (keyEnds_.empty() && !key.empty()) keyEnds_.assign(size(), 0);
    if (!key.empty() && keyEnds_.capacity() < textEnds_.capacity()) keyEnds_.reserve(textEnds_.capacity());
    if (!key.empty() || !keyEnds_.empty()) append(keys_, keyEnds_, key);
    append(texts_, textEnds_, text);
}

int ItemList::find(std::string_view text) const noexcept {
    for (std::size_t at = 0; at < size(); ++at)
        if (this->text(at) == text) return static_cast<int>(at);
    return -1;
}

std::vector<int> ItemList::matching(std::string_view wanted) const {
    std::vector<int> starts;
    if (wanted.empty()) {
        starts.resize(size());
        std::iota(starts.begin(), starts.end(), 0);
        return starts;
    }
    std::vector<int> holds;
    const Wanted looked(wanted);
    for (std::size_t at = 0; at < size(); ++at) {
        const std::size_t place = looked.in(text(at));
        if (place != std::string_view::npos) (place == 0 ? starts : holds).push_back(static_cast<int>(at));
    }
    starts.insert(starts.end(), holds.begin(), holds.end());
    return starts;
}

}  // namespace ui
