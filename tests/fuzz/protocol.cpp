// Arbitrary requests to a session with every kind of control: each line gets exactly one reply and breaks nothing.

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <nlohmann/json.hpp>
#include <string>

#include "ui/conversation.h"
#include "ui/samples.h"
#include "ui/screen.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

/// A session that takes one line after the other, each when the loop waits.
class Session {
public:
    Session() : conversation_(desktop_, [this](const std::string& line) { take(line); }) {
        desktop_.provide("frmSamples", [this] { return ui::makeSamples(desktop_); });
        loop_.setBeforeWait([this] { next(); });
        desktop_.show("frmSamples");
    }

    void run(std::deque<std::string> lines) {
        lines_ = std::move(lines);
        try {
            loop_.run();
        } catch (const ui::SessionEnded& end) {
            conversation_.ended(end.reason);
        }
        require(replies_ == conversation_.received());
    }

private:
    void next() {
        conversation_.flush();
        require(replies_ == conversation_.received());
        if (lines_.empty()) throw ui::SessionEnded{};
        loop_.post([this, line = std::move(lines_.front())] { conversation_.receive(line); });
        lines_.pop_front();
    }

    void take(const std::string& line) {
        const auto reply = nlohmann::json::parse(line);
        if (reply["reply"].is_null()) return;
        ++replies_;
        require(reply["reply"] == replies_);
    }

    ui::EventLoop loop_;
    ui::Desktop desktop_{loop_, "Fuzz"};
    std::uint64_t replies_ = 0;
    std::deque<std::string> lines_;
    ui::Conversation conversation_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::deque<std::string> lines(1);
    for (std::size_t i = 0; i < size; ++i) {
        const char c = static_cast<char>(data[i]);
        if (c == '\n')
            lines.emplace_back();
        else
            lines.back() += c;
    }
    Session().run(std::move(lines));
    return 0;
}
