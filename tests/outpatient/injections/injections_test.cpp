#include <algorithm>

#include "core/session/session.h"
#include "outpatient/screens.h"
#include "outpatient/shared/openitems.h"
#include "tests/contract/plainscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

/// Ada (HMO) has two injections and a dressing to be given, Musa (private) an injection whose name has an apostrophe.
void arrangeOpenItems(TestHospital& hospital) {
    hospital.execute("update AppDefaults set idval='FFS' where ID='MADESYSRESULT'"_sql);
    hospital.execute("insert into employees (empID, lastname, firstname) values ('E001', 'Joy', 'Nurse')"_sql);
    addConsulted(hospital, {"P1", "Obi", "Ada", "C1", "HMO"});
    addConsulted(hospital, {"P2", "Bello", "Musa", "C2", "PRIVATE"});
    hospital.execute(
        "insert into hInjAndDressing (conID, consultID, PNo, injdate, numOfTimes, numtaken, injname, dosage, "
        "clientCat, "
        "drgCatName) values (1, 'C1', 'P1', '24-Nov-2026', 3, 1, 'ARTESUNATE', '60MG IM', 'HMO', 'INJECTIONS'), "
        "(1, 'C1', 'P1', '24-Nov-2026', 2, 0, 'VITAMIN K', '1MG', 'HMO', 'INJECTIONS'), "
        "(1, 'C1', 'P1', '24-Nov-2026', 4, 0, 'WOUND DRESSING', 'DAILY', 'HMO', 'DRESSING'), "
        "(2, 'C2', 'P2', '24-Nov-2026', 1, 0, 'DOCTOR''S MIX', 'STAT', 'PRIVATE', 'DRESSING')"_sql);
    hospital.execute("delete from drugs where drgName='INJECTION_FEE'"_sql);
    hospital.execute(
        "insert into drugs (drgName, Cost, Remarks) values ('INJECTION_FEE', 500, 'PRIVATE'), "
        "('DOCTOR''S MIX', 333.33, 'PRIVATE')"_sql);
    hospital.execute("delete from billingPrice where clientcatID in ('HMO', 'PRIVATE')"_sql);
    hospital.execute("insert into billingPrice (clientcatID, pvalue) values ('HMO', 0.25)"_sql);
}
constexpr const char* musaToBeGiven = "Bello Musa @24-Nov-2026 [2]";
constexpr const char* adaToBeGiven = "Obi Ada @24-Nov-2026 [1]";

class Injection : public PlainScreen {
protected:
    Injection() : PlainScreen("frmNurseInjection", &outpatient::provideScreens, &arrangeOpenItems) {}
    static std::string box(int dose) { return "chk(" + std::to_string(dose) + ")"; }
    std::string doses() {
        std::string all;
        for (int dose = 0; dose < 24 && is(box(dose), "visible"); ++dose)
            all += is(box(dose), "enabled") ? (is(box(dose), "checked") ? "n" : ".") : "g";
        return all;
    }
    void pick(const char* patient, int item) {
        set("cboVehNo", patient);
        set("LstDate", {{"row", item}});
    }
    void charted() { fire("OKButton", {"Record Succesfully saved"}); }
    std::string chart() {
        return dump(
            "select injname, numOfTimes, numtaken, injTime, attendedto from hInjAndDressing where consultID='C1' "
            "order by ID"_sql);
    }
    std::string written() {
        return dump("select dtDate, PNo, injname, injBy, injTime, consultID from hinjections order by SNo"_sql) + "/" +
               dump(
                   "select dtDate, drgName, Price, Qty, SubTotal, PNo, consultID, billType from billAccum order by "
                   "SNo"_sql);
    }
    static constexpr const char* before = "ARTESUNATE|3|1|null|0\nVITAMIN K|2|0|null|0\nWOUND DRESSING|4|0|null|0\n";
};

TEST_F(Injection, ThoseWhoWaitAreWorkedOneAfterTheOther) {
    EXPECT_EQ(entries("cboVehNo"), std::string(musaToBeGiven) + "|" + adaToBeGiven + "|");
    EXPECT_EQ(entries("lstWaiting"), entries("cboVehNo"));
    fire("cmdNext");
    EXPECT_EQ(shown({"lblPatient", "lblNo", "lblCon", "lblClient", "lblCoy", "txtDosage"}).substr(0, 26),
              "Bello Musa|P2|C2|PRIVATE||");
    EXPECT_EQ(place.desktop.get(name + ".lstWaiting")["index"], 0);
    fire("cmdNext");
    EXPECT_EQ(shown({"lblPatient"}), "Obi Ada");
    EXPECT_EQ(entries("LstDate"), "ARTESUNATE|VITAMIN K|WOUND DRESSING|");
    fire("cmdNext", {"This is the last one who waits"});
    set("lstWaiting", {{"row", 0}});
    EXPECT_EQ(shown({"cboVehNo", "lblPatient"}), std::string(musaToBeGiven) + "|Bello Musa");
    set("LstDate", {{"row", 0}});  // its name has an apostrophe
    set(box(0), true);
    dynamic_cast<outpatient::OpenItems&>(*place.desktop.loaded(name)).refreshPatients();
    EXPECT_EQ(shown({"cboVehNo", "lblPatient", "lblTaken"}) + doses(), std::string(musaToBeGiven) + "|Bello Musa|1n");
    set(box(0), false);
    EXPECT_EQ(shown({"lblName", "lblUsage", "txtNum", "lblTaken"}), "DOCTOR'S MIX|STAT|1|0");
    EXPECT_TRUE(
        ran("select injname,numOfTimes,numTaken,dosage from qryhConsultingPatientsForInjection where "
            "injname='DOCTOR''S MIX' and pno='P2 ' and consultID='C2'"));
    hospital.execute("delete from hInjAndDressing"_sql);
    dynamic_cast<outpatient::OpenItems&>(*place.desktop.loaded(name)).refreshPatients();
    EXPECT_EQ(entries("lstWaiting") + shown({"lblPatient", "lblName"}), "|");
    fire("cmdNext", {"Nobody waits"});
    sent();
}

TEST_F(Injection, ADoseIsCountedStoredChargedAndToldOf) {
    stopsInOrder({{"Please select a patient no", "cboVehNo", adaToBeGiven},
                  {"Please select an Injection in the list provided", "LstDate", {{"row", 1}}},
                  {"Please tick to indicate that Medication has been given",
                   "LstDate",
                   {},
                   {{"chk(0)", true}, {"dtDate", nullptr}}},
                  {"Please specify Date", "dtDate", "2026-11-23", {{"dtTime", nullptr}}},
                  {"Please specify Time", "dtTime", "08:05:00"}});
    EXPECT_EQ(shown({"lblTaken", "lblCNum"}) + doses(), "1|1n.");
    charted();
    EXPECT_EQ(chart(), "ARTESUNATE|3|1|null|0\nVITAMIN K|2|1|08:05:00|0\nWOUND DRESSING|4|0|null|0\n");
    EXPECT_EQ(written(),
              "23-Nov-2026|P1|VITAMIN K|E001|08:05:00|C1\n/"
              "24-Nov-2026|INJECTION_FEE|625|1|625|P1|C1|" +
                  session().gBillType + "\n");
    EXPECT_EQ(dump("select userAction, TranCode, Remarks from hAuditTrail"_sql),
              "Insert OPD MED MONITOR: C1|C1|By Nurse\n");
    EXPECT_EQ(list({"Injection", "Nurse"}, "grdData"), "VITAMIN K|Joy Nurse\n");
    EXPECT_EQ(shown({"lblTaken", "lblCNum"}) + doses(), "1|0g.");
    charted();  // a saved count can be saved again
    EXPECT_EQ(hospital.value("select count(*) from hinjections"_sql), db::Value(2));
    EXPECT_EQ(hospital.value("select numtaken from hInjAndDressing where ID=2"_sql), db::Value(1));
    sent();
}

TEST_F(Injection, TheLastDoseTakesTheItemOffAndTheLastItemThePatient) {
    pick(adaToBeGiven, 0);
    EXPECT_EQ(doses(), "g..");
    for (const int dose : {1, 2}) set(box(dose), true);
    charted();
    EXPECT_EQ(chart(), "ARTESUNATE|3|3|09:30:00|1\nVITAMIN K|2|0|null|0\nWOUND DRESSING|4|0|null|0\n");
    EXPECT_EQ(entries("LstDate") + shown({"lblName"}) + doses(), "VITAMIN K|WOUND DRESSING|");
    pick(musaToBeGiven, 0);
    set(box(0), true);
    charted();
    EXPECT_EQ(dump("select injname, attendedto from hInjAndDressing where consultID='C2'"_sql), "DOCTOR'S MIX|1\n");
    EXPECT_EQ(hospital.value("select injname from hinjections where PNo='P2'"_sql), db::Value("DOCTOR'S MIX"));
    EXPECT_EQ(entries("cboVehNo") + shown({"lblPatient"}), std::string(adaToBeGiven) + "|");
    // Without a surcharge for the category the fee is its cost; the caller of the consultation charges none.
    EXPECT_EQ(dump("select Price from billAccum order by SNo"_sql), "625\n500\n");
    session().gInjCaller = "CONSULTING";
    hospital.execute("delete from drugs"_sql);
    pick(adaToBeGiven, 0);
    set(box(0), true);
    charted();
    EXPECT_EQ(hospital.value("select count(*) from billAccum"_sql), db::Value(2));
    session().gInjCaller.clear();
    charted();
    EXPECT_EQ(dump("select top 1 Price from billAccum order by SNo desc"_sql), "0\n") << "a fee that nobody has priced";
}

TEST_F(Injection, TwoNursesAtOneItem) {
    pick(adaToBeGiven, 0);
    set(box(1), true);
    hospital.execute("update hInjAndDressing set numtaken=3, attendedto=1 where ID=1"_sql);
    const auto* const left = "This item has left the chart meanwhile: it was given in full";
    fire("OKButton", {"Record Succesfully saved", left});  // the later figure stands, the act is kept
    EXPECT_EQ(dump("select numtaken from hInjAndDressing where ID=1"_sql), "2\n");
    hospital.execute("update hInjAndDressing set attendedto=1 where ID=2"_sql);
    set("cboVehNo", adaToBeGiven);
    hospital.execute("update hInjAndDressing set attendedto=1 where ID=3"_sql);
    set("LstDate", {{"row", 0}}, {left});
}

TEST_F(Injection, TheTotalIsAFigure) {
    fire("cmdUpd", {"empty Item Name not allowed"});
    pick(adaToBeGiven, 0);
    for (const auto* wrong : {"", " ", "x", "1;2"}) {
        set("txtNum", wrong);
        fire("cmdUpd", {"Please specify Numeric figure"});
    }
    set("txtNum", "1e12");
    fire("cmdUpd", {"Overflow"});
    EXPECT_EQ(chart(), before);
    set("txtNum", "5");
    fire("cmdUpd", {"Update Successful"});
    EXPECT_EQ(doses(), "g....");
    fire("cmdPresc");
    EXPECT_EQ(shown({"txtDosage"}).substr(0, 8), "Clinic: ");
    // Any figure is one: more doses than there are boxes, or fewer than were given.
    for (const auto& [total, boxes] : std::initializer_list<std::pair<const char*, std::string>>{
             {"1e9", "g" + std::string(23, '.')}, {"-5", "g"}, {"-2147483648", "g"}}) {
        set("txtNum", total);
        fire("cmdUpd", {"Update Successful"});
        EXPECT_EQ(doses(), boxes) << total;
        EXPECT_EQ(hospital.value("select numOfTimes from hInjAndDressing where ID=1"_sql).number(),
                  db::Value(total).number());
    }
    sent();
}

TEST_F(Injection, TheListIsReadWhenTheScreenComesBackButNotFromUnderAPatient) {
    const auto comesBack = [&](const db::Sql& change) {
        hospital.execute(change);
        place.desktop.show(name);
    };
    comesBack("update hInjAndDressing set attendedto=1 where consultID='C2'"_sql);
    EXPECT_EQ(entries("lstWaiting"), std::string(adaToBeGiven) + "|");
    pick(adaToBeGiven, 0);
    set(box(1), true);
    comesBack("update hInjAndDressing set attendedto=0"_sql);
    EXPECT_EQ(entries("lstWaiting"), std::string(adaToBeGiven) + "|");
    EXPECT_EQ(shown({"lblPatient", "lblTaken"}) + doses(), "Obi Ada|2gn.");
    sent();
}

TEST_F(Injection, ANameWithBracketsAndQuotesIsNoStatement) {
    hospital.execute("update hPatients set psurname='X [2'' or ''1''=''1' where PNo='P1'"_sql);
    fire("cmdAdd");
    hospital.setTakesMessages(true);
    set("cboVehNo", "X [2' or '1'='1 Ada @24-Nov-2026 [1]");
    EXPECT_EQ(entries("LstDate") + shown({"lblNo", "lblCon", "lblName"}), "||");
    fire("OKButton");
    EXPECT_EQ(chart() + written(), std::string(before) + "/");
}

TEST_F(Injection, AFailedWriteLeavesRowsAndTicks) {
    pick(adaToBeGiven, 0);
    for (const int dose : {1, 2}) set(box(dose), true);
    for (int write = 1; write <= 3; ++write) {  // the chart, the dose, the fee
        hospital.failWrite(write);
        fire("OKButton", {"Injected failure"});
        EXPECT_EQ(chart() + written(), std::string(before) + "/");
        EXPECT_EQ(shown({"lblTaken", "lblCNum"}) + doses(), "3|2gnn");
    }
    charted();
}

class Dressing : public PlainScreen {
protected:
    Dressing() : PlainScreen("frmNurseDressing", &outpatient::provideScreens, &arrangeOpenItems) {}
    std::string written() {
        return dump("select drDate, PNo, drname, dressedBy, consultID, clientCat from hdressings order by SNo"_sql) +
               "/" + dump("select drgName, Price, Qty, SubTotal, PNo, consultID from billAccum order by SNo"_sql);
    }
    std::string open() { return dump("select injname from hInjAndDressing where attendedto=0 order by ID"_sql); }
};

TEST_F(Dressing, IsRecordedChargedByItsNameAndClosedAtTheNursesWord) {
    EXPECT_EQ(entries("cboVehNo"), "Bello Musa [C2]|Obi Ada [C1]|");
    stopsInOrder({{"Please select a patient no", "cboVehNo", "Bello Musa [C2]"},
                  {"Please select Dressing type in the list provided", "LstDate", {{"row", 0}}}});
    EXPECT_EQ(shown({"lblPatient", "lblNo", "lblClient", "lblName"}), "Bello Musa|P2|PRIVATE|DOCTOR'S MIX");
    const auto all = open();
    hospital.answer("no");
    fire("OKButton", {"Record Succesfully saved"});
    EXPECT_EQ(hospital.boxes().back().text, " Is this the last Dressing for the Patient ?");
    EXPECT_EQ(hospital.boxes().back().title, "Dressing");
    EXPECT_EQ(written(), "24-Nov-2026|P2|DOCTOR'S MIX|E001|C2|PRIVATE\n/DOCTOR'S MIX|333.33|1|333.33|P2|C2\n");
    EXPECT_EQ(open(), all);
    EXPECT_EQ(list({"Dressing", "Nurse"}, "grdData"), "DOCTOR'S MIX|Joy Nurse\n");
    hospital.answer("yes");
    fire("OKButton", {"Record Succesfully saved", "Patient Succesfully Attended to"});
    EXPECT_EQ(open(), "ARTESUNATE\nVITAMIN K\nWOUND DRESSING\n");
    EXPECT_EQ(entries("cboVehNo") + shown({"lblPatient", "lblName"}), "Obi Ada [C1]||");
    sent();
}

TEST_F(Dressing, AFailedWriteLeavesTheRowsAndAFailedCloseTheDressing) {
    set("cboVehNo", "Obi Ada [C1]");
    EXPECT_EQ(entries("LstDate"), "ARTESUNATE|VITAMIN K|WOUND DRESSING|");
    set("LstDate", {{"row", 2}});
    const auto all = open();
    for (int write = 1; write <= 2; ++write) {
        hospital.failWrite(write);
        fire("OKButton", {"Injected failure"});
        EXPECT_EQ(written(), "/");
        EXPECT_EQ(shown({"lblName"}), "WOUND DRESSING");
    }
    hospital.failWrite(3);
    hospital.answer("yes");
    fire("OKButton", {"Record Succesfully saved", "Injected failure"});
    EXPECT_EQ(open(), all);
    EXPECT_EQ(written(), "24-Nov-2026|P1|WOUND DRESSING|E001|C1|HMO\n/WOUND DRESSING|0|1|0|P1|C1\n");
    hospital.execute("delete from hInjAndDressing where injname='WOUND DRESSING'"_sql);  // by another nurse
    hospital.answer("yes");
    fire("OKButton", {"Record Succesfully saved", "Patient Succesfully Attended to"});
    EXPECT_EQ(entries("LstDate"), "ARTESUNATE|VITAMIN K|");
}

TEST(NurseInFiles, ALineThatBreaksAtAnyStatementOfASaveLeavesTheRowsAndTheForm) {
    struct Save {
        const char* screen;
        Entries entries;
    };
    for (const auto& save :
         {Save{"frmNurseInjection",
               {{"cboVehNo", adaToBeGiven}, {"LstDate", {{"row", 0}}}, {"chk(1)", true}, {"chk(2)", true}}},
          Save{"frmNurseDressing", {{"cboVehNo", "Obi Ada [C1]"}, {"LstDate", {{"row", 2}}}}}}) {
        const HospitalFiles files;
        Ward hospital(files);
        hospital.start();
        outpatient::provideScreens(hospital.place);
        arrangeOpenItems(hospital);
        hospital.place.desktop.show(save.screen);
        hospital.setTakesMessages(true);
        const auto rows = [&] {
            return hospital.dump("select * from hInjAndDressing"_sql) + hospital.dump("select * from hinjections"_sql) +
                   hospital.dump("select * from hdressings"_sql) + hospital.dump("select * from billAccum"_sql) +
                   hospital.dump("select * from hAuditTrail"_sql);
        };
        const auto before = rows();
        enter(hospital.place, save.screen, save.entries);
        const auto form = hospital.place.desktop.get(save.screen);
        int broken = 0;
        for (;; ++broken) {
            hospital.forget();
            hospital.breakLine(broken + 1);
            hospital.answer("no");
            hospital.place.desktop.fire(std::string(save.screen) + ".OKButton", false);
            hospital.forgetAnswers();  // only a stored dressing asks
            if (std::any_of(hospital.boxes().begin(), hospital.boxes().end(),
                            [](const auto& box) { return box.text == "Record Succesfully saved"; }))
                break;
            EXPECT_EQ(rows(), before) << save.screen << " " << broken + 1;
            EXPECT_EQ(nlohmann::json::diff(form, hospital.place.desktop.get(save.screen)), nlohmann::json::array());
        }
        EXPECT_GE(broken, 4) << save.screen;
        EXPECT_NE(rows(), before) << save.screen;
    }
}

}  // namespace
}  // namespace test
