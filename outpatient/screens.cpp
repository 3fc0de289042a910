#include "outpatient/screens.h"

#include "outpatient/frmconsultinfo/frmconsultinfo.h"
#include "outpatient/frmimmune/frmimmune.h"
#include "outpatient/frminjanddress/frminjanddress.h"
#include "outpatient/frminjectionentryforadm/frminjectionentryforadm.h"
#include "outpatient/frmnursedressing/frmnursedressing.h"
#include "outpatient/frmnurseinjection/frmnurseinjection.h"
#include "outpatient/frmpatlist/frmpatlist.h"
#include "outpatient/frmpreconsult/frmpreconsult.h"
#include "outpatient/frmsuperpicture/frmsuperpicture.h"

namespace outpatient {
namespace {

template <class Screen>
void provide(core::Workplace& place, const char* name) {
    place.desktop.provide(name, [&place] { return std::make_unique<Screen>(place); });
}

}  // namespace

void provideScreens(core::Workplace& place) {
    provide<frmPreConsult>(place, "frmPreConsult");
    provide<frmInjAndDress>(place, "frmInjAndDress");
    provide<frmInjectionEntryForAdm>(place, "frmInjectionEntryForAdm");
    provide<frmNurseInjection>(place, "frmNurseInjection");
    provide<frmNurseDressing>(place, "frmNurseDressing");
    provide<frmPatList>(place, "frmPatList");
    provide<frmConsultInfo>(place, "frmConsultInfo");
    provide<frmSuperPicture>(place, "frmSuperPicture");
    provide<frmImmune>(place, "frmImmune");
}

}  // namespace outpatient
