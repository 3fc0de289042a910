#include "app/screens.h"

#include "billing/screens.h"
#include "inpatient/screens.h"
#include "outpatient/screens.h"
#include "registration/screens.h"
#include "shell/screens.h"

namespace app {

void provideScreens(core::Workplace& place) {
    shell::provideScreens(place);
    registration::provideScreens(place);
    billing::provideScreens(place);
    outpatient::provideScreens(place);
    inpatient::provideScreens(place);
}

}  // namespace app
