#include "outpatient/frmimmune/schedule.h"

#include <algorithm>
#include <functional>
#include <map>

#include "core/texts/texts.h"
#include "db/letters.h"

namespace outpatient {

using namespace db::literals;

namespace {

constexpr int daysOfWeek = 7;
constexpr int monthsOfYear = 12;
constexpr int monthsOfChildhood = 18 * monthsOfYear;
constexpr int daysUntilOverdue = 28;

/// When each vaccine was given first, by its name in small letters; "" for a visit without a date.
using Given = std::map<std::string, std::string>;

std::string nameOf(std::string_view vaccine) {
    return db::lowered(core::trimmed(vaccine));
}

/// A visit holds the names of its items with commas between them.
Given firstGiven(db::Recordset& visits) {
    Given given;
    for (visits.moveFirst(); !visits.eof(); visits.moveNext()) {
        const auto items = visits["IMMUNIZATION"].textOr();
        for (std::size_t from = 0; from <= items.size();) {
            const auto comma = std::min(items.find(',', from), items.size());
            given.try_emplace(nameOf(std::string_view(items).substr(from, comma - from)), visits["ImDate"].textOr());
            from = comma + 1;
        }
    }
    return given;
}

db::DateTime dueOn(const db::DateTime& born, int count, const std::string& unit) {
    if (unit == "WEEKS") return born.plusDays(std::int64_t{count} * daysOfWeek);
    return born.plusMonths(unit == "YEARS" ? count * monthsOfYear : count);
}

/// "6 weeks", "1 month".
std::string spanText(std::int64_t count, std::string_view unit) {
    return std::to_string(count) + " " + db::lowered(unit.substr(0, unit.size() - (count == 1 ? 1 : 0)));
}

std::string dueAt(int count, const std::string& unit) {
    return count == 0 ? "At birth" : spanText(count, unit);
}

/// Whole months.
int monthsBetween(const db::DateTime& from, const db::DateTime& until) {
    const auto first = from.parts();
    const auto last = until.parts();
    const int months = (last.year - first.year) * monthsOfYear + last.month - first.month;
    return from.plusMonths(months) > until ? months - 1 : months;
}

DoseState openState(const db::DateTime& due, const db::DateTime& today) {
    const auto days = due.daysUntil(today);
    if (days < 0) return DoseState::later;
    return days < daysUntilOverdue ? DoseState::due : DoseState::overdue;
}

bool isChild(const ScheduledChild& child) {
    return child.born && *child.born <= child.today && child.born->plusMonths(monthsOfChildhood) > child.today;
}

/// Whether a dose is for all children, or for those of this one's sex.
bool isFor(const ScheduledChild& child, const db::Value& sex) {
    return sex.isNullOrEmpty() || db::sameName(sex.text(), child.sex);
}

std::string joinedNames(const std::vector<ScheduledDose>& doses, const std::function<bool(const ScheduledDose&)>& of) {
    std::string names;
    for (const auto& dose : doses)
        if (of(dose)) names += (names.empty() ? "" : ", ") + dose.vaccine;
    return names;
}

}  // namespace

const char* stateText(DoseState state) {
    switch (state) {
        case DoseState::given:
            return "Given";
        case DoseState::overdue:
            return "Overdue";
        case DoseState::due:
            return "Due";
        case DoseState::later:
            break;
    }
    return "Later";
}

std::vector<ScheduledDose> dosesFor(const ScheduledChild& child, db::Recordset& schedule, db::Recordset& visits) {
    std::vector<ScheduledDose> doses;
    if (!isChild(child)) return doses;
    const auto given = firstGiven(visits);
    for (schedule.moveFirst(); !schedule.eof(); schedule.moveNext()) {
        if (!isFor(child, schedule["Sex"])) continue;
        const auto count = schedule["DueAge"].int32();
        const auto unit = schedule["DueUnit"].text();
        ScheduledDose dose{schedule["Vaccine"].text(), dueAt(count, unit), dueOn(*child.born, count, unit), {}, {}};
        const auto visit = given.find(nameOf(dose.vaccine));
        dose.state = visit == given.end() ? openState(dose.dueOn, child.today) : DoseState::given;
        if (visit != given.end()) dose.givenOn = visit->second;
        doses.push_back(std::move(dose));
    }
    return doses;
}

std::string dueText(const std::vector<ScheduledDose>& doses) {
    if (doses.empty()) return {};
    const auto now = joinedNames(doses, [](const ScheduledDose& dose) {
        return dose.state == DoseState::due || dose.state == DoseState::overdue;
    });
    std::string text = now.empty() ? "Nothing is due now." : "Due now: " + now + ".";
    std::optional<db::DateTime> next;
    for (const auto& dose : doses)
        if (dose.state == DoseState::later && (!next || dose.dueOn < *next)) next = dose.dueOn;
    if (next)
        text += " Next on " + next->shortDate() + ": " +
                joinedNames(
                    doses,
                    [&](const ScheduledDose& dose) { return dose.state == DoseState::later && dose.dueOn == *next; }) +
                ".";
    return text;
}

std::string ageInWords(const db::DateTime& born, const db::DateTime& today) {
    constexpr int monthsInWeeks = 6;
    constexpr int monthsInMonths = 5 * monthsOfYear;
    const int months = monthsBetween(born, today);
    if (months < monthsInWeeks) return spanText(born.daysUntil(today) / daysOfWeek, "weeks");
    return months < monthsInMonths ? spanText(months, "months") : spanText(months / monthsOfYear, "years");
}

ChildSchedule::ChildSchedule(core::Workplace& place, ui::Screen& screen)
    : Part(place, screen),
      grdSchedule(screen, "grdSchedule", {"Vaccine", "State", "Due at", "Due on", "Given on"}),
      lblDue(screen, "lblDue"),
      lblSchedule(screen, "lblSchedule") {}

void ChildSchedule::show(const std::string& pno, const ScheduledChild& child) {
    clear();
    lblDue.setCaption("The schedule cannot be read");
    auto schedule = hospital().readShared(
        "select Vaccine, DueAge, DueUnit, Sex, Source from hImmunizationSchedule order by SNo"_sql);
    auto visits =
        hospital().read("select ImDate, IMMUNIZATION from hImmunization where PNo='"_sql + pno + "' order by ImDate");
    const auto doses = dosesFor(child, schedule, visits);
    for (const auto& dose : doses)
        grdSchedule.addRow({dose.vaccine, stateText(dose.state), dose.dueAt, dose.dueOn.shortDate(), dose.givenOn});
    lblDue.setCaption(dueText(doses));
    schedule.moveFirst();
    if (!doses.empty()) lblSchedule.setCaption(schedule["Source"].textOr());
}

void ChildSchedule::clear() {
    grdSchedule.clear();
    for (auto* label : {&lblDue, &lblSchedule}) label->setCaption({});
}

std::vector<std::string> ChildSchedule::ages() const {
    constexpr std::size_t dueAtColumn = 2;
    std::vector<std::string> ages;
    for (std::size_t row = 0; row < grdSchedule.rowCount(); ++row) {
        const auto& age = grdSchedule.cell(row, dueAtColumn);
        if (std::find(ages.begin(), ages.end(), age) == ages.end()) ages.push_back(age);
    }
    return ages;
}

}  // namespace outpatient
