#pragma once

#include <chrono>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "db/value.h"
#include "ui/control.h"
#include "ui/itemlist.h"
#include "ui/rows.h"

namespace ui {

/// What a text or combo box lets through as it is typed, one character at a time (as UTF-8): the text to put in its
/// place, or nothing to drop it. `before` is the text so far.
using KeyFilter = std::string (*)(std::string_view character, std::string_view before);
std::string anyKey(std::string_view character, std::string_view before);
std::string digitsOnly(std::string_view character, std::string_view before);
std::string decimalOnly(std::string_view character, std::string_view before);  ///< digits and one "."
std::string upperCase(std::string_view character, std::string_view before);

/// Events: Change, Click, GotFocus, LostFocus, KeyReturn.
class TextBox : public Control {
public:
    TextBox(Screen& screen, std::string name, KeyFilter filter = anyKey);
    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    /// Raises Change where the text differs, as typing does.
    void setText(std::string text);
    void clear() { setText({}); }
    /// Characters that fit; 0 is no limit. What is typed beyond it is dropped.
    void setMaxLength(std::size_t characters) noexcept { maxLength_ = characters; }
    /// Shown as dots, and its text never leaves the session: a client hears only whether it holds one ("filled").
    void setPassword(bool password) noexcept { password_ = password; }

    [[nodiscard]] std::string_view kind() const override { return "textBox"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return password_ ? std::string_view() : "text"; }

private:
    std::string text_;
    KeyFilter filter_;
    std::size_t maxLength_ = 0;
    bool password_ = false;
};

/// What combo and list boxes share: items and the picked one. A list of more than `longestTold` items stays here: a
/// client is told how many there are, and asks for windows of those that it looks for.
class ItemControl : public Control {
public:
    static constexpr std::size_t longestTold = 300;
    /// Items in a window.
    static constexpr std::size_t mostShown = 100;

    using Control::Control;
    [[nodiscard]] const ItemList& items() const noexcept { return items_; }
    void add(std::string_view text, std::string_view key = {});
    /// So many items more will come: the list is spared growing step by step.
    void expect(std::size_t more) { items_.expect(more); }
    void setItems(const std::vector<ListItem>& items);
    /// Drops the items and the pick; a combo's text too.
    virtual void clear();
    /// The picked item from 0, or -1.
    [[nodiscard]] int index() const noexcept { return index_; }
    /// Picks an item, or none with -1, and raises Click. Throws db::Error(other) "Invalid property array index".
    virtual void setIndex(int index);
    /// The picked item's key, or "".
    [[nodiscard]] std::string key() const;
    /// The items that hold a text in any letter case, those that start with it first, from a place among them on: what
    /// a client shows of a long list.
    [[nodiscard]] nlohmann::json window(std::string_view wanted, std::size_t from) const;

    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

protected:
    void pick(int index);
    /// The number of the item that a client picks by `{"row":N}`. Throws Refused, also where it names a text beside it
    /// that is not that item's: the list was filled anew since it was shown.
    [[nodiscard]] int pickedIn(const nlohmann::json& content) const;
    [[nodiscard]] nlohmann::json allItems() const;

private:
    void refilled();

    ItemList items_;
    std::uint64_t filling_ = 0;  ///< changes with the items
    int index_ = -1;
};

/// Events: Click (an item was picked, also the one that stands there already), Change (typed), GotFocus, LostFocus.
class ComboBox : public ItemControl {
public:
    enum class Style { freeText, listOnly };
    /// `filter` is for what is typed; an entry of the list is picked as it stands.
    ComboBox(Screen& screen, std::string name, Style style = Style::freeText, KeyFilter filter = anyKey);
    [[nodiscard]] Style style() const noexcept { return style_; }
    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    /// An item's full text picks it and raises Click; another text raises Change and, where the style is listOnly, is
    /// an Error(other) "'Text' property is read-only".
    void setText(std::string text);
    void clear() override;
    void setIndex(int index) override;
    /// Drops the text and the pick and keeps the items; raises nothing.
    void clearText();

    [[nodiscard]] std::string_view kind() const override { return "comboBox"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "text"; }

private:
    void show(std::string text);
    std::string text_;
    Style style_;
    KeyFilter filter_;
};

/// Events: Click, DblClick.
class ListBox : public ItemControl {
public:
    ListBox(Screen& screen, std::string name) : ItemControl(screen, std::move(name)) {}
    /// The picked item's text, or "".
    [[nodiscard]] std::string text() const;
    [[nodiscard]] std::string_view kind() const override { return "listBox"; }
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "index"; }
};

/// Check boxes and option buttons. Event: Click, when the state changed.
class CheckBox : public Control {
public:
    CheckBox(Screen& screen, std::string name, std::string caption);
    [[nodiscard]] bool checked() const noexcept { return checked_; }
    void setChecked(bool checked);
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    [[nodiscard]] std::string_view kind() const override { return "checkBox"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "checked"; }

private:
    std::string caption_;
    bool checked_ = false;
};

/// One of a group: setting it clears the others of its screen with the same group name.
class OptionButton : public Control {
public:
    OptionButton(Screen& screen, std::string name, std::string caption, std::string group = {});
    [[nodiscard]] bool checked() const noexcept { return checked_; }
    void setChecked(bool checked);
    [[nodiscard]] std::string_view kind() const override { return "optionButton"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "checked"; }

private:
    std::string caption_;
    std::string group_;
    bool checked_ = false;
};

/// A date, a time of day, or blank. Events: Change, GotFocus, LostFocus.
class DatePicker : public Control {
public:
    enum class Format { date, time };
    DatePicker(Screen& screen, std::string name, Format format = Format::date);
    [[nodiscard]] std::optional<db::DateTime> value() const noexcept { return value_; }
    void setValue(std::optional<db::DateTime> value);
    [[nodiscard]] std::string_view kind() const override { return "datePicker"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "date"; }

private:
    Format format_;
    std::optional<db::DateTime> value_;
};

/// Text that a user cannot change. Event: Click, DblClick.
class Label : public Control {
public:
    Label(Screen& screen, std::string name, std::string caption = {});
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] const std::string& text() const noexcept { return caption_; }
    [[nodiscard]] std::string_view kind() const override { return "label"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

private:
    std::string caption_;
};

/// Event: Click.
class Button : public Control {
public:
    Button(Screen& screen, std::string name, std::string caption, Handler click = {});
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    /// The back colour as 0xRRGGBB, or -1 for the page's own. It stands in the state and raises no change: the page
    /// draws alerts by the state of their timers.
    [[nodiscard]] int backColor() const noexcept { return backColor_; }
    void setBackColor(int color) noexcept { backColor_ = color; }
    [[nodiscard]] std::string_view kind() const override { return "button"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

private:
    std::string caption_;
    int backColor_ = -1;
};

/// A panel, or a picture where it has an image. Holds other controls. Events: Click, DblClick.
class Picture : public Control {
public:
    Picture(Screen& screen, std::string name) : Control(screen, std::move(name)) {}
    [[nodiscard]] int backColor() const noexcept { return backColor_; }
    void setBackColor(int color) noexcept { backColor_ = color; }
    /// A JPEG, or nothing for an empty picture.
    void setImage(db::Bytes jpeg);
    [[nodiscard]] const db::Bytes& image() const noexcept { return *image_; }
    [[nodiscard]] std::string_view kind() const override { return "picture"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

private:
    int backColor_ = -1;
    /// Shared with whoever serves it to the page, for as long as it stands here.
    std::shared_ptr<const db::Bytes> image_ = std::make_shared<const db::Bytes>();
};

/// A column of a grid as it is shown.
struct GridColumn {
    std::string name;
    bool visible = true;
};

/// A view of a result set. Events: Click and RowChange (a row was picked), DblClick, and CellEdit where the screen lets
/// a user write into a column: the grid shows what it is bound to, and it is the screen that stores the text and binds
/// again.
class DataGrid : public Control, public Rows {
public:
    /// What a user wrote into a cell.
    struct CellEdit {
        std::string column;  ///< as the result set spells it
        std::string text;
    };
    /// Bytes that a user may write into a cell.
    static constexpr std::size_t longestCell = 1000;

    DataGrid(Screen& screen, std::string name);
    /// Shows the result set, which the grid keeps. The current row is the first, or that one of which `row` says the
    /// place, from 0; a place behind the last row means the last. Raises nothing.
    void bind(db::Recordset rows, int row = 0);
    /// Unbinds: no columns, no rows.
    void clear();
    [[nodiscard]] const db::Recordset& rows() const noexcept { return rows_; }
    [[nodiscard]] db::Recordset& rows() noexcept { return rows_; }
    [[nodiscard]] std::size_t rowCount() const override { return rows_.rowCount(); }
    [[nodiscard]] std::uint64_t rowHash(std::size_t row) const override { return rows_.rowHash(row); }
    [[nodiscard]] nlohmann::json rowForm(std::size_t row) const override;
    /// The current row from 0, or -1 for none.
    [[nodiscard]] int row() const noexcept { return row_; }
    void setRow(int row);
    /// A cell of the current row as shown ("" for null). Throws db::Error(other) without a current row or such a field.
    [[nodiscard]] std::string text(std::string_view field) const;
    void hideColumn(std::string_view name);
    /// Hides these columns and shows all others: for a grid that shows now one list, now another.
    void hideOnly(std::initializer_list<std::string_view> names);
    /// Lets a user write into the cells of this column; "" for none, as it is at first. A hidden one stays closed.
    void setEditable(std::string_view column);
    /// What was written into the current row last: for the operation of CellEdit.
    [[nodiscard]] const CellEdit& edited() const noexcept { return edited_; }
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    /// A search for other rows is under way: until it has ended, nothing of what still shows can be picked.
    void setSearching(bool searching);
    [[nodiscard]] bool reachable() const noexcept override { return !searching_ && Control::reachable(); }
    [[nodiscard]] std::string_view kind() const override { return "dataGrid"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    /// `{"row":3}` picks, `{"row":3,"column":"Price","text":"150"}` writes into a cell.
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "row"; }

private:
    [[nodiscard]] bool shows(std::string_view field) const;
    [[nodiscard]] CellEdit cellIn(const nlohmann::json& content) const;

    db::Recordset rows_;
    int row_ = -1;
    std::vector<std::string> hidden_;
    std::string editable_;
    CellEdit edited_;
    std::string caption_;
    bool searching_ = false;
};

/// A grid of cells that the screen fills. Events: Click, DblClick.
class FlexGrid : public Control, public Rows {
public:
    FlexGrid(Screen& screen, std::string name, std::vector<std::string> columns);
    [[nodiscard]] std::size_t rowCount() const noexcept override { return cells_.size(); }
    [[nodiscard]] std::uint64_t rowHash(std::size_t row) const override { return hashOf(cells_[row]); }
    [[nodiscard]] nlohmann::json rowForm(std::size_t row) const override;
    void addRow(std::vector<std::string> cells);
    void removeRow(std::size_t row);
    void clear();
    [[nodiscard]] const std::string& cell(std::size_t row, std::size_t column) const;
    [[nodiscard]] const std::vector<std::string>& cells(std::size_t row) const;
    void setCell(std::size_t row, std::size_t column, std::string text);
    [[nodiscard]] int row() const noexcept { return row_; }
    void setRow(int row);
    void hideColumn(std::string_view name);
    [[nodiscard]] std::string_view kind() const override { return "flexGrid"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "row"; }

private:
    std::vector<GridColumn> columns_;
    std::vector<std::vector<std::string>> cells_;
    int row_ = -1;
};

/// Event: Click, when another page came forward.
class TabStrip : public Control {
public:
    TabStrip(Screen& screen, std::string name, std::vector<std::string> captions);
    /// The page in front; on which one the strip itself lies says Control::page.
    // NOLINTNEXTLINE(bugprone-derived-method-shadowing-base-method)
    [[nodiscard]] int page() const noexcept { return page_; }
    void setPage(int page);
    [[nodiscard]] std::string_view kind() const override { return "tabStrip"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "page"; }

private:
    std::vector<std::string> captions_;
    int page_ = 0;
};

/// A node of a tree; `parent` is the index of an earlier node, or -1.
struct TreeNode {
    std::string text;
    std::string key;
    int parent = -1;
};

/// Events: NodeClick, DblClick.
class TreeView : public Control {
public:
    TreeView(Screen& screen, std::string name) : Control(screen, std::move(name)) {}
    int add(std::string text, std::string key = {}, int parent = -1);
    void clear();
    [[nodiscard]] const std::vector<TreeNode>& nodes() const noexcept { return nodes_; }
    [[nodiscard]] int index() const noexcept { return index_; }
    [[nodiscard]] Event defaultEvent() const override { return Event::nodeClick; }
    [[nodiscard]] std::string_view kind() const override { return "treeView"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "index"; }

private:
    std::vector<TreeNode> nodes_;
    int index_ = -1;
};

/// Rows of a text and its sub-items, which may carry a check mark each. Events: ItemClick, ItemCheck, DblClick.
class ListView : public Control, public Rows {
public:
    ListView(Screen& screen, std::string name, std::vector<std::string> columns, bool checkBoxes = false);
    void addRow(std::vector<std::string> cells);
    void clear();
    [[nodiscard]] std::size_t rowCount() const noexcept override { return rows_.size(); }
    [[nodiscard]] std::uint64_t rowHash(std::size_t row) const override { return hashOf(rows_[row]); }
    [[nodiscard]] nlohmann::json rowForm(std::size_t row) const override;
    [[nodiscard]] const std::string& cell(std::size_t row, std::size_t column) const;
    [[nodiscard]] bool checked(std::size_t row) const { return checked_.at(row); }
    void setChecked(std::size_t row, bool checked);
    [[nodiscard]] int row() const noexcept { return row_; }
    [[nodiscard]] Event defaultEvent() const override { return Event::itemClick; }
    [[nodiscard]] std::string_view kind() const override { return "listView"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    /// `{"row":3}` picks, `{"row":3,"checked":true}` checks.
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "row"; }

private:
    std::vector<std::string> columns_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<bool> checked_;
    bool checkBoxes_;
    int row_ = -1;
};

/// A line chart of labels and one or two series.
class LineChart : public Control {
public:
    struct Series {
        std::string name;
        std::vector<std::optional<double>> points;  ///< one a label; nothing leaves a gap
    };
    LineChart(Screen& screen, std::string name) : Control(screen, std::move(name)) {}
    void show(std::string title, std::vector<std::string> labels, std::vector<Series> series);
    /// What stands at the axes: the labels' kind, and the points' with its unit; "" for nothing.
    void setAxisTitles(std::string x, std::string y);
    /// Drops all but the axes' titles.
    void clear();
    [[nodiscard]] const std::vector<std::string>& labels() const noexcept { return labels_; }
    [[nodiscard]] const std::vector<Series>& series() const noexcept { return series_; }
    [[nodiscard]] std::string_view kind() const override { return "lineChart"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

private:
    std::string title_;
    std::string xTitle_;
    std::string yTitle_;
    std::vector<std::string> labels_;
    std::vector<Series> series_;
};

/// Texts side by side at the foot of a window.
class StatusBar : public Control {
public:
    StatusBar(Screen& screen, std::string name, int panels);
    /// Panels count from 1.
    [[nodiscard]] const std::string& panel(int number) const;
    void setPanel(int number, std::string text);
    [[nodiscard]] std::string_view kind() const override { return "statusBar"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

private:
    std::vector<std::string> panels_;
};

/// A job that the session's loop runs every `interval` while the timer is enabled. Event: Timer.
/// A timer's `visible` means nothing; `enabled` is its running.
class Timer : public Control {
public:
    Timer(Screen& screen, std::string name, std::chrono::milliseconds interval, bool running = true, Handler job = {});
    ~Timer() override;
    [[nodiscard]] bool running() const noexcept { return enabled(); }
    void setRunning(bool running) { setEnabled(running); }
    [[nodiscard]] std::chrono::milliseconds interval() const noexcept { return interval_; }
    /// Runs the job once if the timer runs. A job that is still at work (it shows a box) is not run again meanwhile; an
    /// error that no trap of it takes is shown.
    void tick();
    [[nodiscard]] Event defaultEvent() const override { return Event::timer; }
    [[nodiscard]] std::string_view kind() const override { return "timer"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

protected:
    void enabledChanged() override;

private:
    std::chrono::milliseconds interval_;
    bool working_ = false;
};

/// An entry of a menu tree: a heading, an entry or a separator ("-"). Event: Click.
class MenuItem : public Control {
public:
    /// "&" in a caption marks its access key, "&&" is the character itself.
    MenuItem(Screen& screen, std::string name, std::string caption, const MenuItem* parent = nullptr,
             Handler click = {});
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    /// The entry's screen is not there yet: it is marked so, and still answers.
    void setComing(bool coming);
    [[nodiscard]] const MenuItem* parent() const noexcept { return parent_; }
    [[nodiscard]] std::string_view kind() const override { return "menuItem"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;

private:
    std::string caption_;
    const MenuItem* parent_;
    bool coming_ = false;
};

/// Where the open child screens lie: how they are arranged, and their list for the window menu.
class ChildArea : public Control {
public:
    enum class Arrangement { tabs, cascade, tileHorizontal, tileVertical };
    ChildArea(Screen& screen, std::string name) : Control(screen, std::move(name)) {}
    void arrange(Arrangement arrangement);
    [[nodiscard]] std::string_view kind() const override { return "childArea"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    /// Tells that the list of open children changed.
    void childrenChanged() { touch("children"); }

private:
    Arrangement arrangement_ = Arrangement::tabs;
};

}  // namespace ui
