// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_EXPORT_H
#define KY_EXPORT_H

#include <cstddef>  // for the macros that any standard header defines

/// Marks what libKyMath.so exports. Everything else in the library is hidden.
///
/// KY_STATIC is defined while the static archive is compiled: a program or plug-in that links the
/// archive then exports none of it. Clients need not define it.
#ifdef KY_STATIC
#define KY_API
#else
#define KY_API __attribute__((visibility("default")))
#endif

/// Defined where the compiler may fuse multiplications and additions even with -ffp-contract=off:
/// GCC 12.0 to 12.2, when it vectorises x * c - y * s beside x * s + y * c for a processor with
/// FMA.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ == 12 && __GNUC_MINOR__ < 3 && \
    (defined(__FMA__) || defined(__FMA4__) || defined(__AVX512F__))
#define KY_VECTORS_FUSE
#endif

/// Ends the declaration of an overload that would compile and go wrong. In C++26 the compiler's
/// message has the reason.
#if defined(__cpp_deleted_function) && __cplusplus > 202302L
#define KY_DELETED(reason) = delete ("KyMath: " reason)
#else
#define KY_DELETED(reason) = delete
#endif

#if defined(__clang__) || __GNUC__ >= 12
#define KY_WITHHELD(reason) __attribute__((unavailable("KyMath: " reason)))
#else
#define KY_WITHHELD(reason) __attribute__((error("KyMath: " reason)))
#endif
/// KY_STREAMS marks what writes to a stream, KY_CONTAINERS what holds or passes a standard
/// container. Where these differ between the client and the library, a call is an error with a
/// message; everything else works. _LIBCPP_VERSION and _GLIBCXX_DEBUG describe the client;
/// KY_LIBCPP_VERSION and KY_GLIBCXX_DEBUG, which CMake and pkg-config set where needed, describe
/// the library.
#if defined(_LIBCPP_VERSION) != defined(KY_LIBCPP_VERSION)
#define KY_STREAMS \
    KY_WITHHELD("the library was built with another standard library: build both with one")
#define KY_CONTAINERS KY_STREAMS
#elif defined(_GLIBCXX_DEBUG) != defined(KY_GLIBCXX_DEBUG)
#define KY_STREAMS
#define KY_CONTAINERS \
    KY_WITHHELD("containers differ from the library's: build both with _GLIBCXX_DEBUG or neither")
#else
#define KY_STREAMS
#define KY_CONTAINERS
#endif

#endif
