// Controls that show and take nothing.

#include <array>
#include <cstdio>

#include "db/error.h"
#include "ui/content.h"
#include "ui/controls.h"
#include "ui/desktop.h"
#include "ui/screen.h"

namespace ui {

namespace {

std::string base64(const db::Bytes& bytes) {
    static constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8U | (i + k < bytes.size() ? std::to_integer<std::uint32_t>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k) text += i + k > bytes.size() ? '=' : digits[group >> (18 - 6 * k) & 63U];
    }
    return text;
}

}  // namespace

nlohmann::json colorForm(int color) {
    if (color < 0) return nullptr;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "#%06X", static_cast<unsigned>(color) & 0xFFFFFFU);
    return text.data();
}

Label::Label(Screen& screen, std::string name, std::string caption)
    : Control(screen, std::move(name)), caption_(std::move(caption)) {}

void Label::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    touch("caption");
}

std::vector<std::string_view> Label::properties() const {
    return {"caption"};
}

nlohmann::json Label::property(std::string_view /*name*/) const {
    return caption_;
}

Button::Button(Screen& screen, std::string name, std::string caption, Handler click)
    : Control(screen, std::move(name)), caption_(std::move(caption)) {
    on(Event::click, std::move(click));
}

void Button::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    touch("caption");
}

std::vector<std::string_view> Button::properties() const {
    return {"caption", "color"};
}

nlohmann::json Button::property(std::string_view name) const {
    return name == "color" ? colorForm(backColor_) : nlohmann::json(caption_);
}

void Picture::setImage(db::Bytes jpeg) {
    if (jpeg == *image_) return;
    image_ = std::make_shared<const db::Bytes>(std::move(jpeg));
    touch("image");
}

std::vector<std::string_view> Picture::properties() const {
    return {"color", "image"};
}

nlohmann::json Picture::property(std::string_view name) const {
    if (name == "color") return colorForm(backColor_);
    if (image_->empty()) return nullptr;
    const auto& keeper = screen().desktop().pictureKeeper();
    const std::string address = keeper ? keeper(image_) : "data:image/jpeg;base64," + base64(*image_);
    return address.empty() ? nlohmann::json() : nlohmann::json(address);
}

void LineChart::show(std::string title, std::vector<std::string> labels, std::vector<Series> series) {
    title_ = std::move(title);
    labels_ = std::move(labels);
    series_ = std::move(series);
    for (const char* property : {"title", "labels", "series"}) touch(property);
}

void LineChart::setAxisTitles(std::string x, std::string y) {
    xTitle_ = std::move(x);
    yTitle_ = std::move(y);
    for (const char* property : {"xTitle", "yTitle"}) touch(property);
}

void LineChart::clear() {
    show({}, {}, {});
}

std::vector<std::string_view> LineChart::properties() const {
    return {"title", "xTitle", "yTitle", "labels", "series"};
}

nlohmann::json LineChart::property(std::string_view name) const {
    if (name == "title") return title_;
    if (name == "xTitle") return xTitle_;
    if (name == "yTitle") return yTitle_;
    if (name == "labels") return labels_;
    nlohmann::json series = nlohmann::json::array();
    for (const Series& one : series_) {
        nlohmann::json points = nlohmann::json::array();
        for (const auto& point : one.points) points.push_back(point ? nlohmann::json(*point) : nlohmann::json());
        series.push_back({{"name", one.name}, {"points", std::move(points)}});
    }
    return series;
}

StatusBar::StatusBar(Screen& screen, std::string name, int panels)
    : Control(screen, std::move(name)), panels_(static_cast<std::size_t>(panels)) {}

const std::string& StatusBar::panel(int number) const {
    if (number < 1 || number > static_cast<int>(panels_.size()))
        throw db::Error(db::Category::other, "Index out of bounds");
    return panels_[static_cast<std::size_t>(number) - 1];
}

void StatusBar::setPanel(int number, std::string text) {
    if (panel(number) == text) return;
    panels_[static_cast<std::size_t>(number) - 1] = std::move(text);
    touch("panels");
}

std::vector<std::string_view> StatusBar::properties() const {
    return {"panels"};
}

nlohmann::json StatusBar::property(std::string_view /*name*/) const {
    return panels_;
}

MenuItem::MenuItem(Screen& screen, std::string name, std::string caption, const MenuItem* parent, Handler click)
    : Control(screen, std::move(name)), caption_(std::move(caption)), parent_(parent) {
    if (parent) heldBy(*parent);
    on(Event::click, std::move(click));
}

void MenuItem::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    touch("caption");
}

void MenuItem::setComing(bool coming) {
    if (std::exchange(coming_, coming) != coming) touch("coming");
}

std::vector<std::string_view> MenuItem::properties() const {
    return {"caption", "parent", "coming"};
}

nlohmann::json MenuItem::property(std::string_view name) const {
    if (name == "caption") return caption_;
    if (name == "coming") return coming_;
    return parent_ ? nlohmann::json(parent_->name()) : nlohmann::json();
}

void ChildArea::arrange(Arrangement arrangement) {
    if (std::exchange(arrangement_, arrangement) != arrangement) touch("arrangement");
}

std::vector<std::string_view> ChildArea::properties() const {
    return {"arrangement", "children"};
}

nlohmann::json ChildArea::property(std::string_view name) const {
    if (name == "arrangement") {
        static constexpr std::array names = {"tabs", "cascade", "tileHorizontal", "tileVertical"};
        return names.at(static_cast<std::size_t>(arrangement_));
    }
    nlohmann::json children = nlohmann::json::array();
    const Desktop& desktop = screen().desktop();
    for (const Screen* child : desktop.screens())
        if (child->visible() && !child->modal() && child != desktop.main())
            children.push_back(
                {{"name", child->name()}, {"caption", child->caption()}, {"active", child == desktop.activeChild()}});
    return children;
}

}  // namespace ui
