// The packed 16-bit output kernels of 4:4:4 sources (one input row of three
// bytes per pixel) against their scalar kernels at every CPU target, over
// every input; the dithered ones at each of the four dither rows.
#include "support/kernel_harness.h"
#include "video/packed16.h"

namespace {

template <class Fn>
void sweep(Fn zor::Packed16Kernels::*member) {
    if (!zt::hasExhaustiveDomain<Fn>()) GTEST_SKIP();
    using Extras = typename zt::detail::Signature<Fn>::Extras;
    if constexpr (std::tuple_size_v<Extras> == 0) {
        zt::expectVectorsMatchScalar(zor::packed16Tables, member, true);
    } else {
        for (int y = 0; y < 4; ++y)
            zt::expectVectorsMatchScalar(zor::packed16Tables, member, true, [y](std::mt19937&) { return Extras{y}; });
    }
}

#define ZOR_SHAPE_TEST(name, fn, args) \
    TEST(Packed16KernelSetsExhaustive, name) { sweep(&zor::Packed16Kernels::name); }
ZOR_PACKED16_KERNELS(ZOR_SHAPE_TEST)

}  // namespace
