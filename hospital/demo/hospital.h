#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "db/databases.h"
#include "hospital/demo/random.h"
#include "hospital/demo/rows.h"
#include "hospital/schema.h"

/// The demonstration hospital. It is planned in memory (who comes when, who lies in which ward) and written table by
/// table. Everything follows from the seed and the number of patients; days are counted back from the day on which it
/// is made.
namespace hospital::demo {

/// Who pays: a row of hRetainership.
struct Client {
    std::string id, name, code, type, category;
};

/// An item of a price list, with its price for private patients.
struct Item {
    std::string name, category;
    double price = 0;
};

/// What people come with. Drugs and tests are names of the price lists; `ward` says whether it may lead to a stay.
struct Illness {
    const char* complaint;
    const char* diagnosis;
    std::vector<const char*> drugs;  ///< "NAME|DOSE|TIMES|DAYS", e.g. "PARACETAMOL 500MG TAB|2 TABS|3|5"
    std::vector<const char*> tests;
    bool ward = false;
    const char* clinic = nullptr;  ///< the one clinic that sees it; without one every other clinic may
};
const std::vector<Illness>& illnesses();
/// One that a clinic sees, as an index; "" stands for any clinic that is no specialist's.
std::size_t illnessFor(Random& chance, std::string_view clinic);

/// A patient. He is worked out from the seed and his number whenever he is wanted, so a million need no memory.
struct Patient {
    int number = 0;     ///< from 1
    int principal = 0;  ///< the number of the family's head; 0 for one who is nobody's dependant
    std::string pno;    ///< "000000123/001"
    std::string surname, firstName;
    bool female = false;
    db::DateTime born, registered;
    const Client* client = nullptr;

    [[nodiscard]] std::string fullName() const { return surname + " " + firstName; }
    /// Whole years.
    [[nodiscard]] int ageOn(const db::DateTime& day) const noexcept;
};

struct Stay;

/// A visit: a row of hRecords and what belongs to it.
struct Visit {
    /// How far the patient came on that day.
    enum class Road { registered, seenByNurse, consulted };

    int patient = 0;
    db::DateTime at;
    std::string clinic;   ///< a ClinicID
    std::string purpose;  ///< of hClinicPurpose
    Road road = Road::consulted;
    std::size_t illness = 0;  ///< of illnesses()
    std::string doctor;       ///< an empID
    std::string nurse;        ///< an empID
    int stay = -1;            ///< the stay that it led to, of Hospital::stays; see also waitsForAdmission
    std::string consultID;    ///< known once the visits are in order
    std::int64_t conID = 0;   ///< the row of hConsulting, once it is written; 0 without a consultation
};

/// A stay in a ward, which began with a visit.
struct Stay {
    int patient = 0;
    const Visit* visit = nullptr;  ///< known once the visits are in order
    db::DateTime from;
    std::optional<db::DateTime> until;  ///< not set while the patient is in the ward
    std::string ward;
    bool limitOver = false;  ///< the scheme's days are used up
    bool overdue = false;    ///< discharged by the doctor, not yet by a nurse
    bool delivery = false;   ///< came to give birth
};

/// One pregnancy that the antenatal clinic follows, or followed.
struct Pregnancy {
    int patient = 0;
    db::DateTime lastPeriod;  ///< first day of the last menstrual period; birth is due 280 days later (Naegele's rule)
    int stay = -1;            ///< the stay of the delivery; -1 while she is pregnant
};

/// What all parts of the demonstration share.
class Hospital {
public:
    Hospital(db::Databases& databases, const Demonstration& wish);

    db::Connection& rows;     ///< the database "Hospital"
    db::Connection& archive;  ///< "HospitalArchive"
    db::Connection& sms;      ///< "SmsCenter"
    db::DateTime today;
    int patients;
    Random random;
    Progress progress;

    // The rows that stand before the first patient.
    std::vector<Client> clients;
    std::vector<std::string> nurses;   ///< empIDs
    std::vector<std::string> doctors;  ///< empIDs
    std::vector<std::string> wards;    ///< wardIDs
    std::vector<std::string> areas;
    std::vector<Item> drugs, tests, services;

    // The plan.
    std::vector<Visit> visits;  ///< in the order of time, so that their numbers rise
    std::vector<Stay> stays;
    std::vector<Pregnancy> pregnancies;

    [[nodiscard]] Patient patient(int number) const;
    /// A patient for a part that nobody else plays today (in a ward, in the waiting room): one whom `fits` takes, or 0
    /// when a long look finds none.
    int claim(const std::function<bool(const Patient&)>& fits);
    /// A doctor of a clinic; any doctor where the clinic has none.
    [[nodiscard]] const std::string& doctorOf(const std::string& clinic, Random& chance) const;
    /// `share` of the patients, but at least and at most so many.
    [[nodiscard]] int several(double share, int least, int most) const;
    /// The item of a list by its name; a throw names what the price lists lack.
    static const Item& named(const std::vector<Item>& list, std::string_view name);

private:
    void readLists();

    struct DoctorClinic {
        std::string doctor, clinic;
    };
    std::vector<DoctorClinic> doctorClinics_;
    std::unordered_set<int> claimed_;
};

// The parts, in the order in which they run. Each plans or writes one subject.

void planVisits(Hospital& hospital);
void planStays(Hospital& hospital);
void planPregnancies(Hospital& hospital);
/// Puts the visits in order, numbers them and ties the stays to theirs.
void orderVisits(Hospital& hospital);

void writePatients(Hospital& hospital);
void writeVisits(Hospital& hospital);        ///< attendance, vital signs, consultations with their orders, appointments
void writeStays(Hospital& hospital);         ///< referrals, admissions, discharges
void writeCharts(Hospital& hospital);        ///< the ward's vital signs, medication, fluids, notes and reports
void writeBirths(Hospital& hospital);        ///< pregnancies, deliveries, babies
void writeTreatments(Hospital& hospital);    ///< injections, dressings, immunizations, dialysis
void writeBills(Hospital& hospital);         ///< bill lines, bills and payments
void writeResults(Hospital& hospital);       ///< laboratory results
void writeOlderRecords(Hospital& hospital);  ///< the archive's consultations
void writeMessages(Hospital& hospital);      ///< comments, notifications, incidents, the addresses of text messages

}  // namespace hospital::demo
