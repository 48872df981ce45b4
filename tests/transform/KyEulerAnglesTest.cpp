// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// That each order turns about the axes of its name is in PropertiesTest.cpp.
#include "Support.h"

#include <Ky/Ky.h>

#include <iomanip>

namespace KyMath::test {
namespace {

using Ky::KyEulerAngles;
using Order = KyEulerAngles::eEulerOrder;

const double kThreshold = 0x1p-19;  // where the first and the third axis count as one

Matrix44d matrixOf(const Vector3d& angles, int code) {
    return Ky::KyTransform(Vector3d(), KyEulerAngles(angles, Order(code))).toMatrix44();
}
Vector3d anglesOf(const Matrix44d& m, int code) {
    KyEulerAngles e(7, 8, 9, Order(11));
    e.fromMatrix44(m, Order(code));
    EXPECT_EQ(code, e.order());
    return e.angles();
}

TEST(KyEulerAnglesTest, DefaultOrderIsWritable) {
    EXPECT_EQ(KyEulerAngles::eXYZs, KyEulerAngles().order());
    KyEulerAngles::defaultEulerOrder = KyEulerAngles::eYXYr;
    const KyEulerAngles none, one(1, 2, 3), two(Vector3d(1, 2, 3));
    KyEulerAngles::defaultEulerOrder = KyEulerAngles::eXYZs;
    for (const KyEulerAngles& e : {none, one, two}) EXPECT_EQ(KyEulerAngles::eYXYr, e.order());
}

TEST(KyEulerAnglesTest, HigherBitsMeanNothing) {
    const Vector3d a(0.5, 0.25, -1);
    for (int code = 0; code < 64; ++code) {
        const Matrix44d m = matrixOf(a, code);
        for (const int more : {-64, 64, 1 << 20}) {
            EXPECT_BITS(m, matrixOf(a, code + more));
            EXPECT_BITS(anglesOf(m, code), anglesOf(m, code + more));
        }
        EXPECT_BITS(m, matrixOf(a, (code & 24) == 24 ? code - 24 : code));  // axis 3 is x
        EXPECT_BITS(Vector4d(0, 0, 0, 1), m.row(3));                        // which is not written
    }
}

// Within 2^-19 of it: the first of a rotating order, else the third.
TEST(KyEulerAnglesTest, NearThePoleOneAngleIsZero) {
    for (const double x : {0.0, kThreshold, above(kThreshold)}) {
        const Matrix44d pole(-x, 0.6, 0.8, 0, 0, 0.8, -0.6, 0, -1, 0, 0, 0, 0, 0, 0, 1);
        EXPECT_EQ(x <= kThreshold, anglesOf(pole, KyEulerAngles::eXYZs)[2] == 0) << x;
        EXPECT_EQ(x <= kThreshold, anglesOf(pole, KyEulerAngles::eZYXr)[0] == 0) << x;
    }
}

TEST(KyEulerAnglesTest, EqualOrdersKeepTheirAngles) {
    const Vector3d more(0.5 + 4 * std::acos(0.0), 0.25, -1);
    EXPECT_BITS(more, KyEulerAngles::getEulerAngles(more, Order(5), Order(5)));
    KyEulerAngles e(more);
    e.setOrder(KyEulerAngles::eZYXr);
    EXPECT_BITS(more, e.angles());
    // The same turns about axes that stay, last one first.
    const Vector3d b = KyEulerAngles::getEulerAngles(more, KyEulerAngles::eXYZs, e.order());
    EXPECT_BITS(anglesOf(matrixOf(more, KyEulerAngles::eXYZs), KyEulerAngles::eZYXr), b);
    EXPECT_LE((b - Vector3d(-1, 0.25, 0.5)).norm(), 16 * kEps<double>);
}

TEST(KyEulerAnglesTest, OtherOrdersCompareAsRotations) {
    const auto equal = [](const Vector3d& a, int from, const Vector3d& b, int to, double tol) {
        const KyEulerAngles p(a, Order(from)), q(b, Order(to));
        const bool same = KyEulerAngles::areEqualTolAndSameOrder(p, q, tol);
        EXPECT_EQ(same, from == to && KyEulerAngles::areEqualTol(p, q, tol));
        return KyEulerAngles::areEqualTol(p, q, tol);
    };
    const Vector3d a(0.5, 0.25, -1), b(-1, 0.25, 0.5), more(0.5 + 4 * std::acos(0.0), 0.25, -1);
    EXPECT_TRUE(equal(a, 0, b, 1, 1e-9));
    EXPECT_TRUE(equal(more, 0, b, 1, 1e-9));
    EXPECT_FALSE(equal(more, 0, a, 0, 1e-9));  // of the same order, a full turn counts
    EXPECT_FALSE(equal(a, 64, a * 1.5, 0, 1e-9));
    EXPECT_TRUE(equal(a, 64, a, 0, 0));  // codes differ, matrices do not
    const Vector3d nan(kNaN<double>, 0, 0);
    EXPECT_FALSE(equal(nan, 64, nan, 0, 1));
    EXPECT_FALSE(equal(nan, 0, nan, 0, 1));
}

TEST(KyEulerAnglesTest, PrintsWith17Digits) {
    std::ostringstream s;
    constexpr Order order = Order(64) | KyEulerAngles::eZYZr | KyEulerAngles::eNegated;
    s << std::showpos << std::setprecision(3) << KyEulerAngles(0.1, -2e20, 3, order) << 0.1;
    EXPECT_EQ("[+0.10000000000000001 -2e+20 +3 order: +119]+0.1", s.str());
}

TEST(KyEulerAnglesTest, RestoresThePrecisionOfABadStream) {
    struct Full : std::streambuf {
    } full;
    std::ostream os(&full);
    os.precision(3);
    os.exceptions(std::ios::badbit);
    EXPECT_THROW(os << KyEulerAngles(), std::ios_base::failure);
    EXPECT_EQ(3, os.precision());
}

}  // namespace
}  // namespace KyMath::test
