// Calls any exported image function from its description (core/describe.h)
// with buffers of exactly the size its arguments address, and checks what a
// call may not do: write outside the region (row padding, the alpha of an
// AC4 output), change a source, or write anything when it fails.
//
// A Call is built from a function, a size and a stream of choices (the
// fuzzer's input, or a seeded generator in the tests): per image the step
// (exact, padded, negative from the last row, zero), the sample values, the
// function's values (with NaN and infinities for floats, out-of-range
// integers) and now and then a null pointer.
#pragma once

#include "core/describe.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zt {

// Choices taken from a byte string; zeros once it runs out.
class Choices {
public:
    Choices(const std::uint8_t* p, std::size_t n) : p_(p), n_(n) {}
    std::uint32_t take(std::uint32_t range);  // in [0, range)
    std::uint32_t word();
    bool empty() const { return n_ == 0; }

private:
    const std::uint8_t* p_;
    std::size_t n_;
};

enum class StepMode { Exact, Padded, Negative, Zero };

// One plane of one image argument.
struct Plane {
    std::vector<std::uint8_t> bytes;  // exactly what the rows address
    // Planes above kBig bytes (huge steps) are mapped memory, untouched
    // pages of which cost nothing; they are not checked byte by byte.
    static constexpr std::size_t kBig = std::size_t{1} << 28;
    std::shared_ptr<std::uint8_t> big;
    std::uint8_t* data() { return big ? big.get() : bytes.data(); }
    const std::uint8_t* data() const { return big ? big.get() : bytes.data(); }
    std::ptrdiff_t first = 0;         // offset of row 0
    std::ptrdiff_t step = 0;  // as passed
    std::ptrdiff_t eff = 0;   // as used: whole samples where the step policy says so
    std::ptrdiff_t rowBytes = 0;
    int rows = 0;
    bool written = false;            // an output (or in-place) plane
    bool floats = false;             // 32-bit float samples
    std::vector<std::uint8_t> mask;  // written planes: 1 where the call may write
};

class Call {
public:
    // Exact steps, random samples, ordinary values.
    Call(const zor::describe::Function& f, ZoriSize roi, std::uint32_t seed = 1);
    // Steps, values and null pointers as the choices say.
    Call(const zor::describe::Function& f, ZoriSize roi, Choices& c);

    ZorStatus run();
    // Empty when this call (after run(), which returned st) did only what it
    // may relative to `before` (the same call before it ran); else what it did.
    std::string verify(const Call& before, ZorStatus st) const;
    // Index of the first plane whose bytes differ from o's, or -1. Two NaNs
    // of a float plane count as equal whatever their sign and payload.
    int firstDifferentPlane(const Call& o) const;

    const zor::describe::Function& function() const { return *fn_; }
    std::vector<Plane>& planes() { return planes_; }
    const std::vector<Plane>& planes() const { return planes_; }
    // Sets every step to mode (images with steps only); the rows keep their
    // samples.
    void setSteps(StepMode mode, int pad);
    // Sets the value argument of that C name (integer or float).
    void setValue(const std::string& name, long long v);
    // Passes another size with the same buffers.
    void setRoi(ZoriSize roi);
    // Nulls the last plane pointer of every plane array; false if none.
    bool nullPlanes();
    // Whether the rows of every written plane hold the same bytes as o's.
    bool sameRows(const Call& o) const;
    std::string describeArgs() const;

private:
    struct Image {
        std::size_t param;  // index in the function's parameters
        int firstPlane, planeCount;
        int nullWhat = 0;   // 0 none, 1 outer pointer, 2 plane pointer
        StepMode mode = StepMode::Exact;
        int pad = 0;
        int stepArray[3] = {0, 0, 0};
        void* planePtrs[4] = {nullptr, nullptr, nullptr, nullptr};
    };
    void build(std::uint32_t seed, Choices* c);
    void layout(Image& im, StepMode mode, int pad);
    void relayout();  // every image again, keeping the rows' samples

    const zor::describe::Function* fn_;
    ZoriSize roi_;
    std::vector<Plane> planes_;
    std::vector<Image> images_;
    std::vector<zor::describe::Arg> values_;   // per parameter (values and pointers)
    std::vector<std::vector<std::uint8_t>> pointees_;  // per parameter: pointer contents
    std::vector<bool> nullPointer_;
    bool wholeSamples_ = false;  // every step in whole samples (ReduceBits dithering)
};

}  // namespace zt
