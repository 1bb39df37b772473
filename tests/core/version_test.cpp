#include "support/testutil.h"

#include <cstring>

TEST(Version, ConstantRecord) {
    const ZorLibraryVersion* v = zorccGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v, zorccGetLibVersion());
    EXPECT_EQ(v->majorVersion, 5);
    EXPECT_EQ(v->minorVersion, 1);
    EXPECT_EQ(v->buildSeries, 133);
    EXPECT_EQ(v->buildNumber, 181);
    EXPECT_EQ(std::memcmp(v->targetCpu, "px\0\0", 4), 0);
    EXPECT_STREQ(v->libraryName, "libzorccpx-5.1.dylib");
    EXPECT_STREQ(v->versionText, "5.1.1");
    EXPECT_STREQ(v->buildDate, "Jun 17 2006");
    // The text agrees with the numbers.
    const std::string prefix = std::to_string(v->majorVersion) + "." + std::to_string(v->minorVersion) + ".";
    EXPECT_EQ(std::string(v->versionText).rfind(prefix, 0), 0u);
}

TEST(Version, RecordLayout) {
    EXPECT_EQ(offsetof(ZorLibraryVersion, targetCpu), 16u);
    EXPECT_EQ(offsetof(ZorLibraryVersion, libraryName), 24u);  // pointers follow, naturally aligned
}
