#include "tests/shell/smallscreen.h"

using namespace db::literals;

namespace test {
namespace {

void arrangePatients(TestHospital& hospital) {
    hospital.execute("delete from hWards"_sql);
    hospital.execute("insert into hWards (wardID, WardName) values ('ICU', 'ICU'), ('MALE', 'MALE')"_sql);
    hospital.execute("insert into employees (empID, lastname) values ('D1', 'Ojo'), ('D2', 'Audu')"_sql);
    hospital.execute("insert into hPatients (PNo, psurname) values ('P1', 'Obi'), ('P2', 'Bello'), ('P3', 'Eze')"_sql);
    hospital.execute(
        "insert into hRests (rDate, rtime, PNo, wardID, certifiedby, moveDate, Remarks, Reason, Age) values "
        "('20-Nov-2026', '03:20', 'P2', 'CLOSED', 'D2', '21-Nov-2026', 'Relations told', 'Others', 'Adult'), "
        "('22-Nov-2026', '04:00', 'P3', 'ICU', 'D1', null, 'x', 'Child Birth', 'A Day')"_sql);
}

const Entries typed = {{"dtDate", "2026-11-24"},  {"dtTime", "02:15"},     {"cboCat", "MALE"},  {"cboReason", "D1"},
                       {"dtDisch", "2026-11-25"}, {"txtRem", "Peaceful "}, {"cboCause", "Old"}, {"txtAge", "Old Age"}};

class Rests : public SmallScreen {
protected:
    Rests() : SmallScreen("frmRests", &arrangePatients) {}
    std::string rows() {
        return dump("select PNo, rDate, rtime, wardID, certifiedby, moveDate, Remarks, Reason, Age from hRests"_sql);
    }
    const std::string before = rows();
    /// All that a nurse fills in but the patient.
    std::string form() {
        std::string dates;
        for (const char* date : {"dtDate", "dtTime", "dtDisch"}) {
            const auto value = place.desktop.get(name + "." + date)["date"];
            dates += (value.is_null() ? "-" : value.get<std::string>()) + "|";
        }
        return dates + shown({"cboCat", "cboReason", "txtRem", "cboCause", "txtAge"});
    }
};

TEST_F(Rests, ListsAndANewRow) {
    open();
    EXPECT_EQ(sent(), (std::vector<std::string>{"select wardID from hWards", "select pNO from hPatients",
                                                "select empID from employees"}));
    EXPECT_EQ(entries("cboCause"), "Brief Illness|protracted Illness|Child Birth|Infant Mortality|Others|");
    EXPECT_EQ(entries("txtAge"), "Less than a week|A Day|Less than a Month|Less than 2 yrs|Old Age|Adult|");
    EXPECT_EQ(entries("cboVehNo"), "P1|P2|P3|");
    fill(typed);
    set("cboVehNo", "P1");
    EXPECT_TRUE(ran("select * from hRests where pNO ='P1'"));
    hospital.forget();
    save();
    EXPECT_EQ(sent().front(), "select * from hRests");
    EXPECT_EQ(rows(), before + "P1|24-Nov-2026|02:15:00|MALE|D1|25-Nov-2026|Peaceful |Old|Old Age\n");
    EXPECT_EQ(form() + shown({"cboVehNo"}), "-|-|-|||||");
    EXPECT_EQ(hospital.boxes().front().text, "Are you sure to save");
    EXPECT_EQ(hospital.boxes().front().title, "Check before save");
    save();  // no field is checked
    EXPECT_EQ(hospital.value("select count(*) from hRests where PNo='' and rDate is null"_sql), db::Value(1));
}

TEST_F(Rests, APatientWhoHasARowIsCorrectedAndWhatWasTypedStays) {
    set("txtRem", "Relations told twice");
    set("cboVehNo", "P2");
    EXPECT_EQ(form(), "2026-11-20|03:20:00|2026-11-21|CLOSED|D2|Relations told twice|Others|Adult");
    set("cboVehNo", "P3");
    EXPECT_EQ(form(), "2026-11-22|04:00:00|-|ICU|D1|Relations told twice|Child Birth|A Day");
    set("cboVehNo", "P1");
    EXPECT_EQ(form(), "-|-|-|||Relations told twice||") << "nothing of another patient's row stays";
    set("cboVehNo", "P2");
    hospital.forget();
    save();
    EXPECT_EQ(sent().front(), "select * from hRests where pNO ='P2'");
    EXPECT_EQ(rows(),
              "P2|20-Nov-2026|03:20:00|CLOSED|D2|21-Nov-2026|Relations told twice|Others|Adult\n"
              "P3|22-Nov-2026|04:00:00|ICU|D1|null|x|Child Birth|A Day\n");
    set("cboVehNo", "P2");
    fire("cmdCancel");
    EXPECT_EQ(form() + shown({"cboVehNo"}), "-|-|-|||||");
    fill(typed);
    save();
    EXPECT_EQ(hospital.value("select count(*) from hRests"_sql), db::Value(3)) << "Cancel ends the correction";
}

TEST_F(Rests, NothingIsStoredByHalvesOrCut) {
    const auto still = [&](const std::string& patient, const char* why) {
        EXPECT_EQ(rows(), before) << why;
        EXPECT_EQ(shown({"cboVehNo", "txtRem"}), patient + "|Peaceful ") << why;
    };
    for (const char* patient : {"P1", "P2"}) {
        fill(typed);
        set("cboVehNo", patient);
        hospital.failWrite(1);
        save({"Injected failure"});
        still(patient, "a failure");
        hospital.answer("no");
        fire("OKButton");
        still(patient, "no");
    }
    hospital.setTakesMessages(true);
    for (const char* field : {"cboCause", "txtAge"}) {
        set(field, std::string(10'000, 'x'));
        save({});
        EXPECT_EQ(focus(), "frmRests." + std::string(field));
        still("P2", field);
        set(field, "Others");
    }
    hospital.execute("delete from hRests where PNo='P2'"_sql);  // behind her back
    save({});
    EXPECT_EQ(hospital.value("select count(*) from hRests"_sql), db::Value(1));
    EXPECT_EQ(shown({"cboVehNo"}), "P2");
    fire("cmdCancel");
    const std::string hostile = "O'Brien'); drop table hPatients-- \xF0\x9F\xA9\xBA";
    for (const char* field : {"txtRem", "cboCause", "txtAge"}) set(field, hostile);
    save({});
    EXPECT_EQ(dump("select Remarks, Reason, Age from hRests where PNo=''"_sql),
              hostile + "|" + hostile + "|" + hostile + "\n");
}

TEST(RestsInFiles, ALineThatBreaksAtAnyStatementLeavesTheRowsAndTheForm) {
    const HospitalFiles files;
    Ward hospital(files);
    hospital.start();
    shell::provideScreens(hospital.place);
    arrangePatients(hospital);
    hospital.place.desktop.show("frmRests");
    hospital.setTakesMessages(true);
    for (const char* patient : {"P1", "P2"}) {
        const auto broken = hospital.breakTheLineAtEachStatement(
            "frmRests",
            [&] {
                enter(hospital.place, "frmRests", typed);
                hospital.place.desktop.set("frmRests.cboVehNo", patient, false);
            },
            [&] { return hospital.dump("select * from hRests"_sql); });
        EXPECT_GE(broken.size(), 2U) << patient;
    }
}

}  // namespace
}  // namespace test
