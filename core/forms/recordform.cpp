#include "core/forms/recordform.h"

#include <algorithm>

#include "core/clock/clock.h"
#include "core/session/session.h"

namespace core {

using ui::Event;

RecordForm::RecordForm(Workplace& place, std::string name, std::string caption)
    : Form(place, std::move(name), std::move(caption)) {
    bind(cmdAdd, Event::click, &RecordForm::cmdAdd_Click);
    bind(cmdEdit, Event::click, &RecordForm::cmdEdit_Click);
    bind(grdData, Event::dblClick, &RecordForm::cmdEdit_Click);
    bind(cmdDel, Event::click, &RecordForm::cmdDel_Click);
    bind(cmdRefresh, Event::click, &RecordForm::refresh);
    bind(OKButton, Event::click, &RecordForm::OKButton_Click);
    bind(cmdCancel, Event::click, &RecordForm::cmdCancel_Click);
    bind(CancelButton, Event::click, [this] { close(); });
}

void RecordForm::keep(Fields fields, Enabled enabled) {
    fields_ = std::move(fields);
    if (enabled == Enabled::always) return;
    for (const auto& field : fields_.all())
        if (auto* const* label = std::get_if<ui::Label*>(&field.control); !label)
            std::visit([this](auto* control) { inputs_.push_back(control); }, field.control);
}

void RecordForm::enableWhileEntering(std::initializer_list<ui::Control*> controls) {
    inputs_.insert(inputs_.end(), controls);
}

void RecordForm::without(std::initializer_list<ui::Button*> commands) {
    alwaysShow(commands);
    for (auto* command : commands) command->setVisible(false);
}

void RecordForm::alwaysShow(std::initializer_list<ui::Button*> commands) {
    for (auto* command : commands) {
        std::erase(browsingOnly_, command);
        std::erase(enteringOnly_, command);
    }
}

void RecordForm::load() {
    enter(Mode::browsing);
    trapped([this] {
        fillLists();
        showList();
    });
}

void RecordForm::enter(Mode mode) {
    mode_ = mode;
    clearProblems();
    for (auto* command : browsingOnly_) command->setVisible(browsing());
    for (auto* command : enteringOnly_) command->setVisible(!browsing());
    for (auto* input : inputs_) input->setEnabled(!browsing());
    entered(mode);
}

void RecordForm::browse() {
    enter(Mode::browsing);
    clear();
    desktop().focus(restingPlace());
}

/// An entry that could not be begun is left again; only what was to be corrected goes from the form.
void RecordForm::start(Mode mode, void (RecordForm::*step)()) {
    enter(mode);
    if (trapped([this, step] { (this->*step)(); })) return;
    enter(Mode::browsing);
    if (mode == Mode::editing) clear();
}

void RecordForm::cmdAdd_Click() {
    start(Mode::adding, &RecordForm::startAdding);
}

std::optional<Refusal> RecordForm::withoutRow() const {
    if (grdData.row() >= 0) return std::nullopt;
    return Refusal{"Please select a record from the list"};
}

std::optional<Refusal> RecordForm::mayEdit() {
    if (!browsing()) return Refusal{"Save or cancel the current entry first"};
    return withoutRow();
}

void RecordForm::cmdEdit_Click() {
    if (const auto refusal = mayEdit()) return refuse(*refusal);
    correct();
}

void RecordForm::OKButton_Click() {
    if (!passes(checks()) || !maySave()) return;
    std::optional<Refusal> refusal;
    bool kept = false;
    const bool wentThrough = saves(OKButton, [&] {
        session().gServerNow = GetServerNow(place());
        refusal = inTransaction(&RecordForm::write);
        kept = !refusal;
        if (kept) committed();
    });
    if (kept) return afterSave();
    undone();
    if (refusal) refuse(*refusal);
    if (!wentThrough) failed();
}

/// A refusal undoes what the step had written.
std::optional<Refusal> RecordForm::inTransaction(std::optional<Refusal> (RecordForm::*step)()) {
    db::Transaction transaction(hospital());
    auto refusal = (this->*step)();
    if (refusal)
        transaction.rollback();
    else
        transaction.commit();
    return refusal;
}

void RecordForm::afterSave() {
    browse();
    showList();
    finished();
}

void RecordForm::cmdCancel_Click() {
    browse();
    cancelled();
}

void RecordForm::cmdDel_Click() {
    auto refusal = mayErase();
    if (!refusal) refusal = withoutRow();
    if (refusal) return refuse(*refusal);
    if (!confirmed(eraseQuestion(), eraseTitle())) return;
    refusal = inTransaction(&RecordForm::erase);
    if (refusal) return refuse(*refusal);
    erased();
}

void RecordForm::erased() {
    message(" Record successfully deleted ");
    showList();
}

void RecordForm::refresh() {
    fillLists();
    showList();
    clear();
}

}  // namespace core
