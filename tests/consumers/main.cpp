// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0

// Differences beside sums, which GCC 12.0 to 12.2 fuse in such a loop.
template <class V>
__attribute__((noinline)) double products(const V (&a)[32], const V (&b)[32]) {
    double pairs[64], all = 0;
    for (int i = 0; i < 32; ++i) {
        pairs[2 * i] = a[i].cross(b[i]);
        pairs[2 * i + 1] = a[i].dot(b[i]);
    }
    for (double value : pairs) all += value;
    return all;
}

#include <KyMath/KyMath.h>

#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <iostream>
#include <vector>

using namespace KyMath;

// WITHHELD: built with another standard library than KyMath, without what holds its containers.

// Constants of the library are ready for the initialisers of a client.
static const Matrix44d identity = Matrix44d::kIdentity;

__attribute__((noinline)) static void turn(Vector2d& v, double angle) {
    v.rotate(angle);
}

// A digest of the bits of sums of products, in which it shows if a compiler fused any of them.
static unsigned long digest() {
    unsigned long hash = 0;
    Vector2d turned(0.3, 0.7), pairs[2][32];
    for (int i = 1; i < 1000; ++i) {
        const Vector3d a(1.0 / i, i / 3.0, 0.1 * i);
        const Vector3d b(i / 7.0, -0.7 * i, 1.1 / i);
        const Matrix44d m = Transformation::composeT(a, b, a, 1.0);
        const Vector3d r = Quaterniond(a, 0.3).rotate(b);
        turn(turned, 1.0 / i);
        pairs[i % 2][i / 2 % 32] = turned;
        for (const double value : {a * b, a.cross(b).z(), m.determinant(), r.x(), turned.x(),
                                   turned.y(), products(pairs[0], pairs[1])}) {
            unsigned long bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            hash = hash * 31 + bits;
        }
    }
    return hash;
}

int main() {
    const Matrix44d m = Transformation::createTranslationT(1.0, 2.0, 3.0);
    const Vector3d p = Transformation::transformPositionT(m, Vector3d(1, 1, 1));
    std::printf("%g %g %g %lx\n", p.x(), p.y(), p.z(), digest());
#ifndef WITHHELD
    Polytope room;
    room.setToBoundingBox(BoundingBoxd(0, 0, 0, 1, 1, 1));
    std::vector<Vector3d> curve(3, p);
    CreateBezier(curve, 9, curve);
    std::cout << Line3(p, p) << '\n';
    if (room.getMaskStack() != std::vector<unsigned>{0, 63} || curve[4] != p) return 1;
#endif
    return p == Vector3d(2, 3, 4) && identity == Matrix44d() ? 0 : 1;
}
