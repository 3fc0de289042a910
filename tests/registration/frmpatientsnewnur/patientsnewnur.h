#pragma once

#include <string>

#include "tests/registration/shared/registration.h"

namespace test {

/// What a registration and a consultation cost who pays himself.
inline void priceServices(TestHospital& hospital) {
    using namespace db::literals;
    hospital.execute(
        "insert into hServiceNHIS (drgName, Price, Company) values ('REGISTRATION', 1500.25, 'NHIS'), "
        "('CONSULTATION', 900, 'NHIS')"_sql);
    hospital.place.session.gNhisRegServiceNo = "1";
    hospital.place.session.gNhisServiceNo = "2";
}

/// The least that a nurse has to know of a patient, with the visit.
inline void bookPatient(core::Workplace& place, const std::string& client, const std::string& clinic,
                        const std::string& purpose) {
    const std::string screen = "frmPatientsNewNur";
    place.desktop.fire(screen + ".cmdAdd", false);
    EXPECT_TRUE(place.desktop.get(screen + ".chkReg")["checked"]) << "everyone may take the attendance here";
    enter(place, screen, {{"cboNew", "NEW"}, {"cboPat", client}});
    if (client != privateClient) enter(place, screen, {{"cboClient", "HMO"}, {"dtExpDate", nullptr}});
    enter(place, screen, {{"txtsurNAme", "OBI"}, {"txtfirstNAme", "NGOZI"}});
    if (clinic == "(IN-PATIENT)") enter(place, screen, {{"cboMat", "NEONATE"}});
    enter(place, screen, {{"cboClin", clinic}, {"cboPurpose", purpose}});
}

}  // namespace test
