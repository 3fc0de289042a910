#pragma once

#include <string>

#include "core/forms/fields.h"
#include "db/connection.h"

namespace core {

/// The vital signs of a patient as a screen takes them, and the two rows that keep them: the reading in `hPreConsult`,
/// and its twin in `hPreConsultChart` for the trends, where the two pressures stand apart. Every reading is stored as
/// the text that was typed; nothing is computed from it.
class VitalReadings {
public:
    explicit VitalReadings(ui::Screen& screen);

    ui::TextBox txtTemp;       ///< °C
    ui::TextBox txtPressure;   ///< systolic, mmHg
    ui::TextBox txtPressure2;  ///< diastolic, mmHg
    ui::TextBox txtPause;      ///< the pulse, beats a minute
    ui::TextBox txtResp;       ///< breaths a minute
    ui::TextBox txtHt;         ///< m
    ui::TextBox txtWt;         ///< kg
    ui::TextBox txtSPO2;       ///< %
    ui::TextBox txtRBS;        ///< random blood sugar
    ui::ComboBox cboPosition;  ///< of the patient

    void fillPositions();
    /// The fields with their columns, for the screen's own table of fields; the pressures are not among them, since
    /// one column keeps both.
    [[nodiscard]] Fields fields();
    /// Shows the pressures of the list's current row, which hold one "/". Throws db::Error.
    void showPressure(const ui::DataGrid& list);
    /// "120/80".
    [[nodiscard]] std::string pressure() const { return txtPressure.text() + "/" + txtPressure2.text(); }

    /// When a reading was taken, as its twin has it.
    struct Taken {
        std::string consultID;
        db::Value date;
        db::Value time;
    };
    /// Adds a row of these cells and its twin; gives the row's ID. Call it in a transaction. Throws db::Error.
    std::string add(db::Connection& hospital, const Cells& row, const Taken& taken) const;
    /// Writes the cells into the row of this ID and replaces its twin. Likewise; Error(other) where the row has gone.
    void correct(db::Connection& hospital, const std::string& id, const Cells& row, const Taken& taken) const;

private:
    void chart(db::Connection& hospital, const db::Value& id, const Taken& taken) const;
};

}  // namespace core
