#include "core/files/file.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "db/error.h"

namespace core {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fileFailed(int code) {
    throw db::Error(db::Category::other, std::generic_category().message(code));
}

}  // namespace

std::string readFile(const fs::path& path, std::size_t largest) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error) fileFailed(error.value());
    if (size > largest) fileFailed(EFBIG);
    std::ifstream stream(path, std::ios::binary);
    if (!stream.is_open()) fileFailed(errno);
    std::string content{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad()) fileFailed(EIO);
    return content;
}

void writeFile(const fs::path& path, std::string_view content) {
    auto fresh = path;
    fresh += ".new";
    {
        std::ofstream stream(fresh, std::ios::binary);
        if (!stream.is_open()) fileFailed(errno);
        stream.write(content.data(), static_cast<std::streamsize>(content.size()));
        if (!stream.flush()) fileFailed(ENOSPC);
    }
    std::error_code error;
    fs::rename(fresh, path, error);
    if (error) fileFailed(error.value());
}

}  // namespace core
