// Layout and subsampling conversions among planar, semi-planar and
// interleaved 4:2:2, 4:2:0 and 4:1:1 video: samples are copied, dropped,
// repeated or moved, never computed. The two sides decide the rule, the
// group of pixels the region is rounded down to (4 wide where 4:1:1 is on a
// side, 2 high where 4:2:0 is) and the row form (row pairs for 4:2:0).
#include "chroma/layout.h"
#include "core/export.h"

#include <algorithm>

namespace zor {
namespace {

// Rows stand alone. Contiguous images go to a packed destination as one long
// row (one pass over it); the other kernels make a pass per plane and keep to
// rows, which stay in the cache between the passes (Fuse<0>: never fused).
template <class S, class D, bool Pair = (S::kV || D::kV)>
struct MoveRows {
    static constexpr int kGroup = std::max(S::kH, D::kH);
    using type =
        Rows<Serial, ScalarKernel<&moveRow<S, D>>, WholeGroups<kGroup, 1, false>, Fuse<D::kPacked ? kGroup : 0>>;
};
template <class S, class D>
struct MoveRows<S, D, true> {
    static constexpr int kGroup = std::max(S::kH, D::kH);
    using type = Rows<Serial, ScalarKernel<&movePair<S, D>>, Pairs, WholeGroups<kGroup, 2, false>>;
};

template <class S, class D>
struct Move {
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        static_assert(kSidesMatch<S, D, Images>, "the arguments are the images of the two sides");
        return MoveRows<S, D>::type::run(roi, images, extras);
    }
};

using Min2x1 = LayoutChecks<2, 1>;
using Min2x2 = LayoutChecks<2, 2>;
using Min4x2 = LayoutChecks<4, 2>;
// The size tested against 1 x 1 before the minimum.
using Min2x2Twice = Checks<check::Null<kOuter | kPlanes>, check::Size<>, check::Size<2, 2>>;
// The source's plane pointers first, without a test of the array pointer.
using SourcePlanesFirst = Checks<SourcePlanes, check::Null<kOuter | kPlanes>, check::Size<2, 2>>;

}  // namespace
}  // namespace zor

using namespace zor;


ZOR_EXPORT(zoriYCbCr422_8u_P3C2R, (Min2x1), (Move<Planar422, PackedYCbCr>), SRC_P3_422, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422_8u_C2P3R, (Min2x1), (Move<PackedYCbCr, Planar422>), SRC_C2, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCrCb422ToYCbCr422_8u_C2P3R, (NoMinHeight), (Move<PackedYCrCb, Planar422>), SRC_C2, DST_P3_422, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr422_8u_C2P3R, (NoMinHeight), (Move<PackedCbYCr, Planar422>), SRC_C2, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr422ToCbYCr422_8u_C2R, (Min2x1), (Move<PackedYCbCr, PackedCbYCr>), SRC_C2, DST_C2, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr422_8u_C2R, (Min2x1), (Move<PackedCbYCr, PackedYCbCr>), SRC_C2, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCrCb422_8u_C2R, (NoMinHeight), (Move<PackedYCbCr, PackedYCrCb>), SRC_C2, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCrCb422_8u_P3C2R, (NoMinHeight), (Move<Planar422, PackedYCrCb>), SRC_P3_422, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr420_8u_P3P2R, (Min2x2), (Move<Planar420, Semi420>), SRC_P3_420, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr420_8u_P2P3R, (Min2x2), (Move<Semi420, Planar420>), SRC_P2_420, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr420_8u_P3P2R, (SourcePlanesFirst), (Move<PlanarCr420, Semi420>), SRC_P3_420, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCrCb420_8u_P2P3R, (Min2x2Twice), (Move<Semi420, PlanarCr420>), SRC_P2_420, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr411_8u_P3P2R, (NoMinHeight411), (Move<Planar411, Semi411>), SRC_P3_411, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr411_8u_P2P3R, (NoMinHeight411), (Move<Semi411, Planar411>), SRC_P2_411, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_P3R, (Min2x2), (Move<Planar422, Planar420>), SRC_P3_422, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_P3P2R, (Min2x2), (Move<Planar422, Semi420>), SRC_P3_422, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_C2P3R, (Min2x2), (Move<PackedYCbCr, Planar420>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr420_8u_C2P3R, (Min2x2), (Move<PackedCbYCr, Planar420>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCrCb422ToYCbCr420_8u_C2P3R, (Min2x2), (Move<PackedYCrCb, Planar420>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCrCb420_8u_C2P3R, (Min2x2), (Move<PackedYCbCr, PlanarCr420>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCrCb420_8u_C2P3R, (Min2x2), (Move<PackedCbYCr, PlanarCr420>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_C2P2R, (Min2x2), (Move<PackedYCbCr, Semi420>), SRC_C2, DST_P2_420, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr420_8u_C2P2R, (Min2x2), (Move<PackedCbYCr, Semi420>), SRC_C2, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_8u_P3R, (Min2x2), (Move<Planar420, Planar422>), SRC_P3_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr422_8u_P3R, (Min2x2), (Move<PlanarCr420, Planar422>), SRC_P3_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_8u_P2P3R, (Min2x2), (Move<Semi420, Planar422>), SRC_P2_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_8u_P2C2R, (Min2x2Twice), (Move<Semi420, PackedYCbCr>), SRC_P2_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr420ToCbYCr422_8u_P2C2R, (Min2x2Twice), (Move<Semi420, PackedCbYCr>), SRC_P2_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr422_8u_P3C2R, (Min2x2), (Move<PlanarCr420, PackedYCbCr>), SRC_P3_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCrCb420ToCbYCr422_8u_P3C2R, (Min2x2), (Move<PlanarCr420, PackedCbYCr>), SRC_P3_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_P3R, (NoMinHeight411), (Move<Planar422, Planar411>), SRC_P3_422, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_P3P2R, (NoMinHeight411), (Move<Planar422, Semi411>), SRC_P3_422, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_C2P3R, (NoMinHeight411), (Move<PackedYCbCr, Planar411>), SRC_C2, DST_P3_411, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr411_8u_C2P3R, (NoMinHeight411), (Move<PackedCbYCr, Planar411>), SRC_C2, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCrCb422ToYCbCr411_8u_C2P3R, (NoMinHeight411), (Move<PackedYCrCb, Planar411>), SRC_C2, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_C2P2R, (NoMinHeight411), (Move<PackedYCbCr, Semi411>), SRC_C2, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P3R, (NoMinHeight411), (Move<Planar411, Planar422>), SRC_P3_411, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCrCb422_8u_P3R, (NoMinHeight411), (Move<Planar411, PlanarCr422>), SRC_P3_411, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P3C2R, (NoMinHeight411), (Move<Planar411, PackedYCbCr>), SRC_P3_411, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCrCb422_8u_P3C2R, (NoMinHeight411), (Move<Planar411, PackedYCrCb>), SRC_P3_411, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P2P3R, (NoMinHeight411), (Move<Semi411, Planar422>), SRC_P2_411, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P2C2R, (NoMinHeight411), (Move<Semi411, PackedYCbCr>), SRC_P2_411, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr411_8u_P3P2R, (Min4x2), (Move<Planar420, Semi411>), SRC_P3_420, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr411_8u_P3P2R, (Min4x2), (Move<PlanarCr420, Semi411>), SRC_P3_420, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr411_8u_P2P3R, (Min4x2), (Move<Semi420, Planar411>), SRC_P2_420, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr420_8u_P3R, (Min4x2), (Move<Planar411, Planar420>), SRC_P3_411, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr420_8u_P3P2R, (Min4x2), (Move<Planar411, Semi420>), SRC_P3_411, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr420_8u_P2P3R, (Min4x2), (Move<Semi411, Planar420>), SRC_P2_411, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCrCb420_8u_P2P3R, (Min4x2), (Move<Semi411, PlanarCr420>), SRC_P2_411, DST_P3_420, ROI)
