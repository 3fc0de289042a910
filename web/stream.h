#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "web/network.h"

namespace web {

/// The bytes of a browser's connection, over TLS or plain behind one type: the readers and writers of the network
/// library, which cost a minute to compile for each type of stream, are compiled once. It takes handlers and no other
/// completion tokens.
class Stream {
public:
    using executor_type = net::any_io_executor;
    using Done = std::function<void(error_code, std::size_t)>;
    using Ended = std::function<void(error_code)>;

    /// Over TLS where there is a context.
    Stream(tcp::socket socket, net::ssl::context* tls);
    Stream(Stream&&) noexcept;
    Stream& operator=(Stream&&) noexcept;
    ~Stream();

    [[nodiscard]] executor_type get_executor() const;
    [[nodiscard]] bool secure() const noexcept;
    [[nodiscard]] tcp::endpoint peer(error_code& error) const;

    /// What is under way later than this ends with beast::error::timeout, and the connection with it.
    void expireAfter(std::chrono::steady_clock::duration time);
    void expireNever();

    /// The beginning of TLS; only where it is secure.
    void handshake(Ended ended);
    /// The end of TLS; on a plain stream nothing more is sent, and `ended` is not called.
    void shutDown(Ended ended);
    /// Ends the connection as a WebSocket does, when what was sent has arrived.
    void tearDown(beast::role_type role, Ended ended);
    void close();

    template <class Buffers, class Handler>
    void async_read_some(const Buffers& buffers, Handler&& handler) {
        net::mutable_buffer into;
        for (auto at = net::buffer_sequence_begin(buffers); at != net::buffer_sequence_end(buffers); ++at)
            if (into.size() == 0) into = *at;
        read(into, erased(std::forward<Handler>(handler)));
    }
    template <class Buffers, class Handler>
    void async_write_some(const Buffers& buffers, Handler&& handler) {
        constexpr std::size_t mostAtOnce = 16;
        std::vector<net::const_buffer> some;
        for (auto at = net::buffer_sequence_begin(buffers); at != net::buffer_sequence_end(buffers); ++at)
            if (some.size() < mostAtOnce) some.emplace_back(*at);
        write(std::move(some), erased(std::forward<Handler>(handler)));
    }

private:
    struct Wire;
    template <class Socket>
    struct WireOver;

    /// A handler can be moved only, and a std::function wants to copy it.
    template <class Handler>
    static Done erased(Handler&& handler) {
        auto kept = std::make_shared<std::decay_t<Handler>>(std::forward<Handler>(handler));
        return [kept](error_code error, std::size_t bytes) { (*kept)(error, bytes); };
    }
    void read(net::mutable_buffer into, Done done);
    void write(std::vector<net::const_buffer> some, Done done);

    std::unique_ptr<Wire> wire_;
};

// How the library's WebSocket ends a stream of ours; it looks for these names.

template <class Handler>
void async_teardown(beast::role_type role, Stream& stream, Handler&& handler) {
    auto kept = std::make_shared<std::decay_t<Handler>>(std::forward<Handler>(handler));
    stream.tearDown(role, [kept](error_code error) { (*kept)(error); });
}

inline void beast_close_socket(Stream& stream) {
    stream.close();
}

}  // namespace web
