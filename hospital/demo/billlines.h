#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "hospital/demo/common.h"

namespace hospital::demo {

/// The account of a visit is kept for so many of the last visits: some 150,000 lines.
constexpr std::size_t billedVisits = 25'000;

/// Who stands in BillTo: the client by its retainCode or, from the immunization, its retainID; nobody on a nurse's fee.
enum class Payer { code, id, nobody };

/// What a line of a visit's account charges.
struct Charge {
    std::string item;
    db::Value category = {};  ///< null where the screen that writes the line names none
    double price = 0;
    double quantity = 1;
    db::Value usage = {};
    const char* billType = "SERVICE";
    const char* revType = "TREATMENT";
    db::Value conID = {};  ///< null for fees
    Payer payer = Payer::code;
    db::Value clinic = {};  ///< where the revenue goes
};

/// Adds lines to the accounts of visits, each as the screen writes it that charges such a thing.
class BillLines {
public:
    explicit BillLines(Hospital& hospital);

    /// A line of today is on no bill yet, whenever the visit was.
    void add(const Visit& visit, const Patient& patient, const db::DateTime& day, const Charge& charge);
    /// A charge from before the next visit, which the line will join: a registration, say.
    void addWithoutVisit(const Patient& patient, const db::DateTime& day, const Charge& charge);

    /// Whether the billing office has made a bill of the account.
    [[nodiscard]] bool closed(const Visit& visit) const;
    /// A named fee with the surcharge of the patient's category; 0 for one that has no cost.
    [[nodiscard]] double fee(std::string_view name, const Patient& patient) const;

private:
    void write(const db::Value& consultID, const Patient& patient, const db::DateTime& day, const Charge& charge,
               bool billed);
    [[nodiscard]] db::Value capitated(const Patient& patient, const Charge& charge) const;

    Hospital& hospital_;
    std::set<std::string, std::less<>> capitatedItems_;
    std::map<std::string, double, std::less<>> costs_, surcharges_;
    Rows lines_;
};

}  // namespace hospital::demo
