# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""kymath.arrays: the bits of single calls, whatever the memory."""
import operator
import pathlib
import re
import subprocess
import sys
import types

import numpy as np
import pytest
from matplotlib.image import imread

import kymath as ky
from kymath.arrays import BoundingBox, Matrix44, Quaternion, Transformation, Vector3

random = np.random.default_rng(1)
spaces = {"": ky.arrays, **{name: space for name, space in vars(ky.arrays).items() if isinstance(space, types.ModuleType)}}
functions = [(name, member) for name, space in spaces.items() for member, ufunc in vars(space).items()
             if isinstance(ufunc, np.ufunc) and name not in ("Polytope", "Frustum")]
COUNT = 70  # more than array calls of the library get at once
# Where the single call has another form: what takes which arguments.
singles = {
    **{f"Vector{n}.divide": (operator.truediv, [f"Vector{n}", "float"]) for n in (2, 3, 4)},
    "Vector3.dot": (operator.matmul, ["Vector3", "Vector3"]),
    "Quaternion.multiply": (operator.mul, ["Quaternion", "Quaternion"]),
    "BoundingBox.add": (operator.add, ["BoundingBox", "BoundingBox"]),
    "Rays.intersectBoxes": (
        lambda o, d, box: ky.Rays.intersect(o, d, box) or (np.inf, -np.inf), ["Vector3", "Vector3", "BoundingBox"]),
    "Rays.intersectTriangles": (
        lambda o, d, t: (ky.Rays.intersect(o, d, *t) or (np.inf,))[0], ["Vector3", "Vector3", "Triangle"]),
    "KyTransform.makeOrthonormal": (
        lambda t, axis: changed(t, "makeOrthonormal", axis % 3), ["KyTransform", "int"]),
    "KyEulerAngles.areEqualTol": (
        lambda a, i, b, j, tol: ky.KyEulerAngles.areEqualTol(ky.KyEulerAngles(a, i), ky.KyEulerAngles(b, j), tol),
        ["Vector3", "int", "Vector3", "int", "float"]),
    "KyEulerAngles.toMatrix44": (
        lambda a, order: ky.KyEulerAngles(a, order).toMatrix44(), ["Vector3", "int"]),
    "KyEulerAngles.fromMatrix44": (
        lambda m, order: changed(ky.KyEulerAngles(), "fromMatrix44", m, order).angles(), ["Matrix44", "int"])}
shapes = {"float": (), "int": (), "bool": (), "Vector2": (2,), "Vector3": (3,), "Vector4": (4,), "Vector6": (6,),
          "BoundingSphere": (4,), "Quaternion": (4,), "Plane": (4,), "BoundingBox": (2, 3), "Line3": (2, 3), "Segment3": (2, 3),
          "Triangle": (3, 3), "Matrix44": (4, 4), "KyTransform": (4, 4)}


def changed(value, member, *arguments):
    getattr(value, member)(*arguments)
    return value


def values(shape, dtype):
    """Plain numbers, and some of those that break code."""
    special = [0, -0.0, 1, -1, np.inf, np.nan, 1e-45, 3e38, 1e-7]
    plain = random.normal(size=shape).astype("f")
    return np.where(random.random(shape) < 0.1, random.choice(special, shape), plain).astype(dtype)


def one(kind, array, letter):
    if kind in ("float", "int", "bool"):
        return array[()].item()
    if kind == "Triangle":
        return [one("Vector3", row, letter) for row in array]
    cls = getattr(ky, kind, None) or getattr(ky, kind + letter)
    if kind in ("Plane", "BoundingSphere"):
        return cls(*array) if kind == "Plane" else cls(ky.Vector3d(array[:3]), array[3])
    return cls(*map(ky.Vector3d, array)) if kind in ("Line3", "Segment3") else cls(array)


def flat(result):
    if isinstance(result, ky.BoundingSphere):
        result = result.center(), result.radius
    if isinstance(result, tuple):
        return [number for part in result for number in flat(part)]
    array = np.asarray(result.getAsVector4() if hasattr(result, "getAsVector4") else result, "d")
    return np.where(array == array, array, np.nan).ravel().tolist()


def singleCall(ufunc, space, member, letter):
    """The function of one value, and the kinds of arguments that have the shapes of the ufunc."""
    owner = getattr(ky, space + letter, None) or getattr(ky, space, ky)
    single = getattr(owner, member, None) or getattr(owner, member.split("_")[0])
    inputs = (ufunc.signature or ",".join(["()"] * ufunc.nin)).split("->")[0]
    lines = re.findall(r"^\w+\((.*?)\) ->", single.__doc__, re.M)
    suffix = member.split("_")[1] + ":" if "_" in member else ""  # that of an argument
    for line in sorted(lines, key=lambda line: suffix not in line):
        kinds = re.findall(r": (\w+?)[fd]?(?=,|$)", line)
        if type(single).__name__ == "method_descriptor":
            kinds = [space, *kinds]
        text = ",".join(str(shapes[kind]).replace(" ", "").replace(",)", ")") for kind in kinds)
        if text == inputs:
            return single, kinds
        if text.endswith("," + inputs):  # of any object
            return lambda *rest: changed(owner(), member, *rest), kinds[1:]
    pytest.fail(f"no single call of {inputs}")


@pytest.mark.parametrize("letter", "fd")
@pytest.mark.parametrize("space, member", functions)
def test_bits_of_single_calls(space, member, letter):
    ufunc, name = getattr(spaces[space], member), f"{space}.{member}"
    if letter not in ufunc.types[0] + ufunc.types[-1]:
        return
    if name in singles:
        single, kinds = singles[name]
    else:
        single, kinds = singleCall(ufunc, space, member, letter)
    columns = [random.integers(0, 8, COUNT) if kind == "int" else values((COUNT, *shapes[kind]), letter) > 0
               if kind == "bool" else values((COUNT, *shapes[kind]), letter) for kind in kinds]
    for turn in range(4):  # of all orders in memory, and one value for all
        arranged = [[column, column[::-1], np.asfortranarray(column), column[:1]][(i + turn) % 4]
                    for i, column in enumerate(columns)]
        results = ufunc(*arranged)
        results = results if isinstance(results, tuple) else (results,)
        for n in range(len(results[0])):
            row = [one(kind, column[n % len(column)], letter) for kind, column in zip(kinds, arranged)]
            expected = single(*row)
            if member == "makeCleanBase":
                expected = (row[0], expected)
            elif expected is None and len(results) == 1:
                expected = row[0]
            if expected is None:
                assert not results[0][n]
            else:
                expected = flat(expected)
                assert repr(flat(tuple(result[n] for result in results))[-len(expected):]) == repr(expected)


def test_cull():
    planes, boxes = values((3, 5, 4), "d"), values((3, COUNT, 2, 3), "d")
    expected = np.empty((3, 3, COUNT), int)
    for region, row, results in zip(planes, boxes, np.moveaxis(expected, 1, 0)):
        for n, box in enumerate(row):
            polytope = ky.Polytope([ky.Planed(*plane) for plane in region])
            visible = polytope.contains(ky.BoundingBoxd(box))
            mask = polytope.getCurrentMask() if visible else 0
            results[:, n] = visible, -1 if not visible else mask == 0, mask
    for first, last in ((0, 3), (1, 2)):
        some = planes[first:last, None], boxes[first:last]
        assert (ky.arrays.Polytope.contains(*some) == expected[0, first:last]).all()
        assert (ky.arrays.Polytope.cullWithMasks(*some) == expected[1:, first:last]).all()
        leaves = ky.arrays.Polytope.cullTree(some[0][:, 0], boxes[first:last], np.zeros(COUNT, int))
        assert (leaves == expected[1:, first:last]).all()
    ordered = np.sort(boxes, axis=2)
    ordered[:, 0, 0], ordered[:, 0, 1] = ordered[:, 1:, 0].min(axis=1), ordered[:, 1:, 1].max(axis=1)
    sides, _ = ky.arrays.Polytope.cullTree(planes, ordered, [COUNT - 1] + [0] * (COUNT - 1))
    assert ((sides >= 0) == ky.arrays.Polytope.contains(planes[:, None], ordered)).all()
    frustum = values((6, 4), "f")
    assert (ky.arrays.Frustum.cull(frustum, boxes.astype("f")) == (ky.arrays.Plane.intersect(
        frustum[:, None, None], boxes.astype("f")) != -1).all(axis=0)).all()


m = np.asarray(Transformation.composeT([1.0, 2, 3], [0.1, 0.2, 0.3], [4.0, 5, 6], 1.0))
points = values((1000, 3), "d")


def test_memory():
    expected = Transformation.transformPositionT(m, points)
    record = np.zeros(1000, [("flag", "i1"), ("p", "d", 3)])
    record["p"] = points
    wide = np.zeros((1000, 6))
    out = wide[:, ::2]
    assert Transformation.transformPositionT(m, record["p"], out=out) is out
    same = [Transformation.transformPositionT(m, p) for p in (
        points[::-1], np.asfortranarray(points)[::-1], points.astype(">f8")[::-1])]
    same = [out, *(array[::-1] for array in same), Transformation.transformPositionT(m, points[None])[0]]
    for array in same:
        assert array.tobytes() == expected.tobytes()
    over = points.copy()
    Transformation.transformPositionT(m, over, out=over)
    shifted = np.vstack([points, points[:1]])
    Transformation.transformPositionT(m, shifted[:-1], out=shifted[1:])
    assert over.tobytes() == shifted[1:].tobytes() == expected.tobytes()
    assert Transformation.transformPositionT(m, points[:0]).shape == (0, 3)


@pytest.mark.parametrize("left", [(5, 4, 4), (4, 4), (5, 1, 4, 4)])
def test_products_in_any_order(left):
    a, b = values(left, "d"), values((5, 4, 4), "d")
    expected = Matrix44.multiply(np.asfortranarray(a), b)
    assert repr(Matrix44.multiply(a, b)) == repr(expected) == repr(Matrix44.multiply(a, b[:, ::-1][:, ::-1]))
    assert repr(Matrix44.multiply(b, a)) == repr(Matrix44.multiply(b, np.asfortranarray(a)))


@pytest.mark.parametrize("a, b, result", [
    ("f", "f", "f"), ("d", "d", "d"), ("f", "d", "d"), ("e", "f", "f"), ("l", "l", "d"), (">f", ">d", "d")])
def test_types(a, b, result):
    assert Vector3.cross(np.ones(3, a), np.ones(3, b)).dtype == result


def test_broadcast():
    planes, boxes = values((7, 1, 4), "d"), values((1, 9, 2, 3), "d")
    sides = ky.arrays.Plane.intersect(planes, boxes)
    assert sides.shape == (7, 9) and sides[3, 4] == ky.Planed(*planes[3, 0]).intersect(ky.BoundingBoxd(boxes[0, 4]))
    assert Quaternion.slerp([1, 0, 0, 0], [0, 1, 0, 0], np.linspace(0, 1, 5)).shape == (5, 4)


@pytest.mark.parametrize("bad, error", [
    (np.ones(3, complex), TypeError), (np.array(["a", "b", "c"]), TypeError), (np.ones(4), ValueError),
    (np.array([None] * 3), TypeError), (1.0, ValueError)])
def test_refused(bad, error):
    pytest.raises(error, Vector3.norm, bad)


@pytest.mark.parametrize("name, argument, sentence", [
    ("exposure", "exposure.png", "7,740,000 tests; 1082 of 2150 tiles"), ("survey", "0.6", "the same in one call: True"),
    ("jumps", "jumps.png", "520 frames of 31 joints; the highest jump is 4.1 high, in frame 372\nHips")])
def test_examples(name, argument, sentence, tmp_path):
    root = pathlib.Path(__file__).parents[2]
    command = [sys.executable, root / f"examples/python/{name}.py", argument]
    assert sentence in subprocess.check_output(command, text=True, cwd=tmp_path)
    if argument.endswith("png"):
        drawn, shown = imread(tmp_path / argument), imread(root / "docs" / argument)
        # Another processor may round a few colours differently.
        assert drawn.shape == shown.shape and np.mean(drawn != shown) < 0.001


def test_no_warnings(recwarn):
    Vector3.norm(np.full((9, 3), np.inf)), BoundingBox.center(np.full((9, 2, 3), np.nan))
    Transformation.transformPositionT(np.zeros((4, 4)), points)
    assert not recwarn.list
