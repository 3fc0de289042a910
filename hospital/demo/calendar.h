#pragma once

#include <unordered_map>
#include <vector>

#include "hospital/demo/hospital.h"

namespace hospital::demo {

/// When the plan has whom in the house, so that nobody sits in a waiting room while he lies in a ward.
class Calendar {
public:
    explicit Calendar(const Hospital& hospital);

    /// Whether the patient neither comes nor stays from the one moment to the other, both included.
    [[nodiscard]] bool isFree(int patient, const db::DateTime& from, const db::DateTime& until) const;
    void take(int patient, const db::DateTime& from, const db::DateTime& until);

private:
    struct Span {
        db::DateTime from, until;
    };
    std::unordered_map<int, std::vector<Span>> spans_;
};

}  // namespace hospital::demo
