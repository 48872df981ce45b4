# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""The functions of KyMath on whole arrays, as generalised universal functions of numpy."""
from .._arrays import *
