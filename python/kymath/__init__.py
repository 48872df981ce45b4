# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""3-D geometry for simulation and graphics: exact to the last bit."""
from ._core import *
