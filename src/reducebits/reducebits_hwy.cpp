// Vector kernels of the bit-depth reduction, compiled once per CPU target:
// the plain table lookup of 8u (a byte map in vectors), plain quantisation
// of 16-bit and 32f sources and the ordered dither of every type pair. Each
// computes exactly what its scalar kernel (reducebits/kernels.h) computes, in
// float lanes: the same products, quotients and sums in the same order.
//
// The biased truncation of the level index is done in float lanes
// (reducebits/bias-inl.h). 32f lanes outside its range (negative, huge, NaN)
// send their block of pixels to the scalar kernel.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "reducebits/reducebits_hwy.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/cache_control.h"
#include "core/bytemap-inl.h"
#include "core/lanes-inl.h"
#include "reducebits/bias-inl.h"
#include "hwy/highway.h"
#include "reducebits/kernels.h"

#include <cmath>

HWY_BEFORE_NAMESPACE();
namespace zor {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET != HWY_SCALAR

// Samples on the working scale (16s shifted by +32768), one per float lane.
template <class S>
HWY_INLINE VF loadWork(const S* p) {
    const DF df;
    if constexpr (std::is_same_v<S, Zor32f>) {
        return hn::LoadU(df, p);
    } else {
        const DI di;
        const hn::Rebind<S, DF> ds;
        VI i = hn::PromoteTo(di, hn::LoadU(ds, p));
        if constexpr (std::is_same_v<S, Zor16s>) i = hn::Add(i, hn::Set(di, 32768));
        return hn::ConvertTo(df, i);
    }
}

// Levels on the unsigned destination scale to destination samples: their
// low bits (a truncating narrowing), 16s offset by -32768.
template <class D>
HWY_INLINE void storeLevels(VI level, D* p) {
    const DI di;
    const hn::RebindToUnsigned<DI> du;
    const hn::Rebind<hwy::MakeUnsigned<D>, DF> dd;
    if constexpr (std::is_same_v<D, Zor16s>) level = hn::Sub(level, hn::Set(di, 32768));
    hn::StoreU(hn::TruncateTo(dd, hn::BitCast(du, level)), dd, reinterpret_cast<hwy::MakeUnsigned<D>*>(p));
}

// The block driver shared by both methods: blocks of n pixels (n float
// lanes) are N vectors of samples, lane j of vector v holding sample
// n * v + j of the block. levels(x0, samples, out) computes the N level
// vectors of the block at column x0 and says whether every lane was in the
// range where the vector arithmetic is exact; blocks that are not, and the
// pixels after the last whole block, go to scalar(x0, count).
template <class Tr, int Ch, int N, class Levels, class Scalar>
HWY_INLINE void blocks(const typename Tr::Src* s, typename Tr::Dst* d, int width, const Levels& levels,
                       const Scalar& scalar) {
    using D = typename Tr::Dst;
    const DF df;
    const int n = static_cast<int>(hn::Lanes(df));
    int x0 = 0;
    for (; x0 + n <= width; x0 += n) {
        // The kernels spend many instructions per source line, more than
        // the processor keeps in flight to hide a memory read on narrow
        // targets: fetch a few lines ahead (a hint, never a fault).
        hwy::Prefetch(reinterpret_cast<const char*>(s + static_cast<std::ptrdiff_t>(x0) * N) + 2048);
        VI out[N];
        if (!levels(x0, s + static_cast<std::ptrdiff_t>(x0) * N, out)) {
            scalar(x0, n);
            continue;
        }
        D* const o = d + static_cast<std::ptrdiff_t>(x0) * N;
        if constexpr (Ch == N) {
            for (int v = 0; v < N; ++v) storeLevels(out[v], o + v * n);
        } else {
            // AC4: the fourth sample of every pixel is not written.
            HWY_ALIGN D tmp[N * hn::MaxLanes(df)];
            for (int v = 0; v < N; ++v) storeLevels(out[v], tmp + v * n);
            for (int i = 0; i < n; ++i)
                for (int c = 0; c < Ch; ++c) o[i * N + c] = tmp[i * N + c];
        }
    }
    if (x0 < width) scalar(x0, width - x0);
}

// ---------------------------------------------------------------------------
// Plain quantisation of 8u: the call's table as a byte map, n pixels (N
// vectors of samples) at a time; AC4 keeps the destination's fourth samples.
template <class Tr, int Ch, int N>
void plainLookupRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, const typename Tr::Dst* table) {
    static_assert(Tr::kByteSrc, "a byte table");
    int x0 = 0;
    if constexpr (kByteTableInVectors) {
        const D8 d8;
        const int n = static_cast<int>(hn::Lanes(d8));
        const ByteMap map(table);
        const auto alpha = hn::Eq(hn::And(hn::Iota(d8, 0), hn::Set(d8, 3)), hn::Set(d8, 3));
        for (; x0 + n <= width; x0 += n) {
            for (int v = 0; v < N; ++v) {
                const std::ptrdiff_t i = static_cast<std::ptrdiff_t>(x0) * N + v * n;
                V8 r = map(hn::LoadU(d8, s.p + i));
                if constexpr (Ch != N) r = hn::IfThenElse(alpha, hn::LoadU(d8, d.p + i), r);
                hn::StoreU(r, d8, d.p + i);
            }
        }
    }
    const std::ptrdiff_t o = static_cast<std::ptrdiff_t>(x0) * N;
    ::zor::plainLookupRow<Tr, Ch, N>({s.p + o}, {d.p + o}, width - x0, table);
}

// Plain quantisation of 16-bit and 32f sources: 16-bit samples divided by
// 65535 as the scalar kernel does (a true division), 32f lanes with
// |x| <= 16384 (so that every product converts to int without saturating).
template <class Tr, int Ch, int N>
void plainRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, int m) {
    static_assert(!Tr::kByteSrc, "8u uses a table");
    const DF df;
    const DI di;
    const int n = static_cast<int>(hn::Lanes(df));
    const float mfs = static_cast<float>(m), invs = 1.0f / mfs;
    const VF mf = hn::Set(df, mfs), inv = hn::Set(df, invs), half = hn::Set(df, 0.5f * invs);
    const VF scale = hn::Set(df, Tr::kDstScale), limit = hn::Set(df, 16384.0f), full = hn::Set(df, 65535.0f);
    const VI top = hn::Set(di, Tr::kTopLevel);
    const auto levels = [&](int, const typename Tr::Src* p, VI* out) {
        auto ok = hn::Not(hn::Ne(hn::Zero(df), hn::Zero(df)));
        for (int v = 0; v < N; ++v) {
            VF x;
            if constexpr (Tr::kFloatSrc) {
                x = hn::LoadU(df, p + v * n);
                ok = hn::And(ok, hn::Le(hn::Abs(x), limit));
            } else {
                x = hn::Div(loadWork(p + v * n), full);
            }
            VF q = hn::Mul(hn::ConvertTo(df, hn::ConvertTo(di, hn::Mul(mf, x))), inv);
            q = hn::IfThenElse(hn::Gt(hn::Sub(x, q), half), hn::Add(q, inv), q);
            out[v] = hn::Min(hn::ConvertTo(di, hn::Mul(q, scale)), top);
        }
        return hn::AllTrue(df, ok);
    };
    const auto scalar = [&](int x0, int count) {
        ::zor::plainRow<Tr, Ch, N>({s.p + static_cast<std::ptrdiff_t>(x0) * N}, {d.p + static_cast<std::ptrdiff_t>(x0) * N},
                                   count, m);
    };
    blocks<Tr, Ch, N>(s.p, d.p, width, levels, scalar);
}

// ---------------------------------------------------------------------------
// Ordered dither. The thresholds of a block's samples (each pixel's for all
// of its samples) come from a per-block table: the matrix repeats every 4
// columns, so its table is made once per row; the noise one per block.
template <class Th>
inline constexpr bool kRowPeriodic = std::is_same_v<Th, BayerMatrix>;

template <class Tr, int Ch, int N, class Th>
void bayerRow(SrcRow<Tr, N> s, DstRow<Tr, N> d, int width, int y, Quant q, Th th) {
    const DF df;
    const DI di;
    const int n = static_cast<int>(hn::Lanes(df));
    HWY_ALIGN float thr[N * hn::MaxLanes(df)];
    VF rowThr[N];  // the matrix's thresholds of a block, the same for every block of the row
    const auto fill = [&](int x0) {
        for (int i = 0; i < n * N; ++i) thr[i] = th(x0 + i / N, y);
    };
    if constexpr (kRowPeriodic<Th>) {
        fill(0);
        for (int v = 0; v < N; ++v) rowThr[v] = hn::Load(df, thr + v * n);
    }
    const VF invStep = hn::Set(df, q.invStep), step = hn::Set(df, q.step), one = hn::Set(df, 1.0f);
    const VF bias = hn::Set(df, biasBelow());
    const VF below = hn::Set(df, 8388608.0f);
    // 8u: (k M) >> 8 as the float k (M / 256), exact below 2^24.
    const VF mult = hn::Set(df, static_cast<float>(q.mult) * 0.00390625f);
    const VI top = hn::Set(di, Tr::kTopLevel);
    const VF scale = hn::Set(df, Tr::kDstScale);
    const auto levels = [&](int x0, const typename Tr::Src* p, VI* out) {
        if constexpr (!kRowPeriodic<Th>) fill(x0);
        auto ok = hn::Not(hn::Ne(hn::Zero(df), hn::Zero(df)));
        for (int v = 0; v < N; ++v) {
            const VF w = loadWork(p + v * n);
            const VF pr = hn::Mul(w, invStep);
            if constexpr (Tr::kFloatSrc) ok = hn::And(ok, hn::And(hn::Ge(pr, hn::Zero(df)), hn::Lt(pr, below)));
            // The level index k as a float. 8u: the float product never
            // falls short of an integer that v m / 255 reaches, so for every
            // sample and level count its floor is the biased double's
            // truncation, floor(v m / 255).
            VF kf;
            if constexpr (Tr::kByteSrc)
                kf = hn::Floor(pr);
            else
                kf = truncBiasedF(pr, bias);
            const VF t = kRowPeriodic<Th> ? rowThr[v] : hn::Load(df, thr + v * n);
            const MF up = hn::Gt(hn::Sub(w, hn::Mul(kf, step)), t);
            kf = hn::IfThenElse(up, hn::Add(kf, one), kf);
            if constexpr (Tr::kByteSrc) {
                out[v] = hn::ConvertTo(di, hn::Mul(kf, mult));
            } else if constexpr (Tr::kWideScale) {
                VI level = truncBiased(hn::Mul(kf, step), bias);
                if constexpr (sizeof(typename Tr::Dst) == 1) level = hn::ShiftRight<8>(level);
                out[v] = hn::Min(level, top);
            } else {
                const VF a = hn::Mul(hn::Mul(kf, step), scale);
                ok = hn::And(ok, hn::Lt(a, below));
                out[v] = truncBiased(a, bias);
            }
        }
        return hn::AllTrue(df, ok);
    };
    const auto scalar = [&](int x0, int count) {
        const std::ptrdiff_t o = static_cast<std::ptrdiff_t>(x0) * N;
        ::zor::bayerRow<Tr, Ch, N, FromColumn<Th>>({s.p + o}, {d.p + o}, count, y, q, FromColumn<Th>{th, x0});
    };
    blocks<Tr, Ch, N>(s.p, d.p, width, levels, scalar);
}

#endif  // HWY_TARGET != HWY_SCALAR

// ---------------------------------------------------------------------------

// With 128- and 256-bit vectors on x86 the division of the plain 16-bit
// kernels costs more than the call's table of 65536: those targets keep the
// scalar kernels there (and the caller the table).
#if HWY_TARGET != HWY_SCALAR
inline constexpr bool kPlain16InVectors = !HWY_ARCH_X86 || HWY_TARGET == HWY_AVX3;
#else
inline constexpr bool kPlain16InVectors = false;
#endif

constexpr RbKernels vectorKernels() {
    RbKernels t = {ZOR_RB_KERNELS(ZOR_KERNEL_POINTER)};
#define ZOR_RB_SCALAR_MEMBER(name, fn, args) t.name = &::zor::fn<ZOR_STRIP args>;
    if (!kPlain16InVectors) {
        ZOR_RB_PLAIN16(ZOR_RB_SCALAR_MEMBER)
    }
#undef ZOR_RB_SCALAR_MEMBER
    return t;
}
HWY_MAYBE_UNUSED constexpr RbKernels kRbVector = vectorKernels();

}  // namespace HWY_NAMESPACE
}  // namespace zor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "core/target_tables.h"
namespace zor {
ZOR_TARGET_TABLES(RbKernels, kRbVector, rbTables, kRbScalar)
}  // namespace zor
#endif
