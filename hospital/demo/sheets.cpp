#include "hospital/demo/sheets.h"

namespace hospital::demo {
namespace {

/// The columns of the teeth: the adult's four quarters, then the child's.
const std::vector<std::string>& teeth() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const std::string quarter : {"AUL", "AUR", "ALL", "ALR"})
            for (const auto* tooth : {"I1", "I2", "C", "PM1", "PM2", "M1", "M2", "M3"}) all.push_back(quarter + tooth);
        for (const std::string quarter : {"CUL", "CUR", "CLL", "CLR"})
            for (const auto* tooth : {"I1", "I2", "C", "PM1", "PM2"}) all.push_back(quarter + tooth);
        return all;
    }();
    return names;
}
constexpr int adultTeeth = 32;
constexpr int childTeeth = 20;

std::vector<std::string> dentalColumns() {
    std::vector<std::string> columns = {"conID",     "dtype", "intraOralExam", "extraOralExam",
                                        "treatDone", "arem",  "crem"};
    columns.insert(columns.end(), teeth().begin(), teeth().end());
    return columns;
}

std::vector<std::string> physioColumns(bool key) {
    std::vector<std::string> columns = {"conID",      "ReviewDate", "ApptDate",   "Activity", "Coping",
                                        "Limitation", "Tests",      "Impression", "Goals",    "Means"};
    if (key) columns.emplace_back("SNo");
    return columns;
}

const std::vector<const char*> sharpness = {"6/6", "6/9", "6/12", "6/18", "6/24", "6/36"};
const std::vector<const char*> lenses = {"-0.50DS", "-0.75DS", "-1.25DS", "+1.00DS", "-1.00/-0.50x180", "PLANO"};

}  // namespace

Sheets::Sheets(db::Connection& connection, Random& chance, bool keysOfOwn)
    : chance_(chance),
      keysOfOwn_(keysOfOwn),
      eye_(connection, "hEye",
           {"conID", "VisualAcuity", "Aided", "PrevSpecRX", "SubjectiveRefraction", "ExtExamOD", "ExtExamOS",
            "IntExamOD", "IntExamOS", "RemarksEye", "Refraction", "Retino", "Tonometry", "FSPrescLE", "FSPrescRE"}),
      dental_(connection, "hDental", dentalColumns()),
      physio_(connection, "hPhysio", physioColumns(keysOfOwn)) {}

void Sheets::write(std::int64_t conID, std::string_view clinic, std::string_view diagnosis, int age,
                   const db::DateTime& day) {
    if (clinic == "EYE") writeEye(conID);
    if (clinic == "DENTAL") writeDental(conID, age < 12);
    if (clinic == "PHYSIOTHERAPY" || diagnosis.find("LUMBAR") != std::string_view::npos) writePhysio(conID, day);
}

void Sheets::writeEye(std::int64_t conID) {
    const std::string sharpRight = chance_.pick(sharpness);
    const std::string sharpLeft = chance_.pick(sharpness);
    const std::string right = chance_.pick(lenses);
    const std::string left = chance_.pick(lenses);
    const auto pressureRight = std::to_string(chance_.between(11, 24));
    const auto pressureLeft = std::to_string(chance_.between(11, 24));
    const auto both = "OD " + right + ", OS " + left;
    static const std::vector<const char*> outside = {"Lids and conjunctiva normal", "Mild papillae, cornea clear",
                                                     "Pterygium nasally, cornea clear"};
    static const std::vector<const char*> inside = {"CDR 0.3, macula normal", "CDR 0.5, vessels normal",
                                                    "CDR 0.7, arteries narrowed", "Lens opacity, fundus seen dimly"};
    static const std::vector<const char*> remarks = {"For glasses", "Review in three months", "To use drops as ordered",
                                                     "Tonometry to be repeated"};
    eye_.add({conID, "OD " + sharpRight + ", OS " + sharpLeft, "OD 6/6, OS 6/6", chance_.percent(30) ? both : "NIL",
              both, chance_.pick(outside), chance_.pick(outside), chance_.pick(inside), chance_.pick(inside),
              chance_.pick(remarks), both, both, "OD " + pressureRight + "mmHg, OS " + pressureLeft + "mmHg", left,
              right});
}

void Sheets::writeDental(std::int64_t conID, bool child) {
    static const std::vector<const char*> findings = {"CARIES",  "CARIES", "FILLED",
                                                      "MISSING", "MOBILE", "RETAINED ROOT"};
    static const std::vector<const char*> treatments = {"Scaling and polishing", "Extraction under local anaesthesia",
                                                        "Filling", "Pulp dressing"};
    std::vector<db::Value> sheet = {conID,
                                    child ? "CHILD" : "ADULT",
                                    chance_.percent(50) ? "Poor oral hygiene, calculus" : "Fair oral hygiene",
                                    chance_.percent(80) ? "Nothing abnormal" : "Swelling of the left cheek",
                                    chance_.pick(treatments),
                                    child ? db::Value() : db::Value("Warm saline mouth bath, review in a week"),
                                    child ? db::Value("Mother taught to brush, less sweets") : db::Value()};
    const auto first = sheet.size();
    sheet.resize(first + teeth().size());
    for (int count = chance_.between(1, 3); count > 0; --count) {
        const int tooth = child ? adultTeeth + chance_.below(childTeeth) : chance_.below(adultTeeth);
        sheet[first + static_cast<std::size_t>(tooth)] = chance_.pick(findings);
    }
    dental_.add(sheet);
}

void Sheets::writePhysio(std::int64_t conID, const db::DateTime& day) {
    static const std::vector<const char*> coping = {"Coping with rest", "Coping poorly, sleeps badly", "Coping well"};
    static const std::vector<const char*> limits = {"Cannot sit for long", "Cannot bend forward", "Pain on lifting"};
    std::vector<db::Value> sheet = {
        conID,
        day.date(),
        day.date().plusDays(7),
        "Walks unaided, works at a desk",
        chance_.pick(coping),
        chance_.pick(limits),
        "Straight leg raise " + std::to_string(chance_.between(4, 8) * 10) + " degrees, power 5/5",
        "Mechanical low back pain",
        "Free of pain, back to work in three weeks",
        "Infrared, soft tissue massage, back exercises"};
    if (keysOfOwn_) sheet.emplace_back(++physioKey_);
    physio_.add(sheet);
}

}  // namespace hospital::demo
