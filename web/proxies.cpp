#include "web/proxies.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>

#include "web/http.h"

namespace web {

namespace {

/// Takes the last item off a list that is parted by commas.
std::string takeLast(std::string_view& list) {
    const auto comma = list.rfind(',');
    std::string_view item = comma == std::string_view::npos ? list : list.substr(comma + 1);
    list = comma == std::string_view::npos ? std::string_view{} : list.substr(0, comma);
    while (!item.empty() && item.front() == ' ') item.remove_prefix(1);
    while (!item.empty() && item.back() == ' ') item.remove_suffix(1);
    return plainAddress(item);
}

}  // namespace

std::string plainAddress(std::string_view address) {
    const std::string text(address);
    in6_addr parsed{};
    std::array<char, INET6_ADDRSTRLEN> written{};
    if (inet_pton(AF_INET, text.c_str(), &parsed) == 1)
        return inet_ntop(AF_INET, &parsed, written.data(), written.size());
    if (inet_pton(AF_INET6, text.c_str(), &parsed) != 1) return {};
    if (IN6_IS_ADDR_V4MAPPED(&parsed)) return inet_ntop(AF_INET, &parsed.s6_addr[12], written.data(), written.size());
    return inet_ntop(AF_INET6, &parsed, written.data(), written.size());
}

void seeThroughProxies(Request& request, const std::vector<std::string>& proxies) {
    const auto trusted = [&](const std::string& address) {
        return std::find(proxies.begin(), proxies.end(), address) != proxies.end();
    };
    if (!trusted(request.address)) return;
    request.secure = true;
    std::string_view hops = request.header("x-forwarded-for");
    while (!hops.empty() && trusted(request.address)) {
        const std::string hop = takeLast(hops);
        if (hop.empty()) return;
        request.address = hop;
    }
}

}  // namespace web
