// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Tables.h"

namespace KyMath::python {

namespace {

using S = BoundingSphere;

template <Scalar T>
void addBoundingBox(PyObject* module) {
    using B = BoundingBoxT<T>;
    using V = Vector3T<T>;
    Type<B> type;
    init<make<B>, make<B, T, T, T, T, T, T>, make<B, const V&, const V&>, read<B>>(
        type, "|xMin yMin zMin xMax yMax zMax|min max|corners");
    def<&B::init>(type, "init");
    def<static_cast<void (B::*)(T, T, T, T, T, T)>(&B::set),
        static_cast<void (B::*)(const V&, const V&)>(&B::set)>(
        type, "set", "xMin yMin zMin xMax yMax zMax|min max");
    def<static_cast<V& (B::*)()>(&B::getMin)>(type, "getMin");
    def<static_cast<V& (B::*)()>(&B::getMax)>(type, "getMax");
    attribute<Component<B, T>(&B::xMin)>(type, "xMin");
    attribute<Component<B, T>(&B::yMin)>(type, "yMin");
    attribute<Component<B, T>(&B::zMin)>(type, "zMin");
    attribute<Component<B, T>(&B::xMax)>(type, "xMax");
    attribute<Component<B, T>(&B::yMax)>(type, "yMax");
    attribute<Component<B, T>(&B::zMax)>(type, "zMax");
    def<&B::corner>(type, "corner", "i");
    def<&B::valid>(type, "valid");
    def<&B::center>(type, "center");
    def<&B::getBBSize>(type, "getBBSize");
    def<&B::radius>(type, "radius");
    def<&B::radius2>(type, "radius2");
    def<static_cast<void (B::*)(T, T, T)>(&B::expandBy),
        static_cast<void (B::*)(const V&)>(&B::expandBy),
        static_cast<void (B::*)(const S&)>(&B::expandBy)>(type, "expandBy", "x y z|p|s");
    op<Py_nb_add, static_cast<B (B::*)(const B&) const>(&B::operator+),
       static_cast<B (B::*)(const S&) const>(&B::operator+)>(type);
    opInPlace<Py_nb_inplace_add, static_cast<B& (B::*)(const B&)>(&B::operator+=),
              static_cast<B& (B::*)(const S&)>(&B::operator+=)>(type);
    def<&B::contains>(type, "contains", "p");
    def<&B::intersects>(type, "intersects", "b");
    def<static_cast<B (B::*)(const B&) const>(&B::intersect),
        static_cast<bool (B::*)(const V&, const V&) const>(&B::intersect)>(type, "intersect",
                                                                           "b|origin direction");
    defStatic<&B::isBetween>(type, "isBetween", "value low high");
    def<&B::transform>(type, "transform", "m");
    def<&B::inverseTransform>(type, "inverseTransform", "m");
    type.addTo(module);
}

void addBoundingSphere(PyObject* module) {
    using V = Vector3d;
    Type<S> type;
    init<make<S>, make<S, const V&, double>>(type, "|center radius");
    def<&S::init>(type, "init");
    def<&S::set>(type, "set", "center radius");
    def<static_cast<V& (S::*)()>(&S::center)>(type, "center");
    attribute<Component<S, double>(&S::radius)>(type, "radius");
    def<&S::valid>(type, "valid");
    def<static_cast<void (S::*)(const V&)>(&S::expandBy),
        static_cast<void (S::*)(const S&)>(&S::expandBy),
        static_cast<void (S::*)(const BoundingBoxd&)>(&S::expandBy)>(type, "expandBy", "p|s|b");
    def<static_cast<void (S::*)(const V&)>(&S::expandRadiusBy),
        static_cast<void (S::*)(const S&)>(&S::expandRadiusBy),
        static_cast<void (S::*)(const BoundingBoxd&)>(&S::expandRadiusBy)>(type, "expandRadiusBy",
                                                                           "p|s|b");
    type.addTo(module);
}

template <Scalar T>
void addPlane(PyObject* module) {
    using P = PlaneT<T>;
    using V = Vector3T<T>;
    using V4 = Vector4T<T>;
    Type<P> type;
    init<make<P>, make<P, T, T, T, T>, make<P, const V4&>, make<P, const V&, const V&>,
         make<P, const V&, const V&, const V&>, make<P, const P&>>(
        type, "|a b c d|v|normal point|p1 p2 p3|plane");
    def<static_cast<void (P::*)(T, T, T, T)>(&P::set),
        static_cast<void (P::*)(const V4&)>(&P::set)>(type, "set", "a b c d|v");
    def<&P::getAsVector4>(type, "getAsVector4");
    def<&P::getNormal>(type, "getNormal");
    def<&P::upperBBCorner>(type, "upperBBCorner");
    def<&P::lowerBBCorner>(type, "lowerBBCorner");
    def<&P::distance>(type, "distance", "p");
    def<&P::intersect>(type, "intersect", "box");
    def<&P::intersectBoundingSphere>(type, "intersectBoundingSphere", "center radius");
    def<&P::makeUnitLength>(type, "makeUnitLength");
    def<&P::calculateUpperLowerBBCorners>(type, "calculateUpperLowerBBCorners");
    def<&P::transform>(type, "transform", "m");
    def<&P::transformProvidingInverse>(type, "transformProvidingInverse", "m");
    type.addTo(module);
}

void addPolytope(PyObject* module) {
    using P = Polytope;
    using Planes = std::vector<Planed>;
    // C++ takes it for granted that there is something to pop, and leaves something to contains().
    const auto popCurrentMask = [](P& p) {
        if (p.getMaskStack().size() < 2) raise(PyExc_IndexError, "nothing was pushed");
        p.popCurrentMask();
    };
    Type<P> type;
    init<make<P>, make<P, const Planes&>>(type, "|planes");
    def<&P::set>(type, "set", "planes");
    def<&P::add>(type, "add", "plane");
    def<&P::clear>(type, "clear");
    def<&P::setToBoundingBox>(type, "setToBoundingBox", "box");
    def<&P::getPlanes>(type, "getPlanes");
    def<&P::setupMask>(type, "setupMask");
    def<&P::pushCurrentMask>(type, "pushCurrentMask");
    def<popCurrentMask>(type, "popCurrentMask");
    def<&P::getCurrentMask>(type, "getCurrentMask");
    def<&P::getMaskStack>(type, "getMaskStack");
    def<&P::contains>(type, "contains", "box");
    def<&P::transformProvidingInverse>(type, "transformProvidingInverse", "m");
    def<&P::transform>(type, "transform", "m");
    type.addTo(module);
}

/// As repr() and pickle hold it.
Frustum fromPlanes(const std::vector<Planef>& planes) {
    if (planes.size() != 6) raise(PyExc_ValueError, "a frustum has six planes");
    return frustumOf(planes);
}

void addFrustum(PyObject* module) {
    using F = Frustum;
    Type<F> type;
    init<make<F>, fromPlanes>(type, "|planes");
    enumerator<F::eLeft>(type, "eLeft");
    enumerator<F::eRight>(type, "eRight");
    enumerator<F::eBottom>(type, "eBottom");
    enumerator<F::eTop>(type, "eTop");
    enumerator<F::eFar>(type, "eFar");
    enumerator<F::eNear>(type, "eNear");
    def<&F::setToWorldSpaceFrustum>(type, "setToWorldSpaceFrustum", "view projection");
    def<[](const F& f, Index<6> i) -> const Planef& { return f.getPlane(i); }>(type, "getPlane",
                                                                               "i");
    type.addTo(module);
}

}  // namespace

void addBounds(PyObject* module) {
    addBoundingBox<float>(module);
    addBoundingBox<double>(module);
    addBoundingSphere(module);
    addPlane<float>(module);
    addPlane<double>(module);
    addPolytope(module);
    addFrustum(module);
    Namespace space{"kymath"};
    def<worldSpaceSegment>(space, "getWorldSpaceSegment", "m p");
    def<static_cast<Vector2f (*)(const Vector2d&)>(toFloat),
        static_cast<Vector3f (*)(const Vector3d&)>(toFloat),
        static_cast<Vector4f (*)(const Vector4d&)>(toFloat),
        static_cast<Quaternionf (*)(const Quaterniond&)>(toFloat),
        static_cast<Matrix44f (*)(const Matrix44d&)>(toFloat),
        static_cast<Matrix44f (*)(const KyTransform&)>(toFloat),
        static_cast<BoundingBoxf (*)(const BoundingBoxd&)>(toFloat),
        static_cast<Planef (*)(const Planed&)>(toFloat)>(space, "toFloat", "v|v|v|q|m|t|b|p");
    def<static_cast<Vector2d (*)(const Vector2f&)>(toDouble),
        static_cast<Vector3d (*)(const Vector3f&)>(toDouble),
        static_cast<Vector4d (*)(const Vector4f&)>(toDouble),
        static_cast<Quaterniond (*)(const Quaternionf&)>(toDouble),
        static_cast<Matrix44d (*)(const Matrix44f&)>(toDouble),
        static_cast<BoundingBoxd (*)(const BoundingBoxf&)>(toDouble),
        static_cast<Planed (*)(const Planef&)>(toDouble)>(space, "toDouble", "v|v|v|q|m|b|p");
    def<&toTransform>(space, "toTransform", "position q");
    def<&KyMath::toQuaternion>(space, "toQuaternion", "t");
    def<&inverseOf>(space, "inverseOf", "t");
    def<&toPolytope>(space, "toPolytope", "f");
    space.addTo(module);
}

}  // namespace KyMath::python
