#include "ui/checklist.h"

#include "db/error.h"
#include "ui/content.h"

namespace ui {

void CheckList::clear() {
    checkAll(false);
    setNotes({});
    ItemControl::clear();
}

void CheckList::setNotes(std::vector<std::string> notes) {
    if (notes_ == notes) return;
    notes_ = std::move(notes);
    touch("notes");
}

bool CheckList::checked(int index) const {
    if (index < 0 || index >= static_cast<int>(items().size()))
        throw db::Error(db::Category::other, "Invalid property array index");
    return checked_.count(index) > 0;
}

void CheckList::setChecked(int index, bool checked) {
    if (this->checked(index) == checked) return;
    if (checked)
        checked_.insert(index);
    else
        checked_.erase(index);
    touch("checked");
}

void CheckList::checkAll(bool checked) {
    for (int index = 0; index < static_cast<int>(items().size()); ++index) setChecked(index, checked);
}

std::vector<ListItem> CheckList::checkedItems() const {
    std::vector<ListItem> ticked;
    ticked.reserve(checked_.size());
    for (const int index : checked_) ticked.push_back(items()[static_cast<std::size_t>(index)]);
    return ticked;
}

std::vector<std::string_view> CheckList::properties() const {
    return {"items", "index", "checked", "notes"};
}

nlohmann::json CheckList::property(std::string_view name) const {
    if (name == "checked") return checked_;
    if (name == "notes") return notes_;
    return name == "items" ? allItems() : ItemControl::property(name);
}

void CheckList::take(const nlohmann::json& content) {
    const int row = rowIn(*this, content, items().size());
    const bool ticks = content.contains("checked");
    if (content.size() > (ticks ? 2U : 1U)) throw Refused{path() + " takes a row, and whether it is checked"};
    if (!ticks) return setIndex(row);
    const bool wanted = flagOf(*this, content["checked"]);
    pick(row);
    if (checked(row) == wanted) return;
    setChecked(row, wanted);
    raise(Event::itemCheck);
}

}  // namespace ui
