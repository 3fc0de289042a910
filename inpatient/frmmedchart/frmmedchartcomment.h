#pragma once

#include "core/forms/form.h"

namespace inpatient {

/// A standing comment on a stay, which comes up whenever the patient's chart is opened (`gCommentConsultID`).
class frmMedChartComment : public core::Form {
public:
    explicit frmMedChartComment(core::Workplace& place);

    void load() override;

    ui::Label lblTitle{*this, "lblTitle"};
    ui::TextBox txtDrug{*this, "txtDrug"};  ///< the comment; "NONE" where there is none
    ui::Button OKButton{*this, "OKButton", "&Save Changes"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    [[nodiscard]] ui::Control* controlOf(std::string_view /*column*/) override { return &txtDrug; }

private:
    void OKButton_Click();

    const std::string consultID_;
};

}  // namespace inpatient
