// Arbitrary requests to a session with every kind of control: each line gets exactly one reply and breaks nothing.

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "ui/conversation.h"
#include "ui/samples.h"
#include "ui/screen.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

/// A session that takes one line after the other, each when the loop waits.
void converse(std::deque<std::string> lines) {
    ui::EventLoop loop;
    ui::Desktop desktop(loop, "Fuzz");
    std::uint64_t replies = 0;
    ui::Conversation conversation(desktop, [&](const std::string& line) {
        const auto reply = nlohmann::json::parse(line);
        if (reply["reply"].is_null()) return;
        ++replies;
        require(reply["reply"] == replies);
    });
    desktop.provide("frmSamples", [&] { return ui::makeSamples(desktop); });
    loop.setBeforeWait([&] {
        conversation.flush();
        require(replies == conversation.received());
        if (lines.empty()) throw ui::SessionEnded{};
        loop.post([&, line = std::move(lines.front())] { conversation.receive(line); });
        lines.pop_front();
    });
    desktop.show("frmSamples");
    try {
        loop.run();
    } catch (const ui::SessionEnded& end) {
        conversation.ended(end.reason);
    }
    require(replies == conversation.received());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
    std::deque<std::string> lines;
    for (std::string line; std::getline(input, line);) lines.push_back(line);
    converse(std::move(lines));
    return 0;
}
