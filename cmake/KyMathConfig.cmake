# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0

# KyMath::KyMath is the shared library, KyMath::Inline the same with small members inlined, KyMath::Static
# the archive; KyMath::Lockstep, KyMath::LockstepInline and KyMath::LockstepStatic are those with the
# trigonometry of SLEEF, where they are installed.
include("${CMAKE_CURRENT_LIST_DIR}/KyMathTargets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/KyMathLockstepTargets.cmake" OPTIONAL)
if(KyMath_FIND_COMPONENTS)
    set(KyMath_FOUND FALSE)
    set(KyMath_NOT_FOUND_MESSAGE "It has no components, but targets: KyMath::KyMath, KyMath::Inline, KyMath::Static, and the same with Lockstep")
endif()
