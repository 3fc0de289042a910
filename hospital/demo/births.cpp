#include "hospital/demo/births.h"

#include <map>
#include <unordered_map>

using namespace db::literals;

namespace hospital::demo {
namespace {

constexpr int dueAfter = 280;  ///< days from the last menstrual period, by Naegele's rule

/// One pregnancy with what happened in it.
struct Course {
    const Pregnancy* pregnancy = nullptr;
    Patient patient;
    std::vector<const Visit*> visits;  ///< to the antenatal clinic
    std::string number;                ///< of its registration, "03/24/0012"

    /// The day of the first attendance.
    [[nodiscard]] db::DateTime booked() const {
        return visits.empty() ? pregnancy->lastPeriod.plusDays(112) : visits.front()->at.date();
    }
    [[nodiscard]] int weeksOn(const db::DateTime& day) const {
        return static_cast<int>(pregnancy->lastPeriod.daysUntil(day) / 7);
    }
};

/// The pregnancies in the order of their registration, numbered within each month.
std::vector<Course> coursesOf(const Hospital& hospital) {
    std::unordered_map<int, std::size_t> places;
    std::vector<Course> courses;
    for (const auto& pregnancy : hospital.pregnancies) {
        places.emplace(pregnancy.patient, courses.size());
        courses.push_back({&pregnancy, hospital.patient(pregnancy.patient), {}, {}});
    }
    for (const auto& visit : hospital.visits) {
        if (visit.clinic != antenatalClinic) continue;
        const auto place = places.find(visit.patient);
        if (place != places.end()) courses[place->second].visits.push_back(&visit);
    }
    std::stable_sort(courses.begin(), courses.end(),
                     [](const Course& left, const Course& right) { return left.booked() < right.booked(); });
    std::map<std::pair<int, int>, int> counts;
    for (auto& course : courses) {
        const auto booked = course.booked().parts();
        course.number = zeroPadded(booked.month, 2) + "/" + zeroPadded(booked.year % 100, 2) + "/" +
                        zeroPadded(++counts[{booked.year, booked.month}], 4);
    }
    return courses;
}

/// What one woman has behind her.
struct Parity {
    int births = 0, lost = 0;
};

class BirthWriter {
public:
    explicit BirthWriter(Hospital& hospital)
        : hospital_(hospital), courses_(coursesOf(hospital)), names_(staffNames(hospital)) {
        const auto readings = hospital.rows.read(
            "select consultID, Pressure, Weight from hPreConsult where Status = 'ANTENATAL VISIT'"_sql);
        for (std::size_t row = 0; row < readings.rowCount(); ++row)
            readings_[readings.value(row, 0).text()] = {readings.value(row, 1).textOr(),
                                                        readings.value(row, 2).textOr()};
    }

    void write() {
        for (const auto& course : courses_) writeCourse(course);
        // What the patient's own record says of her blood stands in the booking form too.
        hospital_.rows.execute(
            "update hAntenatalReg set AssessGenotype = (select p.genotype from hPatients p where p.PNo = "
            "hAntenatalReg.PNo), PEGenotype = (select p.genotype from hPatients p where p.PNo = hAntenatalReg.PNo), "
            "PEABO = (select p.bloodGroup from hPatients p where p.PNo = hAntenatalReg.PNo), Rhesus = (select case "
            "right(p.bloodGroup, 1) when '-' then 'NEGATIVE' else 'POSITIVE' end from hPatients p where p.PNo = "
            "hAntenatalReg.PNo)"_sql);
        writeDeliveries();
        writeIncidents();
    }

private:
    void writeCourse(const Course& course) {
        auto chance = hospital_.random.about(static_cast<std::uint64_t>(course.patient.number)).about(61);
        const int age = course.patient.ageOn(course.pregnancy->lastPeriod);
        const Parity parity{chance.below(std::min(5, (age - 16) / 3)), chance.percent(20) ? 1 : 0};
        writeRegistration(course, parity, chance);
        writeEarlierBirths(course, parity.births, chance);
        for (const auto* visit : course.visits) {
            visits_.add({visit->consultID, course.patient.pno, "NO"});
            if (visit->conID != 0) writeSheet(course, *visit, chance);
        }
        if (course.pregnancy->stay == -1 && chance.percent(15)) noteRisk(course, chance);
    }

    void writeRegistration(const Course& course, const Parity& parity, Random& chance) {
        const auto& pregnancy = *course.pregnancy;
        const bool delivered = pregnancy.stay >= 0;
        const bool closedByHand = delivered ? chance.percent(85) : endedOtherwise(pregnancy);
        const int weeks = course.weeksOn(course.booked());
        const auto rare = [&](const char* text, int percent) { return chance.percent(percent) ? text : "NIL"; };
        const auto phone = "0803" + zeroPadded(chance.between(2'000'000, 9'999'999), 7);
        static const std::vector<const char*> work = {"Trader",   "Teacher", "Civil servant", "Driver",
                                                      "Engineer", "Banker",  "Tailor"};
        static const std::vector<const char*> pressures = {"100/60", "110/60", "110/70", "120/70", "120/80", "130/80"};
        static const std::vector<const char*> places = {"Ikeja", "Apapa", "Yaba", "Lagos Island", "Surulere", "Oshodi"};
        registrations_.add(
            {course.number, course.patient.pno, course.booked(), std::to_string(chance.between(37, 42)),
             closedByHand ? "YES" : "NO", delivered ? "YES" : "NO", "NON-REACTIVE",
             chance.percent(85) ? "ADEQUATE" : "TO BE ASSESSED AT 37 WEEKS",
             chance.percent(70) ? "TT1 GIVEN" : "TT COMPLETED",
             // previous medical history
             "NIL", rare("ASTHMA IN CHILDHOOD", 4), "NIL", rare("TRANSFUSED IN THE LAST PREGNANCY", 5),
             rare("HYPERTENSION", 6),
             // menstrual history
             std::to_string(chance.between(11, 15)) + " YEARS", std::to_string(chance.between(3, 6)) + " DAYS",
             chance.percent(80) ? "NORMAL" : "HEAVY", std::to_string(chance.between(26, 31)) + " DAYS",
             chance.percent(90) ? pregnancy.lastPeriod.shortDate() : "NOT SURE",
             pregnancy.lastPeriod.plusDays(dueAfter),
             // husband
             "MR " + course.patient.surname, chance.pick(work), chance.pick(places), phone,
             // family history
             rare("TWINS, MOTHER'S SIDE", 8), rare("MOTHER", 15), rare("FATHER", 10), "NIL", "NIL", "NIL",
             // physical examination
             "GOOD", "CLEAR", "S1 S2 HEARD, NO MURMUR", "FUNDUS " + std::to_string(weeks) + " CM", "NOT EXAMINED",
             "NIL", "FIT FOR ANTENATAL CARE HERE", rare("MILD, BOTH FEET", 8), rare("MILD PALLOR", 12), "NOT PALPABLE",
             "NOT PALPABLE", name(course.visits.empty() ? hospital_.nurses.front() : course.visits.front()->nurse),
             "NIL",
             // findings
             decimals(1.5 + chance.below(25) / 100.0, 2), chance.pick(pressures), decimals(chance.between(52, 88), 1),
             "NAD", "NORMAL", "SINGLE LIVE FETUS, " + std::to_string(weeks) + " WEEKS",
             decimals(chance.between(95, 128) / 10.0, 1), "NON-REACTIVE", "CLEAR", "NEGATIVE",
             // this pregnancy
             rare("SPOTTING AT 8 WEEKS", 6), rare("WHITISH, NOT OFFENSIVE", 10), rare("FREQUENCY", 12),
             rare("FEET, IN THE EVENING", 10), chance.percent(30) ? "VOMITING IN THE FIRST WEEKS" : "NIL",
             delivered ? summaryOf(pregnancy) : "",
             "P" + std::to_string(parity.births) + "+" + std::to_string(parity.lost), std::to_string(parity.lost),
             std::to_string(parity.births)});
    }

    [[nodiscard]] std::string summaryOf(const Pregnancy& pregnancy) const {
        const auto birth = birthOf(hospital_, hospital_.stays[static_cast<std::size_t>(pregnancy.stay)]);
        return std::string(birth.caesarean ? "CAESAREAN SECTION" : "VAGINAL DELIVERY") + " ON " + birth.at.shortDate() +
               (birth.twins ? ", TWINS" : "");
    }

    void writeEarlierBirths(const Course& course, int births, Random& chance) {
        static const std::vector<const char*> hospitals = {"VOREL HOSPITAL", "GENERAL HOSPITAL", "MATERNITY HOME",
                                                           "PRIVATE CLINIC"};
        auto day = course.pregnancy->lastPeriod.plusDays(-640LL * (births + 1));
        for (int i = 0; i < births; ++i) {
            day = day.plusDays(chance.between(560, 640));
            const bool section = chance.percent(15);
            earlier_.add({course.number, course.patient.pno, day, std::to_string(chance.between(37, 41)) + " WEEKS",
                          section ? "CS" : "SVD", decimals(chance.between(24, 41) / 10.0, 1),
                          chance.percent(50) ? "MALE" : "FEMALE", section ? "CRIED AFTER SUCTION" : "CRIED AT BIRTH",
                          chance.percent(96) ? "ALIVE AND WELL" : "DIED IN THE FIRST WEEK", chance.pick(hospitals)});
        }
    }

    /// The antenatal sheet of the visit's consultation: the fundus in cm is about as high as the weeks that have gone.
    void writeSheet(const Course& course, const Visit& visit, Random& chance) {
        static const std::vector<std::string> toxoid = {"TT1", "TT2", "UP TO DATE", "UP TO DATE"};
        const int weeks = course.weeksOn(visit.at);
        const auto reading = readings_.find(visit.consultID);
        const auto [pressure, weight] = reading == readings_.end() ? Reading{} : reading->second;
        const std::string albumin = chance.percent(94) ? "NIL" : "TRACE";
        const auto fundus = std::to_string(weeks + chance.between(-1, 1)) + " CM";
        const std::string presentation = weeks < 28 ? "-" : chance.percent(93) ? "CEPHALIC" : "BREECH";
        const auto heart = std::to_string(chance.between(126, 154)) + "/MIN";
        const std::string oedema = chance.percent(90) ? "NIL" : "FEET";
        const int cells = chance.between(30, 38);
        hospital_.rows.execute("update hConsulting set gestAge='"_sql + (std::to_string(weeks) + " WEEKS") +
                               "', urineAlb='" + albumin + "', urineSug='NIL', Bp='" + pressure + "', Wt='" + weight +
                               "', fundus='" + fundus + "', presentation='" + presentation + "', fH='" + heart +
                               "', oedema='" + oedema + "', hb='" + decimals(cells / 3.0, 1) + "', pcv='" +
                               (std::to_string(cells) + "%") + "', tt='" + chance.pick(toxoid) + "', mo='" +
                               visit.doctor + "' where ID=" + visit.conID);
    }

    /// What whoever opens her record is to know.
    void noteRisk(const Course& course, Random& chance) {
        static const std::vector<std::string> risks = {
            "PREVIOUS CAESAREAN SECTION", "RHESUS NEGATIVE, ANTI-D AT 28 WEEKS", "HYPERTENSIVE, ON METHYLDOPA",
            "TWIN PREGNANCY", "HB GENOTYPE SC, WATCH PCV"};
        hospital_.rows.execute("update hPatients set ANCInfo='"_sql + chance.pick(risks) + "' where PNo='" +
                               course.patient.pno + "'");
    }

    void writeDeliveries() {
        struct Delivered {
            Birth birth;
            const Course* course;
        };
        std::vector<Delivered> delivered;
        for (const auto& course : courses_)
            if (course.pregnancy->stay >= 0) delivered.push_back({birthOf(hospital_, stayOf(course)), &course});
        std::stable_sort(delivered.begin(), delivered.end(),
                         [](const Delivered& left, const Delivered& right) { return left.birth.at < right.birth.at; });
        for (const auto& [birth, course] : delivered) {
            visits_.add({stayOf(*course).visit->consultID, course->patient.pno, "YES"});
            const int babies = birth.twins ? 2 : 1;
            for (int baby = 1; baby <= babies; ++baby) writeBaby(*course, birth, baby);
        }
    }

    void writeBaby(const Course& course, const Birth& birth, int number) {
        static const std::vector<const char*> remarks = {
            "Baby cried at birth, cord clamped and cut", "Mother and baby in good condition",
            "Placenta complete, blood loss about 250 ml", "Put to the breast within one hour"};
        const auto& stay = stayOf(course);
        auto chance = chanceFor(hospital_, stay, 61 + static_cast<std::uint64_t>(number));
        const auto at = minutesAfter(birth.at, (number - 1) * 12LL);
        const auto* sex = chance.percent(51) ? "MALE" : "FEMALE";
        const auto weight = decimals(chance.between(25, 40) / 10.0 - (birth.twins ? 0.6 : 0), 1);
        const auto length = std::to_string(chance.between(47, 53));
        const auto midwife = name(chance.pick(hospital_.nurses));
        const auto assistant = name(chance.pick(hospital_.nurses));
        const int apgar = birth.alive ? chance.between(7, 9) : 0;
        // A birth late in the evening is entered the day after.
        const auto entered = std::min(minutesAfter(at, 240).date(), hospital_.today);
        deliveries_.add({at.date(), at.timeOfDay(), stay.visit->consultID, sex, methodOf(stay, birth),
                         stay.visit->doctor, midwife + ", " + assistant,
                         birth.alive ? chance.pick(remarks) : "Fresh still birth", birth.alive ? "SUCCESS" : "FAIL",
                         weight, length,
                         std::to_string(apgar) + "/" + std::to_string(std::min(10, apgar + (birth.alive ? 1 : 0))),
                         std::to_string(chance.between(33, 36)), std::to_string(chance.between(52, 88)),
                         birth.alive ? "VITAMIN K 1MG IM" : "", birth.alive ? "BCG, OPV 0, HEP B 0" : "", entered});
        if (!birth.alive) return;
        const auto called = "BABY " + course.patient.surname + (birth.twins ? number == 1 ? " I" : " II" : "");
        const bool watched = chance.percent(6);
        babies_.add({at.date(), at.timeOfDay(), course.patient.pno, stay.visit->consultID, called, sex, length, weight,
                     watched ? wardCalled(hospital_, "NEONATAL UNIT") : stay.ward,
                     stay.until ? db::Value(stay.until->date()) : db::Value()});
    }

    /// The labour ward enters what its screen offers; the doctors' module says NORMAL.
    [[nodiscard]] const char* methodOf(const Stay& stay, const Birth& birth) const {
        if (birth.caesarean) return "CS";
        return (&stay - hospital_.stays.data()) % 2 == 0 ? "SVD" : "NORMAL";
    }

    void writeIncidents() {
        static const std::map<Ending, std::pair<const char*, std::vector<const char*>>> kinds = {
            {Ending::lost,
             {"Miscarriages & IUFD",
              {"Bleeding per vaginam, incomplete abortion", "No fetal heart on scan, IUFD",
               "Complete abortion at home"}}},
            {Ending::referred,
             {"Referred Cases",
              {"Severe pre-eclampsia, referred to the teaching hospital", "Placenta praevia, no blood available",
               "Preterm labour, no place in the neonatal unit"}}},
            {Ending::elsewhere,
             {"Rgistered but not delivered in Orsa",
              {"Delivered in a maternity home near her house", "Travelled, delivered with her mother",
               "Delivered on the way, came with the baby"}}}};
        struct Incident {
            db::DateTime day;
            const Course* course;
            Ending ending;
        };
        std::vector<Incident> incidents;
        for (const auto& course : courses_) {
            if (!endedOtherwise(*course.pregnancy)) continue;
            const auto ending = static_cast<Ending>(course.pregnancy->stay);
            const int days = daysUntilEnding(hospital_, course.patient.number, ending);
            incidents.push_back({course.pregnancy->lastPeriod.plusDays(days), &course, ending});
        }
        std::stable_sort(incidents.begin(), incidents.end(),
                         [](const Incident& left, const Incident& right) { return left.day < right.day; });
        for (const auto& incident : incidents) {
            auto chance = hospital_.random.about(static_cast<std::uint64_t>(incident.course->patient.number)).about(62);
            const auto& [type, remarks] = kinds.at(incident.ending);
            const auto& visits = incident.course->visits;
            incidents_.add({incident.day, type, incident.course->patient.pno,
                            visits.empty() ? db::Value() : db::Value(visits.back()->consultID), incident.course->number,
                            chance.pick(remarks), chance.pick(hospital_.nurses)});
        }
    }

    [[nodiscard]] const Stay& stayOf(const Course& course) const {
        return hospital_.stays[static_cast<std::size_t>(course.pregnancy->stay)];
    }
    [[nodiscard]] const std::string& name(const std::string& employee) const { return names_.at(employee); }

    struct Reading {
        std::string pressure, weight;
    };
    Hospital& hospital_;
    std::vector<Course> courses_;
    std::unordered_map<std::string, std::string> names_;  ///< of the staff
    std::unordered_map<std::string, Reading> readings_;   ///< of antenatal visits, by their consultID
    Rows registrations_{hospital_.rows,
                        "hAntenatalReg",
                        {"ANCRegNo",
                         "PNo",
                         "dtFAttd",
                         "ShoeSize",
                         "isdelvd",
                         "isdelv",
                         "AssessKahn",
                         "PelvicScan",
                         "SpecificTT",
                         "PMHHeart",
                         "PMHChest",
                         "PMHKidney",
                         "PMHBlood",
                         "PMHOthers",
                         "MHOnset",
                         "MHDuration",
                         "MHAmount",
                         "Cycle",
                         "LMP",
                         "dtEdd",
                         "HusbName",
                         "HusbOccu",
                         "HusbOffice",
                         "HusbPhone",
                         "FHMultipreg",
                         "FHHyper",
                         "FHDiabetes",
                         "FHTuber",
                         "FHHeart",
                         "FHOthers",
                         "PEGenCond",
                         "PEResp",
                         "PECardio",
                         "PEAbdomen",
                         "PEVagina",
                         "PEOthers",
                         "PEComments",
                         "PEOedema",
                         "PEAnaemia",
                         "PESpleen",
                         "PELiver",
                         "PEExaminer",
                         "PESpecial",
                         "PEHt",
                         "PEBP",
                         "PEWt",
                         "PEUrine",
                         "PEBreast",
                         "PEScan",
                         "PEHB",
                         "PEkahn",
                         "PEChest",
                         "PEWR",
                         "HPPBleed",
                         "HPPDisch",
                         "HPPurinary",
                         "HPPSwell",
                         "HPPOthers",
                         "DelvSumm",
                         "PrevPregParity",
                         "PrevPregAbortion",
                         "PrevPregnumAlive"}};
    Rows earlier_{
        hospital_.rows,
        "hAncObsteHist",
        {"ANCRegNo", "PNo", "dtdelv", "gestAge", "delvMode", "wtAtBirth", "sex", "compAtBirth", "Alive", "hosp"}};
    Rows visits_{hospital_.rows, "hAnteNatal", {"ConsultID", "PNo", "isdelv"}};
    Rows deliveries_{
        hospital_.rows,
        "hDelivery",
        {"delvDate", "TOB", "consultID", "sex", "Method", "NameOfDoctor", "NameOfNurse", "Remarks", "DelvOutcome", "Wt",
         "BirthLength", "ApgarScore", "HeadCircumference", "RBS", "InjectionTaken", "ImmunizationDone", "EntryDate"}};
    Rows babies_{hospital_.rows,
                 "hNewBabies",
                 {"bdate", "btime", "PNo", "consultID", "fullname", "sex", "height", "weight", "wardID", "DischDate"}};
    Rows incidents_{hospital_.rows,
                    "hAntenatalIncidents",
                    {"IncDate", "IncidentType", "PNo", "consultID", "ANCRegNo", "Remarks", "empID"}};
};

}  // namespace

void writeBirths(Hospital& hospital) {
    BirthWriter(hospital).write();
}

}  // namespace hospital::demo
