#pragma once

#include <functional>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace ui {

class Desktop;

/// A screen: a class named as the screen whose members are its controls under their own names. It exists once a
/// session, is made when first opened and lives until it is unloaded.
class Screen {
public:
    Screen(Desktop& desktop, std::string name, std::string caption);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen();

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    [[nodiscard]] Desktop& desktop() const noexcept { return desktop_; }
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] bool visible() const noexcept { return visible_; }
    [[nodiscard]] bool modal() const noexcept { return modal_; }

    /// The control of this name in any letter case, or nothing.
    [[nodiscard]] Control* find(std::string_view name) const;
    /// In the order of their declaration.
    [[nodiscard]] const std::vector<Control*>& controls() const noexcept { return controls_; }

    /// Runs once, before the screen is shown for the first time.
    virtual void load() {}
    /// Runs each time the screen comes to be shown: when it has loaded, and when it is opened again. It may have become
    /// stale meanwhile.
    virtual void showing() {}
    /// Asked before the screen closes, whoever closes it; false cancels the closing.
    virtual bool queryUnload() { return true; }
    /// Runs when the screen has closed, right before it goes.
    virtual void unload() {}

    /// Nothing is wrong on it any more (`Control::problem`).
    void clearProblems();

    /// The whole wire form: caption, visible, modal, controls by name.
    [[nodiscard]] nlohmann::json state() const;

protected:
    /// Closes this screen once the running operation has ended, without asking.
    void close();
    /// Hides the screen and keeps it with its content.
    void hide();

private:
    friend class Control;
    friend class Desktop;
    void attach(Control& control);
    void detach(Control& control) noexcept;

    Desktop& desktop_;
    std::string name_;
    std::string caption_;
    std::vector<Control*> controls_;
    std::map<std::string, Control*> byName_;  ///< by the name in lower case
    bool visible_ = false;
    bool modal_ = false;
};

}  // namespace ui
