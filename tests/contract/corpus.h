#pragma once

#include <string>

namespace test {

/// Whether a statement that a screen sent stands among those that are known for their database, whatever stands in its
/// places for values.
bool isKnown(const std::string& database, const std::string& statement);

}  // namespace test
