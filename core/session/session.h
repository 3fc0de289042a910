#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "db/datetime.h"
#include "db/value.h"

namespace core {

/// The session variables of one signed-in nurse, under their own names, with their values before the start.
/// There is one a session, passed by reference; nothing of it is shared between nurses.
struct Session {
#define VOREL_VARIABLE(type, name, ...) type name{__VA_ARGS__};
#include "core/session/variables.inc"
#undef VOREL_VARIABLE

    /// Calls `field(name, value)` for every variable, in this order.
    void forEach(const std::function<void(const char* name, const db::Value& value)>& field) const;
};

}  // namespace core
