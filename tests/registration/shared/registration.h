#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "registration/screens.h"
#include "registration/shared/registrationform/registrationform.h"
#include "tests/core/stubs.h"
#include "tests/support/picture.h"

namespace test {

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
inline void typePatient(core::Workplace& place, const std::string& screen,
                        const std::string& client = "(PRIVATE) [0001]") {
    const auto set = [&](const char* field, const nlohmann::json& content) {
        place.desktop.set(screen + "." + field, content, false);
    };
    const auto is = [&](const char* control, const char* property) {
        return place.desktop.get(screen + "." + control)[property].get<bool>();
    };
    if (is("cmdAdd", "visible")) place.desktop.fire(screen + ".cmdAdd", false);
    set("cboPat", client);
    if (client != "(PRIVATE) [0001]") {
        set("cboClient", "HMO");
        set("txtPolicy", "Gold [1]");
        set("txtEmp", " E-77 ");
        set("CboRef", "YES");
        set("cboRefHmo", "NO");
    }
    const std::pair<const char*, const char*> typed[] = {{"cboNew", "NEW"},
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
                                                         {"txtKinRel", "HUSBAND"}};
    for (const auto& [field, text] : typed) set(field, text);
    set("dtDate", "1990-05-01");
    if (is("chkReg", "checked")) set("chkReg", false);
}

/// A nurse or a clerk at the desk. `screenName` says whose screen it is.
class Registration : public testing::Test {
protected:
    explicit Registration(std::string screenName) : name(std::move(screenName)) { open(); }
    registration::RegistrationForm& screen() {
        return dynamic_cast<registration::RegistrationForm&>(*place.desktop.loaded(name));
    }
    core::Session& session() { return place.session; }

    void fire(const std::string& control) { place.desktop.fire(name + "." + control, false); }
    void set(const std::string& control, const nlohmann::json& content) {
        place.desktop.set(name + "." + control, content, false);
    }
    void type(const std::string& client = "(PRIVATE) [0001]") { typePatient(place, name, client); }
    void save(const std::string& says = "Record Succesfully saved") {
        hospital.answer("yes");
        hospital.expectMessage(says);
        fire("OKButton");
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
    std::string focus() { return hospital.focus(); }
    bool ran(const std::string& statement) { return hospital.ran(statement); }
    std::string rows() {
        using namespace db::literals;
        std::string all;
        for (const auto& table :
             {"select * from hPatients"_sql, "select * from hRecords"_sql, "select * from billAccum"_sql,
              "select * from hPatientClinics"_sql, "select * from hreferal"_sql, "select * from happointment"_sql,
              "select * from hPatientsTimeline"_sql, "select * from hhScreeningAttnd"_sql,
              "select * from hAuditTrail"_sql, "select * from hpatientsArchive"_sql})
            all += hospital.dump(table) + "-\n";
        return all;
    }

    const std::string name;
    Ward hospital;
    core::Workplace& place = hospital.place;

private:
    void open() {
        using namespace db::literals;
        hospital.start();
        registration::provideScreens(place);
        arrangeRegistration(hospital);
        place.desktop.show(name);
        hospital.forget();
    }
};

}  // namespace test
