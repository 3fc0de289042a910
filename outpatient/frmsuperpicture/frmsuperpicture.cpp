#include "outpatient/frmsuperpicture/frmsuperpicture.h"

#include "core/pictures/imagefile.h"
#include "core/session/session.h"

namespace outpatient {

using ui::Event;

namespace {

constexpr std::size_t mostEvents = 200;
constexpr int step = 10;

}  // namespace

frmSuperPicture::frmSuperPicture(core::Workplace& place) : Form(place, "frmSuperPicture", "Image Viewer") {
    bind(SuperPic, Event::click, [this] { logEvent("Click()"); });
    bind(SuperPic, Event::dblClick, &frmSuperPicture::SuperPic_DblClick);
    bind(SuperPic, Event::change, &frmSuperPicture::logZoom);
    bind(cmdIn, Event::click, [this] { zoomBy(step); });
    bind(cmdOut, Event::click, [this] { zoomBy(-step); });
    bind(chkPanMode, Event::click, [this] { SuperPic.setPanning(chkPanMode.checked()); });
    bind(chkUseQuickBar, Event::click, [this] { SuperPic.setQuickBar(chkUseQuickBar.checked()); });
    bind(cmdPrint, Event::click, [this] { desktop().print(*this); });
    bind(CancelButton, Event::click, [this] { close(); });
}

/// An image of the nurse's own, from her disk, and not one of the patient's.
bool frmSuperPicture::ownImage() const {
    return session().gPictureCaller != "frmConsultInfo";
}

void frmSuperPicture::showing() {
    SuperPic.setImage({});
    SuperPic.setZoom(ui::PictureViewer::usualZoom);
    lstEvents.clear();
    lblHint.setCaption(ownImage() ? "Double-Click inside to load an image from Disk" : "");
    if (!ownImage()) trapped([this] { SuperPic.setImage(core::imageFromFile(session().gPictureFile)); });
    desktop().focus(SuperPic);
}

void frmSuperPicture::zoomBy(int percent) {
    const int before = SuperPic.zoom();
    SuperPic.setZoom(before + percent);
    if (SuperPic.zoom() != before) logZoom();
}

void frmSuperPicture::SuperPic_DblClick() {
    logEvent("DblClick()");
    if (!ownImage()) return;
    const auto name = desktop().pickFile("Select the JPG Image  File...", "image/jpeg");
    const auto file = name ? desktop().chosenFile(*name) : std::nullopt;
    if (!file) return;
    SuperPic.setImage(core::imageFromFile(*file));
    SuperPic.setZoom(ui::PictureViewer::usualZoom);
    lblHint.setCaption({});
}

void frmSuperPicture::logZoom() {
    logEvent("ZoomChanged(" + std::to_string(SuperPic.zoom()) + ")");
}

void frmSuperPicture::logEvent(const std::string& event) {
    if (lstEvents.items().size() == mostEvents) lstEvents.clear();
    lstEvents.add(event);
}

}  // namespace outpatient
