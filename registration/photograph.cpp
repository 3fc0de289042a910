#include "registration/photograph.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/entries.h"
#include "db/error.h"

namespace registration {

using namespace db::literals;
namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t largest = std::uintmax_t{5} * 1024 * 1024;

db::Bytes bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.good() && !stream.eof()) throw db::Error(db::Category::other, "The photograph cannot be read.");
    db::Bytes bytes(content.size());
    std::transform(content.begin(), content.end(), bytes.begin(), [](char c) { return static_cast<std::byte>(c); });
    return bytes;
}

/// A JPEG starts with the start-of-image marker and the next one, and ends with the end-of-image marker.
bool isJpeg(const db::Bytes& bytes) {
    const auto at = [&](std::size_t place) { return std::to_integer<unsigned>(bytes[place]); };
    return bytes.size() > 4 && at(0) == 0xFF && at(1) == 0xD8 && at(2) == 0xFF && at(bytes.size() - 2) == 0xFF &&
           at(bytes.size() - 1) == 0xD9;
}

/// "000000123001.JPG".
std::string fileName(std::string pno) {
    std::erase(pno, '/');
    return pno + ".JPG";
}

}  // namespace

void showPhotograph(core::Workplace& place, ui::Picture& picture, const std::string& pno) {
    const auto row = place.hospital().read("Select patPix from hpatients where pno='"_sql + pno + "'");
    const auto stored = row.empty() ? db::Value() : row["patPix"];
    picture.setImage(stored.isNull() ? db::Bytes() : stored.bytes());
}

void Photograph::choose() {
    txtPix_.clear();
    const auto file = place_.desktop.pickFile("Select the JPG Image  File...", "image/jpeg");
    if (!file) return;
    if (fs::file_size(*file) > largest) return place_.desktop.message("The photograph is larger than 5 MB");
    auto bytes = bytesOf(*file);
    if (!isJpeg(bytes)) return place_.desktop.message("The file is not a JPG image");
    txtPix_.setText(file->string());
    imgPix_.setImage(std::move(bytes));
}

void Photograph::save(const std::string& pno) {
    const fs::path file = core::trimmed(txtPix_.text());
    if (file.empty()) return;
    if (place_.session.gPhotoStore == "FILE") {
        fs::copy_file(file, fs::path(place_.session.gPatientsPath) / fileName(pno),
                      fs::copy_options::overwrite_existing);
    } else {
        db::Recordset row(place_.hospital(), "Select patPix from hpatients where pno='"_sql + pno + "'");
        if (row.empty()) return;
        row.set("PatPix", bytesOf(file));
        row.update();
    }
    std::error_code ignored;
    fs::remove(file, ignored);
    txtPix_.clear();
}

void Photograph::clear() {
    txtPix_.clear();
    imgPix_.setImage({});
}

}  // namespace registration
