#pragma once

#include <memory>

#include "ui/screen.h"

namespace ui {

class Desktop;

/// A screen with every kind of control, for the browser tests and for whoever writes the next screen. It stores
/// nothing.
std::unique_ptr<Screen> makeSamples(Desktop& desktop);

}  // namespace ui
