#include "core/care/treatmenttext.h"

namespace core {

using namespace db::literals;

namespace {

std::string headOf(const db::Recordset& row) {
    const auto text = [&row](const char* column) { return row[column].textOr(); };
    return "Clinic: " + text("remarks") + "\n" +                                    //
           "Company: " + text("RetainName") + " [" + text("ClientCatID") + "]\n" +  //
           "Name : " + text("FullName") + " (Age: " + text("Age") + ")\n" +         //
           "##### Treatment by Dr. " + text("treatedby") + " on " + text("cdate") + " " + text("cTime") +
           " #####\n" +  //
           "Diagnosis: " + text("Diagnosis") + "\n";
}

std::string treatmentOf(const db::Recordset& row) {
    const std::string rule = "\n" + std::string(38, '-') + "\n";
    const auto investigate = row["Investigate"].textOr();
    return row["prescription"].textOr() + rule + row["services"].textOr() + rule +
           (investigate.empty() ? row["investigate2"].textOr() : investigate) + rule + "END OF TREATMENT\n";
}

}  // namespace

std::string treatmentText(db::Connection& hospital, const std::string& conID) {
    auto rows = hospital.read(
        "select distinct  FullName,RetainName,ClientCatID,retainID,RetainCode,cdate,cTime,ref,BillRemarks,company,"
        "prescription,Diagnosis,Investigate,investigate2,services,consultID,clientcat,pno,remarks,treatedby,Age from "
        "vwhConsultingDetailsForBillingAlt where ID='"_sql +
        conID + "'");
    if (rows.empty()) return "N/A";
    std::string text;
    for (; !rows.eof(); rows.moveNext()) text.insert(0, headOf(rows) + treatmentOf(rows));
    return text;
}

}  // namespace core
