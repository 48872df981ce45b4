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

// Value i of a matrix is 1 + i, in memory order.
template <class T>
Matrix44T<T> numbered() {
    return Matrix44T<T>(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
}

TYPED_TEST(MatrixTest, IsSixteenBareScalarsAndRefusesShorterSourcesNullAndStreams) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    static_assert(sizeof(M) == 16 * sizeof(T) && std::is_standard_layout<M>::value, "");
    static_assert(kRefuses<M, int, std::nullptr_t, Vector3T<T>, Vector4T<T>, QuaternionT<T>>, "");
    static_assert(kRefuses<Matrix44d, Matrix44f> && kRefuses<Matrix44f, Matrix44d>, "");
    static_assert(!IsStreamable<M>::value, "");
}

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
    EXPECT_BITS(m, M(Vector4T<T>(1, 2, 3, 4), Vector4T<T>(5, 6, 7, 8), Vector4T<T>(9, 10, 11, 12),
                     Vector4T<T>(13, 14, 15, 16)));
    EXPECT_BITS(m, M(m));
    const double block[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 0.1}};
    EXPECT_BITS(M(1, 2, 3, 0, 4, 5, 6, 0, 7, 8, T(0.1), 0, 0, 0, 0, 1), M(block));
    expectInPlace(m, M(), [&](M& x) -> M& { return x = m; });
    expectInPlace(m, m, [](M& x) -> M& { return x = static_cast<const M&>(x); });
}

TYPED_TEST(MatrixTest, EveryAccessorFindsElementRowColumnAtFourTimesColumnPlusRow) {
    using T = TypeParam;
    Matrix44T<T> m = numbered<T>();
    const Matrix44T<T>& k = m;
    const T* const values = k;
    EXPECT_EQ(static_cast<const void*>(&m), values);
    EXPECT_EQ(values, static_cast<T*>(m));
    for (int c = 0; c < 4; ++c) {
        EXPECT_EQ(values + 4 * c, m.column(static_cast<Index>(c)));
        const auto check = [&](auto index) {
            EXPECT_EQ(values + 4 * c, m[index]);
            EXPECT_EQ(values + 4 * c, k[index]);
        };
        check(c), check(static_cast<unsigned>(c)), check(static_cast<long>(c));
        check(static_cast<std::size_t>(c));
        for (int r = 0; r < 4; ++r) {
            const Index row = static_cast<Index>(r), column = static_cast<Index>(c);
            const T expected = T(4 * c + r + 1);
            EXPECT_BITS(expected, k(row, column));
            EXPECT_EQ(values + 4 * c + r, &m(row, column));
            EXPECT_BITS(expected, k.row(row)[c]);
            EXPECT_BITS(expected, k.column(column)[r]);
        }
    }
}

TEST(MatrixArrayViewTest, IsTheStorageOfADoubleMatrix) {
    Matrix44d m = numbered<double>();
    const Matrix44d& k = m;
    Ky::KyReal4* const view = m;
    const Ky::KyReal4* const constView = k;
    EXPECT_EQ(static_cast<double*>(m), &view[0][0]);
    EXPECT_EQ(static_cast<const double*>(k), &constView[0][0]);
    EXPECT_BITS(10.0, view[2][1]);
}

// Deliberate: the message of the constant conversion names the other instantiation.
TEST(MatrixArrayViewTest, OfAFloatMatrixThrowsWithCrossedMessages) {
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

TYPED_TEST(MatrixTest, FiniteLooksAtEveryValue) {
    using T = TypeParam;
    for (int i = 0; i < 16; ++i) {
        Matrix44T<T> m = numbered<T>();
        for (const T value : {kMax<T>, -kMax<T>, kInf<T>, -kInf<T>, kNaN<T>}) {
            m[i / 4][i % 4] = value;
            EXPECT_EQ(std::isfinite(value), m.isFinite()) << i << ": " << value;
        }
    }
}

TYPED_TEST(MatrixTest, ProductsSumInAscendingOrderAndMayReplaceAnOperand) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(201);
    for (int n = 0; n < 300; ++n) {
        const M a = n % 2 == 0 ? corpus.matrix() : corpus.template anyOf<M>();
        const M b = n % 2 == 0 ? corpus.matrix() : corpus.template anyOf<M>();
        const auto rowTimes = [&a](int r, const T* v) {
            return a[0][r] * v[0] + a[1][r] * v[1] + a[2][r] * v[2] + a[3][r] * v[3];
        };
        const M product = each<M>([&](int i) { return rowTimes(i % 4, b[i / 4]); });
        EXPECT_BITS(product, M::multiply(a, b));
        expectInPlace(product, a, [&](M& x) -> M& { return x = M::multiply(x, b); });
        expectInPlace(product, b, [&](M& x) -> M& { return x = M::multiply(a, x); });
        const Vector4T<T> v = corpus.vector4();
        EXPECT_BITS(each<Vector4T<T>>([&](int i) { return rowTimes(i, v); }),
                    M::multiplyWithVector(a, v));
    }
}

TYPED_TEST(MatrixTest, ScalarDivisionMultipliesByOneReciprocal) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(202);
    for (int n = 0; n < 300; ++n) {
        const M m = corpus.template anyOf<M>();
        const T s = corpus.any();
        const auto times = [&m](T f) {
            return each<M>([&](int i) { return m[i / 4][i % 4] * f; });
        };
        EXPECT_BITS(times(s), M::multiply(m, s));
        EXPECT_BITS(times(1 / s), M::divide(m, s));
        expectInPlace(times(s), m, [s](M& x) -> M& { return x *= s; });
        expectInPlace(times(1 / s), m, [s](M& x) -> M& { return x /= s; });
    }
}

TYPED_TEST(MatrixTest, TransposeSwapsRowsAndColumnsInPlace) {
    using M = Matrix44T<TypeParam>;
    expectInPlace(M(1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16), numbered<TypeParam>(),
                  [](M& m) -> M& { return m.transpose(); });
}

template <class T>
T sarrus(const Matrix44T<T>& m, const Index (&r)[3], const Index (&c)[3]) {
    const auto e = [&](int i, int k) { return m(r[i], c[k]); };
    return e(0, 0) * e(1, 1) * e(2, 2) + e(1, 0) * e(2, 1) * e(0, 2) + e(2, 0) * e(0, 1) * e(1, 2) -
           e(0, 2) * e(1, 1) * e(2, 0) - e(2, 2) * e(1, 0) * e(0, 1) - e(1, 2) * e(0, 0) * e(2, 1);
}

constexpr Index kOthers[4][3] = {{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};

TYPED_TEST(MatrixTest, DeterminantsFollowSarrusAndRowZero) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const Index triples[][3] = {{0, 1, 2}, {1, 2, 3}, {3, 0, 1}, {2, 0, 3}};
    Corpus<T> corpus(203);
    for (int n = 0; n < 500; ++n) {
        const M m = n % 4 != 0 ? corpus.matrix() : corpus.template anyOf<M>();
        for (const auto& r : triples) {
            for (const auto& c : triples) {
                EXPECT_BITS(sarrus(m, r, c), m.determinant3x3(r[0], r[1], r[2], c[0], c[1], c[2]));
            }
        }
        const auto d = [&m](int i) { return sarrus(m, kOthers[0], kOthers[i]); };
        EXPECT_BITS(m[0][0] * d(0) - m[1][0] * d(1) + m[2][0] * d(2) - m[3][0] * d(3),
                    m.determinant());
    }
}

template <class T>
struct Singular;
template <>
struct Singular<float> {
    static constexpr float kLimit = 1.1920929e-07f, kFactor = 100000.0f;
};
template <>
struct Singular<double> {
    static constexpr double kLimit = 2.2204460492503131e-16, kFactor = 99999.999999999985;
};
static_assert(Singular<double>::kFactor < 100000.0, "one step below");

// The adjugate times 1 / det, det along column 0.
template <class T>
Matrix44T<T> inverted(const Matrix44T<T>& m) {
    const auto adjugate = each<Matrix44T<T>>([&m](int i) {
        const T minor = sarrus(m, kOthers[i / 4], kOthers[i % 4]);
        return (i / 4 + i % 4) % 2 == 0 ? minor : -minor;
    });
    const T det = adjugate[0][0] * m[0][0] + adjugate[1][0] * m[0][1] + adjugate[2][0] * m[0][2] +
                  adjugate[3][0] * m[0][3];
    const T factor = det < 0 ? -Singular<T>::kFactor : Singular<T>::kFactor;
    const T k = std::abs(det) <= Singular<T>::kLimit ? factor : 1 / det;
    return each<Matrix44T<T>>([&](int i) { return adjugate[i / 4][i % 4] * k; });
}

TYPED_TEST(MatrixTest, InverseIsTheAdjugateOverTheDeterminantAlongColumnZero) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(204);
    for (int n = 0; n < 500; ++n) {
        const M m = n % 4 != 0 ? corpus.matrix() : corpus.template anyOf<M>();
        EXPECT_BITS(inverted(m), m.inverse());
        expectInPlace(inverted(m), m, [](M& x) -> M& { return x.invert(); });
    }
}

// Deliberate: the double factor is one step below 100000.
TYPED_TEST(MatrixTest, InverseClampsTheFactorUpToADeterminantOfEpsilon) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    const T eps = Singular<T>::kLimit, factor = Singular<T>::kFactor;
    EXPECT_BITS(kEps<T>, eps);
    const T cases[][2] = {{eps, factor},        {above(eps), 1 / above(eps)},
                          {-eps, -factor},      {below(-eps), 1 / below(-eps)},
                          {T(-1e-17), -factor}, {kNaN<T>, kNaN<T>},
                          {0, factor},          {-T(0), factor}};
    for (const auto& c : cases) {  // determinant, factor
        for (int i = 0; i < 3; ++i) {
            M m;
            m[i][i] = c[0];
            const M inverse = m.inverse();
            EXPECT_BITS(c[1], inverse[i][i]) << i << ": " << c[0];
            EXPECT_BITS((0 + c[0]) * c[1], inverse[3][3]) << i << ": " << c[0];
            EXPECT_BITS(inverted(m), inverse) << i << ": " << c[0];
        }
    }
}

TYPED_TEST(MatrixTest, RigidInversesDifferInWhereTheTranslationComesFrom) {
    using T = TypeParam;
    using M = Matrix44T<T>;
    Corpus<T> corpus(205);
    for (int n = 0; n < 500; ++n) {
        const M m = n % 2 == 0 ? corpus.matrix() : corpus.template anyOf<M>();
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
    }
}

// Deliberate: in place, an affine matrix loses its translation.
TYPED_TEST(MatrixTest, InvertOrthogonalDropsTheTranslationOfAnAffineMatrix) {
    using M = Matrix44T<TypeParam>;
    M m(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1);
    EXPECT_TRUE(m.inverse_orthogonal() == M(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, -2, 1, -3, 1));
    EXPECT_TRUE(M::multiply(m.inverse_orthogonal(), m) == M::kIdentity);
    EXPECT_TRUE(m.invert_orthogonal() == M(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
}

}  // namespace
}  // namespace test
}  // namespace KyMath
