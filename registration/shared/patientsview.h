#pragma once

#include "db/recordset.h"

namespace registration {

/// A screen that shows patients whom another one found.
class PatientsView {
public:
    virtual ~PatientsView() = default;
    virtual void show(db::Recordset patients) = 0;
};

}  // namespace registration
