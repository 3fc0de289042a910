#pragma once

#include <functional>
#include <string>
#include <vector>

namespace web {

/// What keeps a host from working: "disk", or the name of a database. Empty where it is sound.
using Faults = std::vector<std::string>;

/// Looks whether the host can work. It may take its time: the host calls it on a thread of its own, and no more often
/// than every few seconds.
using CheckHealth = std::function<Faults()>;

}  // namespace web
