#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/forms/form.h"

namespace shell {

/// "Nursing Prompt": who waits for the nurses, one list at a time. It stays open beside the other screens.
class frmFlash : public core::Form {
public:
    explicit frmFlash(core::Workplace& place);

    ui::Label lblHint{*this, "lblHint", "To turn Off the Flash, Double click on the  topmost flashing Bar"};
    ui::Button cmdDoc{*this, "cmdDoc", "Vitals Waiting List"};
    ui::Button cmdCPC{*this, "cmdCPC", "Admisssion Waiting List"};
    ui::Button cmdExam{*this, "cmdExam", "New Drugs for Admitted Patients"};
    ui::Label lblShow{*this, "lblShow"};  ///< which list shows, "---" for an empty one
    ui::DataGrid dGexp{*this, "dGexp"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    using Key = std::initializer_list<std::string_view>;
    void cmdDoc_Click();
    void cmdCPC_Click();
    void cmdExam_Click();
    /// `key` tells the rows of the list apart, which is read anew under the cursor.
    void showList(const db::Sql& query, const std::string& title, Key key);
};

}  // namespace shell
