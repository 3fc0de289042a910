#pragma once

#include <optional>
#include <string>
#include <utility>

#include "db/error.h"

namespace test {

/// The category and the description of an error; no category and "nothing" where there was none.
using Failure = std::pair<std::optional<db::Category>, std::string>;

/// What `work` fails with.
template <typename Work>
Failure failureOf(Work work) {
    try {
        work();
    } catch (const db::Error& error) {
        return {error.category(), error.what()};
    }
    return {std::nullopt, "nothing"};
}

}  // namespace test
