// Exhaustive: ordered dither kernels over every 8u triple, 8u sample (every m) and 16-bit sample at every target (m =
// 60909: one of two 16-bit m whose levels need the bias); plain kernels and tables over every sample at every 8-bit m.
#include "reducebits/kernels.h"
#include "support/kernel_harness.h"

#include <cstring>
#include <numeric>

namespace {
using namespace zor;

template <class Tr>
auto fixedBayer(int m, int y) {
    return [m, y](std::mt19937&) { return std::make_tuple(y, Tr::quant(m), BayerMatrix(Tr::quant(m).step)); };
}

// Every byte in one C1 row at every target (the harness sweeps bytes three to a pixel).
template <class Fn, class... X>
void expectEveryByte(Fn RbKernels::*member, X... extras) {
    Zor8u src[256], want[256], got[256];
    std::iota(src, src + 256, 0), (rbTables()[cpu::kScalar]->*member)({src}, {want}, 256, extras...);
    for (cpu::Target t : zt::vectorTargets()) {
        ((rbTables()[t] ? rbTables()[t] : rbTables()[cpu::kScalar])->*member)({src}, {got}, 256, extras...);
        ASSERT_EQ(std::memcmp(got, want, 256), 0) << cpu::name(t);
    }
}

TEST(ReduceBitsKernelSetsExhaustive, OrderedDither) {
    for (int m : {1, 7, 41, 255}) {
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer8uC3, true, fixedBayer<Rb8u>(m, m & 3));
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16u8uC1, true, fixedBayer<Rb16u8u>(m, 3));
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16s8uC1, true, fixedBayer<Rb16s8u>(m, 0));
        for (int mw : {m, 60909, 65535}) zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16uC1, true, fixedBayer<Rb16u>(mw, 1));
        for (int mw : {m, 60909, 65535}) zt::expectVectorsMatchScalar(rbTables, &RbKernels::bayer16sC1, true, fixedBayer<Rb16s>(mw, 2));
    }
    for (int m = 1; m < 256; ++m)  // 8u: every sample, level count and matrix entry
        for (int y = 0; y < 4; ++y) expectEveryByte(&RbKernels::bayer8uC1, y, Rb8u::quant(m), BayerMatrix(Rb8u::quant(m).step));
}

// The vector kernels of plain quantisation: every sample at every 8-bit level count, 16-bit ones at a spread.
TEST(ReduceBitsKernelSetsExhaustive, Plain) {
    Zor8u table[256];
    std::vector<int> ms(255);
    std::iota(ms.begin(), ms.end(), 1), ms.insert(ms.end(), {256, 4079, 60909, 65534, 65535});
    for (int m : ms) {
        const auto fixed = [m](std::mt19937&) { return std::make_tuple(m); };
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::plain16uC1, true, fixed);
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::plain16sC1, true, fixed);
        if (m > 255) continue;
        fillPlainTable<Rb8u>(table, m);
        expectEveryByte(&RbKernels::plainTable8uC1, static_cast<const Zor8u*>(table));
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::plain16u8uC1, true, fixed);
        zt::expectVectorsMatchScalar(rbTables, &RbKernels::plain16s8uC1, true, fixed);
    }
}

template <class Tr, class Fn>
void expectTableMatchesScalar(Fn fn, int maxLevels) {
    using S = typename Tr::Src;
    const int n = kPlainTableSize<Tr>;
    std::vector<S> src(n);
    for (int u = 0; u < n; ++u) src[u] = static_cast<S>(Offset16<S>::out(u));
    std::vector<typename Tr::Dst> got(n), want(n);
    for (int lv = 2; lv <= maxLevels; lv = lv < 256 ? lv + 1 : lv == 65536 ? 65537 : std::min(lv * 2 - 1, 65536)) {
        ASSERT_EQ(fn(src.data(), 0, got.data(), 0, {n, 1}, 0, zorDitherNone, lv), zorStsOk);
        plainRow<Tr, 1, 1>({src.data()}, {want.data()}, n, lv - 1);
        ASSERT_TRUE(got == want) << lv;
    }
}

TEST(ReduceBitsPlainExhaustive, TablesMatchTheScalarRule) {
    expectTableMatchesScalar<Rb8u>(zoriReduceBits_8u_C1R, 256);
    expectTableMatchesScalar<Rb16u8u>(zoriReduceBits_16u8u_C1R, 256);
    expectTableMatchesScalar<Rb16s8u>(zoriReduceBits_16s8u_C1R, 256);
    expectTableMatchesScalar<Rb16u>(zoriReduceBits_16u_C1R, 65536);
    expectTableMatchesScalar<Rb16s>(zoriReduceBits_16s_C1R, 65536);
}

}  // namespace
