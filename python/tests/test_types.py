# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""The types of kymath, one value at a time."""
import array
import copy
import gc
import inspect
import math
import operator
import os
import pathlib
import pickle
import re
import sys

import hypothesis
import hypothesis.strategies as st
import numpy as np
import pytest

import kymath as ky
from kymath import Matrix44d, Matrix44f, Quaterniond, Vector2d, Vector3d, Vector3f, Vector4d

hypothesis.settings.register_profile("tests", deadline=None, database=None)
hypothesis.settings.load_profile("tests")
root = pathlib.Path(__file__).parents[2]
numbers = st.floats(width=32) | st.sampled_from([0.0, -0.0, 1e-45, 3e38, math.pi, 0.1])
triples = st.tuples(numbers, numbers, numbers)
box = ky.BoundingBoxd(0, 1, 2, 3, 4, 5)
frustum = ky.Frustum()
frustum.setToWorldSpaceFrustum(Matrix44f(), ky.Transformationf.createPerspectiveT(1, 1.5, 1, 9))
samples = [
    Vector2d(1, -0.0), Vector3d(0.1, math.inf, -5e-324), Vector3f(0.1, 1e-45, 3e38),
    Vector4d(1, 2, 3, 4), ky.Vector6(1, 2, 3, 4, 5, 6), Quaterniond(Vector3d(1, 2, 3), 0.5),
    Matrix44d(np.arange(16).reshape(4, 4)), Matrix44f(np.eye(4) / 3), ky.KyTransform.kIdentity,
    ky.KyEulerAngles(1, 2, 3, ky.KyEulerAngles.eZYXs), box, ky.BoundingSphere(Vector3d(1, 2, 3), 4),
    ky.Planef(1, 2, 3, 0.1), ky.Polytope([ky.Planed(1, 0, 0, 1)]), frustum,
    ky.Line3(Vector3d(), Vector3d(1, 2, 3)), ky.Segment3(Vector3d(), Vector3d(1, 2, 3)), ky.Vector2f(1, 2),
    ky.Vector4f(1, 2, 3, 4), ky.Quaternionf(1, 2, 3, 4), ky.BoundingBoxf(0, 1, 2, 3, 4, 5), ky.Planed(1, 2, 3, 0.1)]

# ---- Values


@pytest.mark.parametrize("value", samples, ids=repr)
def test_values(value):
    for other in (eval(repr(value), vars(ky)), copy.copy(value), copy.deepcopy([value])[0],
                  pickle.loads(pickle.dumps(value))):
        assert type(other) is type(value) and other is not value
        assert other == value and not other != value and repr(other) == repr(value)
    for call in (hash, float, int, iter if isinstance(value, (Matrix44d, ky.KyTransform)) else hash):
        pytest.raises(TypeError, call, value)


@hypothesis.given(triples)
def test_components(triple):
    for V in (Vector3d, Vector3f):
        v = V(*triple)
        scalar = np.float64 if V is Vector3d else np.float32
        expected = np.array(triple, scalar)
        assert np.array(eval(repr(v), vars(ky))).tobytes() == expected.tobytes() or v != v
        x, y, z = v
        assert repr((x, y, z)) == repr((v.x, v.y, v.z)) == repr(tuple(map(float, expected)))
    v[-1] = v.x = 7
    assert v[0] == v.z == 7 and len(v) == 3


# ---- Memory


def test_buffers():
    m = Matrix44d(np.arange(16).reshape(4, 4))
    a = np.asarray(m)
    assert a.strides == (8, 32) and a.T.flags.c_contiguous and a[1, 2] == m[1, 2] == 6
    a[1, 2] = -1
    assert m[1, 2] == -1 and bytes(m) == a.tobytes("C")
    pytest.raises(BufferError, np.frombuffer, m)
    for value, shape in ((Vector3f(), (3,)), (Quaterniond(), (4,)), (box, (2, 3)),
                         (ky.Vector6(*range(6)), (6,)), (ky.KyTransform(), (4, 4)), (m, (4, 4))):
        view = memoryview(value)
        assert (view.shape, view.readonly) == (shape, False)
        assert view.format == ("f" if isinstance(value, Vector3f) else "d")
        assert np.frombuffer(view.tobytes(), view.format).tolist() == np.ravel(value).tolist()


def test_views_outlive_their_owner():
    owner = ky.BoundingBoxd(0, 1, 2, 3, 4, 5)
    rows = np.zeros((2, 3))
    views = [owner.getMax(), np.asarray(owner.getMin()), Vector3d.cast(rows[1])]
    views[0].x = 9
    views[2].y = 8
    assert owner.xMax == 9 and rows[1, 1] == 8
    del owner, rows
    assert [list(view) for view in views] == [[9, 4, 5], [0, 1, 2], [0, 8, 0]]


@pytest.mark.parametrize("dtype", [">f8", "<f4", ">i2", "u1", "e", "O"])
def test_arrays_are_read_by_index(dtype):
    a = np.arange(64).reshape(8, 8).astype(dtype)
    for view in (a[:4, :4], a[:4, :4].T, a[::-2, 1::2], np.asfortranarray(a)[4:, 3:7]):
        assert Matrix44d(view) == Matrix44d(view.tolist()) == Matrix44d(memoryview(view.astype("d")))
        assert np.array_equal(Matrix44d(view), view.astype("d"))


# ---- Operators

v, w, m, q = Vector3d(1, 2, 3), Vector3d(4, 5, 6), samples[6], samples[5]


def test_operators():
    h = Vector4d(1, 2, 3, 1)
    assert v @ w == 32 and np.array_equal(m @ h, np.asarray(m) @ h) and q * v == q.rotate(v)
    assert np.array_equal(m @ m, np.asarray(m) @ np.asarray(m))
    u = v
    u += w
    u *= 2
    assert u is v and v == Vector3d(10, 14, 18)
    v.set(1, 2, 3)
    for two in (2, 2.0, np.float64(2), np.float32(2), np.int8(2)):
        assert type(two * v) is Vector3d and two * v == v * two == v + v == v / (1 / two)
    array = np.ones((2, 3))
    for op in (operator.add, operator.sub, operator.mul, operator.truediv):
        assert np.array_equal(op(array, v), op(array, np.asarray(v)))
    assert np.array_equal(array @ v, [6, 6]) and (np.asarray(v) == v).all()


bad = [
    (lambda: v * w, TypeError, "a @ b"), (lambda: v < w, TypeError, "normSquare"),
    (lambda: m[0], TypeError, "m.row"), (lambda: m @ v, TypeError, "transformPositionT"),
    (lambda: m * m, TypeError, "a @ b"), (lambda: iter(m), TypeError, "row"),
    (lambda: Matrix44d(*range(16)), TypeError, "fromColumns"),
    (lambda: Matrix44d(*[Vector4d()] * 4), TypeError, "fromColumns"),
    (lambda: m[4, 0], IndexError, "4 is not in"), (lambda: m[math.nan, 0], TypeError, "integer"),
    (lambda: m.row(-1), IndexError, "0 to 3"), (lambda: v[3], IndexError, "range"),
    (lambda: frustum.getPlane(6), IndexError, "0 to 5"), (lambda: v["x"], TypeError, "integer"),
    (lambda: Vector3d("123"), TypeError, "given .str"), (lambda: Vector3d(b"123"), TypeError, "bytes"),
    (lambda: Vector3d(1j, 2, 3), TypeError, "complex"), (lambda: Vector3d([1, 2]), ValueError, "3"),
    (lambda: Vector3d(np.ones(3, complex)), TypeError, "complex"),
    (lambda: Vector3d(10**400, 0, 0), ValueError, "too large"),
    (lambda: Vector3d(x=1, y=2, z=3), TypeError, "keyword"),
    (lambda: Vector4d(q), TypeError, "Quaterniond"), (lambda: Matrix44d([1, 2]), ValueError, "4 rows"),
    (lambda: v.cross(Vector3f()), TypeError, "v: Vector3d"), (lambda: v.cross(), TypeError, "given"),
    (lambda: setattr(v, "x", "1"), TypeError, "float"), (lambda: delattr(v, "x"), TypeError, "float"),
    (lambda: Vector3d.cast(np.zeros(3, "f")), ValueError, "buffer"),
    (lambda: Vector3d.cast(bytes(24)), BufferError, ""), (lambda: ky.Polytope([v]), TypeError, "Planed"),
    (lambda: ky.Polytope().popCurrentMask(), IndexError, "pushed"),
    (lambda: ky.CreateBezier([v, w], 2**40), ValueError, "not in"),
    (lambda: ky.CreateBezier([v, w], -1), ValueError, "not in")]


@pytest.mark.parametrize("call, error, sentence", bad)
def test_refused(call, error, sentence):
    with pytest.raises(error, match=sentence):
        call()


anything = st.recursive(
    st.none() | st.booleans() | st.integers() | st.floats() | st.text() | st.binary()
    | st.complex_numbers() | st.sampled_from(samples),
    lambda item: st.lists(item, max_size=5) | st.dictionaries(st.text(), item, max_size=4))


@hypothesis.given(st.lists(anything, max_size=6))
def test_constructors_take_it_or_refuse(arguments):
    for value in samples:
        try:
            type(value)(*arguments)
        except (TypeError, ValueError):
            pass


def everything():
    """Calls with arguments: all functions with all that they take, attributes, operators, and what is refused."""
    of = {type(value).__name__: value for value in samples}
    of |= {"float": 0.5, "int": 1, "bool": True, "Any": array.array("d", range(3))}
    binary = [getattr(operator, i + name) for name in ("add", "sub", "mul", "truediv", "matmul") for i in ("", "i")]
    arrays = [] if hasattr(sys, "gettotalrefcount") else [np.ones(3)]  # numpy counts no references
    others = [*samples, *arrays, 2.0, None]
    yield from ((op, a, b) for op in [*binary, operator.eq, operator.lt] for a in [*samples, *arrays] for b in others)
    yield from ((call, a) for call in (operator.neg, float, hash, repr, str, list, memoryview, pickle.dumps, pickle.PickleBuffer)
                for a in samples)
    yield from ((operator.setitem, a, key, value) for a in samples for key in (0, 9, (1, 1), (1, 9)) for value in (7, None))
    yield from ((operator.getitem, a, key) for a in samples for key in (0, 9, (1, 1), (1, 9), "x"))
    for owner in [ky, ky.Transformation, ky.Transformationf, ky.Rays, *map(type, samples)]:
        for name, member in vars(owner).items():
            subject = of.get(name, of.get(owner.__name__))
            if type(member).__name__ == "getset_descriptor":
                yield from ((setattr, subject, name, value) for value in (getattr(subject, name), None))
            yield getattr, owner, name
            call = getattr(owner, name)
            first = [subject] if type(member).__name__ == "method_descriptor" else []
            for line in re.findall(r"^\w+\((.*?)\) ->", getattr(call, "__doc__", None) or "", re.M):
                kinds = re.findall(r": ([^,]+)", line)
                rest = [memoryview(subject).tolist() if kind == "Numbers" else
                        of[kind] if kind in of else 6 * [of[kind[5:-1]]] for kind in kinds]  # list[...]
                yield call, *first, *rest
                yield call, *first, *rest, None
                yield call, *first, *[None] * len(rest)


@pytest.mark.filterwarnings("ignore")
def test_nothing_leaks():
    """References, where Python counts them; else blocks of memory."""
    calls, count = list(everything()), getattr(sys, "gettotalrefcount", sys.getallocatedblocks)
    rounds = int(os.environ.get("KYMATH_ROUNDS", 20))
    for n in range(rounds + 3):
        if n == 3:  # caches are full
            gc.collect()
            before = count()
        for call, *arguments in calls:
            try:
                call(*map(copy.copy, arguments))
            except Exception:
                pass
    gc.collect()
    assert len(calls) > 5000 and count() - before < rounds / 2


def test_signatures():
    for cls in map(type, samples):
        for name, member in vars(cls).items():
            assert getattr(member, "__text_signature__", None) is None or inspect.signature(getattr(cls, name))
    assert str(inspect.signature(Quaterniond.slerp)) == "(self, q, t, /)"
    assert "Spherical linear interpolation" in Quaterniond.slerp.__doc__ and "w first" in Quaterniond.__doc__
