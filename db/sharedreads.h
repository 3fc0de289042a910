#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "db/rowbuffer.h"
#include "db/sql.h"

namespace db {

/// Readings of one database that many sessions ask for at the same time: each statement is read in rounds, and what the
/// results of two rounds have in common is held once. Thread-safe.
class SharedReads {
public:
    using Rows = std::shared_ptr<const RowBuffer>;
    using Reader = std::function<RowBuffer()>;
    /// Between two readings of a statement: a nurse would not notice it.
    static constexpr std::chrono::milliseconds longestRest{100};

    SharedReads();
    SharedReads(const SharedReads&) = delete;
    SharedReads& operator=(const SharedReads&) = delete;
    ~SharedReads();

    /// The rows of a reading that began after this call, by `reader` or by that of another session. Throws what
    /// `reader` throws.
    Rows read(const Sql::Template& statement, const Reader& reader);

private:
    struct Shelf;
    class Asking;
    std::shared_ptr<Shelf> shelf(const Sql::Template& statement);

    std::mutex mutex_;
    std::vector<std::shared_ptr<Shelf>> shelves_;
};

}  // namespace db
