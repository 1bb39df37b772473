// Filtered chroma layout conversions: four-tap interpolation of the missing
// 4:2:2 chroma rows, and the vertical deinterlacing filters from semi-planar
// 4:2:0 that can convert a picture in slices. Both read neighbouring rows,
// so they have runs of their own; rows are addressed through the image views
// (row y of a 4:2:0 side carries chroma row y >> 1).
#include "chroma/layout.h"
#include "core/export.h"

#include <algorithm>

namespace zor {
namespace {

// 4:2:0 to 4:2:2 with interpolated odd chroma rows; the width is rounded down
// to even, the height to a multiple of 8. Source chroma rows beyond the
// picture are replaced by its nearest edge row.
template <class S, class D, auto Copy, auto Filter>
struct Interpolate {
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras&) {
        static_assert(kSidesMatch<S, D, Images>, "the arguments are the images of the two sides");
        const auto s = std::get<0>(images).view();
        const auto d = std::get<1>(images).view();
        const auto copy = ChromaK<Copy>::resolve();
        const auto interpolate = ChromaK<Filter>::resolve();
        const int width = roi.width & ~1, rows = (roi.height & ~7) / 2;
        const auto chroma = [&](int j) { return s.row(2 * std::clamp(j, 0, rows - 1)); };
        forRows<Serial>(rows, [&](int j) {
            copy(s.row(2 * j), d.row(2 * j), width);
            interpolate(chroma(j - 1), s.row(2 * j + 1), chroma(j + 1), chroma(j + 2), d.row(2 * j + 1), width);
        });
        return zorStsOk;
    }
};

// Deinterlacing of a slice of the picture (the argument after the size; all
// three slice bits: the whole picture; any other value converts nothing).
// Width and height are rounded down to even. Each slice but the bottom one
// stops one luma row and one chroma row short of its end, whose filter needs
// the next slice's first row; each slice but the top one starts one row above
// its pointers to finish the previous slice. Rows beyond the picture's edges
// are replaced by the edge row.
template <class S, class D, auto Luma, auto Chroma, auto Packed = nullptr>
struct Deinterlace {
    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        static_assert(kSidesMatch<S, D, Images>, "the arguments are the images of the two sides");
        const unsigned layout = std::get<0>(extras).value();
        const bool whole = (layout & zorSliceWhole) == zorSliceWhole;
        const bool top = whole || layout == zorSliceTop, bottom = whole || layout == zorSliceBottom;
        if (!top && !bottom && layout != zorSliceMiddle) return zorStsOk;
        const auto s = std::get<0>(images).view();
        const auto d = std::get<1>(images).view();
        const auto luma = ChromaK<Luma>::resolve();
        const auto chroma = ChromaK<Chroma>::resolve();
        const auto packed = [] {
            if constexpr (D::kPacked) return ChromaK<Packed>::resolve();
            else return nullptr;
        }();
        const int width = roi.width & ~1, h = roi.height & ~1, first = top ? 0 : -1;
        const int lumaEnd = bottom ? h : h - 1, chromaEnd = bottom ? h / 2 : h / 2 - 1;
        // Destination row y of row pair j: its luma where y is in range, the
        // chroma of row j where j is (a packed row holds it in every row, a
        // 4:2:0 plane once per pair).
        const auto convert = [&](int y, int j) {
            const bool hasLuma = y >= first && y < lumaEnd, hasChroma = j < chromaEnd && (D::kPacked || y % 2 == 0);
            const int above = top && y == 0 ? y : y - 1, below = bottom && y == h - 1 ? y : y + 1;
            const int chromaBelow = bottom && j == h / 2 - 1 ? j : j + 1;
            if constexpr (D::kPacked) {
                if (hasLuma && hasChroma) {
                    packed(s.row(above), s.row(y), s.row(below), s.row(2 * chromaBelow), d.row(y), width);
                    return;
                }
            }
            if (hasLuma) luma(s.row(above), s.row(y), s.row(below), d.row(y), width);
            if (hasChroma) chroma(s.row(2 * j), s.row(2 * chromaBelow), d.row(y), width);
        };
        forRows<Serial>(h / 2 - first, [&](int i) {
            convert(2 * (first + i), first + i);
            convert(2 * (first + i) + 1, first + i);
        });
        return zorStsOk;
    }
};

// The outer pointers, a size below 1, the destination planes, then a size
// below 2.
using InterleavedChecks = Checks<check::Null<kOuter>, check::Size<>, check::Null<kPlanes>, check::Size<2, 2>>;

}  // namespace
}  // namespace zor

using namespace zor;
using K = ChromaKernels;

ZOR_EXPORT(zoriYCbCr420ToYCbCr422_Filter_8u_P3R, (LayoutChecks<2, 8>), (Interpolate<Planar420, Planar422, &K::evenRowYCbCr, &K::interpolateYCbCr>), SRC_P3_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCrCb420ToYCbCr422_Filter_8u_P3R, (LayoutChecks<2, 8>), (Interpolate<PlanarCr420, Planar422, &K::evenRowYCrCb, &K::interpolateYCrCb>), SRC_P3_420, DST_P3_422, ROI)
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_Filter_8u_P2P3R, (LayoutChecks<2, 8>), (Interpolate<Semi420, Planar422, &K::evenRowSemi, &K::interpolateSemi>), SRC_P2_420, DST_P3_422, ROI)
// Truncating taps into planes Y, Cr, Cb; the packed member's constants 4 and
// 2 raise its results by one against the exact means.
ZOR_EXPORT(zoriYCbCr420ToYCrCb420_Filter_8u_P2P3R, (InterleavedChecks), (Deinterlace<Semi420, PlanarCr420, &K::deinterlaceLumaPlanar, &K::deinterlaceChromaPlanar>), SRC_P2_420, DST_P3_420, ROI, ARG(unsigned int, layout))
ZOR_EXPORT(zoriYCbCr420ToYCbCr422_Filter_8u_P2C2R, (LayoutChecks<2, 2>), (Deinterlace<Semi420, PackedYCbCr, &K::deinterlaceLumaPacked, &K::deinterlaceChromaPacked, &K::deinterlacePacked>), SRC_P2_420, DST_C2, ROI, ARG(unsigned int, layout))
