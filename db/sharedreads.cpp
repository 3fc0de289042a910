#include "db/sharedreads.h"

#include <utility>

#include "db/rounds.h"

namespace db {

/// The readings of one statement.
struct SharedReads::Shelf {
    explicit Shelf(Sql::Template read) : statement(std::move(read)) {}

    const Sql::Template statement;
    Rounds rounds{longestRest};
    std::mutex mutex;                       ///< guards what follows
    int asking = 0;                         ///< sessions that wait for rows
    Rows rows;                              ///< of the last reading, as long as somebody asks
    std::weak_ptr<const RowBuffer> latest;  ///< the same, as long as somebody shows them

    void take(RowBuffer fresh) {
        const auto before = [&] {
            const std::lock_guard lock(mutex);
            return latest.lock();
        }();
        static_cast<void>(fresh.shareWith(before ? *before : RowBuffer()));
        const std::lock_guard lock(mutex);
        latest = rows = std::make_shared<RowBuffer>(std::move(fresh));
    }
};

/// A session's place among those who ask.
class SharedReads::Asking {
public:
    explicit Asking(Shelf& shelf) : shelf_(shelf) {
        const std::lock_guard lock(shelf_.mutex);
        ++shelf_.asking;
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
    ~Asking() {
        const std::lock_guard lock(shelf_.mutex);
        if (--shelf_.asking == 0) shelf_.rows = nullptr;
    }
    [[nodiscard]] Rows rows() const {
        const std::lock_guard lock(shelf_.mutex);
        return shelf_.rows;
    }

private:
    Shelf& shelf_;
};

SharedReads::SharedReads() = default;
SharedReads::~SharedReads() = default;

std::shared_ptr<SharedReads::Shelf> SharedReads::shelf(const Sql::Template& statement) {
    const std::lock_guard lock(mutex_);
    for (const auto& shelf : shelves_)
        if (shelf->statement == statement) return shelf;
    // A statement holds values such as the day: one that nobody reads or shows any more makes room for it.
    std::erase_if(shelves_, [](const auto& shelf) { return shelf.use_count() == 1 && shelf->latest.expired(); });
    return shelves_.emplace_back(std::make_shared<Shelf>(statement));
}

SharedReads::Rows SharedReads::read(const Sql::Template& statement, const Reader& reader) {
    const auto shelf = this->shelf(statement);
    const Asking asking(*shelf);
    shelf->rounds.join([&] { shelf->take(reader()); });
    return asking.rows();
}

}  // namespace db
