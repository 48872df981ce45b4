// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <iomanip>

namespace KyMath {
namespace test {
namespace {

static_assert(!std::is_default_constructible<Vector6>::value, "there is no default value");

void expectBits(const double (&expected)[6], const Vector6& v) {
    for (int i = 0; i < 6; ++i) EXPECT_BITS(expected[i], v[i]) << i;
}

TEST(Vector6Test, FirstHalfComesFirst) {
    const double numbers[] = {1, 2, 3, 4, 5, 6}, swapped[] = {4, 5, 6, 1, 2, 3};
    const Vector6 v(1, 2, 3, 4, 5, 6);
    expectBits(numbers, v);
    expectBits(swapped, Vector6(numbers + 3, numbers));
    Vector6 u = v;
    u.set(Vector3d(4, 5, 6), Vector3d(1, 2, 3));
    expectBits(swapped, u);
    EXPECT_EQ(&u, &(u = v));
    expectBits(numbers, u);
}

TEST(Vector6Test, ArithmeticIsInPlaceAndDotAddsToZeroInIndexOrder) {
    Corpus<double> corpus(601);
    for (int n = 0; n < 1000; ++n) {
        Vector6 a(0, 0, 0, 0, 0, 0), b = a;
        for (int i = 0; i < 6; ++i) a[i] = n % 2 == 0 ? corpus.plain() : corpus.any();
        for (int i = 0; i < 6; ++i) b[i] = n % 2 == 0 ? corpus.plain() : corpus.any();
        const double s = corpus.any();
        const Vector6 sum = after(a, [&](Vector6& v) { v.add(b); });
        const Vector6 difference = after(a, [&](Vector6& v) { v.sub(b); });
        const Vector6 product = after(a, [&](Vector6& v) { v.scale(s); });
        double dot = 0, square = 0;
        for (int i = 0; i < 6; ++i) {
            EXPECT_BITS(a[i] + b[i], sum[i]);
            EXPECT_BITS(a[i] - b[i], difference[i]);
            EXPECT_BITS(a[i] * s, product[i]);
            dot = dot + a[i] * b[i];
            square = square + a[i] * a[i];
        }
        EXPECT_BITS(dot, a.dot(b));
        EXPECT_BITS(std::sqrt(square), a.norm());
    }
    const Vector6 negativeZeros(-0.0, -0.0, -0.0, -0.0, -0.0, -0.0);
    EXPECT_BITS(0.0, negativeZeros.dot(Vector6(1, 2, 3, 4, 5, 6)));
}

TEST(Vector6Test, PrintsInTheFormatOfTheStream) {
    std::ostringstream s;
    EXPECT_EQ(&s, &(s << Vector6(1, 2.5, -3, 4, 5, 6e20)));
    s << std::fixed << std::setprecision(1) << "; " << Vector6(1, 2, 3, 4, 5, 6);
    EXPECT_EQ("1 2.5 -3 4 5 6e+20; 1.0 2.0 3.0 4.0 5.0 6.0", s.str());
}

}  // namespace
}  // namespace test
}  // namespace KyMath
