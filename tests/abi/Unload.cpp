// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Unload LIBRARY: a program may load the library as a plug-in and unload it, again and again. Each
// time a constant has its value, a function works, and nothing is left behind.
#include <dlfcn.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

static void expect(bool condition, const char* what, int round) {
    if (condition) return;
    std::fprintf(stderr, "round %d: %s\n", round, what);
    std::exit(1);
}

/// The bytes that the process has mapped, those of the library, and those in use on the heap.
struct Held {
    std::size_t mapped = 0, library = 0, heap = 0;
};
static Held held() {
    Held h;
    char line[8192];
    std::FILE* const maps = std::fopen("/proc/self/maps", "r");
    while (std::fgets(line, sizeof line, maps) != nullptr) {
        std::size_t begin = 0, end = 0;
        expect(std::sscanf(line, "%zx-%zx", &begin, &end) == 2, "cannot read an area", 0);
        h.mapped += end - begin;
        if (std::strstr(line, "libKyMath") != nullptr) h.library += end - begin;
    }
    std::fclose(maps);
    h.heap = mallinfo2().uordblks;
    return h;
}

int main(int argc, char** argv) {
    expect(argc == 2, "usage: Unload LIBRARY", 0);
    Held early;
    for (int round = 1; round <= 1000; ++round) {
        void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        expect(library != nullptr, "cannot be loaded", round);
        expect(held().library > 0, "is not mapped under its name", round);
        // Matrix44d::kIdentity, and determinant() of it.
        const auto identity =
            static_cast<double*>(dlsym(library, "_ZN6KyMath9Matrix44TIdE9kIdentityE"));
        const auto determinant = reinterpret_cast<double (*)(const double*)>(
            dlsym(library, "_ZNK6KyMath9Matrix44TIdE11determinantEv"));
        expect(identity != nullptr && determinant != nullptr, "lacks a name", round);
        expect(determinant(identity) == 1, "computes nonsense", round);
        expect(dlclose(library) == 0, "cannot be closed", round);

        const Held now = held();
        expect(now.library == 0, "stays mapped", round);
        if (round == 100) early = now;
        if (round > 100) expect(now.mapped <= early.mapped, "leaves mapped memory", round);
        if (round > 100) expect(now.heap <= early.heap, "leaves blocks on the heap", round);
    }
    std::puts("1000 rounds, nothing left behind");
}
