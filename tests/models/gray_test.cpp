// Colour to gray: each member against its row kernel (both walks, odd steps, null and caller weights); checks; pinned rules.
#include "models/gray_kernels.h"
#include "support/testutil.h"

namespace {

// Caller weights, and what 8u makes of them: truncate(c 4096 + 0.5), wrapping.
const float kWeights[3][3] = {{0.299f, 0.587f, 0.114f}, {0.5f, 0.25f, 1.0f}, {-0.25f, 1.0f, 0.5f}};
const std::uint32_t kFixed[3][3] = {{1225, 2404, 467}, {2048, 1024, 4096}, {0xFFFFFC01u, 4096, 2048}};

template <class T, int N>
void expectMember(ZorStatus (*fixed)(const T*, int, T*, int, ZoriSize), ZorStatus (*caller)(const T*, int, T*, int, ZoriSize, const Zor32f*)) {
    zt::Image<T> src(19, 5, N, 3 * sizeof(T), 7), dst(19, 5, 1, 2 * sizeof(T), 9);
    if constexpr (std::is_same_v<T, Zor32f>) src.fillSamples([i = 0]() mutable { return static_cast<float>(i++ % 97) / 64 - 0.25f; });
    const zt::Image<T> fresh = dst;
    const auto call = [&](const float* c, bool up, int odd) {  // odd: bytes added to the steps
        zt::Image<T> d = fresh;
        EXPECT_EQ(caller(up ? src.flippedData() : src.data(), (up ? src.flippedStep() : src.step()) + odd, up ? d.flippedData() : d.data(),
                         (up ? d.flippedStep() : d.step()) + odd, {19, 5}, c), zorStsOk);
        return d;
    };
    for (int set = -1; set < 3; ++set) {  // -1: null, the defaults
        zor::GrayWeights<T> k;
        for (int i = 0; i < 3; ++i) k.w[i] = std::is_same_v<T, Zor8u> ? kFixed[set < 0 ? 0 : set][i] : kWeights[set < 0 ? 0 : set][i];
        zt::Image<T> want = fresh;
        for (int y = 0; y < 5; ++y) zor::gray<T, N>({src.row(y)}, {want.row(y)}, 19, k);
        const float* c = set < 0 ? nullptr : kWeights[set];
        EXPECT_TRUE(call(c, false, 0) == want && call(c, true, 0) == want && call(c, false, sizeof(T) - 1) == want) << N << " " << set;
    }
    EXPECT_EQ(std::vector<int>({fixed(nullptr, 8, dst.data(), 8, {0, 0}), caller(src.data(), 8, nullptr, 8, {0, 0}, nullptr),
                                fixed(src.data(), 8, dst.data(), 8, {0, 5}), caller(src.data(), 8, dst.data(), 8, {19, -1}, nullptr),
                                fixed(src.data(), src.step(), dst.data(), dst.step(), {19, 5})}),
              std::vector<int>({zorStsNullPtr, zorStsNullPtr, zorStsBadSize, zorStsBadSize, zorStsOk}));
    EXPECT_TRUE(dst == call(nullptr, false, 0));  // the fixed weights are the defaults
}

#define ZOR_MEMBERS(T, t) \
    expectMember<T, 3>(zoriRGBToGray_##t##_C3C1R, zoriColorToGray_##t##_C3C1R), expectMember<T, 4>(zoriRGBToGray_##t##_AC4C1R, zoriColorToGray_##t##_AC4C1R)
TEST(Gray, EveryMemberAgainstItsKernel) { ZOR_MEMBERS(Zor8u, 8u); ZOR_MEMBERS(Zor16u, 16u); ZOR_MEMBERS(Zor16s, 16s); ZOR_MEMBERS(Zor32f, 32f); }

// 8u: the floor of the sum, no clamp (0.5 each makes 382 of white); a caller's -0.5 is -2047 (2 * -2047 + 4094 is 0).
// 16-bit: truncation toward zero, low 16 bits; beyond int32 INT32_MIN (16u 0, 16s -32768); 16s on the unsigned scale.
TEST(Gray, PinnedValues) {
    using zor::grayOf;
    const Zor8u two[3] = {2, 1, 0};
    const float neg8[3] = {-0.5f, 4094.0f / 4096, 0};
    Zor8u o8 = 1;
    EXPECT_EQ(zoriColorToGray_8u_C3C1R(two, 3, &o8, 1, {1, 1}, neg8) * 1000 + o8, 0);
    const zor::GrayWeights<Zor8u> k8{{1225, 2404, 467}}, half{{2048, 2048, 2048}};
    const zor::GrayWeights<Zor16u> k16{{0.299f, 0.587f, 0.114f}}, neg{{-0.5f, 0, 0}}, twice{{2, 0, 0}}, huge{{1e6f, 0, 0}};
    EXPECT_EQ(std::vector<int>({grayOf(k8, 255, 255, 255), grayOf(k8, 1, 1, 1), grayOf(k8, 0, 0, 1), grayOf(half, 255, 255, 255),
                                grayOf<Zor16u>(k16, 1, 1, 1), grayOf<Zor16u>(k16, 65535, 65535, 65535), grayOf<Zor16u>(neg, 3, 0, 0),
                                grayOf<Zor16u>(twice, 40000, 0, 0), grayOf<Zor16u>(huge, 40000, 0, 0),
                                grayOf<Zor16s>({{0.299f, 0.587f, 0.114f}}, -32768, -32768, -32768), grayOf<Zor16s>({{1e6f, 0, 0}}, 0, 0, 0)}),
              std::vector<int>({255, 1, 0, 126, 1, 65535, 65535, 14464, 0, -32768, -32768}));
}

}  // namespace
