// Bit-depth reduction: plain quantisation, error diffusion or ordered
// dither to a number of levels per channel, optionally with noise.
#include "ops.h"

#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);

ZorDitherType methodOf(const std::string& m) {
    if (m == "none") return zorDitherNone;
    if (m == "fs") return zorDitherFS;
    if (m == "jjn") return zorDitherJJN;
    if (m == "stucki") return zorDitherStucki;
    if (m == "bayer") return zorDitherBayer;
    throw std::runtime_error("unknown --method '" + m + "' (use none|fs|jjn|stucki|bayer)");
}

template <typename S, typename D>
using ReduceFn = ZorStatus (*)(const S*, int, D*, int, ZoriSize, int, ZorDitherType, int);

// The members of one type pair by layout: C1, C3, AC4.
template <typename S, typename D>
struct Family {
    ReduceFn<S, D> c1, c3, ac4;
    const char* names[3];
};

const Family<Zor8u, Zor8u> k8u{zoriReduceBits_8u_C1R, zoriReduceBits_8u_C3R, zoriReduceBits_8u_AC4R,
                               {"zoriReduceBits_8u_C1R", "zoriReduceBits_8u_C3R", "zoriReduceBits_8u_AC4R"}};
const Family<Zor16u, Zor16u> k16u{zoriReduceBits_16u_C1R, zoriReduceBits_16u_C3R, zoriReduceBits_16u_AC4R,
                                  {"zoriReduceBits_16u_C1R", "zoriReduceBits_16u_C3R", "zoriReduceBits_16u_AC4R"}};
const Family<Zor16u, Zor8u> k16u8u{zoriReduceBits_16u8u_C1R, zoriReduceBits_16u8u_C3R, zoriReduceBits_16u8u_AC4R,
                                   {"zoriReduceBits_16u8u_C1R", "zoriReduceBits_16u8u_C3R", "zoriReduceBits_16u8u_AC4R"}};

// Gray and RGB go through C1 and C3; RGBA through AC4 with the alpha copied
// beforehand (AC4 neither reads nor writes it); gray + alpha as RGBA.
template <typename S, typename D>
Raster<D> reduce(const Raster<S>& in, const Family<S, D>& fam, const OpOptions& o) {
    Raster<S> src = in;
    if (src.channels == 2) {
        Raster<S> rgba(src.width, src.height, 4);
        for (std::size_t i = 0, n = static_cast<std::size_t>(src.width) * src.height; i < n; ++i) {
            rgba.pixels[4 * i] = rgba.pixels[4 * i + 1] = rgba.pixels[4 * i + 2] = src.pixels[2 * i];
            rgba.pixels[4 * i + 3] = src.pixels[2 * i + 1];
        }
        src = std::move(rgba);
    }
    Raster<D> dst(src.width, src.height, src.channels);
    int which = src.channels == 1 ? 0 : src.channels == 3 ? 1 : 2;
    if (which == 2)
        for (std::size_t i = 3; i < dst.pixels.size(); i += 4)
            dst.pixels[i] = static_cast<D>(sizeof(S) > sizeof(D) ? src.pixels[i] >> 8 : src.pixels[i]);
    const ReduceFn<S, D> fn = which == 0 ? fam.c1 : which == 1 ? fam.c3 : fam.ac4;
    check(fn(src.data(), src.step(), dst.data(), dst.step(), roiOf(src.width, src.height), o.noise, methodOf(o.method),
             o.levels),
          fam.names[which]);
    return dst;
}

Data reduceOp(const Data& in, const OpOptions& o) {
    if (o.bits != 0 && o.bits != 8 && o.bits != 16) throw std::runtime_error("--bits takes 8 or 16");
    const Picture& p = in.image;
    if (p.depth == 8) {
        if (o.bits == 16) throw std::runtime_error("reduce writes 8-bit samples from an 8-bit input (--bits 16 needs a 16-bit input)");
        return Data(Picture(reduce(p.i8, k8u, o)));
    }
    if (o.bits == 8) return Data(Picture(reduce(p.i16, k16u8u, o)));
    return Data(Picture(reduce(p.i16, k16u, o)));
}

}  // namespace

void addReduceOps(std::vector<Op>& ops) {
    std::vector<std::string> fns;
    for (const char* n : k8u.names) fns.push_back(n);
    for (const char* n : k16u.names) fns.push_back(n);
    for (const char* n : k16u8u.names) fns.push_back(std::string(n) + " (16-bit input, --bits 8)");
    ops.push_back({"reduce", "reducebits",
                   "bit-depth reduction to --levels per channel by --method none|fs|jjn|stucki|bayer, --noise 0..100",
                   fns, kImage, Kind::Image, reduceOp});
}

}  // namespace zorcc_tool
