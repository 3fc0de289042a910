#include "web/token.h"

#include <openssl/rand.h>

#include <array>
#include <stdexcept>

namespace web {

namespace {

constexpr std::size_t tokenBytes = 32;
constexpr char digits[] = "0123456789abcdef";

}  // namespace

std::string randomToken() {
    std::array<unsigned char, tokenBytes> bytes{};
    if (RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1) throw std::runtime_error("no random numbers");
    return hexadecimal(bytes);
}

bool isToken(const std::string& text) {
    return text.size() == 2 * tokenBytes && text.find_first_not_of(digits) == std::string::npos;
}

const std::string& runToken() {
    static const std::string token = randomToken();
    return token;
}

std::string hexadecimal(std::span<const unsigned char> bytes) {
    std::string text;
    for (const unsigned char byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

}  // namespace web
