#pragma once

#include <unordered_map>
#include <vector>

#include "db/demo/hospital.h"

namespace db::demo {

/// When the plan has whom in the house, so that nobody sits in a waiting room while he lies in a ward.
class Calendar {
public:
    explicit Calendar(const Hospital& hospital);

    /// Whether the patient neither comes nor stays from the one moment to the other, both included.
    [[nodiscard]] bool isFree(int patient, const DateTime& from, const DateTime& until) const;
    void take(int patient, const DateTime& from, const DateTime& until);

private:
    struct Span {
        DateTime from, until;
    };
    std::unordered_map<int, std::vector<Span>> spans_;
};

}  // namespace db::demo
