// Decoding of 8-bit YCbCr straight into 16-bit packed RGB/BGR words
// (5-6-5, 5-5-5, 4-4-4), truncated or with a 4x4 ordered dither.
//
// A row kernel exists per source form (4:4:4 interleaved, 4:2:2 packed,
// planar 4:4:4/4:2:2/4:2:0/4:1:1); the decoder constant set, the output
// format and the dithering are template parameters of the kernel.
#pragma once

#include <cstdint>

#include "video/chroma_share.h"
#include "core/frame.h"
#include "video/ycbcr.h"

namespace zor {

// ---------------------------------------------------------------------------
// Dither thresholds, indexed [y & 3][x & 3] with (x, y) the position inside
// the region: [0] for 5- and 6-bit fields, [1] (stored right after it) for
// 4-bit fields. Both follow the 4x4 Bayer order; the second is it times 289.
inline constexpr std::int32_t _bayer_thresh_int[2][4][4] = {
    {{0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}},
    {{0, 2312, 578, 2890}, {3468, 1156, 4046, 1734}, {867, 3179, 289, 2601}, {4335, 2023, 3757, 1445}},
};

// ---------------------------------------------------------------------------
// Output formats. The name lists the channels from the low end of the word
// up; the BGR member of a format swaps the shifts of the R and B fields.
enum class PackedLayout { P565, P555, P444 };

template <PackedLayout L, bool Bgr>
struct PackedFormat {
    static constexpr int kRBBits = L == PackedLayout::P444 ? 4 : 5;
    static constexpr int kGBits = L == PackedLayout::P565 ? 6 : L == PackedLayout::P555 ? 5 : 4;
    static constexpr int kHighShift = kRBBits + kGBits;  // 11, 10, 8
    static constexpr int kRShift = Bgr ? kHighShift : 0;
    static constexpr int kGShift = kRBBits;
    static constexpr int kBShift = Bgr ? 0 : kHighShift;
};

using RGB565 = PackedFormat<PackedLayout::P565, false>;
using BGR565 = PackedFormat<PackedLayout::P565, true>;
using RGB555 = PackedFormat<PackedLayout::P555, false>;
using BGR555 = PackedFormat<PackedLayout::P555, true>;
using RGB444 = PackedFormat<PackedLayout::P444, false>;
using BGR444 = PackedFormat<PackedLayout::P444, true>;

// Quantisation of one channel value v (0..255) to a field of Bits bits.
// Plain: the top bits. Dithered: q = (max * v) >> 8 with max = 2^Bits - 1,
// then one more when the remainder 256 v - q * floor(65280 / max) is greater
// than the threshold (strictly). The 6-bit field compares with half the
// 5-bit threshold; 4-bit fields have their own table.
template <int Bits>
inline int quantiseTrunc(int v) {
    return v >> (8 - Bits);
}

template <int Bits>
inline int quantiseDither(int v, const std::int32_t* t56, const std::int32_t* t4, int x) {
    constexpr int kMax = (1 << Bits) - 1;
    constexpr int kUnit = 256 * 255 / kMax;  // 2105, 1036, 4352
    int q = (kMax * v) >> 8;
    const int r = 256 * v - kUnit * q;
    const std::int32_t t = Bits == 6 ? (t56[x & 3] >> 1) : Bits == 4 ? t4[x & 3] : t56[x & 3];
    if (r > t) ++q;
    return q;
}

// Packs saturated R, G, B of the pixel at column x of one row into a word.
template <class Fmt, bool Dither>
class PackedWriter {
public:
    explicit PackedWriter(int row) : t56_(_bayer_thresh_int[0][row & 3]), t4_(_bayer_thresh_int[1][row & 3]) {}

    Zor16u operator()(int r, int g, int b, int x) const {
        int qr, qg, qb;
        if constexpr (Dither) {
            qr = quantiseDither<Fmt::kRBBits>(r, t56_, t4_, x);
            qg = quantiseDither<Fmt::kGBits>(g, t56_, t4_, x);
            qb = quantiseDither<Fmt::kRBBits>(b, t56_, t4_, x);
        } else {
            (void)x;
            qr = quantiseTrunc<Fmt::kRBBits>(r);
            qg = quantiseTrunc<Fmt::kGBits>(g);
            qb = quantiseTrunc<Fmt::kRBBits>(b);
        }
        return static_cast<Zor16u>((qr << Fmt::kRShift) | (qg << Fmt::kGShift) | (qb << Fmt::kBShift));
    }

private:
    const std::int32_t* t56_;
    const std::int32_t* t4_;
};

// ---------------------------------------------------------------------------
// Decoders: decode(Y, Cb, Cr) -> unclamped R, G, B on the 8-bit scale (set C
// of the packed 4:2:2 sources comes with the subsampled code).

// A 16.16 constant set of the 4:4:4 code.
template <const Decoder& K>
struct DecodeWith {
    static Rgb32 decode(int y, int cb, int cr) { return zor::decode(K, y, cb, cr); }
};

using DecodeSetA = DecodeWith<kSetA>;
using DecodeSet411 = DecodeWith<kSetARounded>;

// The decoder with four extra fraction bits (values scaled by 16 until the
// final shift): every dithered member and the plain planar members. Each
// chroma product is shifted on its own.
struct DecodeFine {
    static Rgb32 decode(int y, int cb, int cr) {
        const std::int32_t luma = asr((y - 16) * 128 * 9535, 16);
        const std::int32_t d = (cb - 128) * 128, e = (cr - 128) * 128;
        return {asr(luma + asr(e * 13074, 16), 4), asr(luma - asr(d * 3211, 16) - asr(e * 6660, 16), 4),
                asr(luma + asr(d * 16523, 16), 4)};
    }
};

// ---------------------------------------------------------------------------
// Row kernels. `row` is the row index inside the region (the dither phase);
// `width` is any pixel count.

template <class Dec, class Fmt, bool Dither>
struct PackedPixelOut {
    PackedWriter<Fmt, Dither> put;
    Zor16u* dst;
    void operator()(int x, int y, int cb, int cr) const {
        const Rgb32 c = Dec::decode(y, cb, cr);
        dst[x] = put(clampByte(c.r), clampByte(c.g), clampByte(c.b), x);
    }
};

// Interleaved Y, Cb, Cr per pixel.
template <class Dec, class Fmt, bool Dither>
void innerYCbCrToPacked16_C3R(const Zor8u* src, Zor16u* dst, int width, int row) {
    const PackedPixelOut<Dec, Fmt, Dither> out{PackedWriter<Fmt, Dither>(row), dst};
    for (int x = 0; x < width; ++x, src += 3) out(x, src[0], src[1], src[2]);
}

// Packed Y0 Cb Y1 Cr, with the chroma sharing (and last odd pixel) of the
// packed 4:2:2 decoders.
template <class Dec, class Fmt, bool Dither>
void innerYCbCr422ToPacked16_C2R(const Zor8u* src, Zor16u* dst, int width, int row) {
    forEachPacked422<OrderYCbCr>(src, width, PackedPixelOut<Dec, Fmt, Dither>{PackedWriter<Fmt, Dither>(row), dst});
}

// Planar Y, Cb, Cr where Group horizontal luma samples share one chroma
// sample (1: 4:4:4, 2: 4:2:2 and 4:2:0, 4: 4:1:1). A last incomplete group
// uses its chroma sample like a complete one.
template <int Group, class Dec, class Fmt, bool Dither>
void innerYCbCrToPacked16_P3R(const Zor8u* y, const Zor8u* cb, const Zor8u* cr, Zor16u* dst, int width, int row) {
    forEachPlanarShared<Group>(y, cb, cr, width, PackedPixelOut<Dec, Fmt, Dither>{PackedWriter<Fmt, Dither>(row), dst});
}

}  // namespace zor
