#include "inpatient/screens.h"

#include <memory>
#include <utility>

#include "inpatient/frmadmission/frmadmission.h"
#include "inpatient/frmallergy/frmallergy.h"
#include "inpatient/frmdischarge/frmdischarge.h"
#include "inpatient/frmdischargefornuse/frmdischargefornuse.h"
#include "inpatient/frmdischargelistoverdue/frmdischargelistoverdue.h"
#include "inpatient/frmfluidchart/frmfluidchart.h"
#include "inpatient/frmpreconsultadm/frmpreconsultadm.h"
#include "inpatient/frmrecover/frmrecover.h"
#include "inpatient/frmreferaledit/frmreferaledit.h"
#include "inpatient/frmwards/frmwards.h"
#include "inpatient/trend/trend.h"

namespace inpatient {
namespace {

template <class Screen>
void provide(core::Workplace& place, const char* name) {
    place.desktop.provide(name, [&place] { return std::make_unique<Screen>(place); });
}

/// The chart of observations and the four screens that draw what it hands them.
void provideObservations(core::Workplace& place) {
    const auto trend = std::make_shared<Trend>();
    place.desktop.provide("frmPreConsultAdm",
                          [&place, trend] { return std::make_unique<frmPreConsultAdm>(place, *trend); });
    for (const auto& [name, valueAxis] : {std::pair{"frmhPreConsultChart", "mmHG"},
                                          {"frmhPreConsultChartPulse", "BPM"},
                                          {"frmhPreConsultChartTemp", "degC"},
                                          {"frmhPreConsultChartResp", "C/MIN"}})
        place.desktop.provide(name, [&place, name = name, valueAxis = valueAxis, trend] {
            return std::make_unique<TrendScreen>(place, name, valueAxis, *trend);
        });
}

}  // namespace

void provideScreens(core::Workplace& place) {
    provide<frmWards>(place, "frmWards");
    provide<frmReferalEdit>(place, "frmReferalEdit");
    provide<frmAdmission>(place, "frmAdmission");
    provideObservations(place);
    provide<frmFluidChart>(place, "frmFluidChart");
    provide<frmAllergy>(place, "frmAllergy");
    provide<frmDischarge>(place, "frmDischarge");
    provide<frmDischargeForNuse>(place, "frmDischargeForNuse");
    provide<frmDischargeListOverdue>(place, "frmDischargeListOverdue");
    provide<frmRecover>(place, "frmRecover");
}

}  // namespace inpatient
