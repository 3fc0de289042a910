#include "app/config.h"
#include "tests/support/directory.h"
#include "tests/support/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path sample = test::sourceDirectory() / "docs" / "vorel.toml";

/// The error's text, or "" where the configuration is read.
std::string faultOf(const std::string& text) {
    const test::TemporaryDirectory directory;
    try {
        (void)app::readConfig(directory.write("vorel.toml", text).string());
        return {};
    } catch (const web::ConfigError& error) {
        return error.what();
    }
}

TEST(HospitalSettings, AreReadWithTheHostsAndToldByLineAndKeyWhereTheyAreWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"encoding_table = \"abc\"\n", ":1: encoding_table: must have 94"},
        {"[registration]\nauto_card_no = \"maybe\"\n", ":2: registration.auto_card_no: must be YES or NO"},
        {"[registration]\nconsultation_service = \"x\"\n", ":2: registration.consultation_service: must be"},
        {"[registration]\ncard_no = 1\n", ":2: registration.card_no: unknown key"},
        {"[session]\nmost = 5\nidle_minutes = -1\n", ":3: session.idle_minutes: must be 0 to"},
        {"[sources.Hospital]\nfile = \"x\"\n", ":2: sources.Hospital.file: unknown key"},
        {"[sources.Hospitl]\nlocation = \"x\"\n", ": sources.Hospitl: unknown key"},
        {"[sources]\nHospital = \"x\"\n", ":2: sources.Hospital: must be a table"},
        {"[session]\nmost = 5\nidle_minutes = 5\n[sources.SmsCenter]\nlocation = \"/x.db\"\n", ""},
    };
    for (const auto& [text, told] : cases) {
        const std::string fault = faultOf(text);
        EXPECT_TRUE(*told == '\0' ? fault.empty() : fault.find(told) != std::string::npos) << text << fault;
    }
}

bool same(const web::Setting& one, const web::Setting& other) {
    const auto equal = [&](const auto& place) {
        using Place = std::decay_t<decltype(place)>;
        const auto& second = std::get<Place>(other.place);
        if constexpr (std::is_pointer_v<Place>)
            return *place == *second;
        else if constexpr (std::is_same_v<Place, web::Setting::Texts>)
            return *place.values == *second.values;
        else
            return *place.value == *second.value;
    };
    return std::visit(equal, one.place);
}

TEST(Settings, TheSampleExplainsEachAndHoldsItsDefault) {
    app::Config read = app::readConfig(sample.string());
    app::Config own = app::readConfig("");
    const auto given = app::settingsOf(read);
    const auto defaults = app::settingsOf(own);
    std::ostringstream text;
    text << std::ifstream(sample).rdbuf();
    for (std::size_t i = 0; i < defaults.size(); ++i) {
        const std::string& key = defaults[i].key;
        EXPECT_TRUE(same(given[i], defaults[i])) << key;
        EXPECT_NE(text.str().find(key.substr(key.rfind('.') + 1) + " = "), std::string::npos) << key;
    }
}

}  // namespace
