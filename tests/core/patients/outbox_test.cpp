
#include "core/patients/outbox.h"
#include "core/session/session.h"
#include "tests/core/stubs.h"

namespace {

using namespace db::literals;
using test::Ward;

constexpr auto appt = "APPT";

class Outbox : public testing::Test {
protected:
    Outbox() {
        ward.start();
        ward.place.session.gClinicPeriod = "Between 10am - 3pm";
        ward.place.session.gClinicPhoneNo = "0803";
        addPatient("P1", "Mrs A", "", "08031234567");
    }
    void addPatient(const std::string& pno, const std::string& name, const std::string& second,
                    const std::string& phone) {
        ward.execute("insert into SmsPatients (pno, Fullname, Fullname2, PhoneNo) values ('"_sql + pno + "', '" + name +
                         "', '" + second + "', '" + phone + "')",
                     "SmsCenter");
    }
    void queue(const std::string& pno, const std::string& category, db::DateTime day, const std::string& phone = "0900",
               const std::string& clinic = "ANTENATAL") {
        core::QueueMessage(ward.place, pno, "C7", category, clinic, day, {}, phone, "");
    }
    std::string rows() {
        return ward.dump(
            "select sendDate, sendTime, Phone, isSent, Remarks, Remarks2, Catname, fullName, Code, Message from MessageOut order by SNo"_sql,
            "SmsCenter");
    }
    Ward ward;
    db::DateTime today = db::DateTime::of(2026, 11, 24);
};

TEST_F(Outbox, AnAppointmentMoreThanADayAheadGetsItsReminderFirst) {
    queue("P1", appt, today.plusDays(6));
    const std::string common =
        "|11:59 PM|2348031234567|False|APPOINTMENT|ANTENATAL|APPT|Mrs A|C7|General Hospital\r\n"
        "Dear Mrs A You have Antenatal Clinic APPOINTMENT\r\nDate: 30-Nov-2026\r\nTime: Between 10am - 3pm\r\n"
        "Response: 0803\n";
    EXPECT_EQ(rows(), "29-Nov-2026" + common + "24-Nov-2026" + common);
    EXPECT_EQ(ward.statements().front(), "select Designation FROM  vwClinicTypesForSMS where ClinicName='ANTENATAL'");
    EXPECT_EQ(ward.statements()[1],
              "select top 1 SNoCat,Fullname,Fullname2,Details,Details2,Remarks, PhoneNo as Recipient FROM  "
              "vwFullnamePatAppt where pno='P1' and Category = 'APPT'");
}

TEST_F(Outbox, FormsOfTheText) {
    addPatient("P2", "Baby B", "Mother of B", "2348031234567");
    ward.execute("update SmsCategories set Details='Welcome.' where Category='ATTEND'"_sql, "SmsCenter");
    struct Case {
        const char* name;
        const char *pno, *category;
        std::int64_t days;
        const char* clinic;
        std::string row;
    };
    const std::string at = "24-Nov-2026|11:59 PM|";
    const std::vector<Case> cases{
        {"second name, tomorrow", "P2", appt, 1, "EYE",
         at + "2348031234567|False|APPOINTMENT|EYE|APPT|Baby B|C7|General Hospital\r\nMother of B You have an "
              "APPOINTMENT with the Eye\r\nDate: 25-Nov-2026\r\nTime: Between 10am - 3pm\r\nResponse: 0803\n"},
        {"attendance", "P1", "ATTEND", 0, "EYE",
         at + "2348031234567|False|ATTENDANCE|EYE|ATTEND|Mrs A|C7|General Hospital\r\nDear Mrs A Welcome.\n"},
        {"no template", "P9", "ATTEND", 0, "EYE", at + "0900|False||EYE|ATTEND||C7|\n"},
        {"client", "P1", "CLIENT", 9, "EYE", at + "0900|False||EYE|CLIENT||C7|\n"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        ward.execute("delete from MessageOut"_sql, "SmsCenter");
        queue(one.pno, one.category, today.plusDays(one.days), "0900", one.clinic);
        EXPECT_EQ(rows(), one.row);
    }
}

TEST_F(Outbox, Numbers) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"08031234567", "2348031234567"}, {"2348031234567", "2348031234567"}, {"0803123456", "0803123456"}, {"", ""},
        {"é1234567890", "2341234567890"},
    };
    for (const auto& [phone, stored] : cases) {
        ward.execute("delete from MessageOut"_sql, "SmsCenter");
        queue("P9", "CLIENT", today, phone);
        EXPECT_EQ(ward.value("select Phone from MessageOut"_sql, "SmsCenter").textOr(), stored);
    }
}

TEST_F(Outbox, AFailedWriteLosesTheWholeMessageAndSaysSo) {
    for (int write = 1; write <= 2; ++write) {
        ward.failWrite(write);
        ward.expectMessage("Injected failure");
        queue("P1", appt, today.plusDays(6));
        EXPECT_EQ(rows(), "");
    }
}

TEST_F(Outbox, ABrokenMessageCenterOnlyShowsItsError) {
    ward.failStatement("vwClinicTypesForSMS");
    ward.expectMessage("Injected failure");
    queue("P1", appt, today);
    EXPECT_EQ(rows(), "");
}

}  // namespace
