// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_PROGRAM_H
#define KYMATH_EXAMPLES_PROGRAM_H

#include <unistd.h>
#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>

/// Calls run(), which defines and parses the options. Returns its result as the exit status, or 2
/// after a one-line error message.
inline int runProgram(const std::string& name, const std::string& description,
                      int (*run)(CLI::App&, int, char**), int argc, char** argv) {
    CLI::App app(description, name);
    app.option_defaults()->always_capture_default();
    app.set_version_flag("--version", name + " of KyMath " KYMATH_EXAMPLE_VERSION);
    try {
        return run(app, argc, argv);
    } catch (const CLI::Success& helpOrVersion) {
        return app.exit(helpOrVersion);
    } catch (const std::bad_alloc&) {
        std::cerr << name << ": out of memory\n";
    } catch (const std::exception& e) {
        std::cerr << name << ": " << e.what() << '\n';
    }
    return 2;
}

/// Accepts numbers in [low, high] but not NaN. The range appears in --help and in messages.
inline CLI::Validator within(double low, double high) {
    std::ostringstream range;
    range << std::setprecision(8) << low << " to " << high;
    const auto check = [low, high, range = range.str()](const std::string& text) {
        char* end = nullptr;
        const double value = std::strtod(text.c_str(), &end);
        const bool good = *end == '\0' && value >= low && value <= high;
        return good ? "" : text + " is not a number from " + range;
    };
    return CLI::Validator(check, range.str());
}

/// Throws std::runtime_error with the file and the reason unless a picture can be written to
/// output: a new or regular file with this extension that is not the input under another name.
inline void requireWritable(const std::string& output, const std::string& extension,
                            const std::string& input = "") {
    namespace fs = std::filesystem;
    const auto require = [&output](bool holds, const std::string& otherwise) {
        if (!holds) throw std::runtime_error("--output: " + output + ": " + otherwise);
    };
    const fs::path file = output;
    std::error_code ignored;
    const bool exists = fs::exists(file, ignored);
    require(!fs::equivalent(file, input, ignored), "the input would be overwritten");
    require(file.extension() == extension, "a name that ends in " + extension + " expected");
    require(!exists || fs::is_regular_file(file, ignored), "not a regular file");
    const bool writable = ::access((exists ? file : file.parent_path() / ".").c_str(), W_OK) == 0;
    require(writable, std::strerror(errno));
}

/// "1 frame", "2 frames"
inline std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

#endif
