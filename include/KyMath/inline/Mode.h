// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_MODE_H
#define KYMATH_INLINE_MODE_H

// The files of this folder define small members, once for two readers. Sources of the library
// include the one of their type, and so define functions like any other. With KYMATH_INLINE, the
// headers show them to clients, which may inline them and otherwise call the library: no compiler
// emits a copy.
//
// - Members of class templates are instantiated in the library, as the headers declare. GCC inlines
//   them only where it sees them before anything that needs the class: each header includes its
//   file directly behind the class.
// - Members of other classes are gnu_inline: never emitted.
// - Helpers are static and always inlined.
//
// GCC would copy them still, with fewer arguments, but for noclone. Warnings are for the library's
// own build: to clients, these are headers of the system.
#ifdef KYMATH_INLINE
#pragma GCC system_header
#ifdef __clang__
#define KY_SMALL inline
#define KY_SMALL_PLAIN inline __attribute__((gnu_inline))
#else
#define KY_SMALL inline __attribute__((noclone))
#define KY_SMALL_PLAIN inline __attribute__((noclone, gnu_inline))
#endif
#else
#define KY_SMALL
#define KY_SMALL_PLAIN
#endif
#define KY_HELPER static inline __attribute__((always_inline))

// Whether the flags of this compilation leave the bits of arithmetic alone. If not, members that
// compute are calls; those that only move values are inlined with any flags.
//
// No macro tells of -ffp-contract: where the processor can fuse multiplications and additions, the
// client must say that it is off.
#if !defined(KYMATH_INLINE)
#define KY_INLINE_ARITHMETIC 1
#elif defined(__FAST_MATH__) || (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__) || \
    !defined(__SSE2_MATH__) || (defined(__FLT_EVAL_METHOD__) && __FLT_EVAL_METHOD__ != 0)
#define KY_INLINE_ARITHMETIC 0
#elif !defined(__clang__) && (!defined(__GCC_IEC_559) || __GCC_IEC_559 == 0)
#define KY_INLINE_ARITHMETIC 0
#elif (defined(__FMA__) || defined(__FMA4__) || defined(__AVX512F__)) && \
    !defined(KYMATH_FP_CONTRACT_OFF)
#define KY_INLINE_ARITHMETIC 0
#else
#define KY_INLINE_ARITHMETIC 1
#endif

// Whether standard containers of this compilation are those of the library: see Ky/Export.h.
#if defined(_LIBCPP_VERSION) == defined(KY_LIBCPP_VERSION) && \
    defined(_GLIBCXX_DEBUG) == defined(KY_GLIBCXX_DEBUG)
#define KY_SAME_CONTAINERS 1
#else
#define KY_SAME_CONTAINERS 0
#endif

// Around all definitions. Clang has no macro for some flags that change arithmetic, but pragmas
// that undo them.
#if defined(KYMATH_INLINE) && defined(__clang__)
#define KY_EXACT_BEGIN _Pragma("float_control(precise, on, push)") _Pragma("clang fp contract(off)")
#define KY_EXACT_END _Pragma("float_control(pop)")
#else
#define KY_EXACT_BEGIN
#define KY_EXACT_END
#endif

#endif
