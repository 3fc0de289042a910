#pragma once

#include <string>

#include "core/forms/form.h"
#include "ui/pictureviewer.h"

namespace outpatient {

/// "Image Viewer": one image at full size, either the one picked in the consultation history (`gPictureFile`) or one
/// from the nurse's own disk, which is shown and not stored.
class frmSuperPicture : public core::Form {
public:
    explicit frmSuperPicture(core::Workplace& place);

    void showing() override;

    ui::PictureViewer SuperPic{*this, "SuperPic"};
    ui::Label lblHint{*this, "lblHint"};
    ui::Button cmdIn{*this, "cmdIn", "Zoom &In"};
    ui::Button cmdOut{*this, "cmdOut", "Zoom &Out"};
    ui::CheckBox chkPanMode{*this, "chkPanMode", "Pan &Mode"};
    ui::CheckBox chkUseQuickBar{*this, "chkUseQuickBar", "Use &Quick Bar"};
    ui::Button cmdPrint{*this, "cmdPrint", "&Print"};
    ui::ListBox lstEvents{*this, "lstEvents"};  ///< what the viewer told, the latest last
    ui::Button CancelButton{*this, "CancelButton", "Close"};

private:
    [[nodiscard]] bool ownImage() const;
    void zoomBy(int percent);
    void SuperPic_DblClick();
    void logEvent(const std::string& event);
    void logZoom();
};

}  // namespace outpatient
