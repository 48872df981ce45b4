// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_HEIGHTFIELD_H
#define KYMATH_EXAMPLES_HEIGHTFIELD_H

#include <KyMath/BoundingBox.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

/// Ground heights in metres on a regular grid, the northern row first. World coordinates are metres
/// too: x east and y north from the south-west corner, z up.
struct HeightField {
    double cellEast, cellNorth;
    std::size_t columns, rows;
    std::vector<std::vector<std::uint16_t>> heights;  ///< row by row

    /// Reads a 16-bit binary PGM. Throws std::runtime_error with the file and the reason.
    HeightField(const std::string& file, double east, double north)
        : cellEast(east), cellNorth(north) {
        const auto require = [&file](bool holds, const char* otherwise) {
            if (!holds) throw std::runtime_error(file + ": " + otherwise);
        };
        std::ifstream in(file, std::ios::binary);
        require(bool(in), std::strerror(errno));
        const bool magic = in.get() == 'P' && in.get() == '5';
        columns = readNumber(in);
        rows = readNumber(in);
        const std::size_t maximum = readNumber(in);
        const bool ended = std::isspace(in.get()) != 0;  // one byte of white space ends the header
        require(magic && ended && maximum > 255 && maximum < 65536, "not a 16-bit binary PGM");
        require(std::min(columns, rows) >= 2 && std::max(columns, rows) <= 20000,
                "not 2 to 20000 heights a side");
        // Row by row, so that a header that claims more than the file holds costs no memory.
        std::vector<unsigned char> bytes(2 * columns);
        while (heights.size() < rows) {
            in.read(reinterpret_cast<char*>(bytes.data()), std::streamsize(bytes.size()));
            require(bool(in), "truncated");
            heights.emplace_back(columns);
            for (std::size_t c = 0; c < columns; ++c) {  // the high byte comes first
                heights.back()[c] = std::uint16_t(256 * bytes[2 * c] + bytes[2 * c + 1]);
                require(heights.back()[c] <= maximum, "a height above the maximum in the header");
            }
        }
    }

    /// Box around the grid points (c0, r0) to (c1, r1).
    KyMath::BoundingBoxd box(std::size_t c0, std::size_t c1, std::size_t r0, std::size_t r1) const {
        KyMath::BoundingBoxd result;  // empty: the first point replaces both corners
        for (std::size_t r = r0; r <= r1; ++r) {
            for (std::size_t c = c0; c <= c1; ++c) {
                result.expandBy(cellEast * double(c), cellNorth * double(rows - 1 - r), at(c, r));
            }
        }
        return result;
    }

    /// Height at (x, y), interpolated; outside the field, that of the nearest edge.
    double heightAt(double x, double y) const {
        const double column = std::clamp(x / cellEast, 0.0, double(columns - 1));
        const double row = std::clamp(double(rows - 1) - y / cellNorth, 0.0, double(rows - 1));
        const std::size_t c = std::min(std::size_t(column), columns - 2);
        const std::size_t r = std::min(std::size_t(row), rows - 2);
        const double s = column - double(c), t = row - double(r);
        return (1 - t) * ((1 - s) * at(c, r) + s * at(c + 1, r)) +
               t * ((1 - s) * at(c, r + 1) + s * at(c + 1, r + 1));
    }

private:
    double at(std::size_t c, std::size_t r) const {
        return heights[r][c];
    }

    /// Next number of the header. Skips comments, which run from a # to the end of the line.
    static std::size_t readNumber(std::istream& in) {
        while ((in >> std::ws).peek() == '#') {
            in.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
        }
        if (!std::isdigit(in.peek())) in.setstate(std::ios::failbit);  // no sign
        std::size_t number = 0;
        in >> number;
        return number;
    }
};

#endif
