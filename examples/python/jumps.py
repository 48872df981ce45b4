# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""jumps.py [PICTURE]: a motion capture as arrays, all frames and joints at once: where the joints are, and in
which order of axes the Euler curves of a joint are smoothest, for whoever edits them."""
import pathlib
import sys

import matplotlib
import numpy as np

import kymath as ky
from kymath.arrays import KyEulerAngles, KyTransform

matplotlib.use("Agg")
from matplotlib import pyplot

# The skeleton, parents first, and the frames: a position, then the angles of each joint about z, y, x.
data = pathlib.Path(__file__).parents[1] / "data" / "jumps.bvh"
hierarchy, motion = data.read_text().split("MOTION")
names: list[str] = []
parents: list[int] = []
offsets: list[list[float]] = []
above: list[int] = []  # the joints whose braces are open; -1 is an end
last = -1
for line in hierarchy.splitlines():
    word, *rest = line.split() or [""]
    if word in ("ROOT", "JOINT", "End"):
        last = -1 if word == "End" else len(names)
        if last >= 0:
            names.append(rest[0])
            parents.append(above[-1] if above else -1)
    elif word == "OFFSET" and last >= 0:
        offsets.append([float(number) for number in rest])
    elif word == "{":
        above.append(last)
    elif word == "}":
        above.pop()
numbers = np.array(motion.partition("Frame Time:")[2].split()[1:], "d").reshape(-1, 3 + 3 * len(names))
angles = np.radians(numbers[:, 3:]).reshape(-1, len(names), 3)

# Each joint in its parent, then, down the skeleton, in the world: all frames in one call.
captured = ky.KyEulerAngles.eZYXs
local = KyTransform.setTranslation(KyEulerAngles.toMatrix44(angles, captured), offsets)
local[:, 0] = KyTransform.setTranslation(local[:, 0], numbers[:, :3])
world = local.copy()
for joint, parent in enumerate(parents[1:], 1):
    world[:, joint] = KyTransform.compound(local[:, joint], world[:, parent])
joints = KyTransform.getTranslation(world)
feet = joints[:, [names.index("LeftToeBase"), names.index("RightToeBase")], 1].min(axis=1)
print(f"{len(joints)} frames of {len(names)} joints; the highest jump is {feet.max() - feet.min():.1f} high, "
      f"in frame {feet.argmax()}")

# The same rotations in all 24 orders: (frames, joints, orders, 3). Curves are smooth if no step is large.
orders = {name: value for name, value in vars(ky.KyEulerAngles).items() if name[0] == "e" and name != "eNegated"}
curves = np.unwrap(KyEulerAngles.getEulerAngles(angles[:, :, None], captured, list(orders.values())), axis=0)
steps = np.degrees(abs(np.diff(curves, axis=0)).max(axis=(0, 3)))
before = list(orders).index("eZYXs")
joint = (steps[:, before] - steps.min(axis=1)).argmax()
after = steps[joint].argmin()
print(f"{names[joint]}: the largest step from frame to frame is {steps[joint, before]:.1f} degrees in eZYXs, "
      f"{steps[joint, after]:.1f} in {list(orders)[after]}")

figure, axes = pyplot.subplot_mosaic([["figure", "figure"], ["before", "after"]], figsize=(10, 6),
                                     height_ratios=[2, 3], layout="constrained")
for column, frame in enumerate(np.linspace(0, len(joints) - 1, 9).astype(int)):
    x, y, _ = np.moveaxis(joints[frame], -1, 0)
    for child, parent in enumerate(parents[1:], 1):
        axes["figure"].plot(x[[parent, child]] - x[0] + 20 * column, y[[parent, child]], color="black")
    axes["figure"].annotate(f"{frame}", (20 * column, -2), ha="center", va="top")
axes["figure"].set(title="Frames of the capture", aspect="equal")
axes["figure"].axis("off")
for place, order in ("before", before), ("after", after):
    axes[place].plot(np.degrees(curves[:, joint, order]), label=["first angle", "second", "third"])
    axes[place].set(title=f"{names[joint]} in {list(orders)[order]}", xlabel="frame", ylabel="degrees")
axes["before"].legend()
figure.savefig(sys.argv[1] if len(sys.argv) > 1 else "jumps.png", dpi=90)
