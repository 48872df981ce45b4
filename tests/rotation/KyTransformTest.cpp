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

// Plain values, any, or few different ones with ties and zeros of both signs.
M sixteen(Corpus<double>& corpus, int kind) {
    const M few(0, -0.0, 1, -1, -0.0, -1, 0, 1, 1, 0, -1, -0.0, 0, 1, -0.0, -1);
    if (kind % 3 == 0) return corpus.matrix();
    if (kind % 3 == 1) return corpus.anyOf<M>();
    return each<M>([&](int) { return few[0][std::abs(int(corpus.plain() * 1.5))]; });
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
template <class F>
double sum(F term) {
    return term(0) + term(1) + term(2);
}

TEST(KyTransformTest, HoldsSixteenValuesColumnByColumn) {
    const KyTransform k(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const double *const p = k, (*const columns)[4] = k;
    KyTransform v, set[5] = {k.toMatrix44()};
    const float f[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    set[1].set(f), set[2].set(p), set[3].set(columns), set[4].set(Matrix44d(p));
    for (const KyTransform& t : set) EXPECT_TRUE(t == k && !(t != k));
    EXPECT_BITS(M::kIdentity, v.toMatrix44());
    EXPECT_BITS(M::kIdentity, KyTransform::kIdentity.toMatrix44());
    EXPECT_TRUE(KyTransform::createIdentity() == v && &v(0, 0) == static_cast<void*>(&v));
    for (unsigned i = 0; i < 16; ++i) {
        const unsigned c = i / 4, r = i % 4;
        double* const q = &static_cast<Ky::KyReal4*>(v)[c][r];
        EXPECT_TRUE(p[i] == i && columns[c][r] == i && k(r, c) == i);
        EXPECT_TRUE(q == static_cast<double*>(v) + i && q == &v(r, c));
        const auto check = [&](auto at) { EXPECT_TRUE(q == &v[at][r] && k[at][r] == i) << i; };
        check(c), check(static_cast<int>(c)), check(long{c}), check(std::size_t{c});
        for (const double x : {i + 1.0, kNaN<double>, i + 0.0}) {
            set[0][c][r] = x;
            EXPECT_TRUE((set[0] == k) == (x == i) && (set[0] != k) == (x != i)) << i << ": " << x;
        }
    }
    EXPECT_BITS(Vector3d(12, 13, 14), k.getTranslation());
    v.setTranslation(Vector3d(9, 10, 11));
    v.setRotation(Vector3d(0, 1, 2), Vector3d(3, 4, 5), Vector3d(6, 7, 8));
    EXPECT_BITS(changed(M(), 4, [](int c, int r) { return 3 * c + r; }), v.toMatrix44());
}

M rotated(const M& m, const Quaterniond& q) {
    const double w = q[0], x = q[1], y = q[2], z = q[3];
    const double n = w * w + x * x + y * y + z * z, s = 1 / n, d = 2 * s;
    const double v[3][3] = {
        {(w * w + x * x - y * y - z * z) * s, d * (x * y + w * z), d * (x * z - w * y)},
        {d * (x * y - w * z), (w * w - x * x + y * y - z * z) * s, d * (y * z + w * x)},
        {d * (x * z + w * y), d * (y * z - w * x), (w * w - x * x - y * y + z * z) * s}};
    return changed(m, 3, [&](int c, int r) { return v[c][r]; });
}

Quaterniond extracted(const M& m) {
    double squares = 0;
    for (int i = 0; i < 9; ++i) squares += m[i / 3][i % 3] * m[i / 3][i % 3];
    const double k = std::sqrt(3 / squares), trace = m[0][0] + m[1][1] + m[2][2];
    int i = m[1][1] > m[0][0] ? 1 : 0;
    if (m[2][2] > m[i][i]) i = 2;
    const int j = (i + 1) % 3, h = (i + 2) % 3;
    const double most = trace > 0 ? k * trace : (m[i][i] - m[j][j] - m[h][h]) * k;
    const double r = std::sqrt(most + 1), f = 0.5 * k / r;
    if (trace > 0) {
        return Quaterniond(0.5 * r, (m[1][2] - m[2][1]) * f, (m[2][0] - m[0][2]) * f,
                           (m[0][1] - m[1][0]) * f);
    }
    Quaterniond q((m[j][h] - m[h][j]) * f, 0, 0, 0);
    q[i + 1] = 0.5 * r;
    q[j + 1] = (m[i][j] + m[j][i]) * f;
    q[h + 1] = (m[i][h] + m[h][i]) * f;
    return q;
}

// Deliberate: only makeRotation clears the translation and the bottom row.
TEST(KyTransformTest, QuaternionsOfAnyLengthSetTheRotationAndAreReadFromIt) {
    Corpus<double> corpus(3302);
    for (int n = 0; n < 1000; ++n) {
        const M m = sixteen(corpus, n / 2);
        const Quaterniond q =
            n % 2 == 0 ? corpus.anyOf<Quaterniond>() : corpus.unitQuaternion() * corpus.plain();
        const M turned = rotated(m, q), pure = rotated(M(), q);
        EXPECT_MADE(turned, m, t.setRotation(q));
        EXPECT_MADE(turned, m, t.makeRotationFromQuaternion(q));
        EXPECT_MADE(pure, m, t.makeRotation(q));
        for (const M& r : {m, turned, M::multiply(pure, 0.3)}) {
            Quaterniond read(7, 7, 7, 7);
            KyTransform(r).toQuaternion(read);
            EXPECT_BITS(extracted(r), read);
        }
        const Vector3d from = corpus.vector() * 0.1, to = corpus.vector() * 0.1;
        const double dt = corpus.plain();
        Quaterniond p = extracted(turned);
        p.finiteRotation(to, dt);
        EXPECT_MADE(rotated(turned, p), turned, t.rotateSelf(to, dt));
        p.fromRotation(from, to);
        EXPECT_MADE(rotated(M(), p), m, (t.makeFromRotatedVector(from, to), t));
        const M outer = changed(M(), 3, [&](int c, int r) { return from[c] * to[r]; });
        EXPECT_BITS(outer, KyTransform::outerProduct3x3(from, to).toMatrix44());
    }
}

// The verdict, and what becomes of m.
bool directed(M& m, Vector3d x, double tol) {
    Vector3d y(m[1]);
    double length;
    if (!x.normalize(tol, &length)) return false;
    const bool done = y.normalize(tol, &length) && !(tol > 1 - std::abs(x * y));
    const int i = std::abs(x[0]) > std::abs(x[1]) ? 0 : 1;
    const double k = 1 / std::sqrt(x[2] * x[2] + x[i] * x[i]);
    if (done) y = i == 0 ? Vector3d(x[2] * k, 0, -x[0] * k) : Vector3d(0, -x[2] * k, x[1] * k);
    const Vector3d v[] = {x, y, x.cross(y)};
    m = changed(m, 3, [&](int c, int r) { return done || c == 1 ? v[c][r] : m[c][r]; });
    return done;
}

// Deliberate: the direction is held against the old y axis, which is then replaced.
TEST(KyTransformTest, DirectionBecomesTheXAxisUnlessItIsNearTheOldYAxis) {
    KyTransform unit;
    EXPECT_TRUE(unit.setRotation(Vector3d(1, 0, 0), 1e-6));
    EXPECT_TRUE(unit == KyTransform(1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1));
    Corpus<double> corpus(3303);
    for (int n = 0; n < 600; ++n) {
        const M m = sixteen(corpus, n / 2);
        Vector3d dir = n % 2 == 0 ? corpus.vector() : corpus.anyVector();
        if (n % 5 == 0) dir[1] = n % 2 == 0 ? dir[0] : -dir[0];
        Vector3d x = dir, y(m[1]);
        const double length = dir.norm(), old = y.norm();
        x.normalize(), y.normalize();
        const double limit = 1 - std::abs(x * y);
        for (const double tol : {1e-6, limit, above(limit), below(length), length, below(old), old,
                                 -1.0, kNaN<double>}) {
            M set = m;
            const bool ok = directed(set, dir, tol);
            const M made = ok ? withTranslation(set, Vector3d()) : set;
            bool verdicts[2];
            EXPECT_MADE(set, m, (verdicts[0] = t.setRotation(dir, tol), t));
            EXPECT_MADE(made, m, (verdicts[1] = t.makeRotation(dir, tol), t));
            EXPECT_TRUE(verdicts[0] == ok && verdicts[1] == ok) << n << ": " << tol;
        }
    }
}

TEST(KyTransformTest, MakeOrthonormalKeepsOneColumnAndTheNextUnlessTheyAreNearlyParallel) {
    const double tol = 0.0099999997764825821;  // the float 0.01
    Corpus<double> corpus(3304);
    for (int n = 0; n < 600; ++n) {
        const int i = n % 3, j = (i + 1) % 3, k = (i + 2) % 3;
        M m = sixteen(corpus, n / 3);
        if (n % 4 == 0) {  // the cross product is as long as y
            const double y[] = {0, below(tol), tol, above(tol), 0.01};
            m = changed(m, 3,
                        [&](int c, int r) { return c == j && r == j ? y[n / 4 % 5] : r == i; });
        }
        Vector3d v[] = {Vector3d(m[0]), Vector3d(m[1]), Vector3d(m[2])}, third = v[k];
        double length;
        v[i].normalize();
        v[k] = v[i].cross(v[j]);
        if (!v[k].normalize(tol, &length)) v[k] = v[i].cross(third), v[k].normalize();
        v[j] = v[k].cross(v[i]);
        v[j].normalize();
        const M expected = changed(m, 3, [&](int c, int r) { return v[c][r]; });
        EXPECT_MADE(expected, m, (t.makeOrthonormal(i), t));
    }
}

bool valid(const M& m) {
    const double tol = 1e-7;
    bool ok = equalWithin(m[3][3], 1.0, tol);
    for (int c = 0; c < 3; ++c) {
        ok = ok && std::abs(m[c][3]) <= tol;
        for (int r = 0; r < 3; ++r) {
            const double product = sum([&](int k) { return m[c][k] * m[r][k]; });
            ok = ok && !(std::abs(product - (c == r ? 1 : 0)) > tol);
        }
    }
    const double det = (m[1][1] * m[2][2] - m[2][1] * m[1][2]) * m[0][0] +
                       (m[2][1] * m[0][2] - m[2][2] * m[0][1]) * m[1][0] +
                       (m[1][2] * m[0][1] - m[1][1] * m[0][2]) * m[2][0];
    return ok && std::abs(det - 1) < tol;
}

// Deliberate: isIdentity lets a NaN pass and does not look at row 3.
TEST(KyTransformTest, IsIdentityAndIsValidWithinTheirTolerances) {
    for (int i = 0; i < 16 + 400; ++i) {  // single values, the last at and about 1 -+ 1e-7
        const double one = i % 5 == 0 || i > 15 ? 1 : 0, near = (i - 216) * kEps<double> + 1;
        for (const double x : {one + 0.25, one - 0.25, above(one + 0.25), below(one - 0.25), 1e-7,
                               -1e-7, above(1e-7), -1.0, kNaN<double>, near + 1e-7, near - 1e-7}) {
            M m;
            m[i < 16 ? i / 4 : 3][i < 16 ? i % 4 : 3] = x;
            const bool identity = i > 15 || i % 4 == 3 || !(std::abs(x - one) > 0.25);
            EXPECT_EQ(identity, KyTransform(m).isIdentity(0.25)) << i << ": " << x;
            EXPECT_EQ(valid(m), KyTransform(m).isValid()) << i << ": " << x;
        }
    }
    Corpus<double> corpus(3305);
    int count[2] = {};
    for (int n = 0; n < 5000; ++n) {  // scaled so that the determinant fails first, or disturbed
        const double scale = n % 3 == 0 ? 1 + std::abs(corpus.plain()) * 6e-9 : 1;
        const auto off = [&] { return n % 3 * corpus.plain() * 4e-9; };
        const M m = rigid(corpus), mirrored = changed(m, 3, [&](int c, int r) { return -m[c][r]; });
        const M near = changed(m, 3, [&](int c, int r) { return (m[c][r] + off()) * scale; });
        EXPECT_TRUE(KyTransform(m).isValid() && !KyTransform(mirrored).isValid());
        EXPECT_EQ(valid(near), KyTransform(near).isValid());
        ++count[valid(near)];
    }
    EXPECT_TRUE(count[0] > 1000 && count[1] > 1000);
}

// m after a compound, of a and b (kind 0), a and the inverse of b (1), the inverse of a and b (2).
M compounded(int kind, M m, const M& a, const M& b) {
    const auto product = [&](int c, int r) {
        return sum([&](int k) {
            return (kind == 2 ? a[k][c] : a[c][k]) * (kind == 1 ? b[r][k] : b[k][r]);
        });
    };
    const auto moved = [&](int r) {
        if (kind == 1) return sum([&](int k) { return (a[3][k] - b[3][k]) * b[r][k]; });
        if (kind == 2) return b[3][r] - sum([&](int k) { return m[k][r] * a[3][k]; });
        return product(3, r) + b[3][r];
    };
    m = changed(m, 3, product);
    return withTranslation(m, each<Vector3d>(moved));
}

// Deliberate: three operands leave row 3 as it is, in place it becomes that of the identity.
TEST(KyTransformTest, CompoundsAndMapsAreIndexSumsThatReadNoBottomRow) {
    Corpus<double> corpus(3401);
    for (int n = 0; n < 900; ++n) {
        const M m = corpus.matrix(), a = sixteen(corpus, n), b = sixteen(corpus, n / 3), e;
        EXPECT_MADE(compounded(0, m, a, b), m, t.compound(a, b));
        EXPECT_MADE(compounded(1, m, a, b), m, t.compoundFirstThenInverseSecond(a, b));
        EXPECT_MADE(compounded(2, m, a, b), m, t.compoundInverseFirstThenSecond(a, b));
        EXPECT_MADE(compounded(0, e, a, b), a, t.postCompound(b));
        EXPECT_MADE(compounded(1, e, a, b), a, t.postCompoundWithInverse(b));
        EXPECT_MADE(compounded(0, e, b, a), a, t.preCompound(b));
        EXPECT_MADE(compounded(2, e, b, a), a, t.preCompoundWithInverse(b));
        EXPECT_MADE(compounded(0, e, a, a), a, t.postCompound(t));
        EXPECT_MADE(compounded(1, e, a, a), a, t.postCompoundWithInverse(t));
        EXPECT_MADE(compounded(0, e, a, a), a, t.preCompound(t));
        EXPECT_MADE(compounded(2, e, a, a), a, t.preCompoundWithInverse(t));
        const auto term = [&](int k, int r) { return a[k][r] * m[0][k]; };
        Vector3d p(m[0]), q;
        for (int r = 0; r < 3; ++r) q[r] = term(0, r) + term(1, r) + term(2, r);
        EXPECT_BITS(q, KyTransform(a).transformDirection(p));
        EXPECT_BITS(q + Vector3d(a[3]), KyTransform(a).transformPoint(p));
    }
}

TEST(KyTransformTest, InterpolatesRotationsBySlerpAndTranslationsLinearly) {
    Corpus<double> corpus(3402);
    for (int n = 0; n < 300; ++n) {
        const M m = corpus.matrix(), a = sixteen(corpus, n / 2);
        const M b = n % 3 == 0 ? a : rigid(corpus);
        const double s = n % 4 == 0 ? n % 8 / 4 : corpus.plain();
        const auto turned = [&](const M& p, const M& q) {
            M r = rotated(m, extracted(p).slerp(extracted(q), s));
            for (int c = 0; c < 4; ++c) r[c][3] = c == 3;
            return r;
        };
        const auto blended = [&](const M& p, const M& q) {
            const auto t = each<Vector3d>([&](int i) { return s * q[3][i] + (1 - s) * p[3][i]; });
            return withTranslation(turned(p, q), t);
        };
        EXPECT_MADE(turned(a, b), m, t.interpolateRotation(a, b, s));
        EXPECT_MADE(blended(a, b), m, t.interpolate(a, b, s));
        EXPECT_MADE(blended(m, b), m, t.interpolate(t, b, s));
        EXPECT_MADE(blended(a, m), m, t.interpolate(a, t, s));
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
        KyTransform t;
        expectNear(q * p, t.compound(a, b));
        expectNear(q.inverse() * p, t.compoundFirstThenInverseSecond(a, b));
        expectNear(q * p.inverse(), t.compoundInverseFirstThenSecond(a, b));
        Eigen::Isometry3d blend(
            Eigen::Quaterniond(p.linear()).slerp(0.3, Eigen::Quaterniond(q.linear())));
        blend.translation() = 0.7 * p.translation() + 0.3 * q.translation();
        expectNear(blend, t.interpolate(a, b, 0.3));
    }
}

}  // namespace
}  // namespace KyMath::test
