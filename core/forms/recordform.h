#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "core/forms/fields.h"
#include "core/forms/form.h"

namespace core {

/// A screen that keeps records: it shows a list of them, adds and corrects. It owns the mode, the commands with what
/// they show and enable, and the frame of a save and of a delete. What is read, checked, said and written is the
/// screen's, in its own order: each step below is one of its members.
class RecordForm : public Form {
public:
    ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
    ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
    ui::Button cmdDel{*this, "cmdDel", "&Delete"};
    ui::Button cmdRefresh{*this, "cmdRefresh", "&Refresh"};
    ui::Button OKButton{*this, "OKButton", "&Save"};
    ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};
    ui::Button CancelButton{*this, "CancelButton", "Close"};
    ui::DataGrid grdData{*this, "grdData"};  ///< the list; a double click corrects the row

    void load() override;

protected:
    enum class Mode { browsing, adding, editing };

    RecordForm(Workplace& place, std::string name, std::string caption);

    // -- what the screen says of itself, in its constructor --
    enum class Enabled { whileEntering, always };
    /// The fields of the record, and when a user may fill them.
    void keep(Fields fields, Enabled enabled = Enabled::whileEntering);
    /// Further controls that are enabled only then.
    void enableWhileEntering(std::initializer_list<ui::Control*> controls);
    /// Commands that the screen does not have: they never show.
    void without(std::initializer_list<ui::Button*> commands);
    /// Commands that show in every mode, and not only while browsing.
    void alwaysShow(std::initializer_list<ui::Button*> commands);

    [[nodiscard]] Mode mode() const noexcept { return mode_; }
    [[nodiscard]] bool browsing() const noexcept { return mode_ == Mode::browsing; }
    [[nodiscard]] bool adding() const noexcept { return mode_ == Mode::adding; }
    [[nodiscard]] bool editing() const noexcept { return mode_ == Mode::editing; }
    [[nodiscard]] const Fields& fields() const noexcept { return fields_; }
    void enter(Mode mode);
    /// Back to the list, with an empty form and the cursor at its resting place.
    void browse();

    // -- the steps, in the order in which they come --
    /// What the screen lets choose from; runs when it opens, under the trap.
    virtual void fillLists() {}
    /// Reads the list of records anew. Throws db::Error.
    virtual void showList() = 0;
    /// Runs when the mode has changed, behind what the frame shows and enables.
    virtual void entered(Mode /*mode*/) {}
    /// Add: what stands in the empty form, and where the cursor goes.
    virtual void startAdding() {}
    /// Edit: why not; by itself because of another entry under way, or for want of a row.
    [[nodiscard]] virtual std::optional<Refusal> mayEdit();
    /// Edit: shows the list's current row, and where the cursor goes.
    virtual void startEditing() { fields_.fill(grdData); }
    /// Save: the checks in their order.
    [[nodiscard]] virtual std::vector<Check> checks() = 0;
    /// Save: the question behind the checks.
    [[nodiscard]] virtual bool maySave() { return confirmedSave(); }
    /// Save: writes the record, in a transaction of its own and with `gServerNow` read for it. What it returns is why
    /// nothing is to be written after all: the transaction goes back before that is said. Throws db::Error.
    [[nodiscard]] virtual std::optional<Refusal> write() = 0;
    /// Save: the record is stored. The message and the audit row, in the screen's order.
    virtual void committed() = 0;
    /// Save: back to the list. The form is empty before the list is read: an error there cannot have the record saved
    /// twice.
    virtual void afterSave();
    /// Save: the list was read again. Which of its rows is the current one.
    virtual void finished() {}
    /// Save: nothing was stored. Takes back what `write` put into the form.
    virtual void undone() {}
    /// Save: it was an error that undid it.
    virtual void failed() {}
    /// Delete: why not. Clinical records are not deleted unless the screen says so.
    [[nodiscard]] virtual std::optional<Refusal> mayErase() { return Refusal{" Record cannot be deleted "}; }
    [[nodiscard]] virtual std::string eraseQuestion() const { return "Are you sure to Delete Record"; }
    [[nodiscard]] virtual std::string eraseTitle() const { return "Delete"; }
    /// Delete: takes the list's current row away, in a transaction; what it returns is as with `write`.
    [[nodiscard]] virtual std::optional<Refusal> erase() { return std::nullopt; }
    /// Delete: the row has gone, and is still the list's current one. The message and the audit row, in the screen's
    /// order; then the list.
    virtual void erased();
    /// Empties the form.
    virtual void clear() { fields_.clear(); }
    /// Cancel, behind the empty form.
    virtual void cancelled() {}
    /// Refresh: the lists and the list of records anew, and an empty form.
    virtual void refresh();
    /// Where the cursor stands while browsing.
    [[nodiscard]] virtual ui::Control& restingPlace() { return cmdAdd; }

    // -- the commands --
    void cmdAdd_Click();
    void cmdEdit_Click();
    /// Begins the correction of the list's current row, whatever the mode.
    void correct() { start(Mode::editing, &RecordForm::startEditing); }
    void cmdDel_Click();
    void OKButton_Click();
    void cmdCancel_Click();

    /// Why a command on the list's current row does nothing when there is none.
    [[nodiscard]] std::optional<Refusal> withoutRow() const;
    [[nodiscard]] ui::Control* controlOf(std::string_view column) override { return fields_.keeping(column); }

private:
    void start(Mode mode, void (RecordForm::*step)());
    [[nodiscard]] std::optional<Refusal> inTransaction(std::optional<Refusal> (RecordForm::*step)());

    Fields fields_;
    std::vector<ui::Control*> inputs_;
    std::vector<ui::Button*> browsingOnly_{&cmdAdd, &cmdEdit, &cmdDel, &cmdRefresh};
    std::vector<ui::Button*> enteringOnly_{&OKButton, &cmdCancel};
    Mode mode_ = Mode::browsing;
};

}  // namespace core
