#include "drive/json.h"

#include <array>
#include <cstdio>

namespace drive {

namespace {

std::string isoText(const db::DateTime& moment) {
    if (moment.date() == db::DateTime()) return moment == db::DateTime() ? moment.isoDate() : moment.isoTime();
    return moment.timeOfDay() == db::DateTime() ? moment.isoDate() : moment.iso();
}

std::string hexText(const db::Bytes& bytes) {
    std::string text;
    for (const std::byte byte : bytes) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02x", std::to_integer<unsigned>(byte));
        text += digits.data();
    }
    return text;
}

struct ToJson {
    nlohmann::json operator()(db::Null /*null*/) const { return nullptr; }
    nlohmann::json operator()(const db::DateTime& moment) const { return isoText(moment); }
    nlohmann::json operator()(const db::Bytes& bytes) const { return hexText(bytes); }
    template <typename T>
    nlohmann::json operator()(const T& content) const {
        return content;
    }
};

nlohmann::json jsonOf(const std::vector<std::pair<std::string, db::Value>>& named) {
    nlohmann::json object = nlohmann::json::object();
    for (const auto& [name, value] : named) object[name] = drive::jsonOf(value);
    return object;
}

}  // namespace

nlohmann::json jsonOf(const db::Value& value) {
    return std::visit(ToJson(), value.content());
}

nlohmann::json jsonOf(const db::Recordset& rows) {
    nlohmann::json list = nlohmann::json::array();
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        nlohmann::json& object = list.emplace_back(nlohmann::json::object());
        for (std::size_t column = 0; column < rows.fields().size(); ++column)
            object[rows.fields()[column]] = jsonOf(rows.value(row, column));
    }
    return list;
}

nlohmann::json jsonOf(const core::Session& session) {
    nlohmann::json object = nlohmann::json::object();
    session.forEach([&](const char* name, const db::Value& value) { object[name] = jsonOf(value); });
    return object;
}

nlohmann::json jsonOf(const db::Statement& statement) {
    using Kind = db::Statement::Kind;
    nlohmann::json sql = {{"text", statement.text}, {"on", statement.database}};
    if (statement.kind == Kind::call) sql["parameters"] = jsonOf(statement.parameters);
    if (statement.kind == Kind::insert || statement.kind == Kind::update) {
        const std::size_t blank = statement.text.find(' ');  // "insert hPatients"
        sql[statement.text.substr(0, blank)] = statement.text.substr(blank + 1);
        sql["columns"] = jsonOf(statement.parameters);
    }
    return {{"sql", std::move(sql)}};
}

}  // namespace drive
