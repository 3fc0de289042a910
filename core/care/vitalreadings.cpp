#include "core/care/vitalreadings.h"

#include "core/rows/entries.h"

namespace core {

using namespace db::literals;

VitalReadings::VitalReadings(ui::Screen& screen)
    : txtTemp(screen, "txtTemp", ui::decimalOnly),
      txtPressure(screen, "txtPressure", ui::decimalOnly),
      txtPressure2(screen, "txtPressure2", ui::digitsOnly),
      txtPause(screen, "txtPause", ui::decimalOnly),
      txtResp(screen, "txtResp", ui::decimalOnly),
      txtHt(screen, "txtHt", ui::decimalOnly),
      txtWt(screen, "txtWt", ui::decimalOnly),
      txtSPO2(screen, "txtSPO2"),
      txtRBS(screen, "txtRBS"),
      cboPosition(screen, "cboPosition") {}

void VitalReadings::fillPositions() {
    fill(cboPosition, {"Left Lateral", "Right Lateral", "Sitting", "Upright", "Prone", "Trendelenburg", "Cardiac"});
}

Fields VitalReadings::fields() {
    return {{&txtTemp, "temp", "temp"},
            {&txtPause, "pulse", "pulse"},
            {&txtWt, "Weight", "Weight"},
            {&txtHt, "Height", "Height"},
            {&txtResp, "respRatio", "respRatio"},
            {&txtSPO2, "SPO2", "SPO2", Keeps::trimmed},
            {&txtRBS, "RBS", "RBS", Keeps::trimmed},
            {&cboPosition, "Positioning", "Positioning", Keeps::trimmed}};
}

void VitalReadings::showPressure(const ui::DataGrid& list) {
    const auto both = list.text("pressure");
    const auto slash = both.find('/');
    txtPressure.setText(both.substr(0, slash));
    txtPressure2.setText(slash == std::string::npos ? std::string() : both.substr(slash + 1));
}

std::string VitalReadings::add(db::Connection& hospital, const Cells& row, const Taken& taken) const {
    addRow(hospital, "select * from hPreconsult where 1=2"_sql, row);
    // Within the same transaction the highest number is this row's.
    const auto own = hospital.read("select top 1 ID from hPreconsult order by ID desc"_sql);
    chart(hospital, own["ID"], taken);
    return own["ID"].text();
}

void VitalReadings::correct(db::Connection& hospital, const std::string& id, const Cells& row,
                            const Taken& taken) const {
    auto stored = hospital.read("select * from hPreconsult where ID="_sql + id);
    setCells(stored, row);
    stored.update();
    hospital.execute("Delete From hPreConsultChart where ID="_sql + id);
    chart(hospital, stored["ID"], taken);
}

void VitalReadings::chart(db::Connection& hospital, const db::Value& id, const Taken& taken) const {
    addRow(hospital, "select * from hPreConsultChart where 1=2"_sql,
           {{"ID", id},
            {"consultID", taken.consultID},
            {"preDate", taken.date},
            {"preTime", taken.time},
            {"temp", txtTemp.text()},
            {"Pressure1", txtPressure.text()},
            {"Pressure2", txtPressure2.text()},
            {"pulse", txtPause.text()},
            {"Weight", txtWt.text()},
            {"Height", txtHt.text()},
            {"respRatio", txtResp.text()}});
}

}  // namespace core
