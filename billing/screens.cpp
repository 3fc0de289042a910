#include "billing/screens.h"

namespace billing {

void provideScreens(core::Workplace& /*place*/) {}

}  // namespace billing
