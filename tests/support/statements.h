#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/paths.h"

namespace test {

/// The files that hold the statements which screens send: `statements.txt` of every screen's folder, and those of the
/// rooms below. tests/hospital/statements.txt explains their form.
inline std::vector<std::filesystem::path> statementFiles() {
    namespace fs = std::filesystem;
    std::vector<fs::path> files{sourceDirectory() / "tests" / "hospital" / "statements.txt"};
    for (const char* room :
         {"core", "shell", "registration", "outpatient", "inpatient", "billing", "reports", "docs"}) {
        const auto folder = sourceDirectory() / room;
        if (!fs::exists(folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (entry.path().filename() == "statements.txt") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace test
