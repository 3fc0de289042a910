#include "core/session.h"

namespace core {

void Session::forEach(const std::function<void(const char* name, const db::Value& value)>& field) const {
#define VOREL_FIELD(name) field(#name, db::Value(name))
    VOREL_FIELD(gServerName);
    VOREL_FIELD(gHospitalNo);
    VOREL_FIELD(gHospitalId);
    VOREL_FIELD(gConnHospital);
    VOREL_FIELD(gConnArchive);
    VOREL_FIELD(gConnSms);
    VOREL_FIELD(gConnAccounting);
    VOREL_FIELD(gPatientsPath);
    VOREL_FIELD(gModuleRole);
    VOREL_FIELD(gDefaultPatClass);
    VOREL_FIELD(gMadeSysResult);
    VOREL_FIELD(gBillType);
    VOREL_FIELD(gEditableGridColumn);
    VOREL_FIELD(gComputerName);
    VOREL_FIELD(gOsUserName);
    VOREL_FIELD(gUserName);
    VOREL_FIELD(gEmpID);
    VOREL_FIELD(gUserFullName);
    VOREL_FIELD(gHospitalName);

    VOREL_FIELD(gServerNow);
    VOREL_FIELD(gServerDate);
    VOREL_FIELD(gServerTime);

    VOREL_FIELD(gReceiptSetting);
    VOREL_FIELD(gLabIdval);
    VOREL_FIELD(gLabIdval2);
    VOREL_FIELD(gLabIdval3);
    VOREL_FIELD(gLabIdval5);
    VOREL_FIELD(gReceiptPicture);
    VOREL_FIELD(gPrivateTariff);
    VOREL_FIELD(gNhisFee);
    VOREL_FIELD(gLockPrice);
    VOREL_FIELD(gConsultRevtype);
    VOREL_FIELD(gAcctPostOn);
    VOREL_FIELD(gAcctPeriod);
    VOREL_FIELD(gAcctPostType);
    VOREL_FIELD(gAcctAutoPost);
    VOREL_FIELD(gAutoTranNo);
    VOREL_FIELD(gAcctCostCenter);
    VOREL_FIELD(gAcctNoPOS);
    VOREL_FIELD(gAcctNoCheque);
    VOREL_FIELD(gAcctNoTransfer);
    VOREL_FIELD(gAcctNoCash);
    VOREL_FIELD(gAcctNoOthers);
    VOREL_FIELD(gCashAccountIndex);
    VOREL_FIELD(gARAccountIndex);
    VOREL_FIELD(gAcctNoSales);
    VOREL_FIELD(gAcctNoSalesCopy);
    VOREL_FIELD(gAcctNoSalesInv);
    VOREL_FIELD(gAcctNoSalesInvCopy);
    VOREL_FIELD(gLockOldVersion);
    VOREL_FIELD(gLockDiscount);
    VOREL_FIELD(gLockDebt);
    VOREL_FIELD(gTranxStartDateForDebt);
    VOREL_FIELD(gAutoUpdateTariff);
    VOREL_FIELD(gAppLocation);
    VOREL_FIELD(gLockAttendanceForInPatients);
    VOREL_FIELD(gLockMultipleAttendance);
    VOREL_FIELD(gCallDefaults);
    VOREL_FIELD(gShutDown);
    VOREL_FIELD(gSearchValue);
    VOREL_FIELD(gEnableDOBExport);
    VOREL_FIELD(gSearchWaitTime);
    VOREL_FIELD(gRevtypeConsult);
    VOREL_FIELD(gLockSignedBill);
    VOREL_FIELD(gRevTypeDrug);
    VOREL_FIELD(gRevTypeMisc);
    VOREL_FIELD(gClinicPhoneNo);
    VOREL_FIELD(gClinicPeriod);
    VOREL_FIELD(gHospitalArchiveExists);
    VOREL_FIELD(gAdmissionLimitExists);
    VOREL_FIELD(gPrivatePaysDeposit);
    VOREL_FIELD(gAssignDoctorsToRooms);
    VOREL_FIELD(gAssignPatientsToDoctors);
    VOREL_FIELD(gShowNursesAsDoctors);

    VOREL_FIELD(gActivitySNo);
    VOREL_FIELD(gPatientBalance);
    VOREL_FIELD(gPatientHasBalance);
    VOREL_FIELD(gNextId);

    VOREL_FIELD(gClientRetainID);
    VOREL_FIELD(gClientName);
    VOREL_FIELD(gBillingCat);
    VOREL_FIELD(gClientType);
    VOREL_FIELD(gPatClassCat);
    VOREL_FIELD(gAttendPurpose);
    VOREL_FIELD(gScreeningAmount);
    VOREL_FIELD(gConsultAmount);
    VOREL_FIELD(gClinicName);
    VOREL_FIELD(gApptDate);
    VOREL_FIELD(gApptTime);
    VOREL_FIELD(gRenewPending);
    VOREL_FIELD(gRenewCaller);
    VOREL_FIELD(gCurPNo);
    VOREL_FIELD(gCurPatientName);
    VOREL_FIELD(gCurConsultPNo);
    VOREL_FIELD(gCommentConsultID);
    VOREL_FIELD(gWaitDate);
    VOREL_FIELD(gWaitDocName);
    VOREL_FIELD(gWaitEmpID);
    VOREL_FIELD(gWaitClinicID);
    VOREL_FIELD(gPhotoStore);
    VOREL_FIELD(gAutoCardNo);
    VOREL_FIELD(gNhisServiceNo);
    VOREL_FIELD(gNhisRegServiceNo);

    VOREL_FIELD(gPatientsWaiting);
    VOREL_FIELD(gAdmissionsWaiting);
    VOREL_FIELD(gNotificationsWaiting);
    VOREL_FIELD(gAnythingWaiting);
    VOREL_FIELD(gWatchTimersOn);
    VOREL_FIELD(gForcedLogoff);
    VOREL_FIELD(gNoteScope);
    VOREL_FIELD(gConsultHistoryArchive);
#undef VOREL_FIELD
}

}  // namespace core
