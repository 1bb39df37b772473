// The tables of a family's vector kernels by target. Include this in the
// HWY_ONCE part of a Highway translation unit, after hwy/highway.h.
#pragma once

#include "core/kernel_set.h"
#include "hwy/highway.h"

// Inside a Highway translation unit, after the per-target code (HWY_ONCE):
// defines `const Table* const* fn()` returning the tables by target: the
// scalar table first, then for each target the table `name` of its namespace
// zor::N_<TARGET> (null for targets not compiled).
#define ZOR_TARGET_TABLES(Table, name, fn, scalar)                                                    \
    const Table* const* fn() {                                                                        \
        static const Table* const tables[::zor::cpu::kTargetCount] = {                                \
            &scalar, ZOR_IF_SSE4(&::zor::N_SSE4::name), ZOR_IF_AVX2(&::zor::N_AVX2::name),            \
            ZOR_IF_AVX3(&::zor::N_AVX3::name), ZOR_IF_NEON(&::zor::N_NEON::name)};                     \
        return tables;                                                                                \
    }

#if defined(HWY_TARGETS) && (HWY_TARGETS & HWY_SSE4)
#define ZOR_IF_SSE4(x) x
#else
#define ZOR_IF_SSE4(x) nullptr
#endif
#if defined(HWY_TARGETS) && (HWY_TARGETS & HWY_AVX2)
#define ZOR_IF_AVX2(x) x
#else
#define ZOR_IF_AVX2(x) nullptr
#endif
#if defined(HWY_TARGETS) && (HWY_TARGETS & HWY_AVX3)
#define ZOR_IF_AVX3(x) x
#else
#define ZOR_IF_AVX3(x) nullptr
#endif
#if defined(HWY_TARGETS) && defined(HWY_NEON) && (HWY_TARGETS & HWY_NEON)
#define ZOR_IF_NEON(x) x
#else
#define ZOR_IF_NEON(x) nullptr
#endif
