#include "core/care/chartitems.h"

namespace core {

using namespace db::literals;

db::Sql emptyChart(Chart chart) {
    return chart == Chart::wards ? "select * from hMedChartMonitor where 1=2"_sql
                                 : "select * from hInjAndDressing where 1=2"_sql;
}

Cells chartCells(Chart chart, const ChartItem& item) {
    const bool wards = chart == Chart::wards;
    return {{"conID", item.conID},
            {"consultID", item.consultID},
            {"PNo", item.pno},
            {wards ? "mdate" : "injdate", item.date},
            {wards ? "mtime" : "injTime", item.time},
            {"numOfTimes", item.times},
            {"numtaken", 0},
            {wards ? "drgName" : "injname", item.name},
            {"clientCat", item.clientCat},
            {"drgCatName", item.category},
            {"dosage", item.dosage},
            {"attendedto", false}};
}

}  // namespace core
