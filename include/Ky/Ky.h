// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_KY_H
#define KY_KY_H

#include <Ky/Export.h>
#include <Ky/KyEulerAngles.h>
#include <Ky/KyReal.h>
#include <Ky/KyTransform.h>
#include <Ky/Tolerance.h>

#endif
