#include "registration/shared/patientsearch.h"

#include <algorithm>

#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"
#include "registration/shared/purposes.h"

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
    if (kind == SearchKind::name)
        return hospital.read("select  * from vwhpatients where fullname like '%"_sql + wanted + "%' order by fullname");
    if (kind == SearchKind::cardNo)
        return hospital.read("select  * from vwhpatients where oldPno = '"_sql + wanted + "' order by fullname");
    return hospital.read("select  * from vwhpatients where Pno = '"_sql + wanted + "' order by fullname");
}

db::Recordset firstByName(core::Workplace& place, const std::string& text) {
    return place.hospital().read("select top "_sql + settingNumber(place.session.gSearchValue) +
                                 "  * from vwhpatients where fullname like '%" + text + "%'  order by fullname");
}

const char* searchPrompt(SearchKind kind) {
    switch (kind) {
        case SearchKind::name:
            return "To locate a patient, Enter few Letters and click OK Button";
        case SearchKind::cardNo:
            return "To locate a patient, Enter Card No and click 'Card No' Button";
        case SearchKind::sysNo:
            return "To locate a patient, Enter Patient Sys No and click 'System No' Button";
        case SearchKind::phoneNo:
            return "To locate a patient, Enter Patient Tel No and click 'Tel No' Button";
    }
    return "";
}

std::string systemNumber(const core::Session& session, const std::string& text) {
    if (text.find('/') != std::string::npos) return text;
    const auto padded = "000000000" + text;
    return padded.substr(padded.size() - 9) + "/" + session.gHospitalNo;
}

}  // namespace registration
