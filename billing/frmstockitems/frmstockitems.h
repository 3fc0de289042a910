#pragma once

#include <string>

#include "core/forms/recordform.h"

namespace billing {

/// "Service Items": what the wards charge, with the hospital's own price.
class frmStockItems : public core::RecordForm {
public:
    explicit frmStockItems(core::Workplace& place);

    ui::TextBox txtSearch{*this, "txtSearch"};
    ui::TextBox txtName{*this, "txtName"};
    ui::ComboBox cboCat{*this, "cboCat", ui::ComboBox::Style::listOnly};
    ui::TextBox txtQty{*this, "txtQty"};        ///< what one unit holds
    ui::TextBox txtPrice{*this, "txtPrice"};    ///< the hospital's own, in naira
    ui::TextBox txtPrice2{*this, "txtPrice2"};  ///< the NHIS price, in naira
    ui::Button cmdPrice{*this, "cmdPrice", "&Prices of all Groups"};

protected:
    void fillLists() override;
    void showList() override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override { return std::nullopt; }
    [[nodiscard]] std::string eraseQuestion() const override { return "Are you sure to Delete"; }
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    void erased() override;

private:
    /// All rows of the item under correction, one a tariff group.
    [[nodiscard]] db::Sql rowsOfItem() const;

    std::string item_;  ///< the one under correction, then the one written
};

}  // namespace billing
