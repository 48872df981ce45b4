// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Reads any bytes as a motion capture. If they are accepted, every frame is safe to evaluate.
#include "Bvh.h"
#include "Input.h"

#include <Ky/KyTransform.h>

#include <cstdint>

namespace {

void checkJoints(const Bvh& motion) {
    std::size_t channels = 0;
    for (std::size_t i = 0; i < motion.joints.size(); ++i) {
        const Bvh::Joint& joint = motion.joints[i];
        require(i == 0 ? joint.parent == 0 : joint.parent < i);
        for (int axis = 0; axis < 3; ++axis) require(std::abs(joint.rest[axis]) <= 1e7);
        std::vector<std::size_t> used(joint.angle, std::find(joint.angle, joint.angle + 3, 0u));
        require(std::is_sorted(used.begin(), used.end()));  // in the order of their channels
        used.insert(used.end(), joint.position, joint.position + 3);
        std::sort(used.begin(), used.end());
        require(used.back() == 0 || !joint.name.empty());
        require(joint.order >= 0 && joint.order < 24 && joint.order % 4 == 0);  // of three axes
        for (const std::size_t channel : used) require(channel == 0 || channel == ++channels);
    }
    require(channels == motion.channels && channels > 0);
}

void walk(const Bvh& motion) {
    require(motion.frames > 0 && motion.frameTime >= 1e-5 && motion.frameTime <= 100);
    require(motion.values.size() == motion.frames * (motion.channels + 1));
    for (const double value : motion.values) require(std::abs(value) <= 1e7);
    std::vector<Ky::KyTransform> world(motion.joints.size());
    for (std::size_t frame = 0; frame < motion.frames; ++frame) {
        require(motion.values[frame * (motion.channels + 1)] == 0);
        for (std::size_t i = 0; i < world.size(); ++i) {
            const Bvh::Joint& joint = motion.joints[i];
            const Ky::KyTransform local(motion.position(frame, joint), motion.angles(frame, joint));
            i == 0 ? world[i] = local : world[i].compound(local, world[joint.parent]);
            require(world[i].isValid() && world[i].getTranslation().isFinite());
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const auto motion = readBytes<Bvh>(bytes);
    if (!motion) return 0;
    checkJoints(*motion), walk(*motion);
    std::string other;  // the same text with other line ends and none at its end
    for (const char c : bytes) other += c == '\n' ? "\r\n\n" : std::string(1, c);
    other.resize(other.find_last_not_of('\n') + 1);
    const auto same = readBytes<Bvh>(other);
    require(same && same->joints.size() == motion->joints.size() && same->values == motion->values);
    return 0;
}
