#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/databases.h"
#include "ui/desktop.h"

namespace core {

class MainWindow;
struct Session;

/// The program's own version: the version lock compares `major`, titles show both.
struct Version {
    int major = 1;
    int minor = 0;
};

/// The program's version as it is built.
Version programVersion();

/// Settings of the host that the session needs, apart from what the databases hold.
struct Settings {
    /// Holds `sysdoc.sys`, `made.sys`, the ring, the receipt picture and local report copies.
    std::filesystem::path programDirectory;
    std::string computerName;  ///< what the environment variable "computername" reads in this session
    std::string osUserName;    ///< the same for "username"
    /// 94 characters, one for each of the codes 33 to 126: see EncodeText.
    std::string encodingTable = std::string(builtInEncodingTable());
    bool deskInMenu = false;  ///< whether the menu offers the attendance and the nurses' registration, hidden otherwise
    std::string autoCardNo;   ///< the start values of gAutoCardNo, gNhisServiceNo and gNhisRegServiceNo
    std::string nhisServiceNo;
    std::string nhisRegServiceNo;
    int idleMinutes = 0;  ///< a nurse who does nothing for so long is signed out; 0 never
    int mostHours = 0;    ///< a session lasts no longer; 0 for any time
    Version version = programVersion();
    /// The workstation's clock; tests set it.
    std::function<db::DateTime()> clock = &db::DateTime::now;

    static std::string_view builtInEncodingTable();
};

/// All that a screen works with: the nurse's session variables, her databases, her screens, her workstation.
struct Workplace {
    Workplace(db::DataSources& sources, ui::EventLoop& loop, Settings hostSettings);
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;
    ~Workplace();

    Settings settings;

private:
    std::unique_ptr<Session> variables_;

public:
    Session& session;
    db::Databases databases;
    ui::Desktop desktop;
    /// The open main window; it registers itself here.
    MainWindow* mainWindow = nullptr;
    /// The screen whose save runs; "" while none does.
    std::string saving;

    /// `session.gConnHospital`, opened.
    db::Connection& hospital();
    [[nodiscard]] db::DateTime now() const { return settings.clock(); }
    /// A file beside the program.
    [[nodiscard]] std::filesystem::path programFile(const std::string& name) const {
        return settings.programDirectory / name;
    }
    /// Ends this nurse's session, as the end of the process would.
    [[noreturn]] void endProcess(const std::string& reason = {}) { desktop.endSession(reason); }

    /// Shows a run-time error's description. While this session keeps other writers waiting no box may open: the
    /// description then waits for `showHeldErrors`, which the operation's own trap calls at its end.
    void showError(const std::string& description);
    void showHeldErrors();

private:
    std::vector<std::string> heldErrors_;
};

}  // namespace core
