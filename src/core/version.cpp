#include "zorcc.h"

namespace {

const ZorLibraryVersion kVersion = {
    5,                       // majorVersion
    1,                       // minorVersion
    133,                     // buildSeries
    181,                     // buildNumber
    {'p', 'x', '\0', '\0'},  // targetCpu: the generic variant
    "libzorccpx-5.1.dylib",  // libraryName
    "5.1.1",                 // versionText
    "Jun 17 2006",           // buildDate
};

}  // namespace

extern "C" ZORCC_API const ZorLibraryVersion* zorccGetLibVersion(void) {
    return &kVersion;
}
