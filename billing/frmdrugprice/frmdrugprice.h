#pragma once

#include <deque>
#include <string>

#include "core/forms/recordform.h"

namespace billing {

/// "Admission Service Price": what an item that the wards charge costs each tariff group. New items come from the
/// screen of the service items; here they get their prices.
class frmDrugPrice : public core::RecordForm {
public:
    explicit frmDrugPrice(core::Workplace& place);

    ui::ComboBox cboCat{*this, "cboCat", ui::ComboBox::Style::listOnly};  ///< narrows the list to a category
    ui::TextBox txtSearch{*this, "txtSearch"};
    ui::Label lblRec{*this, "lblRec"};  ///< how many the list has
    ui::TextBox txtDrug{*this, "txtDrug"};
    ui::TextBox txtCat{*this, "txtCat"};
    ui::TextBox txtDosage{*this, "txtDosage"};  ///< what one unit holds
    std::deque<ui::TextBox> txtFlds;            ///< "txtFlds(0)" to "txtFlds(7)", the prices in naira by tariff group
    ui::Button cmdNew{*this, "cmdNew", "&New Item"};

protected:
    void fillLists() override;
    void showList() override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] bool maySave() override { return confirmed("Are you sure to update", "Check before updating"); }
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override { return std::nullopt; }
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    [[nodiscard]] db::Sql wanted() const;
    void proposeNHIS();

    std::string item_;  ///< the one under correction, then the one written
};

}  // namespace billing
