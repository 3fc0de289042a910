#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

/// A line of a list: its text, and a key that the screen may give it.
struct ListItem {
    std::string text;
    std::string key;
};

/// The items of a list, in the order of the screen. All texts stand in one buffer, since a list may hold every patient:
/// an item costs its characters and four bytes, and four more where the screen gives keys.
class ItemList {
public:
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = ListItem;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = ListItem;

        Iterator(const ItemList& list, std::size_t at) noexcept : list_(&list), at_(at) {}
        ListItem operator*() const { return (*list_)[at_]; }
        Iterator& operator++() noexcept {
            ++at_;
            return *this;
        }
        bool operator==(const Iterator& other) const noexcept { return at_ == other.at_; }

    private:
        const ItemList* list_;
        std::size_t at_;
    };

    [[nodiscard]] bool empty() const noexcept { return textEnds_.empty(); }
    [[nodiscard]] std::size_t size() const noexcept { return textEnds_.size(); }
    // The items are there until the list changes; places count from 0 and are not checked, but by `at`.
    [[nodiscard]] std::string_view text(std::size_t at) const noexcept { return part(texts_, textEnds_, at); }
    [[nodiscard]] std::string_view key(std::size_t at) const noexcept {
        return keyEnds_.empty() ? std::string_view() : part(keys_, keyEnds_, at);
    }
    [[nodiscard]] ListItem operator[](std::size_t at) const { return {std::string(text(at)), std::string(key(at))}; }
    /// Throws std::out_of_range.
    [[nodiscard]] ListItem at(std::size_t at) const;
    [[nodiscard]] ListItem back() const { return (*this)[size() - 1]; }
    [[nodiscard]] Iterator begin() const noexcept { return {*this, 0}; }
    [[nodiscard]] Iterator end() const noexcept { return {*this, size()}; }

    void add(std::string_view text, std::string_view key);
    /// Makes room for so many items more.
    void expect(std::size_t more) { textEnds_.reserve(size() + more); }
    void clear() noexcept { *this = {}; }
    /// The first item of exactly this text, or -1.
    [[nodiscard]] int find(std::string_view text) const noexcept;
    /// The items that hold a text in any letter case, those that start with it first; all of them for "".
    [[nodiscard]] std::vector<int> matching(std::string_view wanted) const;

private:
    using Ends = std::vector<std::uint32_t>;
    static std::string_view part(const std::string& all, const Ends& ends, std::size_t at) noexcept {
        const std::size_t from = at == 0 ? 0 : ends[at - 1];
        return std::string_view(all).substr(from, ends[at] - from);
    }
    static void append(std::string& all, Ends& ends, std::string_view more);

    std::string texts_;
    Ends textEnds_;  ///< where each item's text ends
    std::string keys_;
    Ends keyEnds_;  ///< none as long as no item has a key
};

}  // namespace ui
