#include "registration/screens.h"

#include "registration/frmpatientsnew/frmpatientsnew.h"
#include "registration/frmpatientsnewnur/frmpatientsnewnur.h"
#include "registration/frmrecords/frmrecords.h"
#include "registration/frmverify/frmverify.h"

namespace registration {

void provideScreens(core::Workplace& place) {
    place.desktop.provide("frmPatientsNew", [&place] { return std::make_unique<frmPatientsNew>(place); });
    place.desktop.provide("frmPatientsNewNur", [&place] { return std::make_unique<frmPatientsNewNur>(place); });
    place.desktop.provide("frmRecords", [&place] { return std::make_unique<frmRecords>(place); });
    place.desktop.provide("frmVerify", [&place] { return std::make_unique<frmVerify>(place); });
}

}  // namespace registration
