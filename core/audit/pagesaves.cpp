#include "core/audit/pagesaves.h"

#include <memory>

#include "core/session/workplace.h"

namespace core {

using namespace db::literals;

namespace {

constexpr int daysKept = 31;

void note(db::Connection& hospital, const std::string& user, const ui::SaveNotes& notes, const std::string& screen) {
    hospital.execute("delete from PageSaves where SessionID='"_sql + notes.session + "'");
    hospital.execute("insert into PageSaves (SessionID, userName, Request, Screen) values ('"_sql + notes.session +
                     "','" + user + "'," + static_cast<std::int64_t>(notes.request()) + ",'" + screen + "')");
}

}  // namespace

void notePageSaves(Workplace& place, const std::string& user, const ui::SaveNotes& notes) {
    auto screen = std::make_shared<std::string>();  // of the save that commits now
    const auto before = [&place, user, notes, screen](db::Connection& connection) {
        screen->clear();
        if (place.saving.empty() || connection.database() != "Hospital") return;
        note(connection, user, notes, place.saving);
        *screen = place.saving;
    };
    const auto after = [notes, screen] {
        if (!screen->empty()) notes.committed(*screen);
        screen->clear();
    };
    place.databases.setAroundCommit({before, after});
}

std::optional<ui::StoredSave> lastPageSave(Workplace& place, const std::string& user, const std::string& session) {
    const auto rows = place.databases.named("Hospital")
                          .read("select Request, Screen from PageSaves where SessionID='"_sql + session +
                                "' and userName='" + user + "'");
    if (rows.empty()) return std::nullopt;
    return ui::StoredSave{static_cast<std::uint64_t>(rows["Request"].int32()), rows["Screen"].text()};
}

void forgetOldPageSaves(db::Databases& databases) {
    auto& hospital = databases.named("Hospital");
    hospital.execute("delete from PageSaves where SavedAt<'"_sql + db::DateTime::now().plusDays(-daysKept).shortDate() +
                     "'");
}

}  // namespace core
