#include "registration/shared/searchbox.h"

#include <algorithm>

#include "core/texts/texts.h"
#include "db/letters.h"

namespace registration {

namespace {

/// Digits of a telephone number; fewer are a card's.
constexpr std::ptrdiff_t shortestPhone = 7;

/// What Enter searches by: a name has no digits, a card's number may have letters besides.
SearchKind kindOf(std::string_view text, SearchKind numberSearch) {
    const auto digits = std::count_if(text.begin(), text.end(), db::isDigit);
    if (digits == 0) return SearchKind::name;
    const bool onlyDigits =
        std::all_of(text.begin(), text.end(), [](char c) { return db::isDigit(c) || db::isBlank(c) || c == '/'; });
    const bool isNumber = numberSearch == SearchKind::sysNo || digits >= shortestPhone;
    return onlyDigits && isNumber ? numberSearch : SearchKind::cardNo;
}

}  // namespace

SearchBox::SearchBox(core::Workplace& place, ui::Screen& screen, SearchKind numberSearch,
                     std::function<void(SearchKind)> search)
    : Part(place, screen),
      cmdSys(screen, "cmdSys", numberSearch == SearchKind::phoneNo ? "Tel No" : "System No"),
      search_(std::move(search)) {
    bind(cmdOK, ui::Event::click, [this] { find(SearchKind::name); });
    bind(cmdCard, ui::Event::click, [this] { find(SearchKind::cardNo); });
    bind(cmdSys, ui::Event::click, [this, numberSearch] { find(numberSearch); });
    bind(txtName, ui::Event::keyReturn, [this, numberSearch] { find(kindOf(txtName.text(), numberSearch)); });
}

void SearchBox::find(SearchKind kind) {
    if (core::blank(txtName.text())) return refuse(searchPrompt(kind), txtName);
    search_(kind);
}

std::string SearchBox::wanted(SearchKind kind) {
    auto text = core::trimmed(txtName.text());
    if (kind != SearchKind::sysNo) return text;
    txtName.setText(systemNumber(place().session, text));
    return txtName.text();
}

void SearchBox::setEnabled(bool enabled) {
    for (ui::Control* control : std::initializer_list<ui::Control*>{&txtName, &cmdOK, &cmdCard, &cmdSys})
        control->setEnabled(enabled);
}

}  // namespace registration
