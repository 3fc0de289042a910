#include "web/http.h"

namespace web {

namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// Calls `visit(name, value)` for each part "name=value" until it returns true.
template <class Visit>
void eachPair(std::string_view text, char separator, const Visit& visit) {
    while (!text.empty()) {
        const auto end = text.find(separator);
        std::string_view part = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        while (!part.empty() && part.front() == ' ') part.remove_prefix(1);
        const auto equals = part.find('=');
        if (equals != std::string_view::npos && visit(part.substr(0, equals), part.substr(equals + 1))) return;
    }
}

constexpr const char* securityHeaders[][2] = {
    {"Content-Security-Policy",
     "default-src 'self'; img-src 'self' data:; object-src 'none'; base-uri 'none'; form-action 'self'; "
     "frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"X-Frame-Options", "DENY"},
    // Not "no-referrer": browsers would then send forms with the origin "null".
    {"Referrer-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
};

Response typed(int status, const char* type, std::string body) {
    return {status, {{"Content-Type", type}, {"Cache-Control", "no-store"}}, std::move(body)};
}

}  // namespace

std::string_view Request::header(const std::string& lowerName) const {
    const auto found = headers.find(lowerName);
    return found == headers.end() ? std::string_view{} : std::string_view{found->second};
}

std::string Request::cookie(std::string_view name) const {
    std::string value;
    eachPair(header("cookie"), ';', [&](std::string_view key, std::string_view text) {
        if (key != name) return false;
        value = text;
        return true;
    });
    return value;
}

Response plainText(int status, std::string text) {
    return typed(status, "text/plain; charset=utf-8", std::move(text));
}

Response page(int status, std::string html) {
    return typed(status, "text/html; charset=utf-8", std::move(html));
}

Response json(int status, std::string text) {
    return typed(status, "application/json", std::move(text));
}

Response redirect(const std::string& path) {
    return {303, {{"Location", path}, {"Cache-Control", "no-store"}}, {}};
}

void addSecurityHeaders(Response& response, bool secure) {
    for (const auto& [name, value] : securityHeaders) response.headers.emplace_back(name, value);
    if (secure) response.headers.emplace_back("Strict-Transport-Security", "max-age=63072000; includeSubDomains");
}

std::optional<std::string> urlDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i] == '+' ? ' ' : text[i];
            continue;
        }
        if (i + 2 >= text.size()) return std::nullopt;
        const int high = hexDigit(text[i + 1]);
        const int low = hexDigit(text[i + 2]);
        if (high < 0 || low < 0) return std::nullopt;
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded;
}

std::string formField(std::string_view form, std::string_view name) {
    std::string value;
    eachPair(form, '&', [&](std::string_view key, std::string_view text) {
        if (key != name) return false;
        value = urlDecoded(text).value_or("");
        return true;
    });
    return value;
}

std::string htmlEscaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

}  // namespace web
