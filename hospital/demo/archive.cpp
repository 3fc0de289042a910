#include "hospital/demo/sheets.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

constexpr int oldest = 8 * 365;    ///< days
constexpr int youngest = 3 * 365;  ///< days

/// The consultations that were moved out of the hospital's database years ago, under the numbers that they had in the
/// card system before this one.
class ArchiveWriter {
public:
    explicit ArchiveWriter(Hospital& hospital)
        : hospital_(hospital), sheets_(hospital.archive, hospital.random, true) {}

    void writeAll() {
        writeNames();
        int wanted = hospital_.several(0.15, 10, 15'000);
        for (int number = 1; number <= hospital_.patients && wanted > 0; ++number) {
            const auto patient = hospital_.patient(number);
            if (patient.registered > hospital_.today.plusDays(-youngest - 60)) return;
            if (!hospital_.random.percent(45)) continue;
            writePatient(patient);
            --wanted;
        }
    }

private:
    /// Those who are named in the consultations, as they stood when these were moved.
    void writeNames() {
        Rows clients(hospital_.archive, "hRetainership", {"retainID", "retainName"});
        for (const auto& client : hospital_.clients) clients.add({client.id, client.name});
        Rows staff(hospital_.archive, "employees", {"empID", "lastname", "firstname"});
        const auto found = hospital_.rows.read("select empID, lastname, firstname from employees order by empID"_sql);
        for (std::size_t row = 0; row < found.rowCount(); ++row)
            staff.add({found.value(row, 0), found.value(row, 1), found.value(row, 2)});
    }

    void writePatient(const Patient& patient) {
        patients_.add({patient.pno, patient.surname, patient.firstName, patient.client->id});
        auto day = std::max(patient.registered, hospital_.today.plusDays(-oldest));
        for (int count = hospital_.random.between(1, 6); count > 0; --count) {
            day = day.plusDays(hospital_.random.between(5, 240));
            if (day > hospital_.today.plusDays(-youngest)) return;
            writeConsultation(patient, minutesAfter(day.date(), hospital_.random.between(500, 1000)));
        }
    }

    void writeConsultation(const Patient& patient, const db::DateTime& moment) {
        static constexpr std::array<std::string_view, 7> clinics = {"(GENERAL)", "EYE",       "(GENERAL)",    "DENTAL",
                                                                    "(GENERAL)", "(GENERAL)", "PHYSIOTHERAPY"};
        auto& chance = hospital_.random;
        const auto clinic = clinics[static_cast<std::size_t>(visit_++) % clinics.size()];
        const auto consultID = "000" + zeroPadded(visit_, 9);
        const int age = patient.ageOn(moment);
        const bool antenatal = clinic == "(GENERAL)" && patient.female && age >= 19 && age < 42 && chance.percent(20);
        const auto& illness = illnesses()[illnessFor(chance, "")];
        const auto& doctor = chance.pick(hospital_.doctors);
        if (antenatal)
            writeAntenatal(patient, consultID, moment, doctor);
        else
            writeGeneral(patient, consultID, moment, doctor, illness);
        writeReadings(patient, consultID, moment);
        if (antenatal) return;
        sheets_.write(visit_, clinic, illness.diagnosis, age, moment);
        if (age >= 18 && grownUps_++ % 8 == 0) writeOperation(patient, consultID, moment, doctor);
        if (!illness.tests.empty()) writeResult(patient, consultID, moment, doctor, illness);
    }

    void writeGeneral(const Patient& patient, const std::string& consultID, const db::DateTime& moment,
                      const std::string& doctor, const Illness& illness) {
        std::string prescription, injections, tests;
        for (const auto* text : illness.drugs) {
            const Order order(text);
            auto& list = order.name.find("INJ") == std::string::npos ? prescription : injections;
            list += (list.empty() ? "" : "\r\n") + order.name + " " + order.usage();
        }
        for (const auto* test : illness.tests) tests += (tests.empty() ? "" : "\r\n") + std::string(test);
        general_.add({visit_, consultID, patient.pno, moment.date(), moment.timeOfDay(), doctor,
                      patient.client->category, illness.complaint, "As in complaints", "Not known to be hypertensive",
                      "Nil of note", "Chest clear, S1 S2 only, abdomen soft", "Conscious, not pale, anicteric",
                      illness.diagnosis, tests, "To take the drugs as ordered, see again in a week", prescription,
                      injections});
    }

    void writeAntenatal(const Patient& patient, const std::string& consultID, const db::DateTime& moment,
                        const std::string& doctor) {
        auto& chance = hospital_.random;
        const int weeks = chance.between(14, 39);
        static const std::vector<const char*> sugars = {"NIL", "NIL", "NIL", "TRACE", "+"};
        antenatal_.add({visit_,
                        consultID,
                        patient.pno,
                        moment.date(),
                        moment.timeOfDay(),
                        doctor,
                        patient.client->category,
                        "Routine antenatal visit, feels well",
                        "INTRAUTERINE PREGNANCY AT " + std::to_string(weeks) + " WEEKS",
                        "FOLIC ACID 5MG 1 TAB DAILY\r\nFERROUS SULPHATE 200MG 1 TAB 2 TIMES DAILY",
                        std::to_string(weeks) + " WKS",
                        chance.pick(sugars),
                        chance.pick(sugars),
                        std::to_string(chance.between(100, 135)) + "/70",
                        std::to_string(chance.between(58, 92)),
                        std::to_string(weeks) + " CM",
                        weeks < 32 ? "BREECH" : "CEPHALIC",
                        std::to_string(chance.between(132, 156)),
                        chance.percent(15) ? "+" : "NIL",
                        std::to_string(chance.between(28, 38)) + "%",
                        weeks < 24 ? "FIRST DOSE" : "SECOND DOSE"});
    }

    void writeReadings(const Patient& patient, const std::string& consultID, const db::DateTime& moment) {
        auto& chance = hospital_.random;
        const int age = patient.ageOn(moment);
        const int systolic = age < 13 ? 88 + age : chance.between(102, 158);
        const auto before = minutesAfter(moment, -35);
        readings_.add({visit_, consultID, patient.pno, before.date(), before.timeOfDay(), chance.pick(hospital_.nurses),
                       decimals(chance.between(362, 389) / 10.0, 1),
                       std::to_string(systolic) + "/" + std::to_string(systolic * 2 / 3),
                       std::to_string(chance.between(64, 112)),
                       age < 18 ? decimals(3.4 + age * 2.9, 1) : std::to_string(chance.between(50, 96)),
                       age < 18 ? decimals(0.75 + age * 0.055, 2) : decimals(chance.between(150, 184) / 100.0, 2),
                       std::to_string(chance.between(16, 24)), "NIL", "NIL", std::to_string(chance.between(95, 100))});
    }

    void writeOperation(const Patient& patient, const std::string& consultID, const db::DateTime& moment,
                        const std::string& doctor) {
        auto& chance = hospital_.random;
        struct Operation {
            const char* name;
            const char* indication;
            const char* findings;
        };
        static const std::vector<Operation> operations = {
            {"APPENDICECTOMY", "Acute appendicitis", "Inflamed appendix, no perforation, clear peritoneal fluid"},
            {"INGUINAL HERNIORRHAPHY", "Right reducible inguinal hernia", "Indirect sac with omentum"},
            {"EXCISION OF LIPOMA", "Lipoma of the back", "Encapsulated fatty mass of 6cm"}};
        const auto& operation = chance.pick(operations);
        const auto packed = std::to_string(chance.between(33, 45));
        operations_.add({visit_,
                         moment.date().plusDays(1),
                         patient.pno,
                         consultID,
                         doctor,
                         operation.indication,
                         operation.name,
                         "SIGNED",
                         "SELF",
                         "NAD",
                         packed + "%",
                         std::to_string(chance.between(41, 98) * 100),
                         "NAD",
                         "SINUS RHYTHM",
                         "O+",
                         "THEATRE TEAM A",
                         "THEATRE NURSE",
                         "DUTY ANAESTHETIST",
                         "120/80",
                         "82",
                         "110/70",
                         operation.findings,
                         std::string(operation.name) + " under general anaesthesia. Layers closed, blood loss 50ml.",
                         "NEGATIVE",
                         "ASA 1, starved for eight hours",
                         "Awake, stable, to the ward"});
    }

    void writeResult(const Patient& patient, const std::string& consultID, const db::DateTime& moment,
                     const std::string& doctor, const Illness& illness) {
        const std::string test = illness.tests.front();
        const auto packed = std::to_string(hospital_.random.between(28, 45));
        const auto result = test.starts_with("MALARIA")                              ? "P. FALCIPARUM SEEN +"
                            : test.starts_with("FULL") || test.starts_with("PACKED") ? "PCV " + packed + "%"
                                                                                     : "WITHIN NORMAL LIMITS";
        results_.add({visit_, moment.date(), patient.pno, consultID, test, test + ": " + result, doctor});
    }

    Hospital& hospital_;
    int visit_ = 0;     ///< the number of the consultation, which is the key of its rows
    int grownUps_ = 0;  ///< their consultations: every eighth leads to an operation
    Sheets sheets_;
    Rows patients_{hospital_.archive, "hPatients", {"PNo", "psurname", "pfirstName", "CoyName"}};
    Rows general_{
        hospital_.archive,
        "hConsulting",
        {"ID", "consultID", "PNo", "CDate", "cTime", "treatedBy", "clientCat", "Complaints", "hpc", "pmh", "drugHx",
         "sysreview", "phyexam", "diagnosis", "investigate", "treatPlan", "preScription", "injprescription"}};
    Rows antenatal_{hospital_.archive,
                    "hConsulting",
                    {"ID",         "consultID", "PNo",          "CDate",   "cTime",    "treatedBy", "clientCat",
                     "Complaints", "diagnosis", "preScription", "gestAge", "urineAlb", "urineSug",  "Bp",
                     "Wt",         "fundus",    "presentation", "fH",      "oedema",   "pcv",       "tt"}};
    Rows readings_{hospital_.archive,
                   "hPreConsult",
                   {"ID", "consultID", "PNo", "preDate", "preTime", "examinedby", "temp", "Pressure", "pulse", "Weight",
                    "Height", "respRatio", "urineAlb", "urineSug", "SPO2"}};
    Rows operations_{hospital_.archive,
                     "hSurgery",
                     {"ID",
                      "sDate",
                      "PNo",
                      "consultID",
                      "empID",
                      "indications",
                      "operation",
                      "consent",
                      "relation",
                      "urinalysis",
                      "pcv",
                      "wbc",
                      "chestXray",
                      "ecg",
                      "bloodGroup",
                      "surgeon",
                      "Assistant",
                      "anaesthetist",
                      "preOPBP",
                      "pulse",
                      "postOPBP",
                      "findings",
                      "Procedure",
                      "hiv",
                      "AnaesthNotePre",
                      "AnaesthNotePost"}};
    Rows results_{hospital_.archive,
                  "hInvResults",
                  {"ID", "invDate", "PNo", "consultID", "investigate", "invResult", "treatedBy"}};
};

}  // namespace

void writeOlderRecords(Hospital& hospital) {
    ArchiveWriter(hospital).writeAll();
}

}  // namespace hospital::demo
