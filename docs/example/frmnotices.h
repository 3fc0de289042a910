#pragma once

#include "core/clock/clock.h"
#include "core/forms/recordform.h"
#include "core/rows/entries.h"
#include "core/rows/grids.h"
#include "core/session/session.h"

namespace example {

using namespace db::literals;

/// The notices of the day that departments leave for one another; the list shows those for this one.
class frmNotices : public core::RecordForm {
public:
    explicit frmNotices(core::Workplace& place) : RecordForm(place, "frmNotices", "Notices") {
        keep({{&cboDept, "Department", "NotifyDept"},
              {&dtDate, "Date", "nDate"},
              {&txtRem, "Notice", "Remarks", core::Keeps::trimmed}});
        grdData.hideColumn("SNo");
    }

    ui::ComboBox cboDept{*this, "cboDept", ui::ComboBox::Style::listOnly};
    ui::DatePicker dtDate{*this, "dtDate"};
    ui::TextBox txtRem{*this, "txtRem"};

protected:
    void fillLists() override { core::fill(cboDept, {"", "NURSING", "CONSULTING", "PHARMACY"}); }
    void showList() override {
        core::refreshRows(
            grdData,
            hospital().readShared("select SNo, nDate as Date, NotifyDept as Department, Remarks as Notice from "
                                  "hNotify where NotifyDept='"_sql +
                                  session().gModuleRole + "' and nDate='" + session().gServerDate + "'"),
            {"SNo"});
    }
    void startAdding() override {
        dtDate.setValue(session().gServerDate);
        desktop().focus(cboDept);
    }
    void startEditing() override {
        RecordForm::startEditing();
        sno_ = grdData.text("SNo");
        desktop().focus(txtRem);
    }
    [[nodiscard]] std::vector<core::Check> checks() override {
        return {{cboDept.text().empty(), "Please specify Department", &cboDept},
                {!dtDate.value(), "Please specify Date", &dtDate},
                {blank(txtRem), "Please specify the Notice", &txtRem}};
    }
    [[nodiscard]] std::optional<core::Refusal> write() override {
        db::Recordset row(hospital(), editing() ? "select * from hNotify where SNo="_sql + sno_
                                                : "select * from hNotify where 1=2"_sql);
        if (adding()) row.addNew();
        core::setCells(row, fields().cells());
        row.update();
        sno_ = row["SNo"].text();
        return std::nullopt;
    }
    void committed() override {
        message(editing() ? "Record Succesfully updated" : "Record Succesfully saved");
        audit((editing() ? "Edit Notice for: " : "Insert Notice for: ") + cboDept.text(), sno_, "By Nurse");
    }
    void finished() override { core::selectRow(grdData, "SNo", sno_); }

private:
    std::string sno_;  ///< of the row under correction, then of the row written
};

}  // namespace example
