#pragma once

#include <string>
#include <vector>

#include "registration/frmrecords/frmrecords.h"
#include "tests/registration/shared/registration.h"

namespace test {

inline constexpr const char* musa = "000000001/001";

/// Musa, a private patient whose card is good, and the HMO's Ada.
inline void arrangeAttendance(TestHospital& hospital) {
    using namespace db::literals;
    hospital.execute(
        "insert into hPatients (PNo, OldPNo, psurname, pfirstName, CoyName, clientCatID, occupation, PolicyType, "
        "ref, HMORef, expirydate, empNo) values "
        "('000000001/001', 'C-1', 'BELLO', 'MUSA', '0001', 'PRIVATE', 'TAILOR', null, 'YES', null, '25-Nov-2026', "
        "null), "
        "('000000002/001', 'C-2', 'OBI', 'ADA', '0007', 'HMO', null, 'Gold [1]', null, 'YES', '20-Nov-2026', "
        "'E-77')"_sql);
}

/// An attendance as far as the save.
inline void takeAttendance(core::Workplace& place, const std::string& number = "1",
                           const std::string& purpose = "(CONSULTATION)") {
    const auto set = [&place](const char* field, const std::string& text) {
        place.desktop.set(std::string("frmRecords.") + field, text, false);
    };
    place.desktop.fire("frmRecords.cmdAdd", false);
    set("txtName", number);
    place.desktop.fire("frmRecords.cmdSys", false);
    set("cboType", "EYE");
    set("cboPurpose", purpose);
    set("CboRef", "NO");
    set("cboRefHmo", "NO");
    set("txtEmp", "NIL");
}

/// A clerk at the attendance desk.
class Records : public Registration {
protected:
    Records() : Registration("frmRecords") {
        arrangeAttendance(hospital);
        fire("cmdRefresh");
        hospital.forget();
    }
    registration::frmRecords& screen() { return dynamic_cast<registration::frmRecords&>(*place.desktop.loaded(name)); }
    /// Finds a patient by a number, which picks him.
    void find(const std::string& number) {
        set("txtName", number);
        fire("cmdSys");
    }
    void take(const std::string& number = "1", const std::string& purpose = "(CONSULTATION)") {
        takeAttendance(place, number, purpose);
    }
    void saveOne(const std::string& number = "1", const std::string& purpose = "(CONSULTATION)") {
        take(number, purpose);
        save();
        hospital.forget();
    }
    std::string shown() {
        auto controls = place.desktop.get(name)["controls"];
        controls.erase("grdData");
        controls.erase("lblFound");
        return controls.dump();
    }
    std::string hiddenColumns() {
        std::string hidden;
        const auto grid = place.desktop.get(name)["controls"]["grdData"];
        for (const auto& column : grid["columns"])
            if (!column["visible"].get<bool>()) hidden += column["name"].get<std::string>() + " ";
        return hidden;
    }
    static std::string texts(const ui::ItemControl& list) {
        std::string all;
        for (const auto& item : list.items()) all += item.text + "|";
        return all;
    }
    std::string labels() {
        std::string all;
        for (const auto* label : {&screen().lblTitle, &screen().lblNo, &screen().lblOld, &screen().lblOccup,
                                  &screen().lblPolicy, &screen().lblExpire})
            all += label->caption() + "|";
        return all;
    }
};

}  // namespace test
