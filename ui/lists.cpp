#include "db/error.h"
#include "ui/content.h"
#include "ui/controls.h"

namespace ui {

void ItemControl::add(std::string text, std::string key) {
    items_.push_back({std::move(text), std::move(key)});
    touch("items");
}

void ItemControl::setItems(std::vector<ListItem> items) {
    clear();
    items_ = std::move(items);
    touch("items");
}

void ItemControl::clear() {
    items_.clear();
    touch("items");
    pick(-1);
}

void ItemControl::setIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()))
        throw db::Error(db::Category::other, "Invalid property array index");
    pick(index);
    raise(Event::click);
}

std::string ItemControl::key() const {
    return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)].key;
}

std::vector<std::string_view> ItemControl::properties() const {
    return {"items", "index"};
}

nlohmann::json ItemControl::property(std::string_view name) const {
    if (name == "index") return index_;
    nlohmann::json items = nlohmann::json::array();
    for (const ListItem& item : items_) items.push_back({{"text", item.text}});
    return items;
}

void ItemControl::pick(int index) {
    if (std::exchange(index_, index) != index) touch("index");
}

ComboBox::ComboBox(Screen& screen, std::string name, Style style, KeyFilter filter)
    : ItemControl(screen, std::move(name)), style_(style), filter_(filter) {}

int ComboBox::find(std::string_view text) const {
    for (std::size_t i = 0; i < items().size(); ++i)
        if (items()[i].text == text) return static_cast<int>(i);
    return -1;
}

void ComboBox::setText(std::string text) {
    if (const int found = find(text); found >= 0) return setIndex(found);
    if (text == text_) return;
    if (style_ == Style::listOnly) throw db::Error(db::Category::other, "'Text' property is read-only");
    pick(-1);
    text_ = std::move(text);
    touch("text");
    raise(Event::change);
}

void ComboBox::clear() {
    ItemControl::clear();
    clearText();
}

void ComboBox::setIndex(int index) {
    if (index >= 0 && index < static_cast<int>(items().size()))
        show(items()[static_cast<std::size_t>(index)].text);
    else if (index == -1)
        show({});
    ItemControl::setIndex(index);
}

void ComboBox::clearText() {
    pick(-1);
    show({});
}

void ComboBox::show(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    touch("text");
}

std::vector<std::string_view> ComboBox::properties() const {
    return {"text", "items", "index", "listOnly"};
}

nlohmann::json ComboBox::property(std::string_view name) const {
    if (name == "text") return text_;
    if (name == "listOnly") return style_ == Style::listOnly;
    return ItemControl::property(name);
}

void ComboBox::take(const nlohmann::json& content) {
    if (content.is_object()) return setIndex(rowIn(*this, content, items().size()));
    if (!content.is_string()) throw Refused{path() + " takes a text"};
    const auto& text = content.get_ref<const std::string&>();
    if (find(text) >= 0) return setText(text);
    if (style_ == Style::listOnly) throw Refused{path() + " takes an entry of its list only"};
    setText(typed(text, filter_));
}

std::string ListBox::text() const {
    return index() < 0 ? std::string() : items()[static_cast<std::size_t>(index())].text;
}

void ListBox::take(const nlohmann::json& content) {
    setIndex(rowIn(*this, content, items().size()));
}

}  // namespace ui
