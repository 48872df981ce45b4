// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What only the two-component vector does; the rest is tested with the three-component one.
#include "Support.h"

namespace KyMath::test {
namespace {

template <class T>
class Vector2Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector2Test, Scalars, );

TYPED_TEST(Vector2Test, IsNoStartOfAnythingLarger) {
    using T = TypeParam;
    using V = Vector2T<T>;
    static_assert(kRefuses<V, int, std::nullptr_t> && !IsStreamable<V>::value, "");
    static_assert(kRefuses<Vector3T<T>, V> && kRefuses<Vector4T<T>, V>, "would read past it");
    static_assert(kRefuses<QuaternionT<T>, V> && kRefuses<Matrix44T<T>, V>, "would read past it");
    EXPECT_BITS(V(0, 0), V::kZero);
}

TYPED_TEST(Vector2Test, TurnsCounterClockwise) {
    using T = TypeParam;
    using V = Vector2T<T>;
    T s, c;
    sinCos(T(0.5), s, c);
    expectInPlace(V(3 * c - 4 * s, 3 * s + 4 * c), V(3, 4),
                  [](V& v) -> V& { return v.rotate(T(0.5)); });
    EXPECT_EQ(1, V(1, 0).cross(V(0, 1)));
}

}  // namespace
}  // namespace KyMath::test
