#include "hospital/demo/charts.h"

#include <unordered_map>

#include "hospital/demo/births.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

constexpr std::size_t chartedInFull = 400;  ///< of those who have left; of the others little is kept

const Condition& conditionOf(std::string_view diagnosis) {
    static constexpr std::array<Condition, 11> conditions = {{
        {"SEVERE MALARIA", 2.5, 0, 4, true, "headache and body weakness", "Hyperthermia related to infection"},
        {"TYPHOID FEVER", 2.1, 0, 2, true, "abdominal pain and loss of appetite", "Hyperthermia related to infection"},
        {"HYPERTENSIVE CRISIS", 0, 68, 2, false, "headache and dizziness", "Risk of injury related to raised pressure"},
        {"PNEUMONIA", 1.9, 0, 12, false, "cough and chest pain", "Ineffective breathing pattern"},
        {"GASTROENTERITIS", 0.8, -14, 2, true, "loose stools and weakness", "Fluid volume deficit"},
        {"BRONCHIAL ASTHMA", 0.2, 6, 13, false, "wheeze and tightness of the chest", "Ineffective airway clearance"},
        {"SICKLE CELL CRISIS", 1.0, 0, 4, true, "bone pains", "Acute pain"},
        {"APPENDICITIS", 1.1, 0, 3, true, "pain in the right lower abdomen", "Acute pain"},
        {"INGUINAL HERNIA", 0.1, 0, 0, false, "swelling in the groin", "Anxiety related to the operation"},
        {"PREGNANCY AT TERM", 0.2, 0, 2, false, "labour pains", "Acute pain related to uterine contractions"},
        {"", 0.6, 0, 2, false, "weakness", "Knowledge deficit related to the illness"},
    }};
    const auto found = std::find_if(conditions.begin(), conditions.end() - 1,
                                    [&](const Condition& condition) { return condition.diagnosis == diagnosis; });
    return *found;
}

std::int64_t hoursBetween(const db::DateTime& from, const db::DateTime& until) {
    return (until.seconds() - from.seconds()) / 3600;
}

/// All stays in the order of admission, with what was ordered for each.
std::vector<Case> casesOf(Hospital& hospital) {
    std::vector<Case> cases;
    for (const auto& stay : hospital.stays) {
        if (!stay.visit) continue;
        Case entry;
        entry.stay = &stay;
        entry.visit = stay.visit;
        entry.patient = hospital.patient(stay.patient);
        entry.condition = &conditionOf(diagnosisOf(hospital, *stay.visit));
        entry.end = stay.until.value_or(momentOfNow(hospital));
        cases.push_back(std::move(entry));
    }
    std::stable_sort(cases.begin(), cases.end(),
                     [](const Case& left, const Case& right) { return left.stay->from < right.stay->from; });
    std::unordered_map<std::string, Case*> byVisit;
    std::size_t left = 0;
    for (auto entry = cases.rbegin(); entry != cases.rend(); ++entry) {
        entry->recent = entry->present() || left++ < chartedInFull;
        byVisit[entry->visit->consultID] = &*entry;
    }
    const auto orders = hospital.rows.read(
        "select consultID, drgName, drgCatName, usage, Qty, dtDate, dtTime from hconsultingDetails where consultID in "
        "(select consultID from hAdmission) order by SNo"_sql);
    for (std::size_t row = 0; row < orders.rowCount(); ++row) {
        const auto found = byVisit.find(orders.value(row, 0).text());
        if (found == byVisit.end()) continue;
        const auto at = orders.value(row, 5).moment().seconds() + orders.value(row, 6).moment().seconds();
        found->second->orders.push_back({orders.value(row, 1).text(), orders.value(row, 2).textOr(),
                                         orders.value(row, 3).textOr(), std::max(1, orders.value(row, 4).int32Or(1)),
                                         db::DateTime::fromSeconds(at)});
    }
    return cases;
}

}  // namespace

bool Case::surgical() const {
    return condition->diagnosis == "APPENDICITIS" || condition->diagnosis == "INGUINAL HERNIA";
}

double Case::illnessAt(const db::DateTime& moment) const {
    const auto sofar = static_cast<double>(hoursBetween(stay->from, moment));
    const auto all = static_cast<double>(hoursBetween(stay->from, end));
    return std::clamp(1 - sofar / (present() ? std::max(96.0, all * 1.3) : std::max(all, 1.0)), 0.0, 1.0);
}

void Diary::write() {
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const Entry& left, const Entry& right) { return left.moment < right.moment; });
    for (const auto& entry : entries_) entry.write();
    entries_.clear();
}

const char* shiftAt(const db::DateTime& moment) {
    const int hour = moment.parts().hour;
    return hour >= 7 && hour < 14 ? "MORNING" : hour >= 14 && hour < 21 ? "AFTERNOON" : "NIGHT";
}

const std::string& nurseOnDuty(const Hospital& hospital, const std::string& ward, const db::DateTime& moment) {
    const auto place = std::find(hospital.wards.begin(), hospital.wards.end(), ward) - hospital.wards.begin();
    const auto morning = moment.plusHours(-7);  // the night belongs to the day on which it began
    const auto shift = db::DateTime().daysUntil(morning) * 3 + std::min(2, morning.parts().hour / 7);
    auto chance =
        hospital.random.about(static_cast<std::uint64_t>(shift)).about(71 + static_cast<std::uint64_t>(place));
    return chance.pick(hospital.nurses);
}

Random chanceFor(const Hospital& hospital, const Case& patient, const db::DateTime& moment, int chart) {
    const auto minutes = (moment.seconds() - patient.stay->from.seconds()) / 60;
    return chanceFor(hospital, *patient.stay, 100).about(static_cast<std::uint64_t>(minutes * 10 + chart));
}

std::optional<Operation> operationOf(const Hospital& hospital, const Stay& stay) {
    if (stay.delivery) {
        const auto birth = birthOf(hospital, stay);
        if (!birth.caesarean) return {};
        return Operation{minutesAfter(birth.at, -25), "CAESAREAN SECTION"};
    }
    const auto diagnosis = diagnosisOf(hospital, *stay.visit);
    if (diagnosis == "APPENDICITIS") return Operation{stay.from.plusHours(6), "APPENDICECTOMY"};
    if (diagnosis == "INGUINAL HERNIA") return Operation{stay.from.plusHours(20), "HERNIORRHAPHY"};
    return {};
}

void writeCharts(Hospital& hospital) {
    const auto cases = casesOf(hospital);
    chartVitals(hospital, cases);
    chartFluids(hospital, cases);
    chartMedication(hospital, cases);
    chartNotes(hospital, cases);
    chartAssessments(hospital, cases);
    writeDailyReports(hospital);
}

}  // namespace hospital::demo
