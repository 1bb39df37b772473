// Planar YCrCb 4:2:0 to BGRA with vertically interpolated chroma, serial rows.
#include "core/export.h"
#include "video/decode_kernels.h"

#include <algorithm>
#include <tuple>

namespace zor {
namespace {

// Every pointer and plane before the size; at least 2 x 8 pixels.
using FilterChecks = PlanesFirstChecks<2, 8>;

// The region in whole pixel pairs and whole groups of eight rows; the rest is
// left alone with a warning. Row y of the output takes the chroma of
// full-height row y: for even y chroma row y / 2 itself, for odd y = 2j + 1
// the half-way value of chroma rows j - 1 .. j + 2 of the converted region
// (a row outside it replaced by the nearest edge row). Each chroma sample
// serves a pixel pair; set B; B, G, R, aval.
struct FilterRows {
    using Size = WholeGroups<2, 8, true>;
    static constexpr int kChunk = 1024;  // chroma samples interpolated at a time

    template <class Images, class Extras>
    static ZorStatus run(ZoriSize roi, const Images& images, const Extras& extras) {
        const ZoriSize done = Size::done(roi);
        const auto src = std::get<0>(images).view();  // planes Y, Cr, Cb
        const auto dst = std::get<1>(images).view();
        const Zor8u aval = std::get<0>(extras).value();
        const auto decodeRow = DecodeK<&DecodeKernels::planar422BgrC4>::resolve();
        const auto halfway = DecodeK<&DecodeKernels::halfway>::resolve();
        const int chromaRows = done.height / 2, pairs = done.width / 2;
        forRows<Serial>(done.height, [&](int y) {
            const Row3<const Zor8u, 2> r = src.row(y);
            Zor8u* out = dst.row(y).p;
            if ((y & 1) == 0) {
                decodeRow({{r.p[0], r.p[2], r.p[1]}}, {out}, done.width, aval);
                return;
            }
            const Row3<const Zor8u, 2> c[4] = {
                src.row(2 * std::max(y / 2 - 1, 0)), src.row(2 * (y / 2)),
                src.row(2 * std::min(y / 2 + 1, chromaRows - 1)), src.row(2 * std::min(y / 2 + 2, chromaRows - 1))};
            Zor8u cr[kChunk], cb[kChunk];
            for (int k = 0; k < pairs; k += kChunk) {
                const int n = std::min(kChunk, pairs - k);
                halfway({c[0].p[1] + k}, {c[1].p[1] + k}, {c[2].p[1] + k}, {c[3].p[1] + k}, {cr}, n);
                halfway({c[0].p[2] + k}, {c[1].p[2] + k}, {c[2].p[2] + k}, {c[3].p[2] + k}, {cb}, n);
                decodeRow({{r.p[0] + 2 * k, cb, cr}}, {out + 8 * k}, 2 * n, aval);
            }
        });
        return Size::status(roi);
    }
};

}  // namespace
}  // namespace zor

using namespace zor;

ZOR_EXPORT(zoriYCrCb420ToBGR_Filter_8u_P3C4R, (FilterChecks), (FilterRows), IN_P3S(Zor8u, 1, 2), OUT_C(Zor8u, 4), ROI,
           ARG(Zor8u, aval))
