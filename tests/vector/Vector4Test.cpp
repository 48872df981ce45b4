// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What only the four-component vector does; the rest is tested with the three-component one.
#include "Support.h"

#include <array>

namespace KyMath {
namespace test {
namespace {

template <class T>
class Vector4Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector4Test, Scalars, );

TYPED_TEST(Vector4Test, IsFourBareScalarsAndRefusesShorterSourcesNullAndStreams) {
    using T = TypeParam;
    using V = Vector4T<T>;
    static_assert(sizeof(V) == 4 * sizeof(T), "");
    static_assert(kRefuses<V, Vector3T<T>, Vector3T<T>&, int, std::nullptr_t>, "");
    static_assert(kRefuses<Vector4d, Vector4f> && kRefuses<Vector4f, Vector4d>, "");
    static_assert(!IsStreamable<V>::value, "");
}

TYPED_TEST(Vector4Test, EveryConstructorAndAssignmentSetsFourComponents) {
    using T = TypeParam;
    using V = Vector4T<T>;
    const T numbers[] = {1, 2, 3, 4};
    const V v(1, 2, 3, 4);
    for (int i = 0; i < 4; ++i) EXPECT_BITS(numbers[i], v[i]);
    EXPECT_BITS(T(4), v.w());
    EXPECT_BITS(v, V(std::array<T, 4>{{1, 2, 3, 4}}));
    EXPECT_BITS(v, V(Vector3T<T>(1, 2, 3), 4));
    EXPECT_BITS(v, V(v));
    V u;
    u.set(1, 2, 3, 4);
    EXPECT_BITS(v, u);
    u.w() = 9;
    EXPECT_BITS(V(1, 2, 3, 9), u);
    expectInPlace(v, V(), [&](V& x) -> V& { return x = v; });
    expectInPlace(v, V(), [&](V& x) -> V& { return x = numbers; });
    expectInPlace(v, v, [](V& x) -> V& { return x = static_cast<const V&>(x); });
    u.set(V(5, 6, 7, 8));
    EXPECT_BITS(V(5, 6, 7, 8), u);
}

TYPED_TEST(Vector4Test, XyzDropsWWithoutDividing) {
    EXPECT_BITS(Vector3T<TypeParam>(1, 2, 3), Vector4T<TypeParam>(1, 2, 3, 4).xyz());
}

TYPED_TEST(Vector4Test, DotIsTheProductOperator) {
    using V = Vector4T<TypeParam>;
    EXPECT_BITS(TypeParam(70), V(1, 2, 3, 4).dot(V(5, 6, 7, 8)));
    Corpus<TypeParam> corpus(401);
    for (int n = 0; n < 100; ++n) {
        const V a = corpus.vector4(), b = corpus.vector4();
        EXPECT_BITS(a * b, a.dot(b));
    }
}

}  // namespace
}  // namespace test
}  // namespace KyMath
