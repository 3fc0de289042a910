#include "core/session/defaults.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <string_view>

#include "core/session/session.h"
#include "core/session/workplace.h"

namespace core {
namespace {

using namespace db::literals;

/// What a key does when its text is missing; "empty" covers a null.
enum class Rule {
    optional,
    absentWarns,
    absentEnds,
    emptyEnds,
    absentOrEmptyEnds,
};

class Reader {
public:
    Reader(Workplace& place, const std::function<void()>& afterLockOldVersion)
        : place_(place), afterLockOldVersion_(afterLockOldVersion) {}

    [[nodiscard]] Workplace& place() const { return place_; }
    [[nodiscard]] Session& session() const { return place_.session; }
    void lockOldVersion() const { afterLockOldVersion_(); }

    /// The value of a key in AppDefaults; nothing where the key is absent.
    [[nodiscard]] std::optional<db::Value> idval(std::string_view key) const {
        const auto rows = place_.hospital().read("select idval from AppDefaults where ID='"_sql + key + "'");
        if (rows.empty()) return std::nullopt;
        return rows["idval"];
    }
    [[noreturn]] void end(const std::string& text) const {
        place_.desktop.message(text);
        place_.endProcess(text);
    }

private:
    Workplace& place_;
    const std::function<void()>& afterLockOldVersion_;
};

/// One step of the table below: a key that fills one text variable by its rule, or a step of its own.
struct Row {
    std::string_view key;
    std::string Session::*variable = nullptr;
    std::string_view whenAbsent = {};
    Rule rule = Rule::optional;
    const char* message = nullptr;
    void (*step)(const Reader&, const Row&) = nullptr;
    bool posting = false;  ///< read only when accounts are posted to
};

void readText(const Reader& reader, const Row& row) {
    const auto value = reader.idval(row.key);
    auto& variable = reader.session().*row.variable;
    variable = value ? value->textOr() : std::string(row.whenAbsent);
    const bool absent = !value;
    const bool empty = value && variable.empty();
    if (absent && row.rule == Rule::absentWarns) reader.place().desktop.message(row.message);
    if (absent && (row.rule == Rule::absentEnds || row.rule == Rule::absentOrEmptyEnds)) reader.end(row.message);
    if (empty && (row.rule == Rule::emptyEnds || row.rule == Rule::absentOrEmptyEnds)) reader.end(row.message);
}

void receipt(const Reader& reader, const Row&) {
    const auto rows = reader.place().hospital().read("select * from appSettings where ID='RECEIPT'"_sql);
    reader.session().gReceiptSetting = rows.empty() ? std::string() : rows["idval5"].textOr();
}

/// Without the row the fifth value stays as it was read last.
void laboratory(const Reader& reader, const Row&) {
    const auto rows =
        reader.place().hospital().read("select idval,idval2,idval3,idval5 from appSettings where ID='LAB'"_sql);
    auto& session = reader.session();
    const auto field = [&](const char* name) { return rows.empty() ? std::string() : rows[name].textOr(); };
    session.gLabIdval = field("idval");
    session.gLabIdval2 = field("idval2");
    session.gLabIdval3 = field("idval3");
    if (!rows.empty()) session.gLabIdval5 = field("idval5");
    session.gReceiptPicture = reader.place().settings.programDirectory.string() + "\\RctPix.JPG";
}

void postingOn(const Reader& reader, const Row& row) {
    const auto value = reader.idval(row.key);
    auto& session = reader.session();
    session.gAcctPostOn = value && !value->isNull() && value->flag();
    if (!session.gAcctPostOn) return;
    session.gAcctAutoPost = false;
    session.gAcctPostType = "BATCH";
    session.gAcctNoCash.clear();
    session.gAcctNoSales.clear();
}

void accountPeriod(const Reader& reader, const Row& row) {
    auto& place = reader.place();
    const auto rows = place.databases.open(place.session.gConnAccounting).read("select Period from AccountMonth"_sql);
    place.session.gAcctPeriod = rows.empty() ? std::string() : rows["Period"].textOr();
    if (rows.empty()) reader.end(row.message);
}

void postType(const Reader& reader, const Row& row) {
    readText(reader, row);
    std::string upper = reader.session().gAcctPostType;
    std::transform(upper.begin(), upper.end(), upper.begin(), [](unsigned char c) { return std::toupper(c); });
    reader.session().gAcctAutoPost = upper == "AUTO";
}

void cashIndex(const Reader& reader, const Row& row) {
    auto& session = reader.session();
    session.gCashAccountIndex = 0;
    session.gARAccountIndex = 0;
    const auto value = reader.idval(row.key);
    if (!value) reader.end("CashAccountIndex needed for Posting");
    session.gCashAccountIndex = value->int32Or(0);
    if (session.gCashAccountIndex == 0) reader.end("Cash Acct Index No needed for Posting");
}

/// An absent key clears the cash index and reports the cash message: the suite's users know it by that one.
void receivableIndex(const Reader& reader, const Row& row) {
    auto& session = reader.session();
    const auto value = reader.idval(row.key);
    if (!value) {
        session.gCashAccountIndex = 0;
        reader.end("Cash Acct Index No needed for Posting");
    }
    session.gARAccountIndex = value->int32Or(0);
    if (session.gARAccountIndex == 0) reader.end("ARAccountIndex needed for Posting");
}

void salesAccount(const Reader& reader, const Row& row) {
    readText(reader, row);
    auto& session = reader.session();
    session.gAcctNoSalesCopy = session.gAcctNoSales;
    if (session.gAcctNoSales.empty()) reader.end("Cash Sales Acct No needed for Posting");
}

void salesInvoiceAccount(const Reader& reader, const Row& row) {
    readText(reader, row);
    reader.session().gAcctNoSalesInvCopy = reader.session().gAcctNoSalesInv;
}

void lockOldVersion(const Reader& reader, const Row& row) {
    readText(reader, row);
    reader.lockOldVersion();
}

void debtStart(const Reader& reader, const Row& row) {
    const auto value = reader.idval(row.key);
    reader.session().gTranxStartDateForDebt = value ? value->moment() : db::DateTime::of(2006, 1, 1);
}

void searchWait(const Reader& reader, const Row& row) {
    const auto value = reader.idval(row.key);
    reader.session().gSearchWaitTime = value ? value->int16() : std::int16_t{3000};
}

using enum Rule;
using S = Session;
constexpr bool posting = true;

// Key, variable, default of an absent key, when its message shows, the message, a step of its own, posting only.
// The order is the order of reading.
constexpr Row rows[] = {
    {"RECEIPT", nullptr, "", optional, nullptr, receipt},
    {"LAB", nullptr, "", optional, nullptr, laboratory},
    {"PRIVATE", &S::gPrivateTariff, "", absentEnds, "System Default Value needed for Private Tariff"},
    {"NHISFEE", &S::gNhisFee, "", absentWarns, "System Default Value needed for NHIS % Fee"},
    {"LockPrice", &S::gLockPrice, "YES"},
    {"Consult_Revtype", &S::gConsultRevtype, "CONSULTATION"},
    {"AcctPostOn", nullptr, "", optional, nullptr, postingOn},

    {"AccountMonth", nullptr, "", absentEnds, "Acct Current_Period missing", accountPeriod, posting},
    {"AcctPostType", &S::gAcctPostType, "AUTO", optional, nullptr, postType, posting},
    {"AUTO_TRAN_NO", &S::gAutoTranNo, "YES", emptyEnds, "AUTO_TRAN_NO needed for Posting", readText, posting},
    {"AcctCostCenter", &S::gAcctCostCenter, "", absentOrEmptyEnds, "AcctCostCenter needed for Posting", readText,
     posting},
    {"AcctNoPOS", &S::gAcctNoPOS, "", absentOrEmptyEnds, "POS Acct No needed for Posting", readText, posting},
    {"AcctNoCheque", &S::gAcctNoCheque, "", absentOrEmptyEnds, "Cheque Acct No needed for Posting", readText, posting},
    {"AcctNoTransfer", &S::gAcctNoTransfer, "", absentOrEmptyEnds, "Transfer Acct No needed for Posting", readText,
     posting},
    {"AcctNoCash", &S::gAcctNoCash, "", absentOrEmptyEnds, "Cash Acct No needed for Posting", readText, posting},
    {"AcctNoOthers", &S::gAcctNoOthers, "0000", optional, nullptr, readText, posting},
    {"CashAccountIndex", nullptr, "", optional, nullptr, cashIndex, posting},
    {"ARAccountIndex", nullptr, "", optional, nullptr, receivableIndex, posting},
    {"AcctNoSales", &S::gAcctNoSales, "", absentEnds, "Sales Acct No needed for Posting", salesAccount, posting},
    {"AcctNoSalesInv", &S::gAcctNoSalesInv, "", absentOrEmptyEnds, "Sales Invoice Acct No needed for Posting",
     salesInvoiceAccount, posting},

    {"LockOldVersion", &S::gLockOldVersion, "NO", optional, nullptr, lockOldVersion},
    {"LockDiscount", &S::gLockDiscount, "NO"},
    {"LockDebt", &S::gLockDebt, "NO"},
    {"TranxStartDateForDebt", nullptr, "01-Jan-06", optional, nullptr, debtStart},
    {"AutoUpdateTariff", &S::gAutoUpdateTariff, "NO"},
    {"AppLocation", &S::gAppLocation, "Lagos"},
    {"LockAttendanceForInPatients", &S::gLockAttendanceForInPatients, "YES"},
    {"LockMultipleAttendnace", &S::gLockMultipleAttendance, "YES"},  // the key is spelt so in the table
    {"CallDefaults", &S::gCallDefaults, "HOURLY"},
    {"shutDown", &S::gShutDown, "NO"},
    {"SearchValue", &S::gSearchValue, "20"},
    {"EnableDOBExport", &S::gEnableDOBExport, "NO"},
    {"SearchWaitTime", nullptr, "3000", optional, nullptr, searchWait},
    {"Revtype_Consult", &S::gRevtypeConsult, "CONSULTATION"},
    {"LockSignedBill", &S::gLockSignedBill, "YES"},
    {"RevType_Drug", &S::gRevTypeDrug, "TREATMENT"},
    {"RevType_Misc", &S::gRevTypeMisc, "PROFESSIONAL FEE"},
    {"Clinic_PhoneNo", &S::gClinicPhoneNo, "", absentWarns, "Clinic_PhoneNo Default Required to Send SMS Appointments"},
    {"Clinic_Period", &S::gClinicPeriod, "Between 10am - 3pm"},
    {"Hospital_Archive_Exists", &S::gHospitalArchiveExists, "NO"},
    {"Admission_Limit_Exists", &S::gAdmissionLimitExists, "NO"},
    {"Private_Pays_Deposit_Before_Admission", &S::gPrivatePaysDeposit, "YES"},
    {"Assign_Doctors_to_Consulting_Rooms", &S::gAssignDoctorsToRooms, "NO"},
    {"Assign_Patients_to_Doctors", &S::gAssignPatientsToDoctors, "YES"},
    {"Show_Nurses_As_Doctors", &S::gShowNursesAsDoctors, "NO"},
};

}  // namespace

void readDefaults(Workplace& place, const std::function<void()>& afterLockOldVersion) {
    const Reader reader(place, afterLockOldVersion);
    for (const auto& row : rows) {
        if (row.posting && !place.session.gAcctPostOn) continue;
        (row.step != nullptr ? row.step : readText)(reader, row);
    }
}

}  // namespace core
