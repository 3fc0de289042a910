#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "web/http.h"

namespace web {

/// True for "css/app.css": names of letters, digits, "-", "_" and ".", none starting with ".", with "/" between them.
/// Nothing else ever reaches the file system.
bool isPlainPath(std::string_view path);

/// The whole file, or nothing.
std::optional<std::string> readFile(const std::filesystem::path& file);

/// The files that lie there for everybody. Each is read and compressed when it is first asked for, and again when it
/// has changed; every further request costs a look at its size and time. For one thread.
///
/// Nothing else of the host is compressed over HTTP: what holds a secret, or what somebody typed, would tell of it by
/// its length.
class StaticFiles {
public:
    /// What all copies together may take, in bytes. A file that does not fit any more is sent as it is.
    explicit StaticFiles(std::size_t mostBytes = std::size_t{32} * 1024 * 1024) : mostBytes_(mostBytes) {}

    /// The file of this plain path below `root`, in a coding that the browser takes; 304 where it has it already, 404
    /// where there is none. `caching` is the Cache-Control value; a request that names the content's hash (`version`)
    /// may keep the answer for ever.
    Response serve(const std::filesystem::path& root, std::string_view path, const Request& request,
                   const char* caching = "no-cache");

    /// "?v=HASH", which belongs to an address in a page: the address changes with the content. "" where there is no
    /// such file.
    std::string version(const std::filesystem::path& root, std::string_view path);

private:
    struct Stamp {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type changed;
        bool operator==(const Stamp&) const = default;
    };
    struct Copy {
        Stamp stamp;
        std::string hash;
        std::string plain;
        std::string gzip;    ///< "" where it would not be smaller
        std::string brotli;  ///< likewise
        [[nodiscard]] std::size_t bytes() const { return plain.size() + gzip.size() + brotli.size(); }
    };
    using Copies = std::map<std::string, std::shared_ptr<const Copy>>;
    std::shared_ptr<const Copy> find(const std::filesystem::path& root, std::string_view path);
    void keep(const std::filesystem::path& file, const std::shared_ptr<Copy>& copy);
    void forget(Copies::iterator known);
    static std::optional<Stamp> stampOf(const std::filesystem::path& file);

    std::size_t mostBytes_;
    std::size_t bytes_ = 0;
    Copies copies_;
};

}  // namespace web
