// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Headers that are included on request: Format.h with std::format or fmt, as TEXT says, Hash.h,
// Span.h and Unpack.h. Ends with the number of faults.
#define FMT_HEADER_ONLY
#include <KyMath/Format.h>
#include <KyMath/Hash.h>
#include <KyMath/Span.h>
#include <KyMath/Unpack.h>

#include <cstdio>
#include <limits>
#include <string>
#include <type_traits>
#include <unordered_set>

using namespace KyMath;
using Ky::KyEulerAngles;
using Ky::KyTransform;

namespace {

int faults = 0;
void expect(bool holds, const char* what) {
    if (!holds) std::printf("fault: %s\n", what), ++faults;
}
void expect(const std::string& expected, const std::string& found) {
    expect(expected == found, ("expected " + expected + "\nfound " + found).c_str());
}
#define EXPECT(...) expect(__VA_ARGS__, #__VA_ARGS__)

void format() {
    const Vector3d v(0.1, -0.0, 1e300);
    Frustum view;
    view.setToWorldSpaceFrustum(Matrix44f(), Matrix44f());
    expect("(0.1, -0, 1e+300)", TEXT::format("{}", v));
    expect("[(1.50, 2.25)] (+1, +2, +3, +4)",
           TEXT::format("[{:.2f}] {:+}", Vector2f(1.5f, 2.25f), Vector4d(1, 2, 3, 4)));
    expect("(  0.1,    -0, 1e+300)", TEXT::format("{:>{}}", v, 5));
    expect("(1, 2, 3, 4, 5, 6)", TEXT::format("{}", Vector6(1, 2, 3, 4, 5, 6)));
    expect("(0.33333334, 0) (nan, inf, -inf)",
           TEXT::format("{} {}", Vector2f(1 / 3.0f, 0),
                        Vector3f(std::numeric_limits<float>::quiet_NaN(), HUGE_VALF, -HUGE_VALF)));
    expect("(w = 0.5, x = 1.0, y = 2.0, z = 3.0)",
           TEXT::format("{:.1f}", Quaterniond(0.5, 1, 2, 3)));
    KyTransform t;
    t.setTranslation(Vector3d(1, 2, 3));
    const std::string rows = "(1, 0, 0, 1)\n(0, 1, 0, 2)\n(0, 0, 1, 3)\n(0, 0, 0, 1)";
    expect(rows, TEXT::format("{}", t));
    expect(rows, TEXT::format("{}", t.toMatrix44()));
    expect("eZYXr (0.5, 0.0, -1.0)",
           TEXT::format("{:.1f}", KyEulerAngles(0.5, 0, -1, KyEulerAngles::eZYXr)));
    expect("eZYZr | eNegated (0, 0, 0) order -9 (0, 0, 0)",
           TEXT::format("{} {}",
                        KyEulerAngles(0, 0, 0, KyEulerAngles::eZYZr | KyEulerAngles::eNegated),
                        KyEulerAngles(0, 0, 0, KyEulerAngles::eEulerOrder(-9))));
    expect("min (0, 0, 0), max (1, 2, 3)", TEXT::format("{}", BoundingBoxf(0, 0, 0, 1, 2, 3)));
    expect("center (1, 2, 3), radius 4", TEXT::format("{}", BoundingSphere(Vector3d(1, 2, 3), 4)));
    expect("(1, 0, 0, 2.5)", TEXT::format("{}", Planed(1, 0, 0, 2.5)));
    expect("p1 (1, 2, 3), p2 (4, 5, 6)",
           TEXT::format("{}", Segment3(Vector3d(1, 2, 3), Vector3d(4, 5, 6))));
    expect(
        "left (1, 0, 0, 1)\nright (-1, 0, 0, 1)\nbottom (0, 1, 0, 1)\ntop (0, -1, 0, 1)\n"
        "far (0, 0, -1, 1)\nnear (0, 0, 1, 1)",
        TEXT::format("{}", view));
#ifndef WITHHELD  // from a client with a standard library of its own
    Polytope room;
    expect("", TEXT::format("{}", room));
    room.add(Planed(1, 0, 0, 0)), room.add(Planed(-1, 0, 0, 1));
    expect("(1, 0, 0, 0)\n(-1, 0, 0, 1)", TEXT::format("{}", room));
#endif
}

template <class V>
bool oneHash(const V& a, const V& b) {
    return a == b && std::hash<V>()(a) == std::hash<V>()(b);
}

void hash() {
    EXPECT(oneHash(Vector2f(0, 1), Vector2f(-0.0f, 1)));
    EXPECT(oneHash(Vector3d(1, 0, 0), Vector3d(1, -0.0, 0)));
    EXPECT(oneHash(Quaterniond(), Quaterniond(1, 0, -0.0, 0)));
    EXPECT(oneHash(Matrix44f(), Matrix44f::multiply(Matrix44f(), Matrix44f())));
    EXPECT(oneHash(KyTransform(), KyTransform(Vector3d(-0.0, 0, 0), KyEulerAngles())));
    EXPECT(oneHash(Planed(0, 0, 1, 0), Planed(-0.0, 0, 1, 0)));
    // The points of a grid differ. In their low bits they are spread as if drawn at random, which
    // would fill 25786 of the places.
    std::unordered_set<std::size_t> whole, low;
    for (int i = 0; i < 32768; ++i) {
        const Vector3f p(float(i % 32), float(i / 32 % 32), float(i / 1024));
        const std::size_t h = std::hash<Vector3f>()(p);
        whole.insert(h), low.insert(h % 65536);
    }
    EXPECT(whole.size() == 32768 && low.size() > 25200 && low.size() < 26400);
    EXPECT(std::hash<Vector2d>()({1, 2}) != std::hash<Vector2d>()({2, 1}));
    EXPECT(std::hash<Planed>()({0, 0, 1, 0}) != std::hash<Planed>()({0, 0, 1, 2}));
    KyTransform moved;
    moved.setTranslation(Vector3d(0, 0, 1));
    EXPECT(std::hash<KyTransform>()(moved) != std::hash<KyTransform>()(KyTransform()));
}

void unpack() {
    Vector3d v(1, 2, 3);
    auto& [x, y, z] = v;
    z = 7;
    EXPECT(v == Vector3d(1, 2, 7) && x == 1 && &y == &v[1]);
    auto [i, j] = Vector2f(1, 2);
    i = 3;
    EXPECT(i == 3 && j == 2);
    const auto [w, a, b, c] = Quaternionf(4, 5, 6, 7);
    EXPECT(w == 4 && a == 5 && b == 6 && c == 7);
    const Vector6 six(1, 2, 3, 4, 5, 6);
    const auto& [s0, s1, s2, s3, s4, s5] = six;
    EXPECT(s0 == 1 && s1 == 2 && s2 == 3 && s3 == 4 && s4 == 5 && &s5 == &six[5]);
    BoundingBoxd box(1, 2, 3, 4, 5, 6);
    auto& [min, max] = box;
    max = v;
    EXPECT(min == Vector3d(1, 2, 3) && box.getMax() == v);
    BoundingSphere ball(v, 2);
    auto& [center, radius] = ball;
    radius = 5, center = min;
    const auto& [sameCenter, sameRadius] = const_cast<const BoundingSphere&>(ball);
    EXPECT(ball.radius() == 5 && sameCenter == min && sameRadius == 5);
    auto [movedCenter, movedRadius] = ball;
    EXPECT(movedCenter == min && movedRadius == 5);
    Planed plane(1, 2, 3, 4);
    const auto& [pa, pb, pc, pd] = plane;
    EXPECT(pa == 1 && pb == 2 && pc == 3 && pd == 4);
    auto [qa, qb, qc, qd] = plane;
    EXPECT(qa == 1 && qb == 2 && qc == 3 && qd == 4);
    std::get<0>(v) = 9;
    EXPECT(v.x() == 9 && std::get<3>(Vector4f(1, 2, 3, 4)) == 4 &&
           std::get<1>(std::make_tuple(1, 2)) == 2);
    static_assert(std::tuple_size<Vector6>::value == 6 &&
                  std::tuple_size<const BoundingBoxf>::value == 2);
    static_assert(std::is_same<std::tuple_element<0, Planef>::type, const float>::value);
    static_assert(std::is_same<std::tuple_element<1, const Vector2d>::type, const double>::value);
}

template <class V>
concept Spanned = requires(V&& v) {
    spanOf(static_cast<V&&>(v));
};

void span() {
    Vector3f v(1, 2, 3);
    std::span<float, 3> s = spanOf(v);
    s[2] = 4;
    EXPECT(v == Vector3f(1, 2, 4) && Vector3f(s.data()) == v);
    const Matrix44d m = Matrix44d::multiply(Matrix44d(), 2);
    const std::span<const double, 16> values = spanOf(m);
    EXPECT(values.data() == m[0] && values[15] == 2);
    BoundingBoxf box(1, 2, 3, 4, 5, 6);
    EXPECT(spanOf(box).size() == 6 && &spanOf(box)[4] == &box.yMax());
    EXPECT(spanOf(Planed(1, 2, 3, 4).getAsVector4())[3] == 4);
    static_assert(decltype(spanOf(std::declval<Quaterniond&>()))::extent == 4 &&
                  decltype(spanOf(std::declval<KyTransform&>()))::extent == 16);
    static_assert(Spanned<Vector6&> && !Spanned<Vector6> && !Spanned<const Vector2f> &&
                  !Spanned<Planed&>);
}

}  // namespace

int main() {
    format(), hash(), unpack(), span();
    return faults;
}
