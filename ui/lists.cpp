#include "db/error.h"
#include "ui/content.h"
#include "ui/controls.h"

namespace ui {

namespace {

/// A text as a client reads it: bytes that are no UTF-8 go over the wire as the mark for those.
nlohmann::json wireText(std::string_view text) {
    using nlohmann::json;
    return json::parse(json(text).dump(-1, ' ', false, json::error_handler_t::replace));
}

}  // namespace

void ItemControl::add(std::string_view text, std::string_view key) {
    items_.add(text, key);
    refilled();
}

void ItemControl::setItems(const std::vector<ListItem>& items) {
    clear();
    for (const ListItem& item : items) add(item.text, item.key);
}

void ItemControl::clear() {
    items_.clear();
    refilled();
    pick(-1);
}

void ItemControl::refilled() {
    ++filling_;
    touch("items");
}

void ItemControl::setIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()))
        throw db::Error(db::Category::other, "Invalid property array index");
    pick(index);
    raise(Event::click);
}

std::string ItemControl::key() const {
    return index_ < 0 ? std::string() : std::string(items_.key(static_cast<std::size_t>(index_)));
}

std::vector<std::string_view> ItemControl::properties() const {
    return {"items", "index"};
}

nlohmann::json ItemControl::property(std::string_view name) const {
    if (name == "index") return index_;
    if (items_.size() <= longestTold) return allItems();
    return {{"count", items_.size()}, {"filling", filling_}};
}

nlohmann::json ItemControl::allItems() const {
    nlohmann::json items = nlohmann::json::array();
    for (std::size_t at = 0; at < items_.size(); ++at) items.push_back({{"text", items_.text(at)}});
    return items;
}

nlohmann::json ItemControl::window(std::string_view wanted, std::size_t from) const {
    const auto matching = items_.matching(wanted);
    nlohmann::json items = nlohmann::json::array();
    for (std::size_t place = from; place < matching.size() && items.size() < mostShown; ++place) {
        const int row = matching[place];
        items.push_back({{"row", row}, {"text", items_.text(static_cast<std::size_t>(row))}});
    }
    return {{"holds", wanted},
            {"from", from},
            {"count", matching.size()},
            {"filling", filling_},
            {"items", std::move(items)}};
}

int ItemControl::pickedIn(const nlohmann::json& content) const {
    const bool named = content.is_object() && content.contains("text");
    const auto row = rowOf(content, "row", items_.size());
    if (named && (!row || wireText(items_.text(static_cast<std::size_t>(*row))) != content["text"]))
        throw Refused{"the list of " + path() + " has changed: pick again"};
    return row ? *row : rowIn(*this, content, items_.size());
}

void ItemControl::pick(int index) {
    if (std::exchange(index_, index) != index) touch("index");
}

ComboBox::ComboBox(Screen& screen, std::string name, Style style, KeyFilter filter)
    : ItemControl(screen, std::move(name)), style_(style), filter_(filter) {}

void ComboBox::setText(std::string text) {
    if (const int found = items().find(text); found >= 0) return setIndex(found);
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
        show(std::string(items().text(static_cast<std::size_t>(index))));
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
    if (content.is_object()) return setIndex(pickedIn(content));
    if (!content.is_string()) throw Refused{path() + " takes a text"};
    const auto& text = content.get_ref<const std::string&>();
    if (const int found = items().find(text); found >= 0) return setIndex(found);
    if (style_ == Style::listOnly) throw Refused{path() + " takes an entry of its list only"};
    setText(typed(text, filter_));
}

std::string ListBox::text() const {
    return index() < 0 ? std::string() : std::string(items().text(static_cast<std::size_t>(index())));
}

void ListBox::take(const nlohmann::json& content) {
    setIndex(pickedIn(content));
}

}  // namespace ui
