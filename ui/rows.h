#pragma once

#include <cstddef>
#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace ui {

/// What shows rows of texts: a client that knows them hears only of those that changed.
class Rows {
public:
    Rows() = default;
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    virtual ~Rows() = default;

    [[nodiscard]] virtual std::size_t rowCount() const = 0;
    /// Rows of the same hash look the same.
    [[nodiscard]] virtual std::uint64_t rowHash(std::size_t row) const = 0;
    /// The texts of a row as they go over the wire.
    [[nodiscard]] virtual nlohmann::json rowForm(std::size_t row) const = 0;

    /// All rows as they go over the wire.
    [[nodiscard]] nlohmann::json rowsForm() const;
    /// The hash of a row that is held as its texts.
    [[nodiscard]] static std::uint64_t hashOf(const std::vector<std::string>& cells);
};

/// The rows that a client shows, as their hashes.
class ToldRows {
public:
    explicit ToldRows(const Rows& rows) : hashes_(hashesOf(rows)) {}
    /// What makes those the rows that are there now, which count as told from then on: all rows, or
    /// `{"splices":[{"from":0,"gone":1,"come":[...]}]}` in rising order, where `from` counts the rows that the client
    /// shows; null where nothing changed.
    nlohmann::json news(const Rows& rows);

private:
    static std::vector<std::uint64_t> hashesOf(const Rows& rows);
    std::vector<std::uint64_t> hashes_;
};

}  // namespace ui
