# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""python.py: needs kymath on the path, numpy, scipy and pybind11. Times of single calls, beside those of a vector
bound by pybind11, and of arrays beside the same in numpy and scipy."""
import subprocess
import sys
import sysconfig
import tempfile
import threading
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


PEER = """
#include <pybind11/operators.h>
#include <pybind11/pybind11.h>
struct V {
    double x, y, z;
    V operator+(const V& v) const { return {x + v.x, y + v.y, z + v.z}; }
    V cross(const V& v) const { return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x}; }
};
PYBIND11_MODULE(peer, m) {
    pybind11::class_<V>(m, "V")
        .def(pybind11::init([](double x, double y, double z) { return V{x, y, z}; }))
        .def_readwrite("x", &V::x)
        .def(pybind11::self + pybind11::self)
        .def("cross", &V::cross);
}
"""


def bindPeer():
    """The vector class of pybind11."""
    folder = tempfile.mkdtemp()
    subprocess.run(["g++", "-O3", "-flto", "-shared", "-fPIC", "-fvisibility=hidden", "-std=c++17", "-x", "c++", "-",
                    "-I", sysconfig.get_path("include"), "-o", f"{folder}/peer.so"], input=PEER, text=True, check=True)
    sys.path.insert(0, folder)
    import peer
    return peer.V


Peer = bindPeer()
v, m, p = ky.Vector3d(1, 2, 3), ky.Transformation.createRotationT(0.1, 0.2, 0.3), Peer(1, 2, 3)
print("| single call | ns | pybind11 | times as fast |\n|---|---|---|---|")
for code in ("V(1.0, 2.0, 3.0)", "v.x", "v + v", "v.cross(v)"):
    ours, theirs = single(code, V=ky.Vector3d, v=v), single(code, V=Peer, v=p)
    print(f"| `{code}` | {ours:.0f} | {theirs:.0f} | {theirs / ours:.1f} |")
for code in ("v @ v", "m @ m", "x, y, z = v"):
    print(f"| `{code}` | {single(code, v=v, m=m):.0f} | | |")

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


def elapsed(threads):
    """Seconds by the clock for all inverses, in equal parts."""
    parts = [threading.Thread(target=Matrix44.inverse, args=[part]) for part in np.array_split(matrices, threads)]
    start = time.perf_counter()
    for part in parts:
        part.start()
    for part in parts:
        part.join()
    return time.perf_counter() - start


ratio = min(elapsed(1) for _ in range(30)) / min(elapsed(2) for _ in range(30))
print(f"\nTwo threads over two halves of the inverses: {ratio:.2f} times as fast as one")
