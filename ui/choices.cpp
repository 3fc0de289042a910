#include "ui/content.h"
#include "ui/controls.h"
#include "ui/screen.h"

namespace ui {

CheckBox::CheckBox(Screen& screen, std::string name, std::string caption)
    : Control(screen, std::move(name)), caption_(std::move(caption)) {}

void CheckBox::setChecked(bool checked) {
    if (std::exchange(checked_, checked) == checked) return;
    touch("checked");
    raise(Event::click);
}

std::vector<std::string_view> CheckBox::properties() const {
    return {"caption", "checked"};
}

nlohmann::json CheckBox::property(std::string_view name) const {
    if (name == "caption") return caption_;
    return checked_;
}

void CheckBox::take(const nlohmann::json& content) {
    setChecked(flagOf(*this, content));
}

OptionButton::OptionButton(Screen& screen, std::string name, std::string caption, std::string group)
    : Control(screen, std::move(name)), caption_(std::move(caption)), group_(std::move(group)) {}

void OptionButton::setChecked(bool checked) {
    if (std::exchange(checked_, checked) == checked) return;
    touch("checked");
    if (!checked) return;
    for (Control* control : screen().controls()) {
        auto* other = dynamic_cast<OptionButton*>(control);
        if (other && other != this && other->group_ == group_) other->setChecked(false);
    }
    raise(Event::click);
}

std::vector<std::string_view> OptionButton::properties() const {
    return {"caption", "checked", "group"};
}

nlohmann::json OptionButton::property(std::string_view name) const {
    if (name == "caption") return caption_;
    if (name == "group") return group_;
    return checked_;
}

void OptionButton::take(const nlohmann::json& content) {
    setChecked(flagOf(*this, content));
}

DatePicker::DatePicker(Screen& screen, std::string name, Format format)
    : Control(screen, std::move(name)), format_(format) {}

void DatePicker::setValue(std::optional<db::DateTime> value) {
    if (value == value_) return;
    value_ = value;
    touch("date");
    raise(Event::change);
}

std::vector<std::string_view> DatePicker::properties() const {
    return {"date", "format"};
}

nlohmann::json DatePicker::property(std::string_view name) const {
    if (name == "format") return format_ == Format::date ? "date" : "time";
    if (!value_) return nullptr;
    return format_ == Format::date ? value_->isoDate() : value_->isoTime();
}

void DatePicker::take(const nlohmann::json& content) {
    if (content.is_null()) return setValue(std::nullopt);
    const auto moment = content.is_string() ? db::DateTime::parse(content.get_ref<const std::string&>()) : std::nullopt;
    if (!moment) throw Refused{path() + (format_ == Format::date ? " takes a date or null" : " takes a time or null")};
    setValue(format_ == Format::date ? moment->date() : moment->timeOfDay());
}

}  // namespace ui
