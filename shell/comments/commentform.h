#pragma once

#include <string>

#include "core/forms/form.h"

namespace shell {

/// The comments that other departments left for this one, and a new one to another department about the visit that the
/// nurse has in hand (`gCommentConsultID`).
class CommentForm : public core::Form {
public:
    void load() override;

    ui::DataGrid dGexp{*this, "dGexp"};
    ui::Label lblName{*this, "lblName"};    ///< whom a new comment is about; nothing chosen on the list changes that
    ui::ComboBox cboCat{*this, "cboCat"};   ///< the department that a new comment is for
    ui::TextBox txtDrug{*this, "txtDrug"};  ///< the comment
    ui::Button OKButton{*this, "OKButton", "Save New Comment"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};

protected:
    CommentForm(core::Workplace& place, std::string name);

    /// Which comments show.
    [[nodiscard]] virtual db::Sql shown() const = 0;
    /// The empty set that a new comment is added to.
    [[nodiscard]] virtual db::Sql emptySet() const = 0;
    /// The comments for this department, up to the end of its name.
    [[nodiscard]] db::Sql commentsForUs() const;

    [[nodiscard]] ui::Control* controlOf(std::string_view column) override;

private:
    void OKButton_Click();
    [[nodiscard]] std::string wholeText() const;
    void store();
    void leave();
};

}  // namespace shell
