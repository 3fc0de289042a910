#include "registration/shared/searchbox.h"

#include "core/texts/texts.h"

namespace registration {

SearchBox::SearchBox(core::Workplace& place, ui::Screen& screen, SearchKind numberSearch,
                     std::function<void(SearchKind)> search)
    : Part(place, screen),
      cmdSys(screen, "cmdSys", numberSearch == SearchKind::phoneNo ? "Tel No" : "System No"),
      search_(std::move(search)) {
    bind(cmdOK, ui::Event::click, [this] { find(SearchKind::name); });
    bind(cmdCard, ui::Event::click, [this] { find(SearchKind::cardNo); });
    bind(cmdSys, ui::Event::click, [this, numberSearch] { find(numberSearch); });
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
