// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_BOUNDS_CORNERDISTANCE_H
#define KYMATH_BOUNDS_CORNERDISTANCE_H

#include "lanes/Lanes.h"

namespace KyMath {
namespace internal {

/// a x + b y + c z + d for one corner of a box, or of several boxes with one to a lane: above 0 on
/// the positive side of the plane. box has the minimum, then the maximum.
///
/// A box is inside if its lower corner is above 0, whatever its upper corner: that of an inverted
/// box can be below. Otherwise it is outside if its upper corner is below 0.
template <class T, class V>
static KY_INLINE V cornerDistance(const T* plane, const V* box, unsigned int corner) {
    return plane[0] * box[corner & 1 ? 3 : 0] + plane[1] * box[corner & 2 ? 4 : 1] +
           plane[2] * box[corner & 4 ? 5 : 2] + plane[3];
}

}  // namespace internal
}  // namespace KyMath

#endif
