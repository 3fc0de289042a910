#pragma once

#include "shell/comments/commentform.h"

namespace shell {

using namespace db::literals;

/// A new comment about the patient of the page in front, below all that this department has been told.
class frmComments : public CommentForm {
public:
    explicit frmComments(core::Workplace& place) : CommentForm(place, "frmComments") {}

protected:
    [[nodiscard]] db::Sql shown() const override { return commentsForUs() + "' order by SNo"; }
    [[nodiscard]] db::Sql emptySet() const override { return "select * from hComments where 1=2"_sql; }
};

}  // namespace shell
