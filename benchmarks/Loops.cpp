// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Loops.h"

#include <KyMath/Quaternion.h>
#include <KyMath/Vectors.h>

using namespace bench;

namespace {

template <class T>
struct Ours : Library<T, KyMath::Vector3T<T>, KyMath::QuaternionT<T>> {
    using V = KyMath::Vector3T<T>;

    static T dot(const V& a, const V& b) {
        return a * b;
    }
};

}  // namespace

void addLoops() {
    addLoopsOf<Ours<float>>("ours");
    addLoopsOf<Ours<double>>("ours");
}
