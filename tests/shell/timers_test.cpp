#include "core/session/session.h"
#include "tests/shell/mainwindow.h"

using namespace db::literals;

namespace test {
namespace {

class TimersTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        addPatient();
    }
    void lists(bool patients, bool admissions, bool notifications) {
        hospital.execute("delete from hRecords"_sql);
        hospital.execute("delete from hreferal"_sql);
        hospital.execute("delete from hNotify"_sql);
        if (patients)
            hospital.execute("insert into hRecords (recDate, PNo) values ('24-Nov-2026', '000000001/001')"_sql);
        if (admissions)
            hospital.execute(
                "insert into hreferal (refDate, PNo, referto) values ('24-Nov-2026', '000000001/001', "
                "'(IN-PATIENT)')"_sql);
        if (notifications)
            hospital.execute("insert into hNotify (nDate, NotifyDept) values ('24-Nov-2026', 'NURSING')"_sql);
    }
    /// Patients, admissions, notifications, anything waiting; the watch; tmrNotify, tmrMDI, tmrSound.
    std::string watch() {
        std::string flags;
        for (const bool flag : {session().gPatientsWaiting, session().gAdmissionsWaiting,
                                session().gNotificationsWaiting, session().gAnythingWaiting, session().gWatchTimersOn,
                                window().tmrNotify.running(), window().tmrMDI.running(), window().tmrSound.running()})
            flags += flag ? '1' : '0';
        return flags.substr(0, 4) + " " + flags.substr(4, 1) + " " + flags.substr(5);
    }
    void addStay(const char* category, const char* limit) {
        hospital.execute(
            "insert into hAdmission (admdate, PNo, clientCat, ExtendAdmissionLimitTo) values ('20-Nov-2026', "
            "'000000001/001', '"_sql +
            std::string(category) + "', '" + std::string(limit) + "')");
    }
};

TEST_F(TimersTest, TheLastListDecidesWhetherAnythingFlashes) {
    struct Case {
        bool patients, admissions, notifications;
        const char* watch;
    };
    const Case cases[] = {
        {false, false, false, "0000 0 000"}, {true, false, false, "1000 1 000"}, {false, true, false, "0000 0 000"},
        {true, true, false, "1000 1 000"},   {false, false, true, "0011 0 101"}, {true, false, true, "1011 1 101"},
        {false, true, true, "0111 0 101"},   {true, true, true, "1111 1 111"},
    };
    for (const auto& [patients, admissions, notifications, expected] : cases) {
        lists(patients, admissions, notifications);
        session().gNotificationsWaiting = false;
        window().tmrMDI.setRunning(true);
        tick("Timer1");
        EXPECT_EQ(watch(), expected) << patients << admissions << notifications;
    }
    lists(false, false, false);
    tick("Timer1");
    EXPECT_EQ(watch(), "0010 0 000") << "nothing clears the flag of the notifications";
}

TEST_F(TimersTest, TheWatchReadsThreeLists) {
    tick("Timer1");
    EXPECT_EQ(hospital.statements(),
              (std::vector<std::string>{
                  "select recDate as Date,hTime as Time,pSurname as Surname,pfirstName as FirstName,Age,ClinicType "
                  "from qryhPatListForNurse where recDate ='24-Nov-2026' and attendedTo=0",
                  "select Date,Time,Patient,Sex,Age,Coyname,Doctor,RoomNo from vwAdmissionWaitList where date "
                  "='24-Nov-2026'",
                  "select SNo, Date, Time, Fullname, Remarks as Drug, AttendedTo, ConsultID FROM  vwhNotify where "
                  "NotifyDept='NURSING' and Date='24-Nov-2026' order by SNo Desc"}));
}

TEST_F(TimersTest, AnErrorEndsTheWatchOfThisTickWithoutABox) {
    for (const char* list : {"qryhPatListForNurse", "vwAdmissionWaitList", "vwhNotify"}) {
        lists(true, true, true);
        tick("Timer1");
        ASSERT_TRUE(window().tmrSound.running());
        failWhere(list);
        tick("Timer1");
        EXPECT_FALSE(window().tmrSound.running()) << list;
        EXPECT_TRUE(window().tmrNotify.running()) << list;
    }
    EXPECT_TRUE(hospital.boxes().empty());
}

TEST_F(TimersTest, ExpiredStaysOfSchemePatientsFlash) {
    struct Case {
        const char* name;
        std::vector<std::pair<const char*, const char*>> stays;
        bool before, after;
    };
    const Case cases[] = {
        {"nobody", {}, true, true},
        {"a scheme patient", {{"NHIS", "24-Nov-2026 09:00"}}, false, true},
        {"the very moment", {{"PHIS", "24-Nov-2026 09:30"}}, false, true},
        {"a later limit", {{"HMO", "24-Nov-2026 10:00"}}, false, false},
        {"a private patient, off", {{"PRIVATE", "20-Nov-2026"}}, false, false},
        {"a private patient, on", {{"PRIVATE", "20-Nov-2026"}}, true, true},
        {"a category in other letters", {{"nhis", "20-Nov-2026"}}, true, false},
        {"the first of its kind", {{"nhis", "20-Nov-2026"}, {"HMO", "20-Nov-2026"}}, false, true},
    };
    for (const auto& each : cases) {
        hospital.execute("delete from hAdmission"_sql);
        for (const auto& [category, limit] : each.stays) addStay(category, limit);
        window().tmrExpired.setRunning(each.before);
        tick("Timer2");
        EXPECT_EQ(window().tmrExpired.running(), each.after) << each.name;
    }
    hospital.execute("delete from hAdmission"_sql);
    hospital.execute("insert into hAdmission (PNo, clientCat) values ('000000001/001', 'HMO')"_sql);
    tick("Timer2");
    EXPECT_TRUE(window().tmrExpired.running()) << "a stay without a limit has expired";
}

TEST_F(TimersTest, TheClockFollowsTheServerAndKeepsItsDisplayWhenThereIsNone) {
    struct Case {
        db::DateTime server;
        const char* shows;
    };
    const Case cases[] = {
        {db::DateTime::of(2026, 11, 24, 23, 59, 59), "24-Nov-2026 23:59"},
        {db::DateTime::of(1900, 6, 1, 8, 0), "24-Nov-2026 23:59"},
        {db::DateTime(), "24-Nov-2026 23:59"},
        {db::DateTime::of(2026, 11, 25, 0, 0, 30), "25-Nov-2026 00:00"},
    };
    for (const auto& [server, shows] : cases) {
        hospital.sources.clock().stopAt(server);
        tick("Timer3");
        EXPECT_EQ(session().gServerNow, server);
        EXPECT_EQ(window().lblDate.text() + " " + window().lblTime.text(), shows);
        EXPECT_EQ(session().gServerDate.shortDate() + " " + session().gServerTime.shortTime(), shows);
    }
}

TEST_F(TimersTest, ErrorsOfTheOtherTimersShowTheirDescription) {
    failWhere("select");
    for (const char* timer : {"Timer2", "Timer3"}) {
        hospital.expectMessage("Injected failure");
        tick(timer);
        EXPECT_TRUE(dynamic_cast<ui::Timer&>(*window().find(timer)).running()) << timer;
    }
    EXPECT_EQ(window().lblTime.text(), "09:30");
}

TEST_F(TimersTest, FlashesAlternateFromTheirFirstColour) {
    for (auto* timer : {&window().tmrExpired, &window().tmrNotify, &window().tmrMDI}) timer->setRunning(true);
    session().gPatientsWaiting = true;
    const auto flash = [&](const char* timer, const auto& widget) {
        std::vector<int> colours;
        for (int i = 0; i < 3; ++i) {
            tick(timer);
            colours.push_back(widget.backColor());
        }
        return colours;
    };
    EXPECT_EQ(flash("tmrExpired", window().cmdExpired), (std::vector<int>{0xFF0000, 0x00FFFF, 0xFF0000}));
    EXPECT_EQ(flash("tmrNotify", window().cmdNotify), (std::vector<int>{0x8080FF, 0xFF0000, 0x8080FF}));
    EXPECT_EQ(flash("tmrMDI", window().Picture1), (std::vector<int>{0x8080FF, 0xFF0000, 0x8080FF}));
    EXPECT_FALSE(session().gPatientsWaiting);
}

TEST_F(TimersTest, TheRingSoundsEverySecondTick) {
    window().tmrSound.setRunning(true);
    const auto rings = [&](int ticks) {
        hospital.forget();
        for (int i = 0; i < ticks; ++i) tick("tmrSound");
        return events("sound").size();
    };
    EXPECT_EQ(rings(4), 0U) << "there is no file to play";
    hospital.program.write("ring1.wav", "RIFF");
    EXPECT_EQ(rings(1), 0U);
    EXPECT_EQ(rings(1), 1U);
    EXPECT_EQ(rings(5), 2U);
    window().tmrSound.setRunning(false);
    EXPECT_EQ(rings(2), 0U);
}

/// A hospital that signs out who does nothing for three minutes.
class IdleTest : public MainWindowTest {
protected:
    void SetUp() override {
        place.settings.idleMinutes = 3;
        MainWindowTest::SetUp();
    }
    void idleFor(std::chrono::seconds time) { place.desktop.noteActivity(ui::EventLoop::Clock::now() - time); }
    std::string activity() { return hospital.dump("select islogout, AutoLogoff, LogoutTime from UserActivities"_sql); }
};

TEST_F(IdleTest, ANurseWhoDoesNothingIsWarnedOnceAndThenSignedOut) {
    ASSERT_TRUE(window().tmrIdle.running());
    idleFor(std::chrono::seconds(110));
    tick("tmrIdle");
    const char* const warning =
        "Nothing was done here for a while. In a minute you will be signed out; press OK to stay.";
    hospital.expectMessage(warning);
    idleFor(std::chrono::seconds(125));
    tick("tmrIdle");
    tick("tmrIdle");
    idleFor(std::chrono::seconds(0));  // she pressed OK
    tick("tmrIdle");
    hospital.expectMessage(warning);
    idleFor(std::chrono::seconds(125));
    tick("tmrIdle");
    EXPECT_EQ(activity(), "False|False|null\n");
    idleFor(std::chrono::seconds(181));
    std::string reason;
    try {
        tick("tmrIdle");
    } catch (const ui::SessionEnded& ended) {
        reason = ended.reason;
    }
    EXPECT_EQ(reason, "You were signed out because nothing was done here for a while.");
    EXPECT_EQ(activity(), "True|True|09:30:00\n");
}

TEST_F(IdleTest, AnUnreadBoxAndAnOpenQuestionKeepNobodySignedIn) {
    place.desktop.setAcknowledges(false);
    hospital.expectMessage("Still open");
    place.desktop.message("Still open");
    idleFor(std::chrono::seconds(181));
    EXPECT_TRUE(hospital.ends([&] { tick("tmrIdle"); }));
    EXPECT_EQ(activity(), "True|True|09:30:00\n");
}

}  // namespace
}  // namespace test
