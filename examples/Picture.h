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

    /// Fills the rectangle with corners a and b.
    void fill(const Vector3d& a, const Vector3d& b, const Vector3d& colour, double opacity) {
        paint(a, b, 0, [&](const Vector3d&) { return KyMath::Vector4d(colour, opacity); });
    }

    /// Writes from p, the left end of the base line, with capitals as high as size. There are only
    /// the letters and digits that the pictures need.
    void text(const Vector3d& p, const std::string& words, double size, const Vector3d& colour) {
        double x = 0;
        for (const char c : words) {
            double width = 2;  // of a blank
            for (const std::string& line : strokes(c)) {
                Vector3d last;
                for (std::size_t i = 0; i + 1 < line.size(); i += 2) {  // each point: x, then y
                    const Vector3d at(x + line[i] - '0', line[i + 1] - '6', 0);
                    stroke(p + (i == 0 ? at : last) * (size / 6), p + at * (size / 6), size / 8,
                           colour, 1);
                    width = std::max(width, double(line[i] - '0'));
                    last = at;
                }
            }
            x += width + 1.4;
        }
    }

    /// Writes a PNG, and removes it again if that fails. Throws std::runtime_error with the file
    /// and the reason.
    void save(const std::string& file) const {
        std::vector<png_byte> bytes;
        for (const Vector3d& p : pixels_) {
            for (int i = 0; i < 3; ++i) {
                // 32 levels are enough for the eye, and make the file half as large.
                const double level = std::round(31 * std::clamp(p[i], 0.0, 1.0));
                bytes.push_back(png_byte(std::lround(255 * level / 31)));
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
    /// Polylines on a grid, digits for x to the right and y down; the base line is at y = 6.
    static std::vector<std::string> strokes(char c) {
        switch (c) {
            case '0':
                return {"102031352616050110"};
            case '1':
                return {"011016"};
            case '2':
                return {"01102031320636"};
            case '5':
                return {"300002223335261605"};
            case 'a':
                return {"3322120305162635", "3236"};
            case 'c':
                return {"3322120305162635"};
            case 'e':
                return {"04343322120305162635"};
            case 'f':
                return {"201116", "0222"};
            case 'i':
                return {"1216", "1010"};
            case 'k':
                return {"0006", "3204", "1336"};
            case 'm':
                return {"0206", "03122326", "23324346"};
            case 'n':
                return {"0206", "0312223336"};
            case 'o':
                return {"122233352616050312"};
            case 'p':
                return {"0208", "0312223335261605"};
            case 'r':
                return {"0206", "031222"};
            case 't':
                return {"101526", "0222"};
            case 'u':
                return {"0205162635", "3236"};
            case 'v':
                return {"022642"};
            case 'w':
                return {"0216233642"};
            default:
                return {};
        }
    }

    int width_, height_;
    std::vector<Vector3d> pixels_;
};

#endif
