// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Draws a gallery: the same control points as a polyline and as each kind of curve, at several
// sample counts; the closest points of two segments in space; a line through a sphere; points
// around a segment, each connected to the closest point on it.
//
// The exit status is 1 if a curve does not start and end at its control points, or if a distance
// does not match its points, and 2 after a one-line message for any other error.

#include "Program.h"
#include "Svg.h"

#include <KyMath/KyMath.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

using namespace KyMath;

namespace {

const std::string kInk = "#1a2440", kGrey = "#6b7485", kPale = "#aab1bf", kFaint = "#dde1e8";
const std::string kBlue = "#2f6fdb", kGreen = "#2a9d60", kAmber = "#d97a10", kRed = "#d1495b";
const double kWidth = 360, kHeight = 200, kGap = 20, kTop = 40;  // of a panel, in pixels
const double kPi = std::acos(-1.0);
const Vector3d kX(1, 0, 0), kY(0, 1, 0);
const Quaterniond kFromAbove = Quaterniond(kX, 0.4) * Quaterniond(kY, -0.5);

// One cell of the gallery. Its contents are rotated by the view, then projected along z.
struct Panel {
    Svg& svg;
    Vector3d corner;
    Quaterniond view;

    Panel(Svg& target, unsigned row, unsigned column, const std::string& title)
        : svg(target), corner(kGap + column * (kWidth + kGap), kTop + row * (kHeight + kTop), 0) {
        const Vector3d x = kX * kWidth, y = kY * kHeight;
        svg.line({corner, corner + x, corner + x + y, corner + y, corner}, kFaint, 1);
        svg.label(corner - kY * 8, title, 14, kInk);
    }

    // The origin is in the middle; y points up.
    Vector3d operator()(const Vector3d& p) const {
        const Vector3d q = view * p;
        return corner + Vector3d(kWidth / 2 + q.x(), kHeight / 2 - q.y(), 0);
    }
    Svg::Points operator()(Svg::Points points) const {
        for (Vector3d& p : points) p = (*this)(p);
        return points;
    }
    void number(const Vector3d& at, double value, const std::string& colour) {
        char text[32];
        std::snprintf(text, sizeof text, "distance %.1f", value);
        svg.label((*this)(at) + Vector3d(8, 4, 0), text, 13, colour);
    }
};

// Whether the error is within a few roundings of a value of this size.
bool check(const char* what, double error, double size) {
    const double allowed = 8 * size * std::numeric_limits<double>::epsilon();
    std::printf("%s: off by %.1e (allowed: %.1e)\n", what, error, allowed);
    return error <= allowed;
}

const Svg::Points kControls = {{-150, -60, 0}, {-105, 70, 0}, {-40, -20, 0},
                               {10, 75, 0},    {85, 60, 0},   {150, -70, 0}};

// A curve of two control points is the straight segment between them.
Svg::Points polyline(unsigned count) {
    Svg::Points points = {kControls[0]}, leg;
    for (unsigned i = 0; i < 5; ++i) {
        const unsigned samples = (count - 1) * (i + 1) / 5 - (count - 1) * i / 5 + 1;
        CreateCurve(eCurveBezier, {kControls[i], kControls[i + 1]}, samples, leg);
        points.insert(points.end(), leg.begin() + 1, leg.end());
    }
    return points;
}

// The first three are in the order of eCurveType.
const std::string kKinds[] = {"B-spline", "Bezier", "Catmull-Rom", "Polyline"};
const std::string kColours[] = {kAmber, kBlue, kGreen, kGrey};

bool drawCurve(const Panel& panel, int kind, unsigned count) {
    Svg::Points points = polyline(count);
    if (kind < 3) CreateCurve(eCurveType(kind), kControls, count, points);
    panel.svg.line(panel(kControls), kPale, 1);
    panel.svg.line(panel(points), kColours[kind], 2.2);
    const double radius = std::clamp(80.0 / count, 1.6, 3.6);
    for (const Vector3d& p : points) panel.svg.dot(panel(p), radius, kColours[kind]);
    for (const Vector3d& p : kControls) panel.svg.ring(panel(p), 5.5, kInk, 1.2);
    double shortest = HUGE_VAL, longest = 0, last = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        last = Vector3d::distance(points[i - 1], points[i]);
        shortest = std::min(shortest, last);
        longest = std::max(longest, last);
    }
    char text[80];
    std::snprintf(text, sizeof text, "steps from %.1f to %.1f, the last one %.1f", shortest,
                  longest, last);
    panel.svg.label(panel.corner + Vector3d(8, kHeight - 9, 0), text, 12, kGrey);
    return points.size() == count && points.front() == kControls.front() &&
           points.back() == kControls.back();
}

bool drawSegments(Panel panel) {
    panel.view = kFromAbove;
    const Segment3 a({-110, 40, 45}, {95, 65, -40}), b({-70, -15, -50}, {90, 10, 55});
    Vector3d onA, onB;
    const double distance = a.distanceTo(b, &onA), floor = -40;
    b.distanceTo(a, &onB);
    for (int i = -4; i <= 4; ++i) {
        panel.svg.line(panel({{i * 30.0, floor, -60}, {i * 30.0, floor, 60}}), kFaint, 1);
        panel.svg.line(panel({{-120, floor, i * 15.0}, {120, floor, i * 15.0}}), kFaint, 1);
    }
    for (const Vector3d& p : {a.p1, a.p2, b.p1, b.p2, onB}) {
        panel.svg.line(panel({p, {p.x(), floor, p.z()}}), kPale, 0.8);
    }
    panel.svg.line(panel({b.p1, b.p2}), kGreen, 3);
    panel.svg.line(panel({onA, onB}), kRed, 2);
    panel.svg.line(panel({a.p1, a.p2}), kBlue, 3);
    for (const Vector3d& p : {onA, onB}) panel.svg.dot(panel(p), 4.5, kRed);
    panel.number((onA + onB) * 0.5, distance, kRed);
    return check("distance between two segments", std::abs((onA - onB).norm() - distance),
                 distance);
}

bool drawSphere(Panel panel) {
    panel.view = kFromAbove;
    const double radius = 80;
    for (int i = 0; i < 7; ++i) {  // the equator and six meridians
        const Quaterniond turn = i == 0 ? Quaterniond(kX, kPi / 2) : Quaterniond(kY, kPi * i / 6);
        Svg::Points ring;
        for (double u = 0; u < 6.3; u += 0.05) {
            ring.push_back(turn * Vector3d(std::sin(u), std::cos(u), 0) * radius);
        }
        panel.svg.line(panel(ring), kFaint, 1);
    }
    Line3 line({-140, -5, 60}, {135, 85, -40});
    Vector3d points[2], closest, origin;
    int count = 0;
    line.distanceTo(origin, radius, &count, points);
    const double distance = line.distanceTo(origin, &closest);
    panel.svg.ring(panel(origin), radius, kPale, 1.5);
    panel.svg.line(panel({origin, closest}), kGrey, 1.5);
    panel.svg.line(panel({line.p1, points[1]}), kBlue, 3);
    panel.svg.line(panel({points[1], points[0]}), kBlue, 3, 0.35);
    panel.svg.line(panel({points[0], line.p2}), kBlue, 3);
    panel.number(closest * 0.5, distance, kGrey);
    for (const Vector3d& p : points) panel.svg.dot(panel(p), 4.5, kRed);
    const double out = std::abs(points[0].norm() - radius),
                 in = std::abs(points[1].norm() - radius);
    const double error = count == 2 ? std::max(out, in) : radius;
    return check("distance of crossing points from the centre of a sphere", error, radius);
}

void drawPoints(const Panel& panel) {
    const Segment3 segment({-70, -25, 0}, {75, 30, 0});
    for (int i = 0; i < 48; ++i) {
        const Vector3d p(150 * std::cos(kPi * i / 24), 82 * std::sin(kPi * i / 24), 0);
        panel.svg.line(panel({p, segment.closestPointTo(p)}), kPale, 1);
        panel.svg.dot(panel(p), 2.4, kGreen);
    }
    panel.svg.line(panel({segment.p1, segment.p2}), kBlue, 3);
}

int run(CLI::App& app, int argc, char** argv) {
    std::string output = "curves.svg";
    std::vector<unsigned> counts = {11, 22, 64};
    addOption(app, "--output", output, "the picture, an SVG");
    addNumber(app, "--samples", counts, 6, 1000, "points on a curve, for each column");
    parseOptions(app, argc, argv);
    requireWritable(output, ".svg");

    Svg svg(3 * kWidth + 4 * kGap, 5 * (kHeight + kTop) + kGap);
    bool exact = true;
    for (unsigned i = 0; i < 12; ++i) {
        const int kind = 3 - int(i / 3);
        const unsigned count = counts[i % 3], rest = (count - 1) % 7;  // for six control points
        std::string title = kKinds[kind] + ", " + std::to_string(count) + " samples";
        if (kind == 0 && rest == 0) title += ": a multiple of 7, plus 1";
        if (kind == 0 && rest != 0) title += ": no multiple of 7, plus 1";
        exact = drawCurve(Panel(svg, i / 3, i % 3, title), kind, counts[i % 3]) && exact;
    }
    std::printf("curves start and end at their control points: %s\n", exact ? "yes" : "no");
    exact = drawSegments(Panel(svg, 4, 0, "Closest points of two segments")) && exact;
    exact = drawSphere(Panel(svg, 4, 1, "A line through a sphere")) && exact;
    drawPoints(Panel(svg, 4, 2, "Closest points on a segment"));
    if (!exact) return 1;
    svg.save(output);
    std::printf("wrote %s\n", output.c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return runProgram("curves", "Draws curves through the same control points, and closest points.",
                      run, argc, argv);
}
