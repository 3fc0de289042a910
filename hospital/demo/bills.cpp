#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "hospital/demo/billlines.h"
#include "hospital/demo/births.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

/// What a client pays for the fixed things.
struct Fees {
    double registration = 0, consultation = 0, renewal = 0;
};

std::map<std::string, Fees> feesOf(db::Connection& connection) {
    const auto rows = connection.read("select retainID, RegAmount, ConAmount, CardRenewAmount from hRetainership"_sql);
    std::map<std::string, Fees> result;
    for (std::size_t row = 0; row < rows.rowCount(); ++row)
        result[rows.value(row, 0).text()] = {rows.value(row, 1).numberOr(0), rows.value(row, 2).numberOr(0),
                                             rows.value(row, 3).numberOr(0)};
    return result;
}

/// A number of packs, tablets or ampoules that an order comes to.
double unitsOf(const Order& order) {
    const auto counted = [&](const char* word) { return order.dose.find(word) != std::string::npos; };
    if (counted("PUFF") || counted("ML") || counted("DROP")) return 1;
    if (counted("TAB") || counted("CAP") || counted("SACHET")) return db::leadingNumber(order.dose) * order.doses();
    return order.doses();
}

/// Whose account it is, and for which visit.
struct Account {
    const Visit& visit;
    const Patient& patient;
};

/// A line that a bill repeats.
struct BilledLine {
    std::string item, revType;
    double amount = 0;
};

/// The accounts of the visits, and the bills that the billing office has made of those that are over.
class AccountWriter {
public:
    explicit AccountWriter(Hospital& hospital) : hospital_(hospital), lines_(hospital), fees_(feesOf(hospital.rows)) {
        readTreatmentLines();
    }

    void writeAll() {
        for (const auto& visit : lastVisits(hospital_, billedVisits)) writeVisit(visit);
        writeRegistrations();
        writeDeposits();
    }

private:
    /// What the nurses' treatments have charged already, as far as it goes onto a bill.
    void readTreatmentLines() {
        const auto rows = hospital_.rows.read(
            "select consultID, drgName, revType, SubTotal from billAccum where isbilled = 1 order by SNO"_sql);
        for (std::size_t row = 0; row < rows.rowCount(); ++row)
            billed_[rows.value(row, 0).text()].push_back(
                {rows.value(row, 1).text(), rows.value(row, 2).text(), rows.value(row, 3).numberOr(0)});
    }

    void writeVisit(const Visit& visit) {
        const auto patient = hospital_.patient(visit.patient);
        const Account account{visit, patient};
        const auto& fees = fees_[patient.client->id];
        const bool seen = visit.road != Visit::Road::registered;
        if (patient.registered == visit.at.date() && registered_.insert(patient.number).second)
            charge(account, visit.at, registrationOf(fees));
        charge(account, visit.at, {.item = "ATTENDANCE", .revType = "CONSULTATION"});
        if (renewsCard(account)) charge(account, visit.at, renewalOf(fees));
        if (seen && visit.clinic != "IMMUNIZATION")
            charge(account, visit.at, {.item = "NURSING FEE", .revType = "CONSULTATION"});
        if (seen && visit.clinic == "DIALYSIS") chargeService(account, visit.at, "DIALYSIS", "SESSION");
        if (visit.conID != 0) writeConsultation(account, fees);
        if (visit.stay >= 0) writeStay(account, hospital_.stays[static_cast<std::size_t>(visit.stay)]);
        if (lines_.closed(visit)) close(account);
    }

    static Charge registrationOf(const Fees& fees) {
        return {
            .item = "REGISTRATION", .category = "REGISTRATION", .price = fees.registration, .revType = "REGISTRATION"};
    }

    static Charge renewalOf(const Fees& fees) {
        return {
            .item = "CARD RENEWAL FEE", .category = "REGISTRATION", .price = fees.renewal, .revType = "REGISTRATION"};
    }

    /// The first visit in the month after a private card's year; so a renewal is charged once a year.
    bool renewsCard(const Account& account) {
        const auto& patient = account.patient;
        const auto days = patient.registered.daysUntil(account.visit.at);
        if (patient.client->category != "PRIVATE" || patient.principal != 0 || days < 365 || days % 365 > 30)
            return false;
        auto& year = renewedIn_[patient.number];
        const auto now = days / 365;
        return std::exchange(year, now) != now;
    }

    void writeConsultation(const Account& account, const Fees& fees) {
        const auto& visit = account.visit;
        const auto& illness = illnesses()[visit.illness];
        if (visit.purpose == "(CONSULTATION)")
            charge(account, visit.at,
                   {.item = "(CONSULTATION)", .price = fees.consultation, .revType = "CONSULTATION"});
        for (const auto* text : illness.drugs) chargeDrug(account, Order(text));
        for (const auto* test : illness.tests) chargeTest(account, test);
        if (std::string_view(illness.diagnosis).find("LACERATION") != std::string_view::npos)
            chargeService(account, visit.at, "PROCEDURE", "SUTURING");
        if (visit.clinic == "DENTAL" || visit.clinic == "EYE" || visit.clinic == "PHYSIOTHERAPY")
            chargeService(account, visit.at, visit.clinic, "");
    }

    void chargeDrug(const Account& account, const Order& order) {
        const auto* drug = itemNamed(hospital_.drugs, order.name);
        const auto* type = account.visit.stay < 0 ? "DRUG" : "MEDICATION";
        chargeItem(account, account.visit.at, drug, unitsOf(order), order.usage(), type, account.visit.conID);
    }

    /// A test of the laboratory or a picture, which stands among the services.
    void chargeTest(const Account& account, std::string_view name) {
        const auto* test = itemNamed(hospital_.tests, name);
        const auto* item = test ? test : itemNamed(hospital_.services, name);
        chargeItem(account, account.visit.at, item, 1, "***", test ? "LAB" : "SERVICE", account.visit.conID);
    }

    /// A service of a category: the one with the word in its name, or the category's first.
    void chargeService(const Account& account, const db::DateTime& day, std::string_view category,
                       std::string_view word, double quantity = 1) {
        const auto* service = itemLike(hospital_.services, category, word);
        chargeItem(account, day, service, quantity, quantity > 1 ? "DAILY" : "***", "SERVICE");
    }

    void chargeSupply(const Account& account, const db::DateTime& day, std::string_view category, std::string_view word,
                      double quantity = 1) {
        const auto* supply = itemLike(hospital_.drugs, category, word);
        chargeItem(account, day, supply, quantity, quantity > 1 ? "DAILY" : "AS NEEDED", "DRUG");
    }

    /// Nothing for an item that the price lists lack.
    void chargeItem(const Account& account, const db::DateTime& day, const Item* item, double quantity,
                    const std::string& usage, const char* type, const db::Value& conID = {}) {
        if (item)
            charge(account, day,
                   {.item = item->name,
                    .category = item->category,
                    .price = item->price,
                    .quantity = quantity,
                    .usage = usage,
                    .billType = type,
                    .conID = conID});
    }

    /// The ward, its care and what was used at the bedside.
    void writeStay(const Account& account, const Stay& stay) {
        auto& chance = hospital_.random;
        const auto end = stay.until.value_or(hospital_.today);
        const auto days = static_cast<double>(std::max<std::int64_t>(1, stay.from.daysUntil(end)));
        chargeService(account, end, "WARD FEE", wardWord(stay.ward), days);
        chargeSupply(account, end, "ADMISSION SERVICES", "NURSING CARE", days);
        chargeSupply(account, end, "ADMISSION SERVICES", "FEEDING", days);
        if (stay.delivery) writeBirth(account, birthOf(hospital_, stay));
        chargeSupply(account, stay.from, "DRY STOCK", "CANNULA");
        chargeSupply(account, stay.from, "DRY STOCK", "GIVING SET");
        const auto* fluid = chance.percent(60) ? "NORMAL SALINE" : "DEXTROSE";
        chargeSupply(account, stay.from, "INFUSIONS", fluid, chance.between(2, 4));
        if (chance.percent(25)) chargeSupply(account, stay.from, "ADMISSION SERVICES", "OXYGEN", chance.between(2, 12));
    }

    void writeBirth(const Account& account, const Birth& birth) {
        if (birth.at > momentOfNow(hospital_)) return;
        if (birth.caesarean)
            chargeService(account, birth.at, "THEATRE", "CAESAREAN");
        else
            chargeService(account, birth.at, "MATERNITY", "NORMAL DELIVERY");
    }

    static std::string_view wardWord(const std::string& ward) {
        static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> words{{{"PRIVATE", "PRIVATE"},
                                                                                             {"CHILD", "CHILDREN"},
                                                                                             {"MATERN", "MATERNITY"},
                                                                                             {"LABOUR", "MATERNITY"},
                                                                                             {"NEONATAL", "NEONATAL"},
                                                                                             {"ICU", "ICU"}}};
        for (const auto& [part, word] : words)
            if (ward.find(part) != std::string::npos) return word;
        return "GENERAL";
    }

    void charge(const Account& account, const db::DateTime& day, const Charge& line) {
        lines_.add(account.visit, account.patient, day, line);
        billed_[account.visit.consultID].push_back({line.item, line.revType, line.price * line.quantity});
    }

    /// Makes the bill of an account that is over.
    void close(const Account& account) {
        const auto& visit = account.visit;
        const auto& lines = billed_[visit.consultID];
        double total = 0;
        for (const auto& line : lines) total += line.amount;
        if (total == 0) return;
        const auto* stay = visit.stay < 0 ? nullptr : &hospital_.stays[static_cast<std::size_t>(visit.stay)];
        const auto day = stay ? stay->until.value_or(visit.at).date() : visit.at.date();
        bills_.add({visit.consultID, day, account.patient.pno, account.patient.client->id});
        for (const auto& line : lines)
            if (line.amount != 0) details_.add({visit.consultID, line.revType, line.item, line.amount});
        if (account.patient.client->category == "PRIVATE")
            settle(account, day, total);
        else
            statements_.add({account.patient.pno, account.patient.client->id, total, 0, 0, 0});
    }

    /// Who pays himself has paid the bill, all or in part, and the last one says what is still owed.
    void settle(const Account& account, const db::DateTime& day, double total) {
        const auto& patient = account.patient;
        auto& owed = balances_[patient.number];
        const double discount = hospital_.random.percent(3) ? std::round(total / 1000) * 100 : 0;
        const double due = total + owed - discount;
        const double paid = due > 0 ? payment(due) : 0;
        statements_.add({patient.pno, patient.client->id, total, owed, discount, paid});
        if (paid > 0) payments_.add({account.visit.consultID, patient.pno, day, paid, "CONSULTATION AND TREATMENT"});
        owed = due - paid;
    }

    double payment(double due) {
        const int draw = hospital_.random.below(100);
        if (draw < 82) return due;
        if (draw < 91) return std::floor(due * hospital_.random.between(3, 8) / 10 / 500) * 500;
        if (draw < 96) return 0;
        return std::ceil(due / 1000 + 1) * 1000;  // the change stays as a credit
    }

    /// The line of a new patient without a visit waits for the first.
    void writeRegistrations() {
        for (int number = hospital_.patients; number > 0; --number) {
            const auto patient = hospital_.patient(number);
            if (patient.registered != hospital_.today) return;
            if (!registered_.contains(number))
                lines_.addWithoutVisit(patient, hospital_.today, registrationOf(fees_[patient.client->id]));
        }
    }

    /// Private patients pay a deposit before they are admitted. Every third that waits for a bed has not yet; one of
    /// ten in the wards came as an emergency.
    void writeDeposits() {
        for (const auto& stay : hospital_.stays)
            if (!stay.until && stay.visit && isPrivate(stay.patient) && hospital_.random.percent(90))
                writeDeposit(stay.visit->consultID, stay.patient, stay.from);
        const auto waiting = hospital_.rows.read(
            "select consultID, PNo, refDate from hreferal where referto in ('(IN-PATIENT)', 'IN-PATIENT') and "
            "attendedto = 0 order by ID"_sql);
        int waitingPrivately = 0;
        for (std::size_t row = 0; row < waiting.rowCount(); ++row) {
            const auto number = static_cast<int>(db::leadingNumber(waiting.value(row, 1).text()));
            if (isPrivate(number) && ++waitingPrivately % 3 != 0)
                writeDeposit(waiting.value(row, 0).text(), number, waiting.value(row, 2).moment());
        }
    }

    [[nodiscard]] bool isPrivate(int number) const { return hospital_.patient(number).client->category == "PRIVATE"; }

    void writeDeposit(const std::string& consultID, int number, const db::DateTime& day) {
        static const std::vector<int> amounts = {30'000, 50'000, 50'000, 100'000};
        payments_.add({consultID, hospital_.patient(number).pno, day.date(), hospital_.random.pick(amounts),
                       "DEPOSIT FOR ADMISSION"});
    }

    Hospital& hospital_;
    BillLines lines_;
    std::map<std::string, Fees> fees_;
    std::unordered_map<std::string, std::vector<BilledLine>> billed_;  ///< by consultID
    std::unordered_set<int> registered_;                               ///< patients whose registration is charged
    std::unordered_map<int, std::int64_t> renewedIn_;                  ///< the year of the card, by patient
    std::unordered_map<int, double> balances_;                         ///< by patient
    Rows bills_{hospital_.rows, "hBilling", {"billNo", "billDate", "PNo", "CoyName"}};
    Rows details_{hospital_.rows, "BillingDetails", {"billNo", "revType", "drgName", "Amount"}};
    Rows statements_{
        hospital_.rows, "Billing", {"PNo", "ClientID", "AmountBilled", "DebtBF", "Discount", "AmountPaid"}};
    Rows payments_{hospital_.rows, "Payments", {"BillNo", "PNo", "payDate", "AmountPaid", "PaymentFor"}};
};

}  // namespace

void writeBills(Hospital& hospital) {
    AccountWriter(hospital).writeAll();
}

}  // namespace hospital::demo
