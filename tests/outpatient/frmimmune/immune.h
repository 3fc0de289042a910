#pragma once

#include <string>

#include "core/session/session.h"
#include "outpatient/frmimmune/frmimmune.h"
#include "outpatient/screens.h"
#include "tests/contract/plainscreen.h"

namespace test {

inline constexpr const char* adaWaitsForVaccine = "Obi Ada 24-Nov-2026 @24-Nov-2026 08:15:00 IMMUNIZATION [C1]";
inline constexpr const char* musaWaitsForVaccine = "Bello Musa 24-Nov-2026 @24-Nov-2026 08:40:00 IMMUNIZATION [C2]";

/// A morning at the immunization clinic: Ada (HMO, six weeks old) and Musa (of the scheme, 22 months) wait, grown-up
/// Ngozi is in the house for something else. Ada had BCG and OPV 0 at birth. Vaccines have prices of the client 0007
/// and of the scheme.
void arrangeImmunization(TestHospital& hospital);

/// A nurse at the clinic of that morning.
class Immune : public PlainScreen {
protected:
    Immune() : PlainScreen("frmImmune", &outpatient::provideScreens, &arrangeImmunization) {}
    outpatient::frmImmune& screen() { return as<outpatient::frmImmune>(); }

    /// Adds a line: the price that the pick found stands, unless another is typed.
    void give(const char* vaccine) {
        set("cboDrug", vaccine);
        fire("cmdAddToGrid");
    }
    /// Types a visit that may be saved.
    void enterVisit(const char* child = adaWaitsForVaccine,
                    std::initializer_list<const char*> vaccines = {"OPV 1", "PENTA 1"}) {
        set("cboVehNo", child);
        for (const auto* vaccine : vaccines) give(vaccine);
        fill({{"cboAge", "6 weeks"}, {"txtRem", "Card stamped"}});
    }
    void wantNext(const nlohmann::json& day = "2026-12-22") {
        fill({{"chkRef", true}, {"dtNext", day}, {"dtRefTime", "08:30:00"}, {"txtImm", "OPV 2, PENTA 2"}});
    }
    void saveVisit(Says says = {"Record Succesfully saved"}) { fire("OKButton", says); }

    /// The lines of the grid, "a|b" each.
    std::string lines() {
        std::string all;
        for (std::size_t line = 0; line < screen().OrderGrid.lineCount(); ++line) {
            for (std::size_t column = 0; column < 6; ++column)
                all += screen().OrderGrid.text(line, column) + (column < 5 ? "|" : "\n");
        }
        return all;
    }
    std::string scheduled() {
        std::string all;
        const auto& grid = screen().schedule.grdSchedule;
        for (std::size_t row = 0; row < grid.rowCount(); ++row)
            all +=
                grid.cell(row, 0) + "|" + grid.cell(row, 3) + "|" + grid.cell(row, 4) + "|" + grid.cell(row, 1) + "\n";
        return all;
    }

    std::string visits() {
        using namespace db::literals;
        return dump(
            "select ImDate, PNo, empID, Remarks, imTime, AgeValue, IMMUNIZATION, consultID, clientCat, NextApptDate, "
            "NextApptTime, ImmType from hImmunization where ImDate='24-Nov-2026' order by ID"_sql);
    }
    std::string bill() {
        using namespace db::literals;
        return dump("select drgName, Price, Qty, SubTotal from billAccum order by SNO"_sql);
    }
    std::string referrals() {
        using namespace db::literals;
        return dump(
            "select consultID, clientCat, referto, ApptDate, ApptTime, refReason, PNo, refDate, refTime, conID from "
            "hreferal order by ID"_sql);
    }
    std::string appointments() {
        using namespace db::literals;
        return dump(
            "select consultID, clientCat, clinicType, ApptDate, ApptTime, Remarks, PNo, entryDate, entryTime, "
            "attendedto, conID from happointment order by SNo"_sql);
    }
    std::string messages() {
        using namespace db::literals;
        return hospital.dump("select sendDate, Phone, Remarks2, Catname, Code from MessageOut order by SNo"_sql,
                             "SmsCenter");
    }
    std::string audits() {
        using namespace db::literals;
        return dump("select userAction, TranCode, Remarks from hAuditTrail order by SNo"_sql);
    }
    /// All that a save writes.
    std::string rows() {
        using namespace db::literals;
        return dump("select * from hImmunization"_sql) + dump("select * from billAccum"_sql) +
               dump("select * from BillingDetails"_sql) + dump("select * from hPatientsTimeline"_sql) +
               dump("select * from hRecords"_sql) + referrals() + appointments() + messages();
    }
};

}  // namespace test
