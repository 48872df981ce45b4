# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""exposure.py [PICTURE]: what a flight sees. How long each tile of a landscape is in the view of a camera
that flies along a curve for 24 seconds: 600 frames, 2,150 boxes, 7.7 million tests in one call."""
import pathlib
import sys

import matplotlib
import numpy as np

import kymath as ky
from kymath.arrays import BoundingBox, Matrix44, Plane, Transformation

matplotlib.use("Agg")
from matplotlib import colors, pyplot

CELL, TILE, FRAMES, RATE = (74.4, 92.6), 8, 600, 25

# The heights, south row first, and a box around each tile of 8 by 8 cells.
data = pathlib.Path(__file__).parents[1] / "data" / "jacksboro.pgm"
height = np.frombuffer(data.read_bytes()[-403 * 344 * 2:], ">u2").reshape(344, 403)[::-1].astype("d")
tiles = height[:344, :400].reshape(43, TILE, 50, TILE)
rows, columns = np.indices((43, 50))
low = np.stack([columns * TILE * CELL[0], rows * TILE * CELL[1], tiles.min(axis=(1, 3))], axis=-1)
high = np.stack([(columns + 1) * TILE * CELL[0], (rows + 1) * TILE * CELL[1], tiles.max(axis=(1, 3))], axis=-1)
boxes = np.stack([low, high], axis=-2).reshape(-1, 2, 3)

# The flight: a B-spline, and at each point a camera that looks ahead and down.
turns = [(2e3, 3e3), (9e3, 6e3), (8e3, 15e3), (15e3, 22e3), (21e3, 14e3), (17e3, 7e3), (24e3, 4e3), (28e3, 12e3)]
path = np.array(ky.CreateBSpline([ky.Vector3d(x, y, 1600) for x, y in turns], FRAMES + 1))
ahead = np.diff(path, axis=0)
path = path[:-1]
ahead /= np.linalg.norm(ahead, axis=1, keepdims=True)
camera = Transformation.createCameraLookAtT(path, path + ahead * 1000 - [0, 0, 250], [0.0, 0.0, 1.0])

# Six planes of each frame, from the rows of its projection; then all planes against all boxes.
projection = np.asarray(ky.Transformation.createPerspectiveT(0.7, 1.6, 100.0, 6000.0))
clip = Matrix44.multiply(projection, Matrix44.inverse_orthogonal(camera))
x, y, z, w = np.moveaxis(clip, 1, 0)
planes = np.stack([w + x, w - x, w + y, w - y, w - z, z], axis=1)
sides = Plane.intersect(planes[:, :, None], boxes)  # (600, 6, 2150): 1 inside, 0 across, -1 outside
seconds = (sides >= 0).all(axis=1).sum(axis=0).reshape(43, 50) / RATE
centre = BoundingBox.center(boxes[seconds.argmax()])
print(f"{sides.size:,} tests; {np.count_nonzero(seconds)} of {len(boxes)} tiles come into view,")
print(f"one for {seconds.max():.2f} s, at {centre[0] / 1e3:.1f} km east, {centre[1] / 1e3:.1f} km north")

# A shaded relief that glows where the camera looks for long.
extent = 0, 400 * CELL[0] / 1e3, 0, 344 * CELL[1] / 1e3
relief = colors.LightSource(315, 40).hillshade(height[:, :400], dx=CELL[0], dy=CELL[1], vert_exag=1.5)
figure, axes = pyplot.subplots(figsize=(9, 8.4), layout="constrained")
axes.imshow(relief, cmap="gray", vmin=-0.3, extent=extent, origin="lower")
glow = axes.imshow(np.where(seconds > 0, seconds, np.nan), cmap="inferno", alpha=0.55, extent=extent, origin="lower",
                   interpolation="nearest")
axes.plot(*path[:, :2].T / 1e3, color="white", linewidth=2)
axes.quiver(*path[::40, :2].T / 1e3, *ahead[::40, :2].T, color="cyan", scale=25, width=0.004)
axes.set(xlabel="km east", ylabel="km north", title="What a flight sees")
figure.colorbar(glow, label="seconds in view", shrink=0.8)
figure.savefig(sys.argv[1] if len(sys.argv) > 1 else "exposure.png", dpi=90)
