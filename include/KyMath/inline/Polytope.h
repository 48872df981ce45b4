// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_POLYTOPE_H
#define KYMATH_INLINE_POLYTOPE_H

#include <KyMath/BoundingBox.h>
#include <KyMath/inline/Components.h>

#ifdef KYMATH_INLINE
#pragma GCC system_header
#endif

KY_EXACT_BEGIN
namespace KyMath {

// Only where a vector of the client is one of the library.
#if KY_SAME_CONTAINERS

KY_SMALL_PLAIN const std::vector<PlaneT<double>>& Polytope::getPlanes() const {
    return planes_;
}
KY_SMALL_PLAIN void Polytope::pushCurrentMask() {
    maskStack_.push_back(currentMask_);
}
KY_SMALL_PLAIN void Polytope::popCurrentMask() {
    maskStack_.pop_back();
}
KY_SMALL_PLAIN unsigned int Polytope::getCurrentMask() const {
    return currentMask_;
}
KY_SMALL_PLAIN const std::vector<unsigned int>& Polytope::getMaskStack() const {
    return maskStack_;
}

#if KY_INLINE_ARITHMETIC

KY_SMALL_PLAIN bool Polytope::contains(const BoundingBoxT<double>& box) {
    const unsigned int top = maskStack_.back();
    if (top == 0) return true;
    currentMask_ = top;
    const unsigned long count = internal::maskedPlanes(planes_.size());
    for (unsigned long i = 0; i < count; ++i) {
        const unsigned int bit = 1u << i;
        if ((currentMask_ & bit) == 0) continue;
        const int side = planes_[i].intersect(box);
        if (side < 0) return false;
        if (side > 0) currentMask_ ^= bit;
    }
    return true;
}

#endif

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
