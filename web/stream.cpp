#include "web/stream.h"

#include <boost/beast/websocket/ssl.hpp>

namespace web {

namespace {

using PlainSocket = beast::tcp_stream;
using TlsSocket = beast::ssl_stream<beast::tcp_stream>;

}  // namespace

struct Stream::Wire {
    Wire() = default;
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;
    virtual ~Wire() = default;
    [[nodiscard]] virtual bool secure() const noexcept = 0;
    virtual beast::tcp_stream& lowest() = 0;
    virtual void handshake(Ended ended) = 0;
    virtual void shutDown(Ended ended) = 0;
    virtual void tearDown(beast::role_type role, Ended ended) = 0;
    virtual void read(net::mutable_buffer into, Done done) = 0;
    virtual void write(std::vector<net::const_buffer> some, Done done) = 0;
};

template <class Socket>
struct Stream::WireOver final : Wire {
    static constexpr bool isTls = std::is_same_v<Socket, TlsSocket>;

    template <class... Args>
    explicit WireOver(Args&&... args) : socket(std::forward<Args>(args)...) {}

    [[nodiscard]] bool secure() const noexcept override { return isTls; }
    beast::tcp_stream& lowest() override { return beast::get_lowest_layer(socket); }

    void handshake(Ended ended) override {
        if constexpr (isTls) socket.async_handshake(net::ssl::stream_base::server, std::move(ended));
    }

    void shutDown(Ended ended) override {
        if constexpr (isTls) {
            socket.async_shutdown(std::move(ended));
        } else {
            error_code ignored;
            socket.socket().shutdown(tcp::socket::shutdown_send, ignored);
        }
    }

    void tearDown(beast::role_type role, Ended ended) override {
        using beast::websocket::async_teardown;
        if constexpr (isTls)
            beast::async_teardown(role, socket, std::move(ended));
        else
            async_teardown(role, socket.socket(), std::move(ended));
    }

    void read(net::mutable_buffer into, Done done) override { socket.async_read_some(into, std::move(done)); }
    void write(std::vector<net::const_buffer> some, Done done) override {
        socket.async_write_some(some, std::move(done));
    }

    Socket socket;
};

Stream::Stream(tcp::socket socket, net::ssl::context* tls) {
    if (tls != nullptr)
        wire_ = std::make_unique<WireOver<TlsSocket>>(std::move(socket), *tls);
    else
        wire_ = std::make_unique<WireOver<PlainSocket>>(std::move(socket));
}

Stream::Stream(Stream&&) noexcept = default;
Stream& Stream::operator=(Stream&&) noexcept = default;
Stream::~Stream() = default;

Stream::executor_type Stream::get_executor() const {
    return wire_->lowest().get_executor();
}

bool Stream::secure() const noexcept {
    return wire_->secure();
}

tcp::endpoint Stream::peer(error_code& error) const {
    return wire_->lowest().socket().remote_endpoint(error);
}

void Stream::expireAfter(std::chrono::steady_clock::duration time) {
    wire_->lowest().expires_after(time);
}

void Stream::expireNever() {
    wire_->lowest().expires_never();
}

void Stream::handshake(Ended ended) {
    wire_->handshake(std::move(ended));
}

void Stream::shutDown(Ended ended) {
    wire_->shutDown(std::move(ended));
}

void Stream::tearDown(beast::role_type role, Ended ended) {
    wire_->tearDown(role, std::move(ended));
}

void Stream::close() {
    wire_->lowest().close();
}

void Stream::read(net::mutable_buffer into, Done done) {
    wire_->read(into, std::move(done));
}

void Stream::write(std::vector<net::const_buffer> some, Done done) {
    wire_->write(std::move(some), std::move(done));
}

}  // namespace web
