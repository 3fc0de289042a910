#pragma once

#include "billing/prices.h"
#include "core/forms/part.h"
#include "ui/controls.h"

namespace outpatient {

/// A category, of drugs or of services, and one of its items.
class ItemChoice : public core::Part {
public:
    ItemChoice(core::Workplace& place, ui::Screen& screen);

    /// Offers the categories, those of drugs first. Throws db::Error.
    void fill();
    /// Picks the category of dressings.
    void pickDressings();
    /// Nothing is chosen.
    void clear();
    /// By which tariff the item is priced: dressings are services, although they are listed among the drugs.
    [[nodiscard]] billing::ItemKind kind() const;

    ui::ComboBox cboCat;
    ui::ComboBox cboDrug;

private:
    void showItems();
    /// Whether the category is one of drugs.
    [[nodiscard]] bool listsDrugs() const { return cboCat.index() < drugCategories_; }

    int drugCategories_ = 0;
};

/// Dressings and injections stand on the out-patients' chart, also those of patients in the wards.
bool isGivenByNurses(const std::string& category);

}  // namespace outpatient
