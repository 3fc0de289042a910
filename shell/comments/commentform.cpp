#include "shell/comments/commentform.h"

#include <algorithm>

#include "core/rows/cells.h"
#include "core/rows/entries.h"
#include "core/session/session.h"
#include "core/texts/texts.h"
#include "db/connection.h"
#include "db/letters.h"

namespace shell {

using namespace db::literals;
using ui::Event;

namespace {

/// Whether a comment says nothing: zeros count as nothing.
bool saysNothing(std::string text) {
    std::erase(text, '0');
    return core::blank(text);
}

}  // namespace

CommentForm::CommentForm(core::Workplace& place, std::string name) : Form(place, std::move(name), "Comments") {
    dGexp.hideColumn("Dept");  // it is ours
    bind(OKButton, Event::click, &CommentForm::OKButton_Click);
    bind(CancelButton, Event::click, &CommentForm::leave);
}

void CommentForm::load() {
    lblName.setCaption(core::blank(session().gCurPatientName) ? "(no patient)" : session().gCurPatientName);
    trapped([this] {
        core::fill(cboCat, {""});
        core::addColumn(cboCat, hospital(), "select distinct DeptName from hDepts"_sql, "DeptName");
        dGexp.bind(hospital().readShared(shown()));
    });
}

db::Sql CommentForm::commentsForUs() const {
    return "select SNo, Date, Time, Fullname, Comment, Dept, AttendedTo, ConsultID FROM  vwhComments where dept='"_sql +
           session().gModuleRole;
}

void CommentForm::OKButton_Click() {
    if (saysNothing(txtDrug.text())) txtDrug.setText("NIL");
    if (!passes({{blank(cboCat), "Specify Dept", &cboCat}})) return;
    if (!saves(OKButton, [this] { store(); })) return;
    message("Record Succesfully saved");
    leave();
}

std::string CommentForm::wholeText() const {
    const auto& on = session();
    return "Comment on " + on.gServerDate.shortDate() + " @ " + on.gServerTime.shortTime() + " for " +
           on.gCurPatientName + "\r\n" + core::trimmed(txtDrug.text()) + "\r\nComment by " + on.gUserFullName +
           "\r\nFrom: " + on.gModuleRole;
}

void CommentForm::store() {
    db::Transaction transaction(hospital());
    core::addRow(hospital(), emptySet(),
                 {{"Dept", cboCat.text()},
                  {"consultID", session().gCommentConsultID},
                  {"attendedto", "NO"},
                  {"Comment", wholeText()},
                  {"CDate", session().gServerDate},
                  {"ctime", session().gServerTime}});
    transaction.commit();
}

void CommentForm::leave() {
    txtDrug.clear();
    cboCat.clearText();
    close();
}

ui::Control* CommentForm::controlOf(std::string_view column) {
    if (db::sameName(column, "Dept")) return &cboCat;
    if (db::sameName(column, "Comment")) return &txtDrug;
    return nullptr;
}

}  // namespace shell
