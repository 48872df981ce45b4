// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_POLYTOPE_H
#define KYMATH_INLINE_POLYTOPE_H

#include <KyMath/inline/Mode.h>

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

#endif

}  // namespace KyMath
KY_EXACT_END

#endif
