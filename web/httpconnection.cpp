#include "web/httpconnection.h"

#include <array>

#include "web/config.h"
#include "web/connections.h"
#include "web/log.h"
#include "web/pageconnection.h"
#include "web/proxies.h"
#include "web/stream.h"

namespace web {

namespace {

namespace http = beast::http;

constexpr auto readTime = std::chrono::seconds(30);
constexpr auto uploadTime = std::chrono::minutes(2);
constexpr auto drainTime = std::chrono::seconds(2);
constexpr auto writeTime = std::chrono::minutes(2);
constexpr std::uint32_t longestHead = 16 * 1024;
/// What is read ahead: a head, or a piece of a body with what a chunk says of itself.
constexpr std::size_t readAhead = std::size_t{2} * longestHead;
/// What may stand between the bytes of a body, the sizes of its chunks and its trailer: a part of what the body may
/// have, and a little more.
constexpr std::size_t framingShare = 16;
constexpr std::size_t leastFraming = 1024;

bool same(beast::string_view text, const char* wanted) {
    return beast::iequals(text, wanted);
}

/// What of a head cannot be answered: a message whose length two readers could take for different ones is refused
/// before anything is done with it.
std::optional<Response> faultOf(const http::request<http::string_body>& head) {
    const auto one = [&](http::field field) { return head.count(field) == 1; };
    const auto none = [&](http::field field) { return head.count(field) == 0; };
    if (!one(http::field::host) || head[http::field::host].empty()) return plainText(400, "A request names one host\n");
    if (!none(http::field::content_length) && !one(http::field::content_length))
        return plainText(400, "A request has one length\n");
    if (!none(http::field::te) && !same(head[http::field::te], "trailers"))
        return plainText(501, "This transfer coding is not known here\n");
    if (!none(http::field::transfer_encoding)) {
        if (!none(http::field::content_length) || head.version() < 11)
            return plainText(400, "A request has one length\n");
        if (!one(http::field::transfer_encoding) || !same(head[http::field::transfer_encoding], "chunked"))
            return plainText(501, "This transfer coding is not known here\n");
    }
    if (!none(http::field::expect) && !(one(http::field::expect) && same(head[http::field::expect], "100-continue")))
        return plainText(417, "This expectation cannot be met\n");
    return std::nullopt;
}

/// One browser connection: requests one after another, until it becomes a page's WebSocket or ends.
class HttpConnection : public Connections::Place, public std::enable_shared_from_this<HttpConnection> {
public:
    HttpConnection(Stream stream, const Config& config, Site& site, Connections& connections)
        : Place(connections),
          stream_(std::move(stream)),
          config_(config),
          site_(site),
          connections_(connections),
          buffer_(readAhead) {}

    void start() {
        error_code error;
        const auto peer = stream_.peer(error);
        if (error) return;
        address_ = plainAddress(peer.address().to_string());
        setWaiting(true);
        if (!stream_.secure()) return readHead();
        stream_.expireAfter(readTime);
        stream_.handshake([self = shared_from_this()](error_code failed) {
            if (!failed) self->readHead();
        });
    }

    void makeRoom() override { stream_.close(); }

private:
    void readHead() {
        setWaiting(false);
        setWaiting(true);  // from now on
        upload_.reset();
        request_ = {};
        parser_.emplace();
        parser_->header_limit(longestHead);
        parser_->body_limit(boost::none);
        stream_.expireAfter(readTime);
        http::async_read_header(stream_, buffer_, *parser_, [self = shared_from_this()](error_code error, std::size_t) {
            if (error) return self->refuse(error);
            self->judgeHead();
        });
    }

    void judgeHead() {
        request_ = requestOf(parser_->get());
        if (auto fault = faultOf(parser_->get())) return refuse(std::move(*fault));
        if (beast::websocket::is_upgrade(parser_->get()) && request_.path == "/session") return openPage();
        auto admitted = site_.admitBody(request_);
        if (auto* refusal = std::get_if<Response>(&admitted)) return refuse(std::move(*refusal));
        auto& body = std::get<Site::Body>(admitted);
        if (body.upload) {
            upload_ = std::move(body.upload);
            setWaiting(false);
            stream_.expireAfter(uploadTime);
        }
        if (parser_->content_length().value_or(0) > body.longest) return tooLarge();
        parser_->body_limit(body.longest);
        bodyLeft_ = body.longest + body.longest / framingShare + leastFraming;
        if (parser_->is_done()) return answer();
        if (request_.header("expect").empty()) return readBody();
        askForBody();
    }

    void askForBody() {
        static constexpr std::string_view goOn = "HTTP/1.1 100 Continue\r\n\r\n";
        net::async_write(stream_, net::buffer(goOn), [self = shared_from_this()](error_code error, std::size_t) {
            if (!error) self->readBody();
        });
    }

    /// Every byte counts, also those that tell the sizes of chunks.
    void readBody() {
        http::async_read_some(stream_, buffer_, *parser_,
                              [self = shared_from_this()](error_code error, std::size_t bytes) {
                                  if (error) return self->refuse(error);
                                  if (bytes > self->bodyLeft_) return self->tooLarge();
                                  self->bodyLeft_ -= bytes;
                                  self->parser_->is_done() ? self->answer() : self->readBody();
                              });
    }

    /// Anybody's request may still be in the way of others while it is slowed: only a session's own is not.
    void answer() {
        request_.body = std::move(parser_->get().body());
        keepAlive_ = parser_->keep_alive();
        stream_.expireNever();  // a slowed sign-in takes its time
        site_.handle(request_, [self = shared_from_this()](Response response) { self->write(std::move(response)); });
    }

    void openPage() {
        auto admitted = site_.admit(request_);
        if (auto* refusal = std::get_if<Response>(&admitted)) return refuse(std::move(*refusal));
        setWaiting(false);
        stream_.expireNever();  // the WebSocket keeps its own time
        servePage(std::move(stream_), std::move(std::get<std::shared_ptr<NurseSession>>(admitted)),
                  static_cast<std::size_t>(config_.longestMessage), connections_, parser_->get());
    }

    void refuse(error_code error) {
        if (error == http::error::body_limit || error == http::error::buffer_overflow) return tooLarge();
        // Anything but a broken request is a connection that ended.
        if (error.category() != make_error_code(http::error::bad_method).category() ||
            error == http::error::end_of_stream || error == http::error::partial_message)
            return shut();
        refuse(plainText(400, "Bad request\n"));
    }

    /// An answer after which nothing more is read: what follows may be anything.
    void refuse(Response response) {
        keepAlive_ = false;
        logOften(Level::warning, "request-refused",
                 {{"status", std::to_string(response.status)},
                  {"path", request_.path.substr(0, 100)},
                  {"address", request_.address.empty() ? address_ : request_.address}});
        write(std::move(response));
    }

    void tooLarge() { refuse(json(413, R"({"error":"The request is too large"})")); }

    void write(Response response) {
        addSecurityHeaders(response, request_.secure || stream_.secure());
        http::response<http::string_body> message{static_cast<http::status>(response.status), 11};
        for (const auto& [name, value] : response.headers) message.insert(name, value);
        message.keep_alive(keepAlive_);
        message.body() = std::move(response.body);
        if (response.status != 304) message.prepare_payload();
        if (request_.method == "HEAD") message.body().clear();
        response_ = std::move(message);
        stream_.expireAfter(writeTime);
        http::async_write(stream_, response_, [self = shared_from_this()](error_code error, std::size_t) {
            if (error) return;
            if (self->keepAlive_) return self->readHead();
            self->linger();
        });
    }

    /// Closing on bytes that are still coming would reset the connection and take the answer with it. A few such
    /// connections are read on; where many come, they are left to themselves until their client has seen the answer.
    void linger() {
        if (!stream_.secure()) shut();
        draining_ = connections_.beginDraining();
        stream_.expireAfter(drainTime);
        if (draining_) return drain();
        lingering_.expires_after(drainTime);
        lingering_.async_wait([self = shared_from_this()](error_code) { self->stream_.close(); });
    }

    void drain() {
        stream_.async_read_some(net::buffer(drained_), [self = shared_from_this()](error_code error, std::size_t) {
            if (!error) return self->drain();
            if (self->stream_.secure()) self->shut();
        });
    }

    void shut() {
        stream_.expireAfter(readTime);
        stream_.shutDown([self = shared_from_this()](error_code) {});
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
            for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            std::string& value = request.headers[name];
            if (!value.empty()) value += ", ";
            value += std::string(field.value());
        }
        request.address = address_;
        request.secure = stream_.secure();
        seeThroughProxies(request, config_.proxies);
        return request;
    }

    Stream stream_;
    const Config& config_;
    Site& site_;
    Connections& connections_;
    std::string address_;
    beast::flat_buffer buffer_;
    std::optional<http::request_parser<http::string_body>> parser_;
    std::size_t bodyLeft_ = 0;
    std::shared_ptr<void> upload_;  ///< holds the session's turn while its file comes
    Request request_;
    http::response<http::string_body> response_;
    std::shared_ptr<void> draining_;
    std::array<char, 4096> drained_;
    net::steady_timer lingering_{stream_.get_executor()};
    bool keepAlive_ = true;
};

}  // namespace

void serveConnection(tcp::socket socket, net::ssl::context* tls, const Config& config, Site& site,
                     Connections& connections) {
    if (!connections.admit()) return logOften(Level::warning, "connections-full");
    error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    std::make_shared<HttpConnection>(Stream(std::move(socket), tls), config, site, connections)->start();
}

}  // namespace web
