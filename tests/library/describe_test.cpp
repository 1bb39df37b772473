// The table of exported image functions that the export lines register.
#include "core/describe.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

namespace {

using zor::describe::Function;
using zor::describe::Param;

// One parameter as a short string: kind, direction, type, channels, chroma
// geometry and step policy for images; name, C type and shape otherwise.
std::string summary(const Param& p) {
    using zor::describe::Kind;
    std::string s = zor::describe::kindName(p.kind);
    if (p.kind == Kind::Roi) return s;
    if (p.kind == Kind::Value || p.kind == Kind::Pointer) {
        s += " " + p.type + " " + p.name + ":" + p.cType;
        for (int d : p.shape) s += "[" + std::to_string(d) + "]";
        return s + (p.nullable ? "?" : "");
    }
    s += std::string(" ") + zor::describe::dirName(p.dir) + " " + p.type + "x" + std::to_string(p.channels);
    if (p.v || p.h > 1) s += " v" + std::to_string(p.v) + "h" + std::to_string(p.h);
    if (p.elements) s += " el";
    if (p.keepsAlpha) s += " alpha";
    if (p.kind == Kind::WholeP3 && !p.chromaUp) s += " floor";
    return s;
}

std::string summary(const Function& f) {
    std::string s;
    for (const Param& p : f.params) s += (s.empty() ? "" : " | ") + summary(p);
    return s;
}

// The image functions that the public header declares.
TEST(Describe, HasExactlyTheExportedImageFunctions) {
    std::ifstream in(ZORCC_PUBLIC_HEADER);
    ASSERT_TRUE(in) << ZORCC_PUBLIC_HEADER;
    const std::string prefix = "ZORCC_API ZorStatus zori";
    std::set<std::string> expected, got;
    for (std::string line; std::getline(in, line);)
        if (line.rfind(prefix, 0) == 0) expected.insert(line.substr(prefix.size() - 4, line.find('(') - prefix.size() + 4));
    for (const Function& f : zor::describe::all()) EXPECT_TRUE(got.insert(f.name).second) << f.name;
    EXPECT_EQ(got, expected);
    EXPECT_EQ(expected.size(), 426u);
}

TEST(Describe, EveryKindOfParameter) {
    const std::pair<const char*, const char*> cases[] = {
        {"zoriColorTwist32f_8u_AC4IR", "C inout 8ux4 alpha | roi | pointer 32f twist:const Zor32f[3][4]"},
        {"zoriColorToGray_16u_AC4C1R", "C in 16ux4 el | C out 16ux1 el | roi | pointer 32f coeffs:const Zor32f[3]?"},
        {"zoriGammaFwd_32f_C3R", "C in 32fx3 | C out 32fx3 | roi | value 32f vMin:Zor32f | value 32f vMax:Zor32f"},
        {"zoriReduceBits_16u8u_C1R",
         "C in 16ux1 | C out 8ux1 | roi | value 32s noise:int | value 32s dtype:ZorDitherType | value 32s levels:int"},
        {"zoriYCbCr422_8u_P3C2R", "P3S in 8ux3 v0h2 | C out 8ux2 | roi"},
        {"zoriBGRToHLS_8u_AP4R", "P4 in 8ux4 | P4 out 8ux4 | roi"},
        {"zoriYCbCr422ToRGB565_8u16u_C2C3R", "C in 8ux2 | C out 16ux1 el | roi"},
        {"zoriYUV420ToRGB_8u_P3C3", "wholeP3 in 8ux3 v1h2 floor | wholeC out 8ux3 | roi"},
        {"zoriYUV422ToRGB_8u_P3C3", "wholeP3 in 8ux3 v0h2 | wholeC out 8ux3 | roi"},
    };
    for (const auto& c : cases) {
        const Function* f = zor::describe::find(c.first);
        ASSERT_NE(f, nullptr) << c.first;
        EXPECT_EQ(summary(*f), c.second) << c.first;
    }
    const Function* p2 = nullptr;
    for (const Function& f : zor::describe::all())
        if (!f.params.empty() && f.params[0].kind == zor::describe::Kind::P2) p2 = &f;
    ASSERT_NE(p2, nullptr);
    EXPECT_EQ(zor::describe::cArgs(p2->params[0].kind), 4);
    EXPECT_NE(zor::describe::json(zor::describe::all()).find("\"shape\": [3, 4]"), std::string::npos);
}

// The invoker passes the arguments in C order; an enum gets any int.
TEST(Describe, InvokerCallsTheFunction) {
    using zor::describe::Arg;
    unsigned char src[2 * 3] = {10, 20, 30, 200, 100, 0}, dst[2 * 3] = {}, ref[2 * 3] = {};
    ASSERT_EQ(zoriRGBToYCbCr_8u_C3R(src, 6, ref, 6, ZoriSize{2, 1}), zorStsOk);
    Arg a[5];
    a[0].p = src, a[1].i = 6, a[2].p = dst, a[3].i = 6, a[4].size = ZoriSize{2, 1};
    ASSERT_EQ(zor::describe::find("zoriRGBToYCbCr_8u_C3R")->invoke(a), zorStsOk);
    EXPECT_EQ(0, std::memcmp(dst, ref, sizeof dst));

    Arg r[8];
    r[0].p = src, r[1].i = 6, r[2].p = dst, r[3].i = 6, r[4].size = ZoriSize{2, 1};
    r[5].i = 0, r[6].i = -1, r[7].i = 2;
    EXPECT_EQ(zor::describe::find("zoriReduceBits_8u_C3R")->invoke(r), zorStsOk);
}

}  // namespace
