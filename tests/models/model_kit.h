// Reference models of the colour models, pixel by pixel, written from their
// documented arithmetic in its documented order of float operations, and the
// table of the interleaved members with their references and source ranges.
#pragma once

#include "support/testutil.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace mk {

template <class T>
constexpr bool kF32 = std::is_same_v<T, Zor32f>;
template <class T>
constexpr int kOff = std::is_same_v<T, Zor16s> ? 32768 : 0;  // 16s: offset onto the unsigned scale
template <class T>
constexpr float kTop = kF32<T> ? 1.0f : sizeof(T) == 1 ? 255.0f : 65535.0f;

template <class T>
float in(T v) {
    return kF32<T> ? float(v) : float(int(v) + kOff<T>);
}
template <class T>
T code(int c) {  // a code on the unsigned scale as a sample, low bits kept
    return T(c - kOff<T>);
}
inline int rnd(float v) { return int(v + 0.499999f); }
inline int sat(double v, int hi) { return v >= hi ? hi : v >= 1 ? int(v) : 0; }
inline float unit(float v) { return v < 0 ? 0.0f : v >= 1 ? 1.0f : v; }
inline float cbrtF(float t) { return float(std::pow(double(t), double(1.0f / 3.0f))); }

inline const float kFwd[3][3] = {
    {0.412453f, 0.35758f, 0.180423f}, {0.212671f, 0.71516f, 0.072169f}, {0.019334f, 0.119193f, 0.950227f}};
inline const float kInv[3][3] = {
    {3.240479f, -1.53715f, -0.498535f}, {-0.969256f, 1.875991f, 0.041556f}, {0.055648f, -0.204043f, 1.057311f}};
inline float dot(const float* m, float a, float b, float c) { return m[0] * a + m[1] * b + m[2] * c; }

// Inverse matrix rounded and saturated to 0..hi; blueDouble: the blue row
// adds 0.499999f and Z * 1.057311 in double to the float sum of its first
// two products.
inline void rgbCodes(const float p[3], int hi, bool blueDouble, int c[3]) {
    for (int k = 0; k < 3; ++k) c[k] = sat(dot(kInv[k], p[0], p[1], p[2]) + 0.499999f, hi);
    if (blueDouble) c[2] = sat(double(kInv[2][0] * p[0] + kInv[2][1] * p[1]) + double(0.499999f) + p[2] * 1.057311, hi);
}

// XYZ ------------------------------------------------------------------------

inline void xyz8(const Zor8u* s, Zor8u* d) {
    const int m[3][3] = {{27030, 23434, 11824}, {13937, 46868, 4729}, {1267, 7811, 62274}};
    for (int k = 0; k < 3; ++k) d[k] = Zor8u(std::min((m[k][0] * s[0] + m[k][1] * s[1] + m[k][2] * s[2]) / 65536, 255));
}
inline void xyzInv8(const Zor8u* s, Zor8u* d) {
    const int m[3][3] = {{212368, -100738, -32671}, {-63521, 122944, 2723}, {3646, -13372, 69291}};
    for (int k = 0; k < 3; ++k)
        d[k] = Zor8u(std::clamp(int(std::floor((m[k][0] * s[0] + m[k][1] * s[1] + m[k][2] * s[2]) / 65536.0)), 0, 255));
}
template <class T>  // 16u, 16s, 32f
void xyz(const T* s, T* d) {
    for (int k = 0; k < 3; ++k) {
        const float v = dot(kFwd[k], in(s[0]), in(s[1]), in(s[2]));
        d[k] = kF32<T> ? T(k < 2 ? v : unit(v)) : code<T>(k < 2 ? rnd(v) : sat(v + 0.499999f, 65535));
    }
}
template <class T>
void xyzInv(const T* s, T* d) {
    const float p[3] = {in(s[0]), in(s[1]), in(s[2])};
    int c[3];
    rgbCodes(p, 65535, std::is_same_v<T, Zor16u>, c);
    for (int k = 0; k < 3; ++k) d[k] = kF32<T> ? T(unit(dot(kInv[k], p[0], p[1], p[2]))) : code<T>(c[k]);
}

// LUV ------------------------------------------------------------------------

constexpr float kUn = 0.197839f, kVn = 0.468342f;          // forward, 32f inverse
constexpr float kUnInt = 0.19783941f, kVnInt = 0.4683422f;  // integer inverses

inline int powL(int i) {  // the 8u L code of the luminance ratio i/255
    const double y = i / 255.0;
    return int(std::floor((y > 0.008856 ? 116.0 * std::cbrt(y) - 16.0 : 903.3 * y) * 255.0 / 100.0 + 0.5));
}
inline void luv8(const Zor8u* s, Zor8u* d) {
    const float x = dot(kFwd[0], s[0], s[1], s[2]) / 255.0f, y = dot(kFwd[1], s[0], s[1], s[2]),
                z = dot(kFwd[2], s[0], s[1], s[2]) / 255.0f, den = x + 15.0f * y / 255.0f + 3.0f * z;
    const int lc = powL(rnd(y));
    const bool black = rnd(y) == 0;
    d[0] = Zor8u(lc);
    d[1] = Zor8u(int(3.6723163f * float(lc) * ((black ? 0 : 4.0f * x / den) - kUn) + 97.02543f));
    d[2] = Zor8u(int(4.961832f * float(lc) * ((black ? 0 : 9.0f * (y / 255.0f) / den) - kVn) + 136.75955f));
}
template <class T>  // 16u, 16s, 32f
void luv(const T* s, T* d) {
    const float x = dot(kFwd[0], in(s[0]), in(s[1]), in(s[2])), y = dot(kFwd[1], in(s[0]), in(s[1]), in(s[2])),
                z = dot(kFwd[2], in(s[0]), in(s[1]), in(s[2])), yr = kF32<T> ? y : y / 65535.0f;
    const float l = yr > 0.008856f ? 116.0f * cbrtF(yr) - 16.0f : 903.3f * yr, den = x + 15.0f * y + 3.0f * z;
    const float u = 13.0f * l * ((y != 0 ? 4.0f * x / den : 0) - kUn), v = 13.0f * l * ((y != 0 ? 9.0f * y / den : 0) - kVn);
    if constexpr (kF32<T>) d[0] = l, d[1] = u, d[2] = v;
    else d[0] = code<T>(rnd(l * 65535.0f / 100.0f)), d[1] = code<T>(rnd((u + 134.0f) * 65535.0f / 354.0f)),
         d[2] = code<T>(rnd((v + 140.0f) * 65535.0f / 262.0f));
}
// X, Y, Z of L > 0, u, v with Y on the given scale.
inline void xyzOfLuv(float l, float u, float v, float scale, float un, float vn, float o[3]) {
    const float t = (l + 16.0f) / 116.0f;
    o[1] = (l >= 7.9996247f ? t * t * t : l / 903.3f) * scale;
    const float q = o[1] / (v / (13.0f * l) + vn);
    o[0] = 2.25f * q * (u / (13.0f * l) + un);
    o[2] = 3.0f * q - 5.0f * o[1] - o[0] / 3.0f;
}
template <class T>  // 8u, 16u, 16s
void luvInv(const T* s, T* d) {
    const float l = in(s[0]) * 100.0f / kTop<T>;
    float p[3];
    int c[3] = {0, 0, 0};  // dark: black
    if (!(l < 9e-5f)) {
        xyzOfLuv(l, in(s[1]) * 354.0f / kTop<T> - 134.0f, in(s[2]) * 262.0f / kTop<T> - 140.0f, kTop<T>, kUnInt, kVnInt, p);
        rgbCodes(p, int(kTop<T>), true, c);
    }
    for (int k = 0; k < 3; ++k) d[k] = code<T>(c[k]);
}
// 32f inverse, a whole row: a dark pixel zeroes the current destination
// pixel and neither position advances for the rest of the row.
inline void luvInv32(const Zor32f* s, Zor32f* d, int width, int ch) {
    for (int i = 0; i < width; ++i) {
        float p[3] = {0, 0, 0};
        if (!(s[0] < 9e-5f)) xyzOfLuv(s[0], s[1], s[2], 1.0f, kUn, kVn, p);
        for (int k = 0; k < 3; ++k) d[k] = s[0] < 9e-5f ? 0.0f : unit(dot(kInv[k], p[0], p[1], p[2]));
        if (!(s[0] < 9e-5f)) s += ch, d += ch;
    }
}

// Lab (8-bit BGR; Lab as 8u or 16u codes) --------------------------------------

inline float labF(float t) { return t > 0.008856f ? cbrtF(t) : 7.787f * t + 0.13793103f; }
template <class D>
void lab(const Zor8u* s, D* d) {
    const float b = s[0], g = s[1], r = s[2];
    const float x = (0.180423f * b + 0.35758f * g + 0.412453f * r) / 242.366f;
    const float y = (0.072169f * b + 0.71516f * g + 0.212671f * r) / 255.0f;
    const float z = (0.950227f * b + 0.119193f * g + 0.019334f * r) / 277.632f;
    const float fy = labF(y), a = 500.0f * (labF(x) - fy), bb = 200.0f * (fy - labF(z));
    if constexpr (sizeof(D) == 1) {
        const float l = y > 0.008856f ? 116.0f * fy - 16.0f : 903.3f * y;
        d[0] = D(int(l * 255.0f / 100.0f + 0.5f)), d[1] = D(int(a + 128.5f)), d[2] = D(int(bb + 128.5f));
    } else {  // the lightness from the double cube root, in double
        const double l = y > 0.008856f ? 116.0 * std::pow(double(y), double(1.0f / 3.0f)) - 16.0 : double(903.3f * y);
        d[0] = D(int(l * 65535.0 / 100.0)), d[1] = D(int((a + 128.0f) * 255.0f)), d[2] = D(int((bb + 128.0f) * 255.0f));
    }
}
template <class S>
void labInv(const S* s, Zor8u* d) {
    const bool wide = sizeof(S) == 2;  // 16u codes: no rounding half
    const float fy = (float(s[0]) * 100.0f / (wide ? 65535.0f : 255.0f) + 16.0f) / 116.0f;
    const float fx = (wide ? float(s[1]) / 255.0f - 128.0f : float(int(s[1]) - 128)) / 500.0f + fy;
    const float fz = fy - (wide ? float(s[2]) / 255.0f - 128.0f : float(int(s[2]) - 128)) / 200.0f;
    const float x = 242.366f * (fx * fx * fx), y = 255.0f * (fy * fy * fy), z = 277.632f * (fz * fz * fz);
    for (int k = 0; k < 3; ++k) {
        const float v = dot(kInv[k], x, y, z);
        d[2 - k] = Zor8u(std::clamp(wide ? int(v) : int(double(v) + 0.5), 0, 255));
    }
}

// PhotoYCC ---------------------------------------------------------------------

inline int fdiv(long long v, long long q) { return int(std::floor(double(v) / double(q))); }
inline void ycc8(const Zor8u* s, Zor8u* d) {
    const long long sum = 4898LL * s[0] + 9617LL * s[1] + 1867LL * s[2];
    d[0] = Zor8u(fdiv(fdiv(sum, 1024) * 2921LL, 65536));
    d[1] = Zor8u(fdiv(fdiv(s[2] * 16384LL - sum, 1024) * 1789LL, 65536) + 156);
    d[2] = Zor8u(fdiv(fdiv(s[0] * 16384LL - sum, 1024) * 2178LL, 65536) + 137);
}
inline void yccInv8(const Zor8u* s, Zor8u* d) {
    const long long ty = 5564LL * s[0], t1 = 9084LL * (s[1] - 156), t2 = 7460LL * (s[2] - 137);
    const int v[3] = {fdiv(ty + t2, 4096), fdiv(16 * ty - 794LL * fdiv(t1, 256) - 2084LL * fdiv(t2, 256), 65536),
                      fdiv(ty + t1, 4096)};
    for (int k = 0; k < 3; ++k) d[k] = Zor8u(std::clamp(v[k], 0, 255));
}
template <class T>  // 16u: combined matrix; 16s, 32f: model form
void ycc(const T* s, T* d) {
    const float r = in(s[0]), g = in(s[1]), b = in(s[2]), yl = 0.299f * r + 0.587f * g + 0.114f * b;
    const float o1 = kF32<T> ? 0.6117647f : 40092.0f, o2 = kF32<T> ? 0.5372549f : 35209.0f;
    const float m[3][3] = {
        {0.213267f, 0.418688f, 0.0813124f}, {-0.130621f, -0.256437f, 0.387058f}, {0.372876f, -0.312237f, -0.0606389f}};
    const bool comb = std::is_same_v<T, Zor16u>;
    const float v[3] = {comb ? dot(m[0], r, g, b) : 0.7132668f * yl,
                        comb ? dot(m[1], r, g, b) + o1 : 0.43686f * (b - yl) + o1,
                        comb ? dot(m[2], r, g, b) + o2 : 0.53192f * (r - yl) + o2};
    for (int k = 0; k < 3; ++k) d[k] = kF32<T> ? T(v[k]) : code<T>(rnd(v[k]));
}
template <class T>
void yccInv(const T* s, T* d) {
    const float l = 1.3584f * in(s[0]), c1 = 2.2179f * (in(s[1]) - (kF32<T> ? 0.6117647f : 40092.0f)),
                c2 = 1.8215f * (in(s[2]) - (kF32<T> ? 0.5372549f : 35209.0f));
    const float v[3] = {l + c2, l - 0.194f * c1 - 0.509f * c2, l + c1};
    for (int k = 0; k < 3; ++k) d[k] = kF32<T> ? T(unit(v[k])) : code<T>(sat(v[k] + 0.499999f, 65535));
}

// HLS (hue in degrees) and HSV ------------------------------------------------

// Codes of values on the code scale: rounded (+0.499999 in float) or
// floored (+1e-7 in double); 32f as they are.
template <class T, bool Floor>
T hlsCode(float v) {
    return kF32<T> ? T(v) : code<T>(Floor ? int(double(v) + 1e-7) : rnd(v));
}
template <class T, bool Floor = false>
void hls(const T* s, T* d) {
    const float n = kTop<T>, r = in(s[0]) / n, g = in(s[1]) / n, b = in(s[2]) / n;
    const float mx = std::max({r, g, b}), mn = std::min({r, g, b}), dl = mx - mn, l = (mx + mn) / 2;
    float h = 0, sat = 0;
    if (kF32<T> ? dl > 1.1920929e-7f : dl != 0) {
        sat = l <= 0.5f ? dl / (mx + mn) : dl / (2 - (mx + mn));
        h = r == mx ? (g - b) * 60 / dl : g != mx ? (r - g) * 60 / dl + 240 : (b - r) * 60 / dl + 120;
        h = h < 0 ? h + 360 : h;
    }
    d[0] = hlsCode<T, Floor>(kF32<T> ? h / 360 : h * n / 360), d[1] = hlsCode<T, Floor>(l * n);
    d[2] = hlsCode<T, Floor>(sat * n);
}
inline float ramp(float m1, float m2, float h) {
    return h < 60 ? m1 + (m2 - m1) * h / 60 : h < 180 ? m2 : h < 240 ? m1 + (m2 - m1) * (240 - h) / 60 : m1;
}
template <class T, bool Floor = false>
void hlsInv(const T* s, T* d) {
    const float n = kTop<T>, h = in(s[0]) * 360 / n, l = in(s[1]) / n, sat = in(s[2]) / n;
    const float m2 = l > 0.5f ? l + sat - l * sat : l * (1 + sat), m1 = 2 * l - m2;
    const float o[3] = {ramp(m1, m2, h + 120 > 360 ? h + 120 - 360 : h + 120), ramp(m1, m2, h),
                        ramp(m1, m2, h - 120 < 0 ? h - 120 + 360 : h - 120)};
    for (int k = 0; k < 3; ++k) d[k] = hlsCode<T, Floor>((sat == 0 ? l : o[k]) * n);
}

template <class T>
void hsv(const T* s, T* d) {
    const int r = s[0], g = s[1], b = s[2], mx = std::max({r, g, b}), mn = std::min({r, g, b});
    d[0] = d[1] = 0, d[2] = T(mx);
    if (mx == 0 || mx == mn) return;
    const float dl = float(mx - mn), inv = 1 / dl;
    const float h = b == mx ? 4 - (mx - r) * inv + (mx - g) * inv : g == mx ? 2 + (b - r) * inv : (g - b) * inv;
    const float x = sizeof(T) == 1 ? h * 255 / 6 : (h + 1.1920929e-7f < 0 ? h + 6 : h) * 65535 / 6;
    d[0] = T(rnd(sizeof(T) == 1 && x < 0 ? x + 255 : x)), d[1] = T(rnd(dl / mx * kTop<T>));
}
template <class T>
void hsvInv(const T* s, T* d) {
    const float v = s[2], sat = s[1] / kTop<T>;
    const float hh = s[0] == T(kTop<T>) ? 0 : float(s[0]) * 360 / kTop<T> / 60;
    const int i = int(std::floor(hh));
    const float f = hh - i, p = (1 - sat) * v, q = (1 - sat * f) * v, t = (1 - sat * (1 - f)) * v;
    const float rgb[6][3] = {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}};
    for (int c = 0; c < 3; ++c) d[c] = s[1] == 0 ? s[2] : T(rnd(rgb[i][c]));
}

// The members -------------------------------------------------------------------

enum class Range { Int, Rgb, Luv, Unit };  // 32f sources: -0.3..1.4; L, u, v (some dark); 0..1

struct Member {
    const char* name;
    ZorStatus (*fn)(const void*, int, void*, int, ZoriSize);
    void (*ref)(const void*, void*, int width, int ch);  // the reference over a row
    int ch, srcSize, dstSize;                            // samples per pixel (3, 4), sample bytes
    Range range;
    enum { kNoStepCheck, kStepsAfterSize, kStepsBeforeSize } steps = kNoStepCheck;
    unsigned planes = 0;  // plane pointers that gNullPlane may null (bits 0..3 source, 4..7 destination)
};

template <class S, class D, ZorStatus (*F)(const S*, int, D*, int, ZoriSize)>
ZorStatus erased(const void* s, int ss, void* d, int ds, ZoriSize roi) {
    return F(static_cast<const S*>(s), ss, static_cast<D*>(d), ds, roi);
}
template <class S, class D, auto P>
void rowOf(const void* sv, void* dv, int width, int ch) {
    const S* s = static_cast<const S*>(sv);
    D* d = static_cast<D*>(dv);
    if constexpr (std::is_invocable_v<decltype(P), const S*, D*, int, int>)
        P(s, d, width, ch);
    else
        for (int i = 0; i < width; ++i) P(s + i * ch, d + i * ch);
}

inline void bgrHls(const Zor8u* s, Zor8u* d) {  // the BGRA forward member: B, G, R in, rounded
    const Zor8u rgb[3] = {s[2], s[1], s[0]};
    hls<Zor8u>(rgb, d);
}

// The planar and mixed BGR HLS layouts (floored codes, B, G, R with blue
// first). A planar side keeps its N planes side by side in one image, so
// that they share one step: plane k of a row starts k * width bytes in.
inline int gNullPlane = -1;  // the plane pointer passed as null: source 0..3, destination 4..7
template <int N, class P>
P sideArg(void* p, int width, int first, Zor8u* (&planes)[4]) {
    if constexpr (std::is_pointer_v<std::remove_pointer_t<P>>) {
        for (int k = 0; k < N; ++k) planes[k] = first + k == gNullPlane ? nullptr : static_cast<Zor8u*>(p) + k * width;
        return p ? planes : nullptr;
    } else {
        return static_cast<Zor8u*>(p);
    }
}
template <int N, class SP, class DP>
struct Bgr {
    template <ZorStatus (*F)(SP, int, DP, int, ZoriSize)>
    static ZorStatus call(const void* s, int ss, void* d, int ds, ZoriSize roi) {
        Zor8u *sp[4], *dp[4];
        return F(sideArg<N, SP>(const_cast<void*>(s), roi.width, 0, sp), ss, sideArg<N, DP>(d, roi.width, 4, dp), ds, roi);
    }
};
template <int N, class SP, class DP>
Bgr<N, SP, DP> bgrOf(ZorStatus (*)(SP, int, DP, int, ZoriSize));
template <bool Fwd, bool SP, bool DP, int N>
void bgrRow(const void* sv, void* dv, int width, int) {
    const auto at = [width](auto* row, bool planar, int i, int k) -> auto& {
        return planar ? row[k * width + i] : row[i * N + k];
    };
    const Zor8u* s = static_cast<const Zor8u*>(sv);
    Zor8u* d = static_cast<Zor8u*>(dv);
    for (int i = 0; i < width; ++i) {
        Zor8u in[3], out[3];
        for (int k = 0; k < 3; ++k) in[k] = at(s, SP, i, Fwd ? 2 - k : k);
        Fwd ? hls<Zor8u, true>(in, out) : hlsInv<Zor8u, true>(in, out);
        for (int k = 0; k < 3; ++k) at(d, DP, i, Fwd ? k : 2 - k) = out[k];
        if (N == 4) at(d, DP, i, 3) = at(s, SP, i, 3);  // alpha copied
    }
}

#define MK_ONE(f, S, D, ch, ref, range) \
    mk::Member { #f, mk::erased<S, D, f>, mk::rowOf<S, D, mk::ref>, ch, int(sizeof(S)), int(sizeof(D)), mk::Range::range }
#define MK_PAIR(op, ty, ref, range)                                                   \
    MK_ONE(zori##op##_##ty##_C3R, Zor##ty, Zor##ty, 3, ref, range),                   \
        MK_ONE(zori##op##_##ty##_AC4R, Zor##ty, Zor##ty, 4, ref, range)
#define MK_BGR(op, lay, n, sp, dp)                                                                                   \
    mk::Member {                                                                                                   \
        "zori" #op "_8u_" #lay, decltype(mk::bgrOf<n>(zori##op##_8u_##lay))::call<zori##op##_8u_##lay>,            \
            mk::bgrRow<#op[0] == 'B', sp, dp, n>, n, 1, 1, mk::Range::Int, mk::Member::kStepsBeforeSize,        \
            (sp ? (1u << n) - 1 : 0) | (dp ? ((1u << n) - 1) << 4 : 0)                                          \
    }

inline std::vector<Member> members() {
    std::vector<Member> v = {
        MK_PAIR(RGBToXYZ, 8u, xyz8, Int),         MK_PAIR(XYZToRGB, 8u, xyzInv8, Int),
        MK_PAIR(RGBToXYZ, 16u, xyz<Zor16u>, Int), MK_PAIR(XYZToRGB, 16u, xyzInv<Zor16u>, Int),
        MK_PAIR(RGBToXYZ, 16s, xyz<Zor16s>, Int), MK_PAIR(XYZToRGB, 16s, xyzInv<Zor16s>, Int),
        MK_PAIR(RGBToXYZ, 32f, xyz<Zor32f>, Rgb), MK_PAIR(XYZToRGB, 32f, xyzInv<Zor32f>, Rgb),
        MK_PAIR(RGBToLUV, 8u, luv8, Int),         MK_PAIR(LUVToRGB, 8u, luvInv<Zor8u>, Int),
        MK_PAIR(RGBToLUV, 16u, luv<Zor16u>, Int), MK_PAIR(LUVToRGB, 16u, luvInv<Zor16u>, Int),
        MK_PAIR(RGBToLUV, 16s, luv<Zor16s>, Int), MK_PAIR(LUVToRGB, 16s, luvInv<Zor16s>, Int),
        MK_PAIR(RGBToLUV, 32f, luv<Zor32f>, Rgb), MK_PAIR(LUVToRGB, 32f, luvInv32, Luv),
        MK_PAIR(RGBToYCC, 8u, ycc8, Int),         MK_PAIR(YCCToRGB, 8u, yccInv8, Int),
        MK_PAIR(RGBToYCC, 16u, ycc<Zor16u>, Int), MK_PAIR(YCCToRGB, 16u, yccInv<Zor16u>, Int),
        MK_PAIR(RGBToYCC, 16s, ycc<Zor16s>, Int), MK_PAIR(YCCToRGB, 16s, yccInv<Zor16s>, Int),
        MK_PAIR(RGBToYCC, 32f, ycc<Zor32f>, Rgb), MK_PAIR(YCCToRGB, 32f, yccInv<Zor32f>, Rgb),
        MK_PAIR(RGBToHLS, 8u, hls<Zor8u>, Int),   MK_PAIR(HLSToRGB, 8u, hlsInv<Zor8u>, Int),
        MK_PAIR(RGBToHLS, 16u, hls<Zor16u>, Int), MK_PAIR(HLSToRGB, 16u, hlsInv<Zor16u>, Int),
        MK_PAIR(RGBToHLS, 16s, hls<Zor16s>, Int), MK_PAIR(HLSToRGB, 16s, hlsInv<Zor16s>, Int),
        MK_PAIR(RGBToHLS, 32f, hls<Zor32f>, Unit), MK_PAIR(HLSToRGB, 32f, hlsInv<Zor32f>, Unit),
        MK_PAIR(RGBToHSV, 8u, hsv<Zor8u>, Int),   MK_PAIR(HSVToRGB, 8u, hsvInv<Zor8u>, Int),
        MK_PAIR(RGBToHSV, 16u, hsv<Zor16u>, Int), MK_PAIR(HSVToRGB, 16u, hsvInv<Zor16u>, Int),
        MK_ONE(zoriBGRToLab_8u_C3R, Zor8u, Zor8u, 3, lab<Zor8u>, Int),
        MK_ONE(zoriBGRToLab_8u16u_C3R, Zor8u, Zor16u, 3, lab<Zor16u>, Int),
        MK_ONE(zoriLabToBGR_8u_C3R, Zor8u, Zor8u, 3, labInv<Zor8u>, Int),
        MK_ONE(zoriLabToBGR_16u8u_C3R, Zor16u, Zor8u, 3, labInv<Zor16u>, Int),
        MK_BGR(BGRToHLS, AP4R, 4, 1, 1),  MK_BGR(BGRToHLS, AP4C4R, 4, 1, 0), MK_BGR(BGRToHLS, AC4P4R, 4, 0, 1),
        MK_BGR(BGRToHLS, P3R, 3, 1, 1),   MK_BGR(BGRToHLS, P3C3R, 3, 1, 0),  MK_BGR(BGRToHLS, C3P3R, 3, 0, 1),
        MK_BGR(HLSToBGR, AP4R, 4, 1, 1),  MK_BGR(HLSToBGR, AP4C4R, 4, 1, 0), MK_BGR(HLSToBGR, AC4P4R, 4, 0, 1),
        MK_BGR(HLSToBGR, P3R, 3, 1, 1),   MK_BGR(HLSToBGR, P3C3R, 3, 1, 0),  MK_BGR(HLSToBGR, C3P3R, 3, 0, 1),
        MK_ONE(zoriBGRToHLS_8u_AC4R, Zor8u, Zor8u, 4, bgrHls, Int)};
    v.back().steps = Member::kStepsAfterSize;  // the BGRA forward member
    return v;
}

// An image of `ch` samples of `size` bytes per pixel (padded rows, guard
// bytes, random to start with); a source gets samples in the member's range,
// integer ones favouring the ends and the middle of their scale.
inline zt::Image<Zor8u> image(int w, int h, int ch, int size, std::uint32_t seed) {
    return zt::Image<Zor8u>(w, h, ch * size, 4 * size, seed);
}
inline zt::Image<Zor8u> source(const Member& m, int w, int h, std::uint32_t seed) {
    zt::Image<Zor8u> img = image(w, h, m.ch, m.srcSize, seed);
    std::mt19937 rng(seed);
    const auto real = [&](float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(rng); };
    const float lo[3] = {0, -134, -140}, hi[3] = {100, 220, 122};
    const int edges[] = {0, 1, 127, 128, 255, 256, 32767, 32768, 65534, 65535};
    for (int y = 0; y < h; ++y)
        for (int i = 0; i < w * m.ch; ++i) {
            Zor8u* p = img.row(y) + i * m.srcSize;
            const int c = i % m.ch, e = edges[rng() % (m.srcSize == 1 ? 5 : 10)];
            const std::uint16_t word = std::uint16_t(rng() % 3 ? int(rng() & 0xFFFF) : m.srcSize == 1 ? e & 255 : e);
            float v = m.range == Range::Rgb ? real(-0.3f, 1.4f) : m.range == Range::Unit ? real(0, 1) : real(lo[c % 3], hi[c % 3]);
            if (rng() % (m.range == Range::Luv ? 40 : 8) == 0) v = m.range == Range::Luv ? (c == 0 ? 0.0f : v) : float(rng() % 5) / 4;
            std::memcpy(p, m.srcSize == 4 ? static_cast<const void*>(&v) : &word, m.srcSize);
        }
    return img;
}

// What the member must leave in dst: the reference applied to each row.
inline zt::Image<Zor8u> expected(const Member& m, const zt::Image<Zor8u>& src, zt::Image<Zor8u> dst) {
    for (int y = 0; y < src.height(); ++y) m.ref(src.row(y), dst.row(y), src.width(), m.ch);
    return dst;
}

}  // namespace mk
