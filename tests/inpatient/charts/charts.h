#pragma once

#include "tests/contract/layouts.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

namespace test {

/// What is typed of a patient who is not well.
inline const Entries observation = {{"txtTemp", "38.4"},    {"txtPressure", "150"},
                                    {"txtPressure2", "95"}, {"txtPause", "110"},
                                    {"txtResp", "24"},      {"txtHt", "1.7"},
                                    {"txtWt", "64"},        {"txtSPO2", " 93 "},
                                    {"txtRBS", " 7 "},      {"cboPosition", "Upright"},
                                    {"txtStool", "1"},      {"txtUrine", "200"},
                                    {"txtSDrainage", "30"}, {"txtRem", "100 ml of 5% glucose"}};

}  // namespace test
