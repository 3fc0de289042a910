#include "ui/desktop.h"

#include <algorithm>
#include <new>
#include <utility>

#include "db/error.h"
#include "db/letters.h"
#include "ui/captions.h"
#include "ui/controls.h"
#include "ui/desktop_impl.h"

namespace ui {

Desktop::Desktop(EventLoop& loop, std::string programTitle)
    : loop_(loop), programTitle_(std::move(programTitle)), impl_(std::make_unique<Impl>()) {}

Desktop::~Desktop() {
    sink_ = nullptr;
    main_ = activeChild_ = nullptr;
    // The last loaded goes first: it may refer to those before it.
    while (!impl_->entries.empty()) impl_->entries.pop_back();
    impl_->graveyard.clear();
}

void Desktop::provide(std::string name, Factory factory) {
    std::string key = db::lowered(name);
    impl_->provided.insert_or_assign(std::move(key), Impl::Provided{std::move(name), std::move(factory)});
}

bool Desktop::provides(std::string_view name) const {
    return impl_->provided.contains(db::lowered(name));
}

std::vector<std::string> Desktop::provided() const {
    std::vector<std::string> names;
    for (const auto& [key, provided] : impl_->provided) names.push_back(provided.name);
    std::sort(names.begin(), names.end());
    return names;
}

Screen* Desktop::loaded(std::string_view name) const {
    for (const auto& entry : impl_->entries)
        if (db::sameName(entry.screen->name(), name)) return entry.screen.get();
    return nullptr;
}

std::vector<Screen*> Desktop::screens() const {
    std::vector<Screen*> screens;
    for (const auto& entry : impl_->entries) screens.push_back(entry.screen.get());
    return screens;
}

void Desktop::show(std::string_view name) {
    const Operation operation(*this);
    const Screen* existing = loaded(name);
    if (existing && existing == main_ && existing->visible()) return;
    if (Screen* screen = ready(name)) open(*screen, false);
}

void Desktop::showModal(std::string_view name) {
    const Operation operation(*this);
    Screen* screen = ready(name);
    awaitTold();
    if (!screen || !impl_->entry(*screen)) return;
    Modal modal{screen};
    struct Listed {
        std::vector<Modal*>& modals;
        Modal* modal;
        ~Listed() { std::erase(modals, modal); }
    } const listed{impl_->modals, &modal};
    impl_->modals.push_back(&modal);
    open(*screen, true);
    loop_.runUntil([&modal] { return modal.left; });
}

Screen* Desktop::ready(std::string_view name) {
    if (Screen* screen = loaded(name)) {
        hide(*screen);
        return screen;
    }
    if (!provides(name)) {
        message("This page is not there yet: " + wordsOfName(name), Icon::information);
        return nullptr;
    }
    return make(name);
}

Screen* Desktop::make(std::string_view name) {
    std::unique_ptr<Screen> made = impl_->provided.at(db::lowered(name)).factory();
    Screen* screen = made.get();
    impl_->entries.push_back({std::move(made)});
    try {
        screen->load();
    } catch (...) {
        drop(*screen);
        throw;
    }
    return impl_->entry(*screen) ? screen : nullptr;  // it may have closed itself
}

void Desktop::open(Screen& screen, bool modal) {
    screen.showing();
    screen.visible_ = true;
    screen.modal_ = modal;
    nlohmann::json event = {{"opened", screen.name()}, {"modal", modal}};
    flushChanges();
    impl_->entry(screen)->told = true;
    if (servesPage_) {
        event["state"] = screen.state();
        rowsTold(screen);
    }
    emit(std::move(event));
    if (isChild(screen)) activate(screen);
    if (const auto focus = std::exchange(impl_->entry(screen)->focus, {}); !focus.empty()) emit({{"focus", focus}});
}

void Desktop::hide(std::string_view name) {
    if (Screen* screen = loaded(name)) hide(*screen);
}

void Desktop::hide(Screen& screen) {
    if (screen.visible_) leave(screen, {{"hidden", screen.name()}});
}

bool Desktop::unload(std::string_view name) {
    const Operation operation(*this);
    Screen* screen = loaded(name);
    if (!screen) return true;
    if (!screen->queryUnload()) return false;
    if (impl_->entry(*screen)) close(*screen);
    return true;
}

void Desktop::close(Screen& screen) {
    const Operation operation(*this);
    const Impl::Entry* entry = impl_->entry(screen);
    if (!entry) return;
    const bool told = entry->told;
    flushChanges();
    drop(screen);
    leave(screen, told ? nlohmann::json{{"closed", screen.name()}} : nlohmann::json());
    screen.unload();
    if (&screen == main_) endSession();
}

/// Takes the screen off the loaded ones; it goes when no operation runs any more.
void Desktop::drop(Screen& screen) {
    const auto entry = std::find_if(impl_->entries.begin(), impl_->entries.end(),
                                    [&](const Impl::Entry& one) { return one.screen.get() == &screen; });
    if (entry == impl_->entries.end()) return;
    impl_->graveyard.push_back(std::move(entry->screen));
    impl_->entries.erase(entry);
    impl_->renamed.erase(&screen);
    for (const Control* control : screen.controls()) forget(*control);
}

/// The screen is open no more: its modal loop ends, and another child becomes the active one.
void Desktop::leave(Screen& screen, nlohmann::json event) {
    screen.visible_ = screen.modal_ = false;
    for (Modal* modal : impl_->modals)
        if (modal->screen == &screen) modal->left = true;
    if (!event.is_null()) emit(std::move(event));
    if (std::erase(impl_->order, &screen) == 0) return;
    activeChild_ = impl_->order.empty() ? nullptr : impl_->order.back();
    childrenChanged();
}

void Desktop::activate(Screen& screen) {
    if (!screen.visible() || !isChild(screen)) return;
    std::erase(impl_->order, &screen);
    impl_->order.push_back(&screen);
    activeChild_ = &screen;
    childrenChanged();
}

bool Desktop::isChild(const Screen& screen) const {
    return &screen != main_ && !screen.modal();
}

void Desktop::childrenChanged() {
    if (!main_) return;
    for (Control* control : main_->controls())
        if (auto* area = dynamic_cast<ChildArea*>(control)) area->childrenChanged();
}

void Desktop::attempt(const std::function<void()>& work) {
    const Operation operation(*this, Operation::After::buries);
    std::string description;
    try {
        work();
        return;
    } catch (const std::exception& error) {
        description = describe(error);
    }
    if (onFailure_) onFailure_();
    message(description, Icon::stop);
}

std::string Desktop::describe(const std::exception& error) const {
    if (onError_) onError_(error);
    if (dynamic_cast<const db::Error*>(&error)) return error.what();
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return "There is not enough memory for this at the moment. Try again in a while.";
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error))
        return "A file cannot be read or written: " + file->code().message() + ".";
    return "Something went wrong on the host. See whether it was done before you try again, and tell whoever runs the "
           "host.";
}

void Desktop::endSession(const std::string& reason) {
    awaitTold();
    throw SessionEnded{reason};
}

}  // namespace ui
