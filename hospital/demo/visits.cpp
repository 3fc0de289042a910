#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "hospital/demo/common.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

constexpr int daysBack = 730;
constexpr int capacity = 480;  ///< visits a day that the house can take

/// The patients that were there on a day are those with the lowest numbers.
int registeredBefore(const Hospital& hospital, int daysAgo) {
    int low = 1;
    int high = hospital.patients;
    const auto day = hospital.today.plusDays(-daysAgo);
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (hospital.patient(middle).registered < day)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

const char* clinicFor(Random& chance, const Patient& patient, int age) {
    if (age >= 16 && age < 46 && patient.female && chance.percent(6)) return "GYNAECOLOGY";
    if (age < 13 && chance.percent(60)) return "PAEDIATRICS";
    const int draw = chance.below(100);
    return draw < 78 ? "(GENERAL)" : draw < 84 ? "DENTAL" : draw < 90 ? "EYE" : draw < 95 ? "MEDICAL" : "SURGICAL";
}

Visit visitOf(Hospital& hospital, const Patient& patient, const db::DateTime& moment, Visit::Road road) {
    auto& chance = hospital.random;
    Visit visit;
    visit.patient = patient.number;
    visit.at = moment;
    visit.clinic = clinicFor(chance, patient, patient.ageOn(moment));
    visit.purpose = chance.percent(85) ? "(CONSULTATION)" : "APPOINTMENT";
    // Some employers send their people.
    if (patient.client->category == "COMPANY" && patient.ageOn(moment) > 18 && chance.percent(25)) {
        visit.clinic = "(GENERAL)";
        visit.purpose = chance.percent(50) ? "PRE-EMPLOYMENT" : "SCREENING";
    }
    visit.road = road;
    visit.illness = illnessFor(chance, visit.clinic);
    visit.nurse = chance.pick(hospital.nurses);
    visit.doctor = hospital.doctorOf(visit.clinic, chance);
    return visit;
}

Visit clinicVisit(Hospital& hospital, int patient, const db::DateTime& moment, const char* clinic) {
    auto visit = visitOf(hospital, hospital.patient(patient), moment, Visit::Road::seenByNurse);
    visit.clinic = clinic;
    visit.purpose = clinic;
    visit.doctor = hospital.doctorOf(clinic, hospital.random);
    return visit;
}

void planPast(Hospital& hospital) {
    auto& chance = hospital.random;
    const double aDay = std::min(2.4 * hospital.patients / daysBack, double{capacity});
    double owed = 0;
    for (int daysAgo = daysBack; daysAgo > 0; --daysAgo) {
        const auto day = hospital.today.plusDays(-daysAgo);
        const bool sunday = day.daysUntil(db::DateTime::of(2026, 11, 22)) % 7 == 0;  // a Sunday
        owed += sunday ? aDay / 3 : aDay * 1.1;
        const int visits = static_cast<int>(owed);
        owed -= visits;
        const int known = visits > 0 ? registeredBefore(hospital, daysAgo) : 0;
        for (int i = 0; i < visits; ++i) {
            const auto road = chance.percent(95)   ? Visit::Road::consulted
                              : chance.percent(50) ? Visit::Road::seenByNurse
                                                   : Visit::Road::registered;
            const auto patient = hospital.patient(1 + chance.below(known));
            const int minute = chance.between(450, 1140);
            hospital.visits.push_back(visitOf(hospital, patient, minutesAfter(day, minute), road));
        }
    }
}

/// Today's waiting rooms: those who wait for a nurse, those who wait for a doctor, and those who are done.
void planToday(Hospital& hospital) {
    auto& chance = hospital.random;
    const int count = hospital.several(0.02, 14, 450);
    for (int i = 0; i < count; ++i) {
        const int number = hospital.claim([&](const Patient& patient) { return patient.registered < hospital.today; });
        if (number == 0) return;
        const auto road = i % 20 < 9    ? Visit::Road::registered
                          : i % 20 < 15 ? Visit::Road::seenByNurse
                                        : Visit::Road::consulted;
        const int minute = road == Visit::Road::registered ? chance.between(560, 780) : chance.between(450, 650);
        hospital.visits.push_back(
            visitOf(hospital, hospital.patient(number), minutesAfter(hospital.today, minute), road));
    }
}

/// Children come at the ages of the national schedule: at birth, with 6, 10 and 14 weeks, 6, 9 and 15 months.
void planImmunizations(Hospital& hospital) {
    static constexpr std::array ages = {1, 42, 70, 98, 183, 274, 456};
    const auto small = [&](const Patient& patient) {
        const auto days = patient.born.daysUntil(hospital.today);
        return days > 2 && days < daysBack && patient.registered < hospital.today;
    };
    const int children = hospital.several(0.03, 4, 20'000);
    for (int i = 0; i < children; ++i) {
        const int number = hospital.claim(small);
        if (number == 0) return;
        const auto child = hospital.patient(number);
        for (const int age : ages) {
            const auto day = child.born.plusDays(age);
            if (day >= hospital.today || day < child.registered) continue;
            hospital.visits.push_back(
                clinicVisit(hospital, number, minutesAfter(day, hospital.random.between(510, 700)), "IMMUNIZATION"));
        }
        if (i < 4) {  // the first has had hers today, the others wait
            auto visit = clinicVisit(hospital, number, minutesAfter(hospital.today, 515 + 7 * i), "IMMUNIZATION");
            if (i > 0) visit.road = Visit::Road::registered;
            hospital.visits.push_back(visit);
        }
    }
}

/// A dialysis patient comes three times a week; the series here are two months long.
void planDialysis(Hospital& hospital) {
    const int count = hospital.several(0.004, 3, 60);
    for (int i = 0; i < count; ++i) {
        const int number = hospital.claim([&](const Patient& patient) {
            return patient.ageOn(hospital.today) > 30 && patient.registered < hospital.today.plusDays(-70);
        });
        if (number == 0) return;
        const int first = i % 2 == 0 ? 60 : 59;
        for (int daysAgo = first; daysAgo > 0; daysAgo -= daysAgo % 7 == 1 ? 3 : 2)
            hospital.visits.push_back(clinicVisit(
                hospital, number, minutesAfter(hospital.today.plusDays(-daysAgo), 480 + 10 * i), "DIALYSIS"));
        auto visit = clinicVisit(hospital, number, minutesAfter(hospital.today, 480 + 10 * i), "DIALYSIS");
        visit.road = i < 2 ? Visit::Road::registered : Visit::Road::seenByNurse;
        hospital.visits.push_back(visit);
    }
}

/// Readings that fit the age and the patient: growth roughly after the World Health Organization's medians.
struct Readings {
    std::string temperature, systolic, diastolic, pulse, weight, height, respiration, oxygen;
};
Readings readingsOf(Random& chance, Random body, int age, bool feverish) {
    const int tall = body.between(150, 185);
    const double heavy = tall - 100 + body.between(-8, 15);
    const double height = age >= 18 ? tall : std::min(50 + 25 * std::sqrt(age), double(tall));
    const double weight =
        age >= 18 ? heavy + chance.between(-10, 10) / 10.0 : 3.4 + age * 2.9 + chance.below(10) / 10.0;
    const int systolic = age >= 40 ? chance.between(110, 165) : age >= 13 ? chance.between(100, 130) : 90 + age;
    return {decimals(feverish ? 37.6 + chance.below(22) / 10.0 : 36.2 + chance.below(10) / 10.0, 1),
            std::to_string(systolic),
            std::to_string(systolic * 2 / 3 - chance.below(6)),
            std::to_string(age < 5 ? chance.between(95, 135) : chance.between(62, 98)),
            decimals(weight, 1),
            decimals(height / 100, 2),
            std::to_string(age < 5 ? chance.between(24, 36) : chance.between(16, 22)),
            std::to_string(chance.between(95, 100))};
}

/// The tables that a visit fills.
class VisitWriter {
public:
    explicit VisitWriter(Hospital& hospital) : hospital_(hospital) {}

    void write(Visit& visit, const Visit* before) {
        const auto patient = hospital_.patient(visit.patient);
        writeRecord(visit, patient, before);
        const bool measured = visit.road != Visit::Road::registered && visit.clinic != "IMMUNIZATION";
        if (measured) writeReadings(visit, patient);
        if (visit.road != Visit::Road::consulted) return;
        writeConsultation(visit, patient);
        if (hospital_.random.percent(12) && visit.stay < 0) writeAppointment(visit, patient);
    }

private:
    void writeRecord(const Visit& visit, const Patient& patient, const Visit* before) {
        const bool seen = visit.road != Visit::Road::registered;
        const bool withDoctor = seen && visit.clinic != "IMMUNIZATION" && visit.clinic != "DIALYSIS";
        const bool immunized = seen && visit.clinic == "IMMUNIZATION";
        records_.add({visit.at.date(),
                      patient.pno,
                      visit.consultID,
                      visit.nurse,
                      visit.clinic,
                      visit.purpose,
                      visit.at.timeOfDay(),
                      "NO",
                      "NO",
                      withDoctor ? db::Value(visit.doctor) : db::Value(),
                      withDoctor ? db::Value(1) : db::Value(),
                      0,
                      seen ? 1 : 0,
                      visit.road == Visit::Road::consulted ? 1 : 0,
                      seen ? 1 : 0,
                      immunized ? 1 : 0,
                      visit.at.date(),
                      patient.client->category,
                      patient.client->id,
                      before ? db::Value(before->consultID) : db::Value(),
                      before ? db::Value(before->at.date()) : db::Value(),
                      before ? db::Value(before->clinic) : db::Value(),
                      before ? db::Value(before->purpose) : db::Value()});
        timeline_.add({visit.consultID, "ATTENDANCE", "ENTRY|EXIT"});
        if (immunized) timeline_.add({visit.consultID, "IMMUNIZATION", "ENTRY|EXIT"});
        if (visit.purpose == "SCREENING" || visit.purpose == "PRE-EMPLOYMENT")
            screenings_.add({visit.at.date(), visit.consultID, visit.purpose});
    }

    void writeReadings(const Visit& visit, const Patient& patient) {
        const bool feverish = hospital_.random.percent(40);
        const auto body = hospital_.random.about(static_cast<std::uint64_t>(patient.number)).about(11);
        const auto r = readingsOf(hospital_.random, body, patient.ageOn(visit.at), feverish);
        const auto moment = minutesAfter(visit.at, 15);
        const auto id =
            readings_.add({moment.date(), moment.timeOfDay(), patient.pno, visit.nurse, "OUT-PATIENT", r.temperature,
                           r.systolic + "/" + r.diastolic, r.pulse, r.weight, r.height, r.respiration,
                           patient.client->category, visit.consultID, visit.purpose, r.oxygen});
        chart_.add({id, visit.consultID, moment.date(), moment.timeOfDay(), r.temperature, r.systolic, r.diastolic,
                    r.pulse, r.weight, r.height, r.respiration});
        timeline_.add({visit.consultID, "VITALS", db::Value()});
    }

    void writeConsultation(Visit& visit, const Patient& patient) {
        const auto& illness = illnesses()[visit.illness];
        const auto moment = minutesAfter(visit.at, 45);
        std::string prescription, tests;
        for (const auto* text : illness.drugs) {
            const Order order(text);
            prescription += (prescription.empty() ? "" : "\r\n") + order.name + " " + order.usage();
        }
        for (const auto* test : illness.tests) tests += (tests.empty() ? "" : "\r\n") + std::string(test);
        const bool today = visit.at.date() == hospital_.today;
        visit.conID = consultings_.add({visit.consultID, patient.pno, moment.date(), moment.timeOfDay(), visit.doctor,
                                        patient.client->category, visit.stay < 0 ? "OUT-PATIENT" : "ADMISSION",
                                        today ? 0 : 1, illness.complaint, "Nil of note", "As in complaints",
                                        "Conscious, not pale, anicteric, acyanosed", illness.diagnosis, tests,
                                        visit.stay < 0 ? "Treat as out-patient" : "Admit", prescription,
                                        visit.stay < 0 ? db::Value() : db::Value("(IN-PATIENT)")});
        for (const auto* text : illness.drugs) {
            const Order order(text);
            orders_.add({visit.consultID, visit.conID, patient.pno, moment.date(), moment.timeOfDay(), order.name,
                         Hospital::named(hospital_.drugs, order.name).category, order.doses(), order.usage(),
                         today ? 0 : 1});
        }
    }

    /// Most are to come again in a week or two.
    void writeAppointment(const Visit& visit, const Patient& patient) {
        const auto day = visit.at.date().plusDays(hospital_.random.between(7, 21));
        appointments_.add({visit.consultID, patient.client->category, visit.clinic, day,
                           db::DateTime::of(1899, 12, 30, hospital_.random.between(9, 14)),
                           visit.clinic + " Appointment", patient.pno, visit.at.date(), visit.at.timeOfDay(), 0,
                           visit.conID});
    }

    Hospital& hospital_;
    Rows records_{hospital_.rows,
                  "hRecords",
                  {"recDate",
                   "PNo",
                   "consultID",
                   "empID",
                   "clinicType",
                   "Remarks",
                   "htime",
                   "HMORef",
                   "referal",
                   "DocAssigned",
                   "PatVal",
                   "suppres",
                   "attendedto",
                   "attendedtoByDoc",
                   "attendedToByNurse",
                   "AttendedToByImmume",
                   "BillDate",
                   "clientCat",
                   "CoyName",
                   "LastConsultID",
                   "LastAttndDate",
                   "LastClinicVisited",
                   "LastPurpose"}};
    Rows screenings_{hospital_.rows, "hhScreeningAttnd", {"recDate", "consultID", "Remarks"}};
    Rows timeline_{hospital_.rows, "hPatientsTimeline", {"consultID", "ServicePoint", "EntryOrExit"}};
    Rows readings_{hospital_.rows,
                   "hPreConsult",
                   {"preDate", "preTime", "PNo", "examinedby", "Remarks", "temp", "Pressure", "pulse", "Weight",
                    "Height", "respRatio", "clientCat", "consultID", "Status", "SPO2"}};
    Rows chart_{hospital_.rows,
                "hPreConsultChart",
                {"ID", "consultID", "preDate", "preTime", "temp", "Pressure1", "Pressure2", "pulse", "Weight", "Height",
                 "respRatio"}};
    Rows consultings_{
        hospital_.rows,
        "hConsulting",
        {"consultID", "PNo", "CDate", "cTime", "treatedBy", "clientCat", "Remarks", "attendedToByPharm", "Complaints",
         "pmh", "hpc", "genphy", "diagnosis", "investigate", "treatPlan", "preScription", "referto"}};
    Rows orders_{
        hospital_.rows,
        "hconsultingDetails",
        {"consultID", "conID", "PNo", "dtDate", "dtTime", "drgName", "drgCatName", "Qty", "usage", "attendedTo"}};
    Rows appointments_{hospital_.rows,
                       "happointment",
                       {"consultID", "clientCat", "clinicType", "ApptDate", "ApptTime", "Remarks", "PNo", "entryDate",
                        "entryTime", "attendedto", "conID"}};
};

}  // namespace

void planVisits(Hospital& hospital) {
    planPast(hospital);
    planToday(hospital);
    planImmunizations(hospital);
    planDialysis(hospital);
}

void orderVisits(Hospital& hospital) {
    std::stable_sort(hospital.visits.begin(), hospital.visits.end(),
                     [](const Visit& left, const Visit& right) { return left.at < right.at; });
    int number = 0;
    for (auto& visit : hospital.visits) {
        visit.consultID = "001" + zeroPadded(++number, 9);
        if (visit.stay >= 0) hospital.stays[static_cast<std::size_t>(visit.stay)].visit = &visit;
    }
}

void writeVisits(Hospital& hospital) {
    VisitWriter writer(hospital);
    std::vector<const Visit*> last(static_cast<std::size_t>(hospital.patients) + 1, nullptr);
    for (auto& visit : hospital.visits) {
        auto& before = last[static_cast<std::size_t>(visit.patient)];
        writer.write(visit, before);
        before = &visit;
    }
    hospital.rows.execute("update idgen set id="_sql + static_cast<int>(hospital.visits.size()) +
                          " where destNAme='ConsultID2'");
}

}  // namespace hospital::demo
