// The float lanes of the vector kernels that compute in float (included once
// per target, after hwy/foreach_target.h): floats and the 32-bit integers of
// the same width, with their masks.
#if defined(ZOR_CORE_LANES_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef ZOR_CORE_LANES_INL_H_
#undef ZOR_CORE_LANES_INL_H_
#else
#define ZOR_CORE_LANES_INL_H_
#endif

#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR
using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using MF = hn::Mask<DF>;
using DI = hn::RebindToSigned<DF>;
using VI = hn::Vec<DI>;
using MI = hn::Mask<DI>;
#endif

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#endif  // per-target include guard
