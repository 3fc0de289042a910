#include "outpatient/shared/itemchoice.h"

#include "core/rows/entries.h"
#include "core/texts/texts.h"

namespace outpatient {

using namespace db::literals;

namespace {

constexpr const char* dressings = "DRESSING";

}  // namespace

ItemChoice::ItemChoice(core::Workplace& place, ui::Screen& screen)
    : Part(place, screen),
      cboCat(screen, "cboCat", ui::ComboBox::Style::listOnly),
      cboDrug(screen, "cboDrug", ui::ComboBox::Style::listOnly) {
    bind(cboCat, ui::Event::click, &ItemChoice::showItems);
}

void ItemChoice::fill() {
    cboCat.clear();
    core::addColumn(cboCat, hospital(), "select drgCatname from drugcategories order by drgCatname"_sql, "drgCatname");
    drugCategories_ = static_cast<int>(cboCat.items().size());
    core::addColumn(cboCat, hospital(), "select distinct catName from HserviceCat"_sql, "catName");
}

void ItemChoice::showItems() {
    cboDrug.clear();
    if (cboCat.index() < 0) return;
    core::addColumn(cboDrug, hospital(),
                    (listsDrugs() ? "select distinct drug from vwDrugsForGrid where category='"_sql
                                  : "select distinct service as drug from hservices where category='"_sql) +
                        core::quotesDoubled(cboCat.text()) + "'",
                    "drug");
}

void ItemChoice::pickDressings() {
    cboCat.setIndex(cboCat.items().find(dressings));
}

void ItemChoice::clear() {
    cboCat.clearText();
    cboDrug.clear();
}

billing::ItemKind ItemChoice::kind() const {
    return listsDrugs() && cboCat.text() != dressings ? billing::ItemKind::drug : billing::ItemKind::service;
}

bool isGivenByNurses(const std::string& category) {
    return category == dressings || category == "INJECTIONS";
}

}  // namespace outpatient
