// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// Both PLUGIN: prints the results of this program and those of the same code in a plug-in, which is
// linked with the other library. That of the program comes first wherever names are looked up.
#include <KyMath/KyMath.h>

#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

using namespace KyMath;

extern "C" __attribute__((visibility("default"))) std::uint64_t results() {
    std::uint64_t digest = 0;
    const Vector3d corners[3] = {Vector3d(0.1, 0.2, 0.3), Vector3d(2, 3, 5), Vector3d(-7, 1, 4)};
    Matrix44d turned[3];
    for (int i = 0; i < 1000; ++i) {
        Vector2d v(0.3, 0.7);
        v.rotate(0.1 * i);
        Batch::createRotations(corners, turned, 3);
        const Matrix44d product = Matrix44d::multiply(turned[i % 3], Matrix44d::kIdentity);
        for (const double value : {v.x(), v.y(), product(0, 0), product(1, 2)}) {
            std::uint64_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            digest = digest * 31 + bits;
        }
    }
    return digest;
}

int main(int argc, char** argv) {
    void* const plugin = argc == 2 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (plugin == nullptr) return 1;
    const auto other = reinterpret_cast<std::uint64_t (*)()>(dlsym(plugin, "results"));
    std::printf("%llx %llx\n", static_cast<unsigned long long>(results()),
                static_cast<unsigned long long>(other()));
}
