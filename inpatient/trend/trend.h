#pragma once

#include <string>
#include <vector>

#include "core/forms/form.h"

namespace inpatient {

/// Readings of one patient over time: what the ward's chart of observations hands to the screen that draws it.
struct Trend {
    std::string title;    ///< "BP Chart"
    std::string patient;  ///< the name
    std::vector<std::string> labels;
    std::vector<ui::LineChart::Series> series;
};

/// Draws a trend, with what the values are in at their axis.
class TrendScreen : public core::Form {
public:
    /// `trend` is what there is to draw when the screen opens.
    TrendScreen(core::Workplace& place, const char* name, const char* valueAxis, const Trend& trend);

    void load() override;

    ui::Label Label5{*this, "Label5"};  ///< which trend of whom
    ui::LineChart chart{*this, "chart"};
    ui::Button cmdPrint{*this, "cmdPrint", "&Print"};
    ui::Button CancelButton{*this, "CancelButton", "&Close"};

private:
    const Trend& trend_;
};

}  // namespace inpatient
