#include "db/error.h"
#include "ui/captions.h"
#include "ui/content.h"
#include "ui/controls.h"

namespace ui {

TabStrip::TabStrip(Screen& screen, std::string name, std::vector<std::string> captions)
    : Control(screen, std::move(name)), captions_(std::move(captions)) {}

void TabStrip::setPage(int page) {
    if (page < 0 || page >= static_cast<int>(captions_.size()))
        throw db::Error(db::Category::other, "Invalid property value");
    if (std::exchange(page_, page) == page) return;
    touch("page");
    raise(Event::click);
}

std::vector<std::string_view> TabStrip::properties() const {
    return {"page", "captions"};
}

nlohmann::json TabStrip::property(std::string_view name) const {
    if (name == "page") return page_;
    return captions_;
}

void TabStrip::take(const nlohmann::json& content) {
    const auto page = rowOf(content, "page", captions_.size());
    if (!page) throw Refused{path() + R"( takes {"page":N} of its )" + std::to_string(captions_.size()) + " pages"};
    setPage(*page);
}

int TreeView::add(std::string text, std::string key, int parent) {
    if (parent < -1 || parent >= static_cast<int>(nodes_.size()))
        throw db::Error(db::Category::other, "Element not found");
    nodes_.push_back({std::move(text), std::move(key), parent});
    touch("nodes");
    return static_cast<int>(nodes_.size()) - 1;
}

void TreeView::clear() {
    nodes_.clear();
    touch("nodes");
    if (std::exchange(index_, -1) != -1) touch("index");
}

std::vector<std::string_view> TreeView::properties() const {
    return {"nodes", "index"};
}

nlohmann::json TreeView::property(std::string_view name) const {
    if (name == "index") return index_;
    nlohmann::json nodes = nlohmann::json::array();
    for (const TreeNode& node : nodes_) nodes.push_back({{"text", node.text}, {"parent", node.parent}});
    return nodes;
}

void TreeView::take(const nlohmann::json& content) {
    const int picked = rowIn(*this, content, nodes_.size());
    if (std::exchange(index_, picked) != picked) touch("index");
    raise(Event::nodeClick);
}

ListView::ListView(Screen& screen, std::string name, std::vector<std::string> columns, bool checkBoxes)
    : Control(screen, std::move(name)), columns_(std::move(columns)), checkBoxes_(checkBoxes) {}

void ListView::addRow(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    rows_.push_back(std::move(cells));
    checked_.push_back(false);
    touch("rows");
    if (checkBoxes_) touch("checked");
}

void ListView::clear() {
    rows_.clear();
    checked_.clear();
    touch("rows");
    if (checkBoxes_) touch("checked");
    if (std::exchange(row_, -1) != -1) touch("row");
}

const std::string& ListView::cell(std::size_t row, std::size_t column) const {
    if (row >= rows_.size() || column >= columns_.size()) throw db::Error(db::Category::other, "Index out of bounds");
    return rows_[row][column];
}

void ListView::setChecked(std::size_t row, bool checked) {
    static_cast<void>(cell(row, 0));
    if (checked_[row] == checked) return;
    checked_[row] = checked;
    touch("checked");
}

std::vector<std::string_view> ListView::properties() const {
    if (checkBoxes_) return {"columns", "rows", "row", "checked"};
    return {"columns", "rows", "row"};
}

nlohmann::json ListView::property(std::string_view name) const {
    if (name == "row") return row_;
    if (name == "rows") return rowsForm();
    if (name == "checked") return checked_;
    nlohmann::json columns = nlohmann::json::array();
    for (const std::string& column : columns_)
        columns.push_back({{"name", column}, {"caption", columnCaption(column)}, {"visible", true}});
    return columns;
}

nlohmann::json ListView::rowForm(std::size_t row) const {
    return rows_[row];
}

void ListView::take(const nlohmann::json& content) {
    const int picked = rowIn(*this, content, rows_.size());
    const auto row = static_cast<std::size_t>(picked);
    const bool checks = content.contains("checked");
    const bool checked = checks && checkBoxes_ && flagOf(*this, content["checked"]);
    if (checks && !checkBoxes_) throw Refused{path() + " has no check marks"};
    if (std::exchange(row_, picked) != picked) touch("row");
    if (!checks) return raise(Event::itemClick);
    if (checked_[row] == checked) return;
    setChecked(row, checked);
    raise(Event::itemCheck);
}

}  // namespace ui
