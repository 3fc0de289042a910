#pragma once

#include <string>

#include "core/rows/cells.h"
#include "core/session/workplace.h"

namespace billing {

/// What every line of a visit's bill has; what only some writers set goes along as further cells.
struct BillLine {
    db::Value date;
    std::string name;     ///< the item's or the fee's
    double price = 0;     ///< of one unit, in naira
    double quantity = 1;  ///< units
    double subTotal = 0;  ///< fixed when the line is entered: nobody computes it anew
    std::string pno;
    std::string consultID;
    std::string billType;  ///< "DRUG", "LAB", "SERVICE", "MEDICATION", ...
};
/// Adds the line to `billAccum`. Throws db::Error.
void addBillLine(db::Connection& connection, const BillLine& line, const core::Cells& further = {});
/// The same for a writer of several lines, which has opened the table to add them.
void addBillLine(db::Recordset& lines, const BillLine& line, const core::Cells& further = {});

/// A fee that is billed on behalf of a client: one service of one price.
struct ServiceLine {
    db::Value date;
    std::string name;  ///< "ATTENDANCE", "REGISTRATION", ...
    double amount = 0;
    std::string pno;
    std::string consultID;
    db::Value conID;  ///< see classValue
    std::string coyName;
    std::string billTo;  ///< the client's retainCode
    std::string revType;
};
/// Adds the line to `billAccum`. Throws db::Error.
void addServiceLine(db::Connection& connection, const ServiceLine& line, const core::Cells& further = {});

/// A fee for what a nurse did, with the surcharge of the client's category (ResolveSurchargedFee).
struct SurchargedFee {
    std::string name;      ///< as it is billed
    std::string pricedAs;  ///< as its cost is known; the two differ for one fee
    std::string clientCat;
    std::string pno;
    std::string consultID;
};
/// Adds it to `billAccum`, of the session's date and `gBillType`. Throws db::Error.
void addSurchargedFee(core::Workplace& place, const SurchargedFee& fee);

/// What `conID` holds for the class of a fee: a class that is a number is stored, any other class is Null.
db::Value classValue(const std::string& patientClass);

/// How a visit is billed: for "HMO" and "NHIS" "FFS" (fee for service) where `ffs` is "YES" and else "CAP" (capitated),
/// "BIL" for all other categories.
std::string billingMode(const std::string& clientCat, const std::string& ffs);

}  // namespace billing
