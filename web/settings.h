#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace web {

/// A configuration that cannot be used: one line that names the file, the line in it and the key.
struct ConfigError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What an operator can set: its key in the configuration file, and where its value goes. Each room declares its own.
struct Setting {
    /// Says what is wrong with a text ("must be YES or NO"), or nothing.
    using Fault = const char* (*)(const std::string& text);
    static const char* anyText(const std::string& /*text*/) { return nullptr; }

    struct Text {
        std::string* value;
        Fault fault = &anyText;
    };
    struct Texts {
        std::vector<std::string>* values;
        Fault fault = &anyText;
        std::string (*form)(std::string_view text) = [](std::string_view text) { return std::string(text); };  ///< kept
    };
    struct Number {
        int* value;
        int least, most;
    };

    std::string key;  ///< "tls.key" is "key" of the table "tls"
    std::variant<Text, Texts, Number, bool*> place;
};

/// Reads an environment variable; nothing where it is not set.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;
/// The environment of this process.
Environment processEnvironment();

/// Puts the file's values, then those of the environment, into the settings' places; what neither has stays as it is.
/// The variable of a key is VOREL_ and the key in upper case with "_" for the dot ("VOREL_TLS_CERTIFICATE"); lists have
/// none. Throws ConfigError; a key that no setting has is an error too.
void readSettings(const std::optional<std::filesystem::path>& file, const Environment& environment,
                  const std::vector<Setting>& settings);

}  // namespace web
