#include "web/token.h"

#include <openssl/rand.h>

#include <array>
#include <stdexcept>

namespace web {

std::string randomToken() {
    std::array<unsigned char, 32> bytes{};
    if (RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1) throw std::runtime_error("no random numbers");
    std::string token;
    for (const unsigned char byte : bytes) {
        static constexpr char digits[] = "0123456789abcdef";
        token += digits[byte >> 4];
        token += digits[byte & 15];
    }
    return token;
}

}  // namespace web
