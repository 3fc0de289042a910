
#include <map>

#include "core/session/loadsession.h"
#include "core/session/session.h"
#include "tests/core/stubs.h"

namespace {

using namespace db::literals;
using test::Ward;

/// The session variables by name, as texts.
std::map<std::string, std::string> variables(const core::Session& session) {
    std::map<std::string, std::string> texts;
    session.forEach([&](const char* name, const db::Value& value) { texts[name] = value.textOr(); });
    return texts;
}

void clear(Ward& ward) {
    ward.execute("delete from AppDefaults"_sql);
    ward.execute("delete from appSettings"_sql);
    ward.setDefault("PRIVATE", "0001");
    ward.setDefault("NHISFEE", "10");
    ward.setDefault("Clinic_PhoneNo", "0803");
}

/// The texts of posting, by the variables that keep them.
const std::map<std::string, const char*> postingTexts{{"gAutoTranNo", "AUTO_TRAN_NO"},
                                                      {"gAcctCostCenter", "AcctCostCenter"},
                                                      {"gAcctNoPOS", "AcctNoPOS"},
                                                      {"gAcctNoCheque", "AcctNoCheque"},
                                                      {"gAcctNoTransfer", "AcctNoTransfer"},
                                                      {"gAcctNoCash", "AcctNoCash"},
                                                      {"gAcctNoOthers", "AcctNoOthers"},
                                                      {"gAcctNoSales", "AcctNoSales"},
                                                      {"gAcctNoSalesCopy", "AcctNoSales"},
                                                      {"gAcctNoSalesInv", "AcctNoSalesInv"},
                                                      {"gAcctNoSalesInvCopy", "AcctNoSalesInv"}};

/// All that posting needs.
void fillPosting(Ward& ward) {
    ward.setDefault("AcctPostOn", "YES");
    ward.setDefault("AcctPostType", "auto");
    for (const auto& [variable, key] : postingTexts) ward.setDefault(key, std::string("my ") + key);
    ward.setDefault("CashAccountIndex", "11");
    ward.setDefault("ARAccountIndex", "12");
}

struct Key {
    const char* key;
    const char* variable;
    const char* whenAbsent;
    const char* set = "Other";
    const char* read = "Other";
    bool readsEmpty = true;
};

const std::vector<Key>& plainKeys() {
    static const std::vector<Key> keys{
        {"LockPrice", "gLockPrice", "YES"},
        {"Consult_Revtype", "gConsultRevtype", "CONSULTATION"},
        {"LockOldVersion", "gLockOldVersion", "NO", "yes", "yes"},
        {"LockDiscount", "gLockDiscount", "NO"},
        {"LockDebt", "gLockDebt", "NO"},
        {"TranxStartDateForDebt", "gTranxStartDateForDebt", "01-Jan-2006", "2020-02-03", "03-Feb-2020", false},
        {"AutoUpdateTariff", "gAutoUpdateTariff", "NO"},
        {"AppLocation", "gAppLocation", "Lagos"},
        {"LockAttendanceForInPatients", "gLockAttendanceForInPatients", "YES"},
        {"LockMultipleAttendnace", "gLockMultipleAttendance", "YES"},
        {"CallDefaults", "gCallDefaults", "HOURLY"},
        {"shutDown", "gShutDown", "NO"},
        {"SearchValue", "gSearchValue", "20", "35", "35"},
        {"EnableDOBExport", "gEnableDOBExport", "NO"},
        {"SearchWaitTime", "gSearchWaitTime", "3000", "32767", "32767", false},
        {"Revtype_Consult", "gRevtypeConsult", "CONSULTATION"},
        {"LockSignedBill", "gLockSignedBill", "YES"},
        {"RevType_Drug", "gRevTypeDrug", "TREATMENT"},
        {"RevType_Misc", "gRevTypeMisc", "PROFESSIONAL FEE"},
        {"Clinic_Period", "gClinicPeriod", "Between 10am - 3pm"},
        {"Hospital_Archive_Exists", "gHospitalArchiveExists", "NO"},
        {"Admission_Limit_Exists", "gAdmissionLimitExists", "NO"},
        {"Private_Pays_Deposit_Before_Admission", "gPrivatePaysDeposit", "YES"},
        {"Assign_Doctors_to_Consulting_Rooms", "gAssignDoctorsToRooms", "NO"},
        {"Assign_Patients_to_Doctors", "gAssignPatientsToDoctors", "YES"},
        {"Show_Nurses_As_Doctors", "gShowNursesAsDoctors", "NO"},
    };
    return keys;
}

TEST(Defaults, AbsentSetEmptyAndAbsentAgain) {
    Ward ward;
    clear(ward);
    const auto expectAll = [&](const char* how, auto expected) {
        core::LoadSession(ward.place);
        auto read = variables(ward.place.session);
        for (const auto& key : plainKeys()) EXPECT_EQ(read[key.variable], expected(key)) << key.key << ' ' << how;
    };
    expectAll("absent", [](const Key& key) { return key.whenAbsent; });

    for (const auto& key : plainKeys()) ward.setDefault(key.key, key.set);
    expectAll("set", [](const Key& key) { return key.read; });

    for (const auto& nothing : {db::Value(""), db::Value()}) {
        for (const auto& key : plainKeys())
            if (key.readsEmpty) ward.setDefault(key.key, nothing);
        expectAll("empty", [](const Key& key) { return key.readsEmpty ? "" : key.read; });
    }

    for (const auto& key : plainKeys()) ward.dropDefault(key.key);
    expectAll("absent again", [](const Key& key) { return key.whenAbsent; });
}

TEST(Defaults, SettingsOfReceiptAndLaboratory) {
    Ward ward;
    ward.execute("update appSettings set idval='S', idval2='L2', idval3=null, idval5='A4' where ID='LAB'"_sql);
    core::LoadSession(ward.place);
    const auto& session = ward.place.session;
    EXPECT_EQ(session.gReceiptSetting, "A5");
    EXPECT_EQ(session.gLabIdval + "/" + session.gLabIdval2 + "/" + session.gLabIdval3 + "/" + session.gLabIdval5,
              "S/L2//A4");
    EXPECT_EQ(session.gReceiptPicture, ward.program.path().string() + "\\RctPix.JPG");

    ward.execute("delete from appSettings"_sql);
    core::LoadSession(ward.place);
    EXPECT_EQ(session.gReceiptSetting + session.gLabIdval + session.gLabIdval2 + session.gLabIdval3, "");
    EXPECT_EQ(session.gLabIdval5, "A4");
}

TEST(Defaults, MissingOnesThatOnlyWarn) {
    Ward ward;
    ward.dropDefault("NHISFEE");
    ward.dropDefault("Clinic_PhoneNo");
    ward.expectMessage("System Default Value needed for NHIS % Fee");
    ward.expectMessage("Clinic_PhoneNo Default Required to Send SMS Appointments");
    core::LoadSession(ward.place);
    EXPECT_EQ(ward.mainWindowsMade, 1);
    EXPECT_EQ(ward.place.session.gNhisFee + ward.place.session.gClinicPhoneNo, "");

    ward.setDefault("NHISFEE", db::Value());
    ward.setDefault("Clinic_PhoneNo", "");
    core::LoadSession(ward.place);  // present, if empty: no message
}

TEST(Defaults, PostingReadsItsKeysOnlyWhenItIsOn) {
    for (const auto& off : {db::Value("NO"), db::Value("false"), db::Value("0"), db::Value()}) {
        Ward ward;
        clear(ward);
        ward.setDefault("AcctPostOn", off);
        core::LoadSession(ward.place);
        EXPECT_FALSE(ward.place.session.gAcctPostOn);
        for (const auto& statement : ward.log()) EXPECT_NE(statement.database, "Accounting");
    }
    Ward ward;
    clear(ward);
    fillPosting(ward);
    core::LoadSession(ward.place);
    const auto read = variables(ward.place.session);
    for (const auto& [variable, key] : postingTexts) EXPECT_EQ(read.at(variable), std::string("my ") + key) << variable;
    for (const auto& [variable, value] : std::map<std::string, std::string>{{"gAcctPeriod", "2026-11"},
                                                                            {"gAcctPostType", "auto"},
                                                                            {"gAcctAutoPost", "True"},
                                                                            {"gCashAccountIndex", "11"},
                                                                            {"gARAccountIndex", "12"}})
        EXPECT_EQ(read.at(variable), value) << variable;

    for (const auto* key : {"AUTO_TRAN_NO", "AcctNoOthers", "AcctPostType"}) ward.dropDefault(key);
    core::LoadSession(ward.place);
    const auto& session = ward.place.session;
    EXPECT_EQ(session.gAutoTranNo + "/" + session.gAcctNoOthers + "/" + session.gAcctPostType, "YES/0000/AUTO");
    EXPECT_TRUE(session.gAcctAutoPost);
    ward.setDefault("AcctPostType", "BATCH");
    core::LoadSession(ward.place);
    EXPECT_FALSE(session.gAcctAutoPost);
}

TEST(Defaults, FatalOnes) {
    const auto absent = [](const char* key) { return [key](Ward& w) { w.dropDefault(key); }; };
    const auto set = [](const char* key, const db::Value& value) {
        return [key, value](Ward& w) { w.setDefault(key, value); };
    };
    struct Case {
        const char* name;
        std::function<void(Ward&)> arrange;
        const char* message;
    };
    const std::vector<Case> cases{
        {"private", absent("PRIVATE"), "System Default Value needed for Private Tariff"},
        {"no period", [](Ward& w) { w.execute("delete from AccountMonth"_sql, "Accounting"); },
         "Acct Current_Period missing"},
        {"tran no empty", set("AUTO_TRAN_NO", ""), "AUTO_TRAN_NO needed for Posting"},
        {"cost center absent", absent("AcctCostCenter"), "AcctCostCenter needed for Posting"},
        {"cost center empty", set("AcctCostCenter", ""), "AcctCostCenter needed for Posting"},
        {"POS absent", absent("AcctNoPOS"), "POS Acct No needed for Posting"},
        {"POS null", set("AcctNoPOS", {}), "POS Acct No needed for Posting"},
        {"cheque absent", absent("AcctNoCheque"), "Cheque Acct No needed for Posting"},
        {"transfer empty", set("AcctNoTransfer", ""), "Transfer Acct No needed for Posting"},
        {"cash absent", absent("AcctNoCash"), "Cash Acct No needed for Posting"},
        {"cash index absent", absent("CashAccountIndex"), "CashAccountIndex needed for Posting"},
        {"cash index zero", set("CashAccountIndex", "0"), "Cash Acct Index No needed for Posting"},
        {"cash index null", set("CashAccountIndex", {}), "Cash Acct Index No needed for Posting"},
        {"AR index absent", absent("ARAccountIndex"), "Cash Acct Index No needed for Posting"},
        {"AR index zero", set("ARAccountIndex", "0"), "ARAccountIndex needed for Posting"},
        {"sales absent", absent("AcctNoSales"), "Sales Acct No needed for Posting"},
        {"sales empty", set("AcctNoSales", ""), "Cash Sales Acct No needed for Posting"},
        {"invoice absent", absent("AcctNoSalesInv"), "Sales Invoice Acct No needed for Posting"},
        {"invoice empty", set("AcctNoSalesInv", ""), "Sales Invoice Acct No needed for Posting"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        Ward ward;
        clear(ward);
        fillPosting(ward);
        one.arrange(ward);
        ward.expectMessage(one.message);
        EXPECT_TRUE(ward.ends([&] { core::LoadSession(ward.place); }));
        if (std::string(one.name) == "AR index absent") {
            EXPECT_EQ(ward.place.session.gCashAccountIndex, 0);
        }
    }
}

TEST(Defaults, ValuesThatCannotBeConverted) {
    const std::vector<std::pair<const char*, db::Value>> cases{
        {"SearchWaitTime", "32768"},          {"SearchWaitTime", ""},    {"SearchWaitTime", db::Value()},
        {"TranxStartDateForDebt", "no date"}, {"AcctPostOn", "perhaps"},
    };
    for (const auto& [key, value] : cases) {
        SCOPED_TRACE(key);
        Ward ward;
        ward.setDefault(key, value);
        ward.expectMessage("Invalid Login OR session has expired!!! Please Re-login");
        EXPECT_TRUE(ward.ends([&] { core::LoadSession(ward.place); }));
    }
}

}  // namespace
