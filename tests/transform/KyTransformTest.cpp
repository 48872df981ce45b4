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
const M kTwice(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, -1, 3, 6, 1);  // kMoved, then kMoved again

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

TEST(KyTransformTest, RotateSelfTurnsWhatIsThere) {
    KyTransform t(kQuarter);
    t.rotateSelf(Vector3d(0, 0, std::acos(0.0) / 2), 2);
    EXPECT_TRUE(M(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).isEqual(t.toMatrix44(), 1e-13));
}

// A trace of 0 is not positive.
TEST(KyTransformTest, QuaternionTiesGoToTheLowerIndex) {
    const double cases[][4] = {{1, -1, -1, 1}, {-1, 1, -1, 2}, {-1, -1, 1, 3}, {3, 3, 3, 0},
                               {1, 1, -2, 1},  {-2, 1, 1, 2},  {1, -2, 1, 1},  {-1, -1, -1, 1}};
    for (const auto& [x, y, z, largest] : cases) {
        Quaterniond p;
        KyTransform(x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1).toQuaternion(p);
        EXPECT_GT(p[int(largest)], 0) << x << y << z;
    }
}

// Deliberate: the direction is compared with the old y axis, which is then replaced.
TEST(KyTransformTest, DirectionBecomesTheXAxis) {
    const M m(2, 0, 0, 7, 0, 4, 0, 8, 0, 0, 5, 9, 1, 2, 3, 6);
    const M unitY(2, 0, 0, 7, 0, 1, 0, 8, 0, 0, 5, 9, 1, 2, 3, 6);
    const auto check = [&](const M& expected, const Vector3d& direction, double tol) {
        const bool succeeds = expected[2][2] != 5;
        KyTransform set(m), made(m);
        EXPECT_EQ(succeeds, set.setRotation(direction, tol)) << direction[0] << ": " << tol;
        EXPECT_EQ(succeeds, made.makeRotation(direction, tol));
        EXPECT_BITS(expected, set.toMatrix44());
        EXPECT_BITS(succeeds ? changed(M(), 3, expected).row(0) : m.row(0),
                    made.toMatrix44().row(0));
    };
    const auto axes = [&m](const Vector3d& x, const Vector3d& y) {
        return changed(m, 3, Transformation::createRotationFromAxesT(x, y, x.cross(y)));
    };
    check(axes(Vector3d(1, 0, 0), Vector3d(0, 0, -1)), Vector3d(0.5, 0, 0), below(0.5));
    check(axes(Vector3d(0, 0, 1), Vector3d(0, -1, 0)), Vector3d(0, 0, 3), 1e-6);
    // Nothing is changed for a short direction or a short y, the length of y for one along y.
    check(m, Vector3d(0.5, 0, 0), 0.5);
    check(m, Vector3d(9, 0, 0), 4);
    for (const double y : {3.0, -3.0}) check(unitY, Vector3d(0, y, 0), 1e-6);
    // The tolerance is that of 1 - cosine as well, which is 0.4 here, and may equal it.
    const Vector3d oblique(4, 3, 0), x(oblique * (1 / 5.0));
    check(axes(x, Vector3d(0, 0, -x[0] * (1 / std::sqrt(x[0] * x[0])))), oblique, 1 - x[1]);
    check(unitY, oblique, above(1 - x[1]));
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
        const double high = i % 5 == 0 ? 1.25 : 0.25, low = high - 0.5;
        for (const double x : {high, low, kNaN<double>}) EXPECT_TRUE(with(i, x).isIdentity(0.25));
        for (const double x : {above(high), below(low)}) {
            EXPECT_EQ(i % 4 == 3, with(i, x).isIdentity(0.25)) << i << ": " << x;
        }
    }
}

// Everything but the translation counts. Shear is seen in the products of columns, scale first in
// the determinant.
TEST(KyTransformTest, IsValidWithinOneInTenMillion) {
    const double tol = 1e-7;
    for (int i = 0; i < 16; ++i) {
        const double one = i % 5 == 0 ? 1 : 0, most = i % 5 == 0 && i < 15 ? tol / 2 : tol;
        const bool translates = i / 4 == 3 && i < 15;
        for (const double sign : {1.0, -1.0}) {
            EXPECT_TRUE(with(i, one + sign * 0.98 * most).isValid()) << i;
            EXPECT_EQ(translates, with(i, one + sign * 1.02 * most).isValid()) << i;
        }
        EXPECT_EQ(translates, with(i, kNaN<double>).isValid()) << i;
    }
    const auto scaled = [](double s) {
        return KyTransform(s, 0, 0, 0, 0, s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1);
    };
    EXPECT_TRUE(scaled(1 + 0.33 * tol).isValid());
    EXPECT_FALSE(scaled(1 + 0.34 * tol).isValid());
    EXPECT_FALSE(scaled(-1).isValid());
}

// Deliberate: of three operands, row 3 stays as it is.
TEST(KyTransformTest, CompoundsOfTwoKeepTheBottomRow) {
    KyTransform t[3] = {kNumbered, kNumbered, kNumbered};
    EXPECT_EQ(changed(kNumbered, 4, kTwice), t[0].compound(kMoved, kMoved).toMatrix44());
    EXPECT_EQ(changed(kNumbered, 4, M()),
              t[1].compoundFirstThenInverseSecond(kMoved, kMoved).toMatrix44());
    EXPECT_EQ(changed(kNumbered, 4, M()),
              t[2].compoundInverseFirstThenSecond(kMoved, kMoved).toMatrix44());
}

// Deliberate: in place, row 3 becomes that of the identity.
TEST(KyTransformTest, CompoundsInPlaceMayBeWithItself) {
    KyTransform t[4] = {kMoved, kMoved, kMoved, kMoved};
    EXPECT_EQ(kTwice, t[0].postCompound(t[0]).toMatrix44());
    EXPECT_EQ(kTwice, t[1].preCompound(t[1]).toMatrix44());
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
