// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// ==, isEqual and areEqualTol are in ToleranceTest.cpp, with those of the other types.
#include "Support.h"

#include <stdexcept>

namespace KyMath {
namespace test {
namespace {

template <class T>
class MatrixTest : public ::testing::Test {};
TYPED_TEST_SUITE(MatrixTest, Scalars, );

using Index = unsigned long;

template <class T>
Matrix44T<T> numbered() {
    return Matrix44T<T>(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
}

static_assert(kRefuses<Matrix44f, int, std::nullptr_t, Vector3f, Vector4f, Quaternionf, Matrix44d>);
static_assert(kRefuses<Matrix44d, int, std::nullptr_t, Vector3d, Vector4d, Quaterniond, Matrix44f>);
static_assert(!IsStreamable<Matrix44f>::value && !IsStreamable<Matrix44d>::value);

TYPED_TEST(MatrixTest, ConstructorsFillColumnByColumn) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    EXPECT_BITS(M(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1), M());
    EXPECT_BITS(M(), M::kIdentity);
    EXPECT_BITS(M(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0), M::kZero);
    const T columns[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
    const M m = numbered<T>();
    EXPECT_BITS(m, M(columns));
    EXPECT_BITS(m, M(columns[0]));
    const Vector4T<T> c[] = {columns[0], columns[1], columns[2], columns[3]};
    EXPECT_BITS(m, M(c[0], c[1], c[2], c[3]));
    const double block[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 0.1}};
    EXPECT_BITS(M(1, 2, 3, 0, 4, 5, 6, 0, 7, 8, T(0.1), 0, 0, 0, 0, 1), M(block));
    expectInPlace(m, M(), [&](M& x) -> M& { return x = m; });
}

TYPED_TEST(MatrixTest, EveryAccessorFindsElementRowColumnAtFourTimesColumnPlusRow) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    M m = numbered<T>();
    const M& k = m;
    expectSubscripts(m, 4);
    for (Index c = 0; c < 4; ++c) {
        EXPECT_EQ(k[c], m.column(c));
        for (Index r = 0; r < 4; ++r) {
            EXPECT_EQ(k[c] + r, &m(r, c));
            for (const T x : {k(r, c), k.row(r)[c], k.column(c)[r]}) EXPECT_BITS(k[c][r], x);
            for (const T x : {kMax<T>, -kMax<T>, kInf<T>, -kInf<T>, kNaN<T>}) {
                EXPECT_EQ(std::isfinite(x), after(m, [&](M& a) { a(r, c) = x; }).isFinite()) << x;
            }
        }
    }
}

// Deliberate: the message of the constant conversion names the other instantiation.
TEST(MatrixArrayViewTest, IsTheStorageOfDoublesAndThrowsWithCrossedMessagesForFloats) {
    Matrix44d d;
    EXPECT_EQ(d[0], *static_cast<Ky::KyReal4*>(d));
    EXPECT_EQ(d[0], *static_cast<const Ky::KyReal4*>(static_cast<const Matrix44d&>(d)));
    Matrix44f m;
    const Matrix44f& k = m;
    const auto messageOf = [](auto convert) -> std::string {
        try {
            convert();
        } catch (const std::invalid_argument& e) {
            return e.what();
        }
        return "no exception";
    };
    EXPECT_EQ(
        "Matrix44T<float>::operator Ky::KyReal4*(): "
        "Cannot return an array of double as a pointer to float",
        messageOf([&] { static_cast<void>(static_cast<Ky::KyReal4*>(m)); }));
    EXPECT_EQ(
        "Matrix44T<double>::operator Ky::KyReal4*(): "
        "Cannot return an array of float as a pointer to double",
        messageOf([&] { static_cast<void>(static_cast<const Ky::KyReal4*>(k)); }));
}

TYPED_TEST(MatrixTest, ProductsSumInAscendingOrderAndDivisionTakesOneReciprocal) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    forCorpus<M>(201, [](const M& a, const M& b, T s) {
        const auto rowTimes = [&a](int r, const T* v) {
            return a[0][r] * v[0] + a[1][r] * v[1] + a[2][r] * v[2] + a[3][r] * v[3];
        };
        const M product = each<M>([&](int i) { return rowTimes(i % 4, b[i / 4]); });
        EXPECT_BITS(product, M::multiply(a, b));
        expectInPlace(product, a, [&](M& x) -> M& { return x = M::multiply(x, b); });
        expectInPlace(product, b, [&](M& x) -> M& { return x = M::multiply(a, x); });
        const auto times = [&a](T f) {
            return each<M>([&](int i) { return a[i / 4][i % 4] * f; });
        };
        EXPECT_BITS(times(s), M::multiply(a, s));
        EXPECT_BITS(times(1 / s), M::divide(a, s));
        expectInPlace(times(s), a, [s](M& x) -> M& { return x *= s; });
        expectInPlace(times(1 / s), a, [s](M& x) -> M& { return x /= s; });
        const M transposed = each<M>([&](int i) { return a[i % 4][i / 4]; });
        expectInPlace(transposed, a, [](M& x) -> M& { return x.transpose(); });
        const Vector4T<T> v(b[0]), image = M::multiplyWithVector(a, v);
        for (int r = 0; r < 4; ++r) EXPECT_BITS(rowTimes(r, v), image[r]);
    });
}

template <class T>
T sarrus(const Matrix44T<T>& m, const Index (&r)[3], const Index (&c)[3]) {
    const auto e = [&](int i, int k) { return m(r[i], c[k]); };
    return e(0, 0) * e(1, 1) * e(2, 2) + e(1, 0) * e(2, 1) * e(0, 2) + e(2, 0) * e(0, 1) * e(1, 2) -
           e(0, 2) * e(1, 1) * e(2, 0) - e(2, 2) * e(1, 0) * e(0, 1) - e(1, 2) * e(0, 0) * e(2, 1);
}

constexpr Index kOthers[4][3] = {{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};

// What 1 / det is at most. Deliberate: the double one is a step below 100000.
template <class T>
constexpr T kSingularFactor = T(sizeof(T) == 4 ? 100000 : 99999.999999999985);
static_assert(kSingularFactor<double> < 100000, "one step below");

// The adjugate times 1 / det, det along column 0.
template <class T>
Matrix44T<T> inverted(const Matrix44T<T>& m) {
    const auto adjugate = each<Matrix44T<T>>([&m](int i) {
        const T minor = sarrus(m, kOthers[i / 4], kOthers[i % 4]);
        return (i / 4 + i % 4) % 2 == 0 ? minor : -minor;
    });
    const T det = adjugate[0][0] * m[0][0] + adjugate[1][0] * m[0][1] + adjugate[2][0] * m[0][2] +
                  adjugate[3][0] * m[0][3];
    const T factor = det < 0 ? -kSingularFactor<T> : kSingularFactor<T>;
    const T k = std::abs(det) <= kEps<T> ? factor : 1 / det;
    return each<Matrix44T<T>>([&](int i) { return adjugate[i / 4][i % 4] * k; });
}

// Deliberate: the inverse takes its determinant along column 0.
TYPED_TEST(MatrixTest, DeterminantGoesAlongRowZeroTheInverseClampsTheOneAlongColumnZero) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const auto check = [](const M& m, const M&, T) {
        const Index rows[] = {3, 0, 1}, columns[] = {2, 0, 3};
        EXPECT_BITS(sarrus(m, rows, columns), m.determinant3x3(3, 0, 1, 2, 0, 3));
        const auto d = [&m](int i) { return m[i][0] * sarrus(m, kOthers[0], kOthers[i]); };
        EXPECT_BITS(d(0) - d(1) + d(2) - d(3), m.determinant());
        EXPECT_BITS(inverted(m), m.inverse());
        expectInPlace(inverted(m), m, [](M& x) -> M& { return x.invert(); });
    };
    forCorpus<M>(204, check);
    const T eps = kEps<T>;
    for (const T det : {eps, -eps, above(eps), -above(eps), T(-1e-17), T(0), -T(0), kNaN<T>}) {
        for (int i = 0; i < 3; ++i) check(after(M(), [&](M& m) { m[i][i] = det; }), M(), 0);
    }
}

// Deliberate: in place, the translation comes from the bottom row, and an affine matrix loses its.
TYPED_TEST(MatrixTest, RigidInversesDifferInWhereTheTranslationComesFrom) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    forCorpus<M>(205, [](const M& m, const M&, T) {
        M copied, inPlace;
        for (int i = 0; i < 3; ++i) {
            for (int k = 0; k < 3; ++k) copied[k][i] = inPlace[k][i] = m[i][k];
            copied[3][i] = -(m[i][0] * m[3][0] + m[i][1] * m[3][1] + m[i][2] * m[3][2]);
            inPlace[3][i] = -(m[0][i] * m[0][3] + m[1][i] * m[1][3] + m[2][i] * m[2][3]);
        }
        EXPECT_BITS(copied, m.inverse_orthogonal());
        EXPECT_BITS(copied, m.inverse_affine());
        expectInPlace(inPlace, m, [](M& x) -> M& { return x.invert_orthogonal(); });
        expectInPlace(inPlace, m, [](M& x) -> M& { return x.invert_affine(); });
    });
}

}  // namespace
}  // namespace test
}  // namespace KyMath
