// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <Ky/Ky.h>

namespace KyMath::test {
namespace {

using M = Matrix44d;
using Ky::KyTransform;

const M kNumbered(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
const M kQuarter(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);  // a quarter turn about z
const KyTransform kMoved(0, 1, 0, 7, -1, 0, 0, 7, 0, 0, 1, 7, 1, 2, 3, 7);  // and then to (1, 2, 3)

/// m with row 3 kept and the first columns replaced by those of values.
M changed(M m, int columns, const M& values) {
    for (int c = 0; c < columns; ++c) {
        for (int r = 0; r < 3; ++r) m[c][r] = values[c][r];
    }
    return m;
}

TEST(KyTransformTest, ArgumentsMayBeViewsOfTheTransform) {
    const auto view = [](KyTransform& t, int c) -> Vector3d& { return *Vector3d::cast(t[c]); };
    const M turned(9, 10, 11, 4, 1, 2, 3, 8, 5, 6, 7, 12, 13, 14, 15, 16);
    KyTransform t(kNumbered);
    t.setRotation(view(t, 2), view(t, 0), view(t, 1));
    EXPECT_BITS(turned, t.toMatrix44());
    t.setTranslation(view(t, 0));
    EXPECT_BITS(Vector3d(9, 10, 11), t.getTranslation());
}

// Deliberate: only makeRotation clears the translation and the bottom row.
TEST(KyTransformTest, QuaternionsOfAnyLengthSetTheRotation) {
    const Quaterniond q(2, 0, 0, 2);
    KyTransform a(kNumbered), b(kNumbered), c(kNumbered), d(kNumbered);
    EXPECT_BITS(changed(kNumbered, 3, kQuarter), a.setRotation(q).toMatrix44());
    EXPECT_BITS(changed(kNumbered, 3, kQuarter), b.makeRotationFromQuaternion(q).toMatrix44());
    EXPECT_BITS(kQuarter, c.makeRotation(q).toMatrix44());
    d.makeFromRotatedVector(Vector3d(1, 0, 0), Vector3d(0, 1, 0));
    EXPECT_BITS(kQuarter, d.toMatrix44());
    EXPECT_TRUE(std::isnan(a.setRotation(Quaterniond(0, 0, 0, 0))(0, 0)));
}

// A trace of 0 is not positive.
TEST(KyTransformTest, QuaternionTiesGoToTheLowerIndex) {
    const auto read = [](double x, double y, double z) {
        Quaterniond p;
        KyTransform(x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1).toQuaternion(p);
        return p;
    };
    EXPECT_EQ(Quaterniond(0, 1, 0, 0), read(1, -1, -1));
    EXPECT_EQ(Quaterniond(0, 0, 1, 0), read(-1, 1, -1));
    EXPECT_EQ(Quaterniond(0, 0, 0, 1), read(-1, -1, 1));
    EXPECT_EQ(Quaterniond(1, 0, 0, 0), read(3, 3, 3));
    EXPECT_GT(read(1, 1, -2).x(), 0);
    EXPECT_GT(read(-2, 1, 1).y(), 0);
    EXPECT_GT(read(1, -2, 1).x(), 0);
    EXPECT_GT(read(-1, -1, -1).x(), 0);
}

// Deliberate: the direction is compared with the old y axis, which is then replaced.
TEST(KyTransformTest, DirectionBecomesTheXAxis) {
    const M m(2, 0, 0, 7, 0, 4, 0, 8, 0, 0, 5, 9, 1, 2, 3, 6);
    const M unitY(2, 0, 0, 7, 0, 1, 0, 8, 0, 0, 5, 9, 1, 2, 3, 6);
    const auto check = [&](const M& expected, bool succeeds, const Vector3d& dir, double tol) {
        KyTransform set(m), made(m);
        EXPECT_EQ(succeeds, set.setRotation(dir, tol)) << tol;
        EXPECT_EQ(succeeds, made.makeRotation(dir, tol)) << tol;
        EXPECT_BITS(expected, set.toMatrix44());
        EXPECT_BITS(changed(expected, succeeds ? 4 : 3, changed(M(), 3, expected)),
                    made.toMatrix44());
    };
    const auto axes = [&m](const Vector3d& x, const Vector3d& y) {
        return changed(m, 3, Transformation::createRotationFromAxesT(x, y, x.cross(y)));
    };
    const M along = axes(Vector3d(1, 0, 0), Vector3d(0, 0, -1));
    check(along, true, Vector3d(3, 0, 0), 1e-6);
    check(axes(Vector3d(0, 0, 1), Vector3d(0, -1, 0)), true, Vector3d(0, 0, 3), 1e-6);
    // Nothing is changed for a short direction, the length of y for one along y or a short y.
    check(along, true, Vector3d(0.5, 0, 0), below(0.5));
    check(m, false, Vector3d(0.5, 0, 0), 0.5);
    check(unitY, false, Vector3d(0, 3, 0), 1e-6);
    check(unitY, false, Vector3d(0, -3, 0), 1e-6);
    check(m, false, Vector3d(9, 0, 0), 4);
    // The tolerance is that of 1 - cosine as well, which is 0.4 here, and may equal it.
    const Vector3d oblique(4, 3, 0), x(oblique * (1 / 5.0));
    check(axes(x, Vector3d(0, 0, -x[0] * (1 / std::sqrt(x[0] * x[0])))), true, oblique, 1 - x[1]);
    check(unitY, false, oblique, above(1 - x[1]));
}

// Deliberate: the float 0.01, widened.
TEST(KyTransformTest, MakeOrthonormalReplacesAParallelColumn) {
    const double tol = 0.0099999997764825821;
    for (const double length : {0.0, below(tol), tol, above(tol), 0.01}) {  // of the cross product
        for (int i = 0; i < 3; ++i) {  // columns i, j, k, as seen from axis i
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            M m;
            m[i][i] = 2, m[j][i] = 3, m[j][j] = length, m[k][i] = 5, m[k][j] = 0, m[k][k] = 4;
            KyTransform t(m);
            t.makeOrthonormal(i);
            M expected = M::kZero;  // without a usable second, first x third becomes the third
            expected[i][i] = expected[3][3] = 1;
            expected[j][length > tol ? j : k] = 1;
            (length > tol ? expected[k][k] : expected[k][j]) = length > tol ? 1 : -1;
            EXPECT_TRUE(expected.isEqual(t.toMatrix44(), kEps<double>)) << length << ": " << i;
        }
    }
}

KyTransform with(int i, double x) {
    return KyTransform(after(M(), [&](M& m) { static_cast<double*>(m)[i] = x; }));
}

// Deliberate: row 3 does not count, and a NaN passes.
TEST(KyTransformTest, IsIdentityWithinTheTolerance) {
    for (int i = 0; i < 16; ++i) {
        const double one = i % 5 == 0 ? 1 : 0;
        for (const double x : {one + 0.25, one - 0.25, above(one + 0.25), below(one - 0.25)}) {
            const bool identity = i % 4 == 3 || std::abs(x - one) <= 0.25;
            EXPECT_EQ(identity, with(i, x).isIdentity(0.25)) << i << ": " << x;
        }
        EXPECT_TRUE(with(i, kNaN<double>).isIdentity(0.25));
    }
}

TEST(KyTransformTest, IsValidIgnoresOnlyTheTranslation) {
    for (int i = 0; i < 16; ++i) {
        for (const double x : {kNaN<double>, -1.25, 1.25, 1e-6}) {
            EXPECT_EQ(i / 4 == 3 && i % 4 < 3, with(i, x).isValid()) << i << ": " << x;
        }
    }
}

TEST(KyTransformTest, IsValidWithinOneInTenMillion) {
    const double tol = 1e-7;
    for (const int i : {3, 7, 11}) {
        for (const double sign : {1.0, -1.0}) {
            EXPECT_TRUE(with(i, sign * tol).isValid()) << i;
            EXPECT_FALSE(with(i, sign * above(tol)).isValid()) << i;
        }
    }
    for (const int i : {1, 2, 4, 6, 8, 9}) {  // a shear, seen in the products of columns
        EXPECT_TRUE(with(i, 0.99 * tol).isValid()) << i;
        EXPECT_FALSE(with(i, -1.01 * tol).isValid()) << i;
    }
    for (const double sign : {1.0, -1.0}) {
        EXPECT_TRUE(with(15, 1 + sign * 0.99 * tol).isValid());
        EXPECT_FALSE(with(15, 1 + sign * 1.01 * tol).isValid());
        const auto scaled = [](double s) {  // the determinant fails first
            return KyTransform(s, 0, 0, 0, 0, s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1);
        };
        EXPECT_TRUE(scaled(1 + sign * 0.33 * tol).isValid());
        EXPECT_FALSE(scaled(1 + sign * 0.34 * tol).isValid());
        EXPECT_EQ(sign > 0, scaled(sign).isValid());
    }
}

// Deliberate: of three operands, row 3 stays as it is.
TEST(KyTransformTest, CompoundsOfTwoKeepTheBottomRow) {
    const M twice(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, -1, 3, 6, 1);
    KyTransform t[3] = {kNumbered, kNumbered, kNumbered};
    EXPECT_EQ(changed(kNumbered, 4, twice), t[0].compound(kMoved, kMoved).toMatrix44());
    EXPECT_EQ(changed(kNumbered, 4, M()),
              t[1].compoundFirstThenInverseSecond(kMoved, kMoved).toMatrix44());
    EXPECT_EQ(changed(kNumbered, 4, M()),
              t[2].compoundInverseFirstThenSecond(kMoved, kMoved).toMatrix44());
}

// Deliberate: in place, row 3 becomes that of the identity.
TEST(KyTransformTest, CompoundsInPlaceMayBeWithItself) {
    const M twice(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, -1, 3, 6, 1);
    KyTransform t[4] = {kMoved, kMoved, kMoved, kMoved};
    EXPECT_EQ(twice, t[0].postCompound(t[0]).toMatrix44());
    EXPECT_EQ(twice, t[1].preCompound(t[1]).toMatrix44());
    EXPECT_EQ(M(), t[2].postCompoundWithInverse(t[2]).toMatrix44());
    EXPECT_EQ(M(), t[3].preCompoundWithInverse(t[3]).toMatrix44());
}

TEST(KyTransformTest, InterpolationIsNotClamped) {
    const KyTransform two(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 0, 0, 1);
    for (const double s : {-0.5, 0.0, 0.25, 1.0}) {
        KyTransform into(kNumbered), self(kMoved), end(two);
        into.interpolate(kMoved, two, s);
        EXPECT_BITS(Vector3d(1 + s, 2 - 2 * s, 3 - 3 * s), into.getTranslation()) << s;
        EXPECT_BITS(Vector4d(0, 0, 0, 1), into.toMatrix44().row(3));
        EXPECT_EQ(into, self.interpolate(self, two, s));  // this may be an operand
        EXPECT_EQ(into, end.interpolate(kMoved, end, s));
    }
}

}  // namespace
}  // namespace KyMath::test
