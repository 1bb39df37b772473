// Every 8u PhotoYCC, HLS and HSV vector kernel against its scalar kernel at every CPU target over all 2^24 colours of
// its source (four-plane sources: the three colour planes of the sweep plus an alpha plane).
#include "models/chosen_inputs.h"
#include "models/hls_kernels.h"
#include "models/hsv_kernels.h"
#include "models/ycc_kernels.h"

namespace {

using zor::HlsKernels;
using zor::Row3, zor::Row4, zor::RowC;

template <auto Member, int kT, class Out>
void fromThreePlanes(Row3<const Zor8u> s, Out d, int width) {
    std::vector<Zor8u> alpha(static_cast<std::size_t>(width));
    for (std::size_t i = 0; i < alpha.size(); ++i) alpha[i] = Zor8u(i * 7 + 3);
    ((zor::hlsTables()[kT] ? zor::hlsTables()[kT] : zor::hlsTables()[0])->*Member)({{s.p[0], s.p[1], s.p[2], alpha.data()}}, d, width);
}
struct FourPlanes {
    void (*toHls)(Row3<const Zor8u>, Row4<Zor8u>, int), (*toHlsC4)(Row3<const Zor8u>, RowC<Zor8u, 4>, int);
    void (*toBgr)(Row3<const Zor8u>, Row4<Zor8u>, int), (*toBgrC4)(Row3<const Zor8u>, RowC<Zor8u, 4>, int);
};
template <int kT>
constexpr FourPlanes kFour = {&fromThreePlanes<&HlsKernels::bgrToHlsAP4, kT, Row4<Zor8u>>, &fromThreePlanes<&HlsKernels::bgrToHlsAP4C4, kT, RowC<Zor8u, 4>>,
                              &fromThreePlanes<&HlsKernels::hlsToBgrAP4, kT, Row4<Zor8u>>, &fromThreePlanes<&HlsKernels::hlsToBgrAP4C4, kT, RowC<Zor8u, 4>>};
const FourPlanes* const* fourPlaneTables() {
    static const FourPlanes* const t[zor::cpu::kTargetCount] = {&kFour<0>, &kFour<1>, &kFour<2>, &kFour<3>, &kFour<4>};
    return t;
}

template <class Table, class Member>
void sweep(const Table* const* (*tables)(), Member Table::*member, const char* name) {
    SCOPED_TRACE(name);
    if constexpr (zt::hasExhaustiveDomain<Member>()) zt::expectVectorsMatchScalar(tables, member, true);
}

#define ZOR_SWEEP_HSV(name, fn, args) sweep(zor::hsvTables, &zor::HsvKernels::name, #name);
#define ZOR_SWEEP_YCC(name, fn, args) sweep(zor::yccTables, &zor::YccKernels::name, #name);
#define ZOR_SWEEP_HLS(name, fn, args) sweep(zor::hlsTables, &zor::HlsKernels::name, #name);
TEST(HueYccKernelSetsExhaustive, Hsv) { ZOR_HSV_KERNELS(ZOR_SWEEP_HSV) }
TEST(HueYccKernelSetsExhaustive, Ycc) { ZOR_YCC_KERNELS(ZOR_SWEEP_YCC) }
TEST(HueYccKernelSetsExhaustive, Hls) {
    ZOR_HLS_KERNELS(ZOR_SWEEP_HLS)
    for (auto m : {&FourPlanes::toHls, &FourPlanes::toBgr}) sweep(fourPlaneTables, m, "four planes");
    for (auto m : {&FourPlanes::toHlsC4, &FourPlanes::toBgrC4}) sweep(fourPlaneTables, m, "four planes to C4");
}

}  // namespace
