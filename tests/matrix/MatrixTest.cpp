// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// ==, isEqual and areEqualTol are in ToleranceTest.cpp, with those of the other types.
#include "Support.h"

#include <stdexcept>

namespace KyMath::test {
namespace {

KY_SUITE(MatrixTest);

static_assert(kRefuses<Matrix44f, int, std::nullptr_t, Vector3f, Vector4f, Quaternionf, Matrix44d>);
static_assert(kRefuses<Matrix44d, int, std::nullptr_t, Vector3d, Vector4d, Quaterniond, Matrix44f>);
static_assert(!IsStreamable<Matrix44f>::value && !IsStreamable<Matrix44d>::value);

KY_TEST(MatrixTest, ConstructorsFillColumnByColumn) {
    const T columns[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
    const Mat<T> m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    EXPECT_BITS(m, Mat<T>(columns));
    EXPECT_BITS(m, Mat<T>(columns[0]));
    EXPECT_BITS(Vec4<T>(2, 6, 10, 14), m.row(1));
    EXPECT_BITS(Vec4<T>(5, 6, 7, 8), m.column(1));
    EXPECT_BITS(T(10), m(1, 2));
    EXPECT_BITS(T(10), m[2][1]);
    const double block[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 0.1}};
    EXPECT_BITS(Mat<T>(1, 2, 3, 0, 4, 5, 6, 0, 7, 8, T(0.1), 0, 0, 0, 0, 1), Mat<T>(block));
}

// Vectors of the processor would want 16 bytes.
KY_TEST(MatrixTest, IsAlignedAsItsScalars) {
    alignas(16) struct {
        T first;
        Mat<T> from, to;
    } odd;
    odd.from = Corpus<T>(1).matrix();
    odd.to = odd.from;
    odd.to *= 2;
    EXPECT_BITS(odd.to, Mat<T>::multiply(Mat<T>(odd.from), T(2)));
    const Vec4<T> v = Mat<T>::multiplyWithVector(odd.to, Vec4<T>(1, 0, 0, 0));
    EXPECT_BITS(Vec4<T>(odd.to[0]), v);
}

TEST(MatrixArrayViewTest, IsTheStorageOfDoubles) {
    Matrix44d d;
    EXPECT_EQ(d[0], *static_cast<Ky::KyReal4*>(d));
    EXPECT_EQ(d[0], *static_cast<const Ky::KyReal4*>(static_cast<const Matrix44d&>(d)));
}

// Deliberate: the message of the constant conversion names the other instantiation.
TEST(MatrixArrayViewTest, ThrowsCrossedMessagesForFloats) {
    const auto messageOf = [](auto convert) -> std::string {
        try {
            convert();
        } catch (const std::invalid_argument& e) {
            return e.what();
        }
        return "no exception";
    };
    Matrix44f m;
    const Matrix44f& k = m;
    EXPECT_EQ(
        "Matrix44T<float>::operator Ky::KyReal4*(): "
        "Cannot return an array of double as a pointer to float",
        messageOf([&] { static_cast<void>(static_cast<Ky::KyReal4*>(m)); }));
    EXPECT_EQ(
        "Matrix44T<double>::operator Ky::KyReal4*(): "
        "Cannot return an array of float as a pointer to double",
        messageOf([&] { static_cast<void>(static_cast<const Ky::KyReal4*>(k)); }));
}

// Deliberate: the factor for a singular matrix is a step below 100000 in double.
KY_TEST(MatrixTest, SingularInverseIsAClampedAdjugate) {
    const T eps = kEps<T>, big = above(eps), factor = T(sizeof(T) == 4 ? 1e5 : 99999.999999999985);
    const struct {
        T det, factor;
    } cases[] = {{0, factor},          {-T(0), factor}, {eps, factor},    {-eps, -factor},
                 {T(-1e-17), -factor}, {big, 1 / big},  {-big, 1 / -big}, {kNaN<T>, kNaN<T>}};
    for (const auto& c : cases) {
        for (int i = 0; i < 3; ++i) {
            Mat<T> m;
            m[i][i] = c.det;
            const Mat<T> inverse = m.inverse();
            EXPECT_BITS(c.factor, inverse[i][i]) << c.det;
            expectInPlace(inverse, m, [](Mat<T>& x) -> Mat<T>& { return x.invert(); });
        }
    }
}

// Deliberate: along row 0, as determinant() goes, rounding gives another value.
KY_TEST(MatrixTest, InverseExpandsAlongColumnZero) {
    int differ = 0;
    Corpus<T> corpus(203);
    for (int n = 0; n < 100; ++n) {
        const Mat<T> m = corpus.matrix(), inverse = m.inverse();
        const auto minor = [&m](unsigned long r0, unsigned long r1, unsigned long r2) {
            return m.determinant3x3(r0, r1, r2, 1, 2, 3);
        };
        const T det = minor(1, 2, 3) * m(0, 0) + -minor(0, 2, 3) * m(1, 0) +
                      minor(0, 1, 3) * m(2, 0) + -minor(0, 1, 2) * m(3, 0);
        EXPECT_BITS(minor(1, 2, 3) * (1 / det), inverse(0, 0));
        differ += det != m.determinant();
    }
    EXPECT_GT(differ, 0);
}

// Deliberate: in place, the translation comes from the bottom row, and an affine matrix loses its.
KY_TEST(MatrixTest, RigidInverseInPlaceReadsTheBottomRow) {
    const Mat<T> m(0, 1, 0, 2, -1, 0, 0, 3, 0, 0, 1, 4, 10, 20, 30, 5);  // a quarter turn about z
    const Mat<T> copied(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, -20, 10, -30, 1);
    const Mat<T> inPlace(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 3, -2, -4, 1);
    EXPECT_EQ(copied, m.inverse_orthogonal());
    EXPECT_EQ(copied, m.inverse_affine());
    EXPECT_EQ(inPlace, Mat<T>(m).invert_orthogonal());
    EXPECT_EQ(inPlace, Mat<T>(m).invert_affine());
}

}  // namespace
}  // namespace KyMath::test
