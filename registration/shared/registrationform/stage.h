#pragma once

namespace registration {

/// How far a registration is, as its parts see it.
struct Stage {
    bool adding = false;
    bool editing = false;
    bool loading = false;  ///< a row is being shown: its picks fill in no defaults
};

}  // namespace registration
