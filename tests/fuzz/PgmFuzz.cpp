// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Reads any bytes as a height field. If they are accepted, the heights are those in the bytes, and
// interpolated heights lie between them.
#include "HeightField.h"
#include "Input.h"

#include <cctype>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const auto ground = readBytes<HeightField>(bytes, 2.0, 0.5);  // cells that divide exactly
    if (!ground) return 0;
    require(bytes.compare(0, 2, "P5") == 0);
    const std::size_t columns = ground->columns, rows = ground->rows;
    require(columns >= 2 && columns <= 20000 && rows >= 2 && rows <= 20000);
    std::vector<double> heights;
    for (const auto& row : ground->heights) heights.insert(heights.end(), row.begin(), row.end());
    require(heights.size() == columns * rows);
    const auto [low, high] = std::minmax_element(heights.begin(), heights.end());
    require(*low >= 0 && *high <= 65535);
    std::string raster;
    for (const double height : heights) {
        raster += static_cast<char>(static_cast<unsigned>(height) / 256);
        raster += static_cast<char>(static_cast<unsigned>(height) % 256);
    }
    std::size_t at = bytes.find(raster, 1);  // after a header that ends in white space
    while (at != bytes.npos && !std::isspace(data[at - 1])) at = bytes.find(raster, at + 1);
    require(at != bytes.npos);

    const double east = 2.0 * double(columns - 1), north = 0.5 * double(rows - 1);
    const KyMath::BoundingBoxd box = ground->box(0, columns - 1, 0, rows - 1);
    require(box.getMin() == KyMath::Vector3d(0, 0, *low));
    require(box.getMax() == KyMath::Vector3d(east, north, *high));
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const std::size_t c = i % columns, r = i / columns;
        const double x = 2.0 * double(c), y = 0.5 * double(rows - 1 - r);
        require(ground->heightAt(x, y) == heights[i]);
        const std::size_t c1 = std::min(c + 1, columns - 1), r1 = std::min(r + 1, rows - 1);
        const KyMath::BoundingBoxd cell = ground->box(c, c1, r, r1);
        require(cell.contains(KyMath::Vector3d(x, y, heights[i])));
        const double between = ground->heightAt(x + 0.7, y - 0.1);  // rounding may add an ulp or so
        require(between >= cell.zMin() - 1e-9 && between <= cell.zMax() + 1e-9);
    }
    require(ground->heightAt(-1e7, 1e7) == heights.front());
    require(ground->heightAt(1e7, -1e7) == heights.back());
    return 0;
}
