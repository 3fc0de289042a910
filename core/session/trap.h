#pragma once

#include <functional>

#include "core/session/workplace.h"

namespace core {

/// Runs `work` under an error trap: a run-time error rolls back what `work` left open, shows its description in a box
/// and leaves. True when `work` went through.
///
/// A shared routine with a trap of its own may run inside a caller's transaction. Its error then leaves the
/// transaction, and the decision about it, to the caller, and the box opens when nobody waits for this session.
bool trapped(Workplace& place, const std::function<void()>& work);

/// The same for what runs by itself, as a timer's job: an error is a line in the log and no box, which would keep a
/// nurse from her work every half minute. The next run tries again.
void quietly(Workplace& place, const std::function<void()>& work);

}  // namespace core
