#pragma once

#include <string>
#include <utility>

#include "core/session/session.h"
#include "registration/screens.h"
#include "registration/shared/registrationform/registrationform.h"
#include "tests/core/atscreen.h"
#include "tests/support/picture.h"

namespace test {

inline constexpr const char* privateClient = "(PRIVATE) [0001]";

/// The rows of a registration desk with two clients: the private one and an HMO with a plan.
inline void arrangeRegistration(TestHospital& hospital) {
    using namespace db::literals;
    hospital.execute(
        "insert into hRetainership (retainID, retainName, retainCode, ClientType, clientcatID, RegAmount, "
        "CardRenewAmount, ConAmount) values ('0007', 'Axa Mansard', 'AXM', 'HMO', 'HMO', 750.5, 100, 200)"_sql);
    hospital.execute("insert into HmoPlan (planName, CoyCode) values ('Gold', '0007')"_sql);
    hospital.execute("insert into hPatientArea (AreaName) values ('Ikeja')"_sql);
    hospital.execute("insert into clinicTypes (ClinicID, ClinicName, Regfee) values ('EYE', 'EYE', 300)"_sql);
}

/// Adds a patient as the desk asks; `client` is the entry of the list.
inline void typePatient(core::Workplace& place, const std::string& screen, const std::string& client = privateClient) {
    if (place.desktop.get(screen + ".cmdAdd")["visible"]) place.desktop.fire(screen + ".cmdAdd", false);
    enter(place, screen, {{"cboPat", client}});
    if (client != privateClient)
        enter(place, screen,
              {{"cboClient", "HMO"},
               {"txtPolicy", "Gold [1]"},
               {"txtEmp", " E-77 "},
               {"CboRef", "YES"},
               {"cboRefHmo", "NO"}});
    enter(place, screen,
          {{"cboNew", "NEW"},
           {"cboTitle", "MRS"},
           {"txtsurNAme", "o'brien [x]"},
           {"txtfirstNAme", "ada"},
           {"txtSex", "FEMALE"},
           {"cboCard", "SINGLE"},
           {"cboMat", "ADULT"},
           {"cboArea", "Ikeja"},
           {"txtPhone", "0803-1234567"},
           {"txtKin", "Tunde"},
           {"txtNOKPhone", " 0809 "},
           {"txtOLD", " A/12 "},
           {"txtHomeAddress", "3 Palm St"},
           {"txtGeno", "AS"},
           {"txtKinRel", "HUSBAND"},
           {"dtDate", "1990-05-01"},
           {"chkReg", false}});
}

/// A nurse or a clerk at the desk. `screenName` says whose screen it is.
class Registration : public AtScreen {
protected:
    explicit Registration(std::string screenName)
        : AtScreen(std::move(screenName), &registration::provideScreens, &arrangeRegistration) {}
    registration::RegistrationForm& screen() { return as<registration::RegistrationForm>(); }

    void type(const std::string& client = privateClient) { typePatient(place, name, client); }
    /// Chooses a photograph with this content; gives where it lies.
    std::filesystem::path choosePhotograph(const std::string& content = jpeg(16, 16), Says says = {}) {
        const auto file = hospital.program.path() / "face.jpg";
        hospital.program.write("face.jpg", content);
        hospital.answer({{"file", file.string()}});
        fire("cmdPix", says);
        return file;
    }
    /// A patient that stands in the database, and in the grid's first row.
    void addPatient(const std::string& pno, const std::string& client = "0001",
                    const std::string& category = "PRIVATE") {
        using namespace db::literals;
        hospital.execute(
            "insert into hPatients (PNo, OldPNo, Title, psurname, pfirstName, CoyName, clientCatID, coyType, regDate, "
            "sex, "
            "CardType, Maturity, ref, HMORef, Area, pPhoneNo, nextOfKin, NOKPhone, expirydate, pCatID, DOB) values ('"_sql +
            pno + "', 'C-" + pno + "', 'MR', 'BELLO', 'MUSA', '" + client + "', '" + category + "', '" + category +
            "', '24-Nov-2026', 'MALE', 'SINGLE', 'ADULT', 'NO', 'NO', 'Ikeja', '0803', 'Kin', '0804', '24-Dec-2026', "
            "'PRINCIPAL', '01-Jan-1980')");
        fire("cmdRefresh");
        hospital.forget();
    }
    /// Takes today's visit of a patient, behind the screen's back.
    void addVisit(const char* pno) {
        using namespace db::literals;
        hospital.execute("insert into hRecords (PNo, consultID, recDate) values ('"_sql + std::string(pno) +
                         "', 'C1', '24-Nov-2026')");
    }
};

}  // namespace test
