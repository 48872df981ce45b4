// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <iomanip>

namespace KyMath {
namespace test {
namespace {

static_assert(sizeof(Vector6) == 6 * sizeof(double), "six bare doubles");
static_assert(!std::is_default_constructible<Vector6>::value, "there is no default value");

void expectBits(const double (&expected)[6], const Vector6& v) {
    for (int i = 0; i < 6; ++i) EXPECT_BITS(expected[i], v[i]) << i;
}

Vector6 anyVector6(Corpus<double>& corpus) {
    Vector6 v(0, 0, 0, 0, 0, 0);
    for (int i = 0; i < 6; ++i) v[i] = corpus.any();
    return v;
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
    const Vector6& self = u;
    EXPECT_EQ(&u, &(u = self));
    expectBits(numbers, u);
}

TEST(Vector6Test, ArithmeticIsByComponentInPlace) {
    Corpus<double> corpus(601);
    for (int n = 0; n < 500; ++n) {
        const Vector6 a = anyVector6(corpus), b = anyVector6(corpus);
        const double s = corpus.any();
        Vector6 sum = a, difference = a, product = a;
        sum.add(b);
        difference.sub(b);
        product.scale(s);
        for (int i = 0; i < 6; ++i) {
            EXPECT_BITS(a[i] + b[i], sum[i]);
            EXPECT_BITS(a[i] - b[i], difference[i]);
            EXPECT_BITS(a[i] * s, product[i]);
        }
    }
}

TEST(Vector6Test, DotAndNormAddToZeroInIndexOrder) {
    Corpus<double> corpus(602);
    for (int n = 0; n < 500; ++n) {
        Vector6 a = anyVector6(corpus), b = anyVector6(corpus);
        if (n % 2 == 0) {
            for (int i = 0; i < 6; ++i) a[i] = corpus.plain(), b[i] = corpus.plain();
        }
        double dot = 0, square = 0;
        for (int i = 0; i < 6; ++i) dot = dot + a[i] * b[i], square = square + a[i] * a[i];
        EXPECT_BITS(dot, a.dot(b));
        EXPECT_BITS(std::sqrt(square), a.norm());
    }
    const Vector6 negativeZeros(-0.0, -0.0, -0.0, -0.0, -0.0, -0.0);
    EXPECT_BITS(0.0, negativeZeros.dot(Vector6(1, 2, 3, 4, 5, 6)));
}

TEST(Vector6Test, PrintsInTheFormatOfTheStream) {
    const Vector6 v(1, 2.5, -3, 4, 5, 6e20);
    std::ostringstream plain;
    EXPECT_EQ(&plain, &(plain << v));
    EXPECT_EQ("1 2.5 -3 4 5 6e+20", plain.str());
    std::ostringstream fixed;
    fixed << std::fixed << std::setprecision(1) << Vector6(1, 2, 3, 4, 5, 6);
    EXPECT_EQ("1.0 2.0 3.0 4.0 5.0 6.0", fixed.str());
}

}  // namespace
}  // namespace test
}  // namespace KyMath
