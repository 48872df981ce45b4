// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "properties/Generators.h"

#include <functional>

// Bounds count roundings: a sum of n products is off by n half epsilons of their magnitudes at
// most. Counts are rounded up, for the terms of higher order and for measuring in double.

namespace KyMath::test {
namespace {

using namespace Ky;
using namespace Transformation;

template <class T>
struct Properties : ::testing::Test {};
TYPED_TEST_SUITE(Properties, Scalars, );

KY_PROPERTY(Properties, SignsAreExact, (Vec<T> a, Vec<T> b)) {
    RC_ASSERT(same(a - b, a + -b) && a - b == -(b - a));
    RC_ASSERT(a.cross(b) == -b.cross(a) && a.cross(a).isZero());
    RC_ASSERT(std::abs(double(a * a.cross(b))) <= bound<T>(8, size(a) * size(a) * size(b)));
    RC_ASSERT(a * a.getOrthogonal() == 0 && a.getOrthogonal().isZero() == a.isZero());
}

// At most ten roundings of a component along d, which is no longer than v.
KY_PROPERTY(Properties, PartsAlongAndAcrossSumUp, (Vec<T> v, Vec<T> d)) {
    const Vec<T> dir = unit(d), rest = after(v, [&](Vec<T>&x) { x.orthogonalize(d); });
    Vec<T> along, across;
    v.project(dir, &along, &across);
    RC_ASSERT(gap(along + across, v) <= bound<T>(4, size(v)));
    RC_ASSERT(std::abs(double(across * dir)) <= bound<T>(8, size(v)));
    RC_ASSERT(d.isZero() || gap(rest, across) <= bound<T>(16, size(v)));
}

// 12 roundings in a determinant and 28 more in a product of two; 8 in a product of three matrices.
KY_PROPERTY(Properties, MatrixProducts, (Mat<T> a, Mat<T> b, Mat<T> c)) {
    const Mat<T> ab = Mat<T>::multiply(a, b), bc = Mat<T>::multiply(b, c);
    const double limit = bound<T>(8, size(a) * size(b) * size(c));
    RC_ASSERT(gap(Mat<T>::multiply(ab, c), Mat<T>::multiply(a, bc)) <= limit);
    RC_ASSERT(Mat<T>(ab).transpose() ==
              Mat<T>::multiply(Mat<T>(b).transpose(), Mat<T>(a).transpose()));
    RC_ASSERT(Vector4T<T>(ab[1]) == Mat<T>::multiplyWithVector(a, Vector4T<T>(b[1])));
    const double da = double(a.determinant()), db = double(b.determinant()), s = size(a) * size(b);
    RC_ASSERT(std::abs(double(ab.determinant()) - da * db) <= bound<T>(32, std::pow(s, 4)));
    const double dt = double(Mat<T>(a).transpose().determinant());
    RC_ASSERT(std::abs(da - dt) <= bound<T>(12, std::pow(size(a), 4)));
}

// The entries of a rotation made from a quaternion are off by at most 10 epsilons, all nine
// together by 30 in length. A product of two, compared with a third, is off by twice that plus its
// roundings.
constexpr double kRotation = 64;

template <class T>
double turnGap(const Quat<T>& p, const Quat<T>& q) {
    return std::min(gap(p, q), gap(p, q * T(-1)));
}

// 24 roundings in the minors, times a row, divided by the determinant.
KY_PROPERTY(Properties, InverseMakesTheIdentity, (Frame<T> f, bool transpose)) {
    Mat<T> m = f.affine(), rigid = f.rigid();
    if (transpose) m.transpose();
    const Mat<T> product = Mat<T>::multiply(m, m.inverse()), inverse = rigid.inverse_orthogonal();
    const double limit = std::pow(size(m), 4) / double(m.determinant());
    RC_ASSERT(gap(product, Mat<T>()) <= bound<T>(16, limit));
    RC_ASSERT(gap(inverse, rigid.inverse()) <= bound<T>(2 * kRotation, 1 + size(f.shift)));
    RC_ASSERT(rigid.inverse_affine() == inverse);
    const Quat<T> turn = getRotationAsQuaternionT(f.affine(), true);
    RC_ASSERT(turnGap(turn, f.turn) <= bound<T>(kRotation, 1));
}

// Whole numbers as multiples of pi/4, others as they are.
template <class T>
Vec<T> angles(const Vec<T>& v) {
    constexpr T kEighth = T(0.78539816339744831);
    return each<Vec<T>>([&](int i) { return v[i] * (std::floor(v[i]) == v[i] ? kEighth : 1); });
}

// The middle angle is an asin, which divides errors by the cosine, at least the root of epsilon.
// Within 1e-7 of the pole the cosine is dropped.
KY_PROPERTY(Properties, DecomposeUndoesCompose, (Frame<T> f, Vec<T> v, bool reflected)) {
    const Mat<T> m = composeT(f.scale, angles(v), f.shift, T(reflected ? -1 : 1));
    Vec<T> scale, rotation, shift;
    T sign = 0;
    decomposeT(m, scale, rotation, shift, sign);
    RC_ASSERT(sign == T(reflected ? -1 : 1) && shift == f.shift);
    RC_ASSERT(gap(scale, f.scale) <= bound<T>(8, size(f.scale)));
    const double cosine = std::abs(std::cos(double(angles(v)[1])));
    const double limit = bound<T>(32, 1 / std::max(cosine, std::sqrt(double(kEps<T>))));
    RC_ASSERT(reflected || gap(composeT(scale, rotation, shift, sign), m) <=
                               (limit + (cosine < 2e-7 ? 4e-7 : 0)) * size(f.scale));
}

// The angle is an acos, which divides errors by the sine s, at least the root of epsilon.
KY_PROPERTY(Properties, QuaternionsAreTheirMatrices, (Quat<T> p, Quat<T> q, Vec<T> v)) {
    const Mat<T> m = createRotationT(q), product = Mat<T>::multiply(createRotationT(p), m);
    RC_ASSERT(gap(createRotationT(p * q), product) <= bound<T>(2 * kRotation, 1));
    RC_ASSERT(gap(q.rotate(v), transformDirectionT(m, v)) <= bound<T>(kRotation, size(v)));
    RC_ASSERT(gap(q.getInverse() * (q * v), v) <= bound<T>(kRotation, size(v)));
    Vec<T> axis;
    T angle = -1;
    q.toAxisAngle(&axis, &angle);
    const double s = std::max(size(Vec<T>(q.x(), q.y(), q.z())), std::sqrt(double(kEps<T>)));
    const double error = turnGap(Quat<T>(axis * T(3), angle), q);
    RC_ASSERT(q.w() < -1 || error <= bound<T>(16, 1 / s));
}

// With steps of 1/256 both factors are exact: swapping the ends swaps the two terms. The chord used
// for arcs of up to 4.5e-4 is shorter by an eighth of the square.
KY_PROPERTY(Properties, SlerpIsSymmetric, (Quat<T> p, Quat<T> q, std::uint8_t n)) {
    const Quat<T> r = p.slerp(q, T(n) / 256), s = q.slerp(p, 1 - T(n) / 256);
    RC_ASSERT(r == s || r == s * T(-1));
    RC_ASSERT(std::abs(size(r) - 1) <= bound<T>(16, 1) + 2.5e-8);
    RC_ASSERT(gap(p.slerp(q, 0), p) <= bound<T>(4, 1));
    RC_ASSERT(turnGap(p.slerp(q, 1), q) <= bound<T>(4, 1) && r.dot(p) >= 0);
}

// An error in the cosine is divided by the sine, at least the root of epsilon. In double, cosines
// within 1e-14 of 1 count as 1: an angle of 1.5e-7, about any axis.
KY_PROPERTY(Properties, FromRotationTakesOneToTheOther, (Vec<T> a, Vec<T> b, bool near)) {
    const Vec<T> from = unit(a), to = unit(near ? from + b * (T(1) / 4096) : b);
    RC_PRE(from * to > T(-0.99));
    const Quat<T> q = after(Quat<T>(), [&](Quat<T>& x) { x.fromRotation(from, to); });
    const double sine = size(from.cross(to)), least = std::sqrt(double(kEps<T>));
    RC_ASSERT(gap(q.rotate(from), to) <=
              bound<T>(16, 1 / std::max(sine, least)) + (sine < 2e-7 ? 3e-7 : 0));
}

// Angles read from entries share their error over the sine or cosine of the middle angle; where
// that is within 2^-19, it is dropped. The names list the axes; a rotating order is the reverse.
RC_GTEST_PROP(RigidProperties, EulerOrders, (Vector3d v, unsigned int m, unsigned int n)) {
    const char names[] = "XYZZYXXYXXYXXZYYZXXZXXZXYZXXZYYZYYZYYXZZXYYXYYXYZXYYXZZXZZXZZYXXYZZYZZYZ";
    const auto from = KyEulerAngles::eEulerOrder(m % 24 + m / 24 % 2 * 32);
    const auto to = KyEulerAngles::eEulerOrder(n % 24 + n / 24 % 2 * 32);
    const Vector3d a = angles(v), b = KyEulerAngles::getEulerAngles(a, from, to);
    const KyTransform t(v, KyEulerAngles(a, from)), u(v, KyEulerAngles(b, to));
    const double s = std::abs(to & 2 ? std::sin(b[1]) : std::cos(b[1]));
    const double limit = s < 0x1.1p-19 ? 0x1p-17 : bound(32, 1 / s);
    RC_ASSERT(gap(t.toMatrix44(), u.toMatrix44()) <= limit);
    Quaterniond q;
    for (int i = 0; i < 3; ++i) {
        Vector3d axis;
        axis[names[from % 32 * 3 + i] - 'X'] = from < 32 ? 1 : -1;
        q = from % 2 == 0 ? q * Quaterniond(axis, a[i]) : Quaterniond(axis, a[i]) * q;
    }
    RC_ASSERT(gap(KyTransform(t).setRotation(q).toMatrix44(), t.toMatrix44()) <=
              bound(kRotation, 1));
}

RC_GTEST_PROP(RigidProperties, InverseFormsUndoACompound, (Frame<double> f, Frame<double> g)) {
    const KyTransform a(f.rigid()), b(g.rigid()), ab = KyTransform().compound(a, b);
    const double limit = bound(2 * kRotation, 1 + size(f.shift) + size(g.shift));
    const auto close = [&](const KyTransform& s, const KyTransform& t) {
        return gap(s.toMatrix44(), t.toMatrix44()) <= limit;
    };
    RC_ASSERT(close(ab, Matrix44d::multiply(g.rigid(), f.rigid())));
    RC_ASSERT(close(KyTransform().compoundFirstThenInverseSecond(ab, b), a));
    RC_ASSERT(close(KyTransform().compoundInverseFirstThenSecond(a, ab), b));
    RC_ASSERT(KyTransform(a).postCompound(b) == ab && KyTransform(b).preCompound(a) == ab);
    RC_ASSERT(close(KyTransform(ab).postCompoundWithInverse(b), a));
    RC_ASSERT(close(KyTransform(ab).preCompoundWithInverse(a), b));
}

RC_GTEST_PROP(RigidProperties, InterpolationMeetsItsEnds,
              (Frame<double> f, Frame<double> g, std::uint8_t n)) {
    const KyTransform a(f.rigid()), b(g.rigid());
    KyTransform t, u;
    RC_ASSERT(gap(t.interpolate(a, b, 0).toMatrix44(), f.rigid()) <= bound(kRotation, 1));
    RC_ASSERT(gap(t.interpolate(a, b, 1).toMatrix44(), g.rigid()) <= bound(kRotation, 1));
    RC_ASSERT(t.interpolate(a, b, n / 256.0) == u.interpolate(b, a, 1 - n / 256.0) && t.isValid());
    RC_ASSERT(a.transformPoint(g.shift) == transformPositionT(f.rigid(), g.shift));
    Quaterniond q;
    a.toQuaternion(q);
    RC_ASSERT(turnGap(q, f.turn) <= bound(kRotation, 1));
}

// The cross product is off by an epsilon of the lengths, far less than isValid() allows.
RC_GTEST_PROP(RigidProperties, MakeOrthonormalMakesARotation,
              (Vector3d a, Vector3d b, Vector3d c)) {
    RC_PRE(!a.isZero() && size(unit(a).cross(b)) > 0.011);
    KyTransform t;
    t.setRotation(a, b, c);
    t.makeOrthonormal(0);
    RC_ASSERT(t.isValid() && Vector3d(t[1]) * b > 0);
    RC_ASSERT(gap(Vector3d(t[0]), unit(a)) <= bound(4, 1));
}

// Whether a, grown by margin, holds b.
template <class T>
bool holds(const Box<T>& a, const Box<T>& b, double margin = 0) {
    const Vec<T> m = Vec<T>(1, 1, 1) * T(margin);
    const Box<T> grown(a.getMin() - m, a.getMax() + m);
    return grown.contains(b.getMin()) && grown.contains(b.getMax());
}
// The point of a box at sevenths of its extents, from octal digits of n.
template <class T>
Vec<T> inside(const Box<T>& b, unsigned int n) {
    return each<Vec<T>>([&](int i) {
        const T low = b.getMin()[i], high = b.getMax()[i], t = T(n >> (3 * i) & 7) / 7;
        return std::min(std::max(low * (1 - t) + high * t, low), high);
    });
}

KY_PROPERTY(Properties, MergeAndIntersectAreALattice, (Box<T> a, Box<T> b, Box<T> c)) {
    const Box<T> common = a.intersect(b);
    RC_ASSERT(same(a + b, b + a) && same((a + b) + c, a + (b + c)) && holds(a + b, a));
    RC_ASSERT(same(a + a, a) && same(a + Box<T>(), a) && same(a.intersect(a + b), a));
    RC_ASSERT(a.intersects(b) == common.valid() && same(common, b.intersect(a)));
    RC_ASSERT(!common.valid() || (holds(a, common) && holds(b, common)));
    for (unsigned int i = 0; i < 8; ++i) RC_ASSERT(!b.contains(a.corner(i)) || a.intersects(b));
}

// Centre, extents and both products: 8 epsilons of the coordinates that take part.
KY_PROPERTY(Properties, TransformHoldsThePoints, (Box<T> box, Frame<T> f, unsigned int n)) {
    const Mat<T> m = f.affine(), rigid = f.rigid();
    const double reach = size(box.getMin()) + size(box.getMax());
    const Vec<T> p = transformPositionT(m, inside(box, n));
    Box<T> moved = box, back = box;
    moved.transform(m);
    RC_ASSERT(holds(moved, Box<T>(p, p), bound<T>(8, reach * size(f.scale) + size(f.shift))));
    back.transform(rigid), back.inverseTransform(rigid);
    RC_ASSERT(holds(back, box, bound<T>(64, reach + size(f.shift))));
}

// Rounding is monotonic: no corner is further out than the one that the plane picks. When it picks,
// coefficients below epsilon count as negative.
KY_PROPERTY(Properties, PlaneSideIsThatOfAllCorners, (Vector4T<T> v, Box<T> box)) {
    for (int i = 0; i < 3; ++i) v[i] = std::abs(v[i]) < kEps<T> ? T(0) : v[i];
    const PlaneT<T> plane(v);
    int above = 0, below = 0;
    for (unsigned int i = 0; i < 8; ++i) {
        above += plane.distance(box.corner(i)) > 0;
        below += plane.distance(box.corner(i)) < 0;
    }
    RC_ASSERT(plane.intersect(box) == (above == 8) - (below == 8));
    RC_ASSERT(PlaneT<T>(-v).intersect(box) == -plane.intersect(box));
}

// The normal is off by 4 epsilons of the edges divided by the sine between them; a rotation by 64.
KY_PROPERTY(Properties, PlaneHoldsItsPoints, (Vec<T> a, Vec<T> b, Vec<T> c, Frame<T> f)) {
    const double cross = size((b - a).cross(c - b)), edge = gap(a, b) + gap(b, c);
    const double reach = size(a) + size(b) + size(c) + size(f.shift) + 1;
    RC_PRE(cross > 1e-4);
    const PlaneT<T> plane(a, b, c);
    PlaneT<T> moved = plane;
    moved.transform(f.rigid().inverse().transpose());
    RC_ASSERT(plane.getNormal() * (b - a).cross(c - b) > 0);
    const Vec<T> points[] = {a, b, c, b + plane.getNormal()};
    for (int i = 0; i < 4; ++i) {
        const Vec<T> p = points[i], q = transformPositionT(f.rigid(), p);
        const double d = double(plane.distance(p)), limit = reach + edge * edge * edge / cross;
        RC_ASSERT(std::abs(d - (i == 3 ? 1 : 0)) <= bound<T>(8, limit));
        RC_ASSERT(std::abs(double(moved.distance(q)) - d) <= bound<T>(64, reach));
    }
}

// Node i lies in its parent i / 2: what is on one side of a plane has all below it there.
RC_GTEST_PROP(PolytopeProperties, HierarchicalCullingIsFlatCulling,
              (Box<double> root, std::vector<unsigned int> places, std::vector<Vector4d> planes)) {
    planes.resize(std::min<std::size_t>(planes.size(), 32));
    std::vector<Box<double>> nodes{root, root};
    for (const unsigned int n : places) {
        const Box<double> parent = nodes[nodes.size() / 2];
        const Vector3d p = inside(parent, n), q = inside(parent, n >> 12);
        nodes.push_back(Box<double>(p, p) + Box<double>(q, q));
    }
    Polytope view(std::vector<PlaneT<double>>(planes.begin(), planes.end()));
    std::vector<bool> visible(nodes.size());
    const std::function<void(std::size_t)> cull = [&](std::size_t i) {
        if (i >= nodes.size() || !view.contains(nodes[i])) return;
        visible[i] = true;
        view.pushCurrentMask();
        cull(2 * i), cull(2 * i + 1);
        view.popCurrentMask();
    };
    cull(1);
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        unsigned int sides[3] = {};  // masks of the planes that have it outside, across and inside
        for (std::size_t k = 0; k < planes.size(); ++k)
            sides[1 + PlaneT<double>(planes[k]).intersect(nodes[i])] |= 1u << k;
        RC_ASSERT(visible[i] == (sides[0] == 0) && view.contains(nodes[i]) == visible[i]);
        RC_ASSERT(!visible[i] || view.getCurrentMask() == sides[1]);
        Polytope faces;
        faces.setToBoundingBox(nodes.back());
        RC_ASSERT(faces.contains(nodes[i]) == nodes.back().intersects(nodes[i]));
    }
}

// Sums and differences of the bounds are relative to their magnitudes over their differences.
KY_PROPERTY(Properties, ProjectionsGiveTheirBoundsBack, (Box<T> b, bool perspective)) {
    Vec<T> l, h, low = b.getMin(), high = b.getMax() + Vec<T>(1, 2, 0);
    const T near = 1 + std::abs(low[2]), far = 1 + high[2] - low[2] + 2 * near;
    const auto create = perspective ? createFrustumT<T> : createOrthographicT<T>;
    const auto get = perspective ? getFrustumT<T> : getOrthographicT<T>;
    const Mat<T> m = create(low[0], high[0], low[1], high[1], near, far);
    RC_ASSERT(get(m, l[0], h[0], l[1], h[1], l[2], h[2]));
    const double limit = bound<T>(16, (size(low) + size(high) + double(far)) * double(far / near));
    RC_ASSERT(isPerspectiveProjectionT(m) == perspective);
    low[2] = near, high[2] = far;
    RC_ASSERT(gap(l, low) <= limit && gap(h, high) <= limit);
}

// A point is given by fractions of the depth and of the window, which grows with depth in
// perspective. It is on the positive side of each plane that it has not passed. eFar is at the near
// end.
RC_GTEST_PROP(FrustumProperties, PlanesEncloseWhatTheWindowShows,
              (Frame<float> camera, Vector3f place, bool perspective)) {
    const Vector3f at = each<Vector3f>([&](int i) { return std::fmod(place[i], 2.0f) + 0.5f; });
    const float depth = 2 + 16 * at[2], grown = perspective ? depth / 2 : 1;
    RC_PRE(depth > 0.25f);
    const Vector3f p((-2 + 5 * at[0]) * grown, (-1 + 3 * at[1]) * grown, -depth);
    const auto create = perspective ? createFrustumT<float> : createOrthographicT<float>;
    Frustum f;
    f.setToWorldSpaceFrustum(camera.rigid().inverse_orthogonal(), create(-2, 3, -1, 2, 2, 18));
    for (unsigned int i = 0; i < 6; ++i) {
        const float inside = i % 2 == 0 ? at[int(i / 2)] : 1 - at[int(i / 2)];
        const float d = f.getPlane(i).distance(transformPositionT(camera.rigid(), p));
        RC_ASSERT(std::abs(inside) < 0x1p-10f || (d > 0) == (inside > 0));
    }
}

// A few epsilons of all coordinates together. Growing by a box may lose the old sphere.
RC_GTEST_PROP(SphereProperties, GrowingHoldsBoth, (Vector4d a, Vector4d b, Box<double> box)) {
    const BoundingSphere s(a.xyz(), a.w()), t(b.xyz(), b.w());  // empty when w is negative
    const double limit = bound(8, size(a) + size(b) + size(box.getMin()) + size(box.getMax()));
    const auto reach = [](const BoundingSphere& o, const BoundingSphere& i) {
        return i.valid() ? gap(o.center(), i.center()) + i.radius() - o.radius() : 0;
    };
    const auto check = [&](const auto& x, const BoundingSphere& part, const BoundingSphere& old) {
        BoundingSphere moving = s, fixed = s;
        moving.expandBy(x), fixed.expandRadiusBy(x);
        RC_ASSERT(reach(moving, part) <= limit && reach(moving, old) <= limit);
        RC_ASSERT(reach(fixed, part) <= limit && reach(fixed, s) <= limit);
        RC_ASSERT(!s.valid() || fixed.center() == s.center());
    };
    check(t, t, s);
    for (unsigned int i = 0; i < 8; ++i) {
        const BoundingSphere corner(box.corner(i), 0);
        check(box, corner, BoundingSphere()), check(box.corner(i), corner, s);
    }
}

// The rounding of points on a line: of both terms of the sum, and as much again of the factor.
double lineLimit(const Line3& line, double t, double other) {
    return bound(8, other + (1 + std::abs(t)) * (size(line.p1) + size(line.p2)));
}

RC_GTEST_PROP(LineProperties, FootOfAPointIsClosest,
              (Vector3d p, Vector3d d, Vector3d q, std::uint8_t n)) {
    const Segment3 segment(p, p + d);
    const Line3& line = segment;
    const Vector3d u = line.p2 - p, foot = line.closestPointTo(q), other = p + u * (n / 256.0);
    RC_PRE(u * u > 1e-7);
    const double distance = line.distanceTo(q, nullptr), limited = segment.distanceTo(q, nullptr);
    const double limit = lineLimit(line, line.closestPointFactor(q), size(q));
    RC_ASSERT(std::abs((q - foot) * unit(u)) <= limit && size((foot - p).cross(unit(u))) <= limit);
    RC_ASSERT(distance - limit <= limited && limited <= gap(other, q) + limit);
}

// Errors of the factors are divided by the squared sine, and once more for the distance.
RC_GTEST_PROP(LineProperties, LinesAreEquallyFar,
              (Vector3d p, Vector3d d, Vector3d q, Vector3d e)) {
    const Segment3 a(p, p + d), b(q, q + e);
    const Line3 &l = a, &m = b;
    const Vector3d u = l.p2 - p, v = m.p2 - q, cross = u.cross(v);
    const double sine = size(cross) / size(u) / size(v), distance = l.distanceTo(m, nullptr);
    RC_PRE(size(cross) > 0.001 && sine > 0.01);
    const double s = l.closestPointFactor(m), t = m.closestPointFactor(l);
    const double limit = 4 * (lineLimit(l, s, 0) + lineLimit(m, t, 0)) / std::pow(sine, 4);
    RC_ASSERT(std::abs(distance - std::abs((q - p) * unit(cross))) <= limit);
    RC_ASSERT(a.distanceTo(b, nullptr) == b.distanceTo(a, nullptr));
    RC_ASSERT(distance == m.distanceTo(l, nullptr) && distance <= a.distanceTo(b, nullptr) + limit);
}

// |p - c|^2 = h^2 + distance^2, with the foot of the perpendicular as above.
RC_GTEST_PROP(LineProperties, LineMeetsTheSphereOnIt, (Vector3d p1, Vector3d d, Vector4d s)) {
    Line3 line(p1, p1 + d);
    RC_PRE(size(line.p2 - line.p1) > 0.001);
    int count = -1;
    Vector3d p[2];
    const double r = std::abs(s.w()), between = line.distanceTo(s.xyz(), r, &count, p);
    const double limit = 2 * lineLimit(line, line.closestPointFactor(s.xyz()), size(s));
    RC_ASSERT(count == (between > 0 ? 0 : between > -1e-7 ? 1 : 2));
    if (count < 2) return;
    for (const Vector3d& x : p) RC_ASSERT(std::abs(gap(x, s.xyz()) - r) <= limit);
    RC_ASSERT((p[0] - p[1]) * (line.p2 - line.p1) > 0);
}

// Convex combinations stay in the box of the controls, within an epsilon per step.
RC_GTEST_PROP(CurveProperties, CurvesKeepToTheirControls,
              (std::vector<Vector3d> controls, std::uint8_t more)) {
    const auto m = static_cast<unsigned int>(controls.size());
    RC_PRE(m >= 3 && m < 24);
    Box<double> box;
    for (const Vector3d& p : controls) box.expandBy(p[0], p[1], p[2]);
    const double limit = bound(m + 8, size(box.getMin()) + size(box.getMax()));
    const decltype(&CreateBezier) named[] = {CreateBSpline, CreateBezier, CreateCatmullRomSpline};
    for (int type = 0; type < 3; ++type) {
        std::vector<Vector3d> out, again;
        RC_ASSERT(!named[type](controls, m - 1, out) && named[type](controls, m + more, out));
        RC_ASSERT(CreateCurve(eCurveType(type), controls, m + more, again));
        RC_ASSERT(out.size() == m + more && (more > 0 || out == controls));
        for (std::size_t i = 0; i < out.size(); ++i) RC_ASSERT(same(out[i], again.at(i)));
        if (type == eCurveCatmullRom) continue;
        RC_ASSERT(out.front() == controls.front() && out.back() == controls.back());
        for (const Vector3d& p : out) RC_ASSERT(holds(box, Box<double>(p, p), limit));
    }
}

}  // namespace
}  // namespace KyMath::test
