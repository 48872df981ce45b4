# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""survey.py [MILLIONS]: boxes that do not fit in memory, moved and culled in blocks on all cores. 200 million,
which would take 9.6 GB, need a few hundred MB here. Up to a million, the result is compared with that of one call."""
import sys
from typing import Any

import dask
import dask.array as da
import numpy as np
from dask.diagnostics import ProgressBar

import kymath as ky
from kymath.arrays import BoundingBox, Polytope

BLOCK = 250_000
count = int(float(sys.argv[1] if len(sys.argv) > 1 else 20) * 1e6)


def load(block_info: Any = None) -> Any:
    """One block of a survey, here at random; a real one would read a file."""
    (first, last), *_ = block_info[None]["array-location"]
    random = np.random.default_rng(first)
    corner = random.uniform(-1000, 1000, (last - first, 1, 3))
    return corner + np.concatenate([np.zeros_like(corner), random.uniform(0, 5, corner.shape)], axis=1)


# From the survey to the world, and what a camera there sees of it.
placement = np.asarray(ky.Transformation.composeT(
    ky.Vector3d(2, 2, 2), ky.Vector3d(0, 0, 0.5), ky.Vector3d(9, 0, 0), 1.0))
view = ky.Transformation.createCameraLookAtT(ky.Vector3d(0, 0, 500), ky.Vector3d(900, 400, 0), ky.Vector3d(0, 0, 1))
clip = np.asarray(ky.Transformation.createPerspectiveT(0.7, 1.6, 1.0, 900.0) @ view.inverse_orthogonal())
x, y, z, w = clip
planes = np.stack([w + x, w - x, w + y, w - y, w - z, z])


def seen(boxes: Any) -> Any:
    return Polytope.contains(planes, BoundingBox.transform(boxes, placement))


sizes = da.core.normalize_chunks(BLOCK, (count,))[0]
blocks = da.map_blocks(load, chunks=(sizes, 2, 3), dtype="d")
visible = blocks.map_blocks(seen, dtype=bool, drop_axis=[1, 2])
with ProgressBar():
    total, first = dask.compute(visible.sum(), visible.argmax())
print(f"{total:,} of {count:,} boxes are in view, the first is number {first:,}")
if count <= 1e6:
    print("the same in one call:", np.array_equal(visible.compute(), seen(blocks.compute())))
