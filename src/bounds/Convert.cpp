// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Convert.h>

namespace KyMath {

namespace {

/// The same values in another scalar type.
template <class T, int N, template <class> class V, class U>
V<T> converted(const V<U>& v) {
    V<T> out;
    T* const to = out;
    const U* const from = v;
    for (int i = 0; i < N; ++i) to[i] = static_cast<T>(from[i]);
    return out;
}
/// The empty box has no corners to convert: the largest double is not a float.
template <class T, class U>
BoundingBoxT<T> converted(const BoundingBoxT<U>& b) {
    const BoundingBoxT<U> empty;
    if (b.getMin() == empty.getMin() && b.getMax() == empty.getMax()) return BoundingBoxT<T>();
    return BoundingBoxT<T>(converted<T, 3>(b.getMin()), converted<T, 3>(b.getMax()));
}

}  // namespace

Vector2f toFloat(const Vector2d& v) {
    return converted<float, 2>(v);
}
Vector3f toFloat(const Vector3d& v) {
    return converted<float, 3>(v);
}
Vector4f toFloat(const Vector4d& v) {
    return converted<float, 4>(v);
}
Quaternionf toFloat(const Quaterniond& q) {
    return converted<float, 4>(q);
}
Matrix44f toFloat(const Matrix44d& m) {
    return converted<float, 16>(m);
}
Matrix44f toFloat(const Ky::KyTransform& t) {
    return toFloat(t.toMatrix44());
}
BoundingBoxf toFloat(const BoundingBoxd& b) {
    return converted<float>(b);
}
Planef toFloat(const Planed& p) {
    return Planef(toFloat(p.getAsVector4()));
}

Vector2d toDouble(const Vector2f& v) {
    return converted<double, 2>(v);
}
Vector3d toDouble(const Vector3f& v) {
    return converted<double, 3>(v);
}
Vector4d toDouble(const Vector4f& v) {
    return converted<double, 4>(v);
}
Quaterniond toDouble(const Quaternionf& q) {
    return converted<double, 4>(q);
}
Matrix44d toDouble(const Matrix44f& m) {
    return converted<double, 16>(m);
}
BoundingBoxd toDouble(const BoundingBoxf& b) {
    return converted<double>(b);
}
Planed toDouble(const Planef& p) {
    return Planed(toDouble(p.getAsVector4()));
}

Ky::KyTransform toTransform(const Vector3d& position, const Quaterniond& q) {
    Ky::KyTransform t;
    t.setRotation(q);
    t.setTranslation(position);
    return t;
}
Quaterniond toQuaternion(const Ky::KyTransform& t) {
    Quaterniond q;
    t.toQuaternion(q);
    return q;
}
Ky::KyTransform inverseOf(const Ky::KyTransform& t) {
    return Ky::KyTransform(t.toMatrix44().inverse_orthogonal());
}
Polytope toPolytope(const Frustum& f) {
    Polytope region;
    for (unsigned int i = 0; i < 6; ++i) region.add(toDouble(f.getPlane(i)));
    return region;
}

}  // namespace KyMath
