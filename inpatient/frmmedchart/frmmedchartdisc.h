#pragma once

#include "core/forms/form.h"
#include "inpatient/frmmedchart/chartedpatient.h"

namespace inpatient {

/// The drugs of a stay that were discontinued or given in full. One that was not given in full can be recalled.
class frmMedChartDisc : public core::Form {
public:
    frmMedChartDisc(core::Workplace& place, const ChartedPatient& patient);

    void load() override;

    ui::DataGrid grdData{*this, "grdData"};
    ui::Label lblReason{*this, "lblReason"};  ///< why the drug under the cursor was discontinued or recalled last
    ui::Button cmdDisp{*this, "cmdDisp", "&Recall Discontinued Drug to Medication Chart"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    void cmdDisp_Click();
    void showReason();

    const ChartedPatient patient_;
};

}  // namespace inpatient
