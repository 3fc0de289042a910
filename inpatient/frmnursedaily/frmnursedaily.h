#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/forms/recordform.h"

namespace inpatient {

/// "Daily Report": the ward's report by date, shift and heading. It can be corrected until it is completed; a new one
/// of the same shift and heading retires all that were there before. A copy of the text in a file beside the program
/// guards a long report against a lost connection.
class frmNurseDaily : public core::RecordForm {
public:
    /// `viewed` is where the screen that shows a local copy looks for it.
    frmNurseDaily(core::Workplace& place, std::string& viewed);

    ui::Label lblTitle{*this, "lblTitle"};
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::ComboBox cboShift{*this, "cboShift", ui::ComboBox::Style::listOnly};
    ui::ComboBox cboVehNo{*this, "cboVehNo", ui::ComboBox::Style::listOnly};  ///< the report's heading
    ui::ComboBox cboYes{*this, "cboYes", ui::ComboBox::Style::listOnly};      ///< whether the report is complete
    ui::TextBox txtSub{*this, "txtSub"};                                      ///< the sub-heading
    ui::TextBox txtAdmin{*this, "txtAdmin"};                                  ///< the report
    ui::Button cmdLocal{*this, "cmdLocal", "Save to &Local"};
    ui::Button cmdRet{*this, "cmdRet", "Retrie&ve from Local"};
    ui::Button cmdView{*this, "cmdView", "View Local"};

protected:
    void fillLists() override;
    void showList() override;
    void entered(Mode mode) override;
    void startAdding() override;
    [[nodiscard]] std::optional<core::Refusal> mayEdit() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] bool maySave() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    void clear() override;
    [[nodiscard]] ui::Control& restingPlace() override { return cboShift; }

private:
    /// A report as it was read.
    struct Report {
        std::string sno;
        std::string shift;
        std::string heading;
        std::string details;
    };

    void dateChanged();
    void loadReport();
    void showReport();
    void chooseRow();
    [[nodiscard]] std::vector<core::Check> localChecks(const char* withoutReport);
    [[nodiscard]] std::filesystem::path localFile() const;
    [[nodiscard]] std::string localCopy() const;
    void cmdLocal_Click();
    void cmdRet_Click();
    void cmdView_Click();
    [[nodiscard]] std::string changedMeanwhile();
    /// False where the report has gone.
    bool updateReport();
    void insertReport();

    std::string& viewed_;
    std::optional<Report> shown_;  ///< the report picked last
    Report open_;                  ///< the report under correction
    bool choosing_ = false;        ///< both picks are being made from the list's row
    std::string saved_;            ///< the number of the report saved last
};

}  // namespace inpatient
