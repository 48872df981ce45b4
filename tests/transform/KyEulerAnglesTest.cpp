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
        const int inner = (code & 24) == 24 ? code - 24 : code;  // axis 3 is x
        EXPECT_BITS(m, matrixOf(a, inner));
    }
}

TEST(KyEulerAnglesTest, SetOrderKeepsAngles) {
    KyEulerAngles a(1, 2, 3);
    a.setOrder(KyEulerAngles::eZYXr);
    EXPECT_EQ(KyEulerAngles::eZYXr, a.order());
    EXPECT_BITS(Vector3d(1, 2, 3), a.angles());
}

TEST(KyEulerAnglesTest, WritesNineEntries) {
    const Matrix44d numbered(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    Matrix44d m = numbered;
    KyEulerAngles(1, 2, 3).toMatrix44(m);
    EXPECT_BITS(numbered.row(3), m.row(3));
    EXPECT_BITS(numbered.column(3), static_cast<const Matrix44d&>(m).column(3));
}

TEST(KyEulerAnglesTest, NearThePoleOneAngleIsZero) {
    // The axes that the angles of static orders turn about; a rotating order has the reverse.
    const int axes[][3] = {{0, 1, 2}, {0, 1, 0}, {0, 2, 1}, {0, 2, 0}, {1, 2, 0}, {1, 2, 1},
                           {1, 0, 2}, {1, 0, 1}, {2, 0, 1}, {2, 0, 2}, {2, 1, 0}, {2, 1, 2}};
    for (int code = 0; code < 24; ++code) {
        const int i = axes[code / 2][0], j = axes[code / 2][1], k = 3 - i - j;
        const bool repeated = axes[code / 2][2] == i;
        for (const double y :
             {0.0, below(kThreshold), kThreshold, above(kThreshold), kNaN<double>}) {
            for (const bool first : {true, false}) {  // either of the two entries that vanish there
                Matrix44d m(0.1, 0.2, 0.3, 0, 0.4, 0.5, 0.6, 0, 0.7, 0.8, 0.9, 0, 0, 0, 0, 1);
                double &p = m[i][repeated ? j : i], &q = repeated ? m[i][k] : m[j][i];
                (first ? p : q) = -y, (first ? q : p) = 0;
                const double angle = anglesOf(m, code)[code % 2 == 0 ? 2 : 0];
                EXPECT_EQ(!(y > kThreshold), angle == 0) << code << ": " << y;
            }
        }
    }
}

TEST(KyEulerAnglesTest, EqualOrdersKeepTheirAngles) {
    const Vector3d more(0.5 + 4 * std::acos(0.0), 0.25, -1);
    EXPECT_BITS(more, KyEulerAngles::getEulerAngles(more, Order(5), Order(5)));
    // The same turns about axes that stay, last one first.
    const Vector3d b =
        KyEulerAngles::getEulerAngles(more, KyEulerAngles::eXYZs, KyEulerAngles::eZYXr);
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
    std::ostringstream expected, actual;
    for (std::ostream* os : {&expected, &actual}) {
        *os << std::showpos << std::scientific << std::hex << std::left << std::setprecision(3)
            << std::setfill('*') << std::setw(5);
    }
    expected << std::setprecision(17) << "[" << 0.1 << " " << -2e20 << " " << 3.0
             << " order: " << 87 << "]" << std::setprecision(3) << 0.1;
    EXPECT_EQ(&actual, &(actual << KyEulerAngles(0.1, -2e20, 3, Order(64 + 23)) << 0.1));
    EXPECT_EQ(expected.str(), actual.str());
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
