// Exhaustive sweeps of the bit-depth reduction: the ordered dither vector kernels over every 8u RGB triple and every
// 16-bit sample at every CPU target, and the per-call tables of plain quantisation over every sample at every level
// count of 8u sources and at every 8-bit level count (plus the 16-bit ends) of 16-bit sources.
#include "reducebits/kernels.h"
#include "support/kernel_harness.h"

#include <vector>

namespace {
using namespace zor;

template <class Tr>
auto fixedBayer(int m, int y) {
    return [m, y](std::mt19937&) {
        const Quant q = Tr::quant(m);
        return std::make_tuple(y, q, BayerMatrix(q.step));
    };
}

TEST(ReduceBitsKernelSetsExhaustive, OrderedDither) {
    for (int m : {1, 7, 41, 255}) {
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer8uC3, true, fixedBayer<Rb8u>(m, m & 3));
        for (int mw : {m, 1000, 65535}) {
            zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16uC1, true, fixedBayer<Rb16u>(mw, 1));
            zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16sC1, true, fixedBayer<Rb16s>(mw, 2));
        }
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16u8uC1, true, fixedBayer<Rb16u8u>(m, 3));
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16s8uC1, true, fixedBayer<Rb16s8u>(m, 0));
    }
}

// The table path of the exported functions against the scalar kernel, one row holding every sample.
template <class Tr>
void expectTableMatchesScalar(ZorStatus (*fn)(const typename Tr::Src*, int, typename Tr::Dst*, int, ZoriSize, int,
                                              ZorDitherType, int),
                              const std::vector<int>& levels) {
    using S = typename Tr::Src;
    using D = typename Tr::Dst;
    const int n = kPlainTableSize<Tr>;
    std::vector<S> src(n);
    for (int u = 0; u < n; ++u) src[u] = static_cast<S>(Offset16<S>::out(u));
    std::vector<D> got(n), want(n);
    for (int lv : levels) {
        ASSERT_EQ(fn(src.data(), 0, got.data(), 0, {n, 1}, 0, zorDitherNone, lv), zorStsOk);
        plainRow<Tr, 1, 1>({src.data()}, {want.data()}, n, lv - 1);
        ASSERT_TRUE(got == want) << lv;
    }
}

TEST(ReduceBitsPlainExhaustive, TablesMatchTheScalarRule) {
    std::vector<int> levels;
    for (int lv = 2; lv <= 256; ++lv) levels.push_back(lv);
    expectTableMatchesScalar<Rb8u>(zoriReduceBits_8u_C1R, levels);
    expectTableMatchesScalar<Rb16u8u>(zoriReduceBits_16u8u_C1R, levels);
    expectTableMatchesScalar<Rb16s8u>(zoriReduceBits_16s8u_C1R, levels);
    levels.insert(levels.end(), {257, 1000, 4097, 65535, 65536});
    expectTableMatchesScalar<Rb16u>(zoriReduceBits_16u_C1R, levels);
    expectTableMatchesScalar<Rb16s>(zoriReduceBits_16s_C1R, levels);
}

}  // namespace
