#pragma once

#include "tests/registration/shared/registration.h"

namespace test {

class PatientsNew : public Registration {
protected:
    PatientsNew() : Registration("frmPatientsNew") {}
};

}  // namespace test
