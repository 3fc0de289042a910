#pragma once

#include <string>

#include "core/session/session.h"
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
    const auto set = [&place](const char* field, const nlohmann::json& content) {
        place.desktop.set(std::string("frmPatientsNewNur.") + field, content, false);
    };
    place.desktop.fire("frmPatientsNewNur.cmdAdd", false);
    EXPECT_TRUE(place.desktop.get("frmPatientsNewNur.chkReg")["checked"]) << "everyone may take the attendance here";
    set("cboNew", "NEW");
    set("cboPat", client);
    if (client != "(PRIVATE) [0001]") {
        set("cboClient", "HMO");
        set("dtExpDate", nullptr);
    }
    set("txtsurNAme", "OBI");
    set("txtfirstNAme", "NGOZI");
    if (clinic == "(IN-PATIENT)") set("cboMat", "NEONATE");
    set("cboClin", clinic);
    set("cboPurpose", purpose);
}

}  // namespace test
