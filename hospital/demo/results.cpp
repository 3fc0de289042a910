#include <algorithm>
#include <array>
#include <cmath>

#include "hospital/demo/billlines.h"
#include "hospital/demo/sheets.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

/// A line of a result sheet.
struct ResultLine {
    std::string name, result, unit, range, remark;
};
using ResultLines = std::vector<ResultLine>;

/// A figure with the range of healthy adults that a result sheet prints, after Bain, Bates and Laffan, "Dacie and Lewis
/// Practical Haematology", for blood counts and Burtis and Bruns, "Tietz Fundamentals of Clinical Chemistry", for the
/// others. `least` and `most` bound what is found here.
struct Figure {
    const char* name;
    const char* unit;
    double low, high;    ///< the range, in the unit
    double least, most;  ///< what is drawn
    int places;          ///< behind the point
};

ResultLine lineOf(const Figure& figure, double value) {
    return {figure.name, decimals(value, figure.places), figure.unit,
            decimals(figure.low, figure.places) + " - " + decimals(figure.high, figure.places),
            value < figure.low    ? "LOW"
            : value > figure.high ? "HIGH"
                                  : ""};
}

double drawn(Random& chance, const Figure& figure) {
    const double steps = std::pow(10, figure.places);
    return chance.between(static_cast<int>(figure.least * steps), static_cast<int>(figure.most * steps)) / steps;
}

constexpr Figure packedCells{"PACKED CELL VOLUME", "%", 36, 50, 27, 47, 0};
constexpr Figure packedCellsInCrisis{"PACKED CELL VOLUME", "%", 36, 50, 16, 25, 0};
constexpr Figure haemoglobin{"HAEMOGLOBIN", "g/dL", 12, 16.5, 0, 0, 1};
constexpr Figure whiteCells{"WHITE BLOOD CELLS", "x10^9/L", 4, 10, 3.2, 13.8, 1};
constexpr Figure platelets{"PLATELETS", "x10^9/L", 150, 410, 118, 395, 0};
constexpr Figure fastingSugar{"FASTING BLOOD SUGAR", "mmol/L", 3.9, 5.6, 4.2, 7.4, 1};
constexpr Figure fastingSugarOfDiabetics{"FASTING BLOOD SUGAR", "mmol/L", 3.9, 5.6, 7.1, 17.9, 1};
constexpr std::array<Figure, 6> electrolytes{{{"SODIUM", "mmol/L", 136, 145, 131, 146, 0},
                                              {"POTASSIUM", "mmol/L", 3.5, 5.1, 3.1, 5.3, 1},
                                              {"CHLORIDE", "mmol/L", 98, 107, 95, 109, 0},
                                              {"BICARBONATE", "mmol/L", 22, 29, 19, 28, 0},
                                              {"UREA", "mmol/L", 2.1, 7.1, 2.4, 9.6, 1},
                                              {"CREATININE", "umol/L", 53, 106, 58, 148, 0}}};

bool is(const Illness& illness, std::string_view word) {
    return std::string_view(illness.diagnosis).find(word) != std::string_view::npos;
}

ResultLines packedCellVolume(Random& chance, const Illness& illness) {
    const auto& figure = is(illness, "SICKLE") ? packedCellsInCrisis : packedCells;
    return {lineOf(figure, drawn(chance, figure))};
}

/// Haemoglobin is a third of the packed cell volume; the differential adds up to a hundred.
ResultLines bloodCount(Random& chance, const Illness& illness) {
    auto lines = packedCellVolume(chance, illness);
    const double packed = db::leadingNumber(lines.front().result);
    const double white = drawn(chance, whiteCells);
    const double plates = drawn(chance, platelets);
    const int neutrophils = chance.between(42, 76);
    const int eosinophils = chance.between(0, 6);
    const int lymphocytes = 100 - neutrophils - eosinophils;
    lines.push_back(lineOf(haemoglobin, packed / 3));
    lines.push_back(lineOf(whiteCells, white));
    lines.push_back(lineOf({"NEUTROPHILS", "%", 40, 75, 0, 0, 0}, neutrophils));
    lines.push_back(lineOf({"LYMPHOCYTES", "%", 20, 45, 0, 0, 0}, lymphocytes));
    lines.push_back(lineOf({"EOSINOPHILS", "%", 1, 6, 0, 0, 0}, eosinophils));
    lines.push_back(lineOf(platelets, plates));
    return lines;
}

ResultLines malariaParasite(Random& chance, const Illness& illness) {
    static const std::vector<const char*> densities = {"+", "+", "++", "++", "+++"};
    const bool found = is(illness, "MALARIA") ? chance.percent(85) : chance.percent(15);
    const std::string density = chance.pick(densities);
    return {{"MALARIA PARASITE", found ? "P. FALCIPARUM SEEN " + density : "NOT SEEN", "", "NOT SEEN",
             found ? "POSITIVE" : ""}};
}

ResultLines widal(Random&, const Illness&) {
    return {{"WIDAL TEST", "SEE THE TITRES", "", "BELOW 1/80", ""}};
}

ResultLines chemistry(Random& chance, const Illness&) {
    ResultLines lines;
    for (const auto& figure : electrolytes) lines.push_back(lineOf(figure, drawn(chance, figure)));
    return lines;
}

ResultLines sugar(Random& chance, const Illness& illness) {
    const auto& figure = is(illness, "DIABETES") ? fastingSugarOfDiabetics : fastingSugar;
    return {lineOf(figure, drawn(chance, figure))};
}

ResultLines urinalysis(Random& chance, const Illness& illness) {
    const bool infected = is(illness, "URINARY");
    const bool sweet = is(illness, "DIABETES") && chance.percent(70);
    const bool protein = is(illness, "HYPERTENS") ? chance.percent(40) : infected;
    return {{"APPEARANCE", infected ? "CLOUDY, AMBER" : "CLEAR, AMBER", "", "CLEAR", ""},
            {"PH", decimals(chance.between(50, 75) / 10.0, 1), "", "5.0 - 8.0", ""},
            {"PROTEIN", protein ? "+" : "NIL", "", "NIL", ""},
            {"GLUCOSE", sweet ? "++" : "NIL", "", "NIL", ""},
            {"KETONES", "NIL", "", "NIL", ""},
            {"NITRITE", infected ? "POSITIVE" : "NEGATIVE", "", "NEGATIVE", ""},
            {"PUS CELLS", infected ? "NUMEROUS" : "0 - 2", "/HPF", "0 - 5", ""}};
}

ResultLines stool(Random& chance, const Illness&) {
    static const std::vector<const char*> found = {"NO OVA OR PARASITES SEEN", "NO OVA OR PARASITES SEEN",
                                                   "CYSTS OF E. HISTOLYTICA SEEN", "OVA OF A. LUMBRICOIDES SEEN"};
    return {{"STOOL MICROSCOPY", std::string("LOOSE, BROWN. ") + chance.pick(found), "", "", ""}};
}

ResultLines sputum(Random& chance, const Illness&) {
    return {{"SPUTUM AFB", chance.percent(94) ? "NO ACID FAST BACILLI SEEN" : "AFB SEEN ++", "", "NOT SEEN", ""}};
}

/// What a test gives; nothing for one that is not the laboratory's, a picture.
ResultLines resultOf(std::string_view test, const Illness& illness, Random& chance) {
    using Make = ResultLines (*)(Random&, const Illness&);
    static const std::vector<std::pair<std::string_view, Make>> makers = {{"FULL BLOOD COUNT", bloodCount},
                                                                          {"PACKED CELL", packedCellVolume},
                                                                          {"MALARIA", malariaParasite},
                                                                          {"WIDAL", widal},
                                                                          {"ELECTROLYTES", chemistry},
                                                                          {"FASTING BLOOD SUGAR", sugar},
                                                                          {"URINALYSIS", urinalysis},
                                                                          {"STOOL", stool},
                                                                          {"SPUTUM", sputum}};
    for (const auto& [begin, make] : makers)
        if (test.starts_with(begin)) return make(chance, illness);
    return {};
}

/// A pathologist's report on tissue.
struct Tissue {
    const char* sex;  ///< of those who have it; empty for both
    const char* specimen;
    const char* details;
    const char* macroscopy;
    const char* microscopy;
    const char* diagnosis;
};
const std::vector<Tissue>& tissues() {
    static const std::vector<Tissue> list = {
        {"", "APPENDIX", "Right iliac fossa pain for two days", "Appendix 7cm long, congested, covered with exudate",
         "Transmural infiltration by neutrophils, mucosal ulceration", "ACUTE SUPPURATIVE APPENDICITIS"},
        {"FEMALE", "UTERINE FIBROIDS", "Heavy menses, abdominal mass of 20 weeks' size",
         "Five firm whorled masses, the largest 8cm across", "Interlacing bundles of smooth muscle, no atypia",
         "LEIOMYOMATA UTERI"},
        {"FEMALE", "BREAST LUMP", "Painless mobile lump of the left breast for six months",
         "Firm encapsulated mass, 3 x 2 x 2cm", "Proliferation of ducts and stroma, no atypia", "FIBROADENOMA"},
        {"FEMALE", "ENDOMETRIAL CURETTINGS", "Irregular bleeding for three months", "Fragments of 4ml, brownish",
         "Proliferative glands, decidua and chorionic villi seen", "RETAINED PRODUCTS OF CONCEPTION"},
        {"MALE", "PROSTATE CHIPS", "Poor stream, frequency, PSA 6.2", "Greyish chips of 18g",
         "Nodular hyperplasia of glands and stroma, no malignancy", "BENIGN PROSTATIC HYPERPLASIA"},
        {"", "SUBCUTANEOUS MASS", "Slowly growing mass of the back for three years",
         "Lobulated yellow mass, 6cm across", "Mature fat cells in lobules", "LIPOMA"},
        {"", "LYMPH NODE", "Cervical swelling, night sweats", "Three matted nodes, caseation on the cut surface",
         "Epithelioid granulomas with giant cells and caseous necrosis", "TUBERCULOUS LYMPHADENITIS"}};
    return list;
}

/// What is asked of the laboratory under one number.
struct Request {
    db::DateTime at;
    const Visit* visit = nullptr;  ///< none for the public
    std::vector<std::string_view> tests;
    const Tissue* tissue = nullptr;
    const Illness* illness = nullptr;
};

/// The laboratory's book: requests in the order of time, numbered within the year, with their results.
class Laboratory {
public:
    explicit Laboratory(Hospital& hospital) : hospital_(hospital) {
        const auto rows = hospital.rows.read("select empID from employees where deptID = 'LAB' order by empID"_sql);
        for (std::size_t row = 0; row < rows.rowCount(); ++row) scientists_.push_back(rows.value(row, 0).text());
        if (scientists_.empty()) scientists_ = hospital.nurses;
    }

    void writeAll() {
        askForOutPatients();
        askForWards();
        askForTissue();
        askForPublic();
        std::stable_sort(requests_.begin(), requests_.end(),
                         [](const Request& left, const Request& right) { return left.at < right.at; });
        for (const auto& request : requests_) write(request);
    }

private:
    void askForOutPatients() {
        for (const auto& visit : lastVisits(hospital_, billedVisits)) {
            const auto& illness = illnesses()[visit.illness];
            if (visit.conID == 0 || illness.tests.empty()) continue;
            const auto moment = minutesAfter(visit.at, 50);
            if (moment <= momentOfNow(hospital_))
                requests_.push_back({moment, &visit, {illness.tests.begin(), illness.tests.end()}, nullptr, &illness});
        }
    }

    /// The ward takes blood in the morning: of everybody who lies there, today.
    void askForWards() {
        const auto morning = minutesAfter(hospital_.today, 6 * 60 + 30);
        for (const auto& stay : hospital_.stays)
            if (!stay.until && stay.visit && stay.visit->conID != 0 && stay.from < hospital_.today)
                requests_.push_back({morning,
                                     stay.visit,
                                     {"PACKED CELL VOLUME", "MALARIA PARASITE"},
                                     nullptr,
                                     &illnesses()[stay.visit->illness]});
    }

    void askForTissue() {
        const auto visits = lastVisits(hospital_, billedVisits);
        int wanted = hospital_.several(0.0015, 2, 300);
        for (int tries = 0; wanted > 0 && tries < 5000 && !visits.empty(); ++tries) {
            const auto& visit =
                visits[static_cast<std::size_t>(hospital_.random.below(static_cast<int>(visits.size())))];
            if (visit.conID == 0 || visit.at > hospital_.today.plusDays(-7)) continue;
            const auto patient = hospital_.patient(visit.patient);
            const auto* tissue = &hospital_.random.pick(tissues());
            if (patient.ageOn(visit.at) < 18 || !fits(*tissue, patient.female)) continue;
            requests_.push_back({minutesAfter(visit.at, 180), &visit, {}, tissue, nullptr});
            --wanted;
        }
    }

    /// People whom others have sent: mostly for blood, some with tissue.
    void askForPublic() {
        auto& chance = hospital_.random;
        const int count = hospital_.several(0.01, 6, 600);
        for (int i = 0; i < count; ++i) {
            const auto day = hospital_.today.plusDays(i < 3 ? 0 : -chance.between(1, 90));
            Request request{minutesAfter(day, chance.between(450, 550)), nullptr, {}, nullptr, nullptr};
            request.illness = &illnesses()[illnessFor(chance, "")];
            if (i % 6 == 5)
                request.tissue = &chance.pick(tissues());
            else
                request.tests = {"FULL BLOOD COUNT", i % 2 == 0 ? "MALARIA PARASITE" : "WIDAL TEST"};
            requests_.push_back(std::move(request));
        }
    }

    static bool fits(const Tissue& tissue, bool female) {
        return *tissue.sex == '\0' || std::string_view(tissue.sex) == (female ? "FEMALE" : "MALE");
    }

    void write(const Request& request) {
        const auto number = nextNumber(request.at);
        if (request.visit)
            requestRows_.add({number, request.at.date(), request.at.timeOfDay(), request.visit->conID,
                              request.visit->consultID, hospital_.patient(request.visit->patient).pno, db::Value(),
                              db::Value(), db::Value(), db::Value(), db::Value()});
        else
            writePerson(number, request);
        if (request.tissue)
            writeTissue(number, request);
        else if (minutesAfter(request.at, 90) <= momentOfNow(hospital_))
            writeResults(number, request);
    }

    std::string nextNumber(const db::DateTime& day) {
        const int year = day.parts().year;
        if (year != year_) count_ = 0;
        year_ = year;
        return "L" + zeroPadded(year % 100, 2) + "/" + zeroPadded(++count_, 5);
    }

    void writePerson(const std::string& number, const Request& request) {
        auto& chance = hospital_.random;
        static const std::vector<const char*> senders = {"DR A. OKE", "DR F. SANNI", "DR P. EBI", "DR (MRS) J. OLU",
                                                         "SELF"};
        bool female = chance.percent(50);
        if (request.tissue && !fits(*request.tissue, female)) female = !female;
        const auto surname = hospital_.patient(1 + chance.below(hospital_.patients)).surname;
        requestRows_.add({number, request.at.date(), request.at.timeOfDay(), db::Value(), db::Value(), db::Value(),
                          surname + " " + firstName(female), female ? "FEMALE" : "MALE", chance.between(18, 70),
                          chance.pick(senders), "WALK-IN"});
    }

    /// A first name of that sex, from the hospital's own people.
    std::string firstName(bool female) {
        for (int tries = 0; tries < 50; ++tries) {
            const auto somebody = hospital_.patient(1 + hospital_.random.below(hospital_.patients));
            if (somebody.female == female) return somebody.firstName;
        }
        return female ? "GRACE" : "PETER";
    }

    void writeResults(const std::string& number, const Request& request) {
        const auto& scientist = hospital_.random.pick(scientists_);
        int serial = 0;
        for (const auto test : request.tests) {
            const auto lines = resultOf(test, *request.illness, hospital_.random);
            std::string summary;
            for (const auto& line : lines) {
                results_.add({number, ++serial, line.name, line.result, line.unit, line.range, line.remark, scientist});
                summary += (summary.empty() ? "" : ", ") + line.name + " " + line.result + line.unit;
            }
            if (test.starts_with("WIDAL")) writeTitres(number, is(*request.illness, "TYPHOID"));
            if (request.visit && !lines.empty())
                found_.add(
                    {request.visit->consultID, std::string(test), lines.size() > 1 ? summary : lines.front().result});
        }
    }

    void writeTitres(const std::string& number, bool typhoid) {
        static const std::vector<const char*> plain = {"1/20", "1/20", "1/40", "1/40", "1/80"};
        static const std::vector<const char*> raised = {"1/160", "1/160", "1/320"};
        auto& chance = hospital_.random;
        const auto& typhi = typhoid ? raised : plain;
        titres_.add({number, chance.pick(typhi), chance.pick(typhi), chance.pick(plain), chance.pick(plain),
                     chance.pick(plain), chance.pick(plain), chance.pick(plain), chance.pick(plain),
                     typhoid ? "SIGNIFICANT TITRE FOR S. TYPHI" : "NO SIGNIFICANT TITRE"});
    }

    /// Tissue takes a week.
    void writeTissue(const std::string& number, const Request& request) {
        const auto day = request.at.date().plusDays(hospital_.random.between(4, 7));
        if (day > hospital_.today) return;
        const auto& tissue = *request.tissue;
        reports_.add({number, day, tissue.specimen, tissue.details, tissue.macroscopy, tissue.microscopy,
                      tissue.diagnosis, "To be seen with the clinical findings.", scientists_.front()});
    }

    Hospital& hospital_;
    std::vector<std::string> scientists_;  ///< empIDs
    std::vector<Request> requests_;
    int year_ = 0, count_ = 0;
    Rows requestRows_{hospital_.rows,
                      "hLabRequests",
                      {"LabNo", "invDate", "invTime", "conID", "consultID", "PNo", "fullname", "sex", "Age",
                       "RequestedBy", "Remarks"}};
    Rows results_{hospital_.rows,
                  "hLabResults",
                  {"LabNo", "SerialNo", "investigate", "invResult", "Unit", "RefRange", "Remarks", "doneBy"}};
    Rows titres_{hospital_.rows,
                 "hLabWidal",
                 {"LabNo", "TyphiO", "TyphiH", "ParatyphiAO", "ParatyphiAH", "ParatyphiBO", "ParatyphiBH",
                  "ParatyphiCO", "ParatyphiCH", "Remarks"}};
    Rows reports_{hospital_.rows,
                  "hLabHistology",
                  {"LabNo", "reportDate", "specimen", "clinicalDetails", "macroscopy", "microscopy", "diagnosis",
                   "comment", "pathologist"}};
    Rows found_{hospital_.rows, "hinvestigate", {"consultID", "sympitem", "result"}};
};

void writeSheets(Hospital& hospital) {
    Sheets sheets(hospital.rows, hospital.random);
    for (const auto& visit : lastVisits(hospital, billedVisits))
        if (visit.conID != 0)
            sheets.write(visit.conID, visit.clinic, illnesses()[visit.illness].diagnosis,
                         hospital.patient(visit.patient).ageOn(visit.at), visit.at);
}

/// A grey picture of 16 by 16 points, two dark fields beside a bright middle: a whole JPEG file in 195 bytes.
constexpr std::array<unsigned char, 195> picture{
    0xFF, 0xD8, 0xFF, 0xE0, 0x00, 0x10, 0x4A, 0x46, 0x49, 0x46, 0x00, 0x01, 0x01, 0x00, 0x00, 0x01, 0x00, 0x01,
    0x00, 0x00, 0xFF, 0xDB, 0x00, 0x43, 0x00, 0x14, 0x0E, 0x0F, 0x12, 0x0F, 0x0D, 0x14, 0x12, 0x10, 0x12, 0x17,
    0x15, 0x14, 0x18, 0x1E, 0x32, 0x21, 0x1E, 0x1C, 0x1C, 0x1E, 0x3D, 0x2C, 0x2E, 0x24, 0x32, 0x49, 0x40, 0x4C,
    0x4B, 0x47, 0x40, 0x46, 0x45, 0x50, 0x5A, 0x73, 0x62, 0x50, 0x55, 0x6D, 0x56, 0x45, 0x46, 0x64, 0x88, 0x65,
    0x6D, 0x77, 0x7B, 0x81, 0x82, 0x81, 0x4E, 0x60, 0x8D, 0x97, 0x8C, 0x7D, 0x96, 0x73, 0x7E, 0x81, 0x7C, 0xFF,
    0xC0, 0x00, 0x0B, 0x08, 0x00, 0x10, 0x00, 0x10, 0x01, 0x01, 0x11, 0x00, 0xFF, 0xC4, 0x00, 0x16, 0x00, 0x01,
    0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x03, 0x05,
    0xFF, 0xC4, 0x00, 0x1B, 0x10, 0x00, 0x01, 0x05, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x02, 0x00, 0x01, 0x03, 0x04, 0x05, 0x41, 0x51, 0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00,
    0x00, 0x3F, 0x00, 0xD0, 0x97, 0x41, 0x83, 0x40, 0x6B, 0xF5, 0xD2, 0x2D, 0x06, 0x3D, 0x02, 0xAF, 0xD6, 0x53,
    0x9F, 0x3D, 0xCF, 0x50, 0x2C, 0x78, 0x90, 0x67, 0xB8, 0x6A, 0x1D, 0x8F, 0x57, 0xFF, 0xD9};

db::Bytes bytesOf(const std::array<unsigned char, 195>& file) {
    db::Bytes bytes;
    for (const auto byte : file) bytes.push_back(static_cast<std::byte>(byte));
    return bytes;
}

void writeImages(Hospital& hospital) {
    static const std::vector<const char*> captions = {"Chest X-ray, PA view", "Abdominal scan",
                                                      "X-ray of the left forearm", "Wound before dressing", "ECG"};
    Rows rows(hospital.rows, "hPix", {"DtDate", "DtTime", "PNo", "Image", "Remarks"});
    const auto image = bytesOf(picture);
    const auto wanted = static_cast<std::size_t>(hospital.several(0.01, 3, 1000));
    std::vector<const Visit*> shown;
    for (auto visit = hospital.visits.rbegin(); visit != hospital.visits.rend() && shown.size() < wanted; ++visit)
        if (visit->conID != 0 && minutesAfter(visit->at, 60) <= momentOfNow(hospital) && hospital.random.percent(30))
            shown.push_back(&*visit);
    std::reverse(shown.begin(), shown.end());
    for (const auto* visit : shown) {
        const auto moment = minutesAfter(visit->at, 60);
        rows.add({moment.date(), moment.timeOfDay(), hospital.patient(visit->patient).pno, image,
                  hospital.random.pick(captions)});
    }
}

}  // namespace

void writeResults(Hospital& hospital) {
    Laboratory(hospital).writeAll();
    writeSheets(hospital);
    writeImages(hospital);
}

}  // namespace hospital::demo
