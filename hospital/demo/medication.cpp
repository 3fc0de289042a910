#include <deque>

#include "hospital/demo/births.h"
#include "hospital/demo/charts.h"

namespace hospital::demo {
namespace {

/// "2 TABS 3 TIMES DAILY FOR 5 DAYS" says 3; a usage without such words, 2.
int timesDaily(std::string_view usage) {
    const auto at = usage.find(" TIMES DAILY");
    if (at == std::string_view::npos || at == 0) return 2;
    return std::clamp(usage[at - 1] - '0', 1, 6);
}

/// One drug of a stay on the chart, and how it goes on.
struct Line {
    const Case* patient = nullptr;
    OrderedDrug drug;
    db::DateTime charted;      ///< when it came on the chart; doses follow from then on
    int given = 0;             ///< in all
    const char* stopped = "";  ///< why it was discontinued
    std::int64_t id = 0;       ///< once it is written
};

class MedicationChart {
public:
    explicit MedicationChart(Hospital& hospital) : hospital_(hospital), diary_(momentOfNow(hospital)) {}

    void write(const std::vector<Case>& cases) {
        for (const auto& patient : cases) {
            if (patient.present())
                planPresent(patient);
            else
                planPast(patient);
        }
        diary_.write();
    }

private:
    /// What was dispensed to patients who came late this morning nobody has loaded into their charts yet.
    void planPresent(const Case& patient) {
        if (patient.stay->from > atHour(hospital_.today, 9, 15)) return;
        auto chance = chanceFor(hospital_, patient, patient.stay->from, 4);
        auto drugs = drugsOf(patient);
        // Nor, now and then, one that was dispensed later than the others.
        if (drugs.size() > 2 && chance.percent(15)) drugs.pop_back();
        for (std::size_t i = 0; i < drugs.size(); ++i) {
            const bool changed = i == 1 && patient.stay->from < hospital_.today.plusDays(-1);
            planLine(patient, drugs[i], changed && (!anyStopped_ || chance.percent(15)), chance);
        }
    }

    void planLine(const Case& patient, const OrderedDrug& drug, bool stops, Random& chance) {
        static const std::vector<const char*> reasons = {"PT REACTED TO THE DRUG", "DOCTOR'S ORDER",
                                                         "COULD NOT TOLERATE IT", "TREATMENT CHANGED BY THE DOCTOR"};
        auto& line = lines_.emplace_back();
        line.patient = &patient;
        line.drug = drug;
        line.charted = minutesAfter(std::max(drug.at, patient.stay->from), 25);
        const int perDay = timesDaily(drug.usage);
        const auto end = stops ? std::min(patient.end, line.charted.plusHours(26)) : patient.end;
        std::vector<db::DateTime> doses;
        for (int dose = 0; dose < drug.doses; ++dose) {
            const auto moment = minutesAfter(line.charted, dose * (1440 / perDay) + 10 + chance.below(30));
            if (moment > end) break;
            if (dose == 0 || !chance.percent(4)) doses.push_back(moment);  // a few are missed
        }
        line.given = static_cast<int>(doses.size());
        if (stops && line.given < drug.doses) {
            anyStopped_ = true;
            line.stopped = chance.pick(reasons);
        }
        diary_.at(line.charted, [this, &line] { writeLine(line); });
        for (const auto& moment : doses) diary_.at(moment, [this, &line, moment] { writeDose(line, moment, 1); });
    }

    /// Of a past stay the chart keeps each drug with what was given at its begin and before the discharge.
    void planPast(const Case& patient) {
        for (const auto& drug : drugsOf(patient)) {
            auto& line = lines_.emplace_back();
            line.patient = &patient;
            line.drug = drug;
            line.charted = minutesAfter(std::max(drug.at, patient.stay->from), 25);
            const auto minutes = (patient.end.seconds() - line.charted.seconds()) / 60;
            const auto due = 1 + minutes * timesDaily(drug.usage) / 1440;
            line.given = static_cast<int>(std::clamp<std::int64_t>(due, 1, drug.doses));
            diary_.at(line.charted, [this, &line] { writeLine(line); });
            const auto first = minutesAfter(line.charted, 15);
            const auto last = minutesAfter(line.charted, std::max<std::int64_t>(30, minutes - 90));
            diary_.at(first, [this, &line, first] { writeDose(line, first, 1); });
            if (line.given > 1) diary_.at(last, [this, &line, last] { writeDose(line, last, line.given - 1); });
        }
    }

    /// What the doctor ordered, a drip where the illness asks for one, and what follows a birth.
    [[nodiscard]] std::vector<OrderedDrug> drugsOf(const Case& patient) const {
        auto drugs = patient.orders;
        const auto& stay = *patient.stay;
        if (patient.condition->drip)
            addItem(drugs, "INFUSIONS", "SALINE", "500ML 3 TIMES DAILY FOR 2 DAYS", 6, stay.from);
        if (!stay.delivery) return drugs;
        const auto birth = birthOf(hospital_, stay);
        if (birth.at > momentOfNow(hospital_)) return drugs;
        addItem(drugs, "INJECTIONS", "OXYTOCIN", "10IU STAT", 1, birth.at);
        addItem(drugs, "TABLETS", "PARACETAMOL", "2 TABS 3 TIMES DAILY FOR 3 DAYS", 9, birth.at);
        addItem(drugs, "TABLETS", "FERROUS", "1 TAB 2 TIMES DAILY FOR 14 DAYS", 28, birth.at);
        if (birth.caesarean) addItem(drugs, "INJECTIONS", "CEFTRIAXONE", "1G 2 TIMES DAILY FOR 3 DAYS", 6, birth.at);
        return drugs;
    }

    void addItem(std::vector<OrderedDrug>& drugs, std::string_view category, std::string_view word, const char* usage,
                 int doses, const db::DateTime& at) const {
        const auto* item = itemLike(hospital_.drugs, category, word);
        const auto ordered = [&](const OrderedDrug& drug) { return drug.name == item->name; };
        if (item && std::none_of(drugs.begin(), drugs.end(), ordered))
            drugs.push_back({item->name, item->category, usage, doses, at});
    }

    void writeLine(Line& line) {
        const auto& patient = *line.patient;
        const bool stopped = line.stopped[0] != '\0';
        line.id = monitor_.add({patient.visit->conID, patient.visit->consultID, patient.patient.pno,
                                line.drug.at.date(), line.drug.at.timeOfDay(), line.drug.doses, line.given,
                                line.drug.name, patient.patient.client->category, line.drug.category, line.drug.usage,
                                line.given == line.drug.doses ? 1 : 0, stopped ? 1 : 0,
                                stopped ? db::Value(line.stopped) : db::Value()});
    }

    void writeDose(const Line& line, const db::DateTime& moment, int doses) {
        const auto& patient = *line.patient;
        acts_.add({patient.visit->conID, moment.date(), moment.timeOfDay(), patient.patient.pno, line.drug.name,
                   nurseOnDuty(hospital_, patient.stay->ward, moment), patient.visit->consultID, line.id, doses});
    }

    Hospital& hospital_;
    Diary diary_;
    std::deque<Line> lines_;  ///< the diary's entries point into it
    bool anyStopped_ = false;
    Rows monitor_{hospital_.rows,
                  "hMedChartMonitor",
                  {"conID", "consultID", "PNo", "mdate", "mtime", "numOfTimes", "numtaken", "drgName", "clientCat",
                   "drgCatName", "dosage", "attendedto", "suppres", "Remarks"}};
    Rows acts_{hospital_.rows,
               "hMedChartForNurse",
               {"conID", "mdate", "mtime", "PNo", "drgName", "givenBy", "consultID", "iDNo", "numtaken"}};
};

}  // namespace

void chartMedication(Hospital& hospital, const std::vector<Case>& cases) {
    MedicationChart(hospital).write(cases);
}

}  // namespace hospital::demo
