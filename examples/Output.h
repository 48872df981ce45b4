// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_OUTPUT_H
#define KYMATH_EXAMPLES_OUTPUT_H

#include <filesystem>
#include <stdexcept>
#include <string>

/// Throws std::runtime_error if the file exists and is a folder, a device or the like: a program
/// that removes what it could not finish must not write to one.
inline void requireRegularFile(const std::string& file) {
    std::error_code ignored;
    if (std::filesystem::exists(file, ignored) &&
        !std::filesystem::is_regular_file(file, ignored)) {
        throw std::runtime_error(file + ": not a regular file");
    }
}

#endif
