#include "outpatient/screens.h"

#include "outpatient/frmpreconsult/frmpreconsult.h"

namespace outpatient {

void provideScreens(core::Workplace& place) {
    place.desktop.provide("frmPreConsult", [&place] { return std::make_unique<frmPreConsult>(place); });
}

}  // namespace outpatient
