# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""python.py: needs kymath on the path, numpy and scipy. Times of single calls, and of arrays beside the same in numpy and scipy."""
import time

import numpy as np
from scipy.spatial.transform import Rotation

import kymath as ky
from kymath.arrays import KyEulerAngles, Matrix44, Quaternion, Transformation, Vector3

COUNT = 100_000


def best(call, rounds=9):
    """The least CPU time of a call, in seconds."""
    times = []
    for _ in range(rounds):
        start = time.process_time()
        call()
        times.append(time.process_time() - start)
    return min(times)


def single(code, **names):
    """Nanoseconds of an expression, less those of the loop around it."""
    loop = "def loop():\n for _ in range(200_000): {}"
    exec(loop.format(code), names)
    run = best(names["loop"])
    exec(loop.format("pass"), names)
    return (run - best(names["loop"])) * 1e9 / 200_000


v, m = ky.Vector3d(1, 2, 3), ky.Transformation.createRotationT(0.1, 0.2, 0.3)
print("| single call | ns |\n|---|---|")
for code in ("V(1.0, 2.0, 3.0)", "v.x", "v + v", "v @ v", "v.cross(v)", "m @ m", "x, y, z = v"):
    print(f"| `{code}` | {single(code, V=ky.Vector3d, v=v, m=m):.0f} |")

random = np.random.default_rng(1)
points, others = random.normal(size=(2, COUNT, 3))
quaternions = random.normal(size=(2, COUNT, 4))
quaternions /= np.linalg.norm(quaternions, axis=2, keepdims=True)
rotations = Rotation.from_quat(quaternions[0])
matrices = np.tile(np.eye(4), (COUNT, 1, 1))
matrices[:, :3, :3] = rotations.as_matrix()
matrices[:, :3, 3] = points
one = np.asarray(ky.Transformation.createPerspectiveT(1.0, 1.5, 1.0, 9.0))
record = np.zeros(COUNT, [("id", "i8"), ("position", "d", 3)])
record["position"] = points


def divided(one, points):
    h = points @ one[:3, :3].T + one[:3, 3]
    return h / (points @ one[3, :3] + one[3, 3])[:, None]


def slerped(a, b, t):
    d = np.sum(a * b, axis=1)
    angle = np.arccos(np.abs(d))
    b = np.where(d < 0, -1, 1)[:, None] * b
    return (np.sin((1 - t) * angle)[:, None] * a + np.sin(t * angle)[:, None] * b) / np.sin(angle)[:, None]


singles = one.astype("f"), points.astype("f")
rows = [
    ("points by a matrix, with division", lambda: Transformation.transformPositionT(one, points),
     lambda: divided(one, points)),
    ("the same, float", lambda: Transformation.transformPositionT(*singles), lambda: divided(*singles)),
    ("the same, of a record array", lambda: Transformation.transformPositionT(one, record["position"]),
     lambda: Transformation.transformPositionT(one, points)),
    ("matrix inverses", lambda: Matrix44.inverse(matrices), lambda: np.linalg.inv(matrices)),
    ("matrix products", lambda: Matrix44.multiply(matrices, matrices), lambda: matrices @ matrices),
    ("Euler angles of matrices", lambda: KyEulerAngles.fromMatrix44(matrices, ky.KyEulerAngles.eXYZs),
     lambda: Rotation.from_matrix(matrices[:, :3, :3]).as_euler("XYZ")),
    ("cross products", lambda: Vector3.cross(points, others), lambda: np.cross(points, others)),
    ("norms", lambda: Vector3.norm(points), lambda: np.linalg.norm(points, axis=1)),
    ("quaternions turn vectors", lambda: Quaternion.rotate(quaternions[0], points),
     lambda: rotations.apply(points)),
    ("slerp", lambda: Quaternion.slerp(*quaternions, 0.3), lambda: slerped(*quaternions, 0.3))]
print(f"\n| {COUNT:,} elements | ms | numpy, scipy | times as fast |\n|---|---|---|---|")
for name, ours, theirs in rows:
    a, b = best(ours) * 1e3, best(theirs) * 1e3
    print(f"| {name} | {a:.2f} | {b:.2f} | {b / a:.1f} |")
print(f"\nOne point as an array: {single('f(m, p)', f=Transformation.transformPositionT, m=one, p=points[0]):.0f} ns")
