#include "inpatient/screens.h"
#include "tests/core/atscreen.h"
#include "tests/inpatient/ward.h"

using namespace db::literals;

namespace test {
namespace {

class NursingHist : public AtScreen {
protected:
    NursingHist() : AtScreen("frmNursingHist", &inpatient::provideScreens, &arrangeWards) {}
};

TEST_F(NursingHist, EveryFieldHasItsColumnAndComesBack) {
    hospital.workstationClock = db::DateTime::of(2026, 11, 25, 8, 0);
    const std::vector<std::pair<const char*, const char*>> texts = {
        {"txtInfo", "informnt"},     {"txtPresent", "present"},    {"txtPast", "past"},
        {"txtNutri", "nutrition"},   {"txtElim", "elimin"},        {"txtActivity", "exercise"},
        {"txtSleep", "sleep"},       {"txtComm", "comm"},          {"txtPercep", "perception"},
        {"txtFamily", "socialstat"}, {"txtSex", "sexuality"},      {"txtCoping", "stress"},
        {"txtValues", "beliefs"},    {"txtHabits", "habits"},      {"txtValuables", "valuables"},
        {"txtUrine", "urinalysis"},  {"txtGen", "genInspec"},      {"txtPalpation", "palpation"},
        {"txtPercu", "percussion"},  {"txtAuscu", "auscultation"}, {"txtLab", "labresult"},
        {"txtNursing", "nursediag"}, {"txtAllerg", "allergies"},   {"txtOthers", "others"},
        {"txtAssess", "nurAssess"}};
    fire("cmdAdd");
    set("dtDate", nullptr);
    stopsInOrder({{"Please specify Patient's Name", "cboVehNo", adaLies}, {"Please date", "dtDate", "2026-11-25"}});
    EXPECT_EQ(shown({"lblTitle", "lblBill", "lblNo", "lblClient"}), "Patient : Obi Ada|C1|P1|HMO");
    for (const auto& [field, column] : texts) set(field, std::string("the ") + column);
    for (const auto* tick : {"chkBCG", "chkTet", "chkDiph"}) set(tick, true);
    set("dtLMP", "2026-03-01");
    save();
    EXPECT_EQ(
        dump("select dtDate, PNo, consultID, empID, bcg, polio, tetanus, whooping, dipthe, measles, LMP, EDD from "
             "hNursingHist"_sql),
        "25-Nov-2026|P1|C1|E001|1|0|1|0|1|0|01-Mar-2026|null\n");
    const auto row = hospital.read("select * from hNursingHist"_sql);
    for (const auto& [field, column] : texts) EXPECT_EQ(row[column].text(), std::string("the ") + column);
    EXPECT_EQ(dump("select * from hAuditTrail"_sql), "");
    // The list is the day's, by the workstation's date; the server says since when it holds the record.
    EXPECT_TRUE(
        ran("select distinct dtdate as Date,pno,ID,empID,fullname,empfullname as Nurse,consultid from "
            "qryhNursingHist where dtdate = '25-Nov-2026'"));
    EXPECT_EQ(hiddenColumns(), "pno ID empID ");
    EXPECT_EQ(shown({"lblAsOf", "txtInfo", "cboVehNo"}), "Up to date as of 24-Nov-2026 09:30||");
    fire("cmdEdit");
    EXPECT_EQ(shown({"lblTitle", "cboVehNo", "lblBill"}), "Patient : Obi Ada|Obi Ada [C1]|C1");
    for (const auto& [field, column] : texts) EXPECT_EQ(shown({field}), std::string("the ") + column);
    EXPECT_TRUE(as<ui::Screen>().find("chkDiph")->property("checked") &&
                !as<ui::Screen>().find("chkMea")->property("checked"));
    EXPECT_TRUE(place.desktop.get(name + ".dtEdd")["date"].is_null());
    set("txtAssess", "  stable ");
    save({"Record Succesfully updated"});
    EXPECT_EQ(hospital.value("select nurAssess from hNursingHist"_sql).text(), "stable");
    fire("cmdDel", {" Record cannot be deleted "});
}

class Surgery : public AtScreen {
protected:
    Surgery() : AtScreen("frmSurgery", &inpatient::provideScreens, &arrangeWards) {}
    void addFor(const char* patient) {
        fire("cmdAdd");
        set("cboVehNo", patient);
        set("cboReason", "Ojo Tunde [D1]");
    }
    std::string field(int number) { return shown({("txtFields(" + std::to_string(number) + ")").c_str()}); }
};

TEST_F(Surgery, OneFieldIsStoredAsTwoAndOneNever) {
    fire("cmdAdd");
    EXPECT_EQ(entries("cboVehNo"), " |Obi Ada [C1]|Bello Musa [C2]|");
    stopsInOrder({{"Select a Patient", "cboVehNo", adaLies}, {"Specify Doctor's name", "cboReason", "Ojo Tunde [D1]"}});
    const std::vector<std::pair<int, const char*>> columns = {
        {0, "occultBlood"}, {1, "urea_PCO3"},  {2, "urea_cL"},       {3, "indications"}, {4, "operation"},
        {5, "consent"},     {6, "relation"},   {7, "urinalysis"},    {8, "sediments"},   {9, "sugar"},
        {10, "acetone"},    {11, "aib"},       {12, "sg"},           {12, "blood"},      {14, "hb"},
        {15, "pcv"},        {16, "wbc"},       {17, "wbc_p"},        {18, "wbc_L"},      {19, "wbc_m"},
        {20, "wbc_e"},      {21, "wbc_esr"},   {22, "chestXray"},    {23, "ecg"},        {24, "bloodGroup"},
        {25, "surgeon"},    {26, "Assistant"}, {27, "anaesthetist"}, {28, "preOPBP"},    {29, "pulse"},
        {30, "postOPBP"},   {31, "hgp"},       {32, "findings"},     {33, "Procedure"},  {34, "urea_na"},
        {35, "urea"},       {36, "hiv"}};
    for (int number = 0; number < 37; ++number)
        if (number != 13) set("txtFields(" + std::to_string(number) + ")", "text " + std::to_string(number));
    EXPECT_FALSE(is("txtFields(13)", "visible"));
    save();
    const auto row = hospital.read("select * from hSurgery"_sql);
    for (const auto& [number, column] : columns)
        EXPECT_EQ(row[column].text(), "TEXT " + std::to_string(number)) << column;
    EXPECT_EQ(dump("select sDate, PNo, consultID, empID from hSurgery"_sql), "24-Nov-2026|P1|C1|D1\n");
    EXPECT_EQ(shown({"lblAsOf"}), "Up to date as of 24-Nov-2026 09:30");
    EXPECT_EQ(hiddenColumns(), "ID pno consultid empid fullname lastname firstname ");
    // Where another module wrote two, the blood shows, and a save makes them one.
    hospital.execute("update hSurgery set sg='1.020', blood='TRACE', sDate=null"_sql);
    addFor(adaLies);
    fire("cmdCancel");
    fire("cmdEdit");
    EXPECT_EQ(field(12), "TRACE");
    EXPECT_EQ(shown({"lblTitle", "cboVehNo", "cboReason"}), "Patient : Obi Ada|Obi Ada  [C1]|Ojo Tunde [D1]");
    EXPECT_TRUE(place.desktop.get(name + ".dtRegDate")["date"].is_null());
    save({"Record Succesfully updated"});
    EXPECT_EQ(dump("select sg, blood, sDate from hSurgery"_sql), "TRACE|TRACE|null\n");
}

TEST_F(Surgery, OperationsOfEveryAdmissionShow) {
    hospital.execute(
        "insert into hSurgery (PNo, consultID, operation) values ('P1', 'C0', 'OLD'), ('P1', 'C1', 'NEW'), "
        "('P2', 'C2', 'ANOTHER')"_sql);
    addFor(adaLies);
    EXPECT_TRUE(ran("select * from qryhSurgery where pno = 'P1'"));
    EXPECT_EQ(place.desktop.get(name + ".grdData")["rows"].size(), 2U);
    hospital.execute("update hAdmission set isdischarged=1 where PNo='P2'"_sql);
    set("cboVehNo", musaLies);
    EXPECT_EQ(shown({"lblTitle", "lblNo"}), "Surgery Notes|");
    stopsInOrder({{"Select a Patient", "cboVehNo", {}}});
}

}  // namespace
}  // namespace test
