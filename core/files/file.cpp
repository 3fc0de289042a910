#include "core/files/file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "db/error.h"

namespace core {
namespace {

struct Closes {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closes>;

[[noreturn]] void fileFailed(int code) {
    throw db::Error(db::Category::other, std::generic_category().message(code));
}

File openedFile(const std::filesystem::path& path, const char* mode) {
    File file(std::fopen(path.c_str(), mode));
    if (!file) fileFailed(errno);
    return file;
}

}  // namespace

std::string readFile(const std::filesystem::path& path, std::size_t largest) {
    const auto file = openedFile(path, "rb");
    std::string content;
    std::array<char, 65536> part{};
    while (const auto size = std::fread(part.data(), 1, part.size(), file.get())) {
        content.append(part.data(), size);
        if (content.size() > largest) fileFailed(EFBIG);
    }
    if (std::ferror(file.get()) != 0) fileFailed(errno);
    return content;
}

void writeFile(const std::filesystem::path& path, std::string_view content) {
    auto fresh = path;
    fresh += ".new";
    {
        const auto file = openedFile(fresh, "wb");
        if (std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
            std::fflush(file.get()) != 0)
            fileFailed(errno);
    }
    std::error_code error;
    std::filesystem::rename(fresh, path, error);
    if (error) fileFailed(error.value());
}

}  // namespace core
