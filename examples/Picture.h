// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_PICTURE_H
#define KYMATH_EXAMPLES_PICTURE_H

#include <KyMath/Vectors.h>
#include <png.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

/// A picture to draw on. Positions are in pixels, x to the right and y down; z is ignored. Colours
/// are (red, green, blue) from 0 to 1.
class Picture {
public:
    using Vector3d = KyMath::Vector3d;

    Picture(int width, int height)
        : width_(width), height_(height), pixels_(std::size_t(width) * std::size_t(height)) {}

    /// Calls over(centre) for each pixel within reach of the rectangle with corners a and b, and
    /// blends the result (red, green, blue, opacity) over the pixel.
    template <class Over>
    void paint(const Vector3d& a, const Vector3d& b, double reach, Over over) {
        const auto first = [](double v, int size) {  // first pixel whose centre is at least v
            return int(std::ceil(std::clamp(v - 0.5, 0.0, double(size))));
        };
        const int x0 = first(std::min(a.x(), b.x()) - reach, width_);
        const int y0 = first(std::min(a.y(), b.y()) - reach, height_);
        const int x1 = first(std::max(a.x(), b.x()) + reach, width_);
        const int y1 = first(std::max(a.y(), b.y()) + reach, height_);
        for (int y = y0; y < y1; ++y) {
            for (int x = x0; x < x1; ++x) {
                const KyMath::Vector4d v = over(Vector3d(x + 0.5, y + 0.5, 0));
                Vector3d& pixel = pixels_[std::size_t(y) * std::size_t(width_) + std::size_t(x)];
                pixel = pixel * (1 - v.w()) + v.xyz() * v.w();
            }
        }
    }

    /// Draws the segment from a to b, antialiased and with round ends; a dot if a equals b.
    void stroke(const Vector3d& a, const Vector3d& b, double thickness, const Vector3d& colour,
                double opacity) {
        const Vector3d from(a.x(), a.y(), 0), d(b.x() - a.x(), b.y() - a.y(), 0);
        const double dd = std::max(d * d, 1e-9), reach = 0.5 * thickness + 0.5;
        paint(a, b, reach, [&](const Vector3d& p) {
            const Vector3d nearest = from + d * std::clamp((p - from) * d / dd, 0.0, 1.0);
            const double cover = std::clamp(reach - Vector3d::distance(p, nearest), 0.0, 1.0);
            return KyMath::Vector4d(colour, cover * opacity);
        });
    }

    /// Writes a PNG, and removes it again if that fails. Throws std::runtime_error with the file
    /// and the reason.
    void save(const std::string& file) const {
        std::vector<png_byte> bytes;
        for (const Vector3d& p : pixels_) {
            for (int i = 0; i < 3; ++i) {
                bytes.push_back(png_byte(std::lround(255 * std::clamp(p[i], 0.0, 1.0))));
            }
        }
        png_image image = {};
        image.version = PNG_IMAGE_VERSION;
        image.format = PNG_FORMAT_RGB;
        image.width = png_uint_32(width_);
        image.height = png_uint_32(height_);
        if (!png_image_write_to_file(&image, file.c_str(), 0, bytes.data(), 0, nullptr)) {
            throw std::runtime_error(file + ": " + image.message);
        }
    }

private:
    int width_, height_;
    std::vector<Vector3d> pixels_;
};

#endif
