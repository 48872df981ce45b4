// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/BoundingBox.h>
#include <KyMath/inline/BoundingBox.h>

#include <KyMath/BoundingSphere.h>
#include <KyMath/Matrix.h>

#include "internal/Components.h"
#include "lanes/Kernels.h"

namespace KyMath {

// Deliberate: a sphere with a negative radius is merged like any other, and can move a corner.
// Pinned by BoundingBoxTest.GrowsBySpheresInDouble.
template <class T>
void BoundingBoxT<T>::expandBy(const BoundingSphere& s) {
    const Vector3T<double> c = s.center();
    const double r = s.radius();
    for (int i = 0; i < 3; ++i) {
        min_[i] = internal::lower(min_[i], c[i] - r);
        max_[i] = internal::higher(max_[i], c[i] + r);
    }
}
template <class T>
BoundingBoxT<T>& BoundingBoxT<T>::operator+=(const BoundingSphere& s) {
    expandBy(s);
    return *this;
}
template <class T>
BoundingBoxT<T> BoundingBoxT<T>::operator+(const BoundingSphere& s) const {
    return BoundingBoxT(*this) += s;
}

template <class T>
void BoundingBoxT<T>::transform(const Matrix44T<T>& m) {
    T* const box = reinterpret_cast<T*>(this);  // its six values
    KY_KERNEL(transformBoxes<T>(m, {box, 0}, {box, 0}, 1));
}

// Deliberate: the transpose of m's own 3x3 block, not the inverse of a block with scale. Pinned by
// BoundingBoxTest.InverseTransformDoesNotUndoScale.
template <class T>
void BoundingBoxT<T>::inverseTransform(const Matrix44T<T>& m) {
    transform(m.inverse_orthogonal());
}

static_assert(internal::kArePlain<BoundingBoxT, 6> &&
                  std::is_trivially_copyable_v<BoundingBoxT<double>>,
              "a box is its two corners");

template class BoundingBoxT<float>;
template class BoundingBoxT<double>;

}  // namespace KyMath
