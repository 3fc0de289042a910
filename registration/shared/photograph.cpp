#include "registration/shared/photograph.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/pictures/jpeg.h"
#include "core/session/session.h"
#include "core/session/workplace.h"
#include "core/texts/texts.h"
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

db::Bytes pictureOf(const fs::path& file) {
    if (fs::file_size(file) > largest) throw db::Error(db::Category::other, "The photograph is larger than 5 MB");
    return core::redrawnJpeg(bytesOf(file));
}

void write(const fs::path& file, const db::Bytes& content) {
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
    if (!stream.flush()) throw db::Error(db::Category::other, "The photograph cannot be written.");
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
    txtPix.clear();
    const auto name = place().desktop.pickFile("Select the JPG Image  File...", "image/jpeg");
    const auto file = name ? place().desktop.chosenFile(*name) : std::nullopt;
    if (!file) return;
    imgPix.setImage(pictureOf(*file));
    txtPix.setText(*name);
}

void Photograph::save(const std::string& pno) {
    const auto name = core::trimmed(txtPix.text());
    if (name.empty()) return;
    const auto file = place().desktop.chosenFile(name);
    if (!file) throw db::Error(db::Category::other, "The photograph is not there any more: choose it again.");
    const auto picture = pictureOf(*file);  // the file may have changed since it was shown
    if (session().gPhotoStore == "FILE") {
        write(fs::path(session().gPatientsPath) / fileName(pno), picture);
    } else {
        db::Recordset row(hospital(), "Select patPix from hpatients where pno='"_sql + pno + "'");
        if (row.empty()) return;
        row.set("PatPix", picture);
        row.update();
    }
    std::error_code ignored;
    fs::remove(*file, ignored);
    txtPix.clear();
}

void Photograph::clear() {
    txtPix.clear();
    imgPix.setImage({});
}

}  // namespace registration
