// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What only the four-component vector does; the rest is tested with the three-component one.
#include "Support.h"

#include <array>

namespace KyMath {
namespace test {
namespace {

static_assert(kRefuses<Vector4f, Vector3f, Vector3f&, Quaternionf, int, std::nullptr_t, Vector4d>);
static_assert(kRefuses<Vector4d, Vector3d, Vector3d&, Quaterniond, int, std::nullptr_t, Vector4f>);
static_assert(!IsStreamable<Vector4f>::value && !IsStreamable<Vector4d>::value);

template <class T>
class Vector4Test : public ::testing::Test {};
TYPED_TEST_SUITE(Vector4Test, Scalars, );

TYPED_TEST(Vector4Test, EveryConstructorAndAssignmentSetsFourComponents) {
    using T = TypeParam;
    using V = Vector4T<T>;
    const T numbers[] = {1, 2, 3, 4};
    const V v(numbers);
    EXPECT_BITS(v, V(1, 2, 3, 4));
    EXPECT_BITS(v, V(std::array<T, 4>{{1, 2, 3, 4}}));
    EXPECT_BITS(v, V(Vector3T<T>(1, 2, 3), 4));
    EXPECT_BITS(v, after(V(), [](V& u) { u.set(1, 2, 3, 4); }));
    EXPECT_BITS(v, after(V(), [&](V& u) { u.set(v); }));
    expectInPlace(v, V(), [&](V& u) -> V& { return u = v; });
    expectInPlace(v, V(), [&](V& u) -> V& { return u = numbers; });
    EXPECT_BITS(V(1, 2, 3, 9), after(v, [](V& u) { u.w() = 9; }));
    EXPECT_BITS(T(4), v.w());
    EXPECT_BITS(Vector3T<T>(1, 2, 3), v.xyz());
}

}  // namespace
}  // namespace test
}  // namespace KyMath
