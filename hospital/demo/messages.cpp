#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

#include "db/letters.h"
#include "hospital/demo/common.h"

using namespace db::literals;

namespace hospital::demo {
namespace {

std::map<std::string, std::string> pairs(db::Connection& connection, const db::Sql& sql) {
    const auto rows = connection.read(sql);
    std::map<std::string, std::string> result;
    for (std::size_t row = 0; row < rows.rowCount(); ++row)
        result.emplace(rows.value(row, 0).text(), rows.value(row, 1).textOr());
    return result;
}

/// A message between departments, waiting for its place in the order of time.
struct Message {
    db::DateTime at;
    std::string from, to, text;
    const Visit* visit = nullptr;
    bool read = false;
};

/// What the departments told one another: notifications of other modules, and comments by people.
class DepartmentWriter {
public:
    explicit DepartmentWriter(Hospital& hospital)
        : hospital_(hospital),
          names_(pairs(hospital.rows, "select empID, lastname + ' ' + firstname from employees"_sql)) {}

    void writeAll() {
        for (const auto& stay : hospital_.stays)
            if (stay.visit && stay.visit->conID != 0 && stay.until.value_or(hospital_.today) >= firstDay()) plan(stay);
        const auto byTime = [](const Message& left, const Message& right) { return left.at < right.at; };
        std::stable_sort(notices_.begin(), notices_.end(), byTime);
        std::stable_sort(comments_.begin(), comments_.end(), byTime);
        for (const auto& notice : notices_) writeNotice(notice);
        for (const auto& comment : comments_) writeComment(comment);
    }

private:
    [[nodiscard]] db::DateTime firstDay() const { return hospital_.today.plusDays(-30); }

    /// One notice on the day of admission and one today; comments go to and fro. Every second of those who lie in the
    /// wards has a comment for the nurses today.
    void plan(const Stay& stay) {
        auto& chance = hospital_.random;
        const auto first = minutesAfter(stay.from, 20);
        if (first >= firstDay()) planNotices(stay, first, first.date() < hospital_.today);
        if (chance.percent(50)) planComment(stay, minutesAfter(first, chance.between(30, 400)), false);
        if (stay.until) return;
        const auto morning = minutesAfter(hospital_.today, chance.between(390, 640));
        if (stay.from.date() < hospital_.today) planNotices(stay, morning, chance.percent(35));
        if (stay.from < morning) planComment(stay, minutesAfter(morning, chance.between(1, 15)), inWards_++ % 2 == 0);
    }

    void planNotices(const Stay& stay, const db::DateTime& at, bool read) {
        if (at > momentOfNow(hospital_)) return;
        for (const auto* text : illnesses()[stay.visit->illness].drugs) {
            const Order order(text);
            notices_.push_back({at, "PHARMACY", "NURSING", order.name + ", " + order.usage(), stay.visit, read});
        }
        if (hospital_.random.percent(20))
            notices_.push_back({at, "PHARMACY", "BILLING", "DEPOSIT IS USED UP", stay.visit, read});
    }

    void planComment(const Stay& stay, const db::DateTime& at, bool toNurses) {
        struct Talk {
            const char* from;
            const char* to;
            const char* text;
        };
        static const std::vector<Talk> talks = {
            {"LABORATORY", "NURSING", "Result of the blood film is ready."},
            {"LABORATORY", "NURSING", "Sample clotted, please send another in an EDTA bottle."},
            {"PHARMACY", "NURSING", "Second dose was not supplied, out of stock. Please tell the doctor."},
            {"BILLING", "NURSING", "Relations to see the cashier before discharge."},
            {"CONSULTING", "NURSING", "Please check BP 4 hourly and inform me if above 160/100."},
            {"CONSULTING", "NURSING", "Fasting from midnight, for scan in the morning."},
            {"RECORDS", "NURSING", "Patient's enrollee number is not correct, kindly confirm."},
            {"NURSING", "PHARMACY", "Kindly send the drugs for the night."},
            {"NURSING", "LABORATORY", "Urgent PCV sent, please call the ward."},
            {"NURSING", "CONSULTING", "Patient spiked temp of 39.2 deg C, paracetamol given."}};
        const Talk* talk = &hospital_.random.pick(talks);
        while (toNurses && std::string_view(talk->to) != "NURSING") talk = &hospital_.random.pick(talks);
        if (at > momentOfNow(hospital_) || at < firstDay()) return;
        const bool today = at.date() == hospital_.today;
        comments_.push_back({at, talk->from, talk->to, talk->text, stay.visit, !today || commentsOfToday_++ % 4 == 1});
    }

    void writeNotice(const Message& notice) {
        noticeRows_.add({notice.at.date(), notice.at.timeOfDay(), notice.visit->consultID,
                         hospital_.patient(notice.visit->patient).pno, notice.to, notice.text,
                         notice.read ? "YES" : "NO"});
    }

    /// The text is put together as the screen does it.
    void writeComment(const Message& comment) {
        const auto& author = comment.from == "CONSULTING" ? comment.visit->doctor : comment.visit->nurse;
        const auto name = hospital_.patient(comment.visit->patient).fullName();
        const auto text = "Comment on " + comment.at.shortDate() + " @ " + comment.at.shortTime() + " for " + name +
                          "\r\n" + comment.text + "\r\nComment by " + authorOf(comment, author) +
                          "\r\nFrom: " + comment.from;
        commentRows_.add({comment.to, comment.visit->consultID, comment.read ? "YES" : "NO", text, comment.at.date(),
                          comment.at.timeOfDay()});
    }

    /// The departments without staff of the plan have one name each.
    std::string authorOf(const Message& comment, const std::string& empID) const {
        static const std::map<std::string, const char*> others = {
            {"LABORATORY", "L001"}, {"PHARMACY", "P001"}, {"BILLING", "B001"}, {"RECORDS", "R001"}};
        const auto other = others.find(comment.from);
        const auto found = names_.find(other == others.end() ? empID : other->second);
        return found == names_.end() ? "DUTY STAFF" : found->second;
    }

    Hospital& hospital_;
    std::map<std::string, std::string> names_;  ///< of the staff, by empID
    std::vector<Message> notices_, comments_;
    int inWards_ = 0, commentsOfToday_ = 0;
    Rows noticeRows_{
        hospital_.rows, "hNotify", {"nDate", "nTime", "consultID", "PNo", "NotifyDept", "Remarks", "AttendedTo"}};
    Rows commentRows_{hospital_.rows, "hComments", {"Dept", "consultID", "attendedto", "Comment", "CDate", "ctime"}};
};

/// Those who left a ward otherwise than planned; their discharges then say so.
void writeIncidents(Hospital& hospital) {
    struct Incident {
        const char* type;
        const char* remarks;
    };
    static const std::vector<Incident> incidents = {
        {"No of discharge against medical advice", "Relations signed, advised on the risks"},
        {"Abscond rate", "Not found on the bed at the night round, security informed"},
        {"Referred rate", "Referred to a teaching hospital, went in our ambulance"}};
    Rows rows(hospital.rows, "hInPatientIncidents",
              {"IncDate", "IncidentType", "PNo", "consultID", "wardID", "Remarks", "empID"});
    std::vector<const Stay*> ended;
    for (const auto& stay : hospital.stays)
        if (stay.until && stay.visit && !stay.delivery && stay.until->date() < hospital.today) ended.push_back(&stay);
    std::stable_sort(ended.begin(), ended.end(),
                     [](const Stay* left, const Stay* right) { return *left->until > *right->until; });
    const auto wanted = static_cast<std::size_t>(hospital.several(0.006, 6, 120));
    const auto step = std::max<std::size_t>(1, std::min<std::size_t>(ended.size() / wanted, 6));
    for (std::size_t i = 0; i < wanted && i * step < ended.size(); ++i) {
        const auto& stay = *ended[i * step];
        const auto& incident = incidents[i % incidents.size()];
        rows.add({stay.until->date(), incident.type, hospital.patient(stay.patient).pno, stay.visit->consultID,
                  stay.ward, incident.remarks, hospital.random.pick(hospital.nurses)});
    }
    hospital.rows.execute(
        "update hdischarge set Reason = 'Left otherwise than planned', Remarks = 'See the incident report' where "
        "consultID in "
        "(select consultID from hInPatientIncidents)"_sql);
    hospital.rows.execute(
        "update hdischargeForNurse set Reason = 'Left otherwise than planned', Remarks = 'See the incident report' "
        "where "
        "consultID in (select consultID from hInPatientIncidents)"_sql);
}

/// The last visits of patients of such an age and more who came to a doctor and were not admitted, the latest first.
std::vector<const Visit*> lastVisitsOfOld(const Hospital& hospital, int age) {
    std::set<int> cameLater;
    std::vector<const Visit*> result;
    for (auto visit = hospital.visits.rbegin(); visit != hospital.visits.rend(); ++visit)
        if (cameLater.insert(visit->patient).second && visit->conID != 0 && visit->stay == -1 &&
            visit->at < hospital.today.plusDays(-3) && hospital.patient(visit->patient).ageOn(visit->at) >= age)
            result.push_back(&*visit);
    return result;
}

/// A few people who died in the emergency ward, soon after they had come and before they were admitted: old ones, where
/// the hospital has as many.
void writeDeaths(Hospital& hospital) {
    static const std::vector<const char*> reasons = {"Brief Illness", "protracted Illness", "Others"};
    auto wanted = static_cast<std::size_t>(hospital.several(0.0015, 2, 60));
    auto possible = lastVisitsOfOld(hospital, 60);
    if (possible.size() < wanted) possible = lastVisitsOfOld(hospital, 18);
    wanted = std::min(wanted, possible.size());
    Rows rows(hospital.rows, "hRests",
              {"rDate", "rtime", "PNo", "wardID", "certifiedby", "moveDate", "Remarks", "Reason", "Age"});
    for (std::size_t i = wanted; i > 0; --i) {  // the earliest first
        const auto& visit = *possible[i * possible.size() / (wanted + 1)];
        const auto patient = hospital.patient(visit.patient);
        const auto moment = minutesAfter(visit.at, hospital.random.between(70, 260));
        rows.add({moment.date(), moment.timeOfDay(), patient.pno, "EMERGENCY WARD", visit.doctor, moment.date(),
                  "Resuscitated for 40 minutes without response. Relations informed.", hospital.random.pick(reasons),
                  patient.ageOn(moment) < 65 ? "Adult" : "Old Age"});
    }
}

/// The text messages: whom they go to, and what went out and waits to go.
class SmsWriter {
public:
    explicit SmsWriter(Hospital& hospital)
        : hospital_(hospital),
          defaults_(pairs(hospital.rows, "select ID, idval from AppDefaults"_sql)),
          clinics_(pairs(hospital.sms, "select ClinicName, Designation from SmsClinics"_sql)),
          hospitalName_(hospital.rows.read("select max(hname) from hHospital"_sql).value(0, 0).textOr()) {
        const auto kinds = hospital.sms.read("select Category, SNoCat, Details, Remarks from SmsCategories"_sql);
        for (std::size_t row = 0; row < kinds.rowCount(); ++row)
            kinds_[kinds.value(row, 0).text()] = {kinds.value(row, 1), kinds.value(row, 2).textOr(),
                                                  kinds.value(row, 3)};
    }

    void writeAll() {
        writeClinics();
        writePatients();
        writeAppointments();
        writeGreetings();
    }

private:
    struct Address {
        std::string name, parent, phone;
    };
    struct Kind {
        db::Value number;
        std::string details;
        db::Value remarks;
    };

    /// A clinic that has no words of its own yet is called by its name.
    void writeClinics() {
        Rows rows(hospital_.sms, "SmsClinics", {"ClinicName", "Designation"});
        const auto found = hospital_.rows.read(
            "select ClinicName from clinicTypes where ClinicName not in ('(IN-PATIENT)', 'IN-PATIENT') order by ClinicName"_sql);
        for (std::size_t row = 0; row < found.rowCount(); ++row) {
            const auto clinic = found.value(row, 0).text();
            if (clinics_.contains(clinic)) continue;
            auto words = clinic.size() > 3 ? db::lowered(clinic) : clinic;  // "ENT" is no word
            words.front() = clinic.front();
            rows.add({clinic, words});
            clinics_[clinic] = words;
        }
    }

    /// Those who came last; in all but the largest hospitals everybody.
    void writePatients() {
        const auto found = hospital_.rows.read(
            "select top 20000 PNo, Title, psurname, pfirstName, pPhoneNo, DOB from hPatients order by LastAttndDate desc, PNo"_sql);
        const auto grownUp = hospital_.today.plusMonths(-18 * 12);
        Rows rows(hospital_.sms, "SmsPatients", {"pno", "Fullname", "Fullname2", "PhoneNo"});
        for (std::size_t row = 0; row < found.rowCount(); ++row) {
            const auto first = found.value(row, 3).text();
            const auto name = found.value(row, 2).text() + " " + first;
            const bool child = !found.value(row, 5).isNull() && found.value(row, 5).moment() > grownUp;
            const Address address{child ? name : found.value(row, 1).textOr() + " " + name,
                                  child ? "Dear parent of " + first : "", found.value(row, 4).textOr()};
            rows.add(
                {found.value(row, 0), address.name, child ? db::Value(address.parent) : db::Value(), address.phone});
            addresses_.emplace(found.value(row, 0).text(), address);
        }
    }

    void writeAppointments() {
        const auto found = hospital_.rows.read(
            "select PNo, consultID, clinicType, ApptDate, entryDate from happointment where clinicType <> "
            "'(IN-PATIENT)' and "
            "entryDate >= '"_sql +
            hospital_.today.plusDays(-14) + "' order by SNo");
        for (std::size_t row = 0; row < found.rowCount(); ++row) {
            const auto address = addresses_.find(found.value(row, 0).text());
            if (address == addresses_.end()) continue;
            const auto clinic = found.value(row, 2).text();
            const auto day = found.value(row, 3).moment();
            const auto entered = found.value(row, 4).moment();
            const auto text = appointmentText(address->second, clinic, day);
            const auto consultID = found.value(row, 1).text();
            if (day > entered.plusDays(1))
                add("APPT", address->second, text, entered, day.plusDays(-1), clinic, consultID);
            add("APPT", address->second, text, entered, entered, clinic, consultID);
        }
    }

    std::string appointmentText(const Address& to, const std::string& clinic, const db::DateTime& day) {
        const auto& designation = clinics_[clinic];
        const auto first = to.parent.empty() ? "Dear " + to.name + " You have " + designation + " Clinic APPOINTMENT"
                                             : to.parent + " You have an APPOINTMENT with the " + designation;
        return hospitalName_ + "\r\n" + first + "\r\nDate: " + day.shortDate() +
               "\r\nTime: " + defaults_["Clinic_Period"] + "\r\nResponse: " + defaults_["Clinic_PhoneNo"];
    }

    void writeGreetings() {
        const auto first = hospital_.today.plusDays(-2);
        for (const auto& visit : hospital_.visits) {
            if (visit.at < first || visit.at > momentOfNow(hospital_)) continue;
            const auto address = addresses_.find(hospital_.patient(visit.patient).pno);
            if (address == addresses_.end()) continue;
            const auto day = visit.at.date();
            add("ATTEND", address->second,
                hospitalName_ + "\r\nDear " + address->second.name + " " + kinds_["ATTEND"].details, day, day,
                visit.clinic, visit.consultID);
        }
    }

    /// The gateway has sent what was to go before today: its run is at the end of the day.
    void add(const std::string& category, const Address& to, const std::string& text, const db::DateTime& day,
             const db::DateTime& sendOn, const std::string& clinic, const std::string& consultID) {
        const auto& kind = kinds_[category];
        const auto phone = to.phone.size() == 11 ? "234" + to.phone.substr(1) : to.phone;
        messages_.add({day.date(), text, phone, sendOn < hospital_.today, kind.number, sendOn.date(), "11:59 PM",
                       kind.remarks, clinic, category, to.name, consultID});
    }

    Hospital& hospital_;
    std::map<std::string, std::string> defaults_, clinics_;
    std::string hospitalName_;
    std::map<std::string, Kind> kinds_;
    std::unordered_map<std::string, Address> addresses_;  ///< by PNo
    Rows messages_{hospital_.sms,
                   "MessageOut",
                   {"Date", "Message", "Phone", "isSent", "SNoCat", "sendDate", "sendTime", "Remarks", "Remarks2",
                    "Catname", "fullName", "Code"}};
};

/// Who used the module in the last two weeks, and what was done with it.
class UseWriter {
public:
    explicit UseWriter(Hospital& hospital)
        : hospital_(hospital),
          users_(pairs(
              hospital.rows,
              "select EmpID, username from vwUsers where loginrole = 'NURSING' and AccountStatus = 'Enabled'"_sql)) {}

    void writeAll() {
        for (int daysAgo = 14; daysAgo >= 0; --daysAgo) writeDay(hospital_.today.plusDays(-daysAgo));
        writeTrail();
    }

private:
    /// The shifts come at eight, at two and at eight in the evening, a few minutes early.
    void writeDay(const db::DateTime& day) {
        static constexpr std::array<int, 3> starts = {475, 835, 1195};
        static constexpr std::array<int, 3> lengths = {370, 370, 730};
        const auto now = momentOfNow(hospital_);
        std::size_t turn = static_cast<std::size_t>(hospital_.random.below(3));
        std::vector<std::pair<db::DateTime, std::pair<std::string, int>>> logins;
        for (const auto& [empID, name] : users_) {
            const auto shift = turn++ % 3;
            const auto from = minutesAfter(day, starts[shift] + hospital_.random.below(20));
            if (from <= now && hospital_.random.percent(80)) logins.push_back({from, {name, lengths[shift]}});
        }
        std::stable_sort(logins.begin(), logins.end(),
                         [](const auto& left, const auto& right) { return left.first < right.first; });
        for (const auto& [from, login] : logins) writeLogin(from, login.first, minutesAfter(from, login.second));
    }

    void writeLogin(const db::DateTime& from, const std::string& name, const db::DateTime& until) {
        if (hospital_.random.percent(8)) trail(name, "Failed Logon", minutesAfter(from, -1));
        trail(name, "Successful Logon", from);
        // One in twelve switches the workstation off instead.
        const bool left = until <= momentOfNow(hospital_) && hospital_.random.percent(92);
        activities_.add({name, from.date(), from.timeOfDay(), left, 1, left ? db::Value(until.date()) : db::Value(),
                         left ? db::Value(until.timeOfDay()) : db::Value(), false, "NURSING"});
    }

    void trail(const std::string& name, const char* outcome, const db::DateTime& moment) {
        const auto p = moment.parts();
        logins_.add({name, outcome, zeroPadded(p.day, 2) + "-" + zeroPadded(p.month, 2) + "-" + std::to_string(p.year),
                     moment.isoTime()});
    }

    /// What the nurses entered for the last visits.
    void writeTrail() {
        const auto now = momentOfNow(hospital_);
        for (const auto& visit : lastVisits(hospital_, static_cast<std::size_t>(hospital_.several(0.1, 40, 1500)))) {
            const auto user = users_.find(visit.nurse);
            const auto moment = minutesAfter(visit.at, 16);
            if (user == users_.end() || visit.road == Visit::Road::registered || moment > now) continue;
            const bool vaccine = visit.clinic == "IMMUNIZATION";
            const auto name = hospital_.patient(visit.patient).fullName();
            audit_.add({user->second, (vaccine ? "Insert Immunization for: " : "Insert Vitals of: ") + name,
                        moment.date(), moment.timeOfDay(), visit.consultID, "By Nurse", "NURSE-PC1: from NURSING"});
        }
    }

    Hospital& hospital_;
    std::map<std::string, std::string> users_;  ///< user names of nurses, by empID
    Rows logins_{hospital_.rows, "LoginTrail", {"userName", "outcome", "loginDate", "loginTime"}};
    Rows activities_{hospital_.rows,
                     "UserActivities",
                     {"username", "LoginDate", "LoginTime", "islogout", "AppVersion", "LogoutDate", "LogoutTime",
                      "AutoLogoff", "Remarks"}};
    Rows audit_{hospital_.rows,
                "hAuditTrail",
                {"userName", "userAction", "ActionDate", "ActionTime", "TranCode", "Remarks", "Src"}};
};

}  // namespace

void writeMessages(Hospital& hospital) {
    DepartmentWriter(hospital).writeAll();
    writeIncidents(hospital);
    writeDeaths(hospital);
    SmsWriter(hospital).writeAll();
    UseWriter(hospital).writeAll();
}

}  // namespace hospital::demo
