// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Bench.h"

#include <Ky/Ky.h>
#include <KyMath/Batch.h>
#include <KyMath/KyMath.h>

using namespace bench;
namespace Batch = KyMath::Batch;

namespace {

/// f(out) calls the library for kCount elements.
template <class T, class Out, class F>
void ours(const char* operation, F f) {
    if constexpr (!kLimits) array<T, Out>(operation, "ours", f);
}

template <class T>
void addMatrixArrays() {
    using V = KyMath::Vector3T<T>;
    using M = KyMath::Matrix44T<T>;
    const auto [inputs, others, rigid, points] = MatricesInputs<T>();
    const auto* const a = load<M>(inputs);
    const auto* const b = load<M>(others);
    const auto* const p = load<V>(points);
    ours<T, V>("points with divide", [=](V* r) { Batch::transformPositions(*a, p, r, kCount); });
    ours<T, V>("directions", [=](V* r) { Batch::transformDirections(*a, p, r, kCount); });
    ours<T, M>("matrix product", [=](M* r) { Batch::multiply(a, b, r, kCount); });
    ours<T, M>("one matrix by many", [=](M* r) { Batch::multiply(*a, b, r, kCount); });
}

template <class T>
void addBoxArrays() {
    using B = KyMath::BoundingBoxT<T>;
    using Side = signed char;
    const auto [inputs, others, moves, origins, directions] = BoundsInputs<T>();
    const auto* const a = load<B>(inputs);
    const auto* const m = load<KyMath::Matrix44T<T>>(moves);
    const KyMath::PlaneT<T> plane(T(0.48), T(-0.6), T(0.64), T(-0.5));
    ours<T, B>("box transform", [=](B* r) { Batch::transformBoxes(*m, a, r, kCount); });
    ours<T, Side>("boxes and a plane", [=](Side* r) { Batch::classify(plane, a, r, kCount); });
}

void addRigidArrays() {
    using R = Ky::KyTransform;
    const auto [inputs, others, angles] = RigidInputs();
    const auto* const a = load<R>(inputs);
    const auto* const b = load<R>(others);
    ours<double, R>("rigid compound", [=](R* r) { Batch::compound(a, b, r, kCount); });
}

}  // namespace

void addArrays() {
    addMatrixArrays<float>();
    addMatrixArrays<double>();
    addBoxArrays<float>();
    addBoxArrays<double>();
    addRigidArrays();
}
