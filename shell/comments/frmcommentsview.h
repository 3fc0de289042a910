#pragma once

#include "shell/comments/commentform.h"

namespace shell {

/// This department's comments of the day, the newest first. Whoever closes it has read them all, whatever she saw.
class frmCommentsView : public CommentForm {
public:
    explicit frmCommentsView(core::Workplace& place);

    void unload() override;

protected:
    [[nodiscard]] db::Sql shown() const override;
    [[nodiscard]] db::Sql emptySet() const override;

private:
    void dGexp_Click();
};

}  // namespace shell
