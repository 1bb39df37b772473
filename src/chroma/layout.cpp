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
template <auto Member, class S, class D, bool Pair = (S::kV || D::kV)>
struct MoveRows {
    static constexpr int kGroup = std::max(S::kH, D::kH);
    using type = Rows<Serial, ChromaK<Member>, WholeGroups<kGroup, 1, false>, Fuse<D::kPacked ? kGroup : 0>>;
};
template <auto Member, class S, class D>
struct MoveRows<Member, S, D, true> {
    static constexpr int kGroup = std::max(S::kH, D::kH);
    using type = Rows<Serial, ChromaK<Member>, Pairs, WholeGroups<kGroup, 2, false>>;
};

// The sides of each relayout's kernel, from the list of shapes.
template <class Source, class Destination>
struct Sides {
    using S = Source;
    using D = Destination;
};
template <auto Member>
struct SidesOf;
#define ZOR_CHROMA_SIDES(name, fn, args) \
    template <>                           \
    struct SidesOf<&ChromaKernels::name> : Sides<ZOR_STRIP args> {};
ZOR_CHROMA_MOVES(ZOR_CHROMA_SIDES)

template <auto Member, class S = typename SidesOf<Member>::S, class D = typename SidesOf<Member>::D>
struct Move {
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        static_assert(kSidesMatch<S, D, Images>, "the arguments are the images of the two sides");
        return MoveRows<Member, S, D>::type::run(roi, images, extras);
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
using K = ChromaKernels;


ZOR_EXPORT(zoriYCbCr422_8u_P3C2R, (Min2x1), (Move<&K::YCbCr422_P3C2R>), SRC_P3_422, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422_8u_C2P3R, (Min2x1), (Move<&K::YCbCr422_C2P3R>), SRC_C2, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCrCb422ToYCbCr422_8u_C2P3R, (NoMinHeight), (Move<&K::YCrCb422ToYCbCr422_C2P3R>), SRC_C2, DST_P3_422, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr422_8u_C2P3R, (NoMinHeight), (Move<&K::CbYCr422ToYCbCr422_C2P3R>), SRC_C2, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr422ToCbYCr422_8u_C2R, (Min2x1), (Move<&K::YCbCr422ToCbYCr422_C2R>), SRC_C2, DST_C2, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr422_8u_C2R, (Min2x1), (Move<&K::CbYCr422ToYCbCr422_C2R>), SRC_C2, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCrCb422_8u_C2R, (NoMinHeight), (Move<&K::YCbCr422ToYCrCb422_C2R>), SRC_C2, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCrCb422_8u_P3C2R, (NoMinHeight), (Move<&K::YCbCr422ToYCrCb422_P3C2R>), SRC_P3_422, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr420_8u_P3P2R, (Min2x2), (Move<&K::YCbCr420_P3P2R>), SRC_P3_420, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr420_8u_P2P3R, (Min2x2), (Move<&K::YCbCr420_P2P3R>), SRC_P2_420, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr420_8u_P3P2R, (SourcePlanesFirst), (Move<&K::YCrCb420ToYCbCr420_P3P2R>), SRC_P3_420, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCrCb420_8u_P2P3R, (Min2x2Twice), (Move<&K::YCbCr420ToYCrCb420_P2P3R>), SRC_P2_420, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr411_8u_P3P2R, (NoMinHeight411), (Move<&K::YCbCr411_P3P2R>), SRC_P3_411, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr411_8u_P2P3R, (NoMinHeight411), (Move<&K::YCbCr411_P2P3R>), SRC_P2_411, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_P3R, (Min2x2), (Move<&K::YCbCr422ToYCbCr420_P3R>), SRC_P3_422, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_P3P2R, (Min2x2), (Move<&K::YCbCr422ToYCbCr420_P3P2R>), SRC_P3_422, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_C2P3R, (Min2x2), (Move<&K::YCbCr422ToYCbCr420_C2P3R>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr420_8u_C2P3R, (Min2x2), (Move<&K::CbYCr422ToYCbCr420_C2P3R>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCrCb422ToYCbCr420_8u_C2P3R, (Min2x2), (Move<&K::YCrCb422ToYCbCr420_C2P3R>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCrCb420_8u_C2P3R, (Min2x2), (Move<&K::YCbCr422ToYCrCb420_C2P3R>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCrCb420_8u_C2P3R, (Min2x2), (Move<&K::CbYCr422ToYCrCb420_C2P3R>), SRC_C2, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr420_8u_C2P2R, (Min2x2), (Move<&K::YCbCr422ToYCbCr420_C2P2R>), SRC_C2, DST_P2_420, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr420_8u_C2P2R, (Min2x2), (Move<&K::CbYCr422ToYCbCr420_C2P2R>), SRC_C2, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_8u_P3R, (Min2x2), (Move<&K::YCbCr420ToYCbCr422_P3R>), SRC_P3_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr422_8u_P3R, (Min2x2), (Move<&K::YCrCb420ToYCbCr422_P3R>), SRC_P3_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_8u_P2P3R, (Min2x2), (Move<&K::YCbCr420ToYCbCr422_P2P3R>), SRC_P2_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_8u_P2C2R, (Min2x2Twice), (Move<&K::YCbCr420ToYCbCr422_P2C2R>), SRC_P2_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr420ToCbYCr422_8u_P2C2R, (Min2x2Twice), (Move<&K::YCbCr420ToCbYCr422_P2C2R>), SRC_P2_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr422_8u_P3C2R, (Min2x2), (Move<&K::YCrCb420ToYCbCr422_P3C2R>), SRC_P3_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCrCb420ToCbYCr422_8u_P3C2R, (Min2x2), (Move<&K::YCrCb420ToCbYCr422_P3C2R>), SRC_P3_420, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_P3R, (NoMinHeight411), (Move<&K::YCbCr422ToYCbCr411_P3R>), SRC_P3_422, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_P3P2R, (NoMinHeight411), (Move<&K::YCbCr422ToYCbCr411_P3P2R>), SRC_P3_422, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_C2P3R, (NoMinHeight411), (Move<&K::YCbCr422ToYCbCr411_C2P3R>), SRC_C2, DST_P3_411, ROI)
ZOR_EXPORT(zoriCbYCr422ToYCbCr411_8u_C2P3R, (NoMinHeight411), (Move<&K::CbYCr422ToYCbCr411_C2P3R>), SRC_C2, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCrCb422ToYCbCr411_8u_C2P3R, (NoMinHeight411), (Move<&K::YCrCb422ToYCbCr411_C2P3R>), SRC_C2, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr422ToYCbCr411_8u_C2P2R, (NoMinHeight411), (Move<&K::YCbCr422ToYCbCr411_C2P2R>), SRC_C2, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P3R, (NoMinHeight411), (Move<&K::YCbCr411ToYCbCr422_P3R>), SRC_P3_411, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCrCb422_8u_P3R, (NoMinHeight411), (Move<&K::YCbCr411ToYCrCb422_P3R>), SRC_P3_411, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P3C2R, (NoMinHeight411), (Move<&K::YCbCr411ToYCbCr422_P3C2R>), SRC_P3_411, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCrCb422_8u_P3C2R, (NoMinHeight411), (Move<&K::YCbCr411ToYCrCb422_P3C2R>), SRC_P3_411, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P2P3R, (NoMinHeight411), (Move<&K::YCbCr411ToYCbCr422_P2P3R>), SRC_P2_411, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr422_8u_P2C2R, (NoMinHeight411), (Move<&K::YCbCr411ToYCbCr422_P2C2R>), SRC_P2_411, DST_C2, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr411_8u_P3P2R, (Min4x2), (Move<&K::YCbCr420ToYCbCr411_P3P2R>), SRC_P3_420, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr411_8u_P3P2R, (Min4x2), (Move<&K::YCrCb420ToYCbCr411_P3P2R>), SRC_P3_420, DST_P2_411, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr411_8u_P2P3R, (Min4x2), (Move<&K::YCbCr420ToYCbCr411_P2P3R>), SRC_P2_420, DST_P3_411, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr420_8u_P3R, (Min4x2), (Move<&K::YCbCr411ToYCbCr420_P3R>), SRC_P3_411, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr420_8u_P3P2R, (Min4x2), (Move<&K::YCbCr411ToYCbCr420_P3P2R>), SRC_P3_411, DST_P2_420, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCbCr420_8u_P2P3R, (Min4x2), (Move<&K::YCbCr411ToYCbCr420_P2P3R>), SRC_P2_411, DST_P3_420, ROI)
ZOR_EXPORT(zoriYCbCr411ToYCrCb420_8u_P2P3R, (Min4x2), (Move<&K::YCbCr411ToYCrCb420_P2P3R>), SRC_P2_411, DST_P3_420, ROI)
