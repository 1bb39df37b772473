// Vector kernels of the 4:4:4 conversions, compiled once per CPU target.
// Every kernel computes exactly what its scalar kernel
// (video/ycbcr444_kernels.h) computes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "video/ycbcr444_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "video/vec-inl.h"
#include "video/ycbcr444_kernels.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// The scalar target of Highway keeps the scalar kernels (found in zor::).
#if HWY_TARGET != HWY_SCALAR

template <class S, class D>
void encode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 r, g, b;
        VecPix<S>::load(d8, s, i, r, g, b);
        V16 yL, cbL, crL, yU, cbU, crU;
        encodeHalf(lowerTo16(r), lowerTo16(g), lowerTo16(b), yL, cbL, crL);
        encodeHalf(upperTo16(r), upperTo16(g), upperTo16(b), yU, cbU, crU);
        VecPix<D>::store(d8, d, i, to8(yL, yU), to8(cbL, cbU), to8(crL, crU), hn::Zero(d8));
    }
    ::zor::encode444<S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i));
}

template <const Decoder& K, class S, class D, class... Fill>
void decode444(RowOf<S, const Zor8u> s, RowOf<D, Zor8u> d, int width, Fill... fill) {
    const D8 d8;
    const std::size_t n = hn::Lanes(d8);
    V8 alpha = hn::Zero(d8);
    ((alpha = hn::Set(d8, fill)), ...);
    std::size_t i = 0;
    for (; i + n <= static_cast<std::size_t>(width); i += n) {
        V8 y, u, v;
        VecPix<S>::load(d8, s, i, y, u, v);
        V16 rL, gL, bL, rU, gU, bU;
        decodeHalf<K>(lowerTo16(y), lowerTo16(u), lowerTo16(v), rL, gL, bL);
        decodeHalf<K>(upperTo16(y), upperTo16(u), upperTo16(v), rU, gU, bU);
        VecPix<D>::store(d8, d, i, to8(rL, rU), to8(gL, gU), to8(bL, bU), alpha);
    }
    ::zor::decode444<K, S, D>(S::advance(s, i), D::advance(d, i), width - static_cast<int>(i), fill...);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

HWY_MAYBE_UNUSED constexpr YCbCr444Kernels kYCbCr444Vector = {ZOR_YCBCR444_KERNELS(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(YCbCr444Kernels, kYCbCr444Vector, ycbcr444Tables, kYCbCr444Scalar)
}  // namespace zor
#endif
