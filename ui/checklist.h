#pragma once

#include <set>
#include <string>
#include <vector>

#include "ui/controls.h"

namespace ui {

/// A list whose items carry a tick each. Events: ItemCheck (a user changed a tick; `index()` is its item), Click (an
/// item was picked), DblClick. What the screen ticks itself raises nothing. However long it is, a client is told all of
/// it: its ticks are by number.
class CheckList : public ItemControl {
public:
    CheckList(Screen& screen, std::string name) : ItemControl(screen, std::move(name)) {}
    /// Drops the items with their ticks and remarks, and the pick.
    void clear() override;
    /// Throws db::Error(other) "Invalid property array index", as the next one does.
    [[nodiscard]] bool checked(int index) const;
    void setChecked(int index, bool checked);
    /// A remark beside each item, in their order: a help to the eye that belongs to no item's text.
    void setNotes(std::vector<std::string> notes);
    /// Ticks all items, or none.
    void checkAll(bool checked);
    [[nodiscard]] std::size_t checkedCount() const noexcept { return checked_.size(); }
    /// The ticked items in the order of the list.
    [[nodiscard]] std::vector<ListItem> checkedItems() const;

    [[nodiscard]] std::string_view kind() const override { return "checkList"; }
    [[nodiscard]] std::vector<std::string_view> properties() const override;
    [[nodiscard]] nlohmann::json property(std::string_view name) const override;
    /// `{"row":3}` picks, `{"row":3,"checked":true}` ticks; nothing else is taken.
    void take(const nlohmann::json& content) override;
    [[nodiscard]] std::string_view takes() const override { return "index"; }

private:
    std::set<int> checked_;
    std::vector<std::string> notes_;
};

}  // namespace ui
