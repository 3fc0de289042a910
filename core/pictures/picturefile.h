#pragma once

#include <filesystem>
#include <string>

#include "core/session/workplace.h"

namespace core {

/// The file on the hospital's share that keeps a patient's photograph: "000000123001.JPG" below `gPatientsPath` for the
/// number 000000123/001. Throws db::Error(other) for a number that no file can be named by.
std::filesystem::path pictureFile(const Session& session, std::string pno);

}  // namespace core
