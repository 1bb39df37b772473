// Plain quantisation (no dither): serial rows, single precision on the 0..1
// scale. A residue of exactly half an interval rounds down, and m * (1/m)
// falling below 1 in single precision makes the top input give 254 for some
// level counts on 8-bit destinations; both are kept as they are.
#include "core/frame.h"
#include "reducebits/reducebits.h"

namespace zor {

namespace {

template <class Tr>
void innerNo(const typename Tr::Src* src, typename Tr::Dst* dst, int width, int channels, int stride, float mf,
             float inv, float half) {
    const int top = Tr::kTopLevel;
    for (int x = 0; x < width; ++x, src += stride, dst += stride) {
        for (int c = 0; c < channels; ++c) {
            const float v = Tr::plainValue(src[c]);
            const int k = Tr::toInt(mf * v);
            float q = static_cast<float>(k) * inv;
            if (v - q > half) q = q + inv;
            int out = Tr::toInt(q * Tr::kDstScale);
            if (out >= top) out = top;
            dst[c] = Tr::store(out);
        }
    }
}

}  // namespace

template <class Tr>
void ownNo_PX(const typename Tr::Src* src, int srcStep, typename Tr::Dst* dst, int dstStep, int width, int height,
              int m, int channelCode) {
    const ChannelLayout lay = channelLayout(channelCode);
    const float mf = static_cast<float>(m);
    const float inv = 1.0f / mf;
    const float half = 0.5f * inv;
    const auto s = plane(src, srcStep);
    const auto d = plane(dst, dstStep);
    serialRows(height, [&](int y) { innerNo<Tr>(s.row(y), d.row(y), width, lay.channels, lay.stride, mf, inv, half); });
}

#define ZOR_RB_INSTANTIATE(Tr)                                                                                  \
    template void ownNo_PX<Tr>(const Tr::Src*, int, Tr::Dst*, int, int, int, int, int);
ZOR_RB_FOR_EACH_TYPE(ZOR_RB_INSTANTIATE)
#undef ZOR_RB_INSTANTIATE

}  // namespace zor
