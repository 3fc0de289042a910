#pragma once

#include <string>

#include "core/rows/cells.h"

namespace billing {

/// A line of a visit's bill for a fee: one service of one price. What the writers share; what only one of them sets
/// goes along as further cells.
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

/// What `conID` holds for the class of a fee: a class that is a number is stored, any other class is Null.
db::Value classValue(const std::string& patientClass);

}  // namespace billing
