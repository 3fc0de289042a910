#pragma once

#include <functional>

#include "hospital/demo/stays.h"

/// What the charts of the wards share.
namespace hospital::demo {

/// How an illness shows in the readings and in the nurses' words.
struct Condition {
    std::string_view diagnosis;  ///< empty for any other
    double fever;                ///< degrees above the usual on admission
    int pressure;                ///< mmHg above the usual
    int breathing;               ///< breaths a minute above the usual
    bool drip;
    const char* complaint;
    const char* problem;  ///< the nursing diagnosis
};

/// A drug that the doctor ordered on the visit.
struct OrderedDrug {
    std::string name, category, usage;
    int doses = 0;
    db::DateTime at;
};

/// A stay as its charts see it.
struct Case {
    const Stay* stay = nullptr;
    const Visit* visit = nullptr;
    Patient patient;
    const Condition* condition = nullptr;
    db::DateTime end;     ///< the discharge, or now
    bool recent = false;  ///< charted in full: in the ward now, or one of the last who left it
    std::vector<OrderedDrug> orders;

    [[nodiscard]] bool present() const { return !stay->until; }
    [[nodiscard]] bool surgical() const;
    /// From 1 on admission to 0 when all is well.
    [[nodiscard]] double illnessAt(const db::DateTime& moment) const;
};

/// Entries that come up patient by patient and are written in the order of time, as the wards would have made them.
class Diary {
public:
    explicit Diary(const db::DateTime& now) : now_(now) {}

    /// An entry after now is never made.
    void at(const db::DateTime& moment, std::function<void()> entry) {
        if (moment <= now_) entries_.push_back({moment, std::move(entry)});
    }
    void write();

private:
    struct Entry {
        db::DateTime moment;
        std::function<void()> write;
    };
    db::DateTime now_;
    std::vector<Entry> entries_;
};

/// "MORNING", "AFTERNOON" or "NIGHT".
[[nodiscard]] const char* shiftAt(const db::DateTime& moment);
/// The empID of the nurse who has the ward in that shift.
[[nodiscard]] const std::string& nurseOnDuty(const Hospital& hospital, const std::string& ward,
                                             const db::DateTime& moment);
/// A generator for one entry of a stay's charts.
[[nodiscard]] Random chanceFor(const Hospital& hospital, const Case& patient, const db::DateTime& moment, int chart);

/// The operation of a stay, where there was one.
struct Operation {
    db::DateTime at;
    const char* name;
};
[[nodiscard]] std::optional<Operation> operationOf(const Hospital& hospital, const Stay& stay);

// The charts, each with its tables.

void chartVitals(Hospital& hospital, const std::vector<Case>& cases);
void chartFluids(Hospital& hospital, const std::vector<Case>& cases);
void chartMedication(Hospital& hospital, const std::vector<Case>& cases);
void chartNotes(Hospital& hospital, const std::vector<Case>& cases);        ///< nurses' and doctors'
void chartAssessments(Hospital& hospital, const std::vector<Case>& cases);  ///< histories, allergies, operations
void writeDailyReports(Hospital& hospital);

}  // namespace hospital::demo
