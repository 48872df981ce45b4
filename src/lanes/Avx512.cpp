// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Compiled with -mavx512f and more: nothing here may run before hasAvx512 is known. The kernels
// that gain from registers of 64 bytes.
#define KY_ISA Isa::avx512
#include "bounds/BoundsKernels.inc"
#include "bounds/RayKernels.inc"
#include "internal/LibmKernels.inc"
#include "matrix/MatrixKernels.inc"
#include "rotation/QuaternionKernels.inc"
#include "transform/PointKernels.inc"

namespace KyMath::internal {

#define KY_INSTANTIATE(T)                                                                         \
    template void Kernels<KY_ISA>::matrixProducts(Strided<const T>, Strided<const T>, Strided<T>, \
                                                  std::size_t);                                   \
    template void Kernels<KY_ISA>::transformPositions(const T*, Strided<const T>, Strided<T>,     \
                                                      std::size_t);                               \
    template void Kernels<KY_ISA>::transformDirections(const T*, Strided<const T>, Strided<T>,    \
                                                       std::size_t);                              \
    template void Kernels<KY_ISA>::dots(Strided<const T>, Strided<const T>, Strided<T>,           \
                                        std::size_t);                                             \
    template void Kernels<KY_ISA>::crosses(Strided<const T>, Strided<const T>, Strided<T>,        \
                                           std::size_t);                                          \
    template void Kernels<KY_ISA>::norms(Strided<const T>, Strided<T>, std::size_t);              \
    template void Kernels<KY_ISA>::normalized(Strided<const T>, Strided<T>, std::size_t);         \
    template void Kernels<KY_ISA>::quaternionProducts(Strided<const T>, Strided<const T>,         \
                                                      Strided<T>, std::size_t);                   \
    template void Kernels<KY_ISA>::rotatedByEach(Strided<const T>, Strided<const T>, Strided<T>,  \
                                                 std::size_t);                                    \
    template void Kernels<KY_ISA>::normalizedQuaternions(Strided<const T>, Strided<T>,            \
                                                         std::size_t);                            \
    template std::size_t Kernels<KY_ISA>::rotationMatrices(Strided<const T>, Strided<T>,          \
                                                           std::size_t);                          \
    template std::size_t Kernels<KY_ISA>::rotationQuaternions(Strided<const T>, Strided<T>,       \
                                                              std::size_t);                       \
    template void Kernels<KY_ISA>::meetTriangles(const T*, const T*, const T*, T*, std::size_t);  \
    template void Kernels<KY_ISA>::meetTriangle(Strided<const T>, Strided<const T>, const T*, T*, \
                                                std::size_t);                                     \
    template void Kernels<KY_ISA>::inverses(Strided<const T>, Strided<T>, std::size_t);           \
    template void Kernels<KY_ISA>::transformBoxes(const T*, Strided<const T>, Strided<T>,         \
                                                  std::size_t);                                   \
    template void Kernels<KY_ISA>::cull(const CullPlane<T>*, unsigned int, Strided<const T>,      \
                                        unsigned char*, std::size_t);

KY_INSTANTIATE(float)
KY_INSTANTIATE(double)
#undef KY_INSTANTIATE

template void Kernels<KY_ISA>::transformRigidPoints(const double*, Strided<const double>,
                                                    Strided<double>, std::size_t);
template void Kernels<KY_ISA>::transformRigidDirections(const double*, Strided<const double>,
                                                        Strided<double>, std::size_t);
template void Kernels<KY_ISA>::cullWithMasks(const CullPlane<double>*, unsigned int,
                                             Strided<const double>, signed char*, unsigned int*,
                                             std::size_t);

}  // namespace KyMath::internal
