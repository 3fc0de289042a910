#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "core/care/lastreadings.h"
#include "core/care/vitalreadings.h"
#include "core/forms/recordform.h"
#include "inpatient/shared/stays.h"
#include "inpatient/trend/trend.h"

namespace inpatient {

/// "Vital Signs [Admission Only]": the wards' four-hourly chart of observations. No reading has to be taken, and
/// nothing is charged.
class frmPreConsultAdm : public core::RecordForm {
public:
    /// `trend` is where the screens that draw a trend look for it.
    frmPreConsultAdm(core::Workplace& place, Trend& trend);

    [[nodiscard]] std::optional<std::string> patientEntry() const override { return LstDate.text(); }

    // -- the patient --
    ui::ListBox LstDate{*this, "LstDate"};  ///< all patients in the wards
    ui::Label lblTitle{*this, "lblTitle"};
    ui::Label lblNo{*this, "lblNo"};      ///< the system number
    ui::Label lblBill{*this, "lblBill"};  ///< the consult number
    ui::Label lblCat{*this, "lblCat"};    ///< the client category
    ui::Label lblWard{*this, "lblWard"};
    ui::Label lblSex{*this, "lblSex"};
    ui::Label lblAge{*this, "lblAge"};
    ui::Label lblCoy{*this, "lblCoy"};  ///< the client

    // -- the observation --
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::DatePicker dtTime{*this, "dtTime", ui::DatePicker::Format::time};
    core::VitalReadings readings{*this};
    core::LastReadings last{*this};
    ui::TextBox txtStool{*this, "txtStool"};          ///< g
    ui::TextBox txtUrine{*this, "txtUrine"};          ///< ml
    ui::TextBox txtSDrainage{*this, "txtSDrainage"};  ///< special drainage, ml
    ui::TextBox txtRem{*this, "txtRem"};              ///< a comment

    // -- the trends --
    ui::Button cmdBP{*this, "cmdBP", "&BP Chart"};
    ui::Button cmdPulse{*this, "cmdPulse", "Pulse Chart"};
    ui::Button cmdTemp{*this, "cmdTemp", "Temp Chart"};
    ui::Button cmdResp{*this, "cmdResp", "RespRatio Chart"};

protected:
    void fillLists() override;
    void showList() override;
    void entered(Mode mode) override;
    void startAdding() override;
    void startEditing() override;
    [[nodiscard]] std::vector<core::Check> checks() override;
    [[nodiscard]] std::optional<core::Refusal> write() override;
    void committed() override;
    void finished() override;
    [[nodiscard]] std::optional<core::Refusal> mayErase() override { return std::nullopt; }
    [[nodiscard]] std::optional<core::Refusal> erase() override;
    void clear() override;
    void refresh() override;
    [[nodiscard]] ui::Control& restingPlace() override { return LstDate; }
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void LstDate_Click();
    void openPatient();
    void showTitle(const std::string& name);
    void setNow();
    [[nodiscard]] core::Cells cells();
    [[nodiscard]] core::VitalReadings::Taken taken() const;

    /// A series of a trend: what it is called, and the column of hPreConsultChart that holds it.
    using Lines = std::initializer_list<std::pair<const char*, const char*>>;
    void showTrend(const db::Sql& readingsOf, const char* title, const char* screen, Lines lines);

    StayLabels labels_;
    Trend& trend_;
    std::string consultID_;  ///< of the patient opened last, whose observations and trends are shown
    std::string patient_;    ///< the name
    std::string recordID_;   ///< of the row under correction, then of the row written
};

}  // namespace inpatient
