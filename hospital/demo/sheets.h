#pragma once

#include "hospital/demo/common.h"

namespace hospital::demo {

/// The sheets that eye doctors, dentists and physiotherapists fill beside a consultation, here or in the archive.
class Sheets {
public:
    /// `keysOfOwn` where the table gives no keys: in the archive.
    Sheets(db::Connection& connection, Random& chance, bool keysOfOwn = false);

    /// Writes the sheet that a consultation of this clinic, age and diagnosis has, if any.
    void write(std::int64_t conID, std::string_view clinic, std::string_view diagnosis, int age,
               const db::DateTime& day);

private:
    void writeEye(std::int64_t conID);
    void writeDental(std::int64_t conID, bool child);
    void writePhysio(std::int64_t conID, const db::DateTime& day);

    Random& chance_;
    bool keysOfOwn_;
    int physioKey_ = 0;
    Rows eye_, dental_, physio_;
};

}  // namespace hospital::demo
