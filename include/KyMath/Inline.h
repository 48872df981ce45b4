// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
#ifndef KYMATH_INLINE_H
#define KYMATH_INLINE_H

/// Lets the compiler inline small members (see docs/linking.md): the same as to link the target
/// KyMath::Inline, for those who cannot. Comes before every other header of the library. For a
/// processor with FMA, members that compute stay calls unless you compile with -ffp-contract=off
/// and define KYMATH_FP_CONTRACT_OFF.
#if !defined(KYMATH_INLINE) && defined(KY_EXPORT_H)
#error "KyMath: include <KyMath/Inline.h> before every other header of the library"
#endif

#ifndef KYMATH_INLINE
#define KYMATH_INLINE
#endif

#endif
