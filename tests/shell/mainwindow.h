#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "core/forms/form.h"
#include "core/session/loadsession.h"
#include "core/session/workplace.h"
#include "db/error.h"
#include "shell/mdivorel/mdivorel.h"
#include "shell/mdivorel/menu.h"
#include "shell/screens.h"
#include "tests/support/hospital.h"
#include "ui/controls.h"

namespace test {

/// A screen of which only the name matters, and whether it has a patient that a comment would be about.
class NamedScreen : public core::Form {
public:
    using Form::Form;
    [[nodiscard]] std::optional<std::string> patientEntry() const override { return patient; }
    std::optional<std::string> patient;
};

/// A nurse who has signed in and sees the main window; screens that do not exist yet stand there by name.
class MainWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        shell::provideScreens(place);
        for (const auto& name : shell::screensOfMenu()) {
            if (!place.desktop.provides(name)) notYetProvided.push_back(name);
            provide(name);
        }
        core::LoadSession(place);
        ASSERT_NE(place.desktop.main(), nullptr);
        hospital.forget();
    }
    void provide(const std::string& name) {
        place.desktop.provide(name, [this, name] { return std::make_unique<NamedScreen>(place, name, name); });
    }
    shell::MdiVorel& window() { return dynamic_cast<shell::MdiVorel&>(*place.desktop.main()); }
    core::Session& session() { return place.session; }
    void fire(const std::string& control) { place.desktop.fire("MdiVorel." + control, false); }
    void tick(const std::string& timer) { place.desktop.tick("MdiVorel." + timer); }
    /// From now on a statement that holds `text` fails with "Injected failure", until the hospital's rows are touched.
    void failWhere(const std::string& text) {
        place.databases.setRecorder([text](const db::Statement& statement) {
            if (statement.text.find(text) != std::string::npos)
                throw db::Error(db::Category::injected, "Injected failure");
        });
    }
    /// The events of one kind, each as its content.
    std::vector<nlohmann::json> events(const std::string& kind) const {
        std::vector<nlohmann::json> found;
        for (const auto& event : hospital.events())
            if (event.contains(kind)) found.push_back(event[kind]);
        return found;
    }
    void addPatient() {
        using namespace db::literals;
        hospital.execute(
            "insert into hPatients (PNo, psurname, pfirstName, DOB, sex, CoyName) values ('000000001/001', 'Obi', "
            "'Ada', '1990-01-01', 'FEMALE', '0001')"_sql);
    }

    TestHospital hospital;
    core::Workplace& place = hospital.place;
    std::vector<std::string> notYetProvided;
};

}  // namespace test
