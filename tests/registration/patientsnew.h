#pragma once

#include "tests/registration/registration.h"

namespace test {

class PatientsNew : public Registration {
protected:
    PatientsNew() : Registration("frmPatientsNew") {}
    explicit PatientsNew(const HospitalFiles& files) : Registration("frmPatientsNew", files) {}
};

}  // namespace test
