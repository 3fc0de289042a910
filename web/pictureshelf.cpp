#include "web/pictureshelf.h"

#include <algorithm>

namespace web {

namespace {

/// What a row may hold as a picture is bounded by nobody else.
constexpr std::size_t largest = std::size_t{8} * 1024 * 1024;

}  // namespace

std::string PictureShelf::keep(const std::shared_ptr<const db::Bytes>& jpeg) {
    if (jpeg->size() > largest) return {};
    const std::lock_guard lock(mutex_);
    std::erase_if(pictures_, [](const auto& kept) { return kept.second.expired(); });
    const auto known =
        std::find_if(pictures_.begin(), pictures_.end(), [&](const auto& kept) { return kept.second.lock() == jpeg; });
    const std::uint64_t id = known == pictures_.end() ? ++last_ : known->first;
    pictures_.try_emplace(id, jpeg);
    return "/pictures/" + std::to_string(id);
}

std::shared_ptr<const db::Bytes> PictureShelf::find(std::uint64_t id) const {
    const std::lock_guard lock(mutex_);
    const auto found = pictures_.find(id);
    return found == pictures_.end() ? nullptr : found->second.lock();
}

}  // namespace web
