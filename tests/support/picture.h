#pragma once

#include <string>

#include "db/value.h"

namespace test {

/// A JPEG whose left half is red and whose right half is blue, as a camera held like `orientation` (1 to 8) says of it.
std::string jpeg(int width, int height, int orientation = 1);

/// Its size, and its colours at the left and at the right edge of its upper half, as "40x20 red blue"; "no picture".
std::string seenIn(const db::Bytes& jpeg);

}  // namespace test
