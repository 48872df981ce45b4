# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""Every function of the library against the module: the same bits for the arguments of the C++ function table."""
import copy
import math
import operator
import os
import re
import struct
import subprocess

import numpy as np
import pytest

import kymath as ky

program = subprocess.run([os.environ["KYMATH_FUNCTIONS"], "--values"], capture_output=True, text=True, check=True)
table = re.findall(r"^(\w+) ?(.*)\n((?:[0-9a-f ]*\n){30})", program.stdout, re.M)

assert ky.__libm__.startswith("SLEEF ") == ("Lockstep" in os.environ["KYMATH_FUNCTIONS"])

# What Python does in another way.
elsewhere = {
    r"operator (const )?(T|double|Ky::KyReal4)\*|[Cc]ast\(|set\(double\*|get\(T\*\)|\(\*\)|const (T|double|float)\*|array"
    r"|(Matrix|Transform).*operator\[|column\(unsigned long\)$": "memory is read and written through the buffer protocol",
    r"^(Matrix44. M|KyTransform T)(, [TD]){16}|M(, const V&){4}": "rows or columns?",
    r"operator=\(": "assignment makes no copy",
    r"operator[<>]\(": "vectors have no order",
    r"::multComp\(const V&\)": "in place: it is that of two",
    r"print\(|std::ostream": "text is made by print() and str()",
    r"int\*": "the points in a list",
    r"^KyEulerAngles E::defaultEulerOrder": "who makes angles names their order",
    r"^Batch|^Rays.*intersect\w": "kymath.arrays"}
spaces = {"Transformationd": ky.Transformation, "Raysf": ky.Rays, "Raysd": ky.Rays,
          "Tolerancef": ky.KY_SMALL_REALf, "Toleranced": ky.KY_SMALL_REALd}
operators = {"*=": "imul", "+=": "iadd", "-=": "isub", "/=": "itruediv", "+": "add", "-": "sub", "/": "truediv",
             "==": "eq", "!=": "ne", "[]": "getitem"}
fields = {ky.Line3: [ky.Vector3d] * 2, ky.Segment3: [ky.Vector3d] * 2, ky.BoundingSphere: [ky.Vector3d, "d"],
          ky.KyEulerAngles: ["d", "d", "d", int], ky.Planef: ["f"] * 4 + [int], ky.Planed: ["d"] * 4 + [int],
          ky.Polytope: [[ky.Planed], int, [int]], ky.Frustum: [ky.Planef] * 6}


def kindOf(text, owner):
    """The type of an argument that C++ declares so in a class."""
    text = re.sub(r"const |Ky::|T<T>|[&* ]", "", text)
    letter = owner[-1] if owner[-1] in "fd" else "d"
    own = getattr(ky, owner, None)
    if text in ("C", "T", "D", "double", "float"):
        return own if text == "T" and owner == "KyTransform" else letter if text == "T" else text[0].lower()
    if text in ("Points", "std::vector<Planed>"):
        return [ky.Vector3d if text == "Points" else ky.Planed]
    short = {"V": {"Vector": owner[:-1], "Matrix": "Vector4"}.get(owner[:6], "Vector3"), "V4": "Vector4",
             "M": "Matrix44", "Q": "Quaternion", "B": "BoundingBox", "P": "Plane", "S": "BoundingSphere"}
    if owner in ("Polytope", "Frustum", "KyEulerAngles") and text == owner[2 * (owner[0] == "K")]:
        return own
    name = short.get(text, text)
    return bool if name == "bool" else getattr(ky, name + letter, None) or getattr(ky, name, int)


def read(kind, take):
    """The next value."""
    if isinstance(kind, list):
        return [read(kind[0], take) for _ in range(take())]
    if kind in (int, bool):
        return kind((take() + 2**63) % 2**64 - 2**63)
    if kind in ("f", "d"):
        word = take()
        return struct.unpack(kind, word.to_bytes(4 if kind == "f" else 8, "little"))[0]
    if kind in fields:
        values = [read(field, take) for field in fields[kind]]
        if kind is ky.Polytope:
            polytope = kind()
            polytope.set(values[0])
            return polytope
        return kind(values) if kind is ky.Frustum else kind(*values[:4])
    view = memoryview(kind(*[0] * 6) if kind is ky.Vector6 else kind())
    numbers = [read(view.format, take) for _ in range(math.prod(view.shape))]
    return kind(np.reshape(numbers, view.shape, order="F" if view.shape == (4, 4) else "C"))


def words(value, letter="d"):
    """As the table writes them."""
    if isinstance(value, float):
        nan = {"f": 0x7fc00000, "d": 0x7ff8000000000000}
        return [nan[letter] if value != value else int.from_bytes(struct.pack(letter, value), "little")]
    if isinstance(value, int):
        return [value % 2**64]
    if isinstance(value, (list, tuple)):
        return sum((words(part, letter) for part in value), [len(value)] if isinstance(value, list) else [])
    if isinstance(value, (ky.Planef, ky.Planed)):
        return words(value.getAsVector4()) + [8 * value.upperBBCorner() + value.lowerBBCorner()]
    if isinstance(value, ky.Polytope):
        return words((value.getPlanes(), value.getCurrentMask(), value.getMaskStack()))
    if isinstance(value, ky.Frustum):
        return words(tuple(map(value.getPlane, range(6))))
    if type(value) in fields:
        return words(value.__reduce__()[1])
    return words(tuple(np.asarray(value).ravel("K").tolist()), memoryview(value).format)


def functionOf(owner, head, kinds):
    """What Python calls, and whether an object comes first."""
    space = spaces.get(owner) or getattr(ky, owner, ky)
    members = re.findall(r"::(operator\W+|\w+)", head)
    if not members:
        return (copy.copy if kinds == [space] else space), False
    member = members[-1]
    if member == "operator()":
        return lambda m, r, c: m[r, c], True
    if member == "operator*":
        return (operator.matmul if owner.startswith("Vector") and kinds == [space] else operator.mul), True
    if member.startswith("operator"):
        return (operator.neg if member == "operator-" and not kinds else getattr(operator, operators[member[8:]])), True
    if head[0] != ":":
        return lambda: getattr(space, member), False
    found = getattr(space, member, None) or getattr(ky, member)
    if type(found).__name__ == "getset_descriptor":
        return operator.attrgetter(member), True
    return found, type(found).__name__ == "method_descriptor"


def fullName(owner, name):
    return f"{owner} {name}" if re.match(r"\w", name) else owner + name


@pytest.mark.parametrize("owner, name, calls", table, ids=lambda text: text.split("\n")[0][:40])
def test_bits_of_cpp(owner, name, calls):
    full = fullName(owner, name)
    if any(re.search(pattern, full) for pattern in elsewhere):
        return
    head, text = re.match(r"(.*?operator\(\)|\w+(?=, )|[^(]*)(?:\(| ?,?)(.*?)\)?(?: const)?$", name).groups()
    declared = list(filter(None, text.split(", ")))
    kinds = [kindOf(part, owner) for part in declared]
    call, hasObject = functionOf(owner, head, kinds)
    outs = [i for i, part in enumerate(declared) if re.search(r"[&*]$", part) and "const" not in part
            and i + hasObject > 0]
    letter = owner[-1] if owner[-1] in "fd" else "d"
    if hasObject:
        kinds, declared, outs = [getattr(ky, owner), *kinds], ["", *declared], [i + 1 for i in outs]

    def wordsOf(i, group):
        return words(tuple(group), kinds[i] if kinds[i] in ("f", "d") else "d")

    # C++ gets several numbers, or two objects, behind a pointer.
    counts = [1 if not text.endswith("*") else 16 if kind in ("f", "d") else 2 for text, kind in zip(declared, kinds)]
    compared = 0
    for line in calls.splitlines():
        stream = [int(word, 16) for word in line.split()][:-2]  # digests come last
        take = iter(stream).__next__
        values = [[read(kind, take) for _ in range(n)] for kind, n in zip(kinds, counts)]
        before = sum(map(wordsOf, range(len(kinds)), values), [])
        if before != stream[:len(before)]:
            continue  # masks after other calls
        result = call(*(group[0] for i, group in enumerate(values) if i not in outs))
        if isinstance(result, list) and outs:
            values[-1] = [result]
        after = [wordsOf(i, group) for i, group in enumerate(values)]
        at = len(stream) - sum(map(len, after))
        returned, written = stream[len(before):at], []
        for i, expected in enumerate(after):
            found = stream[at:at + len(expected)]
            at += len(expected)
            if i in outs:
                written += found[:len(found) // counts[i]]
            else:
                assert found == expected
        found = [] if result is None else words(result, letter)
        if not outs:  # after a reference, C++ has where it points
            assert found == returned[:len(found)] and len(returned) - len(found) in (0, bool(found))
        elif result is None:
            assert returned in ([], [0])
        else:
            assert found in (returned + written, returned[1:] + written)
        compared += 1
    assert compared > 3


def test_all_are_compared():
    assert len(table) > 800
    for pattern in elsewhere:
        assert any(re.search(pattern, fullName(owner, name)) for owner, name, _ in table)
