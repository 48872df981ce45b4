// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INTERNAL_ARITHMETIC_H
#define KYMATH_INTERNAL_ARITHMETIC_H

#include <Ky/Export.h>

// Every result is part of the interface, to the last bit. Flags that let the compiler round
// differently would change results without a word: they stop the build instead. (GCC's own macro is
// 0 with any of them. The project's build appends -fno-fast-math, which undoes most.)
#if defined(__FAST_MATH__) || (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__) || \
    (defined(__GCC_IEC_559) && __GCC_IEC_559 == 0)
#error "KyMath must be compiled without flags like -ffast-math: append -fno-fast-math"
#endif
#if defined(__FLT_EVAL_METHOD__) && __FLT_EVAL_METHOD__ != 0
#error "KyMath needs float and double evaluated in their own precision (x86-64 with SSE2)"
#endif

#if defined(KY_VECTORS_FUSE) && !defined(KY_FUSES_NOTHING)
#error "GCC 12.0 to 12.2 fuse operations for a processor with FMA: needs -fno-tree-vectorize"
#endif

#endif
