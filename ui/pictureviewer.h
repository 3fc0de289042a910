#pragma once

#include "ui/controls.h"

namespace ui {

/// A picture that is looked at closely: enlarged in steps, moved about, with a bar of commands over it. Events: Click,
/// DblClick, Change (a user enlarged it or made it smaller).
class PictureViewer : public Picture {
public:
    /// Percent of the picture that fits its frame, in steps of ten.
    static constexpr int smallestZoom = 10;
    static constexpr int usualZoom = 100;
    static constexpr int largestZoom = 1000;

    using Picture::Picture;
    [[nodiscard]] int zoom() const noexcept { return zoom_; }
    /// The nearest zoom within the limits.
    void setZoom(int percent);
    /// Whether a user may move the picture about by dragging it.
    [[nodiscard]] bool panning() const noexcept { return panning_; }
    void setPanning(bool panning);
    /// Whether the commands lie over the picture.
    void setQuickBar(bool quickBar);

    [[nodiscard]] std::string_view kind() const override { return "pictureViewer"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    /// `{"zoom":110}`, a multiple of ten within the limits.
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "zoom"; }

private:
    int zoom_ = usualZoom;
    bool panning_ = false;
    bool quickBar_ = false;
};

}  // namespace ui
