// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_TESTS_FUZZ_INPUT_H
#define KYMATH_TESTS_FUZZ_INPUT_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

inline void require(bool holds) {
    if (!holds) std::abort();  // leaves a stack trace with the line
}

/// Reads a file with these bytes. Returns nothing if the reader refuses them, which it must do with
/// a std::runtime_error of one line that begins with the file's name.
template <class Reader, class... Arguments>
std::optional<Reader> readBytes(const std::string& bytes, Arguments... arguments) {
    static const int memory = memfd_create("input", 0);
    const std::string file = "/proc/self/fd/" + std::to_string(memory);
    const auto size = static_cast<ssize_t>(bytes.size());
    require(ftruncate(memory, 0) == 0 && pwrite(memory, bytes.data(), bytes.size(), 0) == size);
    try {
        return Reader(file, arguments...);
    } catch (const std::runtime_error& e) {
        const std::string message = e.what();
        require(message.find(file + ":") == 0 && message.find('\n') == message.npos);
        return std::nullopt;
    }
}

#endif
