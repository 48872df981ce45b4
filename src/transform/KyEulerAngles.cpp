// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <Ky/KyEulerAngles.h>

#include "internal/Components.h"
#include "internal/Libm.h"

#include <ostream>
#include <utility>

namespace Ky {

using KyMath::Vector3d;

KyEulerAngles::eEulerOrder KyEulerAngles::defaultEulerOrder;

KyEulerAngles::KyEulerAngles() : KyEulerAngles(0, 0, 0, defaultEulerOrder) {}

KyEulerAngles::KyEulerAngles(double a0, double a1, double a2, eEulerOrder order)
    : a_{a0, a1, a2}, order_(order) {}

KyEulerAngles::KyEulerAngles(const Vector3d& angles, eEulerOrder order)
    : KyEulerAngles(angles.x(), angles.y(), angles.z(), order) {}

void KyEulerAngles::set(double a0, double a1, double a2, eEulerOrder order) {
    *this = KyEulerAngles(a0, a1, a2, order);
}
void KyEulerAngles::setOrder(eEulerOrder order) {
    order_ = order;
}

double& KyEulerAngles::operator[](int i) {
    return a_[i];
}
const double& KyEulerAngles::operator[](int i) const {
    return a_[i];
}
Vector3d KyEulerAngles::angles() const {
    return Vector3d(a_);
}
KyEulerAngles::eEulerOrder KyEulerAngles::order() const {
    return order_;
}

namespace {

/// The bits of an order, and the axes that they encode.
struct Decoded {
    explicit Decoded(int order)
        : odd((order & 4) != 0),
          repeated((order & 2) != 0),
          rotating((order & 1) != 0),
          negated((order & 32) != 0) {
        constexpr int kInner[] = {0, 1, 2, 0};
        constexpr int kNext[] = {1, 2, 0, 1};
        i = kInner[(order >> 3) & 3];
        j = kNext[odd ? i + 1 : i];
        k = kNext[odd ? i : i + 1];
    }

    int i, j, k;  // the inner, middle and remaining axis
    bool odd, repeated, rotating, negated;
};

/// Negates all three angles unless the order is negated, and again for an odd parity.
void applySigns(const Decoded& o, double (&t)[3]) {
    if (!o.negated) KyMath::internal::negate(t);
    if (o.odd) KyMath::internal::negate(t);
}

}  // namespace

void KyEulerAngles::toMatrix44(double (*m)[4]) const {
    const Decoded o(order_);
    const int i = o.i;
    const int j = o.j;
    const int k = o.k;
    double t[] = {a_[0], a_[1], a_[2]};
    if (o.rotating) std::swap(t[0], t[2]);
    applySigns(o, t);

    const auto [si, ci] = KyMath::internal::sinCos(t[0]);
    const auto [sj, cj] = KyMath::internal::sinCos(t[1]);
    const auto [sh, ch] = KyMath::internal::sinCos(t[2]);
    const double cc = ci * ch;
    const double cs = ci * sh;
    const double sc = si * ch;
    const double ss = si * sh;
    if (o.repeated) {
        m[i][i] = cj;
        m[i][j] = sj * si;
        m[i][k] = sj * ci;
        m[j][i] = sj * sh;
        m[j][j] = -cj * ss + cc;
        m[j][k] = -cj * cs - sc;
        m[k][i] = -sj * ch;
        m[k][j] = cj * sc + cs;
        m[k][k] = cj * cc - ss;
    } else {
        m[i][i] = cj * ch;
        m[i][j] = sj * sc - cs;
        m[i][k] = sj * cc + ss;
        m[j][i] = cj * sh;
        m[j][j] = sj * ss + cc;
        m[j][k] = sj * cs - sc;
        m[k][i] = -sj;
        m[k][j] = cj * si;
        m[k][k] = cj * ci;
    }
}

void KyEulerAngles::fromMatrix44(const double (*m)[4], eEulerOrder order) {
    using KyMath::internal::atan2;
    constexpr double kGimbalLock = 1.9073486328125e-06;  // 2^-19
    const Decoded o(order);
    const int i = o.i;
    const int j = o.j;
    const int k = o.k;
    double t[3];
    if (o.repeated) {
        const double sy = std::sqrt(m[i][j] * m[i][j] + m[i][k] * m[i][k]);
        const bool locked = !(sy > kGimbalLock);
        t[0] = locked ? atan2(-m[j][k], m[j][j]) : atan2(m[i][j], m[i][k]);
        t[1] = atan2(sy, m[i][i]);
        t[2] = locked ? 0 : atan2(m[j][i], -m[k][i]);
    } else {
        const double cy = std::sqrt(m[i][i] * m[i][i] + m[j][i] * m[j][i]);
        const bool locked = !(cy > kGimbalLock);
        t[0] = locked ? atan2(-m[j][k], m[j][j]) : atan2(m[k][j], m[k][k]);
        t[1] = atan2(-m[k][i], cy);
        t[2] = locked ? 0 : atan2(m[j][i], m[i][i]);
    }
    applySigns(o, t);
    if (o.rotating) std::swap(t[0], t[2]);
    set(t[0], t[1], t[2], order);
}

Vector3d KyEulerAngles::getEulerAngles(const Vector3d& angles, eEulerOrder from, eEulerOrder to) {
    if (from == to) return angles;
    double m[3][4];  // the last row is neither written nor read
    KyEulerAngles(angles, from).toMatrix44(m);
    KyEulerAngles e;
    e.fromMatrix44(m, to);
    return e.angles();
}

bool KyEulerAngles::areEqualTolAndSameOrder(const KyEulerAngles& a, const KyEulerAngles& b,
                                            double tol) {
    return a.order_ == b.order_ && KyMath::internal::areEqualTol(a.a_, b.a_, tol);
}

bool KyEulerAngles::areEqualTol(const KyEulerAngles& a, const KyEulerAngles& b, double tol) {
    if (a.order_ == b.order_) return areEqualTolAndSameOrder(a, b, tol);
    double ma[3][4], mb[3][4];  // the last rows are neither written nor read
    a.toMatrix44(ma);
    b.toMatrix44(mb);
    for (int c = 0; c < 3; ++c) {
        if (!Vector3d::areEqualTol(Vector3d(ma[c]), Vector3d(mb[c]), tol)) return false;
    }
    return true;
}

namespace {

/// Sets the precision of a stream and restores it at the end of the scope, even if writing throws.
class PrecisionGuard {
public:
    PrecisionGuard(std::ostream& os, std::streamsize precision)
        : os_(os), former_(os.precision(precision)) {}
    ~PrecisionGuard() {
        os_.precision(former_);
    }
    PrecisionGuard(const PrecisionGuard&) = delete;
    PrecisionGuard& operator=(const PrecisionGuard&) = delete;

private:
    std::ostream& os_;
    std::streamsize former_;
};

}  // namespace

std::ostream& operator<<(std::ostream& os, const KyEulerAngles& e) {
    const PrecisionGuard guard(os, 17);
    return os << "[" << e[0] << " " << e[1] << " " << e[2]
              << " order: " << static_cast<int>(e.order()) << "]";
}

static_assert(KyMath::internal::kIsPlain<KyEulerAngles, 4 * sizeof(double)> &&
                  sizeof(KyEulerAngles::eEulerOrder) == 4 &&
                  std::is_trivially_copyable_v<KyEulerAngles>,
              "Euler angles are their three values and the order");

}  // namespace Ky
