// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Tables.h"

namespace KyMath::python {

namespace {

using V = Vector3d;

/// The gap, the number of intersections, and the points that come with them: one or two.
std::tuple<double, int, std::vector<V>> distanceToSphere(Line3& line, const V& center,
                                                         double radius) {
    int count;
    std::vector<V> points(2);
    const double gap = line.distanceTo(center, radius, &count, points.data());
    points.resize(count == 2 ? 2 : 1);
    return {gap, count, points};
}

/// What a line and a segment share.
template <class L>
void addLine(Type<L>& type) {
    init<make<L>, make<L, const V&, const V&>>(type, "|first second");
    attribute<[](L& line) -> V& { return line.p1; }>(type, "p1");
    attribute<[](L& line) -> V& { return line.p2; }>(type, "p2");
    def<[](const L& line) { return line.isValid(); }>(type, "isValid");
    def<[](const L& line, const L& other) { return line.isParallel(other); }>(type, "isParallel",
                                                                              "line");
    def<static_cast<double (L::*)(const V&) const>(&L::closestPointFactor),
        static_cast<double (L::*)(const L&) const>(&L::closestPointFactor)>(
        type, "closestPointFactor", "q|line");
    def<static_cast<V (L::*)(const V&) const>(&L::closestPointTo),
        static_cast<V (L::*)(const L&) const>(&L::closestPointTo)>(type, "closestPointTo",
                                                                   "q|line");
    type.slot(Py_tp_str, stream<L>);
}

using Points = std::vector<V>;

/// The points of a curve, or nothing for too few control points or samples.
template <auto kCreate, class... A>
std::optional<Points> curve(A... a) {
    Points points;
    return kCreate(static_cast<A>(a)..., points) ? std::optional(points) : std::nullopt;
}

}  // namespace

void addLines(PyObject* module) {
    Type<Line3> line;
    addLine(line);
    def<distanceTo<Line3, V>, distanceTo<Line3, Line3>, distanceToSphere>(line, "distanceTo",
                                                                          "q|line|center radius");
    line.addTo(module);
    Type<Segment3> segment;
    addLine(segment);
    def<distanceTo<Segment3, V>, distanceTo<Segment3, Segment3>>(segment, "distanceTo",
                                                                 "q|segment");
    segment.addTo(module);
    for (const auto& [name, type] :
         {std::pair("eCurveBSpline", eCurveBSpline), std::pair("eCurveBezier", eCurveBezier),
          std::pair("eCurveCatmullRom", eCurveCatmullRom)}) {
        check(PyModule_AddIntConstant(module, name, type));
    }
    using N = unsigned;
    Namespace space{"kymath"};
    def<curve<CreateLinearInterpolation, const V&, const V&, N>>(space, "CreateLinearInterpolation",
                                                                 "a b count");
    def<curve<CreateBezier, const Points&, N>>(space, "CreateBezier", "controls count");
    def<curve<CreateCatmullRomSpline, const Points&, N>>(space, "CreateCatmullRomSpline",
                                                         "controls count");
    def<curve<CreateBSpline, const Points&, N>>(space, "CreateBSpline", "controls count");
    def<curve<CreateCurve, eCurveType, const Points&, N>>(space, "CreateCurve",
                                                          "type controls count");
    space.addTo(module);
    Namespace rays{"Rays"};
    def<kMeetBox<double>, meet<double, 2, BoundingSphere>, kMeetPlane<double>,
        kMeetTriangle<double>, kMeetBox<float>, kMeetPlane<float>, kMeetTriangle<float>>(
        rays, "intersect",
        "origin direction box|origin direction sphere|origin direction plane|origin direction a b "
        "c|origin direction box|origin direction plane|origin direction a b c");
    rays.addAsMember(module);
}

}  // namespace KyMath::python
