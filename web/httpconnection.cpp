#include "web/httpconnection.h"

#include <array>

#include "web/config.h"
#include "web/pageconnection.h"

namespace web {

namespace {

namespace http = beast::http;

constexpr auto readTime = std::chrono::seconds(30);
constexpr auto drainTime = std::chrono::seconds(2);
constexpr auto writeTime = std::chrono::minutes(2);
constexpr std::uint32_t longestHead = 16 * 1024;

/// One browser connection: requests one after another, until it becomes a page's WebSocket or ends.
template <class Stream>
class HttpConnection : public std::enable_shared_from_this<HttpConnection<Stream>> {
public:
    HttpConnection(Stream&& stream, const Config& config, Site& site)
        : stream_(std::move(stream)), config_(config), site_(site) {}

    void start() {
        error_code error;
        const auto peer = lowest().socket().remote_endpoint(error);
        if (error) return;
        address_ = peer.address().to_string();
        if constexpr (secure) {
            lowest().expires_after(readTime);
            stream_.async_handshake(net::ssl::stream_base::server,
                                    [self = this->shared_from_this()](error_code failed) {
                                        if (!failed) self->readHead();
                                    });
        } else {
            readHead();
        }
    }

private:
    static constexpr bool secure = std::is_same_v<Stream, TlsStream>;

    beast::tcp_stream& lowest() { return beast::get_lowest_layer(stream_); }

    void readHead() {
        parser_.emplace();
        parser_->header_limit(longestHead);
        parser_->body_limit(boost::none);
        lowest().expires_after(readTime);
        http::async_read_header(stream_, buffer_, *parser_,
                                [self = this->shared_from_this()](error_code error, std::size_t) {
                                    if (error) return self->refuse(error);
                                    self->readBody();
                                });
    }

    void readBody() {
        request_ = requestOf(parser_->get());
        if (beast::websocket::is_upgrade(parser_->get()) && request_.path == "/session") return openPage();
        const auto limit = site_.longestBody(request_);
        if (parser_->content_length().value_or(0) > limit) return tooLarge();
        parser_->body_limit(limit);
        http::async_read(stream_, buffer_, *parser_, [self = this->shared_from_this()](error_code error, std::size_t) {
            if (error) return self->refuse(error);
            self->answer();
        });
    }

    void answer() {
        request_.body = std::move(parser_->get().body());
        keepAlive_ = parser_->keep_alive();
        lowest().expires_never();  // a slowed sign-in takes its time
        site_.handle(request_,
                     [self = this->shared_from_this()](Response response) { self->write(std::move(response)); });
    }

    void openPage() {
        auto admitted = site_.admit(request_);
        keepAlive_ = false;
        if (auto* refusal = std::get_if<Response>(&admitted)) return write(std::move(*refusal));
        lowest().expires_never();  // the WebSocket keeps its own time
        // cppcheck-suppress accessMoved ; it takes the template's angle for a second use
        std::make_shared<PageConnection<Stream>>(std::move(stream_),
                                                 std::move(std::get<std::shared_ptr<NurseSession>>(admitted)),
                                                 static_cast<std::size_t>(config_.longestMessage))
            ->start(parser_->get());
    }

    void refuse(error_code error) {
        if (error == http::error::body_limit) return tooLarge();
        // Anything but a broken request is a connection that ended.
        if (error.category() != make_error_code(http::error::bad_method).category() ||
            error == http::error::end_of_stream || error == http::error::partial_message)
            return shut();
        keepAlive_ = false;
        write(plainText(400, "Bad request\n"));
    }

    void tooLarge() {
        keepAlive_ = false;
        write(json(413, R"({"error":"The request is too large"})"));
    }

    void write(Response response) {
        http::response<http::string_body> message{static_cast<http::status>(response.status), 11};
        for (const auto& [name, value] : response.headers) message.insert(name, value);
        message.keep_alive(keepAlive_);
        message.body() = std::move(response.body);
        if (response.status != 304) message.prepare_payload();
        if (request_.method == "HEAD") message.body().clear();
        response_ = std::move(message);
        lowest().expires_after(writeTime);
        http::async_write(stream_, response_, [self = this->shared_from_this()](error_code error, std::size_t) {
            if (error) return;
            if (self->keepAlive_) return self->readHead();
            if constexpr (!secure) self->shut();
            self->lowest().expires_after(drainTime);
            self->drain();
        });
    }

    /// Closing on bytes that are still coming would reset the connection and take the answer with it.
    void drain() {
        stream_.async_read_some(net::buffer(drained_),
                                [self = this->shared_from_this()](error_code error, std::size_t) {
                                    if (!error) return self->drain();
                                    if constexpr (secure) self->shut();
                                });
    }

    void shut() {
        error_code ignored;
        if constexpr (secure) {
            lowest().expires_after(readTime);
            stream_.async_shutdown([self = this->shared_from_this()](error_code) {});
        } else {
            lowest().socket().shutdown(tcp::socket::shutdown_send, ignored);
        }
    }

    Request requestOf(const http::request<http::string_body>& message) const {
        Request request;
        request.method = message.method_string();
        const std::string target = message.target();
        const auto question = target.find('?');
        request.path = target.substr(0, question);
        if (question != std::string::npos) request.query = target.substr(question + 1);
        for (const auto& field : message) {
            std::string name = field.name_string();
            beast::string_view value = field.value();
            for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            request.headers.emplace(std::move(name), std::string(value));
        }
        request.address = address_;
        request.secure = secure;
        return request;
    }

    Stream stream_;
    const Config& config_;
    Site& site_;
    std::string address_;
    beast::flat_buffer buffer_;
    std::optional<http::request_parser<http::string_body>> parser_;
    Request request_;
    http::response<http::string_body> response_;
    std::array<char, 4096> drained_;
    bool keepAlive_ = true;
};

}  // namespace

void serveConnection(tcp::socket socket, net::ssl::context* tls, const Config& config, Site& site) {
    error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    if (tls != nullptr)
        std::make_shared<HttpConnection<TlsStream>>(TlsStream(std::move(socket), *tls), config, site)->start();
    else
        std::make_shared<HttpConnection<PlainStream>>(PlainStream(std::move(socket)), config, site)->start();
}

}  // namespace web
