#include <unordered_set>

#include "db/error.h"
#include "hospital/demo/births.h"
#include "hospital/demo/calendar.h"

namespace hospital::demo {
namespace {

constexpr int pregnancyDays = 280;  ///< from the last menstrual period to the day on which birth is due (Naegele)
constexpr int visitsBack = 725;     ///< how far the visits go back

/// The entry of illnesses() with this diagnosis.
std::size_t illnessCalled(std::string_view diagnosis) {
    const auto& list = illnesses();
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const Illness& illness) { return illness.diagnosis == diagnosis; });
    if (found == list.end())
        throw db::Error(db::Category::other, "There is no illness " + std::string(diagnosis) + ".");
    return static_cast<std::size_t>(found - list.begin());
}

/// The clinic is on Mondays and Wednesdays: the first such day from this one on. (The zero date was a Saturday.)
db::DateTime clinicDay(const db::DateTime& day) {
    const auto weekday = db::DateTime().daysUntil(day) % 7;
    return day.plusDays(weekday <= 2 ? 2 - weekday : weekday <= 4 ? 4 - weekday : 9 - weekday);
}

class PregnancyPlanner {
public:
    explicit PregnancyPlanner(Hospital& hospital) : hospital_(hospital), chance_(hospital.random), calendar_(hospital) {
        // Those in the wards now lie there for something else.
        for (const auto& stay : hospital.stays)
            if (!stay.until) pregnant_.insert(stay.patient);
    }

    void plan() {
        // A small hospital has few women of that age: what today's lists need comes first.
        planMaternityWard();
        planBookingToday();
        for (int i = 0; i < 3; ++i) planEndedOtherwise(i, hospital_.today);
        planPresent();
        planOthersInWard();
        planPast();
        const int ended = hospital_.several(1.0 / 400, 6, 300);
        for (int i = 3; i < ended; ++i) planEndedOtherwise(i, hospital_.today.plusDays(-chance_.between(1, 500)));
    }

private:
    enum class Who { nobodyElses, anybody };

    /// One in labour, births of today, and a section of the day before.
    void planMaternityWard() {
        const auto yesterday = hospital_.today.plusDays(-1);
        planLabour(atHour(hospital_.today, 8, 5));
        planDelivery(atHour(yesterday, 20, 47), false, Who::nobodyElses);
        planDelivery(atHour(yesterday, 20, 58), false, Who::nobodyElses);
        planDelivery(minutesAfter(yesterday, 90), false, Who::nobodyElses);
    }

    /// More mothers and babies of the days before, and those who leave today.
    void planOthersInWard() {
        const int still = hospital_.several(1.0 / 1000, 1, 15);
        for (int i = 0; i < still; ++i)
            planDelivery(minutesAfter(hospital_.today.plusDays(-2 + i % 2), chance_.between(60, 780)), false,
                         Who::nobodyElses);
        planDelivery(atHour(hospital_.today.plusDays(-2), 6, 1), true, Who::nobodyElses);
    }

    /// Her first visit is today's.
    void planBookingToday() {
        const int number = woman(hospital_.today, Who::nobodyElses);
        if (number == 0) return;
        hospital_.pregnancies.push_back({number, hospital_.today.plusDays(-98), -1});
        addVisit(number, hospital_.today, Visit::Road::consulted);
    }

    /// The births of two years, but for the last days'.
    void planPast() {
        const int count = hospital_.several(1.0 / 70, 6, 3000);
        for (int i = 0; i < count; ++i) {
            const auto day = hospital_.today.plusDays(-8 - static_cast<std::int64_t>(i) * 640 / count);
            planDelivery(minutesAfter(day, chance_.below(1440)), true, Who::anybody);
        }
    }

    void planLabour(const db::DateTime& from) {
        const int number = mother(from, Who::nobodyElses);
        if (number == 0) return;
        admit(number, from, "LABOUR WARD");
        follow(number, from.date().plusDays(-chance_.between(274, 284)), from.date(), -1);
    }

    /// One who is not in the house for another reason when she comes to give birth.
    int mother(const db::DateTime& from, Who who) {
        return woman(from, who, [&](int one) { return calendar_.isFree(one, from.plusHours(-3), from.plusDays(7)); });
    }

    void planDelivery(const db::DateTime& from, bool leaves, Who who) {
        const int number = mother(from, who);
        if (number == 0) return;
        const int index = admit(number, from, "MATERNITY");
        auto& stay = hospital_.stays[static_cast<std::size_t>(index)];
        const auto birth = birthOf(hospital_, stay);
        // Two days after the birth, five after a caesarean section.
        const auto home = minutesAfter(birth.at.date().plusDays(birth.caesarean ? 5 : 2), chance_.between(540, 640));
        if (leaves && home <= momentOfNow(hospital_)) stay.until = home;
        calendar_.take(number, from, stay.until.value_or(hospital_.today.plusDays(1)));
        follow(number, birth.at.date().plusDays(-chance_.between(262, 290)), from.date(), index);
    }

    /// Some come to the clinic today, some are due within a week or since yesterday.
    void planPresent() {
        static constexpr std::array<Visit::Road, 3> roads = {Visit::Road::registered, Visit::Road::seenByNurse,
                                                             Visit::Road::registered};
        static constexpr std::array<int, 5> dueIn = {3, 6, -1, 1, 5};
        const int count = hospital_.several(1.0 / 60, 8, 3000);
        const int due = hospital_.several(1.0 / 400, 4, 60);
        for (int i = 0; i < count; ++i) {
            const auto pair = static_cast<std::size_t>(i) / 2;
            const bool attends = i % 2 == 0 && pair < roads.size();
            const bool isDue = i % 2 == 1 && i < 2 * due;
            const int number = woman(hospital_.today, attends ? Who::nobodyElses : Who::anybody);
            if (number == 0) continue;
            const int days = isDue ? pregnancyDays - dueIn[pair % dueIn.size()] : chance_.between(100, 270);
            follow(number, hospital_.today.plusDays(-days), hospital_.today, -1);
            if (attends) addVisit(number, hospital_.today, roads[pair]);
        }
    }

    /// A miscarriage, a woman who was sent to another hospital, or one who gave birth elsewhere, known since that day.
    void planEndedOtherwise(int which, const db::DateTime& day) {
        static constexpr std::array<Ending, 3> endings = {Ending::lost, Ending::referred, Ending::elsewhere};
        const auto ending = endings[static_cast<std::size_t>(which) % endings.size()];
        const int number = woman(day, Who::anybody);
        if (number == 0) return;
        const auto lastPeriod = day.plusDays(-daysUntilEnding(hospital_, number, ending));
        follow(number, lastPeriod, std::min(day, lastPeriod.plusDays(pregnancyDays)), static_cast<int>(ending));
    }

    /// A woman who may be pregnant on that day, is in no other pregnancy of the plan and whom `also` takes; 0 when a
    /// long look finds none.
    int woman(const db::DateTime& day, Who who, const std::function<bool(int)>& also = {}) {
        const auto fits = [&](const Patient& patient) {
            const int age = patient.ageOn(day);
            return patient.female && age >= 17 && age <= 45 && patient.registered < day.plusDays(-45) &&
                   !pregnant_.contains(patient.number) && (!also || also(patient.number));
        };
        const int number = who == Who::nobodyElses ? hospital_.claim(fits) : anybody(fits);
        if (number != 0) pregnant_.insert(number);
        return number;
    }

    int anybody(const std::function<bool(const Patient&)>& fits) {
        for (int tries = 0; tries < 20'000; ++tries) {
            const int number = 1 + chance_.below(hospital_.patients);
            if (fits(hospital_.patient(number))) return number;
        }
        return 0;
    }

    int admit(int number, const db::DateTime& from, std::string_view ward) {
        auto visit = visitOf(number, minutesAfter(from, -70), Visit::Road::consulted, "PREGNANCY AT TERM");
        visit.clinic = inPatientClinic;
        visit.purpose = "(CONSULTATION)";
        visit.stay = static_cast<int>(hospital_.stays.size());
        Stay stay;
        stay.patient = number;
        stay.from = from;
        stay.ward = wardCalled(hospital_, ward);
        stay.delivery = true;
        hospital_.stays.push_back(stay);
        hospital_.visits.push_back(visit);
        return visit.stay;
    }

    /// Books her at three to five months, or when she comes to this hospital, and sees her every four weeks until
    /// `end`.
    void follow(int number, const db::DateTime& lastPeriod, const db::DateTime& end, int stay) {
        hospital_.pregnancies.push_back({number, lastPeriod, stay});
        auto day = std::max({lastPeriod.plusDays(chance_.between(84, 140)), hospital_.patient(number).registered,
                             hospital_.today.plusDays(-visitsBack)});
        day = std::min(day, end.plusDays(-5));
        for (bool booked = false; day < end; day = day.plusDays(booked ? 28 : 1)) {
            const auto clinic = booked ? clinicDay(day) : day;
            if (clinic >= end || !calendar_.isFree(number, clinic, clinic.plusDays(1))) continue;
            addVisit(number, clinic, Visit::Road::consulted);
            booked = true;
        }
    }

    void addVisit(int number, const db::DateTime& day, Visit::Road road) {
        const auto visit = visitOf(number, minutesAfter(day, chance_.between(480, 600)), road, "ANTENATAL CARE");
        hospital_.visits.push_back(visit);
        calendar_.take(number, visit.at, visit.at);
    }

    Visit visitOf(int number, const db::DateTime& at, Visit::Road road, std::string_view diagnosis) {
        Visit visit;
        visit.patient = number;
        visit.at = at;
        visit.clinic = antenatalClinic;
        visit.purpose = "ANTENATAL VISIT";
        visit.road = road;
        visit.illness = illnessCalled(diagnosis);
        visit.nurse = chance_.pick(hospital_.nurses);
        visit.doctor = hospital_.doctorOf(visit.clinic, chance_);
        return visit;
    }

    Hospital& hospital_;
    Random& chance_;
    Calendar calendar_;
    std::unordered_set<int> pregnant_;
};

}  // namespace

Birth birthOf(const Hospital& hospital, const Stay& stay) {
    auto chance = chanceFor(hospital, stay, 51);
    Birth birth;
    birth.at = minutesAfter(stay.from, chance.between(185, 600));
    birth.caesarean = stay.from.parts().minute % 5 == 0;  // one in five, and the plan can choose
    birth.twins = chance.percent(3);
    birth.alive = !stay.until || !chance.percent(2);
    return birth;
}

int daysUntilEnding(const Hospital& hospital, int patient, Ending ending) {
    auto chance = hospital.random.about(static_cast<std::uint64_t>(patient)).about(52);
    if (ending == Ending::elsewhere) return chance.between(290, 320);
    return ending == Ending::referred ? chance.between(200, 270) : chance.between(100, 240);
}

void planPregnancies(Hospital& hospital) {
    PregnancyPlanner(hospital).plan();
}

}  // namespace hospital::demo
