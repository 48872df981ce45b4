// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_BVH_H
#define KYMATH_EXAMPLES_BVH_H

#include <Ky/KyEulerAngles.h>
#include <KyMath/Vectors.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

/// The words of a text file. Errors are std::runtime_error with the file, the line and the reason.
class Words {
public:
    explicit Words(const std::string& file) : file_(file) {
        std::ifstream in(file);
        for (char part[4096]; in.read(part, sizeof part), in.gcount() > 0;) {
            text_.append(part, std::size_t(in.gcount()));
            if (text_.size() > 100'000'000) throw std::runtime_error(file + ": more than 100 MB");
        }
        if (!in.eof()) throw std::runtime_error(file + ": " + std::strerror(errno));
        text_.erase(text_.find_last_not_of(kBlanks) + 1);
    }

    /// The next word, where a brace is a word; empty at the end of the file.
    const std::string& next() {
        at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
        const bool brace = text_[at_] == '{' || text_[at_] == '}';
        word_ = text_.substr(at_, brace ? 1 : text_.find_first_of(" \t\r\n{}", at_) - at_);
        at_ += word_.size();
        return word_;
    }

    void expect(std::initializer_list<const char*> words) {
        for (const std::string word : words) {
            if (next() != word) fail(word + " expected");
        }
    }

    /// The default range is more than any studio needs, and small enough that nothing overflows.
    template <class Number = double>
    Number number(Number low = -1e7, Number high = 1e7, const char* what = "a number within 1e7") {
        Number value = 0;
        const char* end = next().data() + word_.size();
        const auto [stop, error] = std::from_chars(word_.data(), end, value);
        const bool good = error == std::errc() && stop == end && value >= low && value <= high;
        if (!good) fail(what + std::string(" expected"));
        return value;
    }

    /// Whether the line holds no more words.
    bool endOfLine() {
        at_ = std::min(text_.find_first_not_of(" \t\r", at_), text_.size());
        return at_ == text_.size() || text_[at_] == '\n';
    }

    [[noreturn]] void fail(const std::string& reason) const {
        const auto line = 1 + std::count(text_.begin(), text_.begin() + std::ptrdiff_t(at_), '\n');
        throw std::runtime_error(file_ + ":" + std::to_string(line) + ": " + reason +
                                 (word_.empty() ? " before the end of the file" : ""));
    }

private:
    static constexpr const char* kBlanks = " \t\r\n";
    std::string file_, text_, word_;
    std::size_t at_ = 0;
};

/// A motion capture from a BVH file: a skeleton, and for each frame the values of its channels.
struct Bvh {
    struct Joint {
        std::string name;       ///< empty for the end of a limb, which has no channels
        std::size_t parent;     ///< always an earlier joint; the root is its own parent
        KyMath::Vector3d rest;  ///< offset from the parent; position channels are added to it
        Ky::KyEulerAngles::eEulerOrder order = Ky::KyEulerAngles::eXYZs;
        /// Indices into the values of a frame: the position in x, y, z, and the angles in the order
        /// of their channels. Value 0 of a frame is zero and stands for a missing channel.
        std::size_t position[3] = {0, 0, 0}, angle[3] = {0, 0, 0};

        bool moves() const {
            return position[0] + position[1] + position[2] > 0;
        }
        bool hasFixedLength() const {
            return !moves() && !rest.isZero();
        }
    };

    std::vector<Joint> joints;
    std::size_t channels = 0, frames = 0;
    std::size_t dropped = 0;     ///< lines after the frames that the file counts
    double frameTime = 0;        ///< in seconds
    std::vector<double> values;  ///< frame by frame: a zero, then the channels

    explicit Bvh(const std::string& file) {
        Words words(file);
        readSkeleton(words);
        readFrames(words);
    }

    KyMath::Vector3d position(std::size_t frame, const Joint& joint) const {
        return joint.rest + pick(frame, joint.position);
    }

    Ky::KyEulerAngles angles(std::size_t frame, const Joint& joint) const {
        return Ky::KyEulerAngles(pick(frame, joint.angle) * (std::acos(-1.0) / 180), joint.order);
    }

private:
    KyMath::Vector3d pick(std::size_t frame, const std::size_t (&which)[3]) const {
        const double* value = &values[frame * (channels + 1)];
        return {value[which[0]], value[which[1]], value[which[2]]};
    }

    // Not recursive. The depth is limited so that a recursive reader of the same file is safe, too.
    void readSkeleton(Words& words) {
        words.expect({"HIERARCHY", "ROOT"});
        readJoint(words, 0);
        for (std::size_t open = 0, depth = 1; depth > 0;) {
            const std::string word = words.next();
            if (word == "}") {
                open = joints[open].parent;
                --depth;
            } else if (word == "JOINT") {
                open = readJoint(words, open);
                if (++depth > 1000) words.fail("fewer nested joints expected");
            } else if (word == "End") {
                words.expect({"Site", "{"});
                joints.push_back({"", open, readOffset(words)});
                words.expect({"}"});
            } else {
                words.fail("JOINT, End Site or } expected");
            }
        }
    }

    static KyMath::Vector3d readOffset(Words& words) {
        words.expect({"OFFSET"});
        const double x = words.number(), y = words.number(), z = words.number();
        return {x, y, z};
    }

    // Channels Zrotation Yrotation Xrotation mean Rz Ry Rx applied to column vectors, which is the
    // static order ZYX. Axes without a channel have angle 0 and may come in any order after these.
    std::size_t readJoint(Words& words, std::size_t parent) {
        using Angles = Ky::KyEulerAngles;
        static const std::map<std::string, Angles::eEulerOrder> orders = {
            {"XYZ", Angles::eXYZs}, {"XZY", Angles::eXZYs}, {"YXZ", Angles::eYXZs},
            {"YZX", Angles::eYZXs}, {"ZXY", Angles::eZXYs}, {"ZYX", Angles::eZYXs}};
        const std::string name = words.next();
        if (name.empty() || name == "{" || name == "}") words.fail("a name expected");
        words.expect({"{"});
        Joint joint = {name, parent, readOffset(words)};
        words.expect({"CHANNELS"});
        std::string axes;
        for (int n = words.number(0, 6, "0 to 6 channels"); n > 0; --n) {
            const std::string channel = words.next();
            const std::size_t axis = std::string("XYZ").find(channel[0]);
            const std::string kind = axis < 3 ? channel.substr(1) : "";
            if (kind == "position" && joint.position[axis] == 0) {
                joint.position[axis] = ++channels;
            } else if (kind == "rotation" && axes.find(channel[0]) == axes.npos) {
                joint.angle[axes.size()] = ++channels;
                axes += channel[0];
            } else {
                words.fail("another channel expected");
            }
        }
        joint.order = orders.lower_bound(axes)->second;
        joints.push_back(joint);
        return joints.size() - 1;
    }

    // Frame by frame, so that a frame count larger than the file costs no memory.
    void readFrames(Words& words) {
        words.expect({"MOTION", "Frames:"});
        const auto count = words.number(std::size_t(1), std::size_t(-1), "a count of frames");
        words.expect({"Frame", "Time:"});
        frameTime = words.number(1e-5, 100.0, "0.00001 to 100 seconds");
        if (channels == 0) words.fail("no channels");
        for (; frames < count; ++frames) {
            values.push_back(0);
            std::size_t found = 0;
            do {
                values.push_back(words.number());
            } while (++found < channels && !words.endOfLine());
            if (found < channels || !words.endOfLine()) {
                words.fail(std::to_string(channels) + " values on a line expected");
            }
        }
        while (!words.next().empty()) dropped += words.endOfLine();
    }
};

#endif
