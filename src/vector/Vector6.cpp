// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector6.h>
#include <KyMath/inline/Vector6.h>

#include "internal/Components.h"

#include <ostream>

namespace KyMath {

std::ostream& operator<<(std::ostream& os, const Vector6& v) {
    os << v[0];
    for (int i = 1; i < 6; ++i) os << " " << v[i];
    return os;
}

static_assert(internal::kIsPlain<Vector6, 6 * sizeof(double)>, "a vector is its six values");

}  // namespace KyMath
