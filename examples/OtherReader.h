// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_OTHERREADER_H
#define KYMATH_EXAMPLES_OTHERREADER_H

#include "Bvh.h"

#ifdef KYMATH_EXAMPLE_WITH_ASSIMP
#include <assimp/scene.h>

#include <assimp/Importer.hpp>

/// Joint positions of a motion capture as the library assimp computes them, with its own reader,
/// skeleton and quaternions, in float.
class OtherReader {
public:
    OtherReader(const std::string& file, const Bvh& motion) : motion_(motion) {
        scene_ = importer_.ReadFile(file, 0);
        if (!scene_) throw std::runtime_error(file + ": --check: " + importer_.GetErrorString());
        for (unsigned i = 0; i < scene_->mAnimations[0]->mNumChannels; ++i) {
            const aiNodeAnim* track = scene_->mAnimations[0]->mChannels[i];
            tracks_[track->mNodeName.C_Str()] = track;
        }
    }

    /// World positions in the order of the file, including the ends of limbs.
    std::vector<KyMath::Vector3d> joints(std::size_t frame) const {
        std::vector<KyMath::Vector3d> result;
        add(result, *scene_->mRootNode, aiMatrix4x4(), frame);
        return result;
    }

private:
    void add(std::vector<KyMath::Vector3d>& result, const aiNode& node, const aiMatrix4x4& parent,
             std::size_t frame) const {
        const bool moves = motion_.joints.at(result.size()).moves();
        aiVector3D scale, position;
        aiQuaternion rotation;
        node.mTransformation.Decompose(scale, rotation, position);  // at rest
        const auto track = tracks_.find(node.mName.C_Str());
        if (track != tracks_.end()) {
            const aiNodeAnim& keys = *track->second;
            rotation = keys.mRotationKeys[frame].mValue;
            // It reads position channels only together with three rotations. They replace its rest
            // position, whereas here they are added to it.
            if (moves && keys.mNumPositionKeys <= frame) {
                throw std::runtime_error("--check: the other reader has no position channels of " +
                                         track->first);
            }
            if (moves) position += keys.mPositionKeys[frame].mValue;
        }
        const aiMatrix4x4 world = parent * aiMatrix4x4(aiVector3D(1, 1, 1), rotation, position);
        result.emplace_back(double(world.a4), double(world.b4), double(world.c4));
        for (unsigned i = 0; i < node.mNumChildren; ++i) {
            add(result, *node.mChildren[i], world, frame);
        }
    }

    const Bvh& motion_;
    Assimp::Importer importer_;
    const aiScene* scene_;
    std::map<std::string, const aiNodeAnim*> tracks_;
};
#else
struct OtherReader {
    OtherReader(const std::string&, const Bvh&) {
        throw std::runtime_error("--check is not built in: it needs the library assimp");
    }
    std::vector<KyMath::Vector3d> joints(std::size_t) const {
        return {};
    }
};
#endif

#endif
