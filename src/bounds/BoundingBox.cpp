// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/BoundingBox.h>
#include <KyMath/inline/BoundingBox.h>

#include <KyMath/BoundingSphere.h>
#include <KyMath/Matrix.h>

#include "internal/Components.h"
#include "lanes/Kernels.h"
#include "lanes/Lanes.h"

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

namespace {

// Boxes as six values, minimum first. A packed minimum or maximum gives its second operand where
// neither is less, and for a NaN, as lower() and higher() give the present bound.

// Loaded and stored by the pieces in which compilers copy a box: others would stall.

using internal::load;
using internal::withLast;

/// The last two values.
__m128 loadEnd(const float* box) {
    return _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(box + 4)));
}

void merge(float* box, const float* a, const float* b) {
    const __m128 low = _mm_min_ps(load(b), load(a));
    const __m128 xHigh = _mm_max_ps(load(b), load(a));
    const __m128 high = _mm_max_ps(loadEnd(b), loadEnd(a));
    internal::store(box, withLast(low, xHigh));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(box + 4), _mm_castps_si128(high));
}
void merge(double* box, const double* a, const double* b) {
    const __m128d low = _mm_min_pd(_mm_loadu_pd(b), _mm_loadu_pd(a));
    const __m128d zLow = _mm_min_pd(_mm_loadu_pd(b + 2), _mm_loadu_pd(a + 2));
    const __m128d xHigh = _mm_max_pd(_mm_loadu_pd(b + 2), _mm_loadu_pd(a + 2));
    const __m128d high = _mm_max_pd(_mm_loadu_pd(b + 4), _mm_loadu_pd(a + 4));
    _mm_storeu_pd(box, low);
    _mm_storeu_pd(box + 2, _mm_move_sd(xHigh, zLow));
    _mm_storeu_pd(box + 4, high);
}

}  // namespace

template <class T>
BoundingBoxT<T>& BoundingBoxT<T>::operator+=(const BoundingBoxT& b) {
    T* const box = reinterpret_cast<T*>(this);
    merge(box, box, reinterpret_cast<const T*>(&b));
    return *this;
}
template <class T>
BoundingBoxT<T> BoundingBoxT<T>::operator+(const BoundingBoxT& b) const {
    BoundingBoxT sum;
    merge(reinterpret_cast<T*>(&sum), reinterpret_cast<const T*>(this),
          reinterpret_cast<const T*>(&b));
    return sum;
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
