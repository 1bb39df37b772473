// Side-by-side cases of the bit-depth reduction: 1080p images reduced to 8
// levels by plain quantisation, the ordered dither and error diffusion. The
// plain 8u case has OpenCV's table lookup (cv::LUT with the same 256 levels)
// beside it.
#include "side_by_side.h"

namespace sbs {
namespace {

#ifdef ZORCC_BENCH_HAVE_OPENCV
int lutPeer(Image& s, Image& d) {
    static const cv::Mat table = [] {
        cv::Mat t(1, 256, CV_8U);
        for (int v = 0; v < 256; ++v) {
            Zor8u in = static_cast<Zor8u>(v), out = 0;
            zoriReduceBits_8u_C1R(&in, 1, &out, 1, {1, 1}, 0, zorDitherNone, 8);
            t.at<Zor8u>(0, v) = out;
        }
        return t;
    }();
    cv::Mat out = matOf(d);
    cv::LUT(matOf(s), table, out);
    return 0;
}
#define LUT_PEER lutPeer
#else
#define LUT_PEER nullptr
#endif

template <class S, class D>
int reduceC3(Image& s, Image& d, ZorDitherType method) {
    using Fn = ZorStatus (*)(const S*, int, D*, int, ZoriSize, int, ZorDitherType, int);
    Fn fn = nullptr;
    if constexpr (std::is_same_v<S, Zor8u>) fn = zoriReduceBits_8u_C3R;
    if constexpr (std::is_same_v<S, Zor16u>) fn = zoriReduceBits_16u_C3R;
    if constexpr (std::is_same_v<S, Zor32f>) fn = zoriReduceBits_32f8u_C3R;
    return fn(s.as<const S>(), s.st(), d.as<D>(), d.st(), kRoi, 0, method, 8);
}

const Case kReduceCases[] = {
    {"ReduceBits 8u C3 plain", "zoriReduceBits_8u_C3R", kC3, kC3,
     [](Image& s, Image& d) { return reduceC3<Zor8u, Zor8u>(s, d, zorDitherNone); }, NONE, LUT_PEER, nullptr},
    {"ReduceBits 16u C3 plain", "zoriReduceBits_16u_C3R", packedOf<Zor16u>(3), packedOf<Zor16u>(3),
     [](Image& s, Image& d) { return reduceC3<Zor16u, Zor16u>(s, d, zorDitherNone); }, NONE, NONE, nullptr},
    {"ReduceBits 32f8u C3 plain", "zoriReduceBits_32f8u_C3R", packedOf<Zor32f>(3), kC3,
     [](Image& s, Image& d) { return reduceC3<Zor32f, Zor8u>(s, d, zorDitherNone); }, NONE, NONE, nullptr},
    {"ReduceBits 8u C3 Bayer", "zoriReduceBits_8u_C3R", kC3, kC3,
     [](Image& s, Image& d) { return reduceC3<Zor8u, Zor8u>(s, d, zorDitherBayer); }, NONE, NONE, nullptr},
    {"ReduceBits 16u C3 Bayer", "zoriReduceBits_16u_C3R", packedOf<Zor16u>(3), packedOf<Zor16u>(3),
     [](Image& s, Image& d) { return reduceC3<Zor16u, Zor16u>(s, d, zorDitherBayer); }, NONE, NONE, nullptr},
    {"ReduceBits 32f8u C3 Bayer", "zoriReduceBits_32f8u_C3R", packedOf<Zor32f>(3), kC3,
     [](Image& s, Image& d) { return reduceC3<Zor32f, Zor8u>(s, d, zorDitherBayer); }, NONE, NONE, nullptr},
    {"ReduceBits 8u C3 Floyd-Steinberg", "zoriReduceBits_8u_C3R", kC3, kC3,
     [](Image& s, Image& d) { return reduceC3<Zor8u, Zor8u>(s, d, zorDitherFS); }, NONE, NONE, nullptr},
    {"ReduceBits 8u C3 Stucki", "zoriReduceBits_8u_C3R", kC3, kC3,
     [](Image& s, Image& d) { return reduceC3<Zor8u, Zor8u>(s, d, zorDitherStucki); }, NONE, NONE, nullptr},
    {"ReduceBits 8u C3 JJN", "zoriReduceBits_8u_C3R", kC3, kC3,
     [](Image& s, Image& d) { return reduceC3<Zor8u, Zor8u>(s, d, zorDitherJJN); }, NONE, NONE, nullptr},
};
const CaseGroup kGroup(40, "bit reduction", std::begin(kReduceCases), std::end(kReduceCases));

}  // namespace
}  // namespace sbs
