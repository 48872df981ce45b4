// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include "Program.h"

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
#include <type_traits>
#include <vector>

int runProgram(const std::string& name, const std::string& description,
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

template <>
void addOption(CLI::App& app, const std::string& name, std::string& value,
               const std::string& help) {
    app.add_option(name, value, help);
}

template <>
void addOption(CLI::App& app, const std::string& name, bool& value, const std::string& help) {
    app.add_flag(name, value, help);
}

template <class T>
void addNumber(CLI::App& app, const std::string& name, T& value, double low, double high,
               const std::string& help, const std::string& unset) {
    std::ostringstream range;
    range << std::setprecision(8) << low << " to " << high;
    const auto check = [low, high, range = range.str()](const std::string& text) {
        char* end = nullptr;
        const double number = std::strtod(text.c_str(), &end);
        const bool good = *end == '\0' && number >= low && number <= high;
        return good ? "" : text + " is not a number from " + range;
    };
    CLI::Option* const option = app.add_option(name, value, help);
    option->check(CLI::Validator(check, range.str()));
    if (!unset.empty()) option->default_str(unset);
    if constexpr (!std::is_arithmetic<T>::value) option->expected(3);
}
#define INSTANTIATE(T)                                                                             \
    template void addNumber(CLI::App&, const std::string&, T&, double, double, const std::string&, \
                            const std::string&);
INSTANTIATE(double)
INSTANTIATE(unsigned)
INSTANTIATE(std::vector<double>)
INSTANTIATE(std::vector<unsigned>)

void parseOptions(CLI::App& app, int argc, char** argv) {
    app.parse(argc, argv);
}

void requireWritable(const std::string& output, const std::string& extension,
                     const std::string& input) {
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
