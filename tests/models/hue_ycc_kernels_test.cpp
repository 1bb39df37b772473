// Every PhotoYCC, HLS and HSV vector kernel against its scalar kernel at every CPU target: random rows of every width
// 1..300 (row ends against a guard page), then the same rows turned into chosen pixels (edges, ties, float special
// values); every 16-bit code; every team size on rows long enough for whole vectors.
#include "models/chosen_inputs.h"
#include "models/hls_kernels.h"
#include "models/hsv_kernels.h"
#include "models/model_kit.h"
#include "models/ycc_kernels.h"

namespace {

MT_CHOSEN_TABLES(zor::HsvKernels, ZOR_HSV_KERNELS, zor::hsvTables, hsvChosen)
MT_CHOSEN_TABLES(zor::HlsKernels, ZOR_HLS_KERNELS, zor::hlsTables, hlsChosen)
MT_CHOSEN_TABLES(zor::YccKernels, ZOR_YCC_KERNELS, zor::yccTables, yccChosen)

#define ZOR_SHAPE_TEST(Suite, Table, chosen, name)                                                                     \
    TEST(Suite, name) {                                                                                                \
        zt::expectVectorsMatchScalar(chosen<false>, &zor::Table::name);                                                \
        zt::expectVectorsMatchScalar(chosen<true>, &zor::Table::name);                                                 \
    }
#define ZOR_HSV_TEST(name, fn, args) ZOR_SHAPE_TEST(HsvKernelSets, HsvKernels, hsvChosen, name)
#define ZOR_HLS_TEST(name, fn, args) ZOR_SHAPE_TEST(HlsKernelSets, HlsKernels, hlsChosen, name)
#define ZOR_YCC_TEST(name, fn, args) ZOR_SHAPE_TEST(YccKernelSets, YccKernels, yccChosen, name)
ZOR_HSV_KERNELS(ZOR_HSV_TEST)
ZOR_HLS_KERNELS(ZOR_HLS_TEST)
ZOR_YCC_KERNELS(ZOR_YCC_TEST)

// Every 16-bit code in every channel (pixel v holds v, v ^ 0x5555, 65535 - v): the vector kernels turn codes into
// floats without dividing.
template <class Table, class T, int N>
void expectEveryCode(const Table* const* (*tables)(), void (*Table::*member)(zor::RowC<const T, N>, zor::RowC<T, N>, int)) {
    std::vector<T> src(3 * 65536), want(src.size()), got(src.size());
    for (int v = 0; v < 65536; ++v) src[3 * v] = T(v), src[3 * v + 1] = T(v ^ 0x5555), src[3 * v + 2] = T(65535 - v);
    (tables()[zor::cpu::kScalar]->*member)({src.data()}, {want.data()}, 65536);
    for (zor::cpu::Target t : zt::vectorTargets()) {
        ((tables()[t] ? tables()[t] : tables()[0])->*member)({src.data()}, {got.data()}, 65536);
        EXPECT_TRUE(got == want) << zor::cpu::name(t);
    }
}

TEST(HueYccKernelSets, EverySixteenBitCode) {
    for (auto m : {&zor::HlsKernels::toHls16uC3, &zor::HlsKernels::toRgb16uC3}) expectEveryCode(zor::hlsTables, m);
    for (auto m : {&zor::HlsKernels::toHls16sC3, &zor::HlsKernels::toRgb16sC3}) expectEveryCode(zor::hlsTables, m);
    for (auto m : {&zor::HsvKernels::toHsv16C3, &zor::HsvKernels::toRgb16C3}) expectEveryCode(zor::hsvTables, m);
}

// Team sizes 1 to 4 and a nested region, on rows of whole vectors and a tail at every target.
TEST(HueYccMembers, SameResultForEveryTeamSize) {
    for (const mk::Member& m : mk::members()) {
        const std::string name = m.name;
        if (name.find("YCC") == name.npos && name.find("HLS") == name.npos && name.find("HSV") == name.npos) continue;
        SCOPED_TRACE(m.name);
        zt::Image<Zor8u> src = mk::source(m, 45, 23, 3);
        zt::expectTeamIndependent<zt::Image<Zor8u>>([&] { return mk::image(45, 23, m.ch, m.dstSize, 5); }, [&](zt::Image<Zor8u>& d) {
            ASSERT_EQ(m.fn(src.data(), src.step(), d.data(), d.step(), {45, 23}), zorStsOk);
        });
    }
}

}  // namespace
