#include "core/numbers/numbers.h"

#include <limits>

#include "core/session/session.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "db/command.h"
#include "db/error.h"

namespace core {
namespace {

using namespace db::literals;

/// The number in an identifier from its character `from` on, without the hospital's number behind the slash, plus the
/// gap that a number drawn meanwhile may take.
std::int64_t behind(const db::Value& identifier, std::size_t from) {
    constexpr std::int64_t gap = 5;
    std::int64_t last = 0;
    if (!identifier.isNull()) {
        const auto text = identifier.text().substr(0, identifier.text().find('/'));
        last = db::Value(text.size() > from ? text.substr(from) : std::string()).int32();
    }
    if (last + gap > std::numeric_limits<std::int32_t>::max()) throw db::Error(db::Category::type, "Overflow");
    return last + gap;
}

}  // namespace

void GetNextIdNo(Workplace& place, const std::string& destName) {
    trapped(place, [&] {
        db::Command command(place.hospital(), "getIDNo");
        command.append("DestName", db::Command::Type::varText, 50, destName);
        const auto result = command.execute();
        place.session.gNextId = result.empty() ? std::string() : result["getIDNo"].textOr();
    });
}

void ResyncConsultId(Workplace& place) {
    const auto last = place.hospital().read(
        "select top 1 ConsultID from hRecords where substring(consultID,1,3) = '001' order by recID  desc"_sql);
    if (last.empty()) return;
    place.hospital().execute("update idgen set id="_sql + behind(last["ConsultID"], 3) +
                             " where destNAme='ConsultID2'");
}

void ResyncPatientId(Workplace& place) {
    const auto last = place.hospital().read("select top 1 PNO from hPatients  order by PNO  desc"_sql);
    if (last.empty()) return;
    place.hospital().execute("update idgen set id="_sql + behind(last["PNO"], 4) + " where destNAme='PATIENT2'");
}

}  // namespace core
