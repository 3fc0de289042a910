#include "web/pageconnection.h"

#include <deque>

#include "web/log.h"

namespace web {

namespace {

/// A page's WebSocket: hands its messages to the session and writes the session's lines one at a time. Whatever the
/// page sends, the session stays whole: the worst a page can lose is its connection.
class PageConnection : public Page, public Connections::Place, public std::enable_shared_from_this<PageConnection> {
public:
    PageConnection(Stream stream, std::shared_ptr<NurseSession> session, std::size_t longestMessage,
                   Connections& connections)
        : Place(connections),
          socket_(std::move(stream)),
          session_(std::move(session)),
          longestMessage_(longestMessage) {}

    /// Answers the upgrade request and goes on until the connection ends.
    void start(const UpgradeRequest& request) {
        using Option = beast::websocket::stream_base::timeout;
        socket_.set_option(Option{std::chrono::seconds(30), std::chrono::seconds(60), true});
        socket_.set_option(beast::websocket::stream_base::decorator(
            [](beast::websocket::response_type& response) { response.erase(beast::http::field::server); }));
        socket_.set_option(compression(request));
        socket_.auto_fragment(false);  // a line that is not compressed is a frame
        socket_.read_message_max(0);   // what is too long is thrown away as it comes, and answered
        socket_.async_accept(request, [self = shared_from_this()](error_code error) {
            if (error) return self->gone();
            self->guard([&] {
                self->socket_.text(true);
                self->session_->attach(self);
                self->read();
            });
        });
    }

    void send(std::string line) override {
        net::post(socket_.get_executor(), [self = shared_from_this(), line = std::move(line)]() mutable {
            self->guard([&] { self->enqueue(std::move(line)); });
        });
    }

    void close() override {
        net::post(socket_.get_executor(), [self = shared_from_this()] {
            self->closing_ = true;
            if (self->lines_.empty()) self->shut();
        });
    }

    void readOn() override {
        net::post(socket_.get_executor(), [self = shared_from_this()] {
            if (!self->gone_) self->guard([&] { self->read(); });
        });
    }

    /// Pages are never asked to; they have signed in.
    void makeRoom() override {}

private:
    // A page that does not read is let go: it comes back and draws itself anew.
    static constexpr std::size_t mostLines = 2000;
    static constexpr std::size_t mostBytes = std::size_t{32} * 1024 * 1024;
    static constexpr std::size_t readAtOnce = std::size_t{16} * 1024;
    // A page says at most so many times what a message may have before it is let go: some bytes of a compressed one
    // could keep the host busy for long.
    static constexpr std::size_t mostOverlong = 16;

    /// Lines are compressed one after the other, each with what the last ones said: windows of 4 KiB hold the names and
    /// shapes that come again and take some 30 KiB of a page, its own messages 1 KiB where its browser lets itself be
    /// told (the others want the standard's 32). What is shorter than a packet goes as it is. A page keeps nothing from
    /// one message to the next, so that a secret in one is never beside what another says.
    static beast::websocket::permessage_deflate compression(const UpgradeRequest& request) {
        const auto offer = request[beast::http::field::sec_websocket_extensions];
        beast::websocket::permessage_deflate option;
        option.server_enable = true;
        option.server_max_window_bits = 12;
        option.client_max_window_bits = offer.find("client_max_window_bits") == beast::string_view::npos ? 15 : 10;
        option.client_no_context_takeover = true;
        option.compLevel = 3;
        option.memLevel = 4;
        option.msg_size_threshold = 256;
        return option;
    }

    void read() {
        socket_.async_read_some(buffer_, readAtOnce, [self = shared_from_this()](error_code error, std::size_t) {
            if (error) return self->gone();
            self->guard([&] { self->received(); });
        });
    }

    void received() {
        if (overlong_ || buffer_.size() > longestMessage_) {
            overlong_ = true;
            thrownAway_ += buffer_.size();
            buffer_.consume(buffer_.size());
            if (thrownAway_ > mostOverlong * longestMessage_) return drop("message without an end");
        }
        if (socket_.is_message_done()) {
            // The reader of requests refuses what is too long by its length alone.
            std::string line =
                overlong_ ? std::string(ui::longestRequest + 1, ' ') : beast::buffers_to_string(buffer_.data());
            buffer_.clear();
            overlong_ = false;
            thrownAway_ = 0;
            // The page's further lines wait in the network until the session has worked some off.
            if (!session_->receive(*this, std::move(line))) return;
        }
        read();
    }

    /// Whatever goes wrong here, most of all memory that is not there, costs this connection and nothing else.
    template <class Work>
    void guard(const Work& work) {
        try {
            work();
        } catch (const std::exception&) {
            drop("failed");
        }
    }

    void enqueue(std::string line) {
        if (gone_ || closing_) return;
        bytes_ += line.size();
        lines_.push_back(std::move(line));
        if (lines_.size() > mostLines || bytes_ > mostBytes) return drop("page does not read");
        if (lines_.size() == 1) write();
    }

    void write() {
        socket_.async_write(net::buffer(lines_.front()), [self = shared_from_this()](error_code error, std::size_t) {
            if (error) return self->gone();
            self->bytes_ -= self->lines_.front().size();
            self->lines_.pop_front();
            if (!self->lines_.empty())
                self->write();
            else if (self->closing_)
                self->shut();
        });
    }

    void shut() {
        if (gone_ || std::exchange(shutting_, true)) return;
        socket_.async_close(beast::websocket::close_code::normal,
                            [self = shared_from_this()](error_code) { self->gone(); });
    }

    void drop(const char* why) {
        session_->log(Level::warning, "page-dropped", {{"why", why}});
        socket_.next_layer().close();
        gone();
    }

    void gone() {
        if (std::exchange(gone_, true)) return;
        session_->detach(*this);
    }

    beast::websocket::stream<Stream> socket_;
    std::shared_ptr<NurseSession> session_;
    std::size_t longestMessage_;
    beast::flat_buffer buffer_;
    bool overlong_ = false;
    std::size_t thrownAway_ = 0;     ///< bytes of the message that is too long
    std::deque<std::string> lines_;  ///< the first one is being written
    std::size_t bytes_ = 0;
    bool closing_ = false;
    bool shutting_ = false;
    bool gone_ = false;
};

}  // namespace

void servePage(Stream stream, std::shared_ptr<NurseSession> session, std::size_t longestMessage,
               Connections& connections, const UpgradeRequest& request) {
    const auto page =
        std::make_shared<PageConnection>(std::move(stream), std::move(session), longestMessage, connections);
    page->start(request);
}

}  // namespace web
