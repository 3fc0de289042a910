// What the shared routines leave behind when a text is hostile, a write fails, or their caller is in the middle of a
// save.

#include "core/audit/activities.h"
#include "core/audit/audit.h"
#include "core/numbers/numbers.h"
#include "core/patients/outbox.h"
#include "core/patients/patient.h"
#include "core/session/loadsession.h"
#include "core/session/session.h"
#include "core/session/trap.h"
#include "tests/core/stubs.h"

namespace {

using namespace db::literals;
using test::Ward;

using Routine = std::function<void(Ward&, const std::string&)>;
struct Named {
    const char* name;
    Routine run;
};

/// Every routine that takes a text, with that text in each of its places.
const std::vector<Named>& routines() {
    static const std::vector<Named> all{
        {"AuditTrail", [](Ward& w, const std::string& t) { core::AuditTrail(w.place, t, t, t, t, t); }},
        {"HasVisitToday", [](Ward& w, const std::string& t) { EXPECT_FALSE(core::HasVisitToday(w.place, t)); }},
        {"GetNextIdNo", [](Ward& w, const std::string& t) { core::GetNextIdNo(w.place, t); }},
        {"ShowAncInfo", [](Ward& w, const std::string& t) { core::ShowAncInfo(w.place, t); }},
        {"RefreshDebtInfo",
         [](Ward& w, const std::string& t) { core::trapped(w.place, [&] { core::RefreshDebtInfo(w.place, t); }); }},
        {"QueueMessage",
         [](Ward& w, const std::string& t) {
             for (const auto* category : {"APPT", "ATTEND"})
                 core::QueueMessage(w.place, t, t, category, t, w.place.session.gServerDate, {}, t, t);
         }},
        {"QueueMessage, category",
         [](Ward& w, const std::string& t) { core::QueueMessage(w.place, "P", "C", t, "", {}, {}, "", ""); }},
        {"OpenUserActivity", [](Ward& w, const std::string& t) { core::OpenUserActivity(w.place, false, false, t); }},
        {"WriteLoginTrail",
         [](Ward& w, const std::string& t) { core::WriteLoginTrailFailure(w.place.hospital(), t, {}); }},
        {"LoadSession, user",
         [](Ward& w, const std::string& t) {
             w.program.write("sysdoc.sys", t);
             w.ends([&] { core::LoadSession(w.place); });
         }},
    };
    return all;
}

std::string patients(Ward& ward) {
    return ward.dump("select PNo, psurname, isRev, Debt from hPatients order by PNo"_sql) +
           ward.dump("select destNAme, id from idgen"_sql) + ward.dump("select Username from Users"_sql) +
           ward.dump("select ID, idval from AppDefaults"_sql);
}

TEST(Hostile, TextsStayTexts) {
    const std::vector<std::string> texts{
        "'",
        "''",
        "x' or '1'='1",
        "x'; delete from hPatients; --",
        "x'; drop table hPatients",
        "x' union select psurname from hPatients --",
        "x -- comment",
        "/* x",
        "; delete from hPatients",
        "\u2019 or 1=1",
        "\u02bc\uff07",
        "%",
        "x\\",
        std::string("P1\0' or 1=1", 11),
    };
    for (const auto& routine : routines())
        for (const auto& text : texts) {
            SCOPED_TRACE(std::string(routine.name) + ": " + text);
            Ward ward;
            ward.start();
            ward.execute("insert into hPatients (PNo, psurname, ANCInfo) values ('P1', 'Okoro', 'seen')"_sql);
            const auto before = patients(ward);
            ward.place.desktop.setBeforeBox({});  // it may complain, as the server would
            routine.run(ward, text);
            EXPECT_EQ(patients(ward), before);
        }
}

TEST(Faults, AWriteThatFailsLeavesNothingAndSaysSo) {
    const Routine open = [](Ward& w, const std::string&) { core::OpenUserActivity(w.place, false, false, "N"); };
    const Routine close = [](Ward& w, const std::string&) { core::CloseUserActivity(w.place, true, false, "N"); };
    const Routine number = [](Ward& w, const std::string&) { core::GetNextIdNo(w.place, "PATIENT2"); };
    const Routine audit = [](Ward& w, const std::string&) { core::AuditTrail(w.place, "a", "b", "c", "d", "e"); };
    for (const auto& [name, run] : {Named{"open", open}, {"close", close}, {"number", number}, {"audit", audit}}) {
        SCOPED_TRACE(name);
        Ward ward;
        ward.start();
        if (std::string(name) == "close") core::OpenUserActivity(ward.place, false, false, "N");
        ward.place.session.gNextId = "kept";
        const auto rows = [&] {
            return ward.dump("select * from UserActivities"_sql) + ward.dump("select * from hAuditTrail"_sql) +
                   ward.dump("select id from idgen"_sql);
        };
        const auto before = rows();
        const auto number0 = ward.place.session.gActivitySNo;
        ward.failWrite(1);
        ward.expectMessage("Injected failure");
        run(ward, "");
        EXPECT_EQ(rows(), before);
        EXPECT_EQ(ward.place.session.gActivitySNo, number0);
        EXPECT_EQ(ward.place.session.gNextId, "kept");
    }
}

TEST(Faults, ARoutineThatFailsInsideASaveLeavesTheSaveWholeAndItsBoxUntilNobodyWaits) {
    Ward ward;
    ward.start();
    ward.expectMessage("Injected failure");
    EXPECT_TRUE(core::trapped(ward.place, [&] {
        auto& hospital = ward.place.hospital();
        db::Transaction save(hospital);
        hospital.execute("insert into hPatients (PNo, psurname) values ('P1', 'Okoro')"_sql);
        ward.failWrite(1);
        core::AuditTrail(ward.place, "a", "b", "c", "d", "e");
        EXPECT_TRUE(ward.boxes().empty());
        hospital.execute("update hPatients set psurname='Ade' where PNo='P1'"_sql);
        save.commit();
    }));
    EXPECT_EQ(ward.dump("select psurname from hPatients"_sql), "Ade\n");
    EXPECT_EQ(ward.dump("select * from hAuditTrail"_sql), "");
}

TEST(Faults, ATrapRollsBackWhatWasLeftOpenBeforeItsBox) {
    Ward ward;
    ward.start();
    ward.expectMessage("Injected failure");
    EXPECT_FALSE(core::trapped(ward.place, [&] {
        ward.place.hospital().beginTrans();
        ward.place.hospital().execute("insert into hPatients (PNo, psurname) values ('P1', 'Okoro')"_sql);
        ward.failWrite(1);
        ward.place.hospital().execute("update hPatients set psurname='Ade' where PNo='P1'"_sql);
    }));
    EXPECT_EQ(ward.dump("select * from hPatients"_sql), "");
}

TEST(Faults, ATrapLetsTheEndOfTheSessionPass) {
    Ward ward;
    EXPECT_TRUE(ward.ends([&] { core::trapped(ward.place, [&] { ward.place.endProcess("over"); }); }));
}

}  // namespace
