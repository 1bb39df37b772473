// Bit-depth reduction: plain quantisation, error diffusion or ordered
// dither to a number of levels per channel, optionally with noise.
#include "ops.h"

#include <stdexcept>

namespace zorcc_tool {

namespace {

constexpr int kImage = static_cast<int>(Kind::Image);

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
void reduce(const Raster<S>& in, Raster<D>& dst, Raster<S>& scratch, const Family<S, D>& fam, const OpOptions& o) {
    const Raster<S>* src = &in;
    if (in.channels == 2) {
        scratch.reshape(in.width, in.height, 4);
        for (std::size_t i = 0, n = static_cast<std::size_t>(in.width) * in.height; i < n; ++i) {
            scratch.pixels[4 * i] = scratch.pixels[4 * i + 1] = scratch.pixels[4 * i + 2] = in.pixels[2 * i];
            scratch.pixels[4 * i + 3] = in.pixels[2 * i + 1];
        }
        src = &scratch;
    }
    dst.reshape(src->width, src->height, src->channels);
    const int which = src->channels == 1 ? 0 : src->channels == 3 ? 1 : 2;
    if (which == 2)
        for (std::size_t i = 3; i < dst.pixels.size(); i += 4)
            dst.pixels[i] = static_cast<D>(sizeof(S) > sizeof(D) ? src->pixels[i] >> 8 : src->pixels[i]);
    const ReduceFn<S, D> fn = which == 0 ? fam.c1 : which == 1 ? fam.c3 : fam.ac4;
    check(fn(src->data(), src->step(), dst.data(), dst.step(), roiOf(src->width, src->height), o.noise, ditherOf(o.method),
             o.levels),
          fam.names[which]);
}

void reduceOp(const Data& in, Work& w, const OpOptions& o) {
    if (o.bits != 0 && o.bits != 8 && o.bits != 16) throw std::runtime_error("--bits takes 8 or 16");
    const Picture& p = in.image;
    if (p.depth == 8) {
        if (o.bits == 16) throw std::runtime_error("reduce writes 8-bit samples from an 8-bit input (--bits 16 needs a 16-bit input)");
        reduce(p.i8, w.outImage(p.width(), p.height(), 1), w.images[0], k8u, o);
    } else if (o.bits == 8) {
        reduce(p.i16, w.outImage(p.width(), p.height(), 1), w.image16, k16u8u, o);
    } else {
        reduce(p.i16, w.outImage16(p.width(), p.height(), 1), w.image16, k16u, o);
    }
}

}  // namespace

ZorDitherType ditherOf(const std::string& m) {
    if (m == "none") return zorDitherNone;
    if (m == "fs") return zorDitherFS;
    if (m == "jjn") return zorDitherJJN;
    if (m == "stucki") return zorDitherStucki;
    if (m == "bayer") return zorDitherBayer;
    throw std::runtime_error("unknown dither method '" + m + "' (use none|fs|jjn|stucki|bayer)");
}

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
