#include "hospital/demo/stays.h"

#include "db/error.h"
#include "hospital/demo/calendar.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

/// A patient of whom the wards have to have one, whatever the others are like.
struct Wanted {
    const char* category;  ///< empty for any
    int daysAgo;
    bool limitOver = false;
    bool overdue = false;
};

/// Fills the wards: with new visits for those whom the nurses see today, with visits of the plan for the past.
class StayPlanner {
public:
    explicit StayPlanner(Hospital& hospital) : hospital_(hospital), chance_(hospital.random), calendar_(hospital) {}

    void plan() {
        planPresent();
        planReferrals();
        planLeavers();
        planPast();
    }

private:
    void planPresent() {
        static constexpr std::array<Wanted, 9> first = {{{"HMO", 6, true, false},
                                                         {"NHIS", 4, true, false},
                                                         {"HMO", 2},
                                                         {"PHIS", 1},
                                                         {"NHIS", 3},
                                                         {"PRIVATE", 2},
                                                         {"", 4, false, true},
                                                         {"", 3, false, true},
                                                         {"", 5, false, true}}};
        const int admittedToday = hospital_.several(1.0 / 700, 2, 14);
        const int others = hospital_.several(1.0 / 80, 10, 160) - static_cast<int>(first.size()) - admittedToday;
        for (const auto& wanted : first) bringIn(wanted);
        for (int i = 0; i < others; ++i) bringIn({"", chance_.between(1, 9), i % 40 == 20, i % 40 == 30});
        for (int i = 0; i < admittedToday; ++i) bringIn({"", 0});
    }

    void bringIn(const Wanted& wanted) {
        const auto day = hospital_.today.plusDays(-wanted.daysAgo);
        const auto at = minutesAfter(day, wanted.daysAgo == 0 ? chance_.between(420, 500) : chance_.between(450, 1140));
        const int number = claim(wanted.category, day);
        if (number == 0) return;
        auto& stay = admit(visitOf(hospital_.patient(number), at), {});
        stay.limitOver = wanted.limitOver && isScheme(*hospital_.patient(number).client);
        stay.overdue = wanted.overdue;
    }

    /// Those whom a doctor has referred to the wards today, or yesterday, and who wait for a nurse there.
    void planReferrals() {
        static constexpr std::array<const char*, 4> categories = {"PRIVATE", "PRIVATE", "HMO", ""};
        const int today = hospital_.several(1.0 / 500, 4, 14);
        for (int i = 0; i < today; ++i) refer(categories[static_cast<std::size_t>(i) % categories.size()], 0);
        const int yesterday = hospital_.several(1.0 / 1000, 2, 6);
        for (int i = 0; i < yesterday; ++i) refer(categories[static_cast<std::size_t>(2 * i) % categories.size()], 1);
    }

    void refer(const char* category, int daysAgo) {
        const auto day = hospital_.today.plusDays(-daysAgo);
        const int number = claim(category, day);
        if (number == 0) return;
        auto visit = visitOf(hospital_.patient(number), minutesAfter(day, chance_.between(450, 580)));
        visit.stay = waitsForAdmission;
        hospital_.visits.push_back(visit);
    }

    /// Those who went home today, and lately enough to be called back.
    void planLeavers() {
        const int today = hospital_.several(1.0 / 700, 2, 12);
        for (int i = 0; i < today; ++i) leave(minutesAfter(hospital_.today, chance_.between(460, 650)));
        const int lately = hospital_.several(1.0 / 500, 2, 40);
        for (int i = 0; i < lately; ++i)
            leave(minutesAfter(hospital_.today.plusDays(-1 - i % 3), chance_.between(540, 1020)));
    }

    void leave(const db::DateTime& until) {
        const auto day = until.date().plusDays(-chance_.between(2, 6));
        const int number = claim("", day);
        if (number == 0) return;
        admit(visitOf(hospital_.patient(number), minutesAfter(day, chance_.between(450, 1140))), until);
    }

    /// The older stays, spread over the visits that may have led to one.
    void planPast() {
        std::vector<std::size_t> candidates;
        for (std::size_t i = 0; i < hospital_.visits.size(); ++i)
            if (mayLeadToStay(hospital_.visits[i])) candidates.push_back(i);
        const auto wanted = static_cast<std::size_t>(hospital_.several(1.0 / 25, 8, 4000));
        std::size_t owed = 0;
        for (const auto candidate : candidates) {
            owed += wanted;
            if (owed < candidates.size()) continue;
            if (keepIn(hospital_.visits[candidate])) owed -= candidates.size();
        }
    }

    bool mayLeadToStay(const Visit& visit) {
        return visit.road == Visit::Road::consulted && visit.stay == -1 && visit.at < hospital_.today.plusDays(-8) &&
               visit.clinic != "DENTAL" && visit.clinic != "EYE" && visit.clinic != "GYNAECOLOGY" &&
               isForWard(illnesses()[visit.illness], hospital_.patient(visit.patient).ageOn(visit.at));
    }

    bool keepIn(Visit& visit) {
        const int days = chance_.between(2, 7);
        const auto until = minutesAfter(visit.at.date().plusDays(days), chance_.between(540, 1020));
        if (!calendar_.isFree(visit.patient, minutesAfter(visit.at, 1), until.plusDays(2))) return false;
        admitOn(visit, until);
        return true;
    }

    Stay& admit(Visit visit, std::optional<db::DateTime> until) {
        auto& stay = admitOn(visit, until);
        hospital_.visits.push_back(visit);
        return stay;
    }

    Stay& admitOn(Visit& visit, std::optional<db::DateTime> until) {
        visit.stay = static_cast<int>(hospital_.stays.size());
        visit.clinic = inPatientClinic;
        Stay stay;
        stay.patient = visit.patient;
        stay.from = minutesAfter(visit.at, chance_.between(70, 150));
        stay.until = until;
        stay.ward = wardFor(visit, !until);
        calendar_.take(stay.patient, visit.at, until.value_or(hospital_.today.plusDays(1)));
        hospital_.stays.push_back(stay);
        return hospital_.stays.back();
    }

    /// One who may be in the house since that day. Women of child-bearing age are one in three at most, and none in a
    /// small hospital: there are few, and the maternity ward needs them.
    int claim(std::string_view category, const db::DateTime& since) {
        const bool anybody = hospital_.patients > 500 && claims_++ % 3 == 0;
        const auto fits = [&](const Patient& patient) {
            const int age = patient.ageOn(hospital_.today);
            return patient.registered < since && (anybody || !patient.female || age < 17 || age > 45) &&
                   calendar_.isFree(patient.number, since, hospital_.today.plusDays(1));
        };
        const auto ofCategory = [&](const Patient& patient) {
            return patient.client->category == category && fits(patient);
        };
        const int number = category.empty() ? 0 : hospital_.claim(ofCategory);
        return number != 0 ? number : hospital_.claim(fits);
    }

    Visit visitOf(const Patient& patient, const db::DateTime& at) {
        const int age = patient.ageOn(at);
        Visit visit;
        visit.patient = patient.number;
        visit.at = at;
        visit.clinic = age < 13 ? "PAEDIATRICS" : "(GENERAL)";
        visit.purpose = "(CONSULTATION)";
        visit.illness = illnessFor(age);
        visit.nurse = chance_.pick(hospital_.nurses);
        visit.doctor = hospital_.doctorOf(visit.clinic, chance_);
        return visit;
    }

    std::size_t illnessFor(int age) {
        std::vector<std::size_t> possible;
        for (std::size_t i = 0; i < illnesses().size(); ++i)
            if (isForWard(illnesses()[i], age)) possible.push_back(i);
        return chance_.pick(possible);
    }

    static bool isForWard(const Illness& illness, int age) {
        const std::string_view diagnosis = illness.diagnosis;
        if (!illness.ward || illness.clinic != nullptr) return false;
        return diagnosis == "HYPERTENSIVE CRISIS" ? age >= 30 : diagnosis != "SICKLE CELL CRISIS" || age <= 45;
    }

    /// The private rooms have one patient each: those in them today. Who lay in which room before is not told.
    const std::string& wardFor(const Visit& visit, bool present) {
        const auto patient = hospital_.patient(visit.patient);
        const std::string_view diagnosis = illnesses()[visit.illness].diagnosis;
        const int draw = chance_.below(100);
        if (patient.born.daysUntil(visit.at) < 29) return ward("NEONATAL UNIT");
        if (patient.ageOn(visit.at) < 13) return ward("CHILDREN WARD");
        if (diagnosis == "APPENDICITIS" || diagnosis == "INGUINAL HERNIA") return ward("SURGICAL WARD");
        if (diagnosis == "GASTROENTERITIS" && draw >= 90) return ward("ISOLATION ROOM");
        if (!isScheme(*patient.client) && draw < 20) return privateRoom(present);
        if (draw >= 96) return ward("ICU");
        if (draw >= 88) return ward("EMERGENCY WARD");
        return ward(patient.female ? "FEMALE WARD" : "MALE WARD");
    }

    const std::string& privateRoom(bool present) {
        static constexpr std::array<const char*, 3> rooms = {"PRIVATE RM 1", "PRIVATE RM 2", "PRIVATE RM 3"};
        if (!present || roomsTaken_ == rooms.size()) return ward("PRIVATE WING");
        return ward(rooms[roomsTaken_++]);
    }

    [[nodiscard]] const std::string& ward(std::string_view id) const { return wardCalled(hospital_, id); }

    Hospital& hospital_;
    Random& chance_;
    Calendar calendar_;
    int claims_ = 0;
    std::size_t roomsTaken_ = 0;
};

const std::vector<std::string> dischargeColumns = {"dischDate", "dischTime", "PNo",     "consultID", "clientCat",
                                                   "wardID",    "Reason",    "Remarks", "apprvby",   "ApptDate"};

/// A discharge by a doctor or by a nurse, waiting to be written in the order of time.
struct Discharge {
    db::DateTime at;
    const Stay* stay;
};

/// Stays that nobody closed when the patient went are closed together, weeks later, from the list of the overdue.
bool isClosedFromList(const Hospital& hospital, const Stay& stay) {
    return stay.until && !stay.delivery && *stay.until < hospital.today.plusDays(-40) &&
           chanceFor(hospital, stay, 41).percent(2);
}

class StayWriter {
public:
    explicit StayWriter(Hospital& hospital) : hospital_(hospital) {
        const auto last = hospital.rows.read("select max(recID) from hRecords"_sql).value(0, 0).int64();
        firstRecord_ = last + 1 - static_cast<std::int64_t>(hospital.visits.size());
    }

    void write() {
        for (const auto& visit : hospital_.visits) {
            if (visit.stay == waitsForAdmission) {
                writeReferral(visit, false);
                hospital_.rows.execute(
                    "update hConsulting set treatPlan='Admit', referto='(IN-PATIENT)' where ID="_sql + visit.conID);
            } else if (visit.stay >= 0) {
                writeReferral(visit, true);
                writeAdmission(visit);
                noteDischarges(hospital_.stays[static_cast<std::size_t>(visit.stay)]);
            }
        }
        writeDischarges(byDoctors_, doctors_, true);
        writeDischarges(byNurses_, nurses_, false);
    }

private:
    void writeReferral(const Visit& visit, bool admitted) {
        const auto patient = hospital_.patient(visit.patient);
        const auto at = minutesAfter(visit.at, 55);
        const auto reason = "For admission: " + std::string(diagnosisOf(hospital_, visit));
        const std::string clinic(inPatientClinic);
        referrals_.add({visit.consultID, patient.client->category, clinic, at.date(), at.timeOfDay(), reason,
                        patient.pno, at.date(), at.timeOfDay(), admitted ? 1 : 0, visit.conID, at.date(),
                        at.timeOfDay()});
        appointments_.add({visit.consultID, patient.client->category, clinic, at.date(), at.timeOfDay(), "REFERAL EDIT",
                           patient.pno, at.date(), at.timeOfDay(), 0, visit.conID});
    }

    void writeAdmission(const Visit& visit) {
        static const std::vector<const char*> remarks = {
            "For observation and treatment",        "IV line secured, drugs commenced",       "Relations informed",
            "To be reviewed by the doctor on call", "Received in the ward in fair condition", ""};
        const auto& stay = hospital_.stays[static_cast<std::size_t>(visit.stay)];
        const auto patient = hospital_.patient(visit.patient);
        auto chance = chanceFor(hospital_, stay, 42);
        const bool closed = stay.until.has_value();
        const bool fromList = isClosedFromList(hospital_, stay);
        admissions_.add({stay.from.date(), stay.from.timeOfDay(), limitOf(stay, *patient.client), patient.pno,
                         stay.ward, "For admission: " + std::string(diagnosisOf(hospital_, visit)),
                         stay.delivery ? "In labour" : chance.pick(remarks), visit.consultID, patient.client->category,
                         chance.pick(hospital_.nurses), visit.doctor, diagnosisOf(hospital_, visit), visit.conID,
                         closed ? 1 : 0, closed && !fromList ? db::Value(stay.until->date()) : db::Value(),
                         wardComment(stay, chance)});
    }

    /// Schemes pay for some days, and for more when they were asked in time. Others may stay for 24000 hours.
    db::Value limitOf(const Stay& stay, const Client& client) {
        if (!isScheme(client)) return stay.from.plusHours(24'000);
        if (stay.limitOver && limitsOver_++ % 2 == 1) return {};
        auto limit = stay.from.plusHours(24LL * chanceFor(hospital_, stay, 43).between(2, 4));
        const auto now = momentOfNow(hospital_);
        if (stay.limitOver) return std::min(limit, now.plusHours(-18));
        while (limit < stay.until.value_or(now.plusHours(8))) limit = limit.plusHours(24);
        return limit;
    }

    /// What the medication chart shows before anything else: for the first of the patients now here, and a few others.
    db::Value wardComment(const Stay& stay, Random& chance) {
        static const std::vector<const char*> comments = {
            "ALLERGIC TO PENICILLIN", "NIL PER ORAL UNTIL REVIEWED BY THE DOCTOR", "DRUGS SUPPLIED BY THE RELATIONS",
            "STRICT INTAKE AND OUTPUT CHART", "CHECK RBS BEFORE EACH MEAL"};
        if (stay.until || stay.delivery) return {};
        if (std::exchange(commented_, true) && !chance.percent(12)) return {};
        return chance.pick(comments);
    }

    void noteDischarges(const Stay& stay) {
        if (!stay.until && !stay.overdue) return;
        if (isClosedFromList(hospital_, stay)) {
            const auto at = atHour(stay.until->date().plusDays(21), 16);
            doctors_.push_back({at, &stay});
            nurses_.push_back({at, &stay});
            return;
        }
        const auto doctor = doctorsDischarge(hospital_, stay);
        doctors_.push_back({doctor, &stay});
        if (stay.until) nurses_.push_back({*stay.until, &stay});
        const auto record = firstRecord_ + (stay.visit - hospital_.visits.data());
        const auto left = stay.until.value_or(doctor).date();
        const auto billed = stay.until ? left : stay.visit->at.date();
        hospital_.rows.execute("update hRecords set BillDate='"_sql + billed + "', exitdate='" + left +
                               "' where recID=" + record);
    }

    void writeDischarges(Rows& rows, std::vector<Discharge>& discharges, bool byDoctor) {
        std::stable_sort(discharges.begin(), discharges.end(),
                         [](const Discharge& left, const Discharge& right) { return left.at < right.at; });
        for (const auto& discharge : discharges) {
            if (isClosedFromList(hospital_, *discharge.stay))
                writeFromList(rows, discharge);
            else
                writeDischarge(rows, discharge, byDoctor);
        }
    }

    void writeDischarge(Rows& rows, const Discharge& discharge, bool byDoctor) {
        static const std::vector<const char*> reasons = {"Improved on treatment", "Improved on treatment",
                                                         "Fit to go home", "Clinically stable",
                                                         "To continue treatment at home"};
        static const std::vector<const char*> remarks = {"To come back in two weeks", "Drugs given, to complete them",
                                                         "Counselled on diet and rest", "For follow up in the clinic"};
        const auto& stay = *discharge.stay;
        const auto patient = hospital_.patient(stay.patient);
        auto chance = chanceFor(hospital_, stay, 44);
        const auto* reason = stay.delivery ? "Mother and baby in good condition" : chance.pick(reasons);
        const auto next = stay.delivery ? 42 : chance.between(1, 2) * 7;
        rows.add({discharge.at.date(), discharge.at.timeOfDay(), patient.pno, stay.visit->consultID,
                  patient.client->category, stay.ward, reason,
                  stay.delivery ? "For the postnatal clinic" : chance.pick(remarks),
                  byDoctor ? stay.visit->doctor : chance.pick(hospital_.nurses),
                  byDoctor ? discharge.at.date().plusDays(next) : discharge.at.date()});
    }

    void writeFromList(Rows& rows, const Discharge& discharge) {
        const auto* text = "From Discharge Overdue List";
        rows.add({discharge.at.date(), discharge.at.timeOfDay(), hospital_.patient(discharge.stay->patient).pno,
                  discharge.stay->visit->consultID, "N/A", "", text, text, db::Value(), discharge.at.date()});
    }

    Hospital& hospital_;
    std::int64_t firstRecord_ = 0;  ///< the recID of the first visit: they were written one after the other
    int limitsOver_ = 0;
    bool commented_ = false;
    std::vector<Discharge> doctors_, nurses_;
    Rows referrals_{hospital_.rows,
                    "hreferal",
                    {"consultID", "clientCat", "referto", "ApptDate", "ApptTime", "refReason", "PNo", "refDate",
                     "refTime", "attendedto", "conID", "entryDate", "entryTime"}};
    Rows appointments_{hospital_.rows,
                       "happointment",
                       {"consultID", "clientCat", "clinicType", "ApptDate", "ApptTime", "Remarks", "PNo", "entryDate",
                        "entryTime", "attendedto", "conID"}};
    Rows admissions_{
        hospital_.rows,
        "hAdmission",
        {"admdate", "aTime", "ExtendAdmissionLimitTo", "PNo", "wardID", "Reason", "Remarks", "consultID", "clientCat",
         "AdmitBy", "AdmitingDoc", "diagnosis", "conID", "isdischarged", "DischDate", "Comment"}};
    Rows byDoctors_{hospital_.rows, "hdischarge", dischargeColumns};
    Rows byNurses_{hospital_.rows, "hdischargeForNurse", dischargeColumns};
};

}  // namespace

const std::string& wardCalled(const Hospital& hospital, std::string_view id) {
    const auto found = std::find(hospital.wards.begin(), hospital.wards.end(), id);
    if (found == hospital.wards.end())
        throw db::Error(db::Category::other, "There is no ward " + std::string(id) + ".");
    return *found;
}

std::string_view diagnosisOf(const Hospital& hospital, const Visit& visit) {
    const bool delivery = visit.stay >= 0 && hospital.stays[static_cast<std::size_t>(visit.stay)].delivery;
    return delivery ? "PREGNANCY AT TERM" : illnesses()[visit.illness].diagnosis;
}

std::unordered_map<std::string, std::string> staffNames(Hospital& hospital) {
    std::unordered_map<std::string, std::string> names;
    const auto staff = hospital.rows.read("select empID, lastname, firstname from employees"_sql);
    for (std::size_t row = 0; row < staff.rowCount(); ++row)
        names.emplace(staff.value(row, 0).text(), staff.value(row, 1).text() + " " + staff.value(row, 2).text());
    return names;
}

Random chanceFor(const Hospital& hospital, const Stay& stay, std::uint64_t subject) {
    const auto number = static_cast<std::uint64_t>(&stay - hospital.stays.data());
    return hospital.random.about(number).about(subject);
}

db::DateTime doctorsDischarge(const Hospital& hospital, const Stay& stay) {
    auto chance = chanceFor(hospital, stay, 45);
    if (stay.until) {
        const auto before = minutesAfter(*stay.until, -chance.between(40, 150));
        return before.parts().hour >= 7 ? before : minutesAfter(before.date().plusDays(-1), chance.between(960, 1080));
    }
    // Of those whom no nurse has closed yet, one in three waits since yesterday.
    const auto* first = hospital.stays.data();
    const auto earlier = std::count_if(first, &stay, [](const Stay& other) { return other.overdue; });
    return earlier % 3 == 0 ? minutesAfter(hospital.today.plusDays(-1), chance.between(960, 1080))
                            : minutesAfter(hospital.today, chance.between(480, 640));
}

void planStays(Hospital& hospital) {
    StayPlanner(hospital).plan();
}

void writeStays(Hospital& hospital) {
    StayWriter(hospital).write();
}

}  // namespace hospital::demo
