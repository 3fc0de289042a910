#include "shell/screens.h"

#include "shell/mdivorel/mdivorel.h"

namespace shell {

void provideScreens(core::Workplace& place) {
    place.desktop.provide("MdiVorel", [&place] { return std::make_unique<MdiVorel>(place); });
}

}  // namespace shell
