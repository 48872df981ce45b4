// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/Vector6.h>

#include "internal/Components.h"

#include <ostream>

namespace KyMath {

Vector6::Vector6(double a0, double a1, double a2, double a3, double a4, double a5)
    : v_{a0, a1, a2, a3, a4, a5} {}

Vector6::Vector6(const double* first, const double* second)
    : v_{first[0], first[1], first[2], second[0], second[1], second[2]} {}

Vector6& Vector6::operator=(const Vector6& v) {
    internal::copy(v_, v.v_);
    return *this;
}

void Vector6::set(const Vector3T<double>& first, const Vector3T<double>& second) {
    *this = Vector6(first, second);
}

double& Vector6::operator[](int i) {
    return v_[i];
}
const double& Vector6::operator[](int i) const {
    return v_[i];
}

void Vector6::add(const Vector6& v) {
    internal::add(v_, v.v_);
}
void Vector6::sub(const Vector6& v) {
    internal::subtract(v_, v.v_);
}
void Vector6::scale(double s) {
    internal::scale(v_, s);
}

double Vector6::dot(const Vector6& v) const {
    double sum = 0;  // part of the result: since 0 + -0 is 0, a dot product is never -0
    for (int i = 0; i < 6; ++i) sum += v_[i] * v.v_[i];
    return sum;
}
double Vector6::norm() const {
    return std::sqrt(dot(*this));
}

std::ostream& operator<<(std::ostream& os, const Vector6& v) {
    os << v[0];
    for (int i = 1; i < 6; ++i) os << " " << v[i];
    return os;
}

static_assert(internal::kIsPlain<Vector6, 6 * sizeof(double)>, "a vector is its six values");

}  // namespace KyMath
