#include "core/pictures/imagefile.h"

#include <algorithm>

#include "core/files/file.h"
#include "db/error.h"

namespace core {

void requireImage(const db::Bytes& image) {
    if (image.size() > largestImage)
        throw db::Error(db::Category::other, "The image is too large to be shown: more than 16 MB");
    // The marker that starts every file of the kind.
    if (image.size() < 3 || image[0] != std::byte{0xFF} || image[1] != std::byte{0xD8} || image[2] != std::byte{0xFF})
        throw db::Error(db::Category::other, "The file is not a JPG image");
}

db::Bytes imageFromFile(const std::filesystem::path& file) {
    const auto content = readFile(file, largestImage);
    db::Bytes image(content.size());
    std::transform(content.begin(), content.end(), image.begin(), [](char c) { return static_cast<std::byte>(c); });
    requireImage(image);
    return image;
}

void writeImage(const std::filesystem::path& file, const db::Bytes& image) {
    writeFile(file, {reinterpret_cast<const char*>(image.data()), image.size()});
}

}  // namespace core
