#include "inpatient/frmmedchart/frmmedchartcomment.h"

#include "core/session/session.h"
#include "core/texts/texts.h"

namespace inpatient {

using namespace db::literals;
using ui::Event;

frmMedChartComment::frmMedChartComment(core::Workplace& place)
    : Form(place, "frmMedChartComment", "Medication Chart Comment"), consultID_(session().gCommentConsultID) {
    bind(OKButton, Event::click, &frmMedChartComment::OKButton_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void frmMedChartComment::load() {
    trapped([this] {
        const auto stay = hospital().read(
            "select Comment,fullname,ConsultID  from qryhAdmission where ConsultID='"_sql + consultID_ + "'");
        if (stay.empty()) return;
        lblTitle.setCaption("Medication Chart Comment for: \r\n" + stay["fullname"].textOr());
        txtDrug.setText(stay["Comment"].isNullOrEmpty() ? std::string("NONE") : stay["Comment"].text());
    });
    desktop().focus(txtDrug);
}

void frmMedChartComment::OKButton_Click() {
    const auto comment = core::trimmed(txtDrug.text());
    if (!passes(
            {{comment.empty() || comment == "NONE", "Empty Details Not Allowed for Med Chart Commnents", &txtDrug}}))
        return;
    if (!saves(OKButton, [&] {
            db::Transaction transaction(hospital());
            db::Recordset stay(hospital(), "select  Comment from hAdmission where consultID='"_sql + consultID_ + "'");
            stay.set("Comment", comment);
            stay.update();
            transaction.commit();
        }))
        return;
    message("Record Succesfully saved");
    close();
}

}  // namespace inpatient
