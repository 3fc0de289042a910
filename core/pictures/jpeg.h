#pragma once

#include "db/value.h"

namespace core {

/// The picture of a JPEG file, drawn anew as a JPEG: upright, no side longer than `longestSide` pixels, and nothing of
/// the file but the picture (no place where it was taken, nothing hidden behind its end). Throws db::Error for what is
/// no JPEG and for more than 25 megapixels.
db::Bytes redrawnJpeg(const db::Bytes& file, int longestSide = 800);

}  // namespace core
