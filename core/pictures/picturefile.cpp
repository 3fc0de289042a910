#include "core/pictures/picturefile.h"

#include "core/session/session.h"
#include "db/error.h"

namespace core {

std::filesystem::path pictureFile(const Session& session, std::string pno) {
    std::erase(pno, '/');
    if (pno.empty() || pno.find_first_of(std::string_view("\\:\0", 3)) != std::string::npos || pno.front() == '.')
        throw db::Error(db::Category::other, "There is no file for a patient of this number.");
    return std::filesystem::path(session.gPatientsPath) / (pno + ".JPG");
}

}  // namespace core
