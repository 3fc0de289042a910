#pragma once

#include "core/forms/form.h"
#include "core/session/workplace.h"
#include "registration/shared/patientsview.h"

namespace registration {

/// "Verify a Record": the patients that share a surname with the one being typed.
class frmVerify : public core::Form, public PatientsView {
public:
    explicit frmVerify(core::Workplace& place) : Form(place, "frmVerify", "Verify a Record") {
        bind(CancelButton, ui::Event::click, [this] { close(); });
    }

    ui::DataGrid grdData{*this, "grdData"};
    ui::Button CancelButton{*this, "CancelButton", "&Close"};

    void show(db::Recordset patients) override { grdData.bind(std::move(patients)); }
};

}  // namespace registration
