#include "inpatient/screens.h"

#include <memory>
#include <utility>

#include "inpatient/frmadmission/frmadmission.h"
#include "inpatient/frmallergy/frmallergy.h"
#include "inpatient/frmdischarge/frmdischarge.h"
#include "inpatient/frmdischargefornuse/frmdischargefornuse.h"
#include "inpatient/frmdischargelistoverdue/frmdischargelistoverdue.h"
#include "inpatient/frmdocnotes/frmdocnotes.h"
#include "inpatient/frmfluidchart/frmfluidchart.h"
#include "inpatient/frmmedchart/frmmedchart.h"
#include "inpatient/frmmedchart/frmmedchartcomment.h"
#include "inpatient/frmmedchart/frmmedchartdisc.h"
#include "inpatient/frmmedchart/frmmedcharthistory.h"
#include "inpatient/frmnursedaily/frmnursedaily.h"
#include "inpatient/frmnursedaily/frmviewlocal.h"
#include "inpatient/frmnursenote/frmnursenote.h"
#include "inpatient/frmnursinghist/frmnursinghist.h"
#include "inpatient/frmpreconsultadm/frmpreconsultadm.h"
#include "inpatient/frmrecover/frmrecover.h"
#include "inpatient/frmreferaledit/frmreferaledit.h"
#include "inpatient/frmsurgery/frmsurgery.h"
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

/// The chart of medication and the screens that are opened from it.
void provideMedication(core::Workplace& place) {
    const auto opened = std::make_shared<ChartedPatient>();
    place.desktop.provide("frmMedChart", [&place, opened] { return std::make_unique<frmMedChart>(place, *opened); });
    place.desktop.provide("frmMedChartDisc",
                          [&place, opened] { return std::make_unique<frmMedChartDisc>(place, *opened); });
    provide<frmMedChartComment>(place, "frmMedChartComment");
    provide<frmMedChartHistory>(place, "frmMedChartHistory");
}

/// The daily report, and the screen that shows the local copy which it hands over.
void provideDailyReport(core::Workplace& place) {
    const auto viewed = std::make_shared<std::string>();
    place.desktop.provide("frmNurseDaily",
                          [&place, viewed] { return std::make_unique<frmNurseDaily>(place, *viewed); });
    place.desktop.provide("frmViewLocal", [&place, viewed] { return std::make_unique<frmViewLocal>(place, *viewed); });
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
    provideMedication(place);
    provide<frmNursingHist>(place, "frmNursingHist");
    provide<frmNurseNote>(place, "frmNurseNote");
    provideDailyReport(place);
    provide<frmDocNotes>(place, "frmDocNotes");
    provide<frmSurgery>(place, "frmSurgery");
}

}  // namespace inpatient
