// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Values.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace KyMath::test {
namespace {

template <class T>
using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;

/// The same bits as another type.
template <class To, class From>
To read(From from) {
    static_assert(sizeof(To) == sizeof from);
    To to;
    std::memcpy(&to, &from, sizeof to);
    return to;
}

}  // namespace

// ---- Inputs

void Inputs::nextCall(unsigned limit) {
    limit_ = limit;
    earlier_.clear();
    earlierV_.clear();
}

std::uint64_t Inputs::bits(int count) {
    if (data_ != nullptr) {
        std::uint64_t word = 0;
        for (; count > 0; count -= 8) {
            word = word << 8 | (left_ > 0 ? *data_ : 0u);
            if (left_ > 0) ++data_, --left_;
        }
        return word;
    }
    // splitmix64: S. Vigna, public domain
    std::uint64_t z = state_ += 0x9e3779b97f4a7c15u;
    z = (z ^ z >> 30) * 0xbf58476d1ce4e5b9u;
    z = (z ^ z >> 27) * 0x94d049bb133111ebu;
    return (z ^ z >> 31) >> (64 - count);
}

unsigned Inputs::below(unsigned limit) {
    return unsigned(bits(8)) % limit;
}
unsigned Inputs::pick(unsigned limit, unsigned ordinary) {
    return ordinary_ ? ordinary : below(limit);
}
void Inputs::draw(bool& value) {
    value = below(2) == 1;
}

/// In [-16, 16), with as many bits as T holds.
template <class T>
T Inputs::plain() {
    constexpr int kDigits = std::numeric_limits<T>::digits;
    const auto random = std::int64_t(bits(kDigits + 1)) - (std::int64_t(1) << kDigits);
    return std::ldexp(T(random), 4 - kDigits);
}

/// One of the values at which functions of the library switch, or a neighbour.
template <class T>
T Inputs::threshold() {
    constexpr double kSingle = double(std::numeric_limits<float>::epsilon());
    constexpr double kDouble = std::numeric_limits<double>::epsilon();
    static const double kValues[] = {double(1e-4f), 1e-6,        1e-7, 1e-8,    1e-14,
                                     double(0.01f), kSingle,     0.5,  1.0,     0.99999999,
                                     kDouble,       1 + kDouble, 1e-5, 0x1p-19, 1.0 - kSingle,
                                     0.1,           1e-10,       M_PI, M_PI_2,  0x1p-511};
    const T value = T(kValues[below(sizeof kValues / sizeof *kValues)]);
    const T ends[] = {T(0), std::numeric_limits<T>::max(), value, value};
    return std::nextafter(value, ends[below(4)]);  // half of them exact
}

template <class T>
T Inputs::scalar() {
    using L = std::numeric_limits<T>;
    constexpr T kMost = L::max(), kInf = L::infinity(), kNaN = L::quiet_NaN();
    static const T kSpecial[] = {
        0, -T(0), 1, -1, kMost, -kMost, kInf, -kInf, kNaN, L::denorm_min(), L::min(), L::epsilon()};
    if (ordinary_) return std::fabs(plain<T>());  // for a tolerance, a length, a scale
    switch (below(16)) {
        case 0:
            return kSpecial[below(12)];
        case 1:
            return below(2) == 0 ? threshold<T>() : -threshold<T>();
        case 2:
            if (!earlier_.empty()) {
                const T other = T(earlier_[below(unsigned(earlier_.size()))]);
                return below(2) == 0 ? other : -other;
            }
            return plain<T>();
        case 3: {
            const int exponent = int(bits(12)) % 2200 - 1100;
            return std::ldexp(plain<T>(), exponent);
        }
        case 4:
            return read<T>(Bits<T>(bits(8 * sizeof(T))));
        case 5:
        case 6:
            return T(int(below(9)) - 4);
        default:
            return plain<T>();
    }
}

void Inputs::draw(float& value) {
    value = scalar<float>();
    earlier_.push_back(double(value));
}
void Inputs::draw(double& value) {
    value = scalar<double>();
    earlier_.push_back(value);
}

/// A rotation from a quaternion of integers: exact, except for one rounding of each element.
template <class T>
void Inputs::rotation(T (&rows)[3][3], int (&q)[4]) {
    int square = 0;
    for (int& part : q) {
        part = int(below(9)) - 4;
        square += part * part;
    }
    if (square == 0) q[0] = square = 1;
    const int w = q[0], x = q[1], y = q[2], z = q[3];
    const int integers[3][3] = {
        {w * w + x * x - y * y - z * z, 2 * (x * y - w * z), 2 * (x * z + w * y)},
        {2 * (x * y + w * z), w * w - x * x + y * y - z * z, 2 * (y * z - w * x)},
        {2 * (x * z - w * y), 2 * (y * z + w * x), w * w - x * x - y * y + z * z}};
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) rows[r][c] = T(integers[r][c]) / T(square);
    }
}

template <class T>
void Inputs::components(T* out, int n) {
    const std::vector<double>* other = nullptr;
    for (const auto& v : earlierV_) {
        if (int(v.size()) == n && (other == nullptr || below(2) == 0)) other = &v;
    }
    const unsigned kind = pick(16, 0);
    if (kind < 7) {
        for (int i = 0; i < n; ++i) out[i] = plain<T>();
        if (ordinary_ && below(4) == 0) out[below(unsigned(n))] = 0;  // square to an axis
    } else if (kind < 9) {                                            // tiny or huge as a whole
        const int exponent = std::numeric_limits<T>::min_exponent / 2 * (int(below(5)) - 2);
        for (int i = 0; i < n; ++i) out[i] = std::ldexp(plain<T>(), exponent);
    } else if (kind == 9) {  // along an axis
        std::fill_n(out, n, T(0));
        out[below(unsigned(n))] = scalar<T>();
    } else if (kind == 10 || (kind < 13 && other == nullptr)) {  // of unit length
        T rows[3][3];
        int q[4];
        rotation(rows, q);
        for (int i = 0; i < n; ++i) out[i] = i < 3 ? rows[0][i] : scalar<T>();
    } else if (kind < 13) {  // like an earlier one: equal, parallel, nearly so
        const T factors[] = {T(0.5), 1, 2, 4, -1, -2};
        const T factor = kind == 11 ? T(1) : factors[below(6)];
        for (int i = 0; i < n; ++i) out[i] = T((*other)[std::size_t(i)]) * factor;
        if (below(4) == 0) {
            T& one = out[below(unsigned(n))];
            one = std::nextafter(one, below(2) == 0 ? T(0) : T(100));
        }
    } else {
        for (int i = 0; i < n; ++i) out[i] = scalar<T>();
    }
    earlierV_.emplace_back(out, out + n);
    earlier_.insert(earlier_.end(), out, out + n);
}

template <class T>
void Inputs::matrix(T* m) {
    const unsigned kind = pick(16, 7);
    for (int i = 0; i < 16; ++i) m[i] = T(i % 5 == 0);
    if (kind < 3) {  // general
        for (int i = 0; i < 16; ++i) m[i] = plain<T>();
    } else if (kind == 3) {
        for (int i = 0; i < 16; ++i) m[i] = scalar<T>();
    } else if (kind == 4) {  // singular or nearly so
        for (int i = 0; i < 16; ++i) m[i] = T(int(below(4)) - 1);
    } else if (kind == 5) {  // a projection: perspective, orthographic or off-centre
        for (int i = 0; i < 8; ++i) m[i % 4 * 4 + (i < 4 ? i : 2)] = plain<T>();
        for (int r = 0; r < 3; ++r)
            m[8 + r] = plain<T>(), m[12 + r] = below(2) == 0 ? plain<T>() : T(0);
        m[11] = T(int(below(3)) - 1);
        m[15] = T(below(2));
    } else if (kind == 6 && !earlierV_.empty() && earlierV_.back().size() == 16) {
        for (std::size_t i = 0; i < 16; ++i) m[i] = T(earlierV_.back()[i]);
        if (below(2) == 0) m[below(16)] = scalar<T>();
    } else {  // rotation and translation; scaled evenly, by axis, mirrored, or with one value off
        T rows[3][3];
        int q[4];
        rotation(rows, q);
        for (int c = 0; c < 3; ++c) {
            const T s = kind == 8 ? T(4) : kind == 9 || kind == 10 ? plain<T>() : T(1);
            for (int r = 0; r < 3; ++r) m[4 * c + r] = rows[r][c] * s;
        }
        if (kind < 15) components<T>(m + 12, 3);
        if (kind == 11) m[below(16)] = scalar<T>();
        if (kind == 13) std::fill_n(m + 4 * below(3), 3, T(0));
        if (kind == 12) {
            T& one = m[below(12)];
            one = std::nextafter(one, below(2) == 0 ? T(-9) : T(9));
        }
    }
    earlierV_.emplace_back(m, m + 16);
}

void Inputs::draw(Vector6& v) {
    components<double>(&v[0], 3);
    components<double>(&v[3], 3);
}

template <class T>
void Inputs::draw(QuaternionT<T>& quaternion) {
    if (pick(2, 1) == 0) return components<T>(quaternion, 4);
    // The square of a quaternion of integers, divided by its norm: of unit length within rounding.
    T rows[3][3];
    int q[4];
    rotation(rows, q);
    const int vector = q[1] * q[1] + q[2] * q[2] + q[3] * q[3], norm = q[0] * q[0] + vector;
    quaternion.set(T(q[0] * q[0] - vector) / T(norm), T(2 * q[0] * q[1]) / T(norm),
                   T(2 * q[0] * q[2]) / T(norm), T(2 * q[0] * q[3]) / T(norm));
}

template <class T>
void Inputs::draw(BoundingBoxT<T>& box) {
    const unsigned kind = pick(8, 2);
    if (kind == 0) return box.init();
    draw(box.getMin());
    draw(box.getMax());
    if (kind == 1) return;  // whatever it is
    for (int i = 0; i < 3; ++i) {
        if (box.getMin()[i] > box.getMax()[i]) std::swap(box.getMin()[i], box.getMax()[i]);
    }
}
void Inputs::draw(BoundingSphere& sphere) {
    draw(sphere.center());
    draw(sphere.radius());
    if (pick(8, 1) > 0) sphere.radius() = std::fabs(sphere.radius());
}
template <class T>
void Inputs::draw(PlaneT<T>& plane) {
    Vector4T<T> v;
    draw(v);
    plane.set(v);
}
void Inputs::draw(std::vector<Planed>& planes) {
    const unsigned kind = pick(16, 1);
    planes.resize(kind == 0 ? 30 + below(5) : below(8));
    for (Planed& plane : planes) draw(plane);
}
void Inputs::draw(Polytope& polytope) {
    BoundingBoxd box;
    std::vector<Planed> planes;
    if (below(2) == 0) {
        draw(box);
        polytope.setToBoundingBox(box);
    } else {
        draw(planes);
        polytope.set(planes);
    }
    for (unsigned n = below(3); n > 0; --n) {  // on the way down a hierarchy
        draw(box);
        polytope.contains(box);
        polytope.pushCurrentMask();
    }
}
Polytope& Inputs::polytope() {
    static Polytope polytope;
    draw(polytope);
    return polytope;
}
void Inputs::draw(Frustum& frustum) {
    Matrix44f view, projection;
    draw(view);
    draw(projection);
    frustum.setToWorldSpaceFrustum(view, projection);
}
void Inputs::draw(Line3& line) {
    draw(line.p1);
    draw(line.p2);
}
void Inputs::draw(Ky::KyEulerAngles::eEulerOrder& order) {
    int bits = int(below(24));
    if (below(4) == 0) bits += Ky::KyEulerAngles::eNegated;
    if (below(32) == 0) bits += 64;
    order = Ky::KyEulerAngles::eEulerOrder(bits);
}
void Inputs::draw(Ky::KyEulerAngles& angles) {
    Ky::KyEulerAngles::eEulerOrder order;
    draw(order);
    Vector3d v;
    draw(v);
    angles.set(v[0], v[1], v[2], order);
}
void Inputs::draw(Ky::KyTransform& transform) {
    matrix<double>(transform);
}
void Inputs::draw(eCurveType& type) {
    type = eCurveType(int(below(4)));
}
void Inputs::draw(std::vector<Vector3d>& points) {
    points.resize(below(12));
    for (Vector3d& point : points) draw(point);
}

template void Inputs::components(float*, int);
template void Inputs::components(double*, int);
template void Inputs::matrix(float*);
template void Inputs::matrix(double*);
template void Inputs::draw(Quaternionf&);
template void Inputs::draw(Quaterniond&);
template void Inputs::draw(BoundingBoxf&);
template void Inputs::draw(BoundingBoxd&);
template void Inputs::draw(Planef&);
template void Inputs::draw(Planed&);

// ---- Digest

void Digest::add(float value) {
    add(std::isnan(value) ? std::uint64_t(0x7fc00000) : read<std::uint32_t>(value));
}
void Digest::add(double value) {
    add(std::isnan(value) ? std::uint64_t(0x7ff8000000000000) : read<std::uint64_t>(value));
}
void Digest::add(const std::string& text) {
    for (const char c : text) add(int(c));
}
void Digest::add(const Polytope& polytope) {
    add(polytope.getPlanes());
    add(polytope.getCurrentMask());
    add(polytope.getMaskStack());
}
void Digest::add(const Frustum& frustum) {
    for (unsigned i = 0; i < 6; ++i) add(frustum.getPlane(i));
}
void Digest::add(const Ky::KyEulerAngles& angles) {
    add(angles.angles());
    add(int(angles.order()));
}

}  // namespace KyMath::test
