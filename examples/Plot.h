// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_PLOT_H
#define KYMATH_EXAMPLES_PLOT_H

#include "Svg.h"

#include <algorithm>
#include <string>

/// A panel of a drawing with a curve for each name, both axes by powers of ten. Points outside the
/// axes and values that are not numbers are left out.
class Plot {
public:
    struct Axis {
        int from, to;  ///< Powers of ten. They descend if from is above to.
        std::string title;
    };

    Plot(Svg& svg, double left, double top, double width, double height, const std::string& title,
         const Axis& x, const Axis& y)
        : svg_(svg),
          left_(left),
          bottom_(top + height),
          width_(width),
          height_(height),
          x_(x),
          y_(y) {
        svg_.label({left - 45, top - 32, 0}, title, 16, "#1a2440");
        svg_.label({left - 45, top - 12, 0}, y.title, 14, kGrey);
        svg_.label({left + width, bottom_ + 38, 0}, x.title, 14, kGrey, "end");
        grid(
            x, [this](int n) { return at(n, y_.from); }, [this](int n) { return at(n, y_.to); },
            {0, 18, 0}, "middle");
        grid(
            y, [this](int n) { return at(x_.from, n); }, [this](int n) { return at(x_.to, n); },
            {-6, 5, 0}, "end");
    }

    /// Points hold x and y. The name stands by the point that is nearest to the x given, above it
    /// or below.
    void curve(const Svg::Points& points, const std::string& colour, const std::string& name,
               double nameAt, double above) {
        Svg::Points drawn;
        KyMath::Vector3d anchor;
        double nearest = HUGE_VAL;
        for (const KyMath::Vector3d& p : points) {
            const double x = std::log10(p.x()), y = std::log10(p.y());
            if (!(y >= std::min(y_.from, y_.to) && y <= std::max(y_.from, y_.to))) continue;
            drawn.push_back(at(x, y));
            const double away = std::abs(x - std::log10(nameAt));
            if (away < nearest) anchor = drawn.back();
            nearest = std::min(nearest, away);
        }
        svg_.line(drawn, colour, 2.2);
        svg_.label(anchor - KyMath::Vector3d(0, above, 0), name, 14, colour, "middle");
    }

private:
    static constexpr const char* kGrey = "#6b7485";

    template <class Begin, class End>
    void grid(const Axis& axis, Begin begin, End end, const KyMath::Vector3d& offset,
              const char* anchor) {
        const int step = std::abs(axis.to - axis.from) > 8 ? 2 : 1;
        const int low = std::min(axis.from, axis.to), high = std::max(axis.from, axis.to);
        for (int n = low; n <= high; n += step) {
            svg_.line({begin(n), end(n)}, "#e4e7ed", 1);
            const std::string power = n == 0 ? "1" : n == 1 ? "10" : "1e" + std::to_string(n);
            svg_.label(begin(n) + offset, power, 13, kGrey, anchor);
        }
    }

    KyMath::Vector3d at(double x, double y) const {
        return {left_ + width_ * (x - x_.from) / (x_.to - x_.from),
                bottom_ - height_ * (y - y_.from) / (y_.to - y_.from), 0};
    }

    Svg& svg_;
    double left_, bottom_, width_, height_;
    Axis x_, y_;
};

#endif
