// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Plays a motion capture, checks its arithmetic, and draws it:
//
//   1. a pose: the angles of a frame become a transform for each joint relative to its parent, and
//      these are compounded down the skeleton to world transforms;
//   2. playback at another rate, interpolated between the captured frames;
//   3. the checks: bones keep their lengths, transforms stay rigid, and angles converted to each of
//      the 24 orders give the same rotation;
//   4. optionally, a comparison with the joint positions of another reader;
//   5. the picture from the side: figures from light to dark, and smoothed paths of hands, feet and
//      head.
//
// y is up; lengths are in the unit of the capture. The exit status is 1 if a check of 3 or 4 fails,
// and 2 after a one-line message for any other error.

#include "Bvh.h"
#include "OtherReader.h"
#include "Program.h"
#include "Svg.h"

#include <KyMath/KyMath.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>

using namespace KyMath;
using Ky::KyEulerAngles;
using Ky::KyTransform;

namespace {

// 1. A pose ------------------------------------------------------------------------------------

using Pose = std::vector<KyTransform>;  // one for each joint, in the order of the file

Pose capturedPose(const Bvh& motion, std::size_t frame) {
    Pose pose;
    for (const Bvh::Joint& joint : motion.joints) {
        pose.emplace_back(motion.position(frame, joint), motion.angles(frame, joint));
    }
    return pose;
}

// Parents come before their children, so their world transforms are ready.
Pose toWorld(const Bvh& motion, const Pose& local) {
    Pose world = local;  // right for the root
    for (std::size_t i = 1; i < local.size(); ++i) {
        world[i].compound(local[i], world[motion.joints[i].parent]);
    }
    return world;
}

// 2. Playback ----------------------------------------------------------------------------------

// Joints are interpolated relative to their parents, so bones rotate and keep their lengths. If
// world positions were interpolated, joints would move on straight lines and bones would shrink.
std::vector<Pose> play(const Bvh& motion, double rate) {
    const double step = 1 / (rate * motion.frameTime), last = double(motion.frames - 1);
    const double count = std::floor(last / step + 1e-9) + 1;
    if (!(count * double(motion.joints.size()) <= 2e6)) {
        throw std::runtime_error("--rate: too many frames to play: more than 2 million joints");
    }
    std::vector<Pose> played;
    for (double i = 0; i < count; ++i) {
        const double at = std::min(i * step, last), before = std::floor(at);
        Pose pose = capturedPose(motion, std::size_t(before));
        const Pose after = capturedPose(motion, std::size_t(std::ceil(at)));
        for (std::size_t j = 0; j < pose.size(); ++j) {
            pose[j].interpolate(pose[j], after[j], at - before);
        }
        played.push_back(toWorld(motion, pose));
    }
    return played;
}

// All numbers of all poses in one, which tells whether two runs agree to the last bit.
std::uint64_t digestOf(const std::vector<Pose>& poses) {
    std::uint64_t digest = 0;
    for (const Pose& pose : poses) {
        for (const KyTransform& joint : pose) {
            std::uint64_t bits[16];
            std::memcpy(bits, &joint[0][0], sizeof bits);
            for (const std::uint64_t b : bits) digest = (digest ^ b) * 0x9e3779b97f4a7c15;
        }
    }
    return digest;
}

// 3. The checks --------------------------------------------------------------------------------

const double kEpsilon = std::numeric_limits<double>::epsilon();

// Raises worst to value. NaN counts as infinite.
void raise(double& worst, double value) {
    if (!(value <= worst)) worst = std::isnan(value) ? HUGE_VAL : value;
}

double difference(const KyTransform& a, const KyTransform& b) {
    double worst = 0;
    for (int i = 0; i < 16; ++i) raise(worst, std::abs(a[i / 4][i % 4] - b[i / 4][i % 4]));
    return worst;
}

bool report(const char* what, double worst, double allowed) {
    std::printf("  %s %.1e (allowed: %.1e)\n", what, worst, allowed);
    return worst <= allowed;
}

// The sine of the angle between the first and the third axis. The smaller it is, the more rounding
// may move each of the two angles by itself. Below 2^-19 the third angle is set to 0; the result
// for that range allows for errors of up to 2^-16.
double distanceToPole(const KyEulerAngles& angles) {
    const bool sameAxis = angles.order() & 2;
    const double sine = std::abs(sameAxis ? std::sin(angles[1]) : std::cos(angles[1]));
    return sine > std::ldexp(1, -18) ? sine : kEpsilon * std::ldexp(1, 20);
}

struct Checks {
    const Bvh& motion;
    BoundingBoxd bounds = {};  // of all joints in all poses
    double bones = 0, rigid = 0, angles = 0;

    void addPose(const Pose& world) {
        for (std::size_t i = 0; i < world.size(); ++i) {
            const Bvh::Joint& joint = motion.joints[i];
            const Vector3d at = world[i].getTranslation();
            bounds.expandBy(at);
            if (i > 0 && joint.hasFixedLength()) {
                const Vector3d from = world[joint.parent].getTranslation();
                raise(bones, std::abs(Vector3d::distance(from, at) / joint.rest.norm() - 1));
            }
            KyTransform square;  // R^T R, for a rotation the identity
            square.compoundFirstThenInverseSecond(world[i], world[i]);
            raise(rigid, difference(square, KyTransform::kIdentity));
            if (!world[i].isValid()) raise(rigid, HUGE_VAL);  // which also checks the determinant
        }
    }

    // Converts to each order, from the angles and from their matrix. Compares rotations, not
    // angles: many triples of angles give the same rotation.
    void addAngles(const KyEulerAngles& given) {
        const KyTransform rotation(Vector3d::kZero, given);
        for (int i = 0; i < 24; ++i) {
            const auto order = KyEulerAngles::eEulerOrder(i);
            const KyEulerAngles changed(
                KyEulerAngles::getEulerAngles(given.angles(), given.order(), order), order);
            KyEulerAngles read;
            read.fromMatrix44(rotation, order);
            for (const KyEulerAngles& other : {changed, read}) {
                const KyTransform again(Vector3d::kZero, other);
                raise(angles, difference(rotation, again) * distanceToPole(read));
            }
        }
    }

    // How far rounding moves a joint: a unit in the last place of the largest coordinates.
    double rounding() const {
        return kEpsilon * (bounds.getMin().norm() + bounds.getMax().norm());
    }

    bool hold() const {
        double shortest = HUGE_VAL;
        for (const Bvh::Joint& joint : motion.joints) {
            if (joint.hasFixedLength()) shortest = std::min(shortest, joint.rest.norm());
        }
        const double chain =
            8 * kEpsilon * double(motion.joints.size());  // errors add up joint by joint
        const double ends = 16 * rounding() / shortest;
        const bool bonesHold = report("bones: relative change of length", bones, chain + ends);
        const bool rigidHolds = report("transforms: deviation from a rotation", rigid, chain);
        const bool anglesHold = report("angles: error in 24 orders", angles, 16 * kEpsilon);
        return bonesHold && rigidHolds && anglesHold;
    }
};

// 4. Another reader ----------------------------------------------------------------------------

// It computes in float; rounding errors add up down the skeleton.
bool readersAgree(const Bvh& motion, const OtherReader& other, const Checks& checks) {
    double worst = 0;
    for (std::size_t frame = 0; frame < motion.frames; ++frame) {
        const Pose world = toWorld(motion, capturedPose(motion, frame));
        const std::vector<Vector3d> found = other.joints(frame);
        for (std::size_t i = 0; i < world.size(); ++i) {
            raise(worst, Vector3d::distance(world[i].getTranslation(), found.at(i)));
        }
    }
    const double toFloat = double(std::numeric_limits<float>::epsilon()) / kEpsilon;
    const double allowed = double(16 + motion.joints.size()) * toFloat * checks.rounding();
    return report("other reader: largest distance", worst, allowed);
}

// 5. The picture -------------------------------------------------------------------------------

const struct {
    const char *label, *colour, *name, *otherName;  // names in lower case
} kLimbs[] = {{"head", "#8a4fb0", "head", "skull"},
              {"left hand", "#e39a1f", "lefthand", "leftwrist"},
              {"right hand", "#c4452f", "righthand", "rightwrist"},
              {"left foot", "#35a36b", "leftfoot", "leftankle"},
              {"right foot", "#1f7fb5", "rightfoot", "rightankle"}};

// The first joint whose name contains one of the names of limb i; 0 if there is none.
std::size_t findLimb(const Bvh& motion, int i) {
    for (std::size_t joint = 0; joint < motion.joints.size(); ++joint) {
        std::string name = motion.joints[joint].name;
        for (char& c : name) c = c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
        if (name.find(kLimbs[i].name) != name.npos || name.find(kLimbs[i].otherName) != name.npos) {
            return joint;
        }
    }
    return 0;
}

// From light at the start to dark at the end.
std::string figureColour(double t) {
    const Vector3d c = Vector3d(214, 220, 230) * (1 - t) + Vector3d(24, 34, 62) * t;
    char text[32];
    std::snprintf(text, sizeof text, "rgb(%.0f,%.0f,%.0f)", c.x(), c.y(), c.z());
    return text;
}

// The joint at the other end of the head; 0, the root, if there is none.
std::size_t findCrown(const Bvh& motion) {
    const std::size_t head = findLimb(motion, 0);
    for (std::size_t i = 1; i < motion.joints.size(); ++i) {
        if (motion.joints[i].parent == head && head > 0) return i;
    }
    return 0;
}

// Draws a figure with a disc as its head, and a white halo to set it off from those behind.
void drawFigure(Svg& svg, const Bvh& motion, const Svg::Points& joints, const std::string& colour) {
    const std::size_t crown = findCrown(motion), head = motion.joints[crown].parent;
    std::vector<Svg::Points> bones;
    for (std::size_t i = 1; i < joints.size(); ++i) {
        if (i != crown) bones.push_back({joints[motion.joints[i].parent], joints[i]});
    }
    const Vector3d middle = (joints[head] + joints[crown]) / 2;
    const double radius = Vector3d::distance(joints[head], joints[crown]) / 2;
    if (crown > 0) svg.dot(middle, radius + 1.7, "white");
    svg.lines(bones, "white", 6.5);
    svg.lines(bones, colour, 3.2);
    if (crown > 0) svg.dot(middle, radius, colour);
}

// A bar of 1, 2 or 5 times a power of ten, about 100 pixels long.
void drawScale(Svg& svg, const Vector3d& begin, double pixelsPerUnit) {
    const double power = std::pow(10, std::floor(std::log10(100 / pixelsPerUnit)));
    const double rest = 100 / pixelsPerUnit / power, length = power * (rest < 2   ? 1
                                                                       : rest < 5 ? 2
                                                                                  : 5);
    const Vector3d end = begin + Vector3d(length * pixelsPerUnit, 0, 0), tick(0, 4, 0);
    char text[80];
    std::snprintf(text, sizeof text, "%g units of the capture", length);
    svg.lines({{begin - tick, begin + tick}, {begin, end}, {end - tick, end + tick}}, "#3a4256",
              1.5);
    svg.label(end + Vector3d(10, 5, 0), text, 14, "#3a4256");
}

void drawPathsAndLegend(Svg& svg, const Bvh& motion, const std::vector<Svg::Points>& poses) {
    const char* ink = "#3a4256";
    svg.label({40, 33, 0}, "start", 14, ink);
    for (double t = 0; t <= 1; t += 0.125) {
        svg.line({{82 + 64 * t, 22, 0}, {82 + 64 * t, 34, 0}}, figureColour(t), 3.2);
    }
    svg.label({156, 33, 0}, "end", 14, ink);
    double x = 230;
    for (int i = 0; i < 5; ++i) {
        const std::size_t joint = findLimb(motion, i);
        if (joint == 0) continue;
        Svg::Points path, curve;
        const std::size_t crown = i == 0 ? findCrown(motion) : 0;
        const std::size_t end = crown > 0 ? crown : joint;  // the path of the middle of the head
        for (const Svg::Points& pose : poses) path.push_back((pose[joint] + pose[end]) / 2);
        // The curve has one segment more than points. With a whole number of samples for each, and
        // one for the end, it is even and reaches the last point.
        const unsigned segments = unsigned(path.size()) + 1;
        CreateBSpline(path, segments * (1 + 300 / segments) + 1, curve);
        svg.line(curve, kLimbs[i].colour, 2.2, 0.85);
        svg.line({{x, 28, 0}, {x + 24, 28, 0}}, kLimbs[i].colour, 3);
        svg.label({x + 32, 33, 0}, kLimbs[i].label, 14, ink);
        x += 60 + 7.5 * double(std::strlen(kLimbs[i].label));
    }
}

void draw(const Bvh& motion, const std::vector<Pose>& played, const BoundingBoxd& bounds,
          const std::string& output) {
    BoundingBoxd way;  // of the root; its longer side, x or z, becomes the picture's width
    for (const Pose& pose : played) way.expandBy(pose[0].getTranslation());
    const int across = way.getBBSize().z() > way.getBBSize().x() ? 2 : 0;
    const Vector3d size = bounds.getBBSize(), centre = bounds.center();
    const double scale = std::min(918 / (size[across] + 1e-9), 640 / (size.y() + 1e-9));
    const double ground = 80 + size.y() * scale;
    std::vector<Svg::Points> poses(played.size());
    for (std::size_t i = 0; i < poses.size(); ++i) {
        for (const KyTransform& joint : played[i]) {
            const Vector3d p = joint.getTranslation();
            poses[i].emplace_back(499 + (p[across] - centre[across]) * scale,
                                  ground - (p.y() - bounds.yMin()) * scale, 0.0);
        }
    }

    Svg svg(998, ground + 50);
    drawScale(svg, {40, ground + 28, 0}, scale);
    svg.line({{20, ground, 0}, {978, ground, 0}}, "#9aa1b0", 1.5);
    // A figure whenever the root has moved on by an even part of its way.
    const double step = way.getBBSize()[across] * scale / 15;
    for (std::size_t i = 0, last = 0; i < poses.size(); ++i) {
        if (i > 0 && std::abs(poses[last][0].x() - poses[i][0].x()) < step) continue;
        drawFigure(svg, motion, poses[i], figureColour(double(i) / double(poses.size())));
        last = i;
    }
    drawPathsAndLegend(svg, motion, poses);
    svg.save(output);
}

// The program ----------------------------------------------------------------------------------

int run(CLI::App& app, int argc, char** argv) {
    std::string file = KYMATH_EXAMPLE_DATA, output = "mocap.svg";
    double rate = 24;
    bool check = false;
    addOption(app, "motion", file, "the motion capture, a BVH file");
    addOption(app, "--output", output, "the picture, an SVG");
    addNumber(app, "--rate", rate, 0.1, 1e4, "frames per second to play");
    addOption(app, "--check", check, "compare all joints with those of another reader");
    parseOptions(app, argc, argv);
    requireWritable(output, ".svg", file);

    const Bvh motion(file);
    std::optional<OtherReader> other;
    if (check) other.emplace(file, motion);
    const std::vector<Pose> played = play(motion, rate);
    const auto ends =
        std::size_t(std::count_if(motion.joints.begin(), motion.joints.end(),
                                  [](const auto& joint) { return joint.name.empty(); }));
    std::printf("%s\n  %s, %s, %s at %.4g Hz\n", file.c_str(),
                counted(motion.joints.size() - ends, "joint").c_str(),
                counted(ends, "limb end").c_str(), counted(motion.frames, "frame").c_str(),
                1 / motion.frameTime);
    if (motion.dropped > 0) {
        std::printf("  dropped: %s after the frames that the file counts\n",
                    counted(motion.dropped, "line").c_str());
    }
    std::printf("  played at %g Hz: %s\n", rate, counted(played.size(), "frame").c_str());
    std::printf("  digest of all poses: %016llx\n",
                static_cast<unsigned long long>(digestOf(played)));

    Checks checks = {motion};
    for (const Pose& pose : played) checks.addPose(pose);
    for (std::size_t i = 0; i < motion.frames; ++i) {
        checks.addPose(toWorld(motion, capturedPose(motion, i)));
        for (const Bvh::Joint& joint : motion.joints) checks.addAngles(motion.angles(i, joint));
    }
    if (!checks.hold() || (check && !readersAgree(motion, *other, checks))) return 1;
    draw(motion, played, checks.bounds, output);
    std::printf("wrote %s\n", output.c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return runProgram("mocap",
                      "Plays a motion capture, checks its arithmetic and draws it from the side.",
                      run, argc, argv);
}
