#include "web/settings.h"

#include <toml++/toml.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdlib>

namespace web {

namespace {

void check(const std::string& text, Setting::Fault faultOf, const std::string& where) {
    if (const char* fault = faultOf(text)) throw ConfigError(where + ": " + fault);
}

void put(const Setting::Number& number, std::int64_t value, const std::string& where) {
    if (value < number.least || value > number.most)
        throw ConfigError(where + ": must be " + std::to_string(number.least) + " to " + std::to_string(number.most));
    *number.value = static_cast<int>(value);
}

/// Puts a value of the file into its place.
struct PutNode {
    const toml::node& node;
    const std::string& where;

    void operator()(const Setting::Text& text) const {
        if (!node.is_string()) throw ConfigError(where + ": must be a text in quotes");
        check(node.as_string()->get(), text.fault, where);
        *text.value = node.as_string()->get();
    }
    void operator()(const Setting::Texts& texts) const {
        const auto* list = node.as_array();
        if (list == nullptr || !(list->empty() || list->is_homogeneous<std::string>()))
            throw ConfigError(where + ": must be a list of texts");
        texts.values->clear();
        for (const auto& one : *list) {
            check(one.as_string()->get(), texts.fault, where);
            texts.values->push_back(texts.form(one.as_string()->get()));
        }
    }
    void operator()(const Setting::Number& number) const {
        if (!node.is_integer()) throw ConfigError(where + ": must be a whole number");
        put(number, node.as_integer()->get(), where);
    }
    void operator()(bool* flag) const {
        if (!node.is_boolean()) throw ConfigError(where + ": must be true or false");
        *flag = node.as_boolean()->get();
    }
};

/// Puts a value of the environment into its place.
struct PutText {
    const std::string& text;
    const std::string& where;

    void operator()(const Setting::Text& place) const {
        check(text, place.fault, where);
        *place.value = text;
    }
    void operator()(const Setting::Texts& /*lists come from the file alone*/) const {}
    void operator()(const Setting::Number& place) const {
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc{} || end != text.data() + text.size())
            throw ConfigError(where + ": must be a whole number");
        put(place, number, where);
    }
    void operator()(bool* flag) const {
        if (text != "true" && text != "false") throw ConfigError(where + ": must be true or false");
        *flag = text == "true";
    }
};

class FileReader {
public:
    FileReader(const std::vector<Setting>& settings, std::string file) : settings_(settings), file_(std::move(file)) {}

    void readTable(const toml::table& table, const std::string& prefix) const {
        for (const auto& [key, node] : table) readNode(prefix + std::string(key.str()), node);
    }

private:
    void readNode(const std::string& key, const toml::node& node) const {
        const std::string where = file_ + ":" + std::to_string(node.source().begin.line) + ": " + key;
        const auto isKey = [&](const Setting& setting) { return setting.key == key; };
        const auto isBelow = [&](const Setting& setting) { return setting.key.starts_with(key + "."); };
        const auto setting = std::find_if(settings_.begin(), settings_.end(), isKey);
        if (setting != settings_.end()) return std::visit(PutNode{node, where}, setting->place);
        if (std::none_of(settings_.begin(), settings_.end(), isBelow)) throw ConfigError(where + ": unknown key");
        if (!node.is_table()) throw ConfigError(where + ": must be a table");
        readTable(*node.as_table(), key + ".");
    }

    const std::vector<Setting>& settings_;
    std::string file_;
};

void readFile(const std::vector<Setting>& settings, const std::filesystem::path& file) try {
    if (!std::filesystem::is_regular_file(file)) throw ConfigError(file.string() + ": no such file");
    FileReader(settings, file.string()).readTable(toml::parse_file(file.string()), {});
} catch (const toml::parse_error& error) {
    throw ConfigError(file.string() + ":" + std::to_string(error.source().begin.line) + ": " +
                      std::string(error.description()));
}

std::string variableOf(std::string_view key) {
    std::string name = "VOREL_";
    for (const char c : key) name += c == '.' ? '_' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return name;
}

}  // namespace

Environment processEnvironment() {
    return [](const std::string& name) -> std::optional<std::string> {
        // Read before any thread of the host starts.
        const char* value = std::getenv(name.c_str());  // NOLINT(concurrency-mt-unsafe)
        if (value == nullptr) return std::nullopt;
        return value;
    };
}

void readSettings(const std::optional<std::filesystem::path>& file, const Environment& environment,
                  const std::vector<Setting>& settings) {
    if (file) readFile(settings, *file);
    for (const auto& setting : settings) {
        const std::string variable = variableOf(setting.key);
        if (const auto text = environment(variable)) std::visit(PutText{*text, variable}, setting.place);
    }
}

}  // namespace web
