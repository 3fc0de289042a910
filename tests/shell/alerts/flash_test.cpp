#include "tests/shell/smallscreen.h"

using namespace db::literals;

namespace test {
namespace {

/// Ada waits for her vital signs since the server's day began, Musa for a bed since the workstation's did.
void arrangeLists(TestHospital& hospital) {
    hospital.workstationClock = db::DateTime::of(2026, 11, 25, 0, 5);
    hospital.execute(
        "insert into hPatients (PNo, psurname, pfirstName, DOB, sex, CoyName) values ('P1', 'Obi', 'Ada', "
        "'1990-01-01', 'FEMALE', '0001'), ('P2', 'Bello', 'Musa', '1990-01-01', 'MALE', '0001')"_sql);
    hospital.execute("insert into hRecords (recDate, PNo) values ('24-Nov-2026', 'P1')"_sql);
    hospital.execute(
        "insert into hreferal (refDate, PNo, referto) values ('24-Nov-2026', 'P1', '(IN-PATIENT)'), ('25-Nov-2026', "
        "'P2', '(IN-PATIENT)')"_sql);
    hospital.execute(
        "insert into hNotify (nDate, NotifyDept, Remarks, PNo) values ('24-Nov-2026', 'NURSING', 'IV fluids', 'P1'), "
        "('24-Nov-2026', 'NURSING', 'Artesunate', 'P1'), ('24-Nov-2026', 'BILLING', 'Deposit', 'P1')"_sql);
}

class Flash : public SmallScreen {
protected:
    Flash() : SmallScreen("frmFlash", &arrangeLists) {}
};

TEST_F(Flash, EachCommandReadsItsListByItsOwnClock) {
    EXPECT_FALSE(is("dGexp", "visible")) << "an empty list would say that nobody waits";
    struct Case {
        const char* command;
        const char* statement;
        const char* title;
        const char* column;
        const char* rows;
    };
    const Case cases[] = {
        {"cmdDoc",
         "select recDate as Date,hTime as Time,pSurname as Surname,pfirstName as FirstName,Age,ClinicType from "
         "qryhPatListForNurse where recDate ='24-Nov-2026' and attendedTo=0",
         "Nursing Waiting List", "Surname", "Obi\n"},
        {"cmdCPC",
         "select Date,Time,Patient,Sex,Age,Coyname,Doctor,RoomNo from vwAdmissionWaitList where date ='25-Nov-2026'",
         "Nursing Waiting List", "Patient", "Bello Musa\n"},
        {"cmdExam",
         "select SNo, Date, Time, Fullname, Remarks as Drug, AttendedTo, ConsultID FROM  vwhNotify where "
         "NotifyDept='NURSING' and Date='24-Nov-2026' order by SNo Desc",
         "New Drugs for Admitted Patients", "Drug", "Artesunate\nIV fluids\n"},
    };
    for (const auto& [command, statement, title, column, rows] : cases) {
        hospital.forget();
        fire(command);
        EXPECT_EQ(sent(), std::vector<std::string>{statement});
        EXPECT_EQ(shown({"lblShow"}), title);
        EXPECT_EQ(list({column}), rows);
        EXPECT_EQ(faultsOfLayout(*place.desktop.loaded(name)), std::vector<std::string>{}) << command;
    }
    hospital.execute("delete from hNotify"_sql);
    fire("cmdExam");
    EXPECT_EQ(shown({"lblShow"}), "---");
    EXPECT_EQ(place.desktop.get("frmFlash.dGexp")["columns"].size(), 0U);
}

TEST_F(Flash, AListChosenAgainKeepsItsPlaceAndAFailureLeavesWhatShows) {
    fire("cmdExam");
    set("dGexp", {{"row", 1}});
    hospital.execute("insert into hNotify (nDate, NotifyDept, Remarks) values ('24-Nov-2026', 'NURSING', 'New')"_sql);
    fire("cmdExam");
    EXPECT_EQ(row(), 2);
    hospital.failStatement("qryhPatListForNurse");
    fire("cmdDoc", {"Injected failure"});
    EXPECT_EQ(list({"Drug"}), "New\nArtesunate\nIV fluids\n");
    EXPECT_EQ(shown({"lblShow"}), "New Drugs for Admitted Patients");
    fire("CancelButton");
    EXPECT_FALSE(isOpen());
}

}  // namespace
}  // namespace test
