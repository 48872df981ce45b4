// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <Ky/Ky.h>

#include <Eigen/Geometry>

#include <iomanip>

namespace KyMath::test {
namespace {

using Ky::KyEulerAngles;
using Order = KyEulerAngles::eEulerOrder;

static_assert(std::is_trivially_copyable<KyEulerAngles>::value, "copied freely");
static_assert(sizeof(KyEulerAngles) == 4 * sizeof(double), "three angles and the order");

const double kRounding = 16 * kEps<double>;  // of entries that are at most 1
const double kThreshold = 0x1p-19;           // where the first and the third axis count as one
const double kPi = std::acos(-1.0);
const int kFirstCode = -64, kLastCode = 127;  // with bits set above the six that mean something

#define ORDER(name) std::pair<Order, const char*>(KyEulerAngles::e##name, #name)
const std::pair<Order, const char*> kOrders[] = {
    ORDER(XYZs), ORDER(ZYXr), ORDER(XYXs), ORDER(XYXr), ORDER(XZYs), ORDER(YZXr),
    ORDER(XZXs), ORDER(XZXr), ORDER(YZXs), ORDER(XZYr), ORDER(YZYs), ORDER(YZYr),
    ORDER(YXZs), ORDER(ZXYr), ORDER(YXYs), ORDER(YXYr), ORDER(ZXYs), ORDER(YXZr),
    ORDER(ZXZs), ORDER(ZXZr), ORDER(ZYXs), ORDER(XYZr), ORDER(ZYZs), ORDER(ZYZr)};

// The letters of a code: s for axes that stay, r for axes that turn along.
const char* nameOf(int code) {
    return kOrders[(code & 31) < 24 ? code & 31 : code & 7].second;  // inner axis 3 is x
}
bool isRepeated(int code) {
    return nameOf(code)[0] == nameOf(code)[2];
}

Matrix44d matrixOf(const Vector3d& angles, int code) {
    return Ky::KyTransform(Vector3d(), KyEulerAngles(angles, Order(code))).toMatrix44();
}
Vector3d anglesOf(const Matrix44d& m, int code) {
    KyEulerAngles e(7, 8, 9, Order(11));
    e.fromMatrix44(m, Order(code));
    EXPECT_EQ(code, e.order());
    return e.angles();
}
double largestDifference(const Matrix44d& a, const Matrix44d& b) {
    double d = 0;
    for (int i = 0; i < 16; ++i) d = std::max(d, std::abs(a[i / 4][i % 4] - b[i / 4][i % 4]));
    return d;
}

TEST(KyEulerAnglesTest, IsMadeInAWritableDefaultOrder) {
    EXPECT_EQ(0, KyEulerAngles().order());
    KyEulerAngles::defaultEulerOrder = KyEulerAngles::eYXYr;
    KyEulerAngles e;
    const KyEulerAngles one(1, 2, 3), two(Vector3d(1, 2, 3));
    KyEulerAngles::defaultEulerOrder = KyEulerAngles::eXYZs;
    EXPECT_TRUE(e.order() == 15 && one.order() == 15 && two.order() == 15);
    e.setOrder(Order(1 << 20 | 7));
    EXPECT_EQ(1 << 20 | 7, e.order());
}

TEST(KyEulerAnglesTest, MakesTheProductThatTheNameSaysInNineEntries) {
    for (int code = 0; code < 24; ++code) EXPECT_EQ(code, kOrders[code].first);
    Corpus<double> corpus(3201);
    for (int code = kFirstCode; code <= kLastCode; ++code) {
        const Vector3d a = corpus.vector();
        const char* const name = nameOf(code);
        Eigen::Matrix3d product = Eigen::Matrix3d::Identity();
        for (int i = 0; i < 3; ++i) {
            const double angle = (code & KyEulerAngles::eNegated) != 0 ? -a[i] : a[i];
            const Eigen::AngleAxisd turn(angle, Eigen::Vector3d::Unit(name[i] - 'X'));
            product = name[3] == 'r' ? (turn * product).eval() : (product * turn).eval();
        }
        Matrix44d expected = corpus.matrix(), actual = expected;
        for (int i = 0; i < 9; ++i) expected[i / 3][i % 3] = product(i % 3, i / 3);
        KyEulerAngles(a, Order(code)).toMatrix44(actual);
        EXPECT_LE(largestDifference(expected, actual), kRounding) << code;
        for (int i = 0; i < 4; ++i) EXPECT_EQ(expected[i][3], actual[i][3]);
    }
}

TEST(KyEulerAnglesTest, WithinTheThresholdOfThePoleOneAngleIsZero) {
    for (int code = 0; code < 64; ++code) {
        const char* const name = nameOf(code);
        const bool rotating = name[3] == 'r';
        const int i = name[rotating ? 2 : 0] - 'X', j = name[1] - 'X', k = 3 - i - j;
        for (const double y :
             {0.0, below(kThreshold), kThreshold, above(kThreshold), kNaN<double>}) {
            for (const bool first : {true, false}) {  // either of the two entries that vanish there
                Matrix44d m(0.1, 0.2, 0.3, 0, 0.4, 0.5, 0.6, 0, 0.7, 0.8, 0.9, 0, 0, 0, 0, 1);
                double &p = m[i][isRepeated(code) ? j : i],
                       &q = isRepeated(code) ? m[i][k] : m[j][i];
                (first ? p : q) = -y, (first ? q : p) = 0;
                const double angle = anglesOf(m, code)[rotating ? 0 : 2];
                EXPECT_EQ(!(y > kThreshold), angle == 0) << code << ": " << y;
            }
        }
    }
}

TEST(KyEulerAnglesTest, OrdersAreChangedAndComparedThroughTheMatrixUnlessTheyAreEqual) {
    const Vector3d a(0.5, 0.25, -1);
    const auto equal = [](const Vector3d& p, Order o, const Vector3d& q, Order r, double tol) {
        return KyEulerAngles::areEqualTol(KyEulerAngles(p, o), KyEulerAngles(q, r), tol);
    };
    // The same turns about axes that turn along, last one first.
    const Vector3d b = KyEulerAngles::getEulerAngles(a, KyEulerAngles::eXYZs, KyEulerAngles::eZYXr);
    EXPECT_BITS(anglesOf(matrixOf(a, KyEulerAngles::eXYZs), KyEulerAngles::eZYXr), b);
    EXPECT_LE((b - Vector3d(-1, 0.25, 0.5)).norm(), kRounding);
    EXPECT_TRUE(equal(a, KyEulerAngles::eXYZs, b, KyEulerAngles::eZYXr, 1e-9));
    EXPECT_FALSE(KyEulerAngles::areEqualTolAndSameOrder(KyEulerAngles(a, KyEulerAngles::eXYZs),
                                                        KyEulerAngles(a, KyEulerAngles::eZYXr), 9));
    // A full turn more is the same rotation, but of the same order it counts; nothing is reduced.
    const Vector3d more = a + Vector3d(2 * kPi, 0, 0);
    EXPECT_BITS(more, KyEulerAngles::getEulerAngles(more, Order(5), Order(5)));
    EXPECT_TRUE(equal(more, KyEulerAngles::eXYZs, b, KyEulerAngles::eZYXr, 1e-9));
    EXPECT_FALSE(equal(more, KyEulerAngles::eXYZs, a, KyEulerAngles::eXYZs, 1e-9));
    EXPECT_FALSE(equal(a, Order(64), a * 1.5, KyEulerAngles::eXYZs, 1e-9));
    EXPECT_TRUE(equal(a, Order(64), a, KyEulerAngles::eXYZs, 0));  // codes differ, matrices do not
    const Vector3d nan(kNaN<double>, 0, 0);
    EXPECT_FALSE(equal(nan, Order(64), nan, Order(0), 1) || equal(nan, Order(0), nan, Order(0), 1));
}

TEST(KyEulerAnglesTest, PrintsWith17DigitsAndRestoresThePrecisionAlsoWhenTheStreamThrows) {
    std::ostringstream plain;
    EXPECT_EQ(&plain, &(plain << KyEulerAngles(1, 2, 3, Order(0)) << 0.1234567));
    EXPECT_EQ("[1 2 3 order: 0]0.123457", plain.str());
    std::ostringstream expected, actual;
    for (std::ostream* os : {&expected, &actual}) {
        *os << std::showpos << std::scientific << std::hex << std::left << std::setprecision(3)
            << std::setfill('*') << std::setw(5);
    }
    expected << std::setprecision(17) << "[" << 0.1 << " " << -2e20 << " " << 3.0
             << " order: " << 87 << "]" << std::setprecision(3) << 0.1;
    actual << KyEulerAngles(0.1, -2e20, 3, Order(64 + 23)) << 0.1;
    EXPECT_EQ(expected.str(), actual.str());
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
