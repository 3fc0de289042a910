#include "tests/support/picture.h"

#include <turbojpeg.h>

#include <vector>

namespace test {

namespace {

/// The application segment in which a camera says how it was held.
std::string exif(int orientation) {
    std::string segment(
        "\xFF\xE1\x00\x22"
        "Exif\0\0"
        "II\x2A\0\x08\0\0\0"
        "\x01\0"
        "\x12\x01\x03\0\x01\0\0\0",
        4 + 6 + 8 + 2 + 8);
    segment += static_cast<char>(orientation);
    segment += std::string(7, '\0');
    return segment;
}

}  // namespace

std::string jpeg(int width, int height, int orientation) {
    std::vector<unsigned char> pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool left = x < width / 2;
            pixels.insert(pixels.end(),
                          {static_cast<unsigned char>(left ? 255 : 0), 0, static_cast<unsigned char>(left ? 0 : 255)});
        }
    }
    const tjhandle encoder = tjInitCompress();
    unsigned char* data = nullptr;
    unsigned long size = 0;
    tjCompress2(encoder, pixels.data(), width, 0, height, TJPF_RGB, &data, &size, TJSAMP_444, 90, 0);
    std::string file(reinterpret_cast<char*>(data), size);
    tjFree(data);
    tjDestroy(encoder);
    return orientation == 1 ? file : file.substr(0, 2) + exif(orientation) + file.substr(2);
}

std::string seenIn(const db::Bytes& jpeg) {
    const auto* data = reinterpret_cast<const unsigned char*>(jpeg.data());
    const tjhandle decoder = tjInitDecompress();
    int width = 0;
    int height = 0;
    int subsampling = 0;
    int colours = 0;
    std::string seen = "no picture";
    if (tjDecompressHeader3(decoder, data, jpeg.size(), &width, &height, &subsampling, &colours) == 0) {
        std::vector<unsigned char> pixels(static_cast<std::size_t>(width * height * 3));
        tjDecompress2(decoder, data, jpeg.size(), pixels.data(), width, 0, height, TJPF_RGB, 0);
        const auto colour = [&](int x) {
            const unsigned char* pixel = &pixels[static_cast<std::size_t>((height / 4 * width + x) * 3)];
            return pixel[0] > pixel[2] ? "red" : "blue";
        };
        seen = std::to_string(width) + "x" + std::to_string(height) + " " + colour(0) + " " + colour(width - 1);
    }
    tjDestroy(decoder);
    return seen;
}

}  // namespace test
