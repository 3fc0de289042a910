#pragma once

#include <string>

#include "core/forms/recordform.h"

namespace inpatient {

/// "Hospital Ward": the places where patients lie. A row is one ward or bed; nothing counts who lies there.
class frmWards : public core::RecordForm {
public:
    explicit frmWards(core::Workplace& place);

    ui::TextBox txtName{*this, "txtName"};
    ui::TextBox txtID{*this, "txtID"};  ///< the key, under which nurses see the place
    ui::ComboBox txtLocation{*this, "txtLocation", ui::ComboBox::Style::listOnly};

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
    [[nodiscard]] std::optional<core::Refusal> erase() override;

private:
    std::string keptID_;  ///< the key of the row under correction, then of the row written
};

}  // namespace inpatient
