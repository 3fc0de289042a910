#pragma once

#include "outpatient/screens.h"
#include "tests/contract/corpus.h"
#include "tests/contract/plainscreen.h"

namespace test {

/// Ada has three consultations by two doctors, the second with every sheet, and two images; the archive has one of
/// hers. Musa has none.
void arrangeHistory(TestHospital& hospital);

}  // namespace test
