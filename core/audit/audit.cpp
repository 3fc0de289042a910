#include "core/audit/audit.h"

#include "core/clock/clock.h"
#include "core/session/session.h"
#include "core/session/trap.h"
#include "core/session/workplace.h"
#include "db/command.h"

namespace core {

void AuditTrail(Workplace& place, const std::string& userName, const std::string& userAction,
                const std::string& tranCode, const std::string& remarks, const std::string& src) {
    using enum db::Command::Type;
    trapped(place, [&] {
        const auto& session = place.session;
        db::Command command(place.hospital(), "SpAudiTrail");
        command.append("@userName", varText, 50, userName);
        command.append("@userAction", varText, 1000, userAction);
        command.append("@ActionDate", dateTime, 10, session.gServerNow.date());
        command.append("@ActionTime", dateTime, 10, shortTime(session.gServerNow));
        command.append("@TranCode", varText, 50, tranCode);
        command.append("@Remarks", varText, 1000, remarks);
        command.append("@Src", varText, 100, src + ": from " + session.gModuleRole);
        command.execute();
    });
}

}  // namespace core
