#pragma once

namespace outpatient {

/// The screen that lists the out-patients with items to give, for whoever has added some.
class OpenItems {
public:
    virtual ~OpenItems() = default;
    /// Reads the list anew. Throws db::Error.
    virtual void refreshPatients() = 0;
};

}  // namespace outpatient
