#include "shell/screens.h"

#include "shell/comments/frmcomments.h"
#include "shell/comments/frmcommentsview.h"
#include "shell/frmflash/frmflash.h"
#include "shell/frmflashexpire/frmflashexpire.h"
#include "shell/frmreminder/frmreminder.h"
#include "shell/frmrests/frmrests.h"
#include "shell/mdivorel/mdivorel.h"

namespace shell {

void provideScreens(core::Workplace& place) {
    place.desktop.provide("MdiVorel", [&place] { return std::make_unique<MdiVorel>(place); });
    place.desktop.provide("frmFlash", [&place] { return std::make_unique<frmFlash>(place); });
    place.desktop.provide("frmFlashExpire", [&place] { return std::make_unique<frmFlashExpire>(place); });
    place.desktop.provide("frmComments", [&place] { return std::make_unique<frmComments>(place); });
    place.desktop.provide("frmCommentsView", [&place] { return std::make_unique<frmCommentsView>(place); });
    place.desktop.provide("frmReminder", [&place] { return std::make_unique<frmReminder>(place); });
    place.desktop.provide("frmRests", [&place] { return std::make_unique<frmRests>(place); });
}

}  // namespace shell
