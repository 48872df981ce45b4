// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_VECTORS_H
#define KYMATH_VECTORS_H

#include <KyMath/Vector2.h>
#include <KyMath/Vector3.h>
#include <KyMath/Vector4.h>
#include <KyMath/Vector6.h>

#endif
