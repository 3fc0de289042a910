#include "inpatient/screens.h"

#include "inpatient/frmadmission/frmadmission.h"
#include "inpatient/frmallergy/frmallergy.h"
#include "inpatient/frmdischarge/frmdischarge.h"
#include "inpatient/frmdischargefornuse/frmdischargefornuse.h"
#include "inpatient/frmdischargelistoverdue/frmdischargelistoverdue.h"
#include "inpatient/frmfluidchart/frmfluidchart.h"
#include "inpatient/frmrecover/frmrecover.h"
#include "inpatient/frmreferaledit/frmreferaledit.h"
#include "inpatient/frmwards/frmwards.h"

namespace inpatient {
namespace {

template <class Screen>
void provide(core::Workplace& place, const char* name) {
    place.desktop.provide(name, [&place] { return std::make_unique<Screen>(place); });
}

}  // namespace

void provideScreens(core::Workplace& place) {
    provide<frmWards>(place, "frmWards");
    provide<frmReferalEdit>(place, "frmReferalEdit");
    provide<frmAdmission>(place, "frmAdmission");
    provide<frmFluidChart>(place, "frmFluidChart");
    provide<frmAllergy>(place, "frmAllergy");
    provide<frmDischarge>(place, "frmDischarge");
    provide<frmDischargeForNuse>(place, "frmDischargeForNuse");
    provide<frmDischargeListOverdue>(place, "frmDischargeListOverdue");
    provide<frmRecover>(place, "frmRecover");
}

}  // namespace inpatient
