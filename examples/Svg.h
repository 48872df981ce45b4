// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_SVG_H
#define KYMATH_EXAMPLES_SVG_H

#include <KyMath/Vectors.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

/// A drawing as an SVG file. Positions are in pixels, x to the right and y down; z is ignored.
/// Colours are CSS colours, such as "#2a7". Where the reader prefers dark pages, light and dark
/// change places, and hues stay.
class Svg {
public:
    using Points = std::vector<KyMath::Vector3d>;

    Svg(double width, double height) {
        body_.precision(6);
        body_ << R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" << width << R"(" height=")"
              << height << R"(" viewBox="0 0 )" << width << " " << height << "\">\n"
              << "<style>text{font-family:sans-serif}"
                 "path{fill:none;stroke-linecap:round;stroke-linejoin:round}"
                 "@media(prefers-color-scheme:dark){"
                 "svg{background:#1a1a1a}rect{fill:#1a1a1a}g{filter:invert(.9)hue-rotate(180deg)}}"
                 "</style>\n"
              << R"(<rect width="100%" height="100%" fill="white"/>)"
              << "\n<g>\n";
    }

    void line(const Points& points, const std::string& colour, double thickness,
              double opacity = 1) {
        lines({points}, colour, thickness, opacity);
    }

    void lines(const std::vector<Points>& all, const std::string& colour, double thickness,
               double opacity = 1) {
        body_ << R"(<path stroke=")" << colour << R"(" stroke-width=")" << thickness;
        if (opacity < 1) body_ << R"(" stroke-opacity=")" << opacity;
        body_ << R"(" d=")";
        for (const Points& points : all) {
            body_ << "M";
            write(points);
        }
        body_ << "\"/>\n";
    }

    void area(const Points& points, const std::string& colour, double opacity = 1) {
        body_ << R"(<polygon fill=")" << colour << R"(" fill-opacity=")" << opacity
              << R"(" points=")";
        write(points);
        body_ << "\"/>\n";
    }

    /// A line from a to b, with a head at b.
    void arrow(const KyMath::Vector3d& a, const KyMath::Vector3d& b, const std::string& colour,
               double thickness) {
        KyMath::Vector3d along(b.x() - a.x(), b.y() - a.y(), 0);
        along.normalize();
        const KyMath::Vector3d across(-along.y(), along.x(), 0);
        const double size = 3 + 2.5 * thickness;
        const KyMath::Vector3d base = b - along * size;
        line({a, base}, colour, thickness);
        area({b, base + across * (size * 0.45), base - across * (size * 0.45)}, colour);
    }

    void dot(const KyMath::Vector3d& p, double radius, const std::string& colour,
             double opacity = 1) {
        circle(p, radius) << R"(" fill=")" << colour;
        if (opacity < 1) body_ << R"(" fill-opacity=")" << opacity;
        body_ << "\"/>\n";
    }

    void ring(const KyMath::Vector3d& p, double radius, const std::string& colour,
              double thickness) {
        circle(p, radius) << R"(" fill="none" stroke=")" << colour << R"(" stroke-width=")"
                          << thickness << "\"/>\n";
    }

    /// The text must not contain characters that XML reserves. The anchor, "start", "middle" or
    /// "end", says which part of the text is at p.
    void label(const KyMath::Vector3d& p, const std::string& text, double size,
               const std::string& colour, const char* anchor = "start") {
        body_ << R"(<text x=")" << tenths(p.x()) << R"(" y=")" << tenths(p.y())
              << R"(" font-size=")" << size << R"(" text-anchor=")" << anchor << R"(" fill=")"
              << colour << "\">" << text << "</text>\n";
    }

    /// Writes the file, and removes it again if that fails. Throws std::runtime_error with the file
    /// and the reason.
    void save(const std::string& file) const {
        std::ofstream out(file, std::ios::binary);
        if (!out) throw std::runtime_error(file + ": " + std::strerror(errno));
        out << body_.str() << "</g>\n</svg>\n";
        out.close();
        if (!out) {
            const std::string reason = std::strerror(errno);
            std::remove(file.c_str());
            throw std::runtime_error(file + ": " + reason);
        }
    }

private:
    static double tenths(double v) {  // of a pixel are enough; and 0 has no sign
        return std::round(v * 10) / 10 + 0.0;
    }

    void write(const Points& points) {
        const char* separator = "";
        for (const KyMath::Vector3d& p : points) {
            body_ << separator << tenths(p.x()) << "," << tenths(p.y());
            separator = " ";
        }
    }

    std::ostream& circle(const KyMath::Vector3d& p, double radius) {
        return body_ << R"(<circle cx=")" << tenths(p.x()) << R"(" cy=")" << tenths(p.y())
                     << R"(" r=")" << tenths(radius);
    }

    std::ostringstream body_;
};

#endif
