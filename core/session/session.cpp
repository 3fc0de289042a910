#include "core/session/session.h"

namespace core {

void Session::forEach(const std::function<void(const char* name, const db::Value& value)>& field) const {
#define VOREL_VARIABLE(type, name, ...) field(#name, db::Value(name));
#include "core/session/variables.inc"
#undef VOREL_VARIABLE
}

}  // namespace core
