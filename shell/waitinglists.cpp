#include "shell/waitinglists.h"

namespace shell {

using namespace db::literals;

db::Sql patientsWaiting(const db::DateTime& date) {
    return "select recDate as Date,hTime as Time,pSurname as Surname,pfirstName as FirstName,Age,ClinicType from "
           "qryhPatListForNurse where recDate ='"_sql +
           date + "' and attendedTo=0";
}

db::Sql admissionsWaiting(const db::DateTime& date) {
    return "select Date,Time,Patient,Sex,Age,Coyname,Doctor,RoomNo from vwAdmissionWaitList where date ='"_sql + date +
           "'";
}

db::Sql notificationsWaiting(const std::string& department, const db::DateTime& date) {
    return "select SNo, Date, Time, Fullname, Remarks as Drug, AttendedTo, ConsultID FROM  vwhNotify where "
           "NotifyDept='"_sql +
           department + "' and Date='" + date + "' order by SNo Desc";
}

db::Sql fromExpiredStays() {
    return " from qryhAdmission  where ClientCat in ('PHIS','NHIS','HMO') and  getDate()>= "
           "IsNull(ExtendAdmissionLimitTo,getDate())"_sql;
}

}  // namespace shell
