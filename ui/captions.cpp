#include "ui/captions.h"

#include <algorithm>
#include <array>
#include <utility>

#include "db/letters.h"

namespace ui {

namespace {

using Words = std::pair<std::string_view, std::string_view>;

/// All screens and reports share these: one column is called the same wherever it shows. In the order of the names.
constexpr std::array columns = std::to_array<Words>({
    {"-------------------no of units--------------", "Units"},
    {"-------------------sub total------------", "Sub-total"},
    {"-------category------", "Category"},
    {"-------drug/service------", "Drug or Service"},
    {"------price---------", "Price"},
    {"3mthly", "3 Monthly"},
    {"6mthly", "6 Monthly"},
    {"acetone", "Acetone"},
    {"admdate", "Admitted on"},
    {"admissiondayslimit", "Admission Limit"},
    {"admitedby", "Doctor"},
    {"age", "Age"},
    {"agevalue", "Age"},
    {"aib", "ALB"},
    {"amount", "Amount"},
    {"anaesthetist", "Anaesthetist"},
    {"ancregno", "Antenatal No"},
    {"approvedby", "Approved by"},
    {"apptdate", "Appointment"},
    {"area", "Area"},
    {"assistant", "Assistant"},
    {"atime", "Admitted at"},
    {"attendedto", "Attended to"},
    {"attendtime", "Time"},
    {"bdate", "Born on"},
    {"billingcat", "Billing Category"},
    {"billno", "Bill No"},
    {"billto", "Bill to"},
    {"blood", "Blood"},
    {"bloodgroup", "Blood Group"},
    {"btime", "Born at"},
    {"capitated", "Capitated"},
    {"cardtype", "Card"},
    {"cbn", "CBN"},
    {"charttime", "Hour"},
    {"chestxray", "Chest X-Ray"},
    {"client", "Client"},
    {"clientcat", "Client Category"},
    {"clinic", "Clinic"},
    {"clinicid", "Clinic No"},
    {"clinictype", "Clinic"},
    {"comment", "Comment"},
    {"comments", "Comments"},
    {"company", "Client"},
    {"completed", "Complete"},
    {"consent", "Consent"},
    {"consultid", "Visit No"},
    {"coyname", "Client"},
    {"coytype", "Client Type"},
    {"date", "Date"},
    {"dept", "Department"},
    {"details", "Details"},
    {"diagnosis", "Diagnosis"},
    {"dischdate", "Discharged on"},
    {"dischtime", "Discharged at"},
    {"discontinued", "Discontinued"},
    {"dob", "Birth Date"},
    {"docid", "Doctor No"},
    {"docname", "Doctor"},
    {"doctor", "Doctor"},
    {"doctorname", "Doctor"},
    {"drug", "Drug"},
    {"drugfullygiven", "Given in full"},
    {"dtedd", "Expected on"},
    {"ecg", "ECG"},
    {"email", "E-mail"},
    {"empid", "Staff No"},
    {"empname", "By"},
    {"empno", "Enrollee No"},
    {"enrolleno", "Enrollee No"},
    {"entrytype", "Kind"},
    {"event", "Event"},
    {"expired", "Expired"},
    {"expiredadmission", "Stay allowed until"},
    {"expirydate", "Card ends on"},
    {"extendadmissionlimitto", "Stay allowed until"},
    {"feeforservice", "Fee for Service"},
    {"fileduration", "Card Duration"},
    {"findings", "Findings"},
    {"firstname", "First Name"},
    {"fullname", "Full Name"},
    {"genotype", "Genotype"},
    {"hb", "HB"},
    {"heading", "Heading"},
    {"height", "Height"},
    {"hgp", "Pulse after"},
    {"hiv", "HIV"},
    {"hmo", "HMO"},
    {"hmoplan", "Plan"},
    {"hmoref", "HMO Referral"},
    {"homeaddress", "Home Address"},
    {"id", "No"},
    {"imdate", "Date"},
    {"immtype", "Next Vaccine"},
    {"imtime", "Time"},
    {"indications", "Indications"},
    {"intakefluid", "Fluid given"},
    {"intakefluidtype", "Intake"},
    {"intakevol", "Intake (ml)"},
    {"introducedby", "Introduced by"},
    {"isdischarged", "Discharged"},
    {"isold", "Replaced"},
    {"item", "Item"},
    {"kinaddress", "Next of Kin's Address"},
    {"labitem", "Test"},
    {"lastattnddate", "Last Attendance"},
    {"lastname", "Surname"},
    {"location", "Location"},
    {"marital", "Marital Status"},
    {"maturity", "Maturity"},
    {"mthly", "Monthly"},
    {"ndate", "Date"},
    {"nepa", "NEPA"},
    {"newfileno", "System No"},
    {"newreg", "New Registration"},
    {"nextapptdate", "Next Appointment"},
    {"nextappttime", "Appointment at"},
    {"nextofkin", "Next of Kin"},
    {"nhis", "NHIS"},
    {"no of times", "Times"},
    {"no of units", "Units"},
    {"nokphone", "Next of Kin's Phone"},
    {"noofdays", "Days"},
    {"note", "Note"},
    {"notes", "Notes"},
    {"ntime", "Time"},
    {"numofpat", "Patients waiting"},
    {"numtaken", "Doses"},
    {"nurse", "Nurse"},
    {"nurseid", "Nurse No"},
    {"occultblood", "Occult blood (Stool)"},
    {"occupation", "Occupation"},
    {"officeaddress", "Office"},
    {"old fileno", "Card No"},
    {"oldpno", "Card No"},
    {"operation", "Operation"},
    {"others", "Others"},
    {"outputfluid", "Output"},
    {"outputfluidtype", "Output Kind"},
    {"outputvol", "Output (ml)"},
    {"patcat", "Patient Category"},
    {"patient", "Patient"},
    {"patno", "System No"},
    {"pcv", "PCV"},
    {"pfirstname", "First Name"},
    {"phoneno", "Phone No"},
    {"pno", "System No"},
    {"policytype", "Plan"},
    {"positioning", "Position"},
    {"postopbp", "Post-OP-BP"},
    {"predate", "Date"},
    {"preopbp", "Pre-OP-BP"},
    {"prescription", "Prescription"},
    {"pressure", "Pressure"},
    {"pretime", "Time"},
    {"private", "Private"},
    {"procedure", "Procedure"},
    {"psurname", "Surname"},
    {"pulse", "Pulse"},
    {"purpose", "Purpose"},
    {"qty/unit", "Unit"},
    {"rbs", "Random Blood Sugar"},
    {"reactiontime", "Reaction at"},
    {"reason", "Reason"},
    {"recdate", "Date"},
    {"ref", "Fee for Service"},
    {"refdate", "Referred on"},
    {"referal", "Referral"},
    {"referto", "Referred to"},
    {"refreason", "Reason"},
    {"reftime", "Referred at"},
    {"regdate", "Registered on"},
    {"relation", "Relationship"},
    {"relationtokin", "Relation to Kin"},
    {"religion", "Religion"},
    {"remarks", "Remarks"},
    {"respratio", "Respiration"},
    {"result", "Result"},
    {"retainid", "Client No"},
    {"roomno", "Room"},
    {"sdate", "Date"},
    {"sediments", "Sediments"},
    {"service", "Service"},
    {"sex", "Sex"},
    {"sg", "Specific Gravity"},
    {"shift", "Shift"},
    {"signsandsymptoms", "Signs and Symptoms"},
    {"sno", "No"},
    {"specialdrainage", "Special Drainage"},
    {"spo2", "SPO2"},
    {"staffname", "Nurse"},
    {"staffno", "Doctor No"},
    {"status", "Status"},
    {"stool", "Stool"},
    {"sub total", "Sub-total"},
    {"subhead", "Sub-heading"},
    {"sugar", "Sugar"},
    {"surgeon", "Surgeon"},
    {"surname", "Surname"},
    {"sympitem", "Test"},
    {"tariffstatus", "Monetary Value"},
    {"temp", "Temperature"},
    {"time", "Time"},
    {"timeseenbydoctor", "Seen by Doctor at"},
    {"title", "Title"},
    {"totaltaken", "Given"},
    {"totaltotake", "Doses in all"},
    {"urea", "Urea"},
    {"urea_cl", "CL"},
    {"urea_na", "Na"},
    {"urea_pco3", "PCO3"},
    {"urinalysis", "Urinalysis"},
    {"urine", "Urine"},
    {"urinealb", "Urine Albumen"},
    {"urinesug", "Urine Sugar"},
    {"usage", "Usage"},
    {"ward", "Ward"},
    {"wardid", "Ward"},
    {"wardname", "Ward Name"},
    {"wbc", "WBC Total"},
    {"wbc_e", "E"},
    {"wbc_esr", "ESR"},
    {"wbc_l", "L"},
    {"wbc_m", "M"},
    {"wbc_p", "P"},
    {"weight", "Weight"},
});
static_assert(std::is_sorted(columns.begin(), columns.end()));

constexpr bool isCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

/// "RoomState" as "Room State", "SysNo" as "Sys No"; what has blanks is words already.
std::string apart(std::string_view name) {
    std::string words;
    for (std::size_t place = 0; place < name.size(); ++place) {
        const bool begins =
            isCapital(name[place]) && place > 0 && name[place - 1] != ' ' && !isCapital(name[place - 1]);
        if (begins) words += ' ';
        words += name[place] == '_' ? ' ' : name[place];
    }
    return words;
}

/// The dashes around a name give its column its width on paper.
std::string_view withoutRules(std::string_view name) {
    const auto first = name.find_first_not_of('-');
    if (first == std::string_view::npos) return name;
    return name.substr(first, name.find_last_not_of('-') - first + 1);
}

}  // namespace

std::optional<std::string> knownCaption(std::string_view column) {
    const auto bare = withoutRules(column);
    if (bare != column) return knownCaption(bare).value_or(std::string(bare));
    const std::string wanted = db::lowered(column);
    const auto* const found =
        std::lower_bound(columns.begin(), columns.end(), wanted,
                         [](const Words& words, std::string_view name) { return words.first < name; });
    if (found == columns.end() || found->first != wanted) return std::nullopt;
    return std::string(found->second);
}

std::string columnCaption(std::string_view column) {
    return knownCaption(column).value_or(apart(column));
}

std::string wordsOfName(std::string_view name) {
    for (const std::string_view prefix : {"frm", "rpt"})
        if (name.size() > prefix.size() && db::sameName(name.substr(0, prefix.size()), prefix))
            return apart(name.substr(prefix.size()));
    return apart(name);
}

}  // namespace ui
