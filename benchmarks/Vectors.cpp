// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Bench.h"

#include <KyMath/Vectors.h>

using namespace bench;

namespace {

template <class T>
void addAll() {
    using V = KyMath::Vector3T<T>;
    using L = Values<T, 3>;
    const auto [inputs, others] = VectorsInputs<T>();
    const V* const a = load<V>(inputs);
    const V* const b = load<V>(others);
    const L* const la = load<L>(inputs);
    const L* const lb = load<L>(others);

    // The cost of a call: a member that does nothing.
    ours<T>(
        "call",
        [=](std::size_t i) {
            a[i].print(nullptr);
            return 0;
        },
        [](std::size_t) { return 0; });

    KY_OURS(T, "component access", a[i].y(), la[i].v[1]);

    ours<T>(
        "dot", [=](std::size_t i) { return a[i] * b[i]; },
        [=](std::size_t i) {
            const T* const x = la[i].v;
            const T* const y = lb[i].v;
            return x[0] * y[0] + x[1] * y[1] + x[2] * y[2];
        });

    ours<T>(
        "cross", [=](std::size_t i) { return a[i].cross(b[i]); },
        [=](std::size_t i) {
            const T* const x = la[i].v;
            const T* const y = lb[i].v;
            return L{x[1] * y[2] - x[2] * y[1], x[2] * y[0] - x[0] * y[2],
                     x[0] * y[1] - x[1] * y[0]};
        });

    ours<T>(
        "normalise",
        [=](std::size_t i) {
            V v = a[i];
            v.normalize();
            return v;
        },
        [=](std::size_t i) {
            L v = la[i];
            const T square = v.v[0] * v.v[0] + v.v[1] * v.v[1] + v.v[2] * v.v[2];
            if (square > 0) {
                const T r = 1 / std::sqrt(square);
                for (T& x : v.v) x *= r;
            }
            return v;
        });
}

}  // namespace

void addVectors() {
    addAll<float>();
    addAll<double>();
}
