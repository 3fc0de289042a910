#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "db/datetime.h"
#include "db/value.h"

namespace core {

/// The session variables of one signed-in nurse, under their own names, with their values before the start.
/// There is one a session, passed by reference; nothing of it is shared between nurses.
struct Session {
    // -- start-up --
    std::string gServerName;
    std::string gHospitalNo;
    std::string gHospitalId;
    std::string gConnHospital;
    std::string gConnArchive;
    std::string gConnSms;
    std::string gConnAccounting;
    std::string gPatientsPath;     ///< the share that holds patient pictures and files
    std::string gModuleRole;       ///< "NURSING"
    std::string gDefaultPatClass;  ///< "OUT-PATIENT"
    std::int32_t gMadeSysResult = 0;
    std::string gBillType;  ///< the text of gMadeSysResult; fee lines of injections store it
    std::int32_t gEditableGridColumn = 0;
    std::string gComputerName;
    std::string gOsUserName;
    std::string gUserName;
    std::string gEmpID;
    std::string gUserFullName;
    std::string gHospitalName;

    // -- the server's clock, as last read --
    db::DateTime gServerNow;
    db::DateTime gServerDate;
    db::DateTime gServerTime;

    // -- settings of the hospital (appSettings, AppDefaults, AccountMonth) --
    std::string gReceiptSetting;
    std::string gLabIdval;
    std::string gLabIdval2;
    std::string gLabIdval3;
    std::string gLabIdval5;
    std::string gReceiptPicture;
    std::string gPrivateTariff;  ///< the client that means a private patient
    std::string gNhisFee;
    std::string gLockPrice;
    std::string gConsultRevtype;
    bool gAcctPostOn = false;
    std::string gAcctPeriod;
    std::string gAcctPostType;
    bool gAcctAutoPost = false;
    std::string gAutoTranNo;
    std::string gAcctCostCenter;
    std::string gAcctNoPOS;
    std::string gAcctNoCheque;
    std::string gAcctNoTransfer;
    std::string gAcctNoCash;
    std::string gAcctNoOthers;
    std::int32_t gCashAccountIndex = 0;
    std::int32_t gARAccountIndex = 0;
    std::string gAcctNoSales;
    std::string gAcctNoSalesCopy;
    std::string gAcctNoSalesInv;
    std::string gAcctNoSalesInvCopy;
    std::string gLockOldVersion;
    std::string gLockDiscount;
    std::string gLockDebt;
    db::DateTime gTranxStartDateForDebt;
    std::string gAutoUpdateTariff;
    std::string gAppLocation;
    std::string gLockAttendanceForInPatients;
    std::string gLockMultipleAttendance;
    std::string gCallDefaults;
    std::string gShutDown;
    std::string gSearchValue;
    std::string gEnableDOBExport;
    std::int16_t gSearchWaitTime = 0;  ///< milliseconds
    std::string gRevtypeConsult;
    std::string gLockSignedBill;
    std::string gRevTypeDrug;
    std::string gRevTypeMisc;
    std::string gClinicPhoneNo;
    std::string gClinicPeriod;
    std::string gHospitalArchiveExists;
    std::string gAdmissionLimitExists;
    std::string gPrivatePaysDeposit;
    std::string gAssignDoctorsToRooms;
    std::string gAssignPatientsToDoctors;
    std::string gShowNursesAsDoctors;

    // -- shared services --
    std::int32_t gActivitySNo = 0;  ///< this run's row of UserActivities
    double gPatientBalance = 0;     ///< naira; above zero a debt, below a credit
    bool gPatientHasBalance = false;
    std::string gNextId;

    // -- the front door --
    std::string gClientRetainID;  ///< the client picked: a retainID
    std::string gClientName;
    std::string gBillingCat;     ///< the billing category picked: "PRIVATE", "HMO", ...
    std::string gClientType;     ///< the client type of that category
    std::string gPatClassCat;    ///< "PRIVATE" or "COMPANY"
    std::string gAttendPurpose;  ///< how the purpose of a visit is routed: "SCREENING" or the purpose itself
    std::string gScreeningAmount = "0";
    std::string gConsultAmount;
    std::string gClinicName;
    db::Value gApptDate;  ///< of the appointment under way; null without one
    db::Value gApptTime;
    bool gRenewPending = false;  ///< a card was renewed: the next save posts the fee
    std::string gRenewCaller;    ///< "REG" or "RECORDS"
    std::string gCurPNo;         ///< the patient that one screen leaves for the next
    std::string gCurPatientName;
    std::string gCurConsultPNo;
    std::string gCommentConsultID;  ///< the visit that a comment is about
    std::string gWaitDate;          ///< the row picked in a doctors' queue
    std::string gWaitDocName;
    std::string gWaitEmpID;
    std::string gWaitClinicID;
    std::string gPhotoStore;        ///< "FILE" keeps photographs below gPatientsPath, anything else in the database
    std::string gAutoCardNo;        ///< "YES" makes card numbers from system numbers
    std::string gNhisServiceNo;     ///< row of hServiceNHIS whose price is the consultation's
    std::string gNhisRegServiceNo;  ///< the same for the registration's

    // -- main window --
    bool gPatientsWaiting = false;
    bool gAdmissionsWaiting = false;
    bool gNotificationsWaiting = false;
    bool gAnythingWaiting = false;
    bool gWatchTimersOn = false;
    bool gForcedLogoff = false;
    std::string gNoteScope;               ///< "OPD" or "IPD"
    bool gConsultHistoryArchive = false;  ///< consultation histories come from the archive

    /// Calls `field(name, value)` for every variable, in this order.
    void forEach(const std::function<void(const char* name, const db::Value& value)>& field) const;
};

}  // namespace core
