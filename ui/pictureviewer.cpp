#include "ui/pictureviewer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ui {

void PictureViewer::setZoom(int percent) {
    const int within = std::clamp(percent, smallestZoom, largestZoom);
    if (within == zoom_) return;
    zoom_ = within;
    touch("zoom");
}

void PictureViewer::setPanning(bool panning) {
    panning_ = panning;
    touch("panning");
}

void PictureViewer::setQuickBar(bool quickBar) {
    quickBar_ = quickBar;
    touch("quickBar");
}

std::vector<std::string_view> PictureViewer::properties() const {
    auto all = Picture::properties();
    all.insert(all.end(), {"zoom", "panning", "quickBar"});
    return all;
}

nlohmann::json PictureViewer::property(std::string_view name) const {
    if (name == "zoom") return zoom_;
    if (name == "panning") return panning_;
    if (name == "quickBar") return quickBar_;
    return Picture::property(name);
}

void PictureViewer::take(const nlohmann::json& content) {
    const auto given = content.is_object() ? content.find("zoom") : content.end();
    const bool isNumber = content.is_object() && given != content.end() && given->is_number_integer();
    const auto percent = isNumber ? given->get<std::int64_t>() : 0;
    if (percent < smallestZoom || percent > largestZoom || percent % smallestZoom != 0)
        throw Refused{path() + R"( takes {"zoom":N}, a multiple of 10 from 10 to 1000)"};
    if (percent == zoom_) return;
    setZoom(static_cast<int>(percent));
    raise(Event::change);
}

}  // namespace ui
