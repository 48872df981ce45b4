// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_EXAMPLES_PROGRAM_H
#define KYMATH_EXAMPLES_PROGRAM_H

#include <cstddef>
#include <string>

namespace CLI {
class App;  // compiled in Program.cpp only: it takes long
}

/// Calls run(), which defines and parses the options. Returns its result as the exit status, or 2
/// after a one-line error message.
int runProgram(const std::string& name, const std::string& description,
               int (*run)(CLI::App&, int, char**), int argc, char** argv);

/// Adds an option that sets a std::string, or a bool to true.
template <class T>
void addOption(CLI::App& app, const std::string& name, T& value, const std::string& help);

/// Adds an option that sets a double or unsigned, or a std::vector of three of them. It accepts
/// numbers in [low, high], which --help and messages name, but not NaN. --help shows the present
/// value, or what stands in unset.
template <class T>
void addNumber(CLI::App& app, const std::string& name, T& value, double low, double high,
               const std::string& help, const std::string& unset = "");

void parseOptions(CLI::App& app, int argc, char** argv);

/// Throws std::runtime_error with the file and the reason unless a picture can be written to
/// output: a new or regular file with this extension that is not the input under another name.
void requireWritable(const std::string& output, const std::string& extension,
                     const std::string& input = "");

/// "1 frame", "2 frames"
inline std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

#endif
