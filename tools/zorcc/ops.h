// The conversions of `zorcc convert`: a table of operations, each a few
// lines over the library, independent of the file formats.
#pragma once

#include "yuv_io.h"

#include "zorcc.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace zorcc_tool {

// Options that the operations read (from the command line of `convert`).
struct OpOptions {
    std::string to;                  // destination YUV layout (encode, relayout)
    std::string matrix;              // colour twist: 12 numbers, rows separated by ';' or ','
    std::string weights;             // gray weights "wr,wg,wb"
    std::string method = "fs";       // bit reduction: none|fs|jjn|stucki|bayer
    int levels = 4;                  // bit reduction: output levels per channel
    int noise = 0;                   // bit reduction: 0..100
    bool dither = false;             // packed 16-bit output: 4x4 ordered dither
    int bits = 0;                    // 8 or 16: sample depth of the result where an op offers both
    bool reversible = false;         // YCoCg: lifting (lossless) form
};

// What an op makes of the colour range and the chroma siting of YCbCr
// frames, for the checks and the Y4M header of a chain.
enum class RangeUse {
    None,          // the result is no YCbCr of a known range
    Keeps,         // samples moved or filtered: range and siting as they were
    ReadsStudio,   // takes YCbCr frames as studio range (refuses full range)
    WritesStudio,  // writes studio-range YCbCr
};

// The buffers of one op of a chain, kept from frame to frame: its result
// and its scratch frames and images. Each is reshaped in place, so a run
// over frames of one shape allocates them once.
struct Work {
    Data out;
    std::array<YuvFrame, 2> frames;
    std::array<Image8, 2> images;  // images[1] holds what rgb8Of converts
    Image16 image16;
    std::vector<Zor16s> codes;

    YuvFrame& frame(std::size_t slot, YuvFormat f, int w, int h) {
        frames[slot].reshape(f, w, h);
        return frames[slot];
    }
    Image8& image(std::size_t slot, int w, int h, int c) {
        images[slot].reshape(w, h, c);
        return images[slot];
    }
    YuvFrame& outFrame(YuvFormat f, int w, int h) {
        out.kind = Kind::Yuv;
        out.yuv.reshape(f, w, h);
        return out.yuv;
    }
    Image8& outImage(int w, int h, int c) {
        out.kind = Kind::Image;
        out.image.depth = 8;
        out.image.i8.reshape(w, h, c);
        return out.image.i8;
    }
    Image16& outImage16(int w, int h, int c) {
        out.kind = Kind::Image;
        out.image.depth = 16;
        out.image.i16.reshape(w, h, c);
        return out.image.i16;
    }
    Packed16& outPacked(const std::string& f, int w, int h) {
        out.kind = Kind::Packed;
        out.packed.reshape(f, w, h);
        return out.packed;
    }
};

struct Op {
    std::string name;
    std::string family;
    std::string description;
    std::vector<std::string> functions;  // library functions called
    int inKinds;                         // bit set of Kind values accepted
    Kind outKind;
    // Converts `in` into work.out.
    std::function<void(const Data& in, Work& work, const OpOptions&)> run;
    RangeUse range = RangeUse::None;
    bool progressive = false;  // the result is progressive video
};

// Every op, in the order `zorcc list` shows them.
const std::vector<Op>& allOps();
// The op of that name, or nullptr.
const Op* findOp(const std::string& name);

// Families register their ops here (one function per family).
void addVideoOps(std::vector<Op>& ops);
void addPackedOps(std::vector<Op>& ops);
void addChromaOps(std::vector<Op>& ops);
void addModelOps(std::vector<Op>& ops);
void addTwistOps(std::vector<Op>& ops);
void addReduceOps(std::vector<Op>& ops);
void addYCoCgOps(std::vector<Op>& ops);

// Helpers shared by the ops.

// Throws std::runtime_error naming the function and the status when a call
// fails; warnings (positive statuses) are accepted.
void check(ZorStatus st, const char* function);
#define ZORCC_CALL(call) ::zorcc_tool::check(call, #call)

inline ZoriSize roiOf(int w, int h) { return ZoriSize{w, h}; }

// The input as an 8-bit (16-bit) RGB image: the input itself when it is
// one, else converted into the work's scratch image (gray replicated, alpha
// dropped, samples narrowed or widened).
const Image8& rgb8Of(const Data& in, Work& w);
const Image16& rgb16Of(const Data& in, Work& w);
// R and B swapped in place (RGB <-> BGR, three channels).
template <typename T>
void swapRB(Raster<T>& img) {
    for (std::size_t i = 0; i + 2 < img.pixels.size(); i += static_cast<std::size_t>(img.channels))
        std::swap(img.pixels[i], img.pixels[i + 2]);
}

// A dither method by name: none|fs|jjn|stucki|bayer.
ZorDitherType ditherOf(const std::string& name);

// Destination layout from --to (default `fallback`).
YuvFormat targetFormat(const OpOptions& o, YuvFormat fallback);

// Plane pointer and step arrays of a planar frame.
struct Planes {
    std::array<const Zor8u*, 3> src{};
    std::array<Zor8u*, 3> dst{};
    std::array<int, 3> step{};
};
Planes planesOf(YuvFrame& f);
Planes planesOf(const YuvFrame& f);

}  // namespace zorcc_tool
