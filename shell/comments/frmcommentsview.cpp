#include "shell/comments/frmcommentsview.h"

#include "core/session/session.h"

namespace shell {

using namespace db::literals;

frmCommentsView::frmCommentsView(core::Workplace& place) : CommentForm(place, "frmCommentsView") {
    bind(dGexp, ui::Event::click, &frmCommentsView::dGexp_Click);
}

db::Sql frmCommentsView::shown() const {
    return commentsForUs() + "' and Date='" + session().gServerDate + "' order by SNo Desc";
}

db::Sql frmCommentsView::emptySet() const {
    return "select * from hComments where 1=    2"_sql;
}

void frmCommentsView::dGexp_Click() {
    if (dGexp.row() < 0) return;
    txtDrug.setText(dGexp.text("Comment"));
    cboCat.setText(dGexp.text("Dept"));
}

void frmCommentsView::unload() {
    trapped([this] {
        hospital().execute("Update hComments set AttendedTo='YES' where Dept='"_sql + session().gModuleRole + "'");
    });
}

}  // namespace shell
