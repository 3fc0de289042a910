#include <array>
#include <cstdio>
#include <unordered_map>

#include "hospital/demo/hospital.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

/// Names go together by people, as families' do.
struct Names {
    std::vector<const char*> surnames, men, women;
};
const std::array<Names, 4> peoples{{
    {{"ADEWALE", "OGUNLEYE", "ADEYEMI", "FASHOLA", "OLATUNJI", "BALOGUN", "ADEBAYO", "AKINOLA", "OYELARAN", "SALAMI",
      "LAWAL", "OLUWOLE", "AJAYI", "BAKARE", "OLADIPO", "AYODELE", "ODUYA", "SHITTU"},
     {"SEGUN", "KUNLE", "BABATUNDE", "TUNDE", "FEMI", "WALE", "DAYO", "GBENGA", "RASHEED", "KAYODE", "SOLA", "DELE"},
     {"TITILAYO", "FOLAKE", "AYOMIDE", "RISIKAT", "YETUNDE", "BUKOLA", "FUNMILAYO", "OMOLARA", "KEHINDE", "SIMISOLA",
      "MORENIKE", "TAIWO"}},
    {{"OKONKWO", "EZE", "NNAMDI", "OKEKE", "UMEH", "NWOSU", "OKAFOR", "ONYEKA", "IGWE", "CHUKWU", "OBI", "ANYANWU",
      "EJIOFOR", "NWACHUKWU", "UCHE", "OKORO"},
     {"IFEANYI", "KENECHUKWU", "CHUKWUEMEKA", "OBINNA", "CHIDI", "EMEKA", "UGOCHUKWU", "IKENNA", "NNAMDI", "TOBECHI"},
     {"CHIDINMA", "NGOZI", "OBIAGELI", "ADAOBI", "CHIAMAKA", "NKECHI", "AMARACHI", "UZOAMAKA", "IJEOMA", "ONYINYE"}},
    {{"BALARABE", "IBRAHIM", "DANJUMA", "GARBA", "ABUBAKAR", "YAKUBU", "BELLO", "MUSA", "SULEIMAN", "ALIYU", "SANI",
      "USMAN", "ABDULLAHI", "IDRIS"},
     {"MUSA", "SULEIMAN", "SADIQ", "AHMED", "YUSUF", "IBRAHIM", "KABIRU", "NASIRU", "HARUNA", "ISA"},
     {"AMINA", "LADI", "ZAINAB", "HALIMA", "KHADIJAT", "FATIMA", "HAUWA", "MARYAM", "SAFIYA", "RAKIYA"}},
    {{"AKPAN", "ETIM", "OSAGIE", "EFFIONG", "EKANEM", "IDAHOSA", "OMOREGIE", "BASSEY", "UDO", "EBONG", "TAMUNO",
      "AIGBE", "OKON", "DIKE"},
     {"EDIDIONG", "EGHOSA", "ITORO", "OSARO", "UBONG", "EFOSA", "ANIEKAN", "NOSA", "IMEH", "TONYE"},
     {"ARIT", "INIOBONG", "ESOSA", "EKAETTE", "ITOHAN", "MFON", "IDARA", "OSASU", "UDUAK", "BOMA"}},
}};

constexpr int familySize = 4;

std::string nineDigits(int number) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%09d", number);
    return digits.data();
}

/// More than half pay themselves; the others are spread over those who pay for them.
const Client& payer(const std::vector<Client>& clients, Random& chance) {
    if (chance.percent(55)) return clients.front();
    const auto others = static_cast<int>(clients.size()) - 1;
    return *(clients.begin() + 1 + chance.below(others));
}

/// Ages as a hospital sees them: many small children, many young adults, few very old.
int ageInDays(Random& chance, bool child) {
    if (child) return chance.percent(40) ? chance.between(2, 1500) : chance.between(1500, 6200);
    const int years = chance.percent(60) ? chance.between(19, 42) : chance.between(43, 85);
    return years * 365 + chance.below(365);
}

const char* maturity(int age, std::int64_t days) {
    if (days < 29) return "NEONATE";
    return age < 13 ? "CHILD" : age < 18 ? "ADOLESCENT" : "ADULT";
}

const char* title(const Patient& patient, int age, bool married) {
    if (age < 18) return patient.female ? "MISS" : "MASTER";
    if (!patient.female) return "MR";
    return married ? "MRS" : "MISS";
}

/// What the next of kin, the one who is insured or a spouse, is to the patient.
const char* relation(const Patient& patient, bool dependant, const Patient& head) {
    if (dependant) return head.female ? "MOTHER" : "FATHER";
    return patient.female ? "HUSBAND" : "WIFE";
}

const std::vector<const char*> streets = {"Bode Thomas", "Herbert",  "Admiralty", "Second", "Diya",
                                          "Allen",       "Adeniran", "Awolowo",   "Marina", "Palm"};
const std::vector<const char*> bloodGroups = {"O-POSITIVE", "O-POSITIVE", "O-POSITIVE",  "A-POSITIVE", "A-POSITIVE",
                                              "B-POSITIVE", "B-POSITIVE", "AB-POSITIVE", "O-NEGATIVE", "A-NEGATIVE"};
const std::vector<const char*> genotypes = {"AA", "AA", "AA", "AS", "AS", "AC", "SS"};
const std::vector<const char*> occupations = {"Trader", "Teacher",  "Civil servant", "Banker", "Driver", "Tailor",
                                              "Farmer", "Engineer", "Student",       "Nurse",  "Lawyer", "Retired"};

/// The row of each patient, with what the last visit left in it.
class PatientWriter {
public:
    explicit PatientWriter(Hospital& hospital) : hospital_(hospital) {
        for (const auto& visit : hospital.visits) last_[visit.patient] = &visit;
        const auto found = hospital.rows.read("select CoyCode, planName, PlanID from HmoPlan order by SNo"_sql);
        for (std::size_t row = 0; row < found.rowCount(); ++row)
            plans_[found.value(row, 0).text()].push_back(found.value(row, 1).text() + " [" +
                                                         found.value(row, 2).text() + "]");
    }

    void write(const Patient& patient) {
        auto chance = hospital_.random.about(static_cast<std::uint64_t>(patient.number)).about(7);
        const auto& client = *patient.client;
        const int age = patient.ageOn(hospital_.today);
        const bool scheme = client.category == "HMO" || client.category == "NHIS" || client.category == "PHIS";
        const bool dependant = patient.principal != 0;
        const bool married = age >= 24 && chance.percent(70);
        const auto head = dependant ? hospital_.patient(patient.principal) : patient;
        const auto household = static_cast<std::size_t>(head.number);
        const auto address = std::to_string(1 + household % 97) + " " + streets[household % streets.size()] + " Street";
        const auto phone = "0803" + nineDigits(1'000'000 + head.number).substr(2);
        const auto card = cardOf(patient, chance);
        const auto visited = last_.find(patient.number);
        const auto* visit = visited == last_.end() ? nullptr : visited->second;
        rows_.add({patient.pno,
                   "VH/" + std::to_string(1000 + patient.number),
                   title(patient, age, married),
                   patient.surname,
                   patient.firstName,
                   address,
                   hospital_.areas[household % hospital_.areas.size()],
                   phone,
                   patient.born,
                   chance.percent(20) ? db::Value("p" + std::to_string(patient.number) + "@mail.example") : db::Value(),
                   patient.female ? "FEMALE" : "MALE",
                   maturity(age, patient.born.daysUntil(hospital_.today)),
                   client.category == "PRIVATE" || chance.percent(5) ? "YES" : "NO",
                   scheme && chance.percent(10) ? "YES" : "NO",
                   client.category,
                   client.type,
                   client.id,
                   client.category == "PRIVATE" ? "NIL" : "EN" + std::to_string(4000 + head.number),
                   planOf(client, household),
                   dependant || chance.percent(80) ? "SINGLE" : "FAMILY",
                   card.duration,
                   patient.registered,
                   card.expiry,
                   married ? "MARRIED" : "SINGLE",
                   chance.pick(bloodGroups),
                   chance.pick(genotypes),
                   age < 5 ? db::Value() : db::Value(age < 18 ? "Pupil" : chance.pick(occupations)),
                   chance.percent(50)   ? "CHRISTIANITY"
                   : chance.percent(90) ? "ISLAM"
                                        : "OTHERS",
                   head.surname + " " + (dependant ? head.firstName : std::string("FAMILY")),
                   phone,
                   relation(patient, dependant, head),
                   address,
                   scheme ? chance.between(2, 6) * 24 : 0,
                   head.pno,
                   dependant ? "DEPENDANT" : "PRINCIPAL",
                   chance.pick(hospital_.nurses),
                   patient.registered == hospital_.today ? "YES" : "NO",
                   card.expired,
                   visit ? db::Value(visit->purpose) : db::Value(),
                   visit ? db::Value(visit->clinic) : db::Value(),
                   visit ? db::Value(visit->at.date()) : db::Value(),
                   visit ? db::Value(visit->consultID) : db::Value()});
    }

private:
    struct Card {
        const char* duration;
        db::Value expiry;
        bool expired = false;
    };

    /// Only private cards run out; most are renewed then, once a year.
    [[nodiscard]] Card cardOf(const Patient& patient, Random& chance) const {
        if (patient.client->category != "PRIVATE") return {"WHILE STILL IN SERVICE", {}};
        const bool oneYear = chance.percent(60);
        auto end =
            oneYear ? patient.registered.plusMonths(12) : db::DateTime::of(patient.registered.parts().year, 12, 31);
        while (end <= hospital_.today && chance.percent(85)) end = end.plusMonths(12);
        return {oneYear ? "ONE YEAR" : "TILL END OF YEAR", end, end < hospital_.today};
    }

    /// The entry that the list of plans shows; "NIL" for those without a plan.
    [[nodiscard]] std::string planOf(const Client& client, std::size_t household) const {
        const auto plans = plans_.find(client.id);
        return plans == plans_.end() ? "NIL" : plans->second[household % plans->second.size()];
    }

    Hospital& hospital_;
    std::unordered_map<int, const Visit*> last_;
    std::unordered_map<std::string, std::vector<std::string>> plans_;
    Rows rows_{hospital_.rows, "hPatients", {"PNo",
                                             "OldPNo",
                                             "Title",
                                             "psurname",
                                             "pfirstName",
                                             "homeAddress",
                                             "Area",
                                             "pPhoneNo",
                                             "DOB",
                                             "Email",
                                             "sex",
                                             "Maturity",
                                             "ref",
                                             "HMORef",
                                             "clientCatID",
                                             "coyType",
                                             "CoyName",
                                             "empNo",
                                             "PolicyType",
                                             "CardType",
                                             "fileduration",
                                             "regDate",
                                             "expirydate",
                                             "MStatus",
                                             "bloodGroup",
                                             "genotype",
                                             "occupation",
                                             "religion",
                                             "nextOfKin",
                                             "NOKPhone",
                                             "relationToKin",
                                             "kinAddress",
                                             "AdmissionDaysLimit",
                                             "Principal",
                                             "pCatID",
                                             "username",
                                             "NewReg",
                                             "expired",
                                             "LastPurpose",
                                             "LastClinicVisited",
                                             "LastAttndDate",
                                             "LastConsultID"}};
};

}  // namespace

/// Numbers were given out as people came: those who came first have the lowest. Every fourth group of four is a family.
Patient Hospital::patient(int number) const {
    const int group = (number - 1) / familySize;
    const int member = (number - 1) % familySize;
    auto ofGroup = random.about(static_cast<std::uint64_t>(group) * 2 + 1);
    auto own = random.about(static_cast<std::uint64_t>(number) * 2);
    const bool family = ofGroup.percent(25);
    if (!family) ofGroup = own.about(1);

    Patient result;
    result.number = number;
    result.principal = family && member > 0 ? group * familySize + 1 : 0;
    result.pno = nineDigits(number) + "/001";
    const auto& people = ofGroup.pick(peoples);
    result.surname = ofGroup.pick(people.surnames);
    result.client = &payer(clients, ofGroup);
    result.female = family && member < 2 ? member == 1 : own.percent(54);
    result.firstName = own.pick(result.female ? people.women : people.men);
    // The last in the list are today's registrations.
    const int newToday = several(1.0 / 300, 3, 40);
    const int daysAgo =
        number > patients - newToday ? 0 : 1 + static_cast<int>(3650LL * (patients - newToday - number) / patients);
    result.registered = today.plusDays(-daysAgo);
    const bool child = family ? member >= 2 : own.percent(28);
    // A third member that came in the last two years was born here: those children are followed from their first day.
    const bool bornHere = member == 2 && daysAgo > 60 && daysAgo < 700;
    result.born = result.registered.plusDays(-(bornHere ? own.between(1, 3) : ageInDays(own, child)));
    return result;
}

void writePatients(Hospital& hospital) {
    PatientWriter writer(hospital);
    for (int number = 1; number <= hospital.patients; ++number) {
        writer.write(hospital.patient(number));
        if (number % 100'000 == 0 && hospital.progress)
            hospital.progress(std::to_string(number) + " of " + std::to_string(hospital.patients) + " patients");
    }
    hospital.rows.execute("update idgen set id="_sql + hospital.patients + " where destNAme='PATIENT2'");
}

}  // namespace hospital::demo
