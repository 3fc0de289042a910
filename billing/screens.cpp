#include "billing/screens.h"

#include <memory>

#include "billing/frmbillservice/frmbillservice.h"
#include "billing/frmdrugprice/frmdrugprice.h"
#include "billing/frmstockitems/frmstockitems.h"
#include "billing/tariffs/tariffscreen.h"

namespace billing {
namespace {

template <class Screen>
void provide(core::Workplace& place, const char* name) {
    place.desktop.provide(name, [&place] { return std::make_unique<Screen>(place); });
}

}  // namespace

void provideScreens(core::Workplace& place) {
    provide<frmBillService>(place, "frmBillService");
    provide<frmDrugPrice>(place, "frmDrugPrice");
    provide<frmStockItems>(place, "frmStockItems");
    for (const auto& kind : tariffKinds)
        place.desktop.provide(kind.screen, [&place, &kind] { return std::make_unique<TariffScreen>(place, kind); });
}

}  // namespace billing
