
#include <gtest/gtest.h>

#include <algorithm>

#include "core/pictures/jpeg.h"
#include "db/error.h"
#include "tests/support/picture.h"

namespace {

db::Bytes bytesOf(const std::string& text) {
    db::Bytes bytes(text.size());
    std::transform(text.begin(), text.end(), bytes.begin(), [](char c) { return static_cast<std::byte>(c); });
    return bytes;
}

std::string textOf(const db::Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string drawn(const std::string& file) {
    return test::seenIn(core::redrawnJpeg(bytesOf(file)));
}

TEST(Jpeg, picturesAreDrawnUprightAndNoLargerThanTheyAreShown) {
    EXPECT_EQ(drawn(test::jpeg(48, 32)), "48x32 red blue") << "a small one keeps its size";
    EXPECT_EQ(drawn(test::jpeg(1600, 800)), "800x400 red blue");
    EXPECT_EQ(drawn(test::jpeg(400, 3200)), "100x800 red blue");
    EXPECT_EQ(drawn(test::jpeg(7200, 72)), "788x8 red blue") << "beyond an eighth it takes two steps";
    EXPECT_EQ(drawn(test::jpeg(48, 32, 3)), "48x32 blue red") << "upside down";
    EXPECT_EQ(drawn(test::jpeg(48, 32, 2)), "48x32 blue red") << "mirrored";
    EXPECT_EQ(drawn(test::jpeg(48, 32, 6)), "32x48 red red") << "on its side";
    EXPECT_EQ(drawn(test::jpeg(48, 32, 8)), "32x48 blue blue") << "on its other side";
    EXPECT_EQ(drawn(test::jpeg(48, 32, 9)), "48x32 red blue") << "held in no way that there is";
}

TEST(Jpeg, nothingButThePictureIsKept) {
    const std::string script = "<script>alert(1)</script>";
    std::string comment("\xFF\xFE\x00\x1B", 4);
    comment += script;
    const std::string plain = test::jpeg(48, 32);
    for (const std::string& file : {plain + script, plain.substr(0, 2) + comment + plain.substr(2)}) {
        const auto kept = core::redrawnJpeg(bytesOf(file));
        EXPECT_EQ(test::seenIn(kept), "48x32 red blue");
        EXPECT_EQ(textOf(kept).find("script"), std::string::npos);
    }
    EXPECT_EQ(textOf(core::redrawnJpeg(bytesOf(test::jpeg(48, 32, 6)))).find("Exif"), std::string::npos);
}

TEST(Jpeg, whatIsNoPictureIsRefused) {
    std::string huge = test::jpeg(16, 16);
    const auto size = huge.find("\xFF\xC0");
    huge.replace(size + 5, 4, "\xFF\xFF\xFF\xFF");
    for (const std::string& file :
         {std::string(), std::string("GIF89a"), std::string("\xFF\xD8\xFF\xE0 a face \xFF\xD9"),
          std::string("\xFF\xD8\xFF<script>alert(1)</script>\xFF\xD9"), test::jpeg(48, 32).substr(0, 30), huge})
        EXPECT_THROW(core::redrawnJpeg(bytesOf(file)), db::Error) << file.substr(0, 20);
}

}  // namespace
