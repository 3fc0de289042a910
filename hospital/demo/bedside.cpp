#include "hospital/demo/charts.h"

namespace hospital::demo {
namespace {

/// Four-hourly observations of one patient.
class VitalsChart {
public:
    explicit VitalsChart(Hospital& hospital) : hospital_(hospital), diary_(momentOfNow(hospital)) {}

    void write(const std::vector<Case>& cases) {
        for (const auto& patient : cases) {
            plan(patient, minutesAfter(patient.stay->from, 10));
            if (patient.present())
                planFourHourly(patient);
            else
                plan(patient, minutesAfter(patient.end, -45));
        }
        diary_.write();
    }

private:
    void planFourHourly(const Case& patient) {
        for (auto round = patient.stay->from.date(); round < patient.end; round = round.plusHours(4)) {
            const auto moment = minutesAfter(round, 120 + chanceFor(hospital_, patient, round, 1).below(25));
            if (moment > patient.stay->from.plusHours(1)) plan(patient, moment);
        }
    }

    void plan(const Case& patient, const db::DateTime& moment) {
        diary_.at(moment, [this, &patient, moment] { writeReading(patient, moment); });
    }

    void writeReading(const Case& patient, const db::DateTime& moment) {
        auto chance = chanceFor(hospital_, patient, moment, 2);
        const auto& condition = *patient.condition;
        const double ill = patient.illnessAt(moment);
        const int age = patient.patient.ageOn(moment);
        const int hour = moment.parts().hour;
        const bool evening = hour >= 16 || hour < 2;
        const double fever = ill * (condition.fever + (evening && condition.fever > 1 ? 0.5 : 0));
        const double usual = 36.3 + chance.below(6) / 10.0;
        const auto temperature = decimals(usual + fever, 1);
        const int high = (age < 13 ? 88 + 2 * age : 110 + std::min(age, 75) / 3) +
                         static_cast<int>(ill * condition.pressure) + chance.between(-5, 5);
        const auto systolic = std::to_string(high);
        const auto diastolic = std::to_string(high * 2 / 3 - chance.below(5));
        const int beat = age < 1 ? 128 : age < 5 ? 108 : age < 13 ? 92 : 76;
        const auto pulse = std::to_string(beat + static_cast<int>(fever * 9) + chance.between(-5, 6));
        const int breath = age < 1 ? 38 : age < 5 ? 28 : 18;
        const auto breathing =
            std::to_string(breath + static_cast<int>(ill * condition.breathing) + chance.between(-1, 2));
        const int lack = static_cast<int>(ill * condition.breathing * 0.6);
        const auto oxygen = std::to_string(std::min(100, 98 - lack + chance.between(-1, 2)));
        const bool morning = hour >= 5 && hour < 9;
        const auto nurse = nurseOnDuty(hospital_, patient.stay->ward, moment);
        const auto id = readings_.add(
            {moment.date(),
             moment.timeOfDay(),
             patient.patient.pno,
             nurse,
             "ADMISSION",
             temperature,
             systolic + "/" + diastolic,
             pulse,
             "",
             "",
             breathing,
             patient.patient.client->category,
             patient.visit->consultID,
             oxygen,
             chance.percent(8) ? std::to_string(chance.between(72, 148)) : "",
             condition.breathing > 10 ? "Upright" : "",
             morning && chance.percent(30) ? "120" : "",
             condition.drip && morning ? std::to_string(chance.between(30, 60) * 10) : "",
             patient.surgical() && morning && chance.percent(40) ? std::to_string(chance.between(2, 8) * 10) : "",
             commentOn(fever, chance)});
        twins_.add({id, patient.visit->consultID, moment.date(), moment.timeOfDay(), temperature, systolic, diastolic,
                    pulse, "", "", breathing});
    }

    static const char* commentOn(double fever, Random& chance) {
        if (fever > 1.6) return chance.percent(70) ? "TEPID SPONGED, ANTIPYRETIC SERVED" : "DOCTOR INFORMED";
        return chance.percent(10) ? "PT CALM ON THE BED" : "";
    }

    Hospital& hospital_;
    Diary diary_;
    Rows readings_{hospital_.rows, "hPreConsult", {"preDate",     "preTime",   "PNo",       "examinedby", "Remarks",
                                                   "temp",        "Pressure",  "pulse",     "Weight",     "Height",
                                                   "respRatio",   "clientCat", "consultID", "SPO2",       "RBS",
                                                   "Positioning", "Stool",     "Urine",     "Sdrainage",  "Comment"}};
    Rows twins_{hospital_.rows,
                "hPreConsultChart",
                {"ID", "consultID", "preDate", "preTime", "temp", "Pressure1", "Pressure2", "pulse", "Weight", "Height",
                 "respRatio"}};
};

/// The hours of the fluid chart in its own words; the nursing day runs from six in the morning.
std::string hourText(int hour) {
    if (hour == 0) return "12 MN";
    if (hour == 12) return "12 NOON";
    return std::to_string(hour % 12) + (hour < 12 ? " AM" : " PM");
}

/// An intake or an output by the hour.
struct FluidEntry {
    int hour;
    const char* intakeType;
    const char* intake;
    int intakeVolume;
    const char* output;
    int outputVolume;
};

class FluidChart {
public:
    explicit FluidChart(Hospital& hospital) : hospital_(hospital), diary_(momentOfNow(hospital)) {}

    void write(const std::vector<Case>& cases) {
        for (const auto& patient : cases)
            if (patient.recent && (patient.condition->drip || patient.surgical())) plan(patient);
        diary_.write();
    }

private:
    void plan(const Case& patient) {
        static constexpr std::array<FluidEntry, 9> day = {{{6, "IV", "NORMAL SALINE", 500, "URINE", 350},
                                                           {8, "ORAL", "PAP", 200, "", 0},
                                                           {10, "", "", 0, "URINE", 250},
                                                           {11, "ORAL", "WATER", 150, "VOMIT", 100},
                                                           {13, "ORAL", "WATER", 250, "", 0},
                                                           {14, "IV", "DEXTROSE SALINE", 500, "URINE", 300},
                                                           {19, "ORAL", "TEA", 200, "", 0},
                                                           {22, "IV", "NORMAL SALINE", 500, "URINE", 400},
                                                           {2, "OTHERS", "IV DRUGS", 100, "URINE", 200}}};
        // Of those who have left, the first day alone.
        const auto last = patient.present() ? patient.end : patient.stay->from.plusHours(20);
        for (auto date = patient.stay->from.date(); date < last; date = date.plusDays(1))
            for (const auto& entry : day) {
                const auto moment = atHour(date, entry.hour < 6 ? 24 + entry.hour : entry.hour, 5);
                if (moment > patient.stay->from && moment < last && wanted(patient, entry, moment))
                    diary_.at(moment,
                              [this, &patient, &entry, date, moment] { writeLine(patient, entry, date, moment); });
            }
    }

    /// Who gets better takes more by mouth and needs no drip.
    [[nodiscard]] bool wanted(const Case& patient, const FluidEntry& entry, const db::DateTime& moment) const {
        const double ill = patient.illnessAt(moment);
        const std::string_view type = entry.intakeType;
        if (type == "IV") return ill > 0.3;
        return type != "ORAL" || ill < 0.9;
    }

    void writeLine(const Case& patient, const FluidEntry& entry, const db::DateTime& date, const db::DateTime& moment) {
        auto chance = chanceFor(hospital_, patient, moment, 3);
        const bool drinks = entry.intake[0] != '\0';
        const bool vomits = std::string_view(entry.output) == "VOMIT";
        const bool passes = entry.outputVolume > 0 && (!vomits || patient.illnessAt(moment) > 0.6);
        const int taken =
            entry.intakeVolume + (entry.intakeType == std::string_view("ORAL") ? chance.between(-3, 3) * 10 : 0);
        const int lost = entry.outputVolume + chance.between(-8, 8) * 10;
        lines_.add({date, moment.timeOfDay(), hourText(entry.hour), patient.patient.pno, patient.visit->consultID,
                    patient.patient.client->category, nurseOnDuty(hospital_, patient.stay->ward, moment),
                    drinks ? entry.intakeType : "", drinks ? entry.intake : "", drinks ? taken : 0,
                    passes ? entry.output : "", passes ? entry.output : "", passes ? lost : 0});
    }

    Hospital& hospital_;
    Diary diary_;
    Rows lines_{hospital_.rows,
                "hfluidChart",
                {"nDate", "nTime", "ChartTime", "PNo", "consultID", "clientCat", "empID", "IntakeFluidType",
                 "IntakeFluid", "IntVol", "OutputFluidType", "OutPutFluid", "OutVol"}};
};

}  // namespace

void chartVitals(Hospital& hospital, const std::vector<Case>& cases) {
    VitalsChart(hospital).write(cases);
}

void chartFluids(Hospital& hospital, const std::vector<Case>& cases) {
    FluidChart(hospital).write(cases);
}

}  // namespace hospital::demo
