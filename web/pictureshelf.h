#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "db/value.h"

namespace web {

/// The pictures that a session's screens show, for the page that draws them. It owns none: a picture is found for as
/// long as a screen shows it, so what it costs is what the screens hold. Thread-safe.
class PictureShelf {
public:
    /// The address of a JPEG, the same for as long as it stands; "" for one that is too large to be sent.
    std::string keep(const std::shared_ptr<const db::Bytes>& jpeg);
    /// The picture of this number; nothing where it is unknown, or no screen shows it any more.
    [[nodiscard]] std::shared_ptr<const db::Bytes> find(std::uint64_t id) const;

private:
    mutable std::mutex mutex_;
    std::map<std::uint64_t, std::weak_ptr<const db::Bytes>> pictures_;
    std::uint64_t last_ = 0;
};

}  // namespace web
