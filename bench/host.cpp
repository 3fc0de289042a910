// Works a running host as browsers do: signs in many nurses, leaves some idle, lets others send one event a second, and
// prints the round trips and what a session costs the host in memory.
//
//     build/bench_host PORT PID USER PASSWORD [idle=500] [working=200] [seconds=30]

#include <algorithm>
#include <boost/asio/connect.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

namespace {

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
    std::chrono::duration<double, std::milli> roundTrip(const std::string& request) {
        const auto start = Clock::now();
        socket_.write(asio::buffer(request));
        for (;;) {
            line_.clear();
            socket_.read(line_);
            const auto reply = nlohmann::json::parse(beast::buffers_to_string(line_.data()));
            if (reply.contains("reply") && reply["reply"].is_number()) return Clock::now() - start;
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

/// Resident memory of a process in KiB.
long residentKiB(const std::string& pid) {
    std::ifstream status("/proc/" + pid + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
    throw std::runtime_error("no such process");
}

/// One nurse: an event a second, from a query with a printed list to a mere rearrangement.
std::vector<double> work(Page& page, int seconds, int number) {
    static const std::vector<std::string> events = {
        R"({"fire":"MdiVorel.mnuPCOA"})", R"({"fire":"MdiVorel.mnuWindowCascade"})", R"({"get":"MdiVorel.lblTime"})"};
    std::vector<double> times;
    auto next = Clock::now() + std::chrono::milliseconds(number * 5);
    for (int i = 0; i < seconds; ++i, next += std::chrono::seconds(1)) {
        std::this_thread::sleep_until(next);
        times.push_back(page.roundTrip(events[static_cast<std::size_t>(i + number) % events.size()]).count());
    }
    return times;
}

double percentile(const std::vector<double>& sorted, double share) {
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fputs("usage: bench_host PORT PID USER PASSWORD [idle] [working] [seconds]\n", stderr);
        return 2;
    }
    const Target target{argv[1], argv[3], argv[4]};
    const int idle = argc > 5 ? std::stoi(argv[5]) : 500;
    const int working = std::min(argc > 6 ? std::stoi(argv[6]) : 200, idle);
    const int seconds = argc > 7 ? std::stoi(argv[7]) : 30;

    const long before = residentKiB(argv[2]);
    std::vector<std::unique_ptr<Page>> pages;
    for (int i = 0; i < idle; ++i) pages.push_back(std::make_unique<Page>(target));
    std::this_thread::sleep_for(std::chrono::seconds(2));
    std::printf("%d idle sessions: %.3f MiB each\n", idle,
                static_cast<double>(residentKiB(argv[2]) - before) / 1024.0 / idle);

    std::mutex mutex;
    std::vector<double> times;
    std::vector<std::thread> nurses;
    for (int i = 0; i < working; ++i)
        nurses.emplace_back([&, i] {
            const auto mine = work(*pages[static_cast<std::size_t>(i)], seconds, i);
            const std::lock_guard lock(mutex);
            times.insert(times.end(), mine.begin(), mine.end());
        });
    for (auto& nurse : nurses) nurse.join();
    std::sort(times.begin(), times.end());
    std::printf("%d working, %zu round trips: median %.2f ms, 99th percentile %.2f ms\n", working, times.size(),
                percentile(times, 0.5), percentile(times, 0.99));
}
