// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#include <KyMath/KyMath.h>

#include <cstdio>

// Constants of the library are ready for the initialisers of a client.
static const KyMath::Matrix44d identity = KyMath::Matrix44d::kIdentity;

int main() {
    using namespace KyMath;
    const Matrix44d m = Transformation::createTranslationT(1.0, 2.0, 3.0);
    const Vector3d p = Transformation::transformPositionT(m, Vector3d(1, 1, 1));
    std::printf("%g %g %g\n", p.x(), p.y(), p.z());
    return p == Vector3d(2, 3, 4) && identity == Matrix44d() ? 0 : 1;
}
