#pragma once

#include <string>

#include "core/forms/form.h"

namespace inpatient {

/// What a patient was given in one of the admissions, for printing (`gCurConsultPNo`).
class frmMedChartHistory : public core::Form {
public:
    explicit frmMedChartHistory(core::Workplace& place);

    void showing() override;

    ui::ComboBox cboCust{*this, "cboCust"};  ///< an admission, or the number of a laboratory report
    ui::ComboBox cboDrug{*this, "cboDrug", ui::ComboBox::Style::listOnly};
    ui::Button cmdPat{*this, "cmdPat", "&Get Admissions"};
    ui::Button cmdDisplay{*this, "cmdDisplay", "&Display"};
    ui::Button cmdHist{*this, "cmdHist", "&HistoPathology"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void cmdPat_Click();
    void cboCust_Click();
    void cmdDisplay_Click();
    void cmdHist_Click();

    std::string pno_;  ///< whose admissions the list shows
};

}  // namespace inpatient
