// YCoCg side by side with memcpy: every member, plain and reversible. No peer
// library has these transforms.
#include "side_by_side.h"

namespace sbs {
namespace {

#define FWD(name, S, N, P)                                                                             \
    {#name, "zori" #name, packedOf<S>(N), planesOf<P>(),                                              \
     ZOR(zori##name(s.as<S>(), s.st(), d.planesAs<P>(), d.st(), kRoi)), NONE, NONE, nullptr},
#define INV(name, P, D, N, ...)                                                                        \
    {#name, "zori" #name, planesOf<P>(), packedOf<D>(N),                                              \
     ZOR(zori##name(s.planesAs<const P>(), s.st(), d.as<D>(), d.st(), kRoi __VA_ARGS__)), NONE, NONE, nullptr},
#define BOTH(Rev)                                                                                      \
    FWD(BGRToYCoCg##Rev##_8u16s_C3P3R, Zor8u, 3, Zor16s)                                              \
    FWD(BGRToYCoCg##Rev##_8u16s_C4P3R, Zor8u, 4, Zor16s)                                              \
    FWD(SBGRToYCoCg##Rev##_16s_C3P3R, Zor16s, 3, Zor16s)                                              \
    FWD(SBGRToYCoCg##Rev##_16s_C4P3R, Zor16s, 4, Zor16s)                                              \
    FWD(SBGRToYCoCg##Rev##_16s32s_C3P3R, Zor16s, 3, Zor32s)                                           \
    FWD(SBGRToYCoCg##Rev##_16s32s_C4P3R, Zor16s, 4, Zor32s)                                           \
    INV(YCoCgToBGR##Rev##_16s8u_P3C3R, Zor16s, Zor8u, 3)                                              \
    INV(YCoCgToBGR##Rev##_16s8u_P3C4R, Zor16s, Zor8u, 4, , 255)                                       \
    INV(YCoCgToSBGR##Rev##_16s_P3C3R, Zor16s, Zor16s, 3)                                              \
    INV(YCoCgToSBGR##Rev##_16s_P3C4R, Zor16s, Zor16s, 4, , 0)                                         \
    INV(YCoCgToSBGR##Rev##_32s16s_P3C3R, Zor32s, Zor16s, 3)                                           \
    INV(YCoCgToSBGR##Rev##_32s16s_P3C4R, Zor32s, Zor16s, 4, , 0)

const Case kYCoCgCases[] = {BOTH() BOTH(_Rev)};
const CaseGroup kGroup(30, "YCoCg", std::begin(kYCoCgCases), std::end(kYCoCgCases));

}  // namespace
}  // namespace sbs
