#include "hospital/demo/births.h"
#include "hospital/demo/charts.h"

namespace hospital::demo {
namespace {

const std::vector<std::string> noteColumns = {"nDate",        "nTime",     "PNo",       "notes",
                                              "preScription", "consultID", "clientCat", "empID"};

/// The notes on single patients, in the words that staff type.
class NoteWriter {
public:
    explicit NoteWriter(Hospital& hospital) : hospital_(hospital), diary_(momentOfNow(hospital)) {}

    void write(const std::vector<Case>& cases) {
        for (const auto& patient : cases)
            if (patient.recent) plan(patient);
        diary_.write();
    }

private:
    void plan(const Case& patient) {
        const auto from = patient.stay->from;
        nurse(patient, minutesAfter(from, 40), [this, &patient] { return received(patient); });
        for (auto day = from.date(); day < patient.end; day = day.plusDays(1)) {
            // The last days in full, a note a day before.
            const bool full = patient.present() && day >= hospital_.today.plusDays(-2);
            report(patient, atHour(day, 6, 50));
            if (full) {
                report(patient, atHour(day, 13, 25));
                report(patient, atHour(day, 20, 20));
            }
            const auto round = atHour(day, 9, 20);
            if (patient.present() || day == from.date().plusDays(1)) doctor(patient, round);
        }
        if (patient.stay->delivery) planBirth(patient);
        if (patient.present()) return;
        nurse(patient, patient.end, [&patient] {
            return "Pt discharged home by the doctor in company of relations. Drugs given and explained, " +
                   std::string(patient.stay->delivery ? "taught cord care and breast feeding."
                                                      : "counselled on diet "
                                                        "and rest.");
        });
    }

    void planBirth(const Case& patient) {
        const auto birth = birthOf(hospital_, *patient.stay);
        nurse(patient, minutesAfter(birth.at, -90), [] {
            return std::string(
                "Contractions 3 in 10 minutes, membranes ruptured, liquor clear. Cervix 7 cm dilated. Fetal heart rate "
                "142 per minute. Bladder emptied, partograph continued.");
        });
        nurse(patient, minutesAfter(birth.at, 30), [birth] {
            return std::string(birth.caesarean ? "Received from the theatre after caesarean section. "
                                               : "Delivered. ") +
                   (birth.alive ? "Baby cried well, Apgar good, vitamin K given. "
                                : "Fresh still birth, mother "
                                  "consoled. ") +
                   "Placenta complete, uterus well contracted, blood loss about 250 ml.";
        });
    }

    /// A shift's report; a reader sees the patient get better from one to the next.
    void report(const Case& patient, const db::DateTime& moment) {
        if (moment < minutesAfter(patient.stay->from, 120) || moment > patient.end) return;
        nurse(patient, moment, [this, &patient, moment] {
            auto chance = chanceFor(hospital_, patient, moment, 5);
            const bool night = std::string_view(shiftAt(moment)) == "NIGHT";
            if (patient.stay->delivery) return afterBirth(patient, moment, chance);
            return aboutIllness(patient, patient.illnessAt(moment), night, chance);
        });
    }

    static std::string aboutIllness(const Case& patient, double ill, bool night, Random& chance) {
        static const std::vector<const char*> served = {" Due drugs served.", " Due drugs served and charted.",
                                                        " All drugs given as prescribed."};
        static const std::vector<const char*> well = {"No fresh complaint. Ambulant, took full diet.",
                                                      "Comfortable on the bed, took diet well, vital signs stable.",
                                                      "Cheerful, bathed self, walking about the ward."};
        const std::string complaint = patient.condition->complaint;
        const std::string slept = !night ? "" : ill > 0.5 ? "Slept fairly. " : "Slept well. ";
        std::string text;
        if (ill > 0.6)
            text = "Pt still c/o " + complaint + ". " +
                   (patient.condition->fever > 1 ? "Temp remained high, tepid sponging done." : "Nursed in bed.") +
                   (patient.condition->drip ? " IVF in progress." : "");
        else if (ill > 0.25)
            text = "Pt calm, " + complaint + " subsiding. Took light diet, passed urine.";
        else
            text = chance.pick(well);
        return slept + text + chance.pick(served);
    }

    [[nodiscard]] std::string afterBirth(const Case& patient, const db::DateTime& moment, Random& chance) const {
        const auto birth = birthOf(hospital_, *patient.stay);
        if (moment < birth.at) return "In labour, contractions regular, fetal heart rate good. Drinks taken.";
        if (birth.caesarean && chance.percent(60))
            return "Post CS: wound dressing dry and intact, catheter draining clear urine, analgesic served. Baby "
                   "sucking well.";
        return std::string("Uterus well contracted, lochia normal. ") +
               (birth.alive ? "Baby sucking well, passed meconium, cord clean."
                            : "Breasts bound, emotional support "
                              "given.");
    }

    [[nodiscard]] std::string received(const Case& patient) const {
        return "Pt received from the out-patient clinic at " + patient.stay->from.shortTime() +
               " in company of relations, c/o " + patient.condition->complaint +
               ". Vital signs checked and recorded, " + (patient.condition->drip ? "IV line secured, " : "") +
               "drugs commenced as ordered. Orientated to the ward.";
    }

    void nurse(const Case& patient, const db::DateTime& moment, std::function<std::string()> text) {
        diary_.at(moment, [this, &patient, moment, text = std::move(text)] {
            nurses_.add({moment.date(), moment.timeOfDay(), patient.patient.pno, text(), ordersOf(patient),
                         patient.visit->consultID, patient.patient.client->category,
                         nurseOnDuty(hospital_, patient.stay->ward, moment)});
        });
    }

    void doctor(const Case& patient, const db::DateTime& round) {
        if (round < minutesAfter(patient.stay->from, 90) || round > patient.end) return;
        const auto moment = minutesAfter(round, chanceFor(hospital_, patient, round, 6).below(80));
        diary_.at(moment, [this, &patient, moment] {
            auto chance = chanceFor(hospital_, patient, moment, 7);
            const double ill = patient.illnessAt(moment);
            doctors_.add({moment.date(), moment.timeOfDay(), patient.patient.pno, roundNote(patient, ill, chance),
                          ordersOf(patient), patient.visit->consultID, patient.patient.client->category,
                          chance.percent(70) ? patient.visit->doctor : hospital_.doctorOf("(GENERAL)", chance)});
        });
    }

    static std::string roundNote(const Case& patient, double ill, Random& chance) {
        static const std::vector<const char*> plans = {
            "Continue treatment.", "Continue treatment, repeat PCV tomorrow.", "Change to oral drugs when tolerated.",
            "Encourage fluids, review in the morning."};
        if (patient.stay->delivery)
            return std::string("W/R: mother comfortable, not pale, uterus well contracted, lochia normal. Plan: ") +
                   (ill > 0.4 ? "continue observation." : "for discharge once baby is reviewed.");
        const std::string complaint = patient.condition->complaint;
        const auto state = ill > 0.6    ? "still ill, c/o " + complaint
                           : ill > 0.25 ? "improving, less " + complaint
                                        : std::string("much better, no complaint");
        const auto* chest = patient.condition->breathing > 10 && ill > 0.3 ? "scattered crepitations" : "clear";
        return "W/R: " + state + ". Chest " + chest +
               ", abdomen soft. Plan: " + (ill < 0.15 ? "for discharge if stable." : chance.pick(plans));
    }

    /// The doctor's orders as the screen puts them beside a note.
    [[nodiscard]] static std::string ordersOf(const Case& patient) {
        if (patient.orders.empty()) return {};
        const auto& at = patient.orders.front().at;
        auto text = "#####Prescription at " + at.shortTime() + " " + at.shortDate() + " #####\r\n";
        for (const auto& order : patient.orders) text += order.name + " " + order.usage + "\r\n";
        return text;
    }

    Hospital& hospital_;
    Diary diary_;
    Rows nurses_{hospital_.rows, "hInPatientNotesForNurses", noteColumns};
    Rows doctors_{hospital_.rows, "hInPatientNotesForDoctors", noteColumns};
};

}  // namespace

void chartNotes(Hospital& hospital, const std::vector<Case>& cases) {
    NoteWriter(hospital).write(cases);
}

}  // namespace hospital::demo
