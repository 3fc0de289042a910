#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace web {

/// A request as the handlers see it, free of the network library: they are called without a socket in tests.
struct Request {
    std::string method = "GET";
    std::string path;                            ///< as sent, without the query
    std::string query;                           ///< without the "?"
    std::map<std::string, std::string> headers;  ///< names in lower case; what came twice is joined with ", "
    std::string body;
    std::string address;  ///< of the workstation
    bool secure = false;  ///< came over TLS, to the host or to a proxy before it

    /// "" where the header was not sent.
    [[nodiscard]] std::string_view header(const std::string& lowerName) const;
    /// The cookie's value, or "".
    [[nodiscard]] std::string cookie(std::string_view name) const;
};

struct Response {
    int status = 200;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
};

/// A short plain answer, not to be kept.
Response plainText(int status, std::string text);
Response page(int status, std::string html);
Response json(int status, std::string text);
/// 303: the browser goes on with a GET.
Response redirect(const std::string& path);

/// What every answer says of itself: what a page may load, that nobody frames it, and over TLS that it stays so.
void addSecurityHeaders(Response& response, bool secure);

/// The text behind "%41" and "+" escapes; nothing where an escape is broken.
std::optional<std::string> urlDecoded(std::string_view text);
/// The field of a URL-encoded form or query; "" where it is missing or broken.
std::string formField(std::string_view form, std::string_view name);
/// The text with the five special characters escaped, for HTML text and attributes.
std::string htmlEscaped(std::string_view text);

}  // namespace web
