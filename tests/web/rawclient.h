#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <cstdint>
#include <memory>
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

    /// Goes on over TLS, whatever the host's certificate says: the cipher that the host chose, or "" where it would
    /// not. `ciphers` are those of TLS 1.2 that the client likes, best first.
    std::string startTls(const char* ciphers) {
        context_.reset(SSL_CTX_new(TLS_client_method()));
        SSL_CTX_set_max_proto_version(context_.get(), TLS1_2_VERSION);
        SSL_CTX_set_cipher_list(context_.get(), ciphers);
        tls_.reset(SSL_new(context_.get()));
        SSL_set_fd(tls_.get(), socket_);
        return SSL_connect(tls_.get()) == 1 ? SSL_get_cipher_name(tls_.get()) : std::string();
    }

    /// False once the other side has gone.
    bool write(const std::string& bytes) const {
        std::size_t sent = 0;
        while (sent < bytes.size()) {
            const auto count = sendSome(bytes.data() + sent, bytes.size() - sent);
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

    /// Opens the session's WebSocket, with further lines of the head; the answer's head.
    std::string upgrade(const std::string& cookie, const std::string& origin, const std::string& more = {}) {
        return ask(
            "GET /session HTTP/1.1\r\nHost: vorel\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\nOrigin: " +
            origin + "\r\nCookie: " + cookie + "\r\n" + more);
    }

    static constexpr unsigned char text = 0x81;
    static constexpr unsigned char binary = 0x82;
    static constexpr unsigned char compressed = 0x40;  ///< beside the kind
    static constexpr unsigned char last = 0x80;        ///< of a message's frames
    static constexpr unsigned char pong = 0x8A;        ///< means nothing, and shows whether the connection stands

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
        frameHead = static_cast<unsigned char>(head[0]);
        if ((head[0] & 0x0F) != 8) return content;
        closeCode = content.size() < 2
                        ? 0
                        : static_cast<unsigned char>(content[0]) * 256 + static_cast<unsigned char>(content[1]);
        return {};
    }

    int closeCode = -1;
    unsigned char frameHead = 0;  ///< first byte of the last frame

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
            const auto now = receiveSome(bytes.data() + got, count - got);
            if (now <= 0) break;
            got += static_cast<std::size_t>(now);
        }
        bytes.resize(got);
        return bytes;
    }

    ssize_t sendSome(const char* bytes, std::size_t count) const {
        return tls_ ? SSL_write(tls_.get(), bytes, static_cast<int>(count))
                    : ::send(socket_, bytes, count, MSG_NOSIGNAL);
    }
    ssize_t receiveSome(char* bytes, std::size_t count) const {
        return tls_ ? SSL_read(tls_.get(), bytes, static_cast<int>(count)) : ::recv(socket_, bytes, count, 0);
    }

    int socket_;
    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_{nullptr, &SSL_CTX_free};
    std::unique_ptr<SSL, decltype(&SSL_free)> tls_{nullptr, &SSL_free};
};

}  // namespace webtest
