#pragma once

#include "core/form.h"

namespace registration {

/// "Verify a Record": the patients that share a surname with the one being typed.
class frmVerify : public core::Form {
public:
    explicit frmVerify(core::Workplace& place) : Form(place, "frmVerify", "Verify a Record") {}

    ui::DataGrid grdData{*this, "grdData"};
    ui::Button CancelButton{*this, "CancelButton", "&Close", [this] { close(); }};

    void show(db::Recordset patients) { grdData.bind(std::move(patients)); }
};

}  // namespace registration
