// Boxes. A question shows, and the loop runs nested until its answer has come. A box that only tells waits for its OK
// by itself: the operation goes on behind it until it asks something or ends the session.

#include <algorithm>

#include "ui/control.h"
#include "ui/desktop.h"
#include "ui/desktop_impl.h"

namespace ui {

namespace {

using Kind = Desktop::Question::Kind;

const char* nameOf(Icon icon) {
    switch (icon) {
        case Icon::information:
            return "information";
        case Icon::warning:
            return "warning";
        case Icon::stop:
            return "stop";
        case Icon::none:
            break;
    }
    return "none";
}

const char* nameOf(Kind kind) {
    switch (kind) {
        case Kind::yesno:
            return "yesno";
        case Kind::input:
            return "input";
        case Kind::file:
            return "file";
        case Kind::message:
            break;
    }
    return "message";
}

nlohmann::json messageEvent(const Desktop::Question& question) {
    return {{"text", question.text}, {"title", question.title}, {"icon", nameOf(question.icon)}};
}

bool isText(const nlohmann::json& answer, const char* key) {
    return answer.is_object() && answer.size() == 1 && answer.contains(key) && answer[key].is_string();
}

/// Whether this is an answer to a question of the kind.
bool answers(Kind kind, const nlohmann::json& answer) {
    switch (kind) {
        case Kind::message:
            return answer == "ok";
        case Kind::yesno:
            return answer == "yes" || answer == "no";
        case Kind::input:
            return answer.is_string() || isText(answer, "text");
        case Kind::file:
            return answer == "cancel" || isText(answer, "file");
    }
    return false;
}

const char* expected(Kind kind) {
    switch (kind) {
        case Kind::yesno:
            return R"("yes" or "no")";
        case Kind::input:
            return R"(a text, or "cancel")";
        case Kind::file:
            return R"({"file":PATH}, or "cancel")";
        case Kind::message:
            break;
    }
    return R"("ok")";
}

nlohmann::json wireForm(const Desktop::Question& question) {
    nlohmann::json form = {{"kind", nameOf(question.kind)}, {"text", question.text}, {"title", question.title}};
    if (question.kind == Kind::message) form["icon"] = nameOf(question.icon);
    if (question.kind == Kind::input) form["default"] = question.preset;
    if (!question.accept.empty()) form["accept"] = question.accept;
    return form;
}

}  // namespace

void Desktop::message(const std::string& text, Icon icon, const std::string& title) {
    const Question question{Question::Kind::message, text, title.empty() ? programTitle_ : title, {}, icon};
    if (beforeBox_) beforeBox_(question);
    emitBox({{"message", messageEvent(question)}});
    const auto same = [&](const Question& one) { return wireForm(one) == wireForm(question); };
    // A timer that fails every minute has one box, however long nobody reads it.
    const bool unread = std::any_of(impl_->told.begin(), impl_->told.end(), same);
    if (!acknowledges_ && !unread) impl_->told.push_back(question);
}

/// What changed before a box stands before it. A page hears of the box itself as the open question.
void Desktop::emitBox(nlohmann::json event) {
    if (servesPage_) return flushChanges();
    emit(std::move(event));
}

void Desktop::dropTold() {
    impl_->told.clear();
}

void Desktop::awaitTold() {
    loop_.runUntil([this] { return impl_->told.empty(); });
}

bool Desktop::askYesNo(const std::string& text, const std::string& title) {
    return ask({Question::Kind::yesno, text, title.empty() ? programTitle_ : title, {}}) == "yes";
}

std::optional<std::string> Desktop::askInput(const std::string& text, const std::string& title,
                                             const std::string& preset) {
    const nlohmann::json answer = ask({Question::Kind::input, text, title.empty() ? programTitle_ : title, preset});
    if (answer == "cancel") return std::nullopt;
    return answer.is_object() ? answer["text"].get<std::string>() : answer.get<std::string>();
}

std::optional<std::string> Desktop::pickFile(const std::string& title, const std::string& accept) {
    const nlohmann::json answer =
        ask({Question::Kind::file, {}, title.empty() ? programTitle_ : title, {}, Icon::none, accept});
    if (answer == "cancel") return std::nullopt;
    return answer["file"].get<std::string>();
}

std::optional<std::filesystem::path> Desktop::chosenFile(const std::string& name) const {
    return findFile_(name);
}

nlohmann::json Desktop::ask(const Question& question) {
    if (beforeBox_) beforeBox_(question);
    const Operation operation(*this);
    awaitTold();
    std::optional<nlohmann::json> answer;
    struct Open {
        Desktop& desktop;
        const Question* outer;
        std::optional<nlohmann::json>* outerAnswer;
        ~Open() {
            desktop.asked_ = outer;
            desktop.impl_->answer = outerAnswer;
        }
    } const open{*this, std::exchange(asked_, &question), std::exchange(impl_->answer, &answer)};
    emitBox({{"ask", wireForm(question)}});
    loop_.runUntil([&answer] { return answer.has_value(); });
    return *answer;
}

/// The question comes before boxes that were told while it was open: nothing covers what the nurse is answering.
const Desktop::Question* Desktop::waiting() const noexcept {
    if (asked_ && !impl_->answer->has_value()) return asked_;
    return impl_->told.empty() ? nullptr : &impl_->told.front();
}

nlohmann::json Desktop::question() const {
    const Question* open = waiting();
    return open ? wireForm(*open) : nlohmann::json();
}

void Desktop::answer(const nlohmann::json& answer) {
    const Question* open = waiting();
    if (!open) throw Refused{"no question is open"};
    if (!answers(open->kind, answer)) throw Refused{std::string("the open question takes ") + expected(open->kind)};
    if (open == asked_)
        *impl_->answer = answer;
    else
        impl_->told.pop_front();
}

}  // namespace ui
