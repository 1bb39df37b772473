// The extension module behind zorcc.raw: one entry per exported image
// function. The list of names is generated from the export description at
// build time; each entry's C parameter types are taken from the declaration
// in zorcc.h, so an entry converts its Python arguments without any table of
// types of its own.
//
// Arguments arrive already checked by the Python layer, one per C parameter:
//   pointer            int (address), 0 for a null pointer
//   plane array        tuple of 3 or 4 addresses
//   step array         tuple of 3 ints
//   ZoriSize           (width, height)
//   other values       int or float
// The interpreter lock is released for the library call itself.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "zorcc.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace {

template <class P, class = void>
struct Arg {
    P v;
    explicit Arg(py::handle h) {
        if constexpr (std::is_same_v<P, ZoriSize>) {
            const auto wh = h.cast<std::pair<int, int>>();
            v = ZoriSize{wh.first, wh.second};
        } else if constexpr (std::is_enum_v<P>) {
            v = static_cast<P>(h.cast<int>());
        } else {
            v = h.cast<P>();
        }
    }
    P get() const { return v; }
};

// Any data pointer: an address.
template <class T>
struct Arg<T*> {
    T* v;
    explicit Arg(py::handle h) : v(reinterpret_cast<T*>(h.cast<std::uintptr_t>())) {}
    T* get() const { return v; }
};

// An array of plane pointers (three planes, or four with alpha).
template <class T>
struct Arg<T* const*> {
    T* v[4] = {nullptr, nullptr, nullptr, nullptr};
    const bool null;
    explicit Arg(py::handle h) : null(h.is_none()) {
        if (null) return;
        const auto a = h.cast<std::vector<std::uintptr_t>>();
        if (a.size() < 3 || a.size() > 4) throw std::invalid_argument("a plane array holds 3 or 4 addresses");
        for (std::size_t k = 0; k < a.size(); ++k) v[k] = reinterpret_cast<T*>(a[k]);
    }
    T* const* get() const { return null ? nullptr : v; }
};

// An array of three steps.
template <>
struct Arg<const int*> {
    int v[3] = {0, 0, 0};
    const bool null;
    explicit Arg(py::handle h) : null(h.is_none()) {
        if (null) return;
        const auto a = h.cast<std::vector<int>>();
        if (a.size() != 3) throw std::invalid_argument("a step array holds 3 steps");
        for (int k = 0; k < 3; ++k) v[k] = a[k];
    }
    const int* get() const { return null ? nullptr : v; }
};

template <class... P, std::size_t... I>
int invoke(ZorStatus (*f)(P...), const py::tuple& args, std::index_sequence<I...>) {
    if (args.size() != sizeof...(P))
        throw std::invalid_argument("expected " + std::to_string(sizeof...(P)) + " arguments");
    std::tuple<Arg<P>...> a{Arg<P>(args[I])...};
    ZorStatus st;
    {
        py::gil_scoped_release unlocked;
        st = f(std::get<I>(a).get()...);
    }
    return static_cast<int>(st);
}

template <class... P>
py::cpp_function entry(ZorStatus (*f)(P...)) {
    return py::cpp_function([f](py::tuple args) { return invoke(f, args, std::index_sequence_for<P...>()); });
}

}  // namespace

PYBIND11_MODULE(_zorcc, m) {
    m.doc() = "Entry points of libzorccpx (use the zorcc package).";
    py::dict fns;
#define ZORCC_RAW(name) fns[#name] = entry(&name);
#include "raw_names.inc"
#undef ZORCC_RAW
    m.attr("functions") = fns;

    m.def("set_threads", [](int n) {
        if (n < 1) throw py::value_error("the team size is at least 1");
        threads_omp_of_n_zor = n;
    });
    m.def("get_threads", []() { return threads_omp_of_n_zor; });
    m.def("version", []() {
        const ZorLibraryVersion* v = zorccGetLibVersion();
        py::dict d;
        d["major"] = v->majorVersion;
        d["minor"] = v->minorVersion;
        d["build_series"] = v->buildSeries;
        d["build_number"] = v->buildNumber;
        d["target_cpu"] = std::string(v->targetCpu, strnlen(v->targetCpu, sizeof v->targetCpu));
        d["library"] = v->libraryName;
        d["version"] = v->versionText;
        d["build_date"] = v->buildDate;
        return d;
    });
}
