// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_SVG_H
#define KYMATH_EXAMPLES_SVG_H

#include <KyMath/Vectors.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

/// A drawing as an SVG file. Positions are in pixels, x to the right and y down; z is ignored.
/// Colours are CSS colours, such as "#2a7".
class Svg {
public:
    using Points = std::vector<KyMath::Vector3d>;

    Svg(double width, double height) {
        body_.precision(6);  // thousandths of a pixel are enough
        body_ << R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" << width << R"(" height=")"
              << height << R"(" viewBox="0 0 )" << width << " " << height << "\">\n"
              << R"(<rect width="100%" height="100%" fill="white"/>)"
              << "\n";
    }

    void line(const Points& points, const std::string& colour, double thickness,
              double opacity = 1) {
        body_ << R"(<polyline fill="none" stroke-linecap="round" stroke-linejoin="round" stroke=")"
              << colour << R"(" stroke-width=")" << thickness << R"(" stroke-opacity=")" << opacity
              << R"(" points=")";
        for (const KyMath::Vector3d& p : points) body_ << p.x() << "," << p.y() << " ";
        body_ << "\"/>\n";
    }

    void dot(const KyMath::Vector3d& p, double radius, const std::string& colour,
             double opacity = 1) {
        circle(p, radius) << R"(" fill=")" << colour << R"(" fill-opacity=")" << opacity
                          << "\"/>\n";
    }

    void ring(const KyMath::Vector3d& p, double radius, const std::string& colour,
              double thickness) {
        circle(p, radius) << R"(" fill="none" stroke=")" << colour << R"(" stroke-width=")"
                          << thickness << "\"/>\n";
    }

    /// The text must not contain characters that XML reserves.
    void label(const KyMath::Vector3d& p, const std::string& text, double size,
               const std::string& colour) {
        body_ << R"(<text font-family="sans-serif" x=")" << p.x() << R"(" y=")" << p.y()
              << R"(" font-size=")" << size << R"(" fill=")" << colour << "\">" << text
              << "</text>\n";
    }

    /// Writes the file, and removes it again if that fails. Throws std::runtime_error with the file
    /// and the reason.
    void save(const std::string& file) const {
        std::ofstream out(file, std::ios::binary);
        if (!out) throw std::runtime_error(file + ": " + std::strerror(errno));
        out << body_.str() << "</svg>\n";
        out.close();
        if (!out) {
            const std::string reason = std::strerror(errno);
            std::remove(file.c_str());
            throw std::runtime_error(file + ": " + reason);
        }
    }

private:
    std::ostream& circle(const KyMath::Vector3d& p, double radius) {
        return body_ << R"(<circle cx=")" << p.x() << R"(" cy=")" << p.y() << R"(" r=")" << radius;
    }

    std::ostringstream body_;
};

#endif
