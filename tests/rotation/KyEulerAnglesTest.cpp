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

// What a code means, by the letters of its name.
struct Meaning {
    const char* name;
    int i, j, k;  // first and second axis of the static sequence, and the other one
    bool repeated, rotating;
    double sign;  // of the angles in the formulas

    explicit Meaning(int code) {
        name = kOrders[(code & 31) < 24 ? code & 31 : code & 7].second;  // inner axis 3 is x
        rotating = name[3] == 'r';
        repeated = name[0] == name[2];
        i = name[rotating ? 2 : 0] - 'X';
        j = name[1] - 'X';
        k = 3 - i - j;
        sign = (j == (i + 1) % 3) == ((code & 32) == 0) ? -1 : 1;
    }
};

Matrix44d written(const Vector3d& a, int code, Matrix44d m) {
    const Meaning o(code);
    const int axis[] = {o.i, o.j, o.k};
    double si, ci, sj, cj, sh, ch;
    sinCos(o.sign * a[o.rotating ? 2 : 0], si, ci);
    sinCos(o.sign * a[1], sj, cj);
    sinCos(o.sign * a[o.rotating ? 0 : 2], sh, ch);
    const double cc = ci * ch, cs = ci * sh, sc = si * ch, ss = si * sh;
    const double plain[] = {cj * ch,      sj * sc - cs, sj * cc + ss, cj * sh, sj * ss + cc,
                            sj * cs - sc, -sj,          cj * si,      cj * ci};
    const double repeated[] = {cj,       sj * si,       sj * ci,
                               sj * sh,  -cj * ss + cc, -cj * cs - sc,
                               -sj * ch, cj * sc + cs,  cj * cc - ss};
    for (int n = 0; n < 9; ++n) m[axis[n / 3]][axis[n % 3]] = (o.repeated ? repeated : plain)[n];
    return m;
}

Vector3d read(const Matrix44d& m, int code) {
    const Meaning o(code);
    const auto atan2 = [](double y, double x) { return std::atan2(runtime(y), runtime(x)); };
    const int i = o.i, j = o.j, k = o.k;
    const double p = m[i][o.repeated ? j : i], q = o.repeated ? m[i][k] : m[j][i];
    const double y = std::sqrt(p * p + q * q);
    Vector3d a(atan2(-m[j][k], m[j][j]), o.repeated ? atan2(y, m[i][i]) : atan2(-m[k][i], y), 0);
    if (y > kThreshold) {
        a[0] = o.repeated ? atan2(p, q) : atan2(m[k][j], m[k][k]);
        a[2] = o.repeated ? atan2(m[j][i], -m[k][i]) : atan2(q, p);
    }
    a = Vector3d(o.sign * a[0], o.sign * a[1], o.sign * a[2]);
    return o.rotating ? Vector3d(a[2], a[1], a[0]) : a;
}

Matrix44d matrixOf(const Vector3d& angles, int code, const Vector3d& position = {}) {
    return Ky::KyTransform(position, KyEulerAngles(angles, Order(code))).toMatrix44();
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
    EXPECT_TRUE(e.angles() == Vector3d() && one.angles() == two.angles() && one[2] == 3);
    e.set(4, 5, 6, KyEulerAngles::eXZYs);
    EXPECT_EQ(4, e.order());
    e.setOrder(Order(1 << 20 | 7));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(4 + i, e[i]++);
    EXPECT_TRUE(e.order() == (1 << 20 | 7) && e.angles() == Vector3d(5, 6, 7));
}

TEST(KyEulerAnglesTest, WritesTheNineEntriesOfTheProductThatTheNameSays) {
    for (int code = 0; code < 24; ++code) EXPECT_EQ(code, kOrders[code].first);
    Corpus<double> corpus(3201);
    for (int code = kFirstCode; code <= kLastCode; ++code) {
        for (int n = 0; n < 8; ++n) {
            const Vector3d a = corpus.anyVector(), position = corpus.vector();
            Matrix44d m = corpus.matrix(), placed = written(a, code, Matrix44d());
            const Matrix44d expected = written(a, code, m);
            KyEulerAngles(a, Order(code)).toMatrix44(m);
            EXPECT_BITS(expected, m) << code;
            for (int i = 0; i < 3; ++i) placed[3][i] = position[i];
            EXPECT_BITS(placed, matrixOf(a, code, position)) << code;
        }
        // Another library forms the same product.
        const Vector3d a = corpus.vector();
        const Meaning o(code);
        Eigen::Matrix3d product = Eigen::Matrix3d::Identity();
        for (int i = 0; i < 3; ++i) {
            const double angle = (code & KyEulerAngles::eNegated) != 0 ? -a[i] : a[i];
            const Eigen::AngleAxisd turn(angle, Eigen::Vector3d::Unit(o.name[i] - 'X'));
            product = o.rotating ? (turn * product).eval() : (product * turn).eval();
        }
        Matrix44d expected;
        for (int i = 0; i < 9; ++i) expected[i / 3][i % 3] = product(i % 3, i / 3);
        EXPECT_LE(largestDifference(expected, matrixOf(a, code)), kRounding) << code;
    }
}

TEST(KyEulerAnglesTest, ReadsAnyMatrixByTheSameFormulas) {
    Corpus<double> corpus(3203);
    for (int code = kFirstCode; code <= kLastCode; ++code) {
        const Meaning o(code);
        for (int n = 0; n < 8; ++n) {
            Matrix44d m = corpus.anyOf<Matrix44d>();
            EXPECT_BITS(read(m, code), anglesOf(m, code)) << code;
            m = corpus.matrix();
            EXPECT_BITS(read(m, code), anglesOf(m, code)) << code;
            // Near the pole, with either of the two entries that vanish there.
            for (const double y : {0.0, below(kThreshold), kThreshold, above(kThreshold)}) {
                m[o.i][o.repeated ? o.j : o.i] = n % 2 == 0 ? y : 0;
                (o.repeated ? m[o.i][o.k] : m[o.j][o.i]) = n % 2 == 0 ? 0 : -y;
                EXPECT_BITS(read(m, code), anglesOf(m, code)) << code << ": " << y;
            }
        }
    }
}

TEST(KyEulerAnglesTest, AnglesReadAreOfTheSameRotationAndInRangeTheSame) {
    Corpus<double> corpus(3204);
    for (int code = 0; code < 64; ++code) {
        const Meaning o(code);
        for (int n = -2; n < 10; ++n) {
            Vector3d a = corpus.vector();
            if (n <= 2) a[1] = n * (o.repeated ? kPi : kPi / 2);  // at the poles
            const Matrix44d m = matrixOf(a, code);
            EXPECT_LE(largestDifference(m, matrixOf(anglesOf(m, code), code)), kRounding) << code;
            a *= 0.3;
            a[1] = (o.repeated ? o.sign : 1) * (0.8 + corpus.plain() * 0.05);
            const Vector3d error = anglesOf(matrixOf(a, code), code) - a;
            EXPECT_LE(error.norm(), 4 * kRounding) << code;
        }
    }
    const Vector3d out(0.3, 0.7, 1.1), in(0.3 - kPi, -0.7, 1.1 - kPi);
    EXPECT_LE((anglesOf(matrixOf(out, 2), 2) - in).norm(), kRounding);
}

TEST(KyEulerAnglesTest, OrdersAreChangedAndComparedThroughTheMatrixUnlessTheyAreEqual) {
    Corpus<double> corpus(3206);
    int count[2][2] = {};
    for (int n = 0; n < 8000; ++n) {
        const double tol = n % 50 == 0 ? corpus.any() : 0.01;
        const int from = n % 64, to = n % 3 == 0 ? from : from ^ (n / 64 % 128);
        const Vector3d p = corpus.vector() * 0.1;
        Vector3d q = p + corpus.vector() * (tol * 0.04);
        if (n % 5 == 0) q[n % 3] = corpus.any();
        const Vector3d same = from == to ? q : read(written(q, from, Matrix44d()), to);
        q = KyEulerAngles::getEulerAngles(q, Order(from), Order(to));
        EXPECT_BITS(same, q);
        const Matrix44d m = matrixOf(p, from), k = matrixOf(q, to);
        bool angles = from == to, entries = tol >= 0;
        for (int i = 0; i < 3; ++i) angles = angles && equalWithin(p[i], q[i], tol);
        for (int i = 0; i < 12; ++i) {
            if (i % 4 < 3) entries = entries && equalWithin(m[i / 4][i % 4], k[i / 4][i % 4], tol);
        }
        const KyEulerAngles e(p, Order(from)), f(q, Order(to));
        EXPECT_EQ(angles, KyEulerAngles::areEqualTolAndSameOrder(e, f, tol));
        const bool equal = from == to ? angles : entries;
        EXPECT_EQ(equal, KyEulerAngles::areEqualTol(e, f, tol)) << from << ", " << to;
        ++count[from == to][equal];
    }
    for (const auto& c : count) EXPECT_TRUE(c[0] > 500 && c[1] > 500);
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
