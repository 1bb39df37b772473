// Vector kernels of error diffusion (Floyd-Steinberg, Stucki,
// Jarvis-Judice-Ninke), compiled once per CPU target.
//
// A section's chain of global rows (reducebits/diffuse.h) is cut into waves
// of 32 rows (64 for vectors of 16 lanes). Within a wave, lane j of the
// wavefront works on row j at column x = t - kSkew * j at step t; all lanes
// advance one column per step.
// Lane j needs the errors of row j - 1 at columns x - g .. x + g (g is the
// kernel's reach) and, for the two-row kernels, of row j - 2: lane j - 1
// made column x + d at step t + d - kSkew, lane j - 2 at step
// t + d - 2 * kSkew. The errors of every step are stored in a tile row with
// two leading slots, so "lane j - 1 at step u" is one unaligned load at lane
// offset -1 of tile row u (offset -2 for lane j - 2); the slots hold the last
// two rows of the wave before. The skew keeps the nearest of these two steps
// back, so only the error of the left neighbour (the lane's own error of
// the step before) is on the step-to-step latency chain. A wave is several
// vectors wide so that the latency of one step is shared by all its rows.
//
// Lanes outside the image (columns before 0 or past the row at the ramps of
// the skew, rows past the end of the section) store a zero error, which is
// what the scalar kernel reads from its zero guards and its cleared rows.
// Samples are staged into a tile before a wave and
// the levels copied out after it, by scalar loops over each row.
//
// Each sample's arithmetic is the scalar kernel's: the same products and
// sums in the same order, the same saturation tests (NaN fails both and goes
// to the bottom), and the double-precision biased truncation of the level
// index done exactly in float lanes (reducebits/bias-inl.h; here p lies in
// [0, levels] for every lane that is kept).
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "reducebits/diffuse_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "core/lanes-inl.h"
#include "reducebits/bias-inl.h"
#include "hwy/highway.h"
#include "reducebits/diffuse.h"

#include <cmath>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

template <class Tr, class Method>
struct WaveSum;

// 3/16, 5/16, 1/16 of the row above at x + 1, x, x - 1 and 7/16 of the left.
template <class Tr>
struct WaveSum<Tr, Fs> {
    template <class Above>
    static HWY_INLINE VF sum(const Above& above, VF left1, VF) {
        const DF df;
        const VF s = hn::Add(hn::Add(hn::Mul(hn::Set(df, 3.0f), above(1, 1)), hn::Mul(hn::Set(df, 5.0f), above(1, 0))),
                             above(1, -1));
        return hn::Mul(hn::Add(s, hn::Mul(hn::Set(df, 7.0f), left1)), hn::Set(df, 0.0625f));
    }
};

template <class Tr, class W>
struct WaveSum<Tr, TwoRows<W>> {
    template <class Above>
    static HWY_INLINE VF sum(const Above& above, VF left1, VF left2) {
        const DF df;
        const VF a = hn::Set(df, W::a), b = hn::Set(df, W::b), c = hn::Set(df, W::c);
        VF s = hn::Add(above(2, -2), hn::Mul(a, above(2, -1)));
        s = hn::Add(s, hn::Mul(b, above(2, 0)));
        s = hn::Add(s, hn::Mul(a, above(2, 1)));
        s = hn::Add(s, above(2, 2));
        s = hn::Add(s, hn::Mul(a, above(1, -2)));
        s = hn::Add(s, hn::Mul(b, above(1, -1)));
        s = hn::Add(s, hn::Mul(c, above(1, 0)));
        s = hn::Add(s, hn::Mul(b, above(1, 1)));
        s = hn::Add(s, hn::Mul(a, above(1, 2)));
        s = hn::Add(s, hn::Mul(b, left2));
        s = hn::Add(s, hn::Mul(c, left1));
        return hn::Mul(s, hn::Set(df, W::div));
    }
};

// The sample tile holds float sources as they are and integer sources on
// the working scale as int32 bits, converted to float in the lanes.
template <class Tr>
HWY_INLINE float staged(typename Tr::Src s) {
    if constexpr (Tr::kFloatSrc) {
        return s;
    } else {
        const std::int32_t i = Offset16<typename Tr::Src>::in(s);
        float f;
        std::memcpy(&f, &i, 4);
        return f;
    }
}
template <class Tr>
HWY_INLINE VF unstage(const float* p) {
    const DF df;
    if constexpr (Tr::kFloatSrc) return hn::LoadU(df, p);
    return hn::ConvertTo(df, hn::BitCast(DI(), hn::LoadU(df, p)));
}

template <class Tr, class Method, class Th>
void diffuseSection(const DiffuseArea<Tr>& a, int first, int end, const Quant& q, const Th& th, float* scratch) {
    const DF df;
    const DI di;
    constexpr int L = static_cast<int>(hn::MaxLanes(DF()));
    constexpr int R = L >= 16 ? 64 : 32, K = R / L;
    using Wv = Wave<Method, R>;
    if (L > R || R % L != 0 || static_cast<int>(hn::Lanes(df)) != L)
        return ::zor::diffuseSection<Tr, Method, Th>(a, first, end, q, th, scratch);
    constexpr int S = Method::kSkew, P = Wv::kPre, St = Wv::kStride, kChunk = 64;
    const int W = a.width, n = a.n;
    const int rows = (end - first) * a.height;
    const int T = static_cast<int>(Wv::steps(W));
    float* const err = scratch;  // step t at row P + t
    float* const tile = err + Wv::errLen(W);
    float* const thr = tile + Wv::tileLen(W);
    float* const p1 = thr + Wv::tileLen(W);
    float* const p2 = p1 + W;
    std::fill(scratch, scratch + Wv::len(W), 0.0f);

    const VF step = hn::Set(df, q.step), inv = hn::Set(df, q.invStep), one = hn::Set(df, 1.0f);
    const VF bias = hn::Set(df, biasBelow()), top = hn::Set(df, Tr::kTop), bottom = hn::Set(df, Tr::kBottom);
    const VF scale = hn::Set(df, Tr::kDstScale);
    const VI mult = hn::Set(di, q.mult), topLevel = hn::Set(di, Tr::kTopLevel);
    VF half = hn::Zero(df);
    if constexpr (std::is_same_v<Th, HalfStep>) half = hn::Set(df, th.half);

    forRows<Serial>((rows + R - 1) / R, [&](int wave) {
        const int r0 = wave * R, count = std::min(R, rows - r0);
        // Rows of the wave: channel and row, source and destination.
        const typename Tr::Src* srcRow[R];
        typename Tr::Dst* dstRow[R];
        int rowY[R];
        for (int j = 0; j < count; ++j) {
            const int c = first + (r0 + j) / a.height, y = (r0 + j) % a.height;
            srcRow[j] = rowAt(a.src, a.srcStep, y) + c;
            dstRow[j] = rowAt(a.dst, a.dstStep, y) + c;
            rowY[j] = y;
        }
        // The slots: the wave before's last row at column t + S, the one
        // before it at t + 2S.
        for (int t = -P; t < T; ++t) {
            float* e = err + static_cast<std::ptrdiff_t>(P + t) * St;
            e[1] = static_cast<unsigned>(t + S) < static_cast<unsigned>(W) ? p1[t + S] : 0.0f;
            e[0] = static_cast<unsigned>(t + 2 * S) < static_cast<unsigned>(W) ? p2[t + 2 * S] : 0.0f;
        }
        // Lane j is inside the image for steps [S * j, S * j + W).
        VI lo[K], hi[K];
        VF left1[K], left2[K];
        for (int k = 0; k < K; ++k) {
            const VI j = hn::Add(hn::Iota(di, 0), hn::Set(di, k * L));
            lo[k] = hn::Mul(j, hn::Set(di, S));
            hi[k] = hn::IfThenElse(hn::Lt(j, hn::Set(di, count)), hn::Add(lo[k], hn::Set(di, W)), lo[k]);
            left1[k] = left2[k] = hn::Zero(df);
        }
        // Steps in chunks, so that the tile rows that a chunk stages, runs
        // and copies out stay in the first-level cache.
        for (int t0 = 0; t0 < T; t0 += kChunk) {
            const int t1 = std::min(T, t0 + kChunk);
            // Lane j's columns at steps [t0, t1).
            const auto columns = [&](int j, int& x0, int& x1) {
                x0 = std::max(0, t0 - S * j);
                x1 = std::min(W, t1 - S * j);
            };
            for (int j = 0; j < count; ++j) {
                int x0, x1;
                columns(j, x0, x1);
                float* col = tile + (static_cast<std::ptrdiff_t>(S) * j + x0) * R + j;
                withSamples(n, [&](auto samples) {
                    const typename Tr::Src* src = srcRow[j] + static_cast<std::ptrdiff_t>(x0) * samples();
#pragma GCC unroll 4
                    for (int x = x0; x < x1; ++x, src += samples(), col += R) *col = staged<Tr>(*src);
                });
                if constexpr (!std::is_same_v<Th, HalfStep>) {
                    float* tc = thr + static_cast<std::ptrdiff_t>(S) * j * R + j;
                    for (int x = x0; x < x1; ++x) tc[static_cast<std::ptrdiff_t>(x) * R] = th(x, rowY[j]);
                }
            }
            for (int t = t0; t < t1; ++t) {
                const VI tv = hn::Set(di, t);
                float* const e = err + static_cast<std::ptrdiff_t>(P + t) * St + 2;
                float* const in = tile + static_cast<std::ptrdiff_t>(t) * R;
                for (int k = 0; k < K; ++k) {
                    // Lane j - back at step t + d - back * S.
                    const auto above = [&](int back, int d) {
                        return hn::LoadU(df, e + (d - back * S) * St + k * L - back);
                    };
                    const MF valid = hn::RebindMask(df, hn::AndNot(hn::Lt(tv, lo[k]), hn::Lt(tv, hi[k])));
                    const VF v =
                        hn::Add(unstage<Tr>(in + k * L), WaveSum<Tr, Method>::sum(above, left1[k], left2[k]));
                    const MF isTop = hn::Ge(v, top);
                    const MF mid = hn::AndNot(isTop, hn::Ge(v, bottom));
                    const VF kf = truncBiasedF(hn::Mul(v, inv), bias);
                    const VF base = hn::Mul(kf, step);
                    const VF r = hn::Sub(v, base);
                    VF threshold = half;
                    if constexpr (!std::is_same_v<Th, HalfStep>)
                        threshold = hn::LoadU(df, thr + static_cast<std::ptrdiff_t>(t) * R + k * L);
                    const MF up = hn::Gt(r, threshold);
                    const VF error =
                        hn::IfThenElseZero(hn::And(mid, valid), hn::IfThenElse(up, hn::Sub(v, hn::Add(base, step)), r));
                    hn::StoreU(error, df, e + k * L);
                    left2[k] = left1[k];
                    left1[k] = error;
                    // The level of k + up on the destination scale.
                    const VF kf1 = hn::IfThenElse(up, hn::Add(kf, one), kf);
                    VI level;
                    if constexpr (Tr::kByteSrc) {
                        level = hn::ShiftRight<8>(hn::Mul(hn::ConvertTo(di, kf1), mult));
                    } else if constexpr (Tr::kWideScale) {
                        level = hn::ConvertTo(di, truncBiasedF(hn::Mul(kf1, step), bias));
                        if constexpr (sizeof(typename Tr::Dst) == 1) level = hn::ShiftRight<8>(level);
                    } else {
                        level = hn::ConvertTo(di, truncBiasedF(hn::Mul(hn::Mul(kf1, step), scale), bias));
                    }
                    // Lanes outside store 0 (a float zero, never a denormal).
                    level = hn::IfThenElse(hn::RebindMask(di, mid), level,
                                           hn::IfThenElseZero(hn::RebindMask(di, isTop), topLevel));
                    level = hn::IfThenElseZero(hn::RebindMask(di, valid), level);
                    hn::StoreU(hn::BitCast(df, level), df, in + k * L);
                }
            }
            for (int j = 0; j < count; ++j) {
                int x0, x1;
                columns(j, x0, x1);
                const float* col = tile + (static_cast<std::ptrdiff_t>(S) * j + x0) * R + j;
                withSamples(n, [&](auto samples) {
                    typename Tr::Dst* d = dstRow[j] + static_cast<std::ptrdiff_t>(x0) * samples();
#pragma GCC unroll 4
                    for (int x = x0; x < x1; ++x, d += samples(), col += R) {
                        std::int32_t level;
                        std::memcpy(&level, col, 4);
                        *d = Tr::store(level);
                    }
                });
            }
        }
        // The last two rows' errors, kept for the next wave.
        if (count == R) {
            const float* last = err + static_cast<std::ptrdiff_t>(P + S * (R - 1)) * St + 2 + R - 1;
            const float* before = err + static_cast<std::ptrdiff_t>(P + S * (R - 2)) * St + 2 + R - 2;
            for (int x = 0; x < W; ++x) {
                p1[x] = last[static_cast<std::ptrdiff_t>(x) * St];
                p2[x] = before[static_cast<std::ptrdiff_t>(x) * St];
            }
        }
    });
}

#endif  // HWY_TARGET != HWY_SCALAR

HWY_MAYBE_UNUSED constexpr DiffuseKernels kDiffuseVector = {ZOR_RB_DIFFUSE(ZOR_KERNEL_POINTER)};

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(DiffuseKernels, kDiffuseVector, diffuseTables, kDiffuseScalar)
}  // namespace zor
#endif
