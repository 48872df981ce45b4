// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

namespace KyMath::test {
namespace {

template <class T>
class Vector2Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector2Test, Scalars, );

TYPED_TEST(Vector2Test, IsTwoBareScalarsXFirst) {
    using T = TypeParam;
    using V = Vector2T<T>;
    static_assert(sizeof(V) == 2 * sizeof(T) && std::is_standard_layout<V>::value, "");
    static_assert(kRefuses<V, int, std::nullptr_t> && !IsStreamable<V>::value, "");
    static_assert(kRefuses<Vector3T<T>, V> && kRefuses<Vector4T<T>, V>, "would read past it");
    static_assert(kRefuses<QuaternionT<T>, V> && kRefuses<Matrix44T<T>, V>, "would read past it");
    EXPECT_BITS(V(0, 0), V());
    EXPECT_BITS(V(0, 0), V::kZero);
    const T numbers[] = {3, 4};
    const V k(numbers);
    EXPECT_TRUE(k.x() == 3 && k.y() == 4);
    V v(7, 8);
    expectInPlace(k, v, [&](V& p) -> V& { return p = k; });
    v.set(5, 6);
    EXPECT_TRUE(static_cast<T*>(v) == &v.x() && v.x() == 5 && v.y() == 6 && &v.y() == &v[1]);
    const auto check = [&](auto i) {
        EXPECT_TRUE(&v[i] == &v.x() + i && &k[i] == static_cast<const T*>(k) + i) << i;
    };
    check(0), check(1), check(0u), check(1u), check(0l), check(1l), check(0ul), check(1ul);
}

TYPED_TEST(Vector2Test, ArithmeticIsByComponentAndDivisionByReciprocal) {
    using T = TypeParam;
    using V = Vector2T<T>;
    Corpus<T> corpus(1201);
    for (int n = 0; n < 1000; ++n) {
        V a = corpus.template anyOf<V>();
        const V b = corpus.template anyOf<V>();
        const T s = corpus.any(), r = 1 / s;
        const V sum(a[0] + b[0], a[1] + b[1]), difference(a[0] - b[0], a[1] - b[1]);
        const V quotient(a[0] * r, a[1] * r);
        EXPECT_BITS(sum, a + b);
        EXPECT_BITS(difference, a - b);
        EXPECT_BITS(quotient, a / s);
        expectInPlace(sum, a, [&](V& v) -> V& { return v += b; });
        expectInPlace(difference, a, [&](V& v) -> V& { return v -= b; });
        expectInPlace(quotient, a, [&](V& v) -> V& { return v /= s; });
        EXPECT_BITS(a[0] * b[0] + a[1] * b[1], a.dot(b));
        EXPECT_BITS(a[0] * b[1] - a[1] * b[0], a.cross(b));
        const T square = a[0] * a[0] + a[1] * a[1], other = b[0] * b[0] + b[1] * b[1];
        EXPECT_BITS(square, a.normSquare());
        EXPECT_BITS(square, static_cast<const V&>(a).normSquare());
        EXPECT_BITS(square, a.lengthSqr());
        EXPECT_BITS(std::sqrt(square), a.norm());
        EXPECT_BITS(std::sqrt(square), a.length());
        EXPECT_TRUE((a < b) == (square < other) && (a > b) == (square > other));
        T sine, cosine;
        sinCos(s, sine, cosine);
        const V turned(a[0] * cosine - a[1] * sine, a[0] * sine + a[1] * cosine);
        expectInPlace(turned, a, [&](V& v) -> V& { return v.rotate(s); });
    }
    EXPECT_FALSE(V(3, 4) < V(0, 5) || V(3, 4) > V(0, 5));
}

TYPED_TEST(Vector2Test, NormalizeNeedsALengthAboveTheToleranceStrictly) {
    using T = TypeParam;
    using V = Vector2T<T>;
    Corpus<T> corpus(1202);
    for (int n = 0; n < 500; ++n) {
        const V a = n == 0 ? V(0, std::numeric_limits<T>::min()) : corpus.template anyOf<V>();
        const T square = a[0] * a[0] + a[1] * a[1], length = std::sqrt(square), r = 1 / length;
        const V scaled(a[0] * r, a[1] * r);
        V v = a;
        v.normalize();
        EXPECT_BITS(square > 0 ? scaled : a, v);
        for (const T tol : {T(0), T(-1), below(length), length, above(length), kNaN<T>}) {
            T written = 7;
            v = a;
            EXPECT_EQ(length > tol, v.normalize(tol, &written)) << tol;
            EXPECT_BITS(length > tol ? length : T(0), written) << tol;
            EXPECT_BITS(length > tol ? scaled : a, v) << tol;
        }
    }
}

TYPED_TEST(Vector2Test, ComparisonsAreExactOrWithinTheMixedTolerance) {
    using T = TypeParam;
    using V = Vector2T<T>;
    const T values[] = {0,  -T(0), T(0.125), above(T(0.125)), T(0.25), -8,      9,     T(9.125),
                        10, 17,    1000,     T(1000.5),       kInf<T>, kNaN<T>, T(0.1)};
    for (const T p : values) {
        for (const T q : values) {
            EXPECT_TRUE((V(p, 1) == V(q, 1)) == (p == q) && (V(1, p) == V(1, q)) == (p == q));
            EXPECT_TRUE((V(p, 1) != V(q, 1)) == (p != q) && (V(1, p) != V(1, q)) == (p != q));
            for (const double tol : {0.0, 0.125, 1e-3, 0.1, 0.7, 0.7000000001, -1.0}) {
                const bool equal = equalWithin(p, q, tol) && tol >= 0;
                EXPECT_EQ(equal, V::areEqualTol(V(p, 1), V(q, 1), tol)) << p << ", " << q;
                EXPECT_EQ(equal, V::areEqualTol(V(1, p), V(1, q), tol)) << p << ", " << q;
            }
        }
    }
}

}  // namespace
}  // namespace KyMath::test
