#include "registration/shared/registrationform/contacts.h"

#include "core/rows/entries.h"

namespace registration {

using namespace db::literals;

Contacts::Contacts(core::Workplace& place, ui::Screen& screen) : Part(place, screen) {
    core::fill(cboMat, {"ADULT", "ADOLESCENT", "CHILD", "NEONATE"});
    core::fill(cboMStatus, {"", "SINGLE", "MARRIED"});
    core::fill(txtBG, {"", "O-NEGATIVE", "O-POSITIVE", "A-NEGATIVE", "A-POSITIVE", "B-NEGATIVE", "B-POSITIVE",
                       "AB-NEGATIVE", "AB-POSITIVE"});
    core::fill(txtGeno, {"", "AA", "AS", "SS", "AC"});
    core::fill(cboStatus, {"", "CHRISTIANITY", "ISLAM", "OTHERS"});
    core::fill(txtKinRel, {"", "FATHER", "MOTHER", "UNCLE", "AUNT", "BROTHER", "SISTER", "COUSIN", "NIECE", "WIFE",
                           "HUSBAND", "SON", "DAUGHTER", "OTHERS"});
    bind(cboIntro, ui::Event::click, [this] { pickIntroducer(); });
}

void Contacts::loadLists() {
    cboArea.clear();
    core::addColumn(cboArea, hospital(), "select distinct AreaName from hPatientArea order by AreaName"_sql,
                    "AreaName");
    cboIntro.clear();
    cboIntro.add("");
    core::addEntries(
        cboIntro, hospital(), "select distinct empID,lastname,firstname from employees order by lastname,firstname"_sql,
        [](const db::Recordset& row) {
            return core::entryText(row["lastname"].textOr() + " " + row["firstname"].textOr(), row["empID"].textOr());
        });
}

void Contacts::pickIntroducer() {
    const auto entry = core::entryOf(cboIntro.text());
    introducedById_ = entry.key.empty() ? entry.name : entry.key;
}

void Contacts::showIntroducer(const std::string& empID) {
    const int item = core::itemWithKey(cboIntro, empID);
    core::showEntry(cboIntro, item < 0 ? empID : cboIntro.items()[static_cast<std::size_t>(item)].text);
    introducedById_ = empID;
}

void Contacts::forgetIntroducer() {
    cboIntro.clearText();
    introducedById_.clear();
}

std::vector<ui::Control*> Contacts::controls() {
    return {&txtPhone,   &cboMat, &txtHomeAddress, &txtOfficeAddress, &txtEmail,
            &cboMStatus, &txtBG,  &txtGeno,        &txtOccu,          &cboStatus,
            &cboIntro,   &txtKin, &txtNOKPhone,    &txtKinRel,        &txtKinAddress};
}

}  // namespace registration
