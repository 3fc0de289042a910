#include <unordered_map>

#include "hospital/demo/births.h"
#include "hospital/demo/charts.h"

namespace hospital::demo {
namespace {

/// What is recorded once in a stay: the nurses' assessment, a reaction to a drug, an operation.
class AssessmentWriter {
public:
    explicit AssessmentWriter(Hospital& hospital)
        : hospital_(hospital), diary_(momentOfNow(hospital)), names_(staffNames(hospital)) {
        for (const auto& pregnancy : hospital.pregnancies) periods_[pregnancy.patient] = pregnancy.lastPeriod;
    }

    void write(const std::vector<Case>& cases) {
        for (const auto& patient : cases) {
            if (const auto operation = operationOf(hospital_, *patient.stay))
                diary_.at(operation->at, [this, &patient, at = *operation] { writeOperation(patient, at); });
            if (!patient.recent) continue;
            const auto arrival = minutesAfter(patient.stay->from, 20);
            diary_.at(arrival, [this, &patient, arrival] { writeHistory(patient, arrival); });
            planReaction(patient);
        }
        diary_.write();
    }

private:
    void writeHistory(const Case& patient, const db::DateTime& moment) {
        auto chance = chanceFor(hospital_, patient, moment, 8);
        const int age = patient.patient.ageOn(moment);
        const auto& condition = *patient.condition;
        const auto answers = answersOf(patient, age, chance);
        const auto* past = chance.percent(25) ? "Admitted once, for malaria" : "No previous admission";
        const auto* sleep = chance.percent(50) ? "Sleeps about six hours" : "Disturbed by the illness";
        const auto* faith = chance.percent(55) ? "Christian" : "Muslim";
        const auto* valuables = chance.percent(70) ? "None" : "Wrist watch and phone, kept by the relations";
        const auto* chest = condition.breathing > 10 ? "Crepitations, both bases" : "Chest clear";
        const auto* results = chance.percent(60) ? "Malaria parasite +" : "Awaited";
        const auto* allergies = chance.percent(8) ? "Penicillin" : "None known";
        const auto inspection =
            std::string("Conscious, ") + (condition.fever > 1 ? "febrile" : "afebrile") + ", not cyanosed, skin clean";
        const auto [lastPeriod, due] = periodOf(patient, moment, chance);
        const int immunized = age < 6 ? 1 : 0;
        const int measles = age >= 1 && age < 6 ? 1 : 0;
        histories_.add({moment.date(),
                        patient.patient.pno,
                        patient.visit->consultID,
                        nurseOnDuty(hospital_, patient.stay->ward, moment),
                        answers.informant,
                        std::string("c/o ") + condition.complaint,
                        past,
                        answers.nutrition,
                        "Bowels open daily, urine normal",
                        answers.exercise,
                        sleep,
                        "Hears and sees well",
                        "Understands the illness and wants to get well",
                        answers.family,
                        answers.sexuality,
                        "Prays, talks with the family",
                        faith,
                        answers.habits,
                        valuables,
                        condition.drip ? "Ketones +" : "NAD",
                        inspection,
                        "Abdomen soft, no mass",
                        "Resonant",
                        chest,
                        results,
                        condition.problem,
                        allergies,
                        immunized,
                        immunized,
                        immunized,
                        immunized,
                        immunized,
                        measles,
                        "",
                        lastPeriod,
                        due,
                        "Ill looking but stable; needs close observation"});
    }

    /// What children's mothers and grown-up patients say of themselves.
    struct Answers {
        const char *informant, *nutrition, *exercise, *family, *sexuality, *habits;
    };
    static Answers answersOf(const Case& patient, int age, Random& chance) {
        if (age < 13)
            return {
                "Mother", "Family diet, breast fed as an infant", "Plays, now weak", "Lives with both parents", "N/A",
                "N/A"};
        return {chance.percent(60) ? "Self" : "Relation",
                "Three meals a day, appetite reduced",
                "Walks, needs help to the bathroom",
                chance.percent(60) ? "Married, lives with the family" : "Lives alone",
                patient.stay->delivery                ? "Pregnant at term"
                : patient.patient.female && age <= 45 ? "Regular cycle"
                                                      : "No complaint",
                chance.percent(90) ? "Neither smokes nor drinks" : "Drinks beer at week ends"};
    }

    /// The last menstrual period, and the day on which a birth is due.
    [[nodiscard]] std::pair<db::Value, db::Value> periodOf(const Case& patient, const db::DateTime& moment,
                                                           Random& chance) const {
        const int age = patient.patient.ageOn(moment);
        if (!patient.patient.female || age < 15 || age > 45) return {};
        const auto found = periods_.find(patient.patient.number);
        if (patient.stay->delivery && found != periods_.end()) return {found->second, found->second.plusDays(280)};
        return {moment.date().plusDays(-chance.between(3, 27)), db::Value()};
    }

    /// The first patient of some days has had one, so that the ward's list is never empty; of the others a few.
    void planReaction(const Case& patient) {
        const auto at = patient.stay->from.plusHours(17);
        if (patient.end < at.plusHours(2)) return;
        const bool first = patient.present() && !reacted_;
        if (!first && !chanceFor(hospital_, patient, at, 9).percent(6)) return;
        reacted_ = reacted_ || patient.present();
        diary_.at(at, [this, &patient, at] { writeReaction(patient, at); });
    }

    void writeReaction(const Case& patient, const db::DateTime& at) {
        static const std::vector<const char*> signs = {"ITCHING",
                                                       "LOCALIZED OR GENERALIZED URTICARIA (RASH, WELTS)",
                                                       "FLUSHING AND/OR SKIN EDEMA",
                                                       "PALPITATIONS",
                                                       "NAUSEA AND VOMITING",
                                                       "APPREHENSION",
                                                       "DIFFICULTY BREATHING"};
        auto chance = chanceFor(hospital_, patient, at, 10);
        const auto first = static_cast<std::size_t>(chance.below(4));
        const auto last = first + static_cast<std::size_t>(chance.between(1, 3));
        std::string symptoms;
        for (auto i = first; i < last; ++i) symptoms += (symptoms.empty() ? "" : "\r\n") + std::string(signs[i]);
        const bool blood = chance.percent(15);
        const auto doctorCame = minutesAfter(at, chance.between(8, 25));
        reactions_.add({patient.visit->consultID, patient.patient.pno, at.date(),
                        blood ? "BLOOD ADMINISTERED" : "MEDICATION ADMINISTERED", at.timeOfDay(),
                        doctorCame.timeOfDay(), symptoms, "", "Pt calm after one hour",
                        std::string(blood ? "Transfusion" : "Drug") +
                            " stopped, doctor informed, hydrocortisone and promethazine given, vital signs every 15 "
                            "minutes",
                        nurseOnDuty(hospital_, patient.stay->ward, at), patient.visit->doctor});
    }

    void writeOperation(const Case& patient, const Operation& operation) {
        struct Text {
            std::string_view operation;
            const char *indication, *consentBy, *findings, *steps;
        };
        static constexpr std::array<Text, 3> texts = {
            {{"CAESAREAN SECTION", "FETAL DISTRESS", "HUSBAND", "LIVE BABY, CEPHALIC, CLEAR LIQUOR, PLACENTA FUNDAL",
              "LOWER SEGMENT SECTION UNDER SPINAL ANAESTHESIA, UTERUS CLOSED IN TWO LAYERS"},
             {"APPENDICECTOMY", "ACUTE APPENDICITIS", "SELF", "INFLAMED APPENDIX, NOT PERFORATED",
              "APPENDIX REMOVED THROUGH A RIGHT ILIAC INCISION, WOUND CLOSED IN LAYERS"},
             {"HERNIORRHAPHY", "REDUCIBLE INGUINAL HERNIA", "SELF", "INDIRECT SAC WITH OMENTUM",
              "SAC LIGATED, POSTERIOR WALL REPAIRED"}}};
        const auto& text = *std::find_if(texts.begin(), texts.end() - 1,
                                         [&](const Text& entry) { return entry.operation == operation.name; });
        auto chance = chanceFor(hospital_, patient, operation.at, 11);
        const auto& surgeon = patient.stay->delivery ? patient.visit->doctor : hospital_.doctorOf("SURGICAL", chance);
        const auto assistant = name(hospital_.doctorOf("(GENERAL)", chance));
        const auto anaesthetist = name(hospital_.doctorOf("EMERGENCY", chance));
        const int cells = chance.between(30, 40);
        const auto white = std::to_string(chance.between(48, 96) * 100);
        const int polymorphs = chance.between(55, 70);
        const auto sodium = std::to_string(chance.between(135, 142));
        const auto urea = std::to_string(chance.between(18, 38));
        const auto before = std::to_string(chance.between(78, 96));
        const auto after = std::to_string(chance.between(72, 88));
        operations_.add({operation.at.date(),
                         patient.patient.pno,
                         patient.visit->consultID,
                         surgeon,
                         text.indication,
                         operation.name,
                         "SIGNED",
                         text.consentBy,
                         "NAD",
                         "NIL",
                         "NIL",
                         "NIL",
                         "NIL",
                         decimals(cells / 3.0, 1),
                         std::to_string(cells),
                         white,
                         std::to_string(polymorphs),
                         std::to_string(95 - polymorphs),
                         "NORMAL",
                         "SINUS RHYTHM",
                         sodium,
                         urea,
                         "NON-REACTIVE",
                         name(surgeon),
                         assistant,
                         anaesthetist,
                         "124/76",
                         before,
                         "118/74",
                         after,
                         text.findings,
                         text.steps});
    }

    [[nodiscard]] std::string name(const std::string& doctor) const { return "DR " + names_.at(doctor); }

    Hospital& hospital_;
    Diary diary_;
    std::unordered_map<std::string, std::string> names_;  ///< of the staff
    bool reacted_ = false;
    std::unordered_map<int, db::DateTime> periods_;  ///< the last one of each who is or was pregnant
    Rows histories_{
        hospital_.rows,
        "hNursingHist",
        {"dtDate",    "PNo",       "consultID", "empID",      "informnt",   "present",    "past",       "nutrition",
         "elimin",    "exercise",  "sleep",     "comm",       "perception", "socialstat", "sexuality",  "stress",
         "beliefs",   "habits",    "valuables", "urinalysis", "genInspec",  "palpation",  "percussion", "auscultation",
         "labresult", "nursediag", "allergies", "bcg",        "polio",      "tetanus",    "whooping",   "dipthe",
         "measles",   "others",    "LMP",       "EDD",        "nurAssess"}};
    Rows reactions_{hospital_.rows,
                    "hNurseAllergy",
                    {"consultID", "PNo", "ADate", "Event", "tReaction", "tDoc", "Symptoms", "others", "Comments",
                     "Note", "Nurse", "Doctor"}};
    Rows operations_{
        hospital_.rows,
        "hSurgery",
        {"sDate",      "PNo",          "consultID", "empID",   "indications", "operation", "consent",  "relation",
         "urinalysis", "sediments",    "sugar",     "acetone", "aib",         "hb",        "pcv",      "wbc",
         "wbc_p",      "wbc_L",        "chestXray", "ecg",     "urea_na",     "urea",      "hiv",      "surgeon",
         "Assistant",  "anaesthetist", "preOPBP",   "pulse",   "postOPBP",    "hgp",       "findings", "Procedure"}};
};

}  // namespace

void chartAssessments(Hospital& hospital, const std::vector<Case>& cases) {
    AssessmentWriter(hospital).write(cases);
}

}  // namespace hospital::demo
