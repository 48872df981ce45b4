// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Culls a real landscape with huts and trees against a camera, and draws the result:
//
//   1. the scene: boxes in world space, many placed by a transformation, in a tree of boxes;
//   2. the camera: view and projection matrices, and the planes of the view volume from them;
//   3. culling down the tree, where a box is tested only against planes that its parent straddles,
//      the same in one call, and box by box, which must all give the same result;
//   4. a comparison of the same planes in float, as a renderer uses them, with those in double;
//   5. the picture from above: green is wholly in view, amber partly, blue not at all.
//
// World coordinates are metres: x east, y north, z up. The exit status is 1 if a check of 3 or 4
// fails, and 2 after a one-line message for any other error.

#include "HeightField.h"
#include "Map.h"
#include "Program.h"

#include <KyMath/KyMath.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <random>
#include <utility>

using namespace KyMath;

namespace {

// 1. The scene ---------------------------------------------------------------------------------

struct Item {
    BoundingBoxd box;
    bool isTile;  // of the ground; otherwise a hut or a tree
};

// A box around everything below it: up to four nodes, or a tile and the objects on it, which are
// the scene's items from begin to end.
struct Node {
    BoundingBoxd box;
    std::vector<Node> children;
    std::size_t begin, end;
};

struct Scene {
    HeightField ground;
    std::size_t objects;                       // huts and trees to place
    std::vector<Item> items = {};              // in the order of the tree
    std::size_t cells = 0, placed = 0;         // cells visited and objects placed so far
    std::mt19937 random = std::mt19937(2026);  // gives the same numbers on every system

    double uniform(double a, double b) {
        return a + (b - a) * double(random()) / 4294967295.0;
    }
};

// From model space to the world: scaled, rotated about z, set on the ground. The world box contains
// the rotated box, but is not the smallest that does.
BoundingBoxd placeObject(Scene& scene, double x, double y) {
    const double size = scene.uniform(0.7, 1.5), turn = scene.uniform(-3.1, 3.1);
    const Vector3d foot(x, y, scene.ground.heightAt(x, y));
    BoundingBoxd box(-6, -4, 0, 6, 4, 5);                         // a hut
    if (scene.uniform(0, 1) < 0.6) box.set(-3, -3, 0, 3, 3, 14);  // a tree
    box.transform(
        Transformation::composeT(Vector3d(size, size, size), Vector3d(0, 0, turn), foot, 1.0));
    return box;
}

// Builds the node for cells [c0, c1) by [r0, r1) of the ground. Culling relies only on each box
// containing all the boxes below it.
Node buildTree(Scene& scene, std::size_t c0, std::size_t c1, std::size_t r0, std::size_t r1) {
    const auto middle = [](std::size_t a, std::size_t b, std::size_t tile) {
        return std::min(b, a + (b - a + 2 * tile - 1) / (2 * tile) * tile);
    };
    const std::size_t c[] = {c0, middle(c0, c1, 9), c1}, r[] = {r0, middle(r0, r1, 7), r1};
    Node node = {BoundingBoxd(), {}, scene.items.size(), 0};
    if (c[1] == c1 && r[1] == r1) {  // a tile of at most 9 by 7 cells
        const BoundingBoxd tile = scene.ground.box(c0, c1, r0, r1);
        scene.items.push_back({tile, true});
        // One tile in six, and the last one, has a hamlet with the objects due for all cells so
        // far.
        const std::size_t all = (scene.ground.columns - 1) * (scene.ground.rows - 1);
        scene.cells += (c1 - c0) * (r1 - r0);
        const bool hamlet = scene.uniform(0, 6) < 1 || scene.cells == all;
        const std::size_t due = hamlet ? scene.objects * scene.cells / all : 0;
        for (; scene.placed < due; ++scene.placed) {
            const Vector3d a{scene.uniform(0, 0.5), scene.uniform(0, 0.5), 0};
            const Vector3d b{scene.uniform(0, 0.5), scene.uniform(0, 0.5), 0};
            const Vector3d p = tile.getMin() + Vector3d::multComp(a + b, tile.getBBSize());
            scene.items.push_back({placeObject(scene, p.x(), p.y()), false});
        }
        for (auto i = node.begin; i < scene.items.size(); ++i) node.box += scene.items[i].box;
    } else {
        for (const auto& [i, j] : {std::pair(0, 0), {1, 0}, {0, 1}, {1, 1}}) {
            if (c[i] == c[i + 1] || r[j] == r[j + 1]) continue;  // a single row or column of tiles
            node.children.push_back(buildTree(scene, c[i], c[i + 1], r[j], r[j + 1]));
            node.box += node.children.back().box;
        }
    }
    node.end = scene.items.size();
    return node;
}

// 2. The camera --------------------------------------------------------------------------------

struct Camera {
    Vector3d eye, target;
    Matrix44d view, projection, clip;  // world to camera, camera to clip space, and both
    std::vector<Planed> planes;        // of the view volume in world space, facing inwards
};

// A point is in view if its clip coordinates satisfy -w <= x <= w, -w <= y <= w and 0 <= z <= w.
// Each condition is a plane whose coefficients are a sum of two rows of the matrix. Depth is
// reversed: z <= w is the near side. The planes are in the order of Frustum::ePlane.
Camera makeCamera(const Vector3d& eye, const Vector3d& target, const Matrix44d& projection) {
    const Matrix44d toWorld = Transformation::createCameraLookAtT(eye, target, Vector3d(0, 0, 1));
    const Matrix44d view = toWorld.inverse_orthogonal();  // the look-at is rigid
    Camera camera = {eye, target, view, projection, Matrix44d::multiply(projection, view), {}};
    const Vector4d x = camera.clip.row(0), y = camera.clip.row(1);
    const Vector4d z = camera.clip.row(2), w = camera.clip.row(3);
    for (const Vector4d& coefficients : {w + x, w - x, w + y, w - y, w - z, z}) {
        camera.planes.push_back(Planed(coefficients));
        camera.planes.back().makeUnitLength();  // makes distances metres
        if (!camera.planes.back().getAsVector4().isFinite()) {
            throw std::runtime_error("the eye and the target of the camera coincide");
        }
    }
    return camera;
}

// 3. Culling -----------------------------------------------------------------------------------

struct Cull {
    const std::vector<Item>& items;
    Polytope volume;
    // Items in view, each with the mask of the planes that it straddles: 0 if wholly in view.
    std::vector<std::pair<std::size_t, unsigned>> seen = {};
    bool counting = false;
    std::size_t nodes = 0, untested = 0, evaluations = 0;

    // If a box is outside, so is everything below it. Otherwise only the planes that it straddles
    // matter below it: push keeps these, pop restores the others. With none left, contains()
    // accepts without a test.
    void testNode(const Node& node) {
        nodes += counting;
        if (!contains(node.box)) return;
        volume.pushCurrentMask();
        for (const Node& child : node.children) testNode(child);
        if (node.children.empty()) testItems(node.begin, node.end);
        volume.popCurrentMask();
    }

    void testItems(std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            if (contains(items[i].box)) seen.emplace_back(i, volume.getCurrentMask());
        }
    }

    bool contains(const BoundingBoxd& box) {
        if (counting) count(box);
        return volume.contains(box);
    }

    // One evaluation is one test of a plane against a box. contains() tests the planes in the mask
    // on top of the stack, up to the first that has the box outside.
    void count(const BoundingBoxd& box) {
        const unsigned mask = volume.getMaskStack().back();
        untested += mask == 0;
        for (unsigned i = 0; i < volume.getPlanes().size(); ++i) {
            if ((mask >> i & 1u) == 0) continue;
            ++evaluations;
            if (volume.getPlanes()[i].intersect(box) < 0) break;
        }
    }
};

// Runs a cull once to count its work, then several times to time it. The first run also grows the
// mask stack and the result, so the timed ones allocate nothing. Returns the median in
// microseconds.
template <class Run>
double measure(Cull& cull, Run run) {
    std::array<double, 31> times;
    cull.counting = true;
    run();
    cull.counting = false;
    for (double& time : times) {
        cull.seen.clear();
        const auto start = std::chrono::steady_clock::now();
        run();
        const auto taken = std::chrono::steady_clock::now() - start;
        time = std::chrono::duration<double, std::micro>(taken).count();
    }
    std::nth_element(times.begin(), times.begin() + 15, times.end());
    return times[15];
}

// The same in one call, on the nodes and items in depth-first order.
struct FlatTree {
    std::vector<BoundingBoxd> boxes;
    std::vector<unsigned> descendants;
    std::vector<std::size_t> items;  // of each box, or kNode
    std::vector<signed char> sides;  // of each box, as the call gives it
    std::vector<unsigned> masks;
    static constexpr std::size_t kNode = ~std::size_t(0);

    FlatTree(const std::vector<Item>& all, const Node& root) {
        add(all, root);
        sides.resize(boxes.size());
        masks.resize(boxes.size());
    }

    void add(const BoundingBoxd& box, std::size_t item) {
        boxes.push_back(box);
        descendants.push_back(0);
        items.push_back(item);
    }
    void add(const std::vector<Item>& all, const Node& node) {
        const std::size_t self = boxes.size();
        add(node.box, kNode);
        for (const Node& child : node.children) add(all, child);
        if (node.children.empty()) {
            for (std::size_t i = node.begin; i < node.end; ++i) add(all[i].box, i);
        }
        descendants[self] = unsigned(boxes.size() - self - 1);
    }

    void testAll(Cull& cull) {
        Batch::cullTree(cull.volume, boxes.data(), descendants.data(), sides.data(), masks.data(),
                        boxes.size());
        for (std::size_t i = 0; i < boxes.size(); i += sides[i] < 0 ? descendants[i] + 1 : 1) {
            if (items[i] == kNode || sides[i] < 0) continue;
            cull.seen.emplace_back(items[i], sides[i] > 0 ? 0 : masks[i]);
        }
    }
};

// 4. Float and double --------------------------------------------------------------------------

// In float a plane may classify a box differently only if a corner of the box is so close to the
// plane that rounding decides: within a few units in the last place of the largest distances.
bool frustumAgrees(const Camera& camera, const Scene& scene, const BoundingBoxd& world) {
    Frustum frustum;
    frustum.setToWorldSpaceFrustum(toFloat(camera.view), toFloat(camera.projection));
    double reach = camera.eye.norm() + world.getMax().norm();
    reach += std::abs(camera.planes.back().getAsVector4().w());  // to the far plane
    const double allowed = 16 * double(std::numeric_limits<float>::epsilon()) * reach;
    double furthest = 0;
    std::size_t differ = 0;
    for (const Item& item : scene.items) {
        const BoundingBoxd& box = item.box;
        const BoundingBoxf narrowed(toFloat(box.getMin()), toFloat(box.getMax()));
        for (unsigned i = 0; i < camera.planes.size(); ++i) {
            const Planed& plane = camera.planes[i];
            if (plane.intersect(box) == frustum.getPlane(i).intersect(narrowed)) continue;
            const double low = plane.distance(box.corner(plane.lowerBBCorner()));
            const double high = plane.distance(box.corner(plane.upperBBCorner()));
            furthest = std::max(furthest, std::min(std::abs(low), std::abs(high)));
            ++differ;
        }
    }
    std::printf(
        "  float planes: %zu of %zu tests differ from double, at most %.3f m off (allowed: %.3f "
        "m)\n",
        differ, 6 * scene.items.size(), furthest, allowed);
    return furthest <= allowed;
}

// 5. The picture -------------------------------------------------------------------------------

const Vector3d kGreen(0.24, 0.56, 0.36), kAmber(0.90, 0.58, 0.12), kBlue(0.42, 0.50, 0.72),
    kInk(0.10, 0.14, 0.25), kWhite(1, 1, 1);

// Draws each node that is not divided further: wholly inside, wholly outside, or a tile.
void drawTree(Map& map, const Node& node, const Camera& camera) {
    int side = 1;  // -1 if outside any plane, 1 if inside all of them
    for (const Planed& plane : camera.planes) side = std::min(side, plane.intersect(node.box));
    if (side == 0 && !node.children.empty()) {
        for (const Node& child : node.children) drawTree(map, child, camera);
        return;
    }
    const Vector3d& colour = side < 0 ? kBlue : side > 0 ? kGreen : kAmber;
    Vector3d p[5];  // around the box, seen from above
    for (unsigned i = 0; i < 5; ++i) p[i] = map.toPixel(node.box.corner(i % 4 ^ i % 4 / 2));
    map.fill(p[0], p[2], colour, 0.4);
    for (int i = 0; i < 4; ++i) map.stroke(p[i], p[i + 1], 0.6, colour * 0.7, 0.5);
}

void drawObjects(Map& map, const Cull& cull) {
    std::vector<Vector3d> colours(cull.items.size(), kBlue);
    for (const auto& [item, mask] : cull.seen) colours[item] = mask == 0 ? kGreen : kAmber;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const Vector3d p = map.toPixel(cull.items[i].box.center());
        if (!cull.items[i].isTile) map.stroke(p, p, 2.2, colours[i] * 0.6, 1);
    }
}

// Draws a camera from above: a body, and a lens where it looks.
void drawGlyph(Map& map, const Vector3d& at, Vector3d ahead) {
    ahead.normalize();
    for (const double halo : {2.5, 0.0}) {
        const Vector3d& colour = halo > 0 ? kWhite : kInk;
        map.stroke(at - ahead * 8, at - ahead, 11 + 2 * halo, colour, 1);
        map.stroke(at, at + ahead * 7, 5 + 2 * halo, colour, 1);
    }
}

// Draws the camera, the outline of its view at the mean height, and rays to the corners of that.
void drawCamera(Map& map, const Camera& camera) {
    map.outline(camera.planes, kInk);
    const Vector3d eye = map.toPixel(camera.eye);
    const Matrix44f toWorld = toFloat(camera.clip.inverse());
    for (const Vector3f& corner : {Vector3f(-1, -1, 0), {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}) {
        Vector3f from, to;  // at device depths 1 and 0, so from near to far: depth is reversed
        getWorldSpaceSegment(toWorld, corner, from, to);
        const float t = (float(map.world.center().z()) - from.z()) / (to.z() - from.z());
        if (!(t > 0 && t < 1)) continue;  // it does not reach that height
        map.stroke(eye, map.toPixel(toDouble(from + (to - from) * t)), 1, kInk, 0.6);
    }
    const Vector4d ahead = camera.view.row(2) * -1;  // z of the camera points back
    drawGlyph(map, eye, Vector3d(ahead.x(), -ahead.y(), 0));
}

// A length of 1, 2 or 5 times a power of ten, at most so long.
double roundLength(double longest) {
    const double power = std::pow(10, std::floor(std::log10(longest)));
    return power * (longest < 2 * power ? 1 : longest < 5 * power ? 2 : 5);
}

// What the colours are, and a scale, in the lower left corner of a picture that has room for them.
void drawLegend(Map& map) {
    const Vector3d corner = map.toPixel(map.world.getMin()) + Vector3d(16, -16, 0);
    if (corner.y() < 160) return;
    map.fill(corner, corner + Vector3d(166, -134, 0), kWhite, 0.85);
    const auto at = [&](double x, double y) { return corner + Vector3d(x, y, 0); };
    const std::pair<const char*, Vector3d> rows[] = {
        {"in view", kGreen}, {"in part", kAmber}, {"out of view", kBlue}};
    double y = -104;
    for (const auto& [name, colour] : rows) {
        map.fill(at(14, y - 13), at(32, y + 3), colour, 0.75);
        map.text(at(46, y), name, 12, kInk);
        y += 24;
    }
    drawGlyph(map, at(25, y - 5), Vector3d(1, 0, 0));
    map.text(at(46, y), "camera", 12, kInk);

    const double length = roundLength(80 / map.scale), end = 14 + length * map.scale;
    const bool far = length >= 1000;
    map.stroke(at(14, y + 19), at(end, y + 19), 2.5, kInk, 1);
    for (const double x : {14.0, end}) map.stroke(at(x, y + 15), at(x, y + 23), 2.5, kInk, 1);
    char text[32];
    std::snprintf(text, sizeof text, "%.4g %s", far ? length / 1000 : length, far ? "km" : "m");
    map.text(at(end + 10, y + 23), text, 12, kInk);
}

// The program ----------------------------------------------------------------------------------

// Culls for one camera and draws the result. Returns false without a picture if a check fails.
bool show(const Scene& scene, const Node& root, Map map, const Camera& camera,
          const std::string& output) {
    Cull tree = {scene.items, Polytope(camera.planes)}, list = tree, whole = tree;
    FlatTree flat(scene.items, root);
    const double treeTime = measure(tree, [&] { tree.testNode(root); });
    const double wholeTime = measure(whole, [&] { flat.testAll(whole); });
    const double listTime = measure(list, [&] { list.testItems(0, scene.items.size()); });
    const double ratio = double(list.evaluations) / double(tree.evaluations);
    std::printf("  in view: %zu of %zu tiles, huts and trees\n", tree.seen.size(),
                scene.items.size());
    std::printf("  tree: %s visited, %zu boxes accepted without a test\n",
                counted(tree.nodes, "node").c_str(), tree.untested);
    std::printf("  plane evaluations: %zu by tree, %zu one by one, ratio %.1f\n", tree.evaluations,
                list.evaluations, ratio);
    std::printf("  median time: %.1f us by tree, %.1f us in one call, %.1f us one by one\n",
                treeTime, wholeTime, listTime);
    std::vector<std::pair<std::size_t, unsigned>> differ;
    for (const Cull* other : {&list, &whole}) {
        std::set_symmetric_difference(tree.seen.begin(), tree.seen.end(), other->seen.begin(),
                                      other->seen.end(), std::back_inserter(differ));
    }
    for (const auto& seen : differ) std::printf("  the ways to cull differ: box %zu\n", seen.first);
    if (!frustumAgrees(camera, scene, root.box) || !differ.empty()) return false;

    drawTree(map, root, camera);
    drawObjects(map, tree);
    drawCamera(map, camera);
    drawLegend(map);
    map.save(output);
    std::printf("wrote %s\n", output.c_str());
    return true;
}

struct Options {
    std::string terrain = KYMATH_EXAMPLE_DATA, output = "cull.png";
    double east = 74.4, north = 92.6, fov = 35, zNear = 0, zFar = 0;
    std::vector<double> eye, target, end;
    unsigned objects = 6000, path = 0;

    Options(CLI::App& app, int argc, char** argv) {
        const auto addFitted = [&](const char* name, auto& value, double low, const char* help) {
            addNumber(app, name, value, low, 1e7, help, "to fit");
        };
        addOption(app, "terrain", terrain, "heights in metres, a 16-bit binary PGM");
        addOption(app, "--output", output, "the picture, a PNG");
        addNumber(app, "--cell-east", east, 0.01, 1e4, "metres between columns of the heights");
        addNumber(app, "--cell-north", north, 0.01, 1e4, "metres between rows");
        addNumber(app, "--objects", objects, 0, 1e6, "number of huts and trees");
        addFitted("--eye", eye, -1e7, "position of the camera: metres east, north, up");
        addFitted("--target", target, -1e7, "point that the camera looks at");
        addNumber(app, "--fov", fov, 1, 170, "vertical field of view in degrees");
        addFitted("--near", zNear, 0.01, "distance to the near plane in metres");
        addFitted("--far", zFar, 0.01, "distance to the far plane");
        addNumber(app, "--path", path, 0, 999,
                  "number of pictures to draw on the way to --path-end");
        addFitted("--path-end", end, -1e7, "last position of the camera");
        parseOptions(app, argc, argv);
    }
};

std::vector<std::string> namePictures(const Options& options) {
    std::vector<std::string> names;
    for (unsigned i = 0; i < std::max(options.path, 1u); ++i) {
        std::filesystem::path file(options.output);
        const std::string number =
            options.path > 0 ? std::to_string(1000 + i).replace(0, 1, "-") : "";
        file.replace_filename(file.stem().string() + number + file.extension().string());
        requireWritable(file, ".png", options.terrain);
        names.push_back(file);
    }
    return names;
}

// By default the camera looks east from above the highest point, at a point on the ground.
std::vector<Camera> makeCameras(const Options& options, const HeightField& ground,
                                const BoundingBoxd& world) {
    const double x = world.xMax(), y = world.yMax(), up = world.zMax() + 0.0135 * y;
    Vector3d eye(0.17 * x, 0.47 * y, up), end(0.48 * x, 0.62 * y, up);
    Vector3d target(0.6 * x, 0.49 * y, ground.heightAt(0.6 * x, 0.49 * y));
    const double zFar = options.zFar > 0 ? options.zFar : 1.22 * Vector3d::distance(eye, target);
    const double zNear = options.zNear > 0 ? options.zNear : zFar / 190;
    if (zNear >= zFar) throw std::runtime_error("--near must be less than --far");
    if (!options.eye.empty()) eye = Vector3d(options.eye.data());
    if (!options.target.empty()) target = Vector3d(options.target.data());
    if (!options.end.empty()) end = Vector3d(options.end.data());

    const double fov = options.fov * std::acos(-1.0) / 180;
    const Matrix44d projection = Transformation::createPerspectiveT(fov, 1.6, zNear, zFar);
    std::vector<Camera> cameras;
    for (unsigned i = 0; i < std::max(options.path, 1u); ++i) {
        const double t = i / std::max(options.path - 1.0, 1.0);
        cameras.push_back(makeCamera(eye * (1 - t) + end * t, target, projection));
    }
    return cameras;
}

// The part of the world to draw: 16:9 if that shows the eye and the target.
BoundingBoxd chooseWindow(const BoundingBoxd& world, const Camera& camera) {
    const double high = std::min(world.yMax(), world.xMax() * 9 / 16);
    const double middle = (camera.eye.y() + camera.target.y()) / 2;
    const double low = std::clamp(middle - high / 2, 0.0, world.yMax() - high);
    BoundingBoxd window = world;
    if (std::abs(camera.eye.y() - camera.target.y()) < high / 2) {
        window.set(world.xMin(), low, world.zMin(), world.xMax(), low + high, world.zMax());
    }
    return window;
}

int run(CLI::App& app, int argc, char** argv) {
    const Options options(app, argc, argv);
    const std::vector<std::string> pictures = namePictures(options);
    Scene scene = {HeightField(options.terrain, options.east, options.north), options.objects};
    const Node root = buildTree(scene, 0, scene.ground.columns - 1, 0, scene.ground.rows - 1);
    const std::vector<Camera> cameras = makeCameras(options, scene.ground, root.box);
    const Vector3d size = root.box.getBBSize();
    std::printf("%s\n  %.0f m east, %.0f m north, %.0f to %.0f m up\n", options.terrain.c_str(),
                size.x(), size.y(), root.box.zMin(), root.box.zMax());
    const BoundingBoxd window = chooseWindow(root.box, cameras[0]);
    Map map(window, 1008 / std::max(window.getBBSize().x(), window.getBBSize().y()));
    drawGround(map, scene.ground);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        if (!show(scene, root, map, cameras[i], pictures[i])) return 1;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return runProgram("cull", "Culls a landscape and draws what is in view, seen from above.", run,
                      argc, argv);
}
