// Several threads call a mix of functions from every family at once, each on
// its own buffers, and get what one thread gets; the same at team sizes 1 to
// 4 and from inside an outer parallel region. scripts/tsan.sh runs this test
// under ThreadSanitizer.
#include "support/call_harness.h"
#include "support/testutil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

// Every seventh function of the table and the Lab ones: all families.
std::vector<zt::Call> mix() {
    std::vector<zt::Call> m;
    const auto& t = zor::describe::all();
    for (std::size_t i = 0; i < t.size(); ++i)
        if (i % 7 == 0 || t[i].name.find("Lab") != std::string::npos)
            m.emplace_back(t[i], ZoriSize{29, 9}, static_cast<std::uint32_t>(i));
    return m;
}

// The number of calls of a fresh mix whose status or output differs from ref.
int differences(const std::vector<zt::Call>& ref, const std::vector<ZorStatus>& refSt) {
    std::vector<zt::Call> m = mix();
    int n = 0;
    for (std::size_t i = 0; i < m.size(); ++i) n += m[i].run() != refSt[i] || m[i].firstDifferentPlane(ref[i]) >= 0;
    return n;
}

TEST(Concurrency, ThreadsTeamsAndOuterRegionsGiveOneThreadsResult) {
    std::string names;
    for (const auto& c : mix()) names += c.function().name + " ";
    for (const char* family : {"ReduceBits", "Twist", "Gamma", "YCoCg", "Gray", "HLS", "Lab", "YCbCr4", "RGB565", "YUV", "XYZ", "LUV", "HSV", "YCC"})
        EXPECT_NE(names.find(family), std::string::npos) << family;

    for (int team = 1; team <= 4; ++team) {
        zt::TeamSize t(team);
        std::vector<zt::Call> ref = mix();
        std::vector<ZorStatus> refSt;
        for (auto& c : ref) refSt.push_back(c.run());
        std::atomic<int> bad{0};
        std::vector<std::thread> threads;
        for (int k = 0; k < 4; ++k) threads.emplace_back([&] { bad += differences(ref, refSt); });
        for (auto& th : threads) th.join();
        EXPECT_EQ(bad.load(), 0) << "team " << team;
        if (team == 1) {
            // Inside an active region (nesting off) the library's regions get
            // one thread, whatever the team size.
            zt::TeamSize four(4);
#pragma omp parallel num_threads(3)
            bad += differences(ref, refSt);
            EXPECT_EQ(bad.load(), 0) << "inside an outer parallel region";
        }
    }
}

}  // namespace
