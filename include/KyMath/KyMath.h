// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_KYMATH_H
#define KYMATH_KYMATH_H

#include <Ky/Ky.h>
#include <KyMath/Batch.h>
#include <KyMath/BoundingBox.h>
#include <KyMath/BoundingSphere.h>
#include <KyMath/Convert.h>
#include <KyMath/Curves.h>
#include <KyMath/Frustum.h>
#include <KyMath/Lines.h>
#include <KyMath/Matrix.h>
#include <KyMath/Plane.h>
#include <KyMath/Polytope.h>
#include <KyMath/Quaternion.h>
#include <KyMath/Rays.h>
#include <KyMath/Transformation.h>
#include <KyMath/Vectors.h>

#endif
