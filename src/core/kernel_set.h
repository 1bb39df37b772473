// Kernel sets: for one row shape, the scalar kernel (the reference, always
// kept) and the vector kernel of each compiled target.
//
// A family's vector kernels live in a Highway translation unit compiled once
// per target (hwy/foreach_target.h). Each target's namespace defines one
// constant table of function pointers, a struct with one member per shape;
// ZOR_TARGET_TABLES collects the tables into an array indexed by cpu::Target.
// Only constant data crosses from the target code to the rest of the library,
// so nothing compiled for a wider target runs before the choice is made.
//
// A vector kernel converts the whole row: it does whole vectors itself and
// calls the scalar kernel for the pixels that remain.
#pragma once

#include "core/cpu.h"

namespace zor {

// Tables(): a family's tables by target, the scalar table first and null
// for targets without vector kernels; Member: the shape's member.
template <auto Member, auto Tables>
struct KernelSet {
    static auto resolve() {
        const auto* t = Tables()[cpu::active()];
        return (t ? t : Tables()[cpu::kScalar])->*Member;
    }
};

// A shape that has only its scalar kernel.
template <auto Scalar>
struct ScalarKernel {
    static constexpr auto resolve() { return Scalar; }
};

}  // namespace zor

#define ZOR_STRIP(...) __VA_ARGS__

// A family lists its shapes once as X(member, kernel template, (template
// arguments)); these make the members of its table struct and the entries
// of a table. The same list gives the scalar table (zor::kernel) and, inside
// a target's namespace, the vector table (zor::N_<TARGET>::kernel, or the
// scalar kernel where the target has no vector kernel of that name).
#define ZOR_KERNEL_MEMBER(name, fn, args) decltype(&fn<ZOR_STRIP args>) name;
#define ZOR_KERNEL_POINTER(name, fn, args) &fn<ZOR_STRIP args>,

// A family's kernel table from its shape list: the struct Table with one
// member per shape, its scalar table, the function (defined with the vector
// kernels, by ZOR_TARGET_TABLES) that gives the tables by target, and the
// alias K<&Table::member> of a shape's kernel set.
#define ZOR_KERNEL_TABLE(Table, LIST, scalarTable, tablesFn, K) \
    struct Table {                                              \
        LIST(ZOR_KERNEL_MEMBER)                                 \
    };                                                          \
    inline constexpr Table scalarTable = {LIST(ZOR_KERNEL_POINTER)}; \
    const Table* const* tablesFn();                             \
    template <auto Member>                                      \
    using K = KernelSet<Member, tablesFn>;
