// Aligned blocks and the uniform random generators. The sample sequences are
// fixed facts of the library (the noise of the bit reduction depends on them):
// the expected values below come from an independent model of the generator.
#include "core/memory.h"
#include "core/random.h"
#include "support/testutil.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

TEST(Memory, AlignedBlocksAndNullCases) {
    EXPECT_EQ(zorsMalloc_32f(0), nullptr);
    EXPECT_EQ(zorsMalloc_16s(-3), nullptr);
    EXPECT_EQ(zorsMalloc_16u(0), nullptr);
    zorsFree(nullptr);
    for (int len : {1, 2, 3, 31, 1000, 65536}) {
        Zor16s* a = zorsMalloc_16s(len);
        Zor16u* b = zorsMalloc_16u(len);
        Zor32f* c = zorsMalloc_32f(len);
        ASSERT_TRUE(a && b && c);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(a) % 32, 0u);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(b) % 32, 0u);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(c) % 32, 0u);
        // The whole block is usable (the sanitizers watch the ends).
        std::memset(a, 0x5a, static_cast<std::size_t>(len) * 2);
        std::memset(b, 0x5a, static_cast<std::size_t>(len) * 2);
        std::memset(c, 0x5a, static_cast<std::size_t>(len) * 4);
        zorsFree(a);
        zorsFree(b);
        zorsFree(c);
    }
}

std::size_t gLastRequest = 0;

TEST(Memory, ThirtySixExtraBytesAndFailingAllocator) {
    zor::setAllocHook([](std::size_t bytes) {
        gLastRequest = bytes;
        return true;
    });
    zorsFree(zorsMalloc_32f(10));
    EXPECT_EQ(gLastRequest, 10u * 4 + 36);
    zor::setAllocHook([](std::size_t) { return false; });
    EXPECT_EQ(zorsMalloc_16u(10), nullptr);
    ZorRandUniState_16s* s = nullptr;
    EXPECT_EQ(zorsRandUniformInitAlloc_16s(&s, 0, 10, 1), zorStsNoMemory);
    EXPECT_EQ(s, nullptr);
    zor::setAllocHook(nullptr);
}

// Reads a field of the state record at a byte offset.
template <class F>
F field(const void* state, int offset) {
    F v;
    std::memcpy(&v, static_cast<const unsigned char*>(state) + offset, sizeof v);
    return v;
}

TEST(RandUniform, StateRecordLayout) {
    ZorRandUniState_16s* s = nullptr;
    ASSERT_EQ(zorsRandUniformInitAlloc_16s(&s, -7, 1024, 5u), zorStsOk);
    const std::uint32_t w2 = 69069u * 5u + 1013904243u;
    EXPECT_EQ(field<std::uint32_t>(s, 0), 36u);
    EXPECT_EQ(field<std::uint32_t>(s, 4), 5u);
    EXPECT_EQ(field<std::int16_t>(s, 8), -7);
    EXPECT_EQ(field<std::int16_t>(s, 10), 1024);
    EXPECT_EQ(field<double>(s, 16), 508.5);
    const double k = 2.3283064365387e-10;  // 2^-32 plus 7 units in the last place
    EXPECT_EQ(field<std::uint64_t>(&k, 0), 0x3DF0000000000007ull);
    EXPECT_EQ(field<double>(s, 24), 1031 * k);
    EXPECT_EQ(field<std::uint32_t>(s, 32), 1131199209u);
    EXPECT_EQ(field<std::uint32_t>(s, 36), 5u);
    EXPECT_EQ(field<std::uint32_t>(s, 40), w2);
    EXPECT_EQ(field<std::uint32_t>(s, 44), 69069u * w2 + 1013904243u);
    EXPECT_EQ(field<std::int32_t>(s, 48), -1);
    EXPECT_EQ(zorsRandUniformFree_16s(s), zorStsOk);

    ZorRandUniState_32f* f = nullptr;
    ASSERT_EQ(zorsRandUniformInitAlloc_32f(&f, 0.25f, 1.5f, 9u), zorStsOk);
    EXPECT_EQ(field<std::uint32_t>(f, 0), 37u);
    EXPECT_EQ(field<float>(f, 8), 0.25f);
    EXPECT_EQ(field<float>(f, 12), 1.5f);
    EXPECT_EQ(field<double>(f, 16), 0.875);
    EXPECT_EQ(zorsRandUniformFree_32f(f), zorStsOk);
}

TEST(RandUniform, KnownSequences16s) {
    struct Case {
        Zor16s low, high;
        unsigned seed;
        std::vector<Zor16s> expect;
    };
    const Case cases[] = {
        {0, 1024, 0u, {0, 133, 216, 412, 361, 758, 844, 242}},
        {-100, 100, 12345u, {-39, 86, 2, 80, 70, 88, 64, 87}},
    };
    for (const Case& c : cases) {
        ZorRandUniState_16s* s = nullptr;
        ASSERT_EQ(zorsRandUniformInitAlloc_16s(&s, c.low, c.high, c.seed), zorStsOk);
        std::vector<Zor16s> got(c.expect.size());
        // Two calls continue one sequence.
        ASSERT_EQ(zorsRandUniform_16s(got.data(), 3, s), zorStsOk);
        ASSERT_EQ(zorsRandUniform_16s(got.data() + 3, static_cast<int>(got.size()) - 3, s), zorStsOk);
        EXPECT_EQ(got, c.expect) << "seed " << c.seed;
        zorsRandUniformFree_16s(s);
    }
}

TEST(RandUniform, KnownSequences32f) {
    ZorRandUniState_32f* s = nullptr;
    ASSERT_EQ(zorsRandUniformInitAlloc_32f(&s, 0.0f, 1.0f, 0u), zorStsOk);
    std::vector<Zor32f> got(6);
    ASSERT_EQ(zorsRandUniform_32f(got.data(), 6, s), zorStsOk);
    EXPECT_EQ(got, (std::vector<Zor32f>{0.0009562335908412933f, 0.13015933334827423f, 0.2117062658071518f,
                                         0.4031760096549988f, 0.3529467284679413f, 0.7409005761146545f}));
    zorsRandUniformFree_32f(s);
    ASSERT_EQ(zorsRandUniformInitAlloc_32f(&s, -1.0f, 1.0f, 7u), zorStsOk);
    ASSERT_EQ(zorsRandUniform_32f(got.data(), 6, s), zorStsOk);
    EXPECT_EQ(got, (std::vector<Zor32f>{-0x1.1894bep-1f, -0x1.7ad504p-1f, -0x1.03178ep-3f, -0x1.49b3ecp-1f,
                                         0x1.3fe3dap-3f, -0x1.aca012p-2f}));
    zorsRandUniformFree_32f(s);
}

TEST(RandUniform, NoiseSettingStaysInRangeAndRepeats) {
    ZorRandUniState_16s *a = nullptr, *b = nullptr;
    ASSERT_EQ(zorsRandUniformInitAlloc_16s(&a, 0, 1024, 0), zorStsOk);
    ASSERT_EQ(zorsRandUniformInitAlloc_16s(&b, 0, 1024, 0), zorStsOk);
    std::vector<Zor16s> x(100000), y(100000);
    ASSERT_EQ(zorsRandUniform_16s(x.data(), 100000, a), zorStsOk);
    ASSERT_EQ(zorsRandUniform_16s(y.data(), 100000, b), zorStsOk);
    EXPECT_EQ(x, y);
    for (Zor16s v : x) ASSERT_TRUE(v >= 0 && v <= 1023) << v;
    zorsRandUniformFree_16s(a);
    zorsRandUniformFree_16s(b);
}

TEST(RandUniform, Statuses) {
    EXPECT_EQ(zorsRandUniformInitAlloc_16s(nullptr, 0, 1, 0), zorStsNullPtr);
    EXPECT_EQ(zorsRandUniformInitAlloc_32f(nullptr, 0, 1, 0), zorStsNullPtr);
    ZorRandUniState_16s* s = nullptr;
    ZorRandUniState_32f* f = nullptr;
    ASSERT_EQ(zorsRandUniformInitAlloc_16s(&s, 5, -5, 3), zorStsOk);  // bounds are not checked
    ASSERT_EQ(zorsRandUniformInitAlloc_32f(&f, 0, 1, 3), zorStsOk);
    Zor16s d16[4] = {11, 11, 11, 11};
    Zor32f d32[4] = {11, 11, 11, 11};
    std::vector<unsigned char> before(reinterpret_cast<unsigned char*>(s), reinterpret_cast<unsigned char*>(s) + 52);
    EXPECT_EQ(zorsRandUniform_16s(nullptr, 4, s), zorStsNullPtr);
    EXPECT_EQ(zorsRandUniform_16s(d16, 4, nullptr), zorStsNullPtr);
    EXPECT_EQ(zorsRandUniform_16s(nullptr, 0, s), zorStsNullPtr);  // pointers before length
    EXPECT_EQ(zorsRandUniform_16s(d16, 0, s), zorStsBadSize);
    EXPECT_EQ(zorsRandUniform_16s(d16, -1, s), zorStsBadSize);
    // A state of the other kind, and the length checked before the kind.
    EXPECT_EQ(zorsRandUniform_32f(d32, 4, reinterpret_cast<ZorRandUniState_32f*>(s)), zorStsContextMatchErr);
    EXPECT_EQ(zorsRandUniform_32f(d32, 0, reinterpret_cast<ZorRandUniState_32f*>(s)), zorStsBadSize);
    EXPECT_EQ(zorsRandUniform_16s(d16, 4, reinterpret_cast<ZorRandUniState_16s*>(f)), zorStsContextMatchErr);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(d16[i], 11);
        EXPECT_EQ(d32[i], 11.0f);
    }
    EXPECT_EQ(std::memcmp(before.data(), s, 52), 0) << "state changed by a failing call";
    EXPECT_EQ(zorsRandUniformFree_32f(reinterpret_cast<ZorRandUniState_32f*>(s)), zorStsContextMatchErr);
    EXPECT_EQ(zorsRandUniformFree_16s(reinterpret_cast<ZorRandUniState_16s*>(f)), zorStsContextMatchErr);
    EXPECT_EQ(zorsRandUniformFree_16s(nullptr), zorStsNullPtr);
    EXPECT_EQ(zorsRandUniformFree_32f(nullptr), zorStsNullPtr);
    EXPECT_EQ(zorsRandUniformFree_16s(s), zorStsOk);
    EXPECT_EQ(zorsRandUniformFree_32f(f), zorStsOk);
}

}  // namespace
