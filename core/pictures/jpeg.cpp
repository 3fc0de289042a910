#include "core/pictures/jpeg.h"

#include <libexif/exif-data.h>
#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>
#include <vector>

#include "db/error.h"

namespace core {

namespace {

/// A phone's picture has twelve. A picture of many scans is held whole while it is decoded, six bytes a pixel.
constexpr std::int64_t mostPixels = 25'000'000;
constexpr int quality = 88;

[[noreturn]] void noJpeg() {
    throw db::Error(db::Category::other, "The file is not a JPG image");
}

/// The library's handle of one kind of work.
class Handle {
public:
    explicit Handle(tjhandle handle) : handle_(handle) {
        if (!handle_) throw std::bad_alloc();
    }
    /// Warnings are for damaged files that still hold a picture.
    void require(int result) const {
        if (result != 0 && tjGetErrorCode(handle_.get()) == TJERR_FATAL) noJpeg();
    }
    [[nodiscard]] tjhandle get() const noexcept { return handle_.get(); }

private:
    struct Destroys {
        void operator()(void* handle) const { tjDestroy(handle); }
    };
    std::unique_ptr<void, Destroys> handle_;
};

/// What the library wrote, to be given back to it.
class Written {
public:
    Written() = default;
    Written(const Written&) = delete;
    Written& operator=(const Written&) = delete;
    ~Written() { tjFree(data); }
    [[nodiscard]] db::Bytes bytes() const {
        const auto* first = reinterpret_cast<const std::byte*>(data);
        return {first, first + size};
    }

    unsigned char* data = nullptr;
    unsigned long size = 0;
};

struct Size {
    int width = 0;
    int height = 0;
    [[nodiscard]] int longest() const noexcept { return std::max(width, height); }
};

const unsigned char* dataOf(const db::Bytes& bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

Size sizeOf(const Handle& decoder, const db::Bytes& jpeg) {
    Size size;
    int subsampling = 0;
    int colours = 0;
    decoder.require(tjDecompressHeader3(decoder.get(), dataOf(jpeg), jpeg.size(), &size.width, &size.height,
                                        &subsampling, &colours));
    return size;
}

/// The largest size that the decoder offers below the limit, or its smallest.
Size scaled(Size size, int longestSide) {
    int count = 0;
    const tjscalingfactor* factors = tjGetScalingFactors(&count);
    Size best{TJSCALED(size.width, (tjscalingfactor{1, 8})), TJSCALED(size.height, (tjscalingfactor{1, 8}))};
    for (int i = 0; i < count; ++i) {
        if (factors[i].num > factors[i].denom) continue;
        const Size offered{TJSCALED(size.width, factors[i]), TJSCALED(size.height, factors[i])};
        if (offered.longest() <= longestSide && offered.longest() > best.longest()) best = offered;
    }
    return best;
}

db::Bytes drawn(const db::Bytes& jpeg, int longestSide) {
    const Handle decoder(tjInitDecompress());
    const Size full = sizeOf(decoder, jpeg);
    if (std::int64_t{full.width} * full.height > mostPixels)
        throw db::Error(db::Category::other, "The photograph has more than 25 megapixels");
    const Size size = scaled(full, longestSide);
    std::vector<unsigned char> pixels(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                                      static_cast<std::size_t>(tjPixelSize[TJPF_RGB]));
    decoder.require(tjDecompress2(decoder.get(), dataOf(jpeg), jpeg.size(), pixels.data(), size.width, 0, size.height,
                                  TJPF_RGB, TJFLAG_LIMITSCANS));
    const Handle encoder(tjInitCompress());
    Written result;
    encoder.require(tjCompress2(encoder.get(), pixels.data(), size.width, 0, size.height, TJPF_RGB, &result.data,
                                &result.size, TJSAMP_444, quality, 0));
    db::Bytes bytes = result.bytes();
    return size.longest() > longestSide ? drawn(bytes, longestSide) : bytes;
}

/// How the camera was held, 1 to 8 (CIPA DC-008, Exif 2.32, tag 0112H); 1 is upright.
int orientationOf(const db::Bytes& jpeg) {
    const std::unique_ptr<ExifData, void (*)(ExifData*)> data(
        exif_data_new_from_data(dataOf(jpeg), static_cast<unsigned>(jpeg.size())), &exif_data_unref);
    const ExifEntry* entry = data ? exif_content_get_entry(data->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION) : nullptr;
    if (!entry || entry->format != EXIF_FORMAT_SHORT || entry->components != 1 || entry->size < 2) return 1;
    return exif_get_short(entry->data, exif_data_get_byte_order(data.get()));
}

db::Bytes turned(const db::Bytes& jpeg, int orientation) {
    static constexpr std::array<int, 9> turns{TJXOP_NONE,      TJXOP_NONE,  TJXOP_HFLIP,      TJXOP_ROT180, TJXOP_VFLIP,
                                              TJXOP_TRANSPOSE, TJXOP_ROT90, TJXOP_TRANSVERSE, TJXOP_ROT270};
    if (orientation < 2 || orientation > 8) return jpeg;
    const Handle transformer(tjInitTransform());
    tjtransform transform{};
    transform.op = turns.at(static_cast<std::size_t>(orientation));
    transform.options = TJXOPT_TRIM;
    Written result;
    transformer.require(
        tjTransform(transformer.get(), dataOf(jpeg), jpeg.size(), 1, &result.data, &result.size, &transform, 0));
    return result.bytes();
}

}  // namespace

db::Bytes redrawnJpeg(const db::Bytes& file, int longestSide) {
    static std::mutex oneAtATime;  // what one decoding may take, the host has once
    const std::lock_guard lock(oneAtATime);
    return turned(drawn(file, longestSide), orientationOf(file));
}

}  // namespace core
