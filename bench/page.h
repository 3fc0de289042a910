#pragma once

#include <boost/asio/connect.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <chrono>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using tcp = asio::ip::tcp;
using Clock = std::chrono::steady_clock;

struct Target {
    std::string port, user, password;
};

/// A page: signed in, its WebSocket open and its snapshot read.
class Page {
public:
    explicit Page(const Target& target) : socket_(io_) {
        const std::string cookie = signIn(target);
        connect(socket_.next_layer(), target);
        const std::string host = "127.0.0.1:" + target.port;
        socket_.set_option(beast::websocket::stream_base::decorator([&](beast::websocket::request_type& request) {
            request.set(http::field::cookie, cookie);
            request.set(http::field::origin, "http://" + host);
        }));
        socket_.handshake(host, "/session");
        do {
            line_.clear();
            socket_.read(line_);
        } while (beast::buffers_to_string(line_.data()).find("\"MdiVorel\"") == std::string::npos);
    }

    /// Sends a request and waits for its reply.
    nlohmann::json request(const nlohmann::json& request) {
        socket_.write(asio::buffer(request.dump()));
        for (;;) {
            line_.clear();
            socket_.read(line_);
            auto reply = nlohmann::json::parse(beast::buffers_to_string(line_.data()));
            if (reply.contains("reply") && reply["reply"].is_number()) return reply;
        }
    }

private:
    void connect(tcp::socket& socket, const Target& target) {
        asio::connect(socket, tcp::resolver(io_).resolve("127.0.0.1", target.port));
        socket.set_option(tcp::no_delay(true));
    }

    std::string signIn(const Target& target) {
        tcp::socket socket(io_);
        connect(socket, target);
        const std::string host = "127.0.0.1:" + target.port;
        http::request<http::string_body> request{http::verb::post, "/sign-in", 11};
        request.set(http::field::host, host);
        request.set(http::field::origin, "http://" + host);
        request.set(http::field::content_type, "application/x-www-form-urlencoded");
        request.body() = "user=" + target.user + "&password=" + target.password;
        request.prepare_payload();
        http::write(socket, request);
        beast::flat_buffer buffer;
        http::response<http::string_body> response;
        http::read(socket, buffer, response);
        const std::string cookie{response[http::field::set_cookie]};
        if (cookie.empty()) throw std::runtime_error("sign-in was refused");
        return cookie.substr(0, cookie.find(';'));
    }

    asio::io_context io_;
    beast::websocket::stream<tcp::socket> socket_;
    beast::flat_buffer line_;
};

/// The value below which a share of them lies; they have to be sorted.
inline double percentile(const std::vector<double>& sorted, double share) {
    return sorted.empty() ? 0 : sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

}  // namespace bench
