#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace webtest {

/// A browser connection down to its bytes, so that a test can send what no browser would.
class RawClient {
public:
    explicit RawClient(int port) : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const timeval patience{60, 0};  // sanitizers are slow
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        ::setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
        if (::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            throw std::runtime_error("cannot connect");
    }
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;
    ~RawClient() { ::close(socket_); }

    /// False once the other side has gone.
    bool write(const std::string& bytes) const {
        std::size_t sent = 0;
        while (sent < bytes.size()) {
            const auto count = ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
            if (count <= 0) return false;
            sent += static_cast<std::size_t>(count);
        }
        return true;
    }

    /// Sends a request and gives the whole answer: head and body.
    std::string ask(const std::string& head, const std::string& body = {}) {
        write(head + (body.empty() ? "" : "Content-Length: " + std::to_string(body.size()) + "\r\n") + "\r\n" + body);
        const std::string answer = readUntil("\r\n\r\n");
        const auto at = answer.find("Content-Length: ");
        if (at == std::string::npos) return answer;
        return answer + readBytes(std::stoul(answer.substr(at + 16)));
    }

    /// Opens the session's WebSocket; the answer's head.
    std::string upgrade(const std::string& cookie, const std::string& origin) {
        return ask(
            "GET /session HTTP/1.1\r\nHost: vorel\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\nOrigin: " +
            origin + "\r\nCookie: " + cookie + "\r\n");
    }

    static constexpr unsigned char text = 0x81;
    static constexpr unsigned char binary = 0x82;
    static constexpr unsigned char pong = 0x8A;  ///< means nothing, and shows whether the connection stands

    /// A masked frame (with the mask 0, which changes nothing).
    bool sendFrame(unsigned char kind, const std::string& content) const {
        std::string frame(1, static_cast<char>(kind));
        const auto size = content.size();
        const auto append = [&](int bytes) {
            for (int i = bytes - 1; i >= 0; --i) frame += static_cast<char>((size >> (8 * i)) & 0xFF);
        };
        if (size < 126) {
            frame += static_cast<char>(0x80 | size);
        } else if (size < 65536) {
            frame += '\xFE';
            append(2);
        } else {
            frame += '\xFF';
            append(8);
        }
        return write(frame + std::string(4, '\0') + content);
    }

    /// The next frame's content, pings aside; "" when the connection ends. A close frame sets `closeCode`.
    std::string readFrame() {
        const std::string head = readBytes(2);
        if (head.size() < 2) return {};
        std::size_t size = static_cast<unsigned char>(head[1]) & 0x7F;
        if (size > 125) {
            const std::string extended = readBytes(size == 126 ? 2 : 8);
            size = 0;
            for (const char c : extended) size = size * 256 + static_cast<unsigned char>(c);
        }
        const std::string content = readBytes(size);
        if ((head[0] & 0x0F) == 9) return readFrame();  // a ping
        if ((head[0] & 0x0F) != 8) return content;
        closeCode = content.size() < 2
                        ? 0
                        : static_cast<unsigned char>(content[0]) * 256 + static_cast<unsigned char>(content[1]);
        return {};
    }

    int closeCode = -1;

    /// Everything until the other side closes.
    std::string readAll() {
        std::string all;
        for (;;) {
            const std::string one = readBytes(1);
            if (one.empty()) return all;
            all += one;
        }
    }

    std::string readUntil(const std::string& end) {
        std::string bytes;
        while (!bytes.ends_with(end)) {
            const std::string one = readBytes(1);
            if (one.empty()) break;
            bytes += one;
        }
        return bytes;
    }

private:
    std::string readBytes(std::size_t count) {
        std::string bytes(count, '\0');
        std::size_t got = 0;
        while (got < count) {
            const auto now = ::recv(socket_, bytes.data() + got, count - got, 0);
            if (now <= 0) break;
            got += static_cast<std::size_t>(now);
        }
        bytes.resize(got);
        return bytes;
    }

    int socket_;
};

}  // namespace webtest
