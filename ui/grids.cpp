#include <algorithm>

#include "db/error.h"
#include "db/letters.h"
#include "ui/captions.h"
#include "ui/content.h"
#include "ui/controls.h"

namespace ui {

namespace {

std::string shownText(const db::Value& value) {
    return std::holds_alternative<db::Bytes>(value.content()) ? std::string() : value.textOr();
}

nlohmann::json columnForm(std::string_view name, bool visible) {
    return {{"name", name}, {"caption", columnCaption(name)}, {"visible", visible}};
}

}  // namespace

DataGrid::DataGrid(Screen& screen, std::string name) : Control(screen, std::move(name)) {}

void DataGrid::bind(db::Recordset rows, int row) {
    rows_ = std::move(rows);
    row_ = std::min(row, static_cast<int>(rows_.rowCount()) - 1);
    rows_.moveTo(row_ < 0 ? 0 : static_cast<std::size_t>(row_));
    for (const char* property : {"columns", "rows", "row"}) touch(property);
}

void DataGrid::clear() {
    bind(db::Recordset());
}

void DataGrid::setRow(int row) {
    if (row < -1 || row >= static_cast<int>(rows_.rowCount()))
        throw db::Error(db::Category::other, "Invalid row number");
    if (row >= 0) rows_.moveTo(static_cast<std::size_t>(row));
    if (std::exchange(row_, row) == row) return;
    touch("row");
    raise(Event::rowChange);
}

std::string DataGrid::text(std::string_view field) const {
    if (row_ < 0) throw db::Error(db::Category::other, "Invalid row number");
    for (std::size_t column = 0; column < rows_.fields().size(); ++column)
        if (db::sameName(rows_.fields()[column], field))
            return shownText(rows_.value(static_cast<std::size_t>(row_), column));
    throw db::Error(db::Category::other, "Invalid column index");
}

void DataGrid::hideColumn(std::string_view name) {
    hidden_.push_back(db::lowered(name));
    touch("columns");
}

void DataGrid::hideOnly(std::initializer_list<std::string_view> names) {
    std::vector<std::string> hidden;
    for (const auto name : names) hidden.push_back(db::lowered(name));
    if (hidden == hidden_) return;
    hidden_ = std::move(hidden);
    touch("columns");
}

void DataGrid::setEditable(std::string_view column) {
    if (column == editable_) return;
    editable_ = column;
    touch("columns");
}

bool DataGrid::shows(std::string_view field) const {
    return std::find(hidden_.begin(), hidden_.end(), db::lowered(field)) == hidden_.end();
}

void DataGrid::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    touch("caption");
}

void DataGrid::setSearching(bool searching) {
    if (std::exchange(searching_, searching) != searching) touch("searching");
}

std::vector<std::string_view> DataGrid::properties() const {
    return {"caption", "columns", "rows", "row", "searching"};
}

nlohmann::json DataGrid::property(std::string_view name) const {
    if (name == "caption") return caption_;
    if (name == "row") return row_;
    if (name == "searching") return searching_;
    if (name == "rows") return rowsForm();
    nlohmann::json columns = nlohmann::json::array();
    for (const std::string& field : rows_.fields()) {
        columns.push_back(columnForm(field, shows(field)));
        if (db::sameName(field, editable_)) columns.back()["editable"] = true;
    }
    return columns;
}

nlohmann::json DataGrid::rowForm(std::size_t row) const {
    nlohmann::json cells = nlohmann::json::array();
    cells.get_ref<nlohmann::json::array_t&>().reserve(rows_.fields().size());
    for (std::size_t column = 0; column < rows_.fields().size(); ++column)
        cells.push_back(shownText(rows_.value(row, column)));
    return cells;
}

void DataGrid::take(const nlohmann::json& content) {
    const int row = rowIn(*this, content, rows_.rowCount());
    if (content.contains("column")) {
        edited_ = cellIn(content);
        setRow(row);
        raise(Event::cellEdit);
    } else {
        setRow(row);
        raise(Event::click);
    }
}

DataGrid::CellEdit DataGrid::cellIn(const nlohmann::json& content) const {
    const auto text = content.find("text");
    const bool formed = content.size() == 3 && content["column"].is_string() && text != content.end() &&
                        text->is_string() && text->get_ref<const std::string&>().size() <= longestCell;
    if (!formed)
        throw Refused{path() + R"( takes {"row":N,"column":"NAME","text":"..."} of at most )" +
                      std::to_string(longestCell) + " bytes"};
    const auto& column = content["column"].get_ref<const std::string&>();
    for (const auto& field : rows_.fields())
        if (db::sameName(field, column) && db::sameName(field, editable_) && shows(field))
            return {field, text->get<std::string>()};
    throw Refused{path() + " takes nothing into that column"};
}

FlexGrid::FlexGrid(Screen& screen, std::string name, std::vector<std::string> columns)
    : Control(screen, std::move(name)) {
    for (std::string& column : columns) columns_.push_back({std::move(column)});
}

void FlexGrid::addRow(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    cells_.push_back(std::move(cells));
    touch("rows");
}

void FlexGrid::removeRow(std::size_t row) {
    static_cast<void>(cell(row, 0));
    cells_.erase(cells_.begin() + static_cast<std::ptrdiff_t>(row));
    touch("rows");
    if (row_ >= static_cast<int>(cells_.size())) setRow(static_cast<int>(cells_.size()) - 1);
}

void FlexGrid::clear() {
    cells_.clear();
    touch("rows");
    setRow(-1);
}

const std::string& FlexGrid::cell(std::size_t row, std::size_t column) const {
    if (row >= cells_.size() || column >= columns_.size())
        throw db::Error(db::Category::other, "Subscript out of range");
    return cells_[row][column];
}

const std::vector<std::string>& FlexGrid::cells(std::size_t row) const {
    static_cast<void>(cell(row, 0));
    return cells_[row];
}

void FlexGrid::setCell(std::size_t row, std::size_t column, std::string text) {
    if (cell(row, column) == text) return;
    cells_[row][column] = std::move(text);
    touch("rows");
}

void FlexGrid::setRow(int row) {
    if (row < -1 || row >= static_cast<int>(cells_.size())) throw db::Error(db::Category::other, "Invalid row number");
    if (std::exchange(row_, row) != row) touch("row");
}

void FlexGrid::hideColumn(std::string_view name) {
    for (GridColumn& column : columns_)
        if (db::sameName(column.name, name)) column.visible = false;
    touch("columns");
}

std::vector<std::string_view> FlexGrid::properties() const {
    return {"columns", "rows", "row"};
}

nlohmann::json FlexGrid::property(std::string_view name) const {
    if (name == "row") return row_;
    if (name == "rows") return rowsForm();
    nlohmann::json columns = nlohmann::json::array();
    for (const GridColumn& column : columns_) columns.push_back(columnForm(column.name, column.visible));
    return columns;
}

nlohmann::json FlexGrid::rowForm(std::size_t row) const {
    return cells_[row];
}

void FlexGrid::take(const nlohmann::json& content) {
    setRow(rowIn(*this, content, cells_.size()));
    raise(Event::click);
}

}  // namespace ui
