// The biased truncation trunc(p + 0.000009) of the bit-depth reduction in
// float lanes (included once per target, after hwy/foreach_target.h).
//
// The one step that the scalar kernels take in double precision is the
// biased truncation trunc(p + 0.000009) of a float p (the level index, and
// the level value of the 16-bit and 32f paths). For 0 <= p < 2^23 it is
// found in float: with k = trunc(p), the biased value reaches k + 1 exactly
// when (k + 1) - p <= 0.000009. (k + 1) - p is exact (Sterbenz, p >= 0.5
// whenever the test can pass), and the double sum cannot round across the
// integer: the distance from p + 0.000009 to k + 1 is a multiple of the float
// spacing at p minus 0.000009, which stays far above half the double spacing
// at k + 1 for every exponent of p in range.
#if defined(ZOR_REDUCEBITS_BIAS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_REDUCEBITS_BIAS_INL_H_
#undef ZOR_REDUCEBITS_BIAS_INL_H_
#else
#define ZOR_REDUCEBITS_BIAS_INL_H_
#endif

#include "core/lanes-inl.h"
#include "hwy/highway.h"
#include "reducebits/reducebits.h"

#include <cmath>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

// The largest float not above the double 0.000009.
inline float biasBelow() {
    const float f = static_cast<float>(kLevelBias);
    return static_cast<double>(f) > kLevelBias ? std::nextafter(f, 0.0f) : f;
}

// trunc(p + 0.000009) as the scalar kernels take it in double, for lanes
// with 0 <= p < 2^23, as a float.
HWY_INLINE VF truncBiasedF(VF p, VF bias) {
    const DF df;
    const VF k = hn::Floor(p), next = hn::Add(k, hn::Set(df, 1.0f));
    return hn::IfThenElse(hn::Le(hn::Sub(next, p), bias), next, k);
}

// The same as an integer.
HWY_INLINE VI truncBiased(VF p, VF bias) { return hn::ConvertTo(DI(), truncBiasedF(p, bias)); }

#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // per-target include guard
