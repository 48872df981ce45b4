// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// benchmark_functions [--once]: prints nanoseconds of each function of the library, from the table
// of all functions that the tests use, so that none is forgotten. Each is called through a pointer
// on ordinary arguments, which costs one to two nanoseconds.
#include "../tests/functions/Table.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <limits>

using namespace KyMath::test;

namespace {

constexpr std::size_t kObjects = 32;  // with their arguments, so few that they stay in the cache
constexpr std::size_t kPasses = 8;    // so few that results do not run away

/// What writes text, throws, or may only follow its counterpart.
bool hasNoRow(const std::string& name) {
    for (const char* const part : {"print", "<<", "f::operator Ky::KyReal4*",
                                   "f::operator const Ky::KyReal4*", "popCurrentMask"}) {
        if (name.find(part) != std::string::npos) return true;
    }
    return false;
}

double now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(time).count();
}

double nanoseconds(const Function& function, int rounds) {
    const auto& [isMember, code, signature] = function.code;
    std::vector<std::unique_ptr<Argument>> arguments;
    std::vector<void*> addresses;
    for (std::size_t i = 0; i < kObjects; ++i) {
        for (auto make = signature->arguments; *make != nullptr; ++make) {
            arguments.push_back((*make)());
            addresses.push_back(arguments.back()->address);
        }
    }
    const std::size_t each = arguments.size() / kObjects;
    double least = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round) {
        Inputs in(1, true);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if (i % each == 0) in.nextCall(function.limit);
            arguments[i]->draw(in);
        }
        const double begin = now();
        for (std::size_t k = 0; k < kPasses; ++k) {
            for (std::size_t i = 0; i < kObjects; ++i) {
                signature->run(code, addresses.data() + each * i);
            }
        }
        least = std::min(least, (now() - begin) / (kPasses * kObjects));
    }
    return least;
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 && std::strcmp(argv[1], "--once") == 0 ? 1 : 400;
    for (const Function& f : functions()) {
        if (!hasNoRow(f.name)) std::printf("%.2f %s\n", nanoseconds(f, rounds), f.name.c_str());
    }
}
