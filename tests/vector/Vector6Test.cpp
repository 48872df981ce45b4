// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <iomanip>

namespace KyMath::test {
namespace {

static_assert(!std::is_default_constructible<Vector6>::value, "there is no default value");

TEST(Vector6Test, DotProductIsNeverMinusZero) {
    const Vector6 negativeZeros(-0.0, -0.0, -0.0, -0.0, -0.0, -0.0);
    EXPECT_BITS(0.0, negativeZeros.dot(Vector6(1, 2, 3, 4, 5, 6)));
}

TEST(Vector6Test, PrintsInTheFormatOfTheStream) {
    std::ostringstream s;
    s << std::showpos << Vector6(1, 2.5, -3, 4, 5, 6e20) << "; ";
    EXPECT_EQ("+1 +2.5 -3 +4 +5 +6e+20; ", s.str());
}

}  // namespace
}  // namespace KyMath::test
