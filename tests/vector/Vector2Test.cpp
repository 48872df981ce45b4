// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// What only the two-component vector does; the rest is tested with the three-component one.
#include "Support.h"

namespace KyMath::test {
namespace {

KY_SUITE(Vector2Test);

KY_TEST(Vector2Test, IsNoStartOfAnythingLarger) {
    using V = Vector2T<T>;
    static_assert(kRefuses<V, int, std::nullptr_t> && !IsStreamable<V>::value, "");
    static_assert(kRefuses<Vec<T>, V> && kRefuses<Vec4<T>, V>, "would read past it");
    static_assert(kRefuses<Quat<T>, V> && kRefuses<Mat<T>, V>, "would read past it");
}

KY_TEST(Vector2Test, TurnsCounterClockwise) {
    T s, c;
    sinCos(T(0.5), s, c);
    expectInPlace(Vector2T<T>(3 * c - 4 * s, 3 * s + 4 * c), Vector2T<T>(3, 4),
                  [](Vector2T<T>& v) -> Vector2T<T>& { return v.rotate(T(0.5)); });
}

}  // namespace
}  // namespace KyMath::test
