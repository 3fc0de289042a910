#include "tests/outpatient/frmimmune/immune.h"

using namespace db::literals;

namespace test {
namespace {

// -- who waits, and opening a child --

TEST_F(Immune, TheListsFillAtLoadAndShowAllHasEverybodyOfTheHouse) {
    open();
    EXPECT_EQ(entries("cboVehNo"), std::string(adaWaitsForVaccine) + "|" + musaWaitsForVaccine + "|");
    EXPECT_EQ(entries("lstWaiting"), entries("cboVehNo"));
    EXPECT_EQ(entries("cboDrug"), "|BCG|OPV 1|PENTA 1|VITAMIN A|CHILD'S VACCINE|ANTI-D|")
        << "the doubled quote makes one text of two kinds";
    EXPECT_TRUE(
        ran("select distinct drgName from DrugMaster where DrgCatNAme in ('VACCINES','VACCINE''INJECTIONS','DROP',"
            "'ORAL')"));
    EXPECT_EQ(shown({"lblTotal", "txtPrice"}), "0.00|");
    EXPECT_EQ(screen().dtDate.value(), db::DateTime::of(2026, 11, 24));
    EXPECT_FALSE(screen().dtNext.value() || is("fraAppt", "enabled"));
    EXPECT_EQ(screen().dtRefTime.value()->shortTime(), "09:30");
    EXPECT_EQ(hiddenColumns(), "ID EmpID ");
    set("chkAll", true);
    EXPECT_EQ(entries("cboVehNo"), std::string(musaWaitsForVaccine) +
                                       "|Eze Ngozi 24-Nov-2026 @24-Nov-2026 09:00:00 (GENERAL) [C3]|" +
                                       adaWaitsForVaccine + "|");
    EXPECT_EQ(entries("lstWaiting"), entries("cboVehNo"));
    hospital.execute("update hRecords set AttendedToByImmume=1 where consultID='C1'"_sql);
    set("chkAll", false);
    EXPECT_EQ(entries("cboVehNo"), std::string(musaWaitsForVaccine) + "|");
    sent();
}

TEST_F(Immune, APickShowsTheChildAndTheQueueGoesOnByAKey) {
    fire("cmdNext");
    EXPECT_EQ(shown({"cboVehNo"}), adaWaitsForVaccine);
    EXPECT_EQ(screen().waiting.lstWaiting.text(), adaWaitsForVaccine);
    EXPECT_EQ(shown({"lblPatient", "lblNo", "lblBill", "lblClient", "lblCoy", "lblSex", "lblAge", "lblOccup",
                     "lblBlood", "lblGeno", "lblRem"}),
              "Obi Ada|P1|C1|HMO|Axa Mansard|FEMALE|0|INFANT|O+|AA|WELL");
    EXPECT_EQ(shown({"txtVital(0)", "txtVital(1)", "txtVital(2)", "txtVital(3)", "txtVital(4)", "txtVital(5)",
                     "txtVital(6)", "txtVital(7)"}),
              "36.8deg C|80/50mm Hg|130/min|4.6Kg|0.55m|40/min|NIL|+");
    EXPECT_EQ(session().gCommentConsultID + session().gCurPatientName, "C1Obi Ada");
    EXPECT_EQ(list({"ConsultID", "Immunization"}, "grdData"), "C0|BCG,opv 0 \nC00|OPV 0\n");
    EXPECT_EQ(screen().grdData.caption(), "Child Immunization:");
    EXPECT_EQ(entries("cboAge"), "6 weeks|At birth|10 weeks|9 months|9 years|");
    // What is typed belongs to one visit: the same one keeps it, another takes it away.
    enterVisit();
    set("cboVehNo", adaWaitsForVaccine);
    EXPECT_EQ(screen().OrderGrid.lineCount(), 2U);
    EXPECT_EQ(shown({"cboAge", "txtRem"}), "6 weeks|Card stamped");
    fire("cmdNext");
    EXPECT_EQ(shown({"lblPatient", "txtVital(0)", "cboAge", "txtRem", "lblTotal"}), "Bello Musa||||0.00");
    EXPECT_EQ(screen().OrderGrid.lineCount(), 0U);
    fire("cmdNext", {"This is the last one who waits"});
    // A visit that has gone meanwhile shows nobody.
    hospital.execute("delete from hRecords where consultID='C1'"_sql);
    set("lstWaiting", {{"row", 0}});
    EXPECT_EQ(shown({"cboVehNo", "lblPatient", "lblNo", "lblBill"}), std::string(adaWaitsForVaccine) + "|||");
    EXPECT_EQ(screen().grdData.caption(), "Immunization:");
    sent();
}

TEST_F(Immune, ARefusedReadingShowsNobodyAndOnlyTheScheduleMayFail) {
    for (const char* reading : {"qryhPreConsultVitalsOptional", "select DOB"}) {
        set("cboVehNo", musaWaitsForVaccine);
        hospital.failStatement(reading);
        set("cboVehNo", adaWaitsForVaccine, {"Injected failure"});
        EXPECT_EQ(shown({"lblPatient", "lblNo", "lblBill"}), "||") << reading;
    }
    hospital.failStatement("hImmunizationSchedule");
    set("cboVehNo", adaWaitsForVaccine);
    EXPECT_EQ(shown({"lblPatient", "lblDue", "lblSchedule"}), "Obi Ada|The schedule cannot be read|");
}

// -- lines --

TEST_F(Immune, APriceIsOfTheClientsTemplateAlone) {
    struct Case {
        const char* name;
        const char* child;
        const char* vaccine;
        const char* shows;
    };
    set("chkAll", true);
    for (const auto& [what, child, vaccine, shows] : std::initializer_list<Case>{
             {"own template", adaWaitsForVaccine, "OPV 1", "1,000.00|1|Own template"},
             {"kobo", adaWaitsForVaccine, "PENTA 1", "2,000.50|1|Own template"},
             {"an apostrophe", adaWaitsForVaccine, "CHILD'S VACCINE", "1,234.50|1|Own template"},
             {"0 stays 0, whatever the private tariff says", adaWaitsForVaccine, "BCG", "0.00|1|Own template"},
             {"null", adaWaitsForVaccine, "VITAMIN A", "0.00|1|Own template"},
             {"all of the scheme share one", musaWaitsForVaccine, "OPV 1", "100.00|1|Own template"},
             {"no row, no fall-back", musaWaitsForVaccine, "BCG", "0.00|1|No tariff"},
             {"private", "Eze Ngozi 24-Nov-2026 @24-Nov-2026 09:00:00 (GENERAL) [C3]", "OPV 1",
              "1,100.00|1|Private tariff"}}) {
        set("cboVehNo", child);
        set("cboDrug", vaccine);
        EXPECT_EQ(shown({"txtPrice", "txtQty", "lblSource"}), shows) << what;
    }
    EXPECT_TRUE(ran("select distinct  * from vwDrugNHIS where Drug ='CHILD''S VACCINE'   and  coyID='0007'"));
    set("cboDrug", "", {"Please specify Item"});
    hospital.failStatement("vwDrugNHIS");
    set("cboDrug", "BCG", {"Injected failure"});
    EXPECT_EQ(shown({"txtPrice", "txtQty"}), "1,100.00|1") << "the fields stay";
    sent();
}

TEST_F(Immune, ALineIsCheckedAddedAndTakenOutAgain) {
    fire("cmdAddToGrid", {"Please specify a Patient Name "});
    set("cboVehNo", adaWaitsForVaccine);
    fire("cmdAddToGrid", {"Please specify Item "});
    give("OPV 1");
    EXPECT_EQ(focus(), "frmImmune.cboDrug");
    EXPECT_EQ(shown({"cboDrug", "txtPrice", "txtQty", "lblSource"}), "|||");
    set("cboDrug", "OPV 1");
    fire("cmdAddToGrid", {"Duplicate Item/Service Entry not allowed"});
    give("CHILD'S VACCINE");
    EXPECT_EQ(lines(), "OPV 1|DROP|1000|1|1000|NO\nCHILD'S VACCINE|VACCINES|1234.5|1|1234.5|NO\n");
    EXPECT_EQ(shown({"lblTotal"}), "2,234.50");
    set("OrderGrid", {{"row", 0}});
    hospital.answer("yes");
    fire("OrderGrid.DblClick", {"Item Removed"});
    EXPECT_EQ(shown({"lblTotal", "cboDrug", "txtPrice", "txtQty"}), "1,234.50|OPV 1|1000|1");
    fire("cmdAddToGrid");
    EXPECT_EQ(shown({"lblTotal"}), "2,234.50");
}

TEST_F(Immune, PricesAndUnitsAreAmountsOrRefused) {
    struct Case {
        const char *price, *units, *line, *says;
    };
    const auto* const price = "The price is a plain number, such as 1,234.50";
    const auto* const units = "The number of units is a plain number above 0, such as 1";
    const auto* const large = "This quantity or price is too large";
    set("cboVehNo", adaWaitsForVaccine);
    for (const auto& [typed, counted, line, says] :
         std::initializer_list<Case>{{"1,234.50", "2", "1234.5|2|2469", nullptr},
                                     {" 0 ", "1", "0|1|0", nullptr},
                                     {"33.335", "1", "33.335|1|33.34", nullptr},
                                     {"0.1", "0.3", "0.1|0.3|0.03", nullptr},
                                     {"-5", "1", "", price},
                                     {"1e9", "1", "", price},
                                     {"", "1", "", price},
                                     {"x", "1", "", price},
                                     {"1,23", "1", "", price},
                                     {"5", "-5", "", units},
                                     {"5", "1e9", "", units},
                                     {"5", "", "", units},
                                     {"5", "0", "", units},
                                     {"999999999999", "2", "", large},
                                     {"99999999999999999999999999", "1", "", large}}) {
        set("cboDrug", "OPV 1");
        fill({{"txtPrice", typed}, {"txtQty", counted}});
        EXPECT_EQ(shown({"lblSource"}), "Typed");
        fire("cmdAddToGrid", says ? Says{says} : Says{});
        EXPECT_EQ(lines(), *line ? "OPV 1|DROP|" + std::string(line) + "|NO\n" : "") << typed << " x " << counted;
        screen().OrderGrid.clearLines();
    }
}

// -- the saved rows --

TEST_F(Immune, ASearchFindsWhileTypingWithQuotesToo) {
    hospital.execute("update hPatients set psurname='O''Neill' where PNo='P1'"_sql);
    for (const auto& [typed, found] : std::initializer_list<std::pair<const char*, std::size_t>>{
             {"neil", 2U}, {"O'N", 2U}, {"x' or '1'='1", 0U}, {"", 0U}}) {
        set("txtSearch", typed);
        EXPECT_EQ(screen().grdData.rows().rowCount(), found) << typed;
    }
    EXPECT_TRUE(
        ran("SELECT ID, Fullname, ImDate as Date, ImTime as Time, AgeValue, Immunization,Remarks,ConsultID, EmpID,"
            "EmpName as Nurse,PNo,ClientCat from vwhImmunization where FullName like '%O''N%'"));
    sent();
}

TEST_F(Immune, TheHistoryOfAChildIsPrinted) {
    fire("cmdPrint", {"Please select a Patient from the Grid"});
    set("cboVehNo", adaWaitsForVaccine);
    fire("cmdPrint");
    EXPECT_EQ(hospital.events().back()["report"], nlohmann::json({{"name", "rptImmunization"},
                                                                  {"title", "Immunization Report"},
                                                                  {"rows", 2},
                                                                  {"period", "Immunization History for Obi Ada"}}));
    hospital.execute("delete from hImmunization"_sql);
    fire("cmdPrint", {"No Report for the Specfied Date"});
    hospital.execute("delete from hPatients where PNo='P1'"_sql);
    fire("cmdPrint", {"Please select a valid Patient from the Grid"});
    sent();
}

TEST_F(Immune, ADayIsChosenFromTheClinicsDays) {
    set("chkRef", true);
    fire("cmdDate");  // without days nothing opens
    hospital.execute("insert into hClinicDays (ClinicID, WeekDayNo) values ('IMMUNIZATION', 2)"_sql);
    fire("cmdDate", {"This page is not there yet: Clinic Dates"});
    EXPECT_EQ(session().gClinicName + session().gDatesCaller, "IMMUNIZATIONfrmImmune");
    sent();
}

// -- the schedule --

TEST_F(Immune, TheScheduleFollowsBirthSexAndWhatWasGiven) {
    set("cboVehNo", adaWaitsForVaccine);
    EXPECT_EQ(scheduled(),
              "BCG|13-Oct-2026|14-Oct-2026|Given\nOPV 0|13-Oct-2026|14-Oct-2026|Given\n"
              "HEP B 0|13-Oct-2026||Overdue\nOPV 1|24-Nov-2026||Due\nOPV 2|22-Dec-2026||Later\n"
              "MEASLES 1|13-Jul-2027||Later\nHPV|13-Oct-2035||Later\n");
    EXPECT_EQ(shown({"lblDue", "lblSchedule"}),
              "Due now: HEP B 0, OPV 1. Next on 22-Dec-2026: OPV 2.|National schedule");
    struct Case {
        const char *name, *born, *sex, *states;
    };
    hospital.execute("delete from hImmunization"_sql);
    for (const auto& [what, born, sex, states] :
         std::initializer_list<Case>{{"born today", "24-Nov-2026", "MALE", "ddd..."},
                                     {"the day before six weeks", "14-Oct-2026", "MALE", "ooo..."},
                                     {"27 days late", "16-Sep-2026", "MALE", "oood.."},
                                     {"28 days late", "15-Sep-2026", "MALE", "ooood."},
                                     {"nine months by the calendar", "24-Feb-2026", "MALE", "oooood"},
                                     {"a girl of nine", "24-Nov-2017", "female", "ooooood"},
                                     {"the last day of childhood", "25-Nov-2008", "FEMALE", "ooooooo"},
                                     {"grown up", "24-Nov-2008", "FEMALE", ""},
                                     {"not born yet", "25-Nov-2026", "MALE", ""},
                                     {"unknown", "", "MALE", ""}}) {
        hospital.execute("update hPatients set DOB="_sql + (*born ? "'"_sql + std::string(born) + "'" : "null"_sql) +
                         ", sex='" + std::string(sex) + "' where PNo='P1'");
        set("cboVehNo", adaWaitsForVaccine);
        std::string seen;
        const auto& grid = screen().schedule.grdSchedule;
        for (std::size_t row = 0; row < grid.rowCount(); ++row)
            seen += grid.cell(row, 1) == "Due" ? 'd' : grid.cell(row, 1) == "Overdue" ? 'o' : '.';
        EXPECT_EQ(seen, states) << what;
        EXPECT_EQ(shown({"lblDue"}).empty() && shown({"lblSchedule"}).empty(), seen.empty()) << what;
    }
}

TEST(ChildsAge, IsCountedInWeeksThenMonthsThenYears) {
    const auto today = db::DateTime::of(2026, 11, 24);
    for (const auto& [born, words] :
         std::initializer_list<std::pair<db::DateTime, const char*>>{{today, "0 weeks"},
                                                                     {db::DateTime::of(2026, 11, 17), "1 week"},
                                                                     {db::DateTime::of(2026, 5, 25), "26 weeks"},
                                                                     {db::DateTime::of(2026, 5, 24), "6 months"},
                                                                     {db::DateTime::of(2021, 11, 25), "59 months"},
                                                                     {db::DateTime::of(2021, 11, 24), "5 years"}})
        EXPECT_EQ(outpatient::ageInWords(born, today), words);
}

}  // namespace
}  // namespace test
