# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""3-D geometry for simulation and graphics: exact to the last bit."""
from ._core import *
from ._core import __libm__


def __getattr__(name):
    if name != "arrays":
        raise AttributeError(f"module 'kymath' has no attribute '{name}'")
    import importlib  # numpy takes a while to load
    return importlib.import_module(".arrays", __name__)
