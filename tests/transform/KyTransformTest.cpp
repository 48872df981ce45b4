// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <Ky/Ky.h>

#include <Eigen/Geometry>

namespace KyMath::test {
namespace {

using M = Matrix44d;
using Ky::KyTransform;

static_assert(std::is_trivially_copyable<KyTransform>::value, "copied freely");
static_assert(sizeof(KyTransform) == 16 * sizeof(double), "sixteen values and nothing else");

// The call returns t, which was made of m, and leaves it as expected.
#define EXPECT_MADE(expected, m, call)         \
    do {                                       \
        KyTransform t(m);                      \
        EXPECT_EQ(&t, &(call));                \
        EXPECT_BITS(expected, t.toMatrix44()); \
    } while (false)

M rigid(Corpus<double>& corpus) {
    KyTransform t;
    t.setTranslation(corpus.vector());
    return t.setRotation(corpus.unitQuaternion()).toMatrix44();
}

// m with the first columns, but for row 3, replaced by value(column, row).
template <class F>
M changed(M m, int columns, F value) {
    for (int i = 0; i < 3 * columns; ++i) m[i / 3][i % 3] = value(i / 3, i % 3);
    return m;
}
M withTranslation(M m, const Vector3d& t) {
    for (int r = 0; r < 3; ++r) m[3][r] = t[r];
    return m;
}
M numbered() {
    return M(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
}
M withRotation(M m, const M& r) {
    return changed(m, 3, [&](int i, int k) { return r[i][k]; });
}

TEST(KyTransformTest, ArgumentsMayBeViewsOfTheTransform) {
    const auto view = [](KyTransform& t, int c) -> Vector3d& { return *Vector3d::cast(t[c]); };
    const M m = numbered(), turned(9, 10, 11, 4, 1, 2, 3, 8, 5, 6, 7, 12, 13, 14, 15, 16);
    KyTransform t(m);
    t.setRotation(view(t, 2), view(t, 0), view(t, 1));
    EXPECT_BITS(turned, t.toMatrix44());
    t.setTranslation(view(t, 0));
    EXPECT_BITS(withTranslation(turned, Vector3d(9, 10, 11)), t.toMatrix44());
}

// Deliberate: only makeRotation clears the translation and the bottom row.
TEST(KyTransformTest, QuaternionsOfAnyLengthSetTheRotation) {
    const M quarter(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1), m = numbered();
    const Quaterniond q(2, 0, 0, 2);
    EXPECT_MADE(withRotation(m, quarter), m, t.setRotation(q));
    EXPECT_MADE(withRotation(m, quarter), m, t.makeRotationFromQuaternion(q));
    EXPECT_MADE(quarter, m, t.makeRotation(q));
    EXPECT_MADE(quarter, m, (t.makeFromRotatedVector(Vector3d(1, 0, 0), Vector3d(0, 1, 0)), t));
    EXPECT_TRUE(std::isnan(KyTransform().setRotation(Quaterniond(0, 0, 0, 0))(0, 0)));
    // Ties of the diagonal go to the lower index; a trace of 0 is not positive.
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

// Deliberate: the direction is held against the old y axis, which is then replaced.
TEST(KyTransformTest, DirectionBecomesTheXAxisUnlessItIsNearTheOldYAxis) {
    const M m(2, 0, 0, 7, 0, 4, 0, 8, 0, 0, 5, 9, 1, 2, 3, 6);
    const M normal = changed(m, 2, [&m](int c, int r) { return c == 1 ? r == 1 : m[0][r]; });
    const auto check = [&](const M& expected, bool ok, const Vector3d& dir, double tol) {
        bool done[2];
        EXPECT_MADE(expected, m, (done[0] = t.setRotation(dir, tol), t));
        const M made = ok ? withTranslation(expected, Vector3d()) : expected;
        EXPECT_MADE(made, m, (done[1] = t.makeRotation(dir, tol), t));
        EXPECT_TRUE(done[0] == ok && done[1] == ok) << tol;
    };
    const auto axes = [&m](const Vector3d& x, const Vector3d& y) {
        const Vector3d v[] = {x, y, x.cross(y)};
        return changed(m, 3, [&](int c, int r) { return v[c][r]; });
    };
    const M along = axes(Vector3d(1, 0, 0), Vector3d(0, 0, -1));
    const M behind = axes(Vector3d(0, 0, 1), Vector3d(0, -1, 0));
    check(along, true, Vector3d(3, 0, 0), 1e-6);
    check(behind, true, Vector3d(0, 0, 3), 1e-6);
    // Nothing is changed for a short direction, the length of y for one along y or a short y.
    check(along, true, Vector3d(0.5, 0, 0), below(0.5));
    check(m, false, Vector3d(0.5, 0, 0), 0.5);
    check(normal, false, Vector3d(0, 3, 0), 1e-6);
    check(normal, false, Vector3d(0, -3, 0), 1e-6);
    check(m, false, Vector3d(9, 0, 0), 4);
    // The tolerance is that of 1 - cosine as well, which is 0.4 here, and may equal it.
    const Vector3d oblique(4, 3, 0), x(oblique * (1 / 5.0));
    const double limit = 1 - x[1];
    const double k = 1 / std::sqrt(x[0] * x[0]);
    const Vector3d y(0, 0, -x[0] * k);
    check(axes(x, y), true, oblique, limit);
    check(normal, false, oblique, above(limit));
}

// Deliberate: the float 0.01, widened.
TEST(KyTransformTest, MakeOrthonormalKeepsOneColumnAndTheNextUnlessTheyAreNearlyParallel) {
    const double tol = 0.0099999997764825821;
    for (const double length : {0.0, below(tol), tol, above(tol), 0.01}) {  // of the cross product
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            // First (2, 0, 0), second (3, length, 0), third (5, 0, 4), where column i has axis i.
            M m = numbered(), expected = m;
            const double first[] = {2, 0, 0}, second[] = {3, length, 0}, third[] = {5, 0, 4};
            for (int r = 0; r < 3; ++r) {
                const int axis = (i + r) % 3;
                m[i][axis] = first[r], m[j][axis] = second[r], m[k][axis] = third[r];
                expected[i][axis] = r == 0;
                // Without a usable second, first x third = (0, -4, 0) becomes the third.
                expected[j][axis] = length > tol ? r == 1 : r == 2;
                expected[k][axis] = length > tol ? r == 2 : -(r == 1);
            }
            KyTransform t(m);
            t.makeOrthonormal(i);
            for (unsigned c = 0; c < 3; ++c) {
                const Vector4d error = Vector4d(t[c]) - Vector4d(expected[c]);
                EXPECT_LE(error.norm(), kEps<double>) << length << ": " << i;
            }
        }
    }
}

// Deliberate: isIdentity lets a NaN pass and does not look at row 3.
TEST(KyTransformTest, IsIdentityAndIsValidWithinTheirTolerances) {
    const auto with = [](int i, double x) {
        return KyTransform(after(M(), [&](M& m) { m[i / 4][i % 4] = x; }));
    };
    for (int i = 0; i < 16; ++i) {
        const double one = i % 5 == 0 ? 1 : 0, tol = 1e-7;
        for (const double x : {one + 0.25, one - 0.25, above(one + 0.25), below(one - 0.25)}) {
            const bool identity = i % 4 == 3 || std::abs(x - one) <= 0.25;
            EXPECT_EQ(identity, with(i, x).isIdentity(0.25)) << i << ": " << x;
            EXPECT_EQ(i / 4 == 3 && i % 4 < 3, with(i, x).isValid()) << i << ": " << x;
        }
        EXPECT_TRUE(with(i, kNaN<double>).isIdentity(0.25));
        EXPECT_EQ(i / 4 == 3 && i % 4 < 3, with(i, kNaN<double>).isValid()) << i;
        if (i == 3 || i == 7 || i == 11) {
            EXPECT_TRUE(with(i, tol).isValid() && with(i, -tol).isValid()) << i;
            EXPECT_FALSE(with(i, above(tol)).isValid() || with(i, -above(tol)).isValid()) << i;
        }
    }
    EXPECT_TRUE(with(15, 1 + 0.99e-7).isValid() && with(15, 1 - 0.99e-7).isValid());
    EXPECT_FALSE(with(15, 1 + 1.01e-7).isValid() || with(15, 1 - 1.01e-7).isValid());
    // Scaled, the determinant fails first; of shears, the products of columns; a mirror does.
    const auto scaled = [](double s) {
        return KyTransform(s, 0, 0, 0, 0, s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1);
    };
    EXPECT_TRUE(scaled(1 + 3.3e-8).isValid() && !scaled(1 + 3.4e-8).isValid());
    EXPECT_TRUE(scaled(1 - 3.3e-8).isValid() && !scaled(1 - 3.4e-8).isValid());
    EXPECT_FALSE(scaled(-1).isValid());
    for (const int i : {1, 2, 4, 6, 8, 9}) {
        EXPECT_TRUE(with(i, 0.99e-7).isValid() && !with(i, -1.01e-7).isValid()) << i;
    }
}

// Deliberate: three operands leave row 3 as it is, in place it becomes that of the identity.
TEST(KyTransformTest, CompoundsReadNoBottomRowAndInPlaceMayBeOfTheTransformItself) {
    const KyTransform q(0, 1, 0, 7, -1, 0, 0, 7, 0, 0, 1, 7, 1, 2, 3, 7);  // a quarter turn about z
    const M identity, twice(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, -1, 3, 6, 1);
    KyTransform three[3] = {numbered(), numbered(), numbered()}, own[4] = {q, q, q, q};
    const auto onNumbered = [](const M& m) {
        return changed(numbered(), 4, [&m](int c, int r) { return m[c][r]; });
    };
    EXPECT_EQ(onNumbered(twice), three[0].compound(q, q).toMatrix44());
    EXPECT_EQ(onNumbered(identity), three[1].compoundFirstThenInverseSecond(q, q).toMatrix44());
    EXPECT_EQ(onNumbered(identity), three[2].compoundInverseFirstThenSecond(q, q).toMatrix44());
    EXPECT_EQ(twice, own[0].postCompound(own[0]).toMatrix44());
    EXPECT_EQ(twice, own[1].preCompound(own[1]).toMatrix44());
    EXPECT_EQ(identity, own[2].postCompoundWithInverse(own[2]).toMatrix44());
    EXPECT_EQ(identity, own[3].preCompoundWithInverse(own[3]).toMatrix44());
}

TEST(KyTransformTest, InterpolatesBeyondItsEndsAndMayBeOneOfThem) {
    const KyTransform q(0, 1, 0, 7, -1, 0, 0, 7, 0, 0, 1, 7, 1, 2, 3, 7);
    for (const double s : {-0.5, 0.0, 0.25, 1.0}) {  // not clamped
        const Vector3d t(2 * s + (1 - s), 2 * (1 - s), 3 * (1 - s));
        KyTransform into(numbered()), self(q), end;
        const KyTransform two(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 0, 0, 1);
        into.interpolate(q, two, s);
        EXPECT_BITS(t, into.getTranslation()) << s;
        EXPECT_BITS(into.toMatrix44(), self.interpolate(self, two, s).toMatrix44());
        EXPECT_BITS(into.toMatrix44(), end.interpolate(q, end = two, s).toMatrix44());
        EXPECT_BITS(Vector4d(0, 0, 0, 1), into.toMatrix44().row(3));
    }
}

TEST(KyTransformTest, AgreesWithAnotherLibraryOnRigidTransforms) {
    const auto other = [](const M& m) {
        return Eigen::Isometry3d(Eigen::Map<const Eigen::Matrix4d>(static_cast<const double*>(m)));
    };
    const auto expectNear = [&](const Eigen::Isometry3d& expected, const KyTransform& t) {
        const double rounding = 64 * kEps<double>;  // of a few sums, relative to the largest
        EXPECT_TRUE(other(t.toMatrix44()).isApprox(expected, rounding));
    };
    Corpus<double> corpus(3403);
    for (int n = 0; n < 200; ++n) {
        const M a = rigid(corpus), b = rigid(corpus);
        const Eigen::Isometry3d p = other(a), q = other(b);
        KyTransform t(a), u(b);
        expectNear(q * p, t.compound(t, b));  // in place
        expectNear(q.inverse() * p, u.compoundFirstThenInverseSecond(a, u));
        expectNear(q * p.inverse(), t.compoundInverseFirstThenSecond(a, b));
        Eigen::Isometry3d blend(
            Eigen::Quaterniond(p.linear()).slerp(0.3, Eigen::Quaterniond(q.linear())));
        blend.translation() = 0.7 * p.translation() + 0.3 * q.translation();
        expectNear(blend, t.interpolate(a, b, 0.3));
    }
}

}  // namespace
}  // namespace KyMath::test
