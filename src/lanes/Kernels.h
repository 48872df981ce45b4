// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_LANES_KERNELS_H
#define KYMATH_LANES_KERNELS_H

#include "internal/Arithmetic.h"

#include <cstddef>
#include <type_traits>

namespace KyMath::internal {

/// The elements of an array, stride bytes apart, each as the address of its first value.
template <class T>
struct Strided {
    T* first;
    std::size_t stride;
};
/// Element i. Always inlined: a shared copy would be compiled for one processor only.
template <class T>
static inline __attribute__((always_inline)) T* at(const Strided<T>& s, std::size_t i) {
    using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
    return reinterpret_cast<T*>(reinterpret_cast<Byte*>(s.first) + i * s.stride);
}

/// A plane: its coefficients, and of the six values of a box, those of the corners that are
/// furthest along and furthest against its normal.
template <class T>
struct CullPlane {
    T v[4];
    std::size_t upper[3], lower[3];
};

/// The set of instructions that kernels are compiled for: that of every x86-64, AVX2 as well, or
/// AVX-512 as well (its parts F, BW, DQ and VL), which only some kernels are compiled for.
enum class Isa { baseline, avx2, avx512 };

/// Kernels: the functions that gain from wider instructions. Each is defined beside its type, in
/// MatrixKernels.inc and so on. lanes/Kernels.inc includes these files and is compiled once for
/// each set: the same operations in the same order, and so the same bits.
///
/// Matrices and rigid transforms are 16 values, element (r, c) at 4c + r; a box is 6 values, the
/// minimum and the maximum. A result may be written over the operand with the same index: a kernel
/// reads whole operands, of arrays up to eight elements, before it writes.
///
/// Single calls and array calls share their formulas as follows. Where the lanes hold one element
/// (products of matrices and of quaternions, a rigid transform, a box), an array call repeats the
/// single one: a loop over its kernel, or for boxes a kernel of which the single call passes an
/// array of one. Where the lanes hold several elements (points, quaternions, inverses of matrices,
/// boxes against planes, triangles), only array calls use the kernel. Single calls are plain code
/// in the source of the type, or another kernel, and do what is left after the last whole group.
template <Isa S>
struct Kernels {
    /// m = a b
    template <class T>
    static void matrixProduct(T* m, const T* a, const T* b);
    /// q = a b, each w first
    static void quaternionProduct(double* q, const double* a, const double* b);
    template <class T>
    static T determinant(const T* a);
    template <class T>
    static void inverse(T* m, const T* a);
    template <class T>
    static void inverseOrthogonal(T* m, const T* a);

    /// @name Rows 0 to 2 of t; row 3 is that of last, which may be t
    /// @{
    static void compound(double* t, const double* last, const double* a, const double* b);
    static void compoundFirstThenInverseSecond(double* t, const double* last, const double* a,
                                               const double* b);
    static void compoundInverseFirstThenSecond(double* t, const double* last, const double* a,
                                               const double* b);
    /// @}

    /// @name n elements
    /// @{
    template <class T>
    static void transformPositions(const T* m, Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static void transformDirections(const T* m, Strided<const T> in, Strided<T> out, std::size_t n);
    /// As KyTransform::transformPoint() and transformDirection()
    static void transformRigidPoints(const double* m, Strided<const double> in, Strided<double> out,
                                     std::size_t n);
    static void transformRigidDirections(const double* m, Strided<const double> in,
                                         Strided<double> out, std::size_t n);
    template <class T>
    static void dots(Strided<const T> a, Strided<const T> b, Strided<T> out, std::size_t n);
    template <class T>
    static void crosses(Strided<const T> a, Strided<const T> b, Strided<T> out, std::size_t n);
    template <class T>
    static void norms(Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static void normalized(Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static void quaternionProducts(Strided<const T> a, Strided<const T> b, Strided<T> out,
                                   std::size_t n);
    template <class T>
    static void rotatedByEach(Strided<const T> q, Strided<const T> in, Strided<T> out,
                              std::size_t n);
    /// As Transformation::createRotationT() of quaternions, and getRotationAsQuaternionT() of
    /// matrices with their scale. These do whole groups, and return how many elements that is.
    template <class T>
    static std::size_t rotationMatrices(Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static std::size_t rotationQuaternions(Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static void normalizedQuaternions(Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static void transformBoxes(const T* m, Strided<const T> in, Strided<T> out, std::size_t n);
    template <class T>
    static void matrixProducts(Strided<const T> a, Strided<const T> b, Strided<T> m, std::size_t n);
    template <class T>
    static void inverses(Strided<const T> in, Strided<T> out, std::size_t n);
    static void compounds(Strided<const double> a, Strided<const double> b, Strided<double> t,
                          std::size_t n);
    /// t[i] = where a line meets triangle i, of nine values, or infinity; and the same for many
    /// lines and a triangle
    template <class T>
    static void meetTriangles(const T* origin, const T* direction, const T* corners, T* t,
                              std::size_t n);
    template <class T>
    static void meetTriangle(Strided<const T> origins, Strided<const T> directions,
                             const T* corners, T* t, std::size_t n);
    /// sides[i] = 1, -1 or 0
    template <class T>
    static void classify(const CullPlane<T>& plane, Strided<const T> boxes, signed char* sides,
                         std::size_t n);
    /// visible[i] = 0 if the box is wholly outside any of the planes in the mask, otherwise 1
    template <class T>
    static void cull(const CullPlane<T>* planes, unsigned int mask, Strided<const T> boxes,
                     unsigned char* visible, std::size_t n);
    /// sides[i] = 1 if the box is inside all planes in the mask, -1 if outside any, otherwise 0,
    /// and masks[i] = the planes that it straddles
    static void cullWithMasks(const CullPlane<double>* planes, unsigned int mask,
                              Strided<const double> boxes, signed char* sides, unsigned int* masks,
                              std::size_t n);
    /// The same for boxes in depth-first order: those below a box take its mask, or its side
    static void cullTree(const CullPlane<double>* planes, unsigned int mask,
                         Strided<const double> boxes, Strided<const unsigned int> descendants,
                         signed char* sides, unsigned int* masks, std::size_t n);
    /// @}

#ifdef KY_LOCKSTEP
    /// @name n values by functions of SLEEF, in place; whole registers, zeros and +-1 aside
    /// @{
    template <class T>
    static void sines(T* x, std::size_t n);
    template <class T>
    static void arcSines(T* x, std::size_t n);
    template <class T>
    static void arcCosines(T* x, std::size_t n);
    template <class T>
    static void sineCosines(T* x, T* cosines, std::size_t n);
    template <class T>
    static void arcTangents(T* y, const T* x, std::size_t n);
    /// @}
#endif

    /// Samples 0 to count - 1 of the Bezier curve of m control points, three values each, at t = 0,
    /// step, step + step, ...; work has bezierWork(m) values.
    static void bezier(const double* controls, std::size_t m, double step, double* work,
                       double* out, std::size_t count);
};

inline std::size_t bezierWork(std::size_t m) {
    return 12 * (m - 1);
}

/// Whether the processor has AVX2, and AVX-512 as well. False until the library is loaded.
extern bool hasAvx2, hasAvx512;

}  // namespace KyMath::internal

/// Calls the kernel for this processor: KY_KERNEL(determinant(a)).
#define KY_KERNEL(...)                                                             \
    (::KyMath::internal::hasAvx2                                                   \
         ? ::KyMath::internal::Kernels<::KyMath::internal::Isa::avx2>::__VA_ARGS__ \
         : ::KyMath::internal::Kernels<::KyMath::internal::Isa::baseline>::__VA_ARGS__)
/// The same for a kernel that is also compiled for AVX-512: those that lanes/Avx512.cpp names.
#define KY_WIDE_KERNEL(...)                                                          \
    (::KyMath::internal::hasAvx512                                                   \
         ? ::KyMath::internal::Kernels<::KyMath::internal::Isa::avx512>::__VA_ARGS__ \
         : KY_KERNEL(__VA_ARGS__))

#endif
