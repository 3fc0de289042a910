#include "app/config.h"

#include <iterator>

namespace app {

namespace {

using Text = web::Setting::Text;
using Number = web::Setting::Number;

const char* tableFault(const std::string& text) {
    return text.empty() || text.size() == 94 ? nullptr : "must have 94 characters";
}

const char* yesFault(const std::string& text) {
    return text.empty() || text == "YES" || text == "NO" ? nullptr : "must be YES or NO";
}

const char* rowFault(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos && text.size() < 10
               ? nullptr
               : "must be the SNo of a row of hServiceNHIS";
}

std::vector<web::Setting> hospitalSettings(Config& config) {
    core::Settings& session = config.session;
    std::vector<web::Setting> settings = {
        {"encoding_table", Text{&session.encodingTable, &tableFault}},
        {"hospital.number", Text{&config.hospitalNumber}},
        {"hospital.server", Text{&config.serverName}},
        {"registration.desk_in_menu", &session.deskInMenu},
        {"registration.auto_card_no", Text{&session.autoCardNo, &yesFault}},
        {"registration.consultation_service", Text{&session.nhisServiceNo, &rowFault}},
        {"registration.registration_service", Text{&session.nhisRegServiceNo, &rowFault}},
        {"session.idle_minutes", Number{&session.idleMinutes, 0, 24 * 60}},
        {"session.most_hours", Number{&session.mostHours, 0, 24 * 365}},
    };
    for (const auto& database : db::DataSources::names()) {
        db::Source& source = config.sources[database];
        settings.push_back({"sources." + database + ".engine", Text{&source.engine}});
        settings.push_back({"sources." + database + ".location", Text{&source.location}});
    }
    return settings;
}

}  // namespace

std::vector<web::Setting> settingsOf(Config& config) {
    auto settings = web::settingsOf(config.host);
    auto hospital = hospitalSettings(config);
    std::move(hospital.begin(), hospital.end(), std::back_inserter(settings));
    return settings;
}

Config readConfig(const std::string& file) {
    Config config;
    web::readSettings(file.empty() ? std::nullopt : std::optional<std::filesystem::path>(file),
                      web::processEnvironment(), settingsOf(config));
    if (config.session.encodingTable.empty()) config.session.encodingTable = core::Settings::builtInEncodingTable();
    return config;
}

}  // namespace app
