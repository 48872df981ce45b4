// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Draws the pictures of the documentation that explain conventions, into the current folder:
//
//   spaces.svg    axes and positive turns, the view of a camera, the same after the projection
//   memory.svg    sixteen values in memory, and as rows and columns
//   corners.svg   numbers of the corners of a box, sides of a plane, boxes against a plane
//   masks.svg     a walk down a tree of boxes, with the planes that remain to be tested
//   region.svg    boxes inside a region, across its edge, outside, and beyond a corner
//
// What they show comes from the library: positions, numbers, sides, masks.

#include "Program.h"
#include "Svg.h"

#include <KyMath/KyMath.h>

#include <cstdio>

using namespace KyMath;

namespace {

const std::string kInk = "#1a2440", kGrey = "#6b7485", kPale = "#aab1bf", kFaint = "#e4e7ed";
const std::string kBlue = "#2f6fdb", kGreen = "#2a9d60", kAmber = "#d97a10", kRed = "#d1495b";
const double kPi = std::acos(-1.0);
const Vector3d kX(1, 0, 0), kY(0, 1, 0), kZ(0, 0, 1);

// "(1, 0, -0.5)"
std::string text(const Vector3d& v) {
    char buffer[80];
    std::snprintf(buffer, sizeof buffer, "(%.2g, %.2g, %.2g)", v.x() + 0.0, v.y() + 0.0,
                  v.z() + 0.0);
    return buffer;
}

std::string text(double v) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.3g", v + 0.0);
    return buffer;
}

// Shows a space, turned, with its origin at a place of the picture and y upwards.
struct Space {
    Svg& svg;
    Vector3d origin;
    Quaterniond turn;
    double scale;

    Vector3d operator()(const Vector3d& p) const {
        const Vector3d q = turn * p * scale;
        return origin + Vector3d(q.x(), -q.y(), 0);
    }
    void line(const Svg::Points& points, const std::string& colour, double thickness,
              double opacity = 1) const {
        Svg::Points drawn;
        for (const Vector3d& p : points) drawn.push_back((*this)(p));
        svg.line(drawn, colour, thickness, opacity);
    }
    void area(const Svg::Points& points, const std::string& colour, double opacity) const {
        Svg::Points drawn;
        for (const Vector3d& p : points) drawn.push_back((*this)(p));
        svg.area(drawn, colour, opacity);
    }
    void label(const Vector3d& p, const Vector3d& offset, const std::string& what,
               const std::string& colour, const char* anchor = "middle") const {
        svg.label((*this)(p) + offset, what, 14, colour, anchor);
    }
    void axis(const Vector3d& from, const Vector3d& to, const std::string& name,
              const std::string& colour) const {
        svg.arrow((*this)(from), (*this)(to), colour, 2.4);
        Vector3d along = (*this)(to) - (*this)(from);
        along.normalize();
        svg.label((*this)(to) + along * 13 + kY * 5, name, 15, colour, "middle");
    }
};

// Spaces ---------------------------------------------------------------------------------------

void drawWorld(const Space& space) {
    const struct {
        Vector3d axis, from;
        const char *name, *colour;
    } axes[] = {{kX, kY, "x", "#d1495b"}, {kY, kZ, "y", "#2a9d60"}, {kZ, kX, "z", "#2f6fdb"}};
    for (const auto& [axis, from, name, colour] : axes) {
        Svg::Points arc;
        for (int i = 0; i <= 20; ++i) {
            arc.push_back(axis * 0.62 + Quaterniond(axis, 0.4 + 0.24 * i) * from * 0.16);
        }
        space.axis(Vector3d(), axis, name, colour);
        space.line(arc, colour, 1.5);
        space.svg.arrow(space(arc[19]), space(arc[20]), colour, 1.5);
    }
}

// The eight corners of the view volume as clip space has them: bit 0 of the index is x, bit 1 y,
// bit 2 depth, from 0 to 1.
void drawVolume(const Space& space, const Matrix44d& fromClip) {
    const BoundingBoxd clip(-1, -1, 0, 1, 1, 1);
    Vector3d p[8];
    for (unsigned i = 0; i < 8; ++i) {
        p[i] = Transformation::transformPositionT(fromClip, clip.corner(i));
    }
    space.area({p[0], p[1], p[3], p[2]}, kAmber, 0.3);
    for (unsigned i = 0; i < 4; ++i) space.line({p[i], p[i + 4]}, kGrey, 1.2);
    space.line({p[0], p[1], p[3], p[2], p[0]}, kAmber, 2);
    space.area({p[4], p[5], p[7], p[6]}, kBlue, 0.25);
    space.line({p[4], p[5], p[7], p[6], p[4]}, kBlue, 2);
}

void drawSpaces() {
    Svg svg(900, 360);
    const Quaterniond aside = Quaterniond(kX, 0.32) * Quaterniond(kY, -1.0);
    const double zNear = 1.5, zFar = 5;
    const Matrix44d projection = Transformation::createPerspectiveT(0.62, 1.3, zNear, zFar);
    const auto depth = [&](double z) {
        return "depth " + text(Transformation::transformPositionT(projection, kZ * -z).z());
    };

    svg.label({20, 30, 0}, "Axes are right-handed", 16, kInk);
    drawWorld({svg, {120, 215, 0}, Quaterniond(kX, -1.22) * Quaterniond(kZ, -0.55), 125});
    svg.label({20, 330, 0}, "Arcs: turns by a positive angle.", 14, kGrey);
    svg.label({20, 348, 0}, "Any axis may point up.", 14, kGrey);

    svg.label({290, 30, 0}, "A camera looks along its -z", 16, kInk);
    const Space camera = {svg, {345, 215, 0}, aside, 50};
    drawVolume(camera, projection.inverse());
    camera.line({Vector3d(), kZ * -zFar}, kGrey, 1);
    camera.axis(Vector3d(), kX * 1.4, "x", kRed);
    camera.axis(Vector3d(), kY * 1.6, "y", kGreen);
    camera.axis(Vector3d(), kZ * 1.1, "z", kBlue);
    svg.dot(camera(Vector3d()), 6, kInk);
    svg.label({290, 330, 0}, "Blue: the near face, z = -" + text(zNear), 14, kBlue);
    svg.label({290, 348, 0}, "Amber: the far face, z = -" + text(zFar), 14, kAmber);

    svg.label({610, 30, 0}, "After the projection, divided by w", 16, kInk);
    const Space clip = {svg, {765, 190, 0}, aside, 72};
    drawVolume(clip, Matrix44d());
    for (const double x : {-1.0, 1.0}) {  // opposite corners of the near and of the far face
        const bool far = x > 0;
        const double z = far ? zFar : zNear, y = z * std::tan(0.31);
        const Vector3d p = Transformation::transformPositionT(
            projection, Vector3d(x * 1.3 * y, (far ? 1 : -1) * y, -z));
        svg.dot(clip(p), 4, kInk);
        clip.label(p, {0, far ? -10.0 : 20.0, 0}, text(p), kInk);
    }
    svg.label({610, 330, 0}, "Blue: " + depth(zNear), 14, kBlue);
    svg.label({610, 348, 0}, "Amber: " + depth(zFar), 14, kAmber);
    const Matrix44d box = Transformation::createOrthographicT(-1.0, 1.0, -1.0, 1.0, zNear, zFar);
    const double last = Transformation::transformPositionT(box, kZ * -zFar).z();
    svg.label({722, 348, 0}, "(orthographic: " + text(last) + ")", 14, kGrey);
    svg.save("spaces.svg");
}

// Memory ---------------------------------------------------------------------------------------

void drawMemory() {
    Svg svg(900, 300);
    const std::string colours[] = {kRed, kGreen, kBlue, kAmber};
    Matrix44d m;
    double* const values = m;
    for (int i = 0; i < 16; ++i) values[i] = i;
    const Matrix44d moved = Transformation::createTranslationT(7.0, 8.0, 9.0);

    const auto cell = [&](double x, double y, const std::string& value, const std::string& colour) {
        svg.area({{x, y, 0}, {x + 48, y, 0}, {x + 48, y + 34, 0}, {x, y + 34, 0}}, colour, 0.22);
        svg.line({{x, y, 0}, {x + 48, y, 0}, {x + 48, y + 34, 0}, {x, y + 34, 0}, {x, y, 0}},
                 colour, 1.2);
        svg.label({x + 24, y + 22, 0}, value, 14, kInk, "middle");
    };
    svg.label({20, 28, 0}, "In memory: column after column", 16, kInk);
    for (int i = 0; i < 16; ++i) {
        const int column = i / 4;
        cell(20 + 52 * i + 8 * column, 42, "[" + std::to_string(i) + "]", colours[column]);
    }
    svg.label({20, 118, 0}, "As rows and columns", 16, kInk);
    svg.label({330, 118, 0}, "A translation by (7, 8, 9)", 16, kInk);
    for (unsigned long r = 0; r < 4; ++r) {
        for (unsigned long c = 0; c < 4; ++c) {
            cell(20 + 52.0 * double(c), 132 + 38.0 * double(r), "[" + text(m(r, c)) + "]",
                 colours[c]);
            cell(330 + 52.0 * double(c), 132 + 38.0 * double(r), text(moved(r, c)), colours[c]);
        }
    }
    const char* const notes[] = {"m(r, c) is m[c][r],",
                                 "value 4 c + r.",
                                 "",
                                 "Columns 0, 1, 2 are where the axes",
                                 "go, column 3 is the translation.",
                                 "",
                                 "A program that writes row after row",
                                 "reads this as the transpose."};
    for (int i = 0; i < 8; ++i) svg.label({600, 142 + 19.0 * i, 0}, notes[i], 14, kGrey);
    svg.save("memory.svg");
}

// Corners and sides ----------------------------------------------------------------------------

void drawCorners(const Space& space) {
    const BoundingBoxd box(-1, -0.8, -0.8, 1, 0.8, 0.8);
    for (unsigned i = 0; i < 8; ++i) {
        for (unsigned bit : {1u, 2u, 4u}) {
            if (i & bit) continue;
            const bool hidden = i == 2 || (i | bit) == 2;  // ends at the corner at the back
            space.line({box.corner(i), box.corner(i | bit)}, hidden ? kPale : kGrey, 1.5);
        }
    }
    for (unsigned i = 0; i < 8; ++i) {
        const Vector3d p = space(box.corner(i));
        space.svg.dot(p, 13, "white");
        space.svg.ring(p, 13, kInk, 1.5);
        space.svg.label(p + kY * 5, std::to_string(i), 14, kInk, "middle");
    }
    const Vector3d at = box.corner(0);
    space.axis(at + kX * 0.25, at + kX * 0.95, "x", kRed);
    space.axis(at + kY * 0.25, at + kY * 0.8, "y", kGreen);
    space.axis(at + kZ * 0.25, at + kZ * 0.8, "z", kBlue);
}

const Planed kSlanted(Vector3d(0.6, 0.8, 0), Vector3d());

void drawSides(const Space& space) {
    const Vector3d normal = kSlanted.getNormal(), along(0.8, -0.6, 0);
    space.line({along * -1.6, along * 1.6}, kInk, 2.5);
    space.axis(along * -0.9, along * -0.9 + normal * 0.7, "normal", kGrey);
    for (const double distance : {0.75, 0.0, -0.75}) {
        const Vector3d p = along * 0.1 + normal * distance;
        const double found = kSlanted.distance(p);
        const bool on = std::abs(found) < 1e-15;
        space.svg.dot(space(p), 5, on ? kGrey : found > 0 ? kGreen : kRed);
        space.label(p, {found < -0.1 ? -12.0 : 12.0, on ? -8.0 : 5.0, 0},
                    "distance " + text(on ? 0 : found), kInk, found < -0.1 ? "end" : "start");
    }
}

void drawBoxes(const Space& space) {
    const Vector3d along(0.8, -0.6, 0);
    space.line({along * -1.6, along * 1.6}, kInk, 2.5);
    for (const Vector3d& at :
         {Vector3d(0.55, 0.75, 0), Vector3d(0.1, -0.15, 0), {-0.85, -0.7, 0}}) {
        const Vector3d half(0.4, 0.3, 0);
        const BoundingBoxd box(at - half, at + half);
        const int side = kSlanted.intersect(box);
        const std::string& colour = side > 0 ? kGreen : side < 0 ? kRed : kAmber;
        space.area({box.corner(0), box.corner(1), box.corner(3), box.corner(2)}, colour, 0.35);
        space.svg.dot(space(box.corner(kSlanted.lowerBBCorner())), 5, kInk);
        space.svg.ring(space(box.corner(kSlanted.upperBBCorner())), 5, kInk, 2);
        space.label(at, {0, 5, 0}, std::to_string(side), kInk);
    }
}

void drawCornersAndSides() {
    Svg svg(900, 330);
    svg.label({20, 30, 0}, "box.corner(i)", 16, kInk);
    drawCorners({svg, {150, 165, 0}, Quaterniond(kX, -1.15) * Quaterniond(kZ, -0.5), 85});
    svg.label({20, 298, 0}, "Bit 0 of i chooses the larger x,", 14, kGrey);
    svg.label({20, 316, 0}, "bit 1 the larger y, bit 2 the larger z.", 14, kGrey);

    svg.label({320, 30, 0}, "plane.distance(p)", 16, kInk);
    drawSides({svg, {430, 165, 0}, Quaterniond(), 85});
    svg.label({320, 298, 0}, "Positive on the side of the normal.", 14, kGrey);
    svg.label({320, 316, 0}, "In metres if the normal has length 1.", 14, kGrey);

    svg.label({620, 30, 0}, "plane.intersect(box)", 16, kInk);
    drawBoxes({svg, {750, 165, 0}, Quaterniond(), 95});
    svg.label({620, 298, 0}, "1 if the lower corner, a dot, is inside,", 14, kGrey);
    svg.label({620, 316, 0}, "-1 if the upper one, a ring, is outside.", 14, kGrey);
    svg.save("corners.svg");
}

// Masks ----------------------------------------------------------------------------------------

struct Node {
    const char* name;
    BoundingBoxd box;
    std::vector<Node> children;
};

// The town of the guide, seen from above, and a row for each box that is visited.
struct Walk {
    Svg& svg;
    Polytope view;
    int rows = 0, tested = 0;
    Space map = {svg, {210, 290, 0}, Quaterniond(), 3.1};

    void row(const Node& node, int depth) {
        const double y = 88 + 34.0 * rows++;
        const unsigned before = view.getMaskStack().back();
        const bool seen = view.contains(node.box);
        const unsigned after = view.getCurrentMask();
        const std::string& colour = !seen ? kRed : after ? kAmber : kGreen;
        outline(node, depth > 1, colour);
        svg.label({440.0 + 18 * depth, y, 0}, node.name, 15, kInk);
        bool open = true;  // no plane so far has the box outside
        for (unsigned i = 0; i < 6; ++i) {
            const double x = 545 + 24.0 * i;
            if (!(before >> i & 1)) {
                svg.label({x + 8, y, 0}, "-", 15, kPale, "middle");
                continue;
            }
            const int side = view.getPlanes()[i].intersect(node.box);
            const std::string& found = side < 0 ? kRed : side > 0 ? kGreen : kAmber;
            square(x, y, open ? found : kFaint, open ? 1 : 0.8);
            tested += open;
            open = open && side >= 0;
        }
        const std::string result = !seen ? "out of view" : after ? "in part" : "wholly in view";
        svg.label({720, y, 0}, result, 15, colour);
        if (!seen) return;
        view.pushCurrentMask();
        for (const Node& child : node.children) row(child, depth + 1);
        view.popCurrentMask();
    }

    void square(double x, double y, const std::string& colour, double opacity) {
        svg.area({{x, y - 13, 0}, {x + 16, y - 13, 0}, {x + 16, y + 3, 0}, {x, y + 3, 0}}, colour,
                 opacity);
    }

    void outline(const Node& node, bool beside, const std::string& colour) {
        const BoundingBoxd& box = node.box;
        const Svg::Points around = {box.corner(0), box.corner(1), box.corner(3), box.corner(2),
                                    box.corner(0)};
        map.area(around, colour, 0.16);
        map.line(around, colour, 1.5);
        const Vector3d offset(beside ? 4 : 0, beside ? 10 : -5, 0);
        svg.label(map(box.corner(beside ? 3 : 2)) + offset, node.name, 13, kInk);
    }
};

void drawMasks() {
    const Node bench = {"bench", BoundingBoxd(-1, 9, 0, 1, 10, 1), {}};
    const Node tree = {"tree", BoundingBoxd(2, 15, 0, 5, 18, 6), {}};
    const Node shop = {"shop", BoundingBoxd(15, 25, 0, 22, 35, 9), {}};
    const Node pump = {"pump", BoundingBoxd(50, 5, 0, 52, 6, 2), {}};
    const Node lorry = {"lorry", BoundingBoxd(-40, -18, 0, -34, -15, 3), {}};
    const Node park = {"park", BoundingBoxd(-5, 5, 0, 5, 30, 6), {bench, tree}};
    const Node street = {"street", BoundingBoxd(10, 0, 0, 60, 40, 9), {shop, pump}};
    const Node depot = {"depot", BoundingBoxd(-60, -20, 0, -20, -12, 9), {lorry}};
    const Node town = {"town", BoundingBoxd(-60, -20, 0, 60, 60, 9), {park, street, depot}};

    const Matrix44f camera = Transformation::createCameraLookAtT(
        Vector3f(0, -10, 2), Vector3f(0, 0, 2), Vector3f(0, 0, 1));
    const Matrix44f projection = Transformation::createPerspectiveT(1.0f, 1.5f, 1.0f, 100.0f);
    Frustum frustum;
    frustum.setToWorldSpaceFrustum(camera.inverse_orthogonal(), projection);

    Svg svg(900, 400);
    Walk walk = {svg, toPolytope(frustum)};
    svg.label({20, 30, 0}, "From above", 16, kInk);
    svg.label({440, 30, 0}, "Each box that is visited, and its planes", 16, kInk);
    for (unsigned i = 0; i < 6; ++i) {
        svg.label({553 + 24.0 * i, 58, 0}, std::string(1, "LRBTFN"[i]), 14, kGrey, "middle");
    }
    walk.row(town, 0);
    const Matrix44f toWorld =
        Matrix44f::multiply(projection, camera.inverse_orthogonal()).inverse();
    for (const float x : {-1.0f, 1.0f}) {  // the edges of the view, as far as the town goes
        Vector3f begin, end;
        getWorldSpaceSegment(toWorld, Vector3f(x, 0, 0), begin, end);
        end = begin + (end - begin) * ((66 - begin.y()) / (end.y() - begin.y()));
        walk.map.line({toDouble(begin), toDouble(end)}, kInk, 1.5);
    }
    svg.dot(walk.map(Vector3d(0, -10, 0)), 5, kInk);
    const std::string count = std::to_string(walk.tested) + " tests instead of " +
                              std::to_string(6 * walk.rows) + ": a plane with the box";
    svg.label({440, 360, 0}, count, 14, kGrey);
    svg.label({440, 378, 0}, "wholly inside (green) is not tested for its children (-).", 14,
              kGrey);
    svg.label({20, 378, 0}, "L, R, B, T, F, N: left, right, bottom, top, far, near.", 14, kGrey);
    svg.save("masks.svg");
}

// A region ---------------------------------------------------------------------------------------

void drawRegion() {
    const Vector3d corners[] = {{-3, 0, 0}, {3, -2, 0}, {3, 2, 0}};
    const struct {
        const char *name, *where;
        BoundingBoxd box;
    } things[] = {{"A", "inside", {0.6, -0.5, -1, 1.8, 0.5, 1}},
                  {"B", "across an edge", {-2.2, 0.1, -1, -1, 0.9, 1}},
                  {"C", "outside", {-1.6, -2, -1, -0.2, -1.2, 1}},
                  {"D", "outside, near a corner", {2.7, 2.05, -1, 4.1, 2.7, 1}}};
    Svg svg(900, 300);
    const Space map = {svg, {235, 165, 0}, Quaterniond(), 50};
    Polytope region;
    for (int i = 0; i < 3; ++i) {  // upright planes through neighbouring corners
        region.add(Planed(corners[i], corners[(i + 1) % 3], corners[i] - kZ));
    }
    map.area({corners[0], corners[1], corners[2]}, kGrey, 0.15);
    for (int i = 0; i < 3; ++i) {
        const Vector3d along = corners[(i + 1) % 3] - corners[i];
        map.line({corners[i] - along, corners[i] + along * 2}, kPale, 1);
        map.line({corners[i], corners[i] + along}, kInk, 2);
    }
    double y = 96;
    svg.label({500, y - 32, 0}, "box", 14, kGrey);
    svg.label({720, y - 32, 0}, "contains", 14, kGrey);
    svg.label({800, y - 32, 0}, "in the mask", 14, kGrey);
    for (const auto& [name, where, box] : things) {
        const bool seen = region.contains(box);
        const unsigned mask = seen ? region.getCurrentMask() : 0;
        const std::string& colour = !seen ? kRed : mask ? kAmber : kGreen;
        map.area({box.corner(0), box.corner(1), box.corner(3), box.corner(2)}, colour, 0.4);
        map.label(box.center(), {0, 5, 0}, name, kInk);
        svg.label({508, y, 0}, name, 15, kInk);
        svg.label({720, y, 0}, seen ? "true" : "false", 15, colour);
        const unsigned across = (mask & 1) + (mask >> 1 & 1) + (mask >> 2 & 1);
        svg.label({800, y, 0}, seen ? counted(across, "plane") : "-", 15, colour);
        svg.label({545, y, 0}, where, 14, kInk);
        y += 32;
    }
    svg.label({500, 250, 0}, "No single plane has all of D outside.", 14, kGrey);
    svg.save("region.svg");
}

int run(CLI::App& app, int argc, char** argv) {
    parseOptions(app, argc, argv);
    drawSpaces();
    drawMemory();
    drawCornersAndSides();
    drawMasks();
    drawRegion();
    std::printf("wrote spaces.svg, memory.svg, corners.svg, masks.svg, region.svg\n");
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return runProgram("diagrams", "Draws the conventions of the library into the current folder.",
                      run, argc, argv);
}
