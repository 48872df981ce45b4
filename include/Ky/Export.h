// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KY_EXPORT_H
#define KY_EXPORT_H

/// Marks what libKyMath.so exports. Everything else in the library is hidden.
///
/// KY_STATIC is defined while the static archive is compiled: a program or plug-in that links the
/// archive then exports none of it. Clients need not define it.
#ifdef KY_STATIC
#define KY_API
#else
#define KY_API __attribute__((visibility("default")))
#endif

#endif
