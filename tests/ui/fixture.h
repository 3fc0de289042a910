#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "db/error.h"
#include "db/rowbuffer.h"
#include "ui/controls.h"
#include "ui/conversation.h"
#include "ui/desktop.h"
#include "ui/screen.h"

namespace test {

using nlohmann::json;

/// A modal screen that hides or closes itself.
class frmModal : public ui::Screen {
public:
    explicit frmModal(ui::Desktop& desktop) : Screen(desktop, "frmModal", "Modal") {}
    ui::Button cmdHide{*this, "cmdHide", "Hide", [this] { hide(); }};
    ui::Button cmdClose{*this, "cmdClose", "Close", [this] {
                            close();
                            lblAfter.setCaption("its code still runs");
                        }};
    ui::Label lblAfter{*this, "lblAfter"};
};

/// What the tests work: an operation for each thing that a screen does with its desktop.
class frmWard : public ui::Screen {
public:
    explicit frmWard(ui::Desktop& desktop) : Screen(desktop, "frmWard", "Ward") {
        txtTab.onPage(tabs, 1);
        cmdInside.heldBy(panel);
        txtName.setMaxLength(5);
        txtEcho.on(ui::Event::change, [this] {
            if (txtEcho.text() == "clear me") txtEcho.clear();
        });
        cboWard.setItems({{"Male ward", "M"}, {"Female ward", "F"}});
        cboWard.on(ui::Event::click, [this] { lblInfo.setCaption("picked " + cboWard.key()); });
        grdData.on(ui::Event::rowChange, [this] { lblInfo.setCaption(grdData.text("name")); });
    }
    void load() override { lblInfo.setCaption("loaded"); }
    bool queryUnload() override { return mayClose.checked() || desktop().askYesNo("Really?", "Close"); }

    ui::TextBox txtName{*this, "txtName", ui::upperCase};
    ui::TextBox txtTemp{*this, "txtTemp", ui::decimalOnly};
    ui::TextBox txtEcho{*this, "txtEcho"};
    ui::TabStrip tabs{*this, "tabs", {"One", "Two"}};
    ui::TextBox txtTab{*this, "txtTab"};
    ui::ComboBox cboWard{*this, "cboWard", ui::ComboBox::Style::listOnly};
    ui::CheckBox mayClose{*this, "mayClose", "May close"};
    ui::OptionButton optA{*this, "optA", "A", "g"};
    ui::OptionButton optB{*this, "optB", "B", "g"};
    ui::DatePicker dtVisit{*this, "dtVisit"};
    ui::Label lblInfo{*this, "lblInfo"};
    ui::DataGrid grdData{*this, "grdData"};
    ui::Picture panel{*this, "panel"};
    ui::Button cmdInside{*this, "cmdInside", "Inside", [this] { lblInfo.setCaption("inside"); }};
    ui::Button cmdIdle{*this, "cmdIdle", "Nothing"};
    ui::Button cmdAsk{*this, "cmdAsk", "Ask", [this] { ask(); }};
    ui::Button cmdTell{*this, "cmdTell", "Tell", [this] {
                           lblInfo.setCaption("before");
                           this->desktop().message("Said", ui::Icon::warning, "Title");
                           this->desktop().focus(txtTab);
                       }};
    ui::Button cmdTellAndAsk{*this, "cmdTellAndAsk", "Tell and ask", [this] {
                                 this->desktop().message("One");
                                 this->desktop().message("Two");
                                 ask();
                             }};
    ui::Button cmdTellAndEnd{*this, "cmdTellAndEnd", "Tell and end", [this] {
                                 this->desktop().message("Last");
                                 this->desktop().endSession("good bye");
                             }};
    ui::Button cmdWork{*this, "cmdWork", "Work", [this] {
                           lblInfo.setCaption("working");
                           this->desktop().showProgress();
                           lblInfo.setCaption("done");
                       }};
    ui::Button cmdModal{*this, "cmdModal", "Modal", [this] {
                            this->desktop().showModal("frmModal");
                            lblInfo.setCaption("back");
                        }};
    ui::Button cmdMissing{*this, "cmdMissing", "Missing", [this] { this->desktop().show("frmNowhere"); }};
    ui::Button cmdFail{*this, "cmdFail", "Fail", [] { throw db::Error(db::Category::other, "It broke"); }};
    ui::Button cmdEnd{*this, "cmdEnd", "End", [this] { this->desktop().endSession("good bye"); }};
    ui::Timer tmrWatch{*this, "tmrWatch", std::chrono::milliseconds(5), true, [this] { ++ticks; }};
    int ticks = 0;

private:
    void ask() {
        const bool yes = desktop().askYesNo("Sure?", "Check");
        const auto text = yes ? desktop().askInput("Why?", "Reason", "none") : std::nullopt;
        lblInfo.setCaption(text ? "because " + *text : "no reason");
    }
};

/// A client's talk with a desktop: one request after the other, each when the loop waits.
class Talk : public testing::Test {
protected:
    Talk() : conversation(desktop, [this](const std::string& line) { sent.push_back(json::parse(line)); }) {
        desktop.provide("frmWard", [this] { return std::make_unique<frmWard>(desktop); });
        desktop.provide("frmModal", [this] { return std::make_unique<frmModal>(desktop); });
        loop.setBeforeWait([this] { next(); });
        desktop.show("frmWard");
        desktop.flushChanges();
        conversation.flush();
        sent.clear();
    }

    /// Sends the lines and gives the replies to them; the reason is kept when they end the session.
    std::vector<json> say(std::deque<std::string> requests) {
        lines = std::move(requests);
        sent.clear();
        try {
            loop.run();
        } catch (const ui::SessionEnded& end) {
            reason = end.reason;
        }
        return std::exchange(sent, {});
    }
    json say(const std::string& request) { return say(std::deque{request}).at(0); }
    frmWard& ward() { return dynamic_cast<frmWard&>(*desktop.loaded("frmWard")); }

    ui::EventLoop loop;
    ui::Desktop desktop{loop, "Program"};
    std::vector<json> sent;  ///< what the conversation has sent since the last request
    std::deque<std::string> lines;
    std::string reason;
    ui::Conversation conversation;

private:
    void next() {
        conversation.flush();
        if (lines.empty()) throw ui::SessionEnded{"the script is over"};
        loop.post([this, line = lines.front()] { conversation.receive(line); });
        lines.pop_front();
    }
};

/// Three rows with the columns name and no.
inline db::Recordset sampleRows() {
    db::RowBuffer rows;
    rows.addColumn("name", db::RowBuffer::Reading::plain);
    rows.addColumn("no", db::RowBuffer::Reading::plain);
    for (const char* name : {"Ada", "Bola", "Chidi"}) {
        rows.addText(name);
        rows.addNull();
    }
    return db::Recordset(std::move(rows));
}

}  // namespace test
