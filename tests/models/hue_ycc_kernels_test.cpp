// Every PhotoYCC, HLS and HSV vector kernel against its scalar kernel at
// every CPU target: random rows of every width 1..300 (row ends against a
// guard page), then the same rows turned into chosen pixels (edges, ties,
// float special values). Also every team size on rows long enough for
// whole vectors.
#include "models/chosen_inputs.h"
#include "models/hls_kernels.h"
#include "models/hsv_kernels.h"
#include "models/model_kit.h"
#include "models/ycc_kernels.h"

namespace {

MT_CHOSEN_TABLES(zor::HsvKernels, ZOR_HSV_KERNELS, zor::hsvTables, hsvChosen)

#define ZOR_HSV_TEST(name, fn, args)                                          \
    TEST(HsvKernelSets, name) {                                               \
        zt::expectVectorsMatchScalar(hsvChosen<false>, &zor::HsvKernels::name); \
        zt::expectVectorsMatchScalar(hsvChosen<true>, &zor::HsvKernels::name);    \
    }
ZOR_HSV_KERNELS(ZOR_HSV_TEST)

MT_CHOSEN_TABLES(zor::HlsKernels, ZOR_HLS_KERNELS, zor::hlsTables, hlsChosen)

#define ZOR_HLS_TEST(name, fn, args)                                            \
    TEST(HlsKernelSets, name) {                                                 \
        zt::expectVectorsMatchScalar(hlsChosen<false>, &zor::HlsKernels::name); \
        zt::expectVectorsMatchScalar(hlsChosen<true>, &zor::HlsKernels::name);  \
    }
ZOR_HLS_KERNELS(ZOR_HLS_TEST)

MT_CHOSEN_TABLES(zor::YccKernels, ZOR_YCC_KERNELS, zor::yccTables, yccChosen)

#define ZOR_YCC_TEST(name, fn, args)                                          \
    TEST(YccKernelSets, name) {                                               \
        zt::expectVectorsMatchScalar(yccChosen<false>, &zor::YccKernels::name); \
        zt::expectVectorsMatchScalar(yccChosen<true>, &zor::YccKernels::name);    \
    }
ZOR_YCC_KERNELS(ZOR_YCC_TEST)

}  // namespace

namespace {

// Team sizes 1 to 4 and a nested region, on rows of whole vectors and a tail
// at every target.
TEST(HueYccMembers, SameResultForEveryTeamSize) {
    for (const mk::Member& m : mk::members()) {
        const std::string name = m.name;
        if (name.find("YCC") == std::string::npos && name.find("HLS") == std::string::npos &&
            name.find("HSV") == std::string::npos)
            continue;
        SCOPED_TRACE(m.name);
        zt::Image<Zor8u> src = mk::source(m, 45, 23, 3);
        zt::expectTeamIndependent<zt::Image<Zor8u>>(
            [&] { return mk::image(45, 23, m.ch, m.dstSize, 5); },
            [&](zt::Image<Zor8u>& d) { ASSERT_EQ(m.fn(src.data(), src.step(), d.data(), d.step(), {45, 23}), zorStsOk); });
    }
}

}  // namespace

namespace {

// Every 16-bit code in every channel (pixel v holds v, v ^ 0x5555 and
// 65535 - v): the vector kernels turn codes into floats without dividing.
template <class Table, class T, int N>
void expectEveryCode(const Table* const* (*tables)(), void (*Table::*member)(zor::RowC<const T, N>, zor::RowC<T, N>, int)) {
    std::vector<T> src(3 * 65536), want(src.size()), got(src.size());
    for (int v = 0; v < 65536; ++v) src[3 * v] = T(v), src[3 * v + 1] = T(v ^ 0x5555), src[3 * v + 2] = T(65535 - v);
    (tables()[zor::cpu::kScalar]->*member)({src.data()}, {want.data()}, 65536);
    for (zor::cpu::Target t : zt::vectorTargets()) {
        if (!tables()[t]) continue;
        (tables()[t]->*member)({src.data()}, {got.data()}, 65536);
        EXPECT_TRUE(got == want) << zor::cpu::name(t);
    }
}

TEST(HueYccKernelSets, EverySixteenBitCode) {
    for (auto m : {&zor::HlsKernels::toHls16uC3, &zor::HlsKernels::toRgb16uC3}) expectEveryCode(zor::hlsTables, m);
    for (auto m : {&zor::HlsKernels::toHls16sC3, &zor::HlsKernels::toRgb16sC3}) expectEveryCode(zor::hlsTables, m);
    for (auto m : {&zor::HsvKernels::toHsv16C3, &zor::HsvKernels::toRgb16C3}) expectEveryCode(zor::hsvTables, m);
}

}  // namespace
