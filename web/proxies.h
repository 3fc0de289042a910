#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace web {

struct Request;

/// The address in its one written form ("::ffff:10.0.0.1" is "10.0.0.1"); "" for what is none.
std::string plainAddress(std::string_view address);

/// Where a request came through proxies that the configuration names, the workstation's address is the last one in
/// "X-Forwarded-For" that is none of theirs, and the request counts as one over TLS, which they speak with the page.
/// What anybody else writes into that header is nothing.
void seeThroughProxies(Request& request, const std::vector<std::string>& proxies);

}  // namespace web
