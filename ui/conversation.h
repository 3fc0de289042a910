#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/desktop.h"

namespace ui {

/// Longest request that is read, in bytes.
inline constexpr std::size_t longestRequest = std::size_t{1024} * 1024;

// Readings of a request's parts. They throw Refused.

/// The text under the key.
std::string textOf(const nlohmann::json& request, const char* key);
/// What `set` gives a control.
const nlohmann::json& contentOf(const nlohmann::json& request);

/// One client's talk with a session: JSON requests in, JSON replies out, one line each. It knows the requests that
/// pages and scripts share (`fire`, `set`, `answer`, `get`, `list`); others are added by whoever serves them. All
/// members run on the session's thread.
///
/// A reply goes out when the loop has nothing more to run: an operation that opened a box or a modal screen is
/// answered with what happened so far, and the rest comes with the reply to the request that ended the wait.
class Conversation {
public:
    using Write = std::function<void(const std::string& line)>;
    /// Serves a request; what it adds to `reply` goes out with it. Throws Refused.
    using Serve = std::function<void(const nlohmann::json& request, nlohmann::json& reply)>;

    Conversation(Desktop& desktop, Write write);
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Adds a request by its key ("query"), or replaces one. `with` names the further keys that it may have ("on").
    void add(std::string key, Serve serve, std::vector<std::string> with = {});
    /// Takes one request. Bad JSON, bytes that are no UTF-8, an over-long line, an unknown request: one reply with an
    /// `error`, and nothing ran.
    void receive(std::string_view line);
    /// Hears of each line that no client of ours sends: bad JSON, a request that this conversation does not serve. The
    /// reason holds nothing of the line but names of requests.
    void setOnMalformed(std::function<void(const std::string& why)> onMalformed) {
        onMalformed_ = std::move(onMalformed);
    }
    /// Adds an event of the server's own to those of the desktop.
    void tell(nlohmann::json event);
    /// Adds a key to the reply that is due; nothing where none is.
    void note(const char* key, nlohmann::json content);
    /// Sends the reply that is due, and events that belong to no request as a line without "reply". To be called
    /// whenever the loop is about to wait.
    void flush();
    /// Sends the events so far although the operation goes on, as a line without "reply" that names under "during" the
    /// request whose reply is still due.
    void push();
    /// The last line of a session: `{"ended":reason}` among the events of the reply that is due.
    void ended(const std::string& reason);
    /// Requests received so far: a page that lost its connection sends the later ones again.
    [[nodiscard]] std::uint64_t received() const noexcept { return received_; }

private:
    struct Pending;
    struct Request {
        Serve serve;
        std::vector<std::string> with;
    };
    void addShared();
    void serve(const nlohmann::json& request, const std::string& key);
    void browse(const nlohmann::json& request);
    [[nodiscard]] std::string keyOf(const nlohmann::json& request) const;
    void send(std::optional<std::uint64_t> number, const nlohmann::json& more);

    Desktop& desktop_;
    Write write_;
    std::function<void(const std::string&)> onMalformed_ = [](const std::string&) {};
    std::map<std::string, Request, std::less<>> requests_;
    std::unique_ptr<nlohmann::json> events_;
    std::shared_ptr<Pending> pending_;  ///< the request whose reply is due
    std::uint64_t received_ = 0;
};

}  // namespace ui
