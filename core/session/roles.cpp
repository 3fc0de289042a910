#include "core/session/roles.h"

#include "core/session/session.h"

namespace core {

using namespace db::literals;

bool isManager(Workplace& place) {
    return !place.hospital()
                .read("select username from vwusers where loginrole = 'MANAGEMENT' and username='"_sql +
                      place.session.gUserName + "'")
                .empty();
}

}  // namespace core
