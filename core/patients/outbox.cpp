#include "core/patients/outbox.h"

#include <algorithm>
#include <string_view>

#include "core/session/session.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "db/letters.h"

namespace core {
namespace {

using namespace db::literals;

/// What goes into the rows of one message.
struct Message {
    std::string text;
    std::string recipient;
    std::string remarks;
    std::string fullName;
    db::Value category;  ///< `SNoCat` of the template; null without one
};

std::string designationOf(db::Connection& sms, const std::string& clinic) {
    const auto rows = sms.read("select Designation FROM  vwClinicTypesForSMS where ClinicName='"_sql + clinic + "'");
    return rows.empty() ? std::string() : rows["Designation"].textOr();
}

std::string without(std::string text, std::string_view part) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at)) text.erase(at, part.size());
    return text;
}

std::string appointmentText(const Session& session, const db::Recordset& row, const std::string& designation,
                            db::DateTime apptDate) {
    const auto second = row["FullNAme2"].textOr();
    const auto invitation = second.empty()
                                ? row["Fullname"].textOr() + " You have " + designation + " Clinic APPOINTMENT"
                                : second + " You have an APPOINTMENT with the " + designation;
    return session.gHospitalName + "\r\n" + invitation + "\r\nDate: " + apptDate.shortDate() +
           "\r\nTime: " + session.gClinicPeriod + "\r\nResponse: " + session.gClinicPhoneNo;
}

/// The message without its text; all of it empty where the patient has no template.
Message fromTemplate(const db::Recordset& row) {
    Message message;
    if (row.empty()) return message;
    message.recipient = row["Recipient"].textOr();
    message.remarks = row["Remarks"].textOr();
    message.fullName = without(row["Fullname"].textOr(), "Dear ");
    message.category = row["SNoCat"];
    return message;
}

Message appointment(const Session& session, db::Connection& sms, const std::string& pno, const std::string& category,
                    const std::string& designation, db::DateTime apptDate) {
    const auto row = sms.read(
        "select top 1 SNoCat,Fullname,Fullname2,Details,Details2,Remarks, PhoneNo as Recipient FROM  vwFullnamePatAppt "
        "where pno='"_sql +
        pno + "' and Category = '" + category + "'");
    auto message = fromTemplate(row);
    if (!row.empty()) message.text = appointmentText(session, row, designation, apptDate);
    return message;
}

Message attendance(const Session& session, db::Connection& sms, const std::string& pno, const std::string& category) {
    const auto row = sms.read(
        "select top 1 SNoCat,Fullname,Fullname2,Details,Details2,Remarks, PhoneNo as Recipient FROM  "
        "vwFullnamePatAttend where pno='"_sql +
        pno + "' and Category = '" + category + "'");
    auto message = fromTemplate(row);
    if (!row.empty())
        message.text = session.gHospitalName + "\r\n" + row["Fullname"].textOr() + " " + row["Details"].textOr();
    return message;
}

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// Eleven characters are a national number: its leading zero gives way to the country's code.
std::string international(const std::string& phone) {
    constexpr auto nationalLength = 11;
    if (db::characterCount(phone) != nationalLength) return phone;
    return "234" + std::string(std::find_if(phone.begin() + 1, phone.end(), startsCharacter), phone.end());
}

}  // namespace

void QueueMessage(Workplace& place, const std::string& pno, const std::string& code, const std::string& category,
                  const std::string& clinic, db::DateTime apptDate, db::DateTime /*apptTime*/, const std::string& phone,
                  const std::string& /*extra*/) {
    trapped(place, [&] {
        const auto& session = place.session;
        auto& sms = place.databases.open(session.gConnSms);
        const auto designation = designationOf(sms, clinic);
        Message message;
        if (category == "APPT") message = appointment(session, sms, pno, category, designation, apptDate);
        if (category == "ATTEND") message = attendance(session, sms, pno, category);

        const auto leave = [&](db::DateTime sendDate) {
            auto row = sms.read("select *  FROM  MessageOut where 1=2"_sql);
            row.addNew();
            row.set("Date", session.gServerDate);
            row.set("Message", message.text);
            row.set("Phone", international(message.recipient.empty() ? phone : message.recipient));
            row.set("isSent", 0);
            row.set("SNoCat", message.category);
            row.set("sendDate", sendDate);
            row.set("sendTime", "11:59 PM");
            row.set("Remarks", message.remarks);
            row.set("Remarks2", clinic);
            row.set("Catname", category);
            row.set("fullName", message.fullName);
            row.set("Code", code);
            row.update();
        };
        db::Transaction both(sms);
        const auto day = apptDate.date();
        if (category == "APPT" && day > session.gServerDate.plusDays(1)) leave(day.plusDays(-1));
        leave(session.gServerDate);
        both.commit();
    });
}

}  // namespace core
