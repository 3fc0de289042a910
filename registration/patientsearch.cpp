#include "registration/patientsearch.h"

#include <algorithm>

#include "core/entries.h"
#include "registration/purposes.h"

namespace registration {

using namespace db::literals;

void showFound(ui::DataGrid& grid, ui::Label& lblFound, db::Recordset patients,
               std::initializer_list<std::string_view> hidden) {
    const auto count = patients.rowCount();
    lblFound.setCaption(std::to_string(count) + " Records Found");
    if (count == 0) return grid.clear();
    grid.bind(std::move(patients));
    grid.hideOnly(hidden);
}

db::Recordset searchAtDesk(core::Workplace& place, SearchKind kind, const std::string& text) {
    const auto wanted = core::quotesDoubled(text);
    auto& hospital = place.hospital();
    switch (kind) {
        case SearchKind::name:
            return hospital.read("select  * from vwhpatients where fullname like '%"_sql + wanted +
                                 "%' order by fullname");
        case SearchKind::cardNo:
            return hospital.read("select  * from vwhpatients where oldPno = '"_sql + wanted + "' order by fullname");
        case SearchKind::sysNo:
            return hospital.read("select  * from vwhpatients where Pno = '"_sql + wanted + "' order by fullname");
    }
    return {};
}

db::Recordset firstByName(core::Workplace& place, const std::string& text) {
    return place.hospital().read("select top "_sql + settingNumber(place.session.gSearchValue) +
                                 "  * from vwhpatients where fullname like '%" + text + "%'  order by fullname");
}

const char* deskPrompt(SearchKind kind) {
    switch (kind) {
        case SearchKind::name:
            return "To locate a patient, Enter few Letters and click OK Button";
        case SearchKind::cardNo:
            return "To locate a patient, Enter Card No and click 'Card No' Button";
        case SearchKind::sysNo:
            return "To locate a patient, Enter Patient Sys No and click 'System No' Button";
    }
    return "";
}

std::string systemNumber(const core::Session& session, const std::string& text) {
    if (text.find('/') != std::string::npos) return text;
    const auto padded = "000000000" + text;
    return padded.substr(padded.size() - 9) + "/" + session.gHospitalNo;
}

}  // namespace registration
