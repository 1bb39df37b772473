// Every 8u PhotoYCC, HLS and HSV vector kernel against its scalar kernel at
// every CPU target over all 2^24 colours of its source (four-plane sources:
// the three colour planes of the sweep plus an alpha plane).
#include "models/chosen_inputs.h"
#include "models/hls_kernels.h"
#include "models/hsv_kernels.h"
#include "models/ycc_kernels.h"

namespace {

using zor::HlsKernels;
using U8 = Zor8u;

template <auto Member, int kT, class Out>
void fromThreePlanes(zor::Row3<const U8> s, Out d, int width) {
    std::vector<U8> alpha(static_cast<std::size_t>(width));
    for (std::size_t i = 0; i < alpha.size(); ++i) alpha[i] = U8(i * 7 + 3);
    const HlsKernels* t = zor::hlsTables()[kT] ? zor::hlsTables()[kT] : zor::hlsTables()[0];
    (t->*Member)({{s.p[0], s.p[1], s.p[2], alpha.data()}}, d, width);
}

struct FourPlanes {
    void (*bgrToHlsAP4)(zor::Row3<const U8>, zor::Row4<U8>, int);
    void (*bgrToHlsAP4C4)(zor::Row3<const U8>, zor::RowC<U8, 4>, int);
    void (*hlsToBgrAP4)(zor::Row3<const U8>, zor::Row4<U8>, int);
    void (*hlsToBgrAP4C4)(zor::Row3<const U8>, zor::RowC<U8, 4>, int);
};
template <int kT>
constexpr FourPlanes kFour = {&fromThreePlanes<&HlsKernels::bgrToHlsAP4, kT, zor::Row4<U8>>,
                              &fromThreePlanes<&HlsKernels::bgrToHlsAP4C4, kT, zor::RowC<U8, 4>>,
                              &fromThreePlanes<&HlsKernels::hlsToBgrAP4, kT, zor::Row4<U8>>,
                              &fromThreePlanes<&HlsKernels::hlsToBgrAP4C4, kT, zor::RowC<U8, 4>>};
const FourPlanes* const* fourPlaneTables() {
    static const FourPlanes* const t[zor::cpu::kTargetCount] = {&kFour<0>, &kFour<1>, &kFour<2>, &kFour<3>, &kFour<4>};
    return t;
}

template <class Table, class Member>
void sweep(const Table* const* (*tables)(), Member Table::*member) {
    if constexpr (zt::hasExhaustiveDomain<Member>()) zt::expectVectorsMatchScalar(tables, member, true);
}

TEST(HueYccKernelSetsExhaustive, Hsv) {
#define X(name, fn, args) { SCOPED_TRACE(#name); sweep(zor::hsvTables, &zor::HsvKernels::name); }
    ZOR_HSV_KERNELS(X)
#undef X
}
TEST(HueYccKernelSetsExhaustive, Ycc) {
#define X(name, fn, args) { SCOPED_TRACE(#name); sweep(zor::yccTables, &zor::YccKernels::name); }
    ZOR_YCC_KERNELS(X)
#undef X
}
TEST(HueYccKernelSetsExhaustive, Hls) {
#define X(name, fn, args) { SCOPED_TRACE(#name); sweep(zor::hlsTables, &zor::HlsKernels::name); }
    ZOR_HLS_KERNELS(X)
#undef X
    for (auto member : {&FourPlanes::bgrToHlsAP4, &FourPlanes::hlsToBgrAP4}) sweep(fourPlaneTables, member);
    for (auto member : {&FourPlanes::bgrToHlsAP4C4, &FourPlanes::hlsToBgrAP4C4}) sweep(fourPlaneTables, member);
}

}  // namespace
