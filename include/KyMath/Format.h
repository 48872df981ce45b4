// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_FORMAT_H
#define KYMATH_FORMAT_H

/// @file
/// Lets std::format and fmt::format write every class of the library. Nothing else includes this.
///
/// A format such as {:.3f} or {:>8.2e} goes to each number; {} writes what reads back to the same
/// bits. Vectors, planes and rows of matrices are written as (1, 2, 3), the rest as a debugger
/// shows it:
///
///     quaternion      (w = 1, x = 0, y = 0, z = 0)
///     matrix          a line for each row, without a line end after the last
///     Euler angles    eXYZs (0.5, 0, -1); eXYZs | eNegated; order 64, if it has no name
///     box             min (0, 0, 0), max (1, 1, 1)
///     sphere          center (0, 0, 0), radius 1
///     line, segment   p1 (0, 0, 0), p2 (1, 1, 1)
///     frustum         a line for each plane: left (1, 0, 0, 1), right ...
///     polytope        a line for each plane
///
/// std::formatter is there if the standard library has it (C++20), fmt::formatter if
/// fmt/format.h is found. With neither, this header is an error.
#include <Ky/KyEulerAngles.h>
#include <Ky/KyTransform.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/BoundingSphere.h>
#include <KyMath/Frustum.h>
#include <KyMath/Lines.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Polytope.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Vectors.h>

#include <cstdio>

#if __cplusplus > 201703L
#include <version>
#ifdef __cpp_lib_format
#include <format>
#define KY_STD_FORMAT
#endif
#endif
#if __has_include(<fmt/format.h>)
#include <fmt/format.h>
#endif
#if !defined(KY_STD_FORMAT) && !defined(FMT_VERSION)
#error "KyMath: <KyMath/Format.h> needs std::format (C++20) or the library fmt"
#endif

namespace KyMath {
namespace internal {

/// Writes the parts of a value: text as it is, numbers as Number, a formatter of T, was told to.
template <class T, class Number, class Context>
class Writer {
public:
    Writer(const Number& number, Context& context) : number_(number), context_(context) {}

    Writer& operator<<(const char* text) {
        auto out = context_.out();
        for (; *text; ++text) *out++ = *text;
        context_.advance_to(out);
        return *this;
    }
    Writer& operator<<(T number) {
        context_.advance_to(number_.format(number, context_));
        return *this;
    }

    Writer& operator<<(const Vector2T<T>& v) {
        return list(&v[0], 2);
    }
    Writer& operator<<(const Vector3T<T>& v) {
        return list(&v[0], 3);
    }
    Writer& operator<<(const Vector4T<T>& v) {
        return list(&v[0], 4);
    }
    Writer& operator<<(const Vector6& v) {
        return list(&v[0], 6);
    }
    Writer& operator<<(const PlaneT<T>& p) {
        return *this << p.getAsVector4();
    }
    Writer& operator<<(const QuaternionT<T>& q) {
        return *this << "(w = " << q.w() << ", x = " << q.x() << ", y = " << q.y()
                     << ", z = " << q.z() << ")";
    }
    Writer& operator<<(const Matrix44T<T>& m) {
        for (unsigned long r = 0; r < 4; ++r) *this << (r > 0 ? "\n" : "") << m.row(r);
        return *this;
    }
    Writer& operator<<(const Ky::KyTransform& t) {
        return *this << t.toMatrix44();
    }
    Writer& operator<<(const Ky::KyEulerAngles& e) {
        return order(static_cast<unsigned int>(e.order())) << " " << e.angles();
    }
    Writer& operator<<(const BoundingBoxT<T>& b) {
        return *this << "min " << b.getMin() << ", max " << b.getMax();
    }
    Writer& operator<<(const BoundingSphere& s) {
        return *this << "center " << s.center() << ", radius " << s.radius();
    }
    Writer& operator<<(const Line3& line) {
        return *this << "p1 " << line.p1 << ", p2 " << line.p2;
    }
    Writer& operator<<(const Frustum& f) {
        const char* const names[] = {"left ",  "\nright ", "\nbottom ",
                                     "\ntop ", "\nfar ",   "\nnear "};
        for (unsigned int i = 0; i < 6; ++i) *this << names[i] << f.getPlane(i);
        return *this;
    }
    template <class P>
    Writer& planes(const P& polytope) {
        const char* before = "";
        for (const PlaneT<T>& plane : polytope.getPlanes()) {
            *this << before << plane;
            before = "\n";
        }
        return *this;
    }
    Writer& operator<<(const Polytope& p) {
        return planes(p);
    }

private:
    Writer& list(const T* values, int count) {
        for (int i = 0; i < count; ++i) *this << (i > 0 ? ", " : "(") << values[i];
        return *this << ")";
    }
    Writer& order(unsigned int code) {
        const unsigned int negated = static_cast<unsigned int>(Ky::KyEulerAngles::eNegated);
        const char* const names[] = {"eXYZs", "eZYXr", "eXYXs", "eXYXr", "eXZYs", "eYZXr",
                                     "eXZXs", "eXZXr", "eYZXs", "eXZYr", "eYZYs", "eYZYr",
                                     "eYXZs", "eZXYr", "eYXYs", "eYXYr", "eZXYs", "eYXZr",
                                     "eZXZs", "eZXZr", "eZYXs", "eXYZr", "eZYZs", "eZYZr"};
        const unsigned int name = code & ~negated;
        if (name < 24) return *this << names[name] << (code & negated ? " | eNegated" : "");
        char number[16];
        std::snprintf(number, sizeof number, "order %d", static_cast<int>(code));
        return *this << number;
    }

    const Number& number_;
    Context& context_;
};

/// A formatter of V: parses what Number, a formatter of T, parses.
template <class V, class T, class Number>
struct Formatter : Number {
    template <class Context>
    auto format(const V& v, Context& context) const -> decltype(context.out()) {
        Writer<T, Number, Context>(*this, context) << v;
        return context.out();
    }
};

}  // namespace internal
}  // namespace KyMath

// Of each class by itself: a template would compete with those for ranges and tuples.
#define KY_FORMATTER(formatter, V, T) \
    template <>                       \
    struct formatter<V> : KyMath::internal::Formatter<V, T, formatter<T>> {};
#define KY_FORMATTERS(formatter)                            \
    KY_FORMATTER(formatter, KyMath::Vector2f, float)        \
    KY_FORMATTER(formatter, KyMath::Vector2d, double)       \
    KY_FORMATTER(formatter, KyMath::Vector3f, float)        \
    KY_FORMATTER(formatter, KyMath::Vector3d, double)       \
    KY_FORMATTER(formatter, KyMath::Vector4f, float)        \
    KY_FORMATTER(formatter, KyMath::Vector4d, double)       \
    KY_FORMATTER(formatter, KyMath::Vector6, double)        \
    KY_FORMATTER(formatter, KyMath::Quaternionf, float)     \
    KY_FORMATTER(formatter, KyMath::Quaterniond, double)    \
    KY_FORMATTER(formatter, KyMath::Matrix44f, float)       \
    KY_FORMATTER(formatter, KyMath::Matrix44d, double)      \
    KY_FORMATTER(formatter, Ky::KyTransform, double)        \
    KY_FORMATTER(formatter, Ky::KyEulerAngles, double)      \
    KY_FORMATTER(formatter, KyMath::BoundingBoxf, float)    \
    KY_FORMATTER(formatter, KyMath::BoundingBoxd, double)   \
    KY_FORMATTER(formatter, KyMath::BoundingSphere, double) \
    KY_FORMATTER(formatter, KyMath::Planef, float)          \
    KY_FORMATTER(formatter, KyMath::Planed, double)         \
    KY_FORMATTER(formatter, KyMath::Frustum, float)         \
    KY_FORMATTER(formatter, KyMath::Polytope, double)       \
    KY_FORMATTER(formatter, KyMath::Line3, double)          \
    KY_FORMATTER(formatter, KyMath::Segment3, double)
#ifdef KY_STD_FORMAT
KY_FORMATTERS(std::formatter)
#undef KY_STD_FORMAT
#endif
#ifdef FMT_VERSION
KY_FORMATTERS(fmt::formatter)
#endif
#undef KY_FORMATTERS
#undef KY_FORMATTER

#endif
