#include "web/staticfiles.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <span>
#include <sstream>
#include <stdexcept>

#include "db/letters.h"
#include "web/compression.h"
#include "web/token.h"

namespace web {

namespace {

namespace fs = std::filesystem;

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == '.';
}

struct Type {
    std::string_view extension;
    const char* name;
    bool compressible;
};

const Type& typeOf(const fs::path& file) {
    static constexpr std::array<Type, 13> types{{{".html", "text/html; charset=utf-8", true},
                                                 {".css", "text/css; charset=utf-8", true},
                                                 {".js", "text/javascript; charset=utf-8", true},
                                                 {".mjs", "text/javascript; charset=utf-8", true},
                                                 {".json", "application/json", true},
                                                 {".map", "application/json", true},
                                                 {".svg", "image/svg+xml", true},
                                                 {".png", "image/png", false},
                                                 {".ico", "image/x-icon", false},
                                                 {".jpg", "image/jpeg", false},
                                                 {".wav", "audio/wav", false},
                                                 {".webmanifest", "application/manifest+json", true},
                                                 {".woff2", "font/woff2", false}}};
    static constexpr Type unknown{"", "application/octet-stream", false};
    const std::string extension = file.extension().string();
    const auto* const found =
        std::find_if(types.begin(), types.end(), [&](const Type& type) { return type.extension == extension; });
    return found == types.end() ? unknown : *found;
}

/// Half of a SHA-256: nobody finds two contents with the same.
std::string hashOf(std::string_view content) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    if (EVP_Digest(content.data(), content.size(), digest.data(), nullptr, EVP_sha256(), nullptr) != 1)
        throw std::runtime_error("no digest");
    return hexadecimal(std::span(digest).first(16));
}

/// Takes the part of the list up to the separator off it, without the blanks around.
std::string_view takePart(std::string_view& list, char separator) {
    const auto end = list.find(separator);
    std::string_view part = list.substr(0, end);
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    while (!part.empty() && part.front() == ' ') part.remove_prefix(1);
    while (!part.empty() && part.back() == ' ') part.remove_suffix(1);
    return part;
}

/// Whether an Accept-Encoding takes a coding: by its name, or by "*" where it is not named, unless with the weight 0.
bool accepts(std::string_view list, std::string_view coding) {
    bool byStar = false;
    while (!list.empty()) {
        std::string_view parameters = takePart(list, ',');
        const std::string_view name = takePart(parameters, ';');
        bool taken = true;
        while (!parameters.empty()) {
            std::string_view weight = takePart(parameters, ';');
            if (db::sameName(takePart(weight, '='), "q"))
                taken = weight.find_first_not_of(" 0.") != std::string_view::npos;
        }
        if (db::sameName(name, coding)) return taken;
        if (name == "*") byStar = taken;
    }
    return byStar;
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

std::optional<std::string> readFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    std::ostringstream content;
    content << stream.rdbuf();
    return std::move(content).str();
}

Response StaticFiles::serve(const fs::path& root, std::string_view path, const Request& request, const char* caching) {
    const auto copy = find(root, path);
    if (!copy) return plainText(404, "Not found\n");
    const auto& type = typeOf(path);
    const std::string_view codings = request.header("accept-encoding");
    const bool brotli = !copy->brotli.empty() && accepts(codings, "br");
    const bool gzip = !brotli && !copy->gzip.empty() && accepts(codings, "gzip");
    const std::string tag = '"' + copy->hash + (brotli ? "-br" : gzip ? "-gzip" : "") + '"';
    const bool named = request.query == "v=" + copy->hash;
    Response response{
        200, {{"ETag", tag}, {"Cache-Control", named ? "public, max-age=31536000, immutable" : caching}}, {}};
    if (type.compressible) response.headers.emplace_back("Vary", "Accept-Encoding");
    if (request.header("if-none-match") == tag) {
        response.status = 304;
        return response;
    }
    response.headers.emplace_back("Content-Type", type.name);
    if (brotli || gzip) response.headers.emplace_back("Content-Encoding", brotli ? "br" : "gzip");
    response.body = brotli ? copy->brotli : gzip ? copy->gzip : copy->plain;
    return response;
}

std::string StaticFiles::version(const fs::path& root, std::string_view path) {
    const auto copy = find(root, path);
    return copy ? "?v=" + copy->hash : std::string();
}

std::shared_ptr<const StaticFiles::Copy> StaticFiles::find(const fs::path& root, std::string_view path) {
    if (!isPlainPath(path)) return nullptr;
    const fs::path file = root / path;
    const auto stamp = stampOf(file);
    const auto known = copies_.find(file.string());
    if (stamp && known != copies_.end() && known->second->stamp == *stamp) return known->second;
    if (known != copies_.end()) forget(known);
    if (!stamp) return nullptr;
    auto content = readFile(file);
    if (!content) return nullptr;
    auto copy = std::make_shared<Copy>();
    copy->stamp = *stamp;
    copy->hash = hashOf(*content);
    copy->plain = std::move(*content);
    keep(file, copy);
    return copy;
}

/// What does not get smaller is little or a picture, and lies in the system's own cache. A copy takes three times its
/// file at most.
void StaticFiles::keep(const fs::path& file, const std::shared_ptr<Copy>& copy) {
    if (!typeOf(file).compressible || bytes_ + 3 * copy->plain.size() > mostBytes_) return;
    const auto ifSmaller = [&](std::string compressed) {
        return compressed.size() < copy->plain.size() ? std::move(compressed) : std::string();
    };
    copy->gzip = ifSmaller(gzipped(copy->plain));
    copy->brotli = ifSmaller(brotlied(copy->plain));
    bytes_ += copy->bytes();
    copies_.insert_or_assign(file.string(), copy);
}

void StaticFiles::forget(Copies::iterator known) {
    bytes_ -= known->second->bytes();
    copies_.erase(known);
}

std::optional<StaticFiles::Stamp> StaticFiles::stampOf(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return std::nullopt;
    Stamp stamp{fs::file_size(file, error), {}};
    if (!error) stamp.changed = fs::last_write_time(file, error);
    return error ? std::nullopt : std::optional(stamp);
}

}  // namespace web
