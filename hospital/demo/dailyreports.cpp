#include <map>

#include "hospital/demo/births.h"
#include "hospital/demo/charts.h"

namespace hospital::demo {
namespace {

constexpr int reportedDays = 14;

/// One daily report, which the nurse in charge writes towards the end of a shift about what went before.
struct Report {
    db::DateTime from, until;  ///< the shift; it is entered at its end
    const char* heading;
    std::string subject, details;
};

/// The reports tell what the plan knows: who lay where, who came and went, what was born and operated on.
class ReportWriter {
public:
    explicit ReportWriter(Hospital& hospital) : hospital_(hospital) {}

    void write() {
        collect();
        std::map<std::pair<std::string, std::string>, const Report*> current;
        for (const auto& report : reports_) current[{shiftOf(report), report.heading}] = &report;
        for (const auto& report : reports_) {
            // The shift that has just begun goes on writing its report.
            const bool open = report.until > atHour(hospital_.today, 10);
            rows_.add({report.until.date(), report.until.timeOfDay(), shiftOf(report),
                       nurseOnDuty(hospital_, hospital_.wards.front(), report.from), report.heading, report.subject,
                       open ? "NO" : "YES", report.details, current[{shiftOf(report), report.heading}] != &report});
        }
    }

private:
    static std::string shiftOf(const Report& report) { return shiftAt(report.from); }

    void collect() {
        for (auto day = hospital_.today.plusDays(-reportedDays); day <= hospital_.today; day = day.plusDays(1)) {
            const auto yesterday = day.plusDays(-1);
            const bool today = day == hospital_.today;
            addSituation(atHour(yesterday, 21), atHour(day, 6, 50));
            addOverall(atHour(yesterday, 7), atHour(day, 6, 55));
            addTheatre(atHour(yesterday, 7), atHour(day, 7, 40));
            addSituation(atHour(day, 7), today ? atHour(day, 10, 35) : atHour(day, 13, 45));
            if (today) return;
            addAdministration(atHour(day, 7), atHour(day, 13, 50));
            addSituation(atHour(day, 14), atHour(day, 20, 45));
        }
    }

    void addSituation(const db::DateTime& from, const db::DateTime& until) {
        std::string text;
        int all = 0;
        for (const auto& ward : hospital_.wards) {
            const int here = count([&](const Stay& stay) { return stay.ward == ward && liesIn(stay, until); });
            if (here > 0) text += ward + ": " + std::to_string(here) + "\r\n";
            all += here;
        }
        text += "TOTAL: " + std::to_string(all) + "\r\n";
        text += "NEW ADMISSIONS: " + names([&](const Stay& stay) { return within(stay.from, from, until); }) + "\r\n";
        text +=
            "DISCHARGED: " + names([&](const Stay& stay) { return stay.until && within(*stay.until, from, until); }) +
            "\r\n";
        text += "DELIVERIES: " + names([&](const Stay& stay) {
                    return stay.delivery && within(birthOf(hospital_, stay).at, from, until);
                });
        reports_.push_back({from, until, "SITUATION REPORT", "STATE OF THE WARDS", text});
    }

    void addOverall(const db::DateTime& from, const db::DateTime& until) {
        const int came = count([&](const Stay& stay) { return within(stay.from, from, until); });
        const int left = count([&](const Stay& stay) { return stay.until && within(*stay.until, from, until); });
        const int here = count([&](const Stay& stay) { return liesIn(stay, until); });
        auto text = "In 24 hours " + std::to_string(came) + " admitted and " + std::to_string(left) + " discharged. " +
                    std::to_string(here) + " patients in the wards this morning. All shifts covered.";
        reports_.push_back(
            {atHour(until.date().plusDays(-1), 21), until, "OVERALL REPORT", "24 HOURS", std::move(text)});
    }

    void addAdministration(const db::DateTime& from, const db::DateTime& until) {
        static const std::vector<const char*> texts = {
            "Two staff nurses on leave, cover arranged from the out-patient department.",
            "Linen collected from the laundry. Oxygen cylinders changed, two in reserve.",
            "Light interrupted from 10.20 to 11.05, generator on. No complaint from the relations.",
            "Monthly stock of the wards checked and signed. Request for gloves sent to the store."};
        auto chance = hospital_.random.about(static_cast<std::uint64_t>(db::DateTime().daysUntil(from))).about(81);
        reports_.push_back({from, until, "ADMIN REPORT", "STAFF AND SUPPLIES", chance.pick(texts)});
    }

    /// What both theatres did in a day; nights included, for sections do not wait.
    void addTheatre(const db::DateTime& from, const db::DateTime& until) {
        const auto began = atHour(until.date(), 7);
        const auto done = names([&](const Stay& stay) {
            const auto operation = stay.visit ? operationOf(hospital_, stay) : std::nullopt;
            return operation && within(operation->at, from, until);
        });
        reports_.push_back({began, until, "MAIN THEATHER", "OPERATIONS SINCE YESTERDAY MORNING",
                            done + "\r\nInstruments sterilized, theatre ready for use."});
        auto chance = hospital_.random.about(static_cast<std::uint64_t>(db::DateTime().daysUntil(from))).about(82);
        reports_.push_back({began, until, "MINOR THEATHER", "PROCEDURES OF YESTERDAY",
                            "Suturing " + std::to_string(chance.between(1, 4)) + ", dressings as booked."});
    }

    static bool within(const db::DateTime& moment, const db::DateTime& from, const db::DateTime& until) {
        return moment > from && moment <= until;
    }
    static bool liesIn(const Stay& stay, const db::DateTime& moment) {
        return stay.from <= moment && (!stay.until || *stay.until > moment);
    }

    [[nodiscard]] int count(const std::function<bool(const Stay&)>& fits) const {
        return static_cast<int>(std::count_if(hospital_.stays.begin(), hospital_.stays.end(), fits));
    }
    /// "2 (ADEWALE TITILAYO, OKAFOR NGOZI)", or "NIL".
    [[nodiscard]] std::string names(const std::function<bool(const Stay&)>& fits) const {
        std::string list;
        int found = 0;
        for (const auto& stay : hospital_.stays) {
            if (!fits(stay)) continue;
            list += (found++ == 0 ? "" : ", ") + hospital_.patient(stay.patient).fullName();
        }
        return found == 0 ? "NIL" : std::to_string(found) + " (" + list + ")";
    }

    Hospital& hospital_;
    std::vector<Report> reports_;
    Rows rows_{hospital_.rows,
               "hNurseOverRpt",
               {"dtDate", "dtTime", "Shift", "EmpID", "RptHead", "subHead", "Completed", "Details", "isOLD"}};
};

}  // namespace

void writeDailyReports(Hospital& hospital) {
    ReportWriter(hospital).write();
}

}  // namespace hospital::demo
