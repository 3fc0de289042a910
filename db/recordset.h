#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/sql.h"
#include "db/value.h"

namespace db {

class Connection;
class RowBuffer;

/// A static, client-side result set: all rows are read when it opens, and later changes by others do not show.
/// Field names do not depend on letter case. A result set over one table can change the row it stands on and add rows.
class Recordset {
public:
    /// Empty and closed: no fields, no rows.
    Recordset();
    /// Runs the statement and reads all its rows. Throws Error.
    Recordset(Connection& connection, const Sql& sql);
    explicit Recordset(RowBuffer rows);
    explicit Recordset(std::shared_ptr<const RowBuffer> rows);
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    ~Recordset();

    [[nodiscard]] bool empty() const noexcept { return rowCount() == 0; }
    [[nodiscard]] bool eof() const noexcept;
    [[nodiscard]] std::size_t rowCount() const noexcept;
    [[nodiscard]] std::size_t row() const noexcept;  ///< the current row, from 0; rowCount() at the end
    void moveFirst() noexcept;
    void moveNext() noexcept;
    /// Stands on row `row` from 0, or at the end where there is none.
    void moveTo(std::size_t row) noexcept;

    [[nodiscard]] const std::vector<std::string>& fields() const noexcept;
    [[nodiscard]] bool hasField(std::string_view name) const noexcept;
    /// The field of the current row. Throws Error(other) where there is no such field or no current row.
    [[nodiscard]] Value value(std::string_view field) const;
    [[nodiscard]] Value operator[](std::string_view field) const { return value(field); }
    [[nodiscard]] Value value(std::size_t row, std::size_t column) const;
    /// A hash of a row's cells: rows of the same hash read the same, in this result set or in another of its columns.
    /// Far cheaper than reading them.
    [[nodiscard]] std::uint64_t rowHash(std::size_t row) const;

    /// Starts a new row; `set` fills it and `update` writes it.
    void addNew();
    /// Sets a field of the new row, or of the current one. Nothing is written before `update`. Throws Error(other)
    /// for a field that the table does not have.
    void set(std::string_view field, Value value);
    /// Writes the columns that were set: the new row, or the current one by its table's key. The row then shows what
    /// was set, and an identity that the server assigned. On an Error nothing is written, and what was set stays
    /// pending. Throws Error(other) when the rows are not those of one table or do not hold its key.
    void update();
    /// Drops what was set since `addNew` or the last `update`.
    void cancelUpdate() noexcept;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace db
