#pragma once

#include "db/sql.h"

namespace shell {

[[nodiscard]] db::Sql expectedDeliveries();  ///< expectant mothers who are due
[[nodiscard]] db::Sql babiesToDischarge();   ///< new-born babies who are due to go home
[[nodiscard]] db::Sql balancesDue();         ///< patients who owe

/// Which of these lists the main window has found somebody on.
class DueFlags {
public:
    virtual ~DueFlags() = default;
    [[nodiscard]] virtual bool deliveryDue() const noexcept = 0;
    [[nodiscard]] virtual bool dischargeDue() const noexcept = 0;
    [[nodiscard]] virtual bool balanceDue() const noexcept = 0;
};

}  // namespace shell
