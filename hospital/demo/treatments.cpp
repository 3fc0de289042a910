#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_map>

#include "hospital/demo/billlines.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

/// Rounded as the screens show a weight.
double hundredths(double number) {
    return std::round(number * 100) / 100;
}

/// An item of the out-patients' chart: what is to be given, how often, and since when.
struct ChartItem {
    std::string name, category, usage;
    int doses = 0;
    int hoursApart = 24;
    db::DateTime from;
};

/// A dose that was given, or a dressing that was done.
struct Given {
    db::DateTime at;
    const Visit* visit = nullptr;
    std::string item;
    bool dressing = false;
};

/// The out-patients' chart with its injections and dressings, each charged as it is given.
class ChartWriter {
public:
    ChartWriter(Hospital& hospital, BillLines& bills) : hospital_(hospital), bills_(bills) {}

    void writeAll() {
        for (const auto& visit : lastVisits(hospital_, billedVisits))
            if (visit.conID != 0 && isCharted(visit)) writePrescribed(visit);
        writeByHand();
        writeGiven();
        hospital_.rows.execute(
            "update hConsulting set isinj = 1, isDress = 1 where ID in (select conID from hInjAndDressing)"_sql);
    }

private:
    /// Out-patients' orders are. Of those in the wards now, some wait to be charted; those who went had the wards' own.
    bool isCharted(const Visit& visit) {
        if (visit.stay < 0) return true;
        return !hospital_.stays[static_cast<std::size_t>(visit.stay)].until && hospital_.random.percent(60);
    }

    /// What the doctor's prescription asks for, and the dressing of a wound.
    void writePrescribed(const Visit& visit) {
        const auto& illness = illnesses()[visit.illness];
        const auto first = minutesAfter(visit.at, 75);
        for (const auto* text : illness.drugs) {
            const Order order(text);
            const auto* drug = itemNamed(hospital_.drugs, order.name);
            if (drug && drug->category == "INJECTIONS")
                write(visit, {drug->name, drug->category, order.usage(), order.doses(), 24 / order.times, first});
        }
        if (std::string_view(illness.diagnosis).find("LACERATION") == std::string_view::npos) return;
        const auto* size = hospital_.random.percent(60) ? "SMALL" : "MEDIUM";
        if (const auto* dressing = itemLike(hospital_.drugs, "DRESSING", size))
            write(visit, {dressing->name, dressing->category, "ALTERNATE DAYS", hospital_.random.between(3, 5), 48,
                          minutesAfter(visit.at, 60)});
    }

    /// Items that a nurse adds from the prescription herself: there is always somebody to come back today.
    void writeByHand() {
        const auto morning = minutesAfter(hospital_.today, 7 * 60 + 30);
        const auto* injection = itemLike(hospital_.drugs, "INJECTIONS", "PARACETAMOL");
        const auto* dressing = itemLike(hospital_.drugs, "DRESSING", "POST-OPERATIVE");
        int injections = injection ? hospital_.several(0.003, 3, 40) : 0;
        int dressings = dressing ? hospital_.several(0.002, 2, 25) : 0;
        for (auto visit = hospital_.visits.rbegin(); visit != hospital_.visits.rend(); ++visit) {
            if (visit->conID == 0 || visit->stay >= 0) continue;
            const auto first = minutesAfter(visit->at, 60 + hospital_.random.below(30));
            if (injections > 0) {
                --injections;
                write(*visit, {injection->name, injection->category, "1 AMP 3 TIMES DAILY FOR 1 DAY", 3, 8,
                               std::max(first, morning)});
            } else if (dressings > 0) {
                --dressings;
                write(*visit, {dressing->name, dressing->category, "DAILY DRESSING", 5, 24,
                               std::max(first, morning.plusDays(-hospital_.random.between(0, 3)))});
            } else {
                return;
            }
        }
    }

    void write(const Visit& visit, const ChartItem& item) {
        const auto patient = hospital_.patient(visit.patient);
        const auto now = momentOfNow(hospital_);
        int given = 0;
        auto last = std::min(item.from, now);
        for (auto due = item.from; given < item.doses && due <= now; due = due.plusHours(item.hoursApart)) {
            last = std::min(minutesAfter(due, hospital_.random.below(15)), now);
            given_.push_back({last, &visit, item.name, item.category == "DRESSING"});
            ++given;
        }
        charts_.add({visit.conID, visit.consultID, patient.pno, item.from.date(), last.timeOfDay(), item.doses, given,
                     item.name, item.usage, patient.client->category, item.category, given == item.doses ? 1 : 0});
    }

    /// What was given, in the order of time, with the nurse's fee.
    void writeGiven() {
        std::stable_sort(given_.begin(), given_.end(),
                         [](const Given& left, const Given& right) { return left.at < right.at; });
        for (const auto& given : given_) {
            const auto& visit = *given.visit;
            const auto patient = hospital_.patient(visit.patient);
            const auto& nurse = hospital_.random.pick(hospital_.nurses);
            if (given.dressing)
                dressings_.add(
                    {given.at.date(), patient.pno, given.item, nurse, visit.consultID, patient.client->category});
            else
                injections_.add(
                    {given.at.date(), patient.pno, given.item, nurse, given.at.timeOfDay(), visit.consultID});
            const std::string fee = given.dressing ? given.item : "INJECTION_FEE";
            bills_.add(visit, patient, given.at,
                       {.item = fee, .price = bills_.fee(fee, patient), .billType = "0", .payer = Payer::nobody});
        }
    }

    Hospital& hospital_;
    BillLines& bills_;
    std::vector<Given> given_;
    Rows charts_{hospital_.rows,
                 "hInjAndDressing",
                 {"conID", "consultID", "PNo", "injdate", "injTime", "numOfTimes", "numtaken", "injname", "dosage",
                  "clientCat", "drgCatName", "attendedto"}};
    Rows injections_{hospital_.rows, "hinjections", {"dtDate", "PNo", "injname", "injBy", "injTime", "consultID"}};
    Rows dressings_{hospital_.rows, "hdressings", {"drDate", "PNo", "drname", "dressedBy", "consultID", "clientCat"}};
};

/// A day of the national schedule, counted from birth, and what is given on it.
struct ImmunizationDay {
    int age = 0;       ///< days
    std::string name;  ///< "6 WEEKS": the group of the vaccines in the drug list
    std::vector<Item> vaccines;

    [[nodiscard]] std::string names(const char* between) const {
        std::string result;
        for (const auto& vaccine : vaccines) result += (result.empty() ? "" : between) + vaccine.name;
        return result;
    }
};

/// The children's immunizations, with what the screen writes beside them: lines, the next appointment and its referral.
class ImmunizationWriter {
public:
    ImmunizationWriter(Hospital& hospital, BillLines& bills)
        : hospital_(hospital), bills_(bills), schedule_(scheduleOf(hospital)) {}

    void writeAll() {
        const auto billed = lastVisits(hospital_, billedVisits);
        for (const auto& visit : hospital_.visits)
            if (visit.clinic == "IMMUNIZATION" && visit.road != Visit::Road::registered)
                write(visit, &visit >= billed.data());
    }

private:
    static std::vector<ImmunizationDay> scheduleOf(Hospital& hospital) {
        std::vector<ImmunizationDay> days = {{0, "AT BIRTH", {}},    {42, "6 WEEKS", {}},   {70, "10 WEEKS", {}},
                                             {98, "14 WEEKS", {}},   {183, "6 MONTHS", {}}, {274, "9 MONTHS", {}},
                                             {365, "12 MONTHS", {}}, {456, "15 MONTHS", {}}};
        const auto found = hospital.rows.read(
            "select drgName, pharmCat from DrugMaster where drgCatName in ('VACCINES', 'DROP', 'ORAL') order by drgName"_sql);
        for (std::size_t row = 0; row < found.rowCount(); ++row) {
            const auto* vaccine = itemNamed(hospital.drugs, found.value(row, 0).text());
            for (auto& day : days)
                if (vaccine && day.name == found.value(row, 1).textOr()) day.vaccines.push_back(*vaccine);
        }
        return days;
    }

    void write(const Visit& visit, bool billed) {
        const auto child = hospital_.patient(visit.patient);
        const auto age = child.born.daysUntil(visit.at);
        auto next = std::find_if(schedule_.begin(), schedule_.end(), [&](const auto& day) { return day.age > age; });
        const auto& today = next == schedule_.begin() ? *next : *(next - 1);
        const bool again = next != schedule_.end();
        const auto moment = minutesAfter(visit.at, 25);
        static const std::vector<const char*> remarks = {"",
                                                         "",
                                                         "Mother advised on fever after the vaccine",
                                                         "No reaction after the last dose",
                                                         "Catarrh, vaccine given",
                                                         "Card stamped"};
        const auto nextDate = again ? db::Value(child.born.plusDays(next->age).date()) : db::Value();
        const auto nextTime = again ? db::Value(db::DateTime::of(1899, 12, 30, 8, 30)) : db::Value();
        immunizations_.add({moment.date(), child.pno, visit.nurse, hospital_.random.pick(remarks), moment.timeOfDay(),
                            today.name, today.names(","), visit.consultID, child.client->category, nextDate, nextTime,
                            again ? db::Value(next->names(", ")) : db::Value()});
        if (billed) charge(visit, child, today);
        if (again) writeNext(visit, child, moment, *next);
    }

    void charge(const Visit& visit, const Patient& child, const ImmunizationDay& day) {
        for (const auto& vaccine : day.vaccines)
            bills_.add(visit, child, visit.at,
                       {.item = vaccine.name,
                        .category = vaccine.category,
                        .price = vaccine.price,
                        .revType = "IMMUNIZATION",
                        .conID = 0,
                        .payer = Payer::id,
                        .clinic = "IMMUNIZATION"});
    }

    void writeNext(const Visit& visit, const Patient& child, const db::DateTime& moment, const ImmunizationDay& next) {
        const auto day = child.born.plusDays(next.age).date();
        const auto hour = db::DateTime::of(1899, 12, 30, 8, 30);
        const auto text = next.names(", ");
        referals_.add({visit.consultID, child.client->category, "IMMUNIZATION", day, hour, text, child.pno,
                       moment.date(), moment.timeOfDay(), 0});
        appointments_.add({visit.consultID, child.client->category, "IMMUNIZATION", day, hour, text, child.pno,
                           moment.date(), moment.timeOfDay(), 0, 0});
    }

    Hospital& hospital_;
    BillLines& bills_;
    std::vector<ImmunizationDay> schedule_;
    Rows immunizations_{hospital_.rows,
                        "hImmunization",
                        {"ImDate", "PNo", "empID", "Remarks", "imTime", "AgeValue", "IMMUNIZATION", "consultID",
                         "clientCat", "NextApptDate", "NextApptTime", "ImmType"}};
    Rows referals_{hospital_.rows,
                   "hreferal",
                   {"consultID", "clientCat", "referto", "ApptDate", "ApptTime", "refReason", "PNo", "refDate",
                    "refTime", "conID"}};
    Rows appointments_{hospital_.rows,
                       "happointment",
                       {"consultID", "clientCat", "clinicType", "ApptDate", "ApptTime", "Remarks", "PNo", "entryDate",
                        "entryTime", "attendedto", "conID"}};
};

/// Series of dialysis sessions: each begins with the weight that the one before left.
class DialysisWriter {
public:
    explicit DialysisWriter(Hospital& hospital) : hospital_(hospital) {}

    void writeAll() {
        for (const auto& visit : hospital_.visits) {
            if (visit.clinic != "DIALYSIS" || visit.road == Visit::Road::registered) continue;
            const bool today = visit.at.date() == hospital_.today;
            // A sheet is written when the run is over.
            if (today && minutesAfter(visit.at, 20 + shortened) > momentOfNow(hospital_)) continue;
            write(visit, today ? shortened : usual);
        }
    }

private:
    static constexpr int usual = 240;      ///< minutes
    static constexpr int shortened = 120;  ///< minutes

    /// How a session runs: in ml an hour, ml a minute and mmHg.
    struct Flow {
        int filtration, blood, systolic;
    };
    /// What stays the same from session to session.
    struct Series {
        int sessions = 0;
        double dryWeight = 0, weightLeft = 0;
        std::string diagnosis, access, group, viruses;
    };

    Series& seriesOf(const Visit& visit, const Patient& patient) {
        auto& series = series_[visit.patient];
        if (series.sessions++ > 0) return series;
        auto& chance = hospital_.random;
        static const std::vector<const char*> causes = {"HYPERTENSIVE NEPHROPATHY", "DIABETIC NEPHROPATHY",
                                                        "CHRONIC GLOMERULONEPHRITIS"};
        static const std::vector<const char*> routes = {"RIGHT INTERNAL JUGULAR CATHETER", "LEFT AV FISTULA",
                                                        "RIGHT FEMORAL CATHETER"};
        static const std::vector<const char*> groups = {"O+", "O+", "A+", "B+"};
        series.dryWeight = chance.between(patient.female ? 500 : 560, 840) / 10.0;
        series.diagnosis = std::string("END STAGE RENAL DISEASE SECONDARY TO ") + chance.pick(causes);
        series.access = chance.pick(routes);
        series.group = chance.pick(groups);
        series.viruses = chance.percent(92) ? "NEGATIVE" : "POSITIVE";
        return series;
    }

    void write(const Visit& visit, int minutes) {
        auto& chance = hospital_.random;
        auto& series = seriesOf(visit, hospital_.patient(visit.patient));
        const auto connected = minutesAfter(visit.at, 20);
        const auto disconnected = minutesAfter(connected, minutes);
        const double before = hundredths(series.dryWeight + chance.between(14, 38) / 10.0);
        const double after = hundredths(series.dryWeight + chance.between(0, minutes == usual ? 6 : 16) / 10.0);
        const Flow flow{chance.between(40, 90) * 10, chance.between(20, 30) * 10, chance.between(124, 172)};
        static const std::vector<const char*> arrivals = {"Conscious, pedal oedema, no dyspnoea",
                                                          "Conscious and alert, mild facial puffiness",
                                                          "Stable, no complaint", "Pale, pedal oedema, chest clear"};
        static const std::vector<const char*> departures = {"Stable, went home walking",
                                                            "Weak but stable, advised on fluid intake",
                                                            "Stable, no bleeding from the access site"};
        const auto* departure =
            minutes == usual ? chance.pick(departures) : "Session shortened at the patient's request, stable";
        const bool transfused = chance.percent(8);
        const auto id = sessions_.add({visit.consultID,
                                       std::to_string(series.sessions),
                                       visit.at.date(),
                                       series.diagnosis,
                                       connected.timeOfDay(),
                                       disconnected.timeOfDay(),
                                       chance.pick(arrivals),
                                       departure,
                                       "NEGATIVE",
                                       series.viruses,
                                       std::to_string(chance.between(21, 33)) + "%",
                                       series.group,
                                       db::DateTime::of(1899, 12, 30, 0, chance.between(6, 11)),
                                       series.sessions % 2 == 0 ? "MACHINE 1" : "MACHINE 2",
                                       "HIGH FLUX 1.6",
                                       "BICARBONATE",
                                       std::to_string(minutes / 60) + " HRS",
                                       series.access,
                                       decimals(before - series.dryWeight, 1),
                                       std::to_string(chance.between(12, 22) * 10),
                                       std::to_string(flow.filtration),
                                       std::to_string(flow.blood),
                                       "5000 IU",
                                       chance.percent(30) ? "ERYTHROPOIETIN 4000 IU" : "NIL",
                                       transfused ? "1 PINT OF PACKED CELLS" : "NIL",
                                       visit.nurse,
                                       before,
                                       series.dryWeight,
                                       series.weightLeft,
                                       hundredths(before - series.weightLeft),
                                       after,
                                       hundredths(before - after)});
        series.weightLeft = after;
        for (int minute = 0; minute <= minutes; minute += 60) {
            const auto* remark = minute == 0 ? "Commenced" : minute == minutes ? "Disconnected" : nullptr;
            writeObservation(id, visit, minutesAfter(connected, minute), flow, remark);
        }
        if (series.sessions % 6 == 1) writeLaboratory(id, visit);
    }

    /// Without a remark the nurse writes how the patient is.
    void writeObservation(std::int64_t session, const Visit& visit, const db::DateTime& moment, const Flow& flow,
                          const char* remark) {
        auto& chance = hospital_.random;
        const int systolic = flow.systolic + chance.between(-14, 10);
        static const std::vector<const char*> remarks = {"Stable", "Stable", "Stable", "Comfortable",
                                                         "Cramps, saline given"};
        const auto* written = remark ? remark : chance.pick(remarks);
        observations_.add({session, visit.consultID, moment.timeOfDay(),
                           std::to_string(systolic) + "/" + std::to_string(systolic * 3 / 5),
                           std::to_string(chance.between(70, 102)), std::to_string(flow.blood),
                           std::to_string(flow.filtration), std::to_string(-chance.between(8, 18) * 10),
                           std::to_string(chance.between(8, 16) * 10),
                           std::string_view(written).starts_with("Cramps") ? "100ML NS" : "NIL", "1000 IU", written});
    }

    /// A run takes off two thirds of the urea and half of the creatinine.
    void writeLaboratory(std::int64_t session, const Visit& visit) {
        auto& chance = hospital_.random;
        const int urea = chance.between(110, 190);
        const double creatinine = chance.between(70, 135) / 10.0;
        for (const bool post : {false, true})
            values_.add({session, visit.consultID, post ? "POST" : "PRE", std::to_string(chance.between(132, 143)),
                         decimals(chance.between(post ? 34 : 49, post ? 42 : 63) / 10.0, 1),
                         std::to_string(chance.between(96, 106)),
                         std::to_string(chance.between(post ? 23 : 16, post ? 28 : 21)),
                         std::to_string(post ? urea / 3 : urea), decimals(post ? creatinine / 2 : creatinine, 1),
                         std::to_string(chance.between(84, 178))});
    }

    Hospital& hospital_;
    std::unordered_map<int, Series> series_;
    Rows sessions_{hospital_.rows,
                   "hDialysis",
                   {"consultID",
                    "DialNo",
                    "diaDate",
                    "diagnosis",
                    "ConnectionTime",
                    "DisconnectionTime",
                    "PreDialAssess",
                    "PostDialAssess",
                    "hiv",
                    "HBsAg",
                    "pcv",
                    "BloodGP",
                    "ClottingTime",
                    "MachineType",
                    "DialyserType",
                    "ConcType",
                    "Duration",
                    "AccessRoute",
                    "ReqdWtLoss",
                    "TMP",
                    "UFR",
                    "BFR",
                    "Heparin",
                    "InfusionsDrug",
                    "BloodTransfusion",
                    "ConnectedBy",
                    "CurrentWt",
                    "DryWt",
                    "PrevPostDialWt",
                    "wtGain",
                    "PostDialWt",
                    "WtLoss"}};
    Rows observations_{
        hospital_.rows,
        "hDialysisDetails",
        {"snoID", "consultID", "DialTime", "Bp", "pulse", "BFR", "UFR", "NP", "VP", "IVF", "HEPperHR", "Remarks"}};
    Rows values_{hospital_.rows,
                 "hDialysisDetails2",
                 {"snoID", "consultID", "DialType", "NA", "K", "cl", "HCo3", "urea", "Creatininf", "RBS"}};
};

/// The clinics that patients are registered in, each from the first visit to it.
void writeClinicMembers(Hospital& hospital) {
    Rows rows(hospital.rows, "hPatientClinics", {"PNo", "regDate", "Clinic", "Remarks", "expireDate", "Active"});
    std::set<std::pair<int, std::string>> known;
    const auto enter = [&](int number, const std::string& clinic, const db::DateTime& day, const db::Value& until,
                           bool active) {
        if (known.emplace(number, clinic).second)
            rows.add({hospital.patient(number).pno, day.date(), clinic, clinic, until, active ? 1 : 0});
    };
    for (const auto& visit : hospital.visits)
        if (visit.clinic == "IMMUNIZATION" || visit.clinic == "DIALYSIS")
            enter(visit.patient, visit.clinic, visit.at, db::Value(), true);
    // A later pregnancy keeps the registration of the first; it stays in force until the child is born.
    std::set<int> expecting;
    for (const auto& pregnancy : hospital.pregnancies)
        if (pregnancy.stay == -1) expecting.insert(pregnancy.patient);
    for (const auto& pregnancy : hospital.pregnancies) {
        const auto booked = std::max(pregnancy.lastPeriod.plusDays(84), hospital.patient(pregnancy.patient).registered);
        enter(pregnancy.patient, "ANTENATAL", std::min(booked, hospital.today),
              pregnancy.lastPeriod.plusDays(280).date(), expecting.contains(pregnancy.patient));
    }
}

/// The renewals of private patients' cards: one a card that was renewed in the year behind, under the year in which it
/// had run out.
void writeCardHistory(Hospital& hospital) {
    hospital.rows.execute(
        "insert into hPatientsOldCardNoHist (PNo, OldCardNo, CardYear) select top 20000 PNo, OldPNo, year(expirydate) "
        "- 1 "
        "from hPatients where CoyName = '0001' and expirydate >= '"_sql +
        hospital.today.plusDays(1) + "' and regDate < '" + hospital.today.plusDays(-366) + "' order by PNo");
}

}  // namespace

void writeTreatments(Hospital& hospital) {
    BillLines bills(hospital);
    ChartWriter(hospital, bills).writeAll();
    ImmunizationWriter(hospital, bills).writeAll();
    DialysisWriter(hospital).writeAll();
    writeClinicMembers(hospital);
    writeCardHistory(hospital);
}

}  // namespace hospital::demo
