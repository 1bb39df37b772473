// Argument checks as data. A family writes its check order once, as a list of
// steps, for example
//
//   using VideoChecks = Checks<check::Null<kOuter | kStepArray>, check::Size<>, check::Null<kPlanes>>;
//
// and the exported functions run the steps in that order over their
// arguments (images in argument order, then the function-specific pointer
// arguments). The first failing step decides the status; nothing has been
// written then.
#pragma once

#include "core/image.h"

#include <climits>

namespace zor {

namespace check {

// Any argument null in what `What` looks at: zorStsNullPtr.
template <unsigned What>
struct Null {
    template <class... A>
    static ZorStatus test(ZoriSize, const A&... a) {
        return (a.isNull(What) || ...) ? zorStsNullPtr : zorStsOk;
    }
};

// The minimum region: width below W or height below H gives zorStsBadSize.
// kAnyHeight accepts any height (a height of zero or less then converts no
// rows).
inline constexpr int kAnyHeight = INT_MIN;
template <int W = 1, int H = 1>
struct Size {
    template <class... A>
    static ZorStatus test(ZoriSize roi, const A&...) {
        return roi.width < W || roi.height < H ? zorStsBadSize : zorStsOk;
    }
};

// Every step at least 1, else zorStsStepErr.
struct Steps {
    template <class... A>
    static ZorStatus test(ZoriSize, const A&... a) {
        return (a.badStep() || ...) ? zorStsStepErr : zorStsOk;
    }
};

}  // namespace check

template <class... Step>
struct Checks {
    template <class... A>
    static ZorStatus run(ZoriSize roi, const A&... a) {
        ZorStatus st = zorStsOk;
        (void)((st = Step::test(roi, a...), st == zorStsOk) && ...);
        return st;
    }
};

// The usual order: the pointers (with the step arrays), the size, then the
// plane pointers inside the arrays.
using StandardChecks = Checks<check::Null<kOuter | kStepArray>, check::Size<>, check::Null<kPlanes>>;

// The order of the members that test the plane pointers (and the array of
// steps) with the outer pointers, before the size; W x H is their minimum.
template <int W = 1, int H = 1>
using PlanesFirstChecks = Checks<check::Null<kOuter | kStepArray | kPlanes>, check::Size<W, H>>;

// A conversion that works in whole groups of GW x GH pixels converts the
// region rounded down to them. When Warn is set it reports a dropped column
// or row with zorStsOddSizeWarning after the work.
template <int GW, int GH, bool Warn>
struct WholeGroups {
    static ZoriSize done(ZoriSize roi) { return {roi.width - roi.width % GW, roi.height - roi.height % GH}; }
    static ZorStatus status(ZoriSize roi) {
        return Warn && (roi.width % GW != 0 || roi.height % GH != 0) ? zorStsOddSizeWarning : zorStsOk;
    }
};
using EveryPixel = WholeGroups<1, 1, false>;

}  // namespace zor
