#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/forms/part.h"
#include "db/recordset.h"
#include "ui/controls.h"

namespace outpatient {

/// A child, as the national schedule of immunizations sees it.
struct ScheduledChild {
    std::optional<db::DateTime> born;
    std::string sex;
    db::DateTime today;
};

enum class DoseState {
    given,
    overdue,  ///< due for four weeks and longer: the shortest time between two visits of the schedule
    due,
    later,
};
/// "Given", "Overdue", "Due" or "Later".
const char* stateText(DoseState state);

/// A dose of the schedule, for one child.
struct ScheduledDose {
    std::string vaccine;
    std::string dueAt;  ///< the age in words, "6 weeks"
    db::DateTime dueOn;
    std::string givenOn;  ///< the first date; empty where none was given, or none is known
    DoseState state = DoseState::later;
};

/// The doses for a child, in the schedule's order. `schedule` holds the rows of `hImmunizationSchedule`, `visits` the
/// child's in `hImmunization`, the oldest first. None for whom the schedule is not made: a birth date that is not
/// known or still to come, 18 years or more.
std::vector<ScheduledDose> dosesFor(const ScheduledChild& child, db::Recordset& schedule, db::Recordset& visits);

/// "Due now: BCG, OPV 0. Next on 12-Jan-2027: OPV 1, PENTA 1."; empty for no doses.
std::string dueText(const std::vector<ScheduledDose>& doses);

/// A child's age in words: weeks in the first half year, months up to five years, then years.
std::string ageInWords(const db::DateTime& born, const db::DateTime& today);

/// The child's schedule beside the entry: what is due by age, what was given and when, what is next. To be read only.
class ChildSchedule : public core::Part {
public:
    ChildSchedule(core::Workplace& place, ui::Screen& screen);

    /// Reads and shows it. Throws db::Error, and is empty then.
    void show(const std::string& pno, const ScheduledChild& child);
    void clear();
    /// The ages of the schedule in words, "At birth", "6 weeks", as far as it is shown.
    [[nodiscard]] std::vector<std::string> ages() const;

    ui::FlexGrid grdSchedule;
    ui::Label lblDue;
    ui::Label lblSchedule;  ///< whose schedule it is
};

}  // namespace outpatient
