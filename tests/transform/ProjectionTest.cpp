// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <array>

namespace KyMath::test {
namespace {

using namespace Transformation;

// Left, right, bottom, top, near, far.
template <class T>
using Bounds = std::array<T, 6>;
template <class T>
using Reader = bool (*)(const Mat<T>&, T&, T&, T&, T&, T&, T&);

/// Whether reader refuses m with one element replaced; then it must not write.
template <class T>
bool refuses(Reader<T> reader, Mat<T> m, int row, int column, T value) {
    m[column][row] = value;
    const Bounds<T> untouched = {42, 43, 44, 45, 46, 47};
    Bounds<T> b = untouched;
    const bool accepted = reader(m, b[0], b[1], b[2], b[3], b[4], b[5]);
    EXPECT_EQ(accepted, b != untouched);
    return !accepted;
}

KY_SUITE(ProjectionTest);

KY_TEST(ProjectionTest, ReadsRefuseAtTheirThresholds) {
    const Mat<T> ortho = createOrthographicT<T>(-2, 3, -1, 4, 1, 6);
    const Mat<T> frustum = createFrustumT<T>(-2, 3, -1, 4, 1, 6);
    const T tau = T(1e-14);
    for (const int i : {0, 1, 2}) {
        for (const T value : {T(0), below(tau), -below(tau), tau, -tau, kNaN<T>}) {
            const bool small = std::abs(value) < tau;
            EXPECT_EQ(small, refuses<T>(getOrthographicT, ortho, i, i, value)) << value;
            EXPECT_EQ(small, refuses<T>(getFrustumT, frustum, i, i, value)) << value;
        }
    }
    // Half steps of double on either side of tau from 1; for float one step is outside already.
    for (const int steps : {0, 1, 2, 90, 91, 92}) {
        const T distance = T(steps) * (kEps<T> / 2);
        for (const T one : {1 - distance, 1 + distance}) {
            const T off = std::abs(one - 1);
            EXPECT_EQ(off > tau, refuses<T>(getOrthographicT, ortho, 3, 3, one)) << steps;
            EXPECT_EQ(off > tau, refuses<T>(getFrustumT, frustum, 3, 2, -one)) << steps;
            EXPECT_EQ(off < tau, refuses<T>(getFrustumT, frustum, 2, 2, -one)) << steps;
        }
    }
    EXPECT_FALSE(refuses<T>(getOrthographicT, ortho, 3, 3, kNaN<T>));
    EXPECT_FALSE(refuses<T>(getFrustumT, frustum, 3, 2, kNaN<T>));
}

KY_TEST(ProjectionTest, ReadsMayWriteOverTheirMatrix) {
    for (const bool perspective : {false, true}) {
        const Reader<T> reader = perspective ? getFrustumT<T> : getOrthographicT<T>;
        const auto create = perspective ? createFrustumT<T> : createOrthographicT<T>;
        Mat<T> m = create(-2, 3, -1, 4, 1, 6);
        Bounds<T> b;
        EXPECT_TRUE(reader(m, b[0], b[1], b[2], b[3], b[4], b[5]));
        EXPECT_TRUE(reader(m, m[3][2], m[0][0], m[2][2], m[1][1], m[2][0], m[2][1]));
        EXPECT_EQ(b, (Bounds<T>{m[3][2], m[0][0], m[2][2], m[1][1], m[2][0], m[2][1]}));
    }
}

}  // namespace
}  // namespace KyMath::test
