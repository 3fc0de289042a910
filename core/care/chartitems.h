#pragma once

#include <string>

#include "core/rows/cells.h"

namespace core {

/// The charts of what is to be given: that of the out-patients (`hInjAndDressing`), that of the wards
/// (`hMedChartMonitor`).
enum class Chart { outPatients, wards };

/// An item that is to be given so many times, and was not yet.
struct ChartItem {
    db::Value conID;  ///< the consultation that ordered it
    std::string consultID;
    std::string pno;
    std::string name;
    db::Value category;
    db::Value times;   ///< doses
    db::Value dosage;  ///< how it is to be taken
    std::string clientCat;
    db::Value date;  ///< when it came to the chart
    db::Value time;
};

/// The empty set to which rows of a chart are added.
db::Sql emptyChart(Chart chart);
/// The cells of an item's row in a chart.
Cells chartCells(Chart chart, const ChartItem& item);

}  // namespace core
