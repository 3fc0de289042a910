#pragma once

#define ZLIB_CONST  // what is compressed is only read
#include <zlib.h>

#include <stdexcept>
#include <string>

namespace webtest {

/// One direction of a compressed talk, as the other side of the host has it: a stream that goes on from text to text.
class Inflater {
public:
    static constexpr int raw = -MAX_WBITS;
    static constexpr int gzip = MAX_WBITS + 16;

    explicit Inflater(int window) {
        if (inflateInit2(&stream_, window) != Z_OK) throw std::runtime_error("cannot inflate");
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;
    ~Inflater() { inflateEnd(&stream_); }

    std::string operator()(const std::string& compressed) {
        std::string text;
        std::string piece(65536, '\0');
        stream_.next_in = reinterpret_cast<const Bytef*>(compressed.data());
        stream_.avail_in = static_cast<uInt>(compressed.size());
        do {
            stream_.next_out = reinterpret_cast<Bytef*>(piece.data());
            stream_.avail_out = static_cast<uInt>(piece.size());
            const int result = inflate(&stream_, Z_SYNC_FLUSH);
            if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) throw std::runtime_error("broken");
            text.append(piece, 0, piece.size() - stream_.avail_out);
        } while (stream_.avail_out == 0);
        return text;
    }

private:
    z_stream stream_{};
};

/// A message as a browser compresses it, whose window is 1 KiB: the text so many times.
inline std::string deflated(const std::string& text, int times = 1) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -10, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("cannot deflate");
    std::string compressed;
    std::string piece(deflateBound(&stream, text.size()) + 16, '\0');
    for (int i = 1; i <= times; ++i) {
        stream.next_in = reinterpret_cast<const Bytef*>(text.data());
        stream.avail_in = static_cast<uInt>(text.size());
        stream.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream.avail_out = static_cast<uInt>(piece.size());
        deflate(&stream, i < times ? Z_NO_FLUSH : Z_SYNC_FLUSH);
        compressed.append(piece, 0, piece.size() - stream.avail_out);
    }
    deflateEnd(&stream);
    compressed.resize(compressed.size() - 4);  // the end of a message is understood
    return compressed;
}

}  // namespace webtest
