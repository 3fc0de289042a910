#include "web/staticfiles.h"

#include <array>
#include <fstream>
#include <sstream>

namespace web {

namespace {

namespace fs = std::filesystem;

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == '.';
}

const char* contentType(const fs::path& file) {
    struct Type {
        std::string_view extension;
        const char* type;
    };
    static constexpr std::array<Type, 13> types{{{".html", "text/html; charset=utf-8"},
                                                 {".css", "text/css; charset=utf-8"},
                                                 {".js", "text/javascript; charset=utf-8"},
                                                 {".mjs", "text/javascript; charset=utf-8"},
                                                 {".json", "application/json"},
                                                 {".map", "application/json"},
                                                 {".svg", "image/svg+xml"},
                                                 {".png", "image/png"},
                                                 {".ico", "image/x-icon"},
                                                 {".jpg", "image/jpeg"},
                                                 {".wav", "audio/wav"},
                                                 {".webmanifest", "application/manifest+json"},
                                                 {".woff2", "font/woff2"}}};
    const std::string extension = file.extension().string();
    for (const auto& entry : types) {
        if (entry.extension == extension) return entry.type;
    }
    return "application/octet-stream";
}

std::string entityTag(const fs::path& file, std::error_code& error) {
    const auto size = fs::file_size(file, error);
    if (error) return {};
    const auto changed = fs::last_write_time(file, error).time_since_epoch().count();
    std::ostringstream tag;
    tag << '"' << std::hex << size << '-' << changed << '"';
    return tag.str();
}

}  // namespace

bool isPlainPath(std::string_view path) {
    bool atStart = true;
    for (const char c : path) {
        if (atStart ? !isPlain(c) || c == '.' : !isPlain(c) && c != '/') return false;
        atStart = c == '/';
    }
    return !atStart;
}

Response serveFile(const fs::path& root, std::string_view path, const Request& request, const char* caching) {
    if (!isPlainPath(path)) return plainText(404, "Not found\n");
    const fs::path file = root / path;
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return plainText(404, "Not found\n");
    const std::string tag = entityTag(file, error);
    if (error) return plainText(404, "Not found\n");
    Response response{200, {{"ETag", tag}, {"Cache-Control", caching}}, {}};
    if (request.header("if-none-match") == tag) {
        response.status = 304;
        return response;
    }
    auto content = readFile(file);
    if (!content) return plainText(404, "Not found\n");
    response.headers.emplace_back("Content-Type", contentType(file));
    response.body = std::move(*content);
    return response;
}

std::optional<std::string> readFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    std::ostringstream content;
    content << stream.rdbuf();
    return std::move(content).str();
}

}  // namespace web
