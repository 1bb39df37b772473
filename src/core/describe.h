// A description of every exported image function, made by its ZOR_EXPORT
// line from the argument wrappers that the line builds (core/export.h), for
// tools, tests and bindings that link the object code. Nothing here leaves
// the shared library.
//
// Each function is a list of parameters in C argument order, one per image
// (an in-place image is one parameter, direction InOut), the region size, and
// one per function-specific value or pointer. A parameter stands for a fixed
// number of C arguments (cArgs): an interleaved image is a pointer and a
// step, a semi-planar one two of each, a whole image only its pointer.
#pragma once

#include "core/image.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zor {

// The region size as it appears among the arguments.
struct Roi {
    ZoriSize v;
};

namespace describe {

enum class Kind { C, WholeC, P3, P3S, WholeP3, P4, P2, Roi, Value, Pointer };
enum class Dir { None, In, Out, InOut };

struct Param {
    std::string group;  // the group as the export line spells it: "IN_C(Zor8u, 3)"
    std::string decl;   // its C parameters: "const Zor8u *pSrc, int srcStep"
    Kind kind = Kind::Value;
    Dir dir = Dir::None;
    std::string type;  // sample or value type: 8u 8s 16u 16s 32s 32f
    int bytes = 0;     // size of one sample or value
    int channels = 0;  // samples per pixel (C), planes (P3 3, P4 4, P2 2)
    int v = 0, h = 1;  // chroma rows y >> v, one chroma sample per h pixels
    bool elements = false;    // step rounded down to whole samples
    bool chromaUp = true;     // whole P3: chroma planes ceil(width / h) wide, else floor
    bool keepsAlpha = false;  // AC4 output: the fourth sample of each pixel is never written
    std::string name;         // value or pointer: its C name, C type and element shape
    std::string cType;
    std::vector<int> shape;  // pointer: element counts, e.g. {3, 4}; empty if not declared
    bool nullable = false;   // pointer that the checks do not test for null
};

// Number of C arguments a parameter takes.
int cArgs(Kind k);
const char* kindName(Kind k);
const char* dirName(Dir d);

// One C argument as a caller builds it; the invoker converts it to the
// parameter's C type (a pointer from p, an integer or enum from i, a float
// from f, the size from size).
struct Arg {
    void* p = nullptr;
    long long i = 0;
    double f = 0;
    ZoriSize size{0, 0};
};

struct Function {
    std::string name;
    std::vector<Param> params;
    ZorStatus (*invoke)(const Arg* args);  // one Arg per C argument
};

// Every exported image function, sorted by name.
const std::vector<Function>& all();
const Function* find(const std::string& name);
// The table as JSON.
std::string json(const std::vector<Function>& fns);

// ---------------------------------------------------------------------------
// What the export lines use.

template <class T>
const char* typeName() {
    using U = std::remove_cv_t<T>;
    if constexpr (std::is_same_v<U, Zor8u>) return "8u";
    if constexpr (std::is_same_v<U, Zor8s>) return "8s";
    if constexpr (std::is_same_v<U, Zor16u>) return "16u";
    if constexpr (std::is_same_v<U, Zor16s>) return "16s";
    if constexpr (std::is_same_v<U, Zor32s>) return "32s";
    if constexpr (std::is_same_v<U, Zor32f>) return "32f";
    return "?";
}

template <class T>
Param sampled(Kind k, int channels, int v, int h, StepIn p) {
    Param r;
    r.kind = k;
    r.dir = std::is_const_v<T> ? Dir::In : Dir::Out;
    r.type = typeName<T>();
    r.bytes = sizeof(T);
    r.channels = channels;
    r.v = v;
    r.h = h;
    r.elements = p == StepIn::Elements;
    return r;
}

template <class T, int N, StepIn P>
Param param(const C<T, N, P>&) {
    return sampled<T>(Kind::C, N, 0, 1, P);
}
// The width that the export line's lambda is called with: odd and not a
// multiple of 4, so that the chroma width of a whole image shows its rounding.
inline constexpr int kProbeWidth = 1001;

template <class T, Steps S, int V, int H, StepIn P>
Param param(const P3<T, S, V, H, P>& a) {
    Param r = sampled<T>(a.isImplied ? Kind::WholeP3 : S == Steps::One ? Kind::P3 : Kind::P3S, 3, V, H, P);
    r.chromaUp = !a.isImplied || a.implied[1] == (kProbeWidth + H - 1) / H * static_cast<std::ptrdiff_t>(sizeof(T));
    return r;
}
template <class T, StepIn P>
Param param(const P4<T, P>&) {
    return sampled<T>(Kind::P4, 4, 0, 1, P);
}
template <class T, int V, int H>
Param param(const P2<T, V, H>&) {
    return sampled<T>(Kind::P2, 2, V, H, StepIn::Bytes);
}
inline Param param(const Roi&) {
    Param r;
    r.kind = Kind::Roi;
    return r;
}
template <class T>
Param param(const Value<T>&) {
    Param r;
    if constexpr (std::is_pointer_v<T>) {
        r.kind = Kind::Pointer;
        r.nullable = true;
        r.type = typeName<std::remove_pointer_t<T>>();
        r.bytes = sizeof(std::remove_pointer_t<T>);
    } else {
        r.kind = Kind::Value;
        r.type = typeName<T>();
        r.bytes = sizeof(T);
    }
    return r;
}
template <class T>
Param param(const Ptr<T>&) {
    Param r;
    r.kind = Kind::Pointer;
    r.type = typeName<std::remove_all_extents_t<T>>();
    r.bytes = sizeof(std::remove_all_extents_t<T>);
    return r;
}

// Fills in names, C types and shapes from the group's declaration text.
void finishGroup(std::vector<Param>& ps, const char* text, const char* decl);

// The parameters of one group: one per wrapper, but an in-place image (a
// source and a destination wrapper over the same arguments) is one.
template <class... W>
std::vector<Param> group(const char* text, const char* decl, const W&... w) {
    std::vector<Param> ps{param(w)...};
    if (ps.size() == 2 && ps[0].kind != Kind::Value && ps[0].kind != Kind::Pointer && ps[0].kind == ps[1].kind) {
        ps.pop_back();
        ps[0].dir = Dir::InOut;
    }
    finishGroup(ps, text, decl);
    return ps;
}

std::vector<Param> join(std::initializer_list<std::vector<Param>> groups);

// The parameters of fn: the export line's lambda called with null pointers,
// zeros and a size kProbeWidth x 1 (it only builds the wrappers).
template <class P>
P probeArg() {
    if constexpr (std::is_same_v<P, ZoriSize>)
        return ZoriSize{kProbeWidth, 1};
    else
        return P{};
}
template <class... P, class L>
std::vector<Param> params(ZorStatus (*)(P...), const L& l) {
    return l(probeArg<P>()...);
}

// Calls fn with C arguments converted from Args. An enum argument gets the
// bits of the integer as they are, in range or not, as a C caller may pass.
template <class P>
#if defined(__clang__) || defined(__GNUC__)
__attribute__((no_sanitize("enum")))
#endif
P argAs(const Arg& a) {
    if constexpr (std::is_pointer_v<P>) {
        return reinterpret_cast<P>(a.p);
    } else if constexpr (std::is_same_v<P, ZoriSize>) {
        return a.size;
    } else if constexpr (std::is_floating_point_v<P>) {
        return static_cast<P>(a.f);
    } else if constexpr (std::is_enum_v<P>) {
        const std::underlying_type_t<P> u = static_cast<std::underlying_type_t<P>>(a.i);
        P e;
        std::memcpy(&e, &u, sizeof(e));
        return e;
    } else {
        return static_cast<P>(a.i);
    }
}

template <class... P, std::size_t... I>
ZorStatus invokeWith(ZorStatus (*fn)(P...), const Arg* a, std::index_sequence<I...>) {
    return fn(argAs<P>(a[I])...);
}
template <class... P>
constexpr std::size_t arity(ZorStatus (*)(P...)) {
    return sizeof...(P);
}
template <auto Fn>
ZorStatus invoke(const Arg* a) {
    return invokeWith(Fn, a, std::make_index_sequence<arity(Fn)>());
}

// A registered function: a static object per export line, linked into one
// list during static initialisation.
struct Entry {
    const char* name;
    ZorStatus (*invoke)(const Arg*);
    std::vector<Param> (*params)();
    const Entry* next;
    Entry(const char* n, ZorStatus (*i)(const Arg*), std::vector<Param> (*p)());
};

}  // namespace describe
}  // namespace zor
