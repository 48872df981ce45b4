# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""Views of KyMath's types in gdb, which loads this file by itself with libKyMath.so.

Numbers are printed in full: read back, they give the same bits. Only degrees and axes are rounded.
"""

import math
import re
import struct

import gdb
import gdb.printing


def driven_by_program():
    """Whether another program drives gdb, such as an editor, which shows values in a window.

    To these, gdb gives a value either as text or as members to unfold. At its own prompt it would
    print the members after the text, all over again. Only gdb's arguments tell who asks.
    """
    try:
        with open("/proc/self/cmdline", "rb") as arguments:
            return bool(re.search(rb"\0--?i(nterp\w*)?[=\0](mi|dap)", arguments.read()))
    except OSError:
        return False


UNFOLDS = driven_by_program()

# Memory that was never set can claim any number.
MOST_PLANES = 32  # no more are ever tested
MOST_MASKS = 8


def plain(x):
    return re.sub(r"\.0$", "", repr(x))


def number(value):
    """The shortest decimal number that reads back as value, in the type of value."""
    try:
        x = float(value)
    except gdb.MemoryError:
        raise
    except gdb.error:
        return value.format_string()  # <optimized out>
    if value.type.sizeof != 4 or math.isnan(x) or math.isinf(x):
        return plain(x)
    shorter = (float("%.*g" % (digits, x)) for digits in range(1, 9))
    return plain(next((y for y in shorter if as_float(y) == x), float("%.9g" % x)))


def as_float(x):
    try:
        return struct.unpack("f", struct.pack("f", x))[0]
    except OverflowError:
        return math.inf


def rounded(numbers):
    """With six digits, and no sign on a zero."""
    return "(" + ", ".join("%.6g" % (x + 0.0) for x in numbers) + ")"


def elements(array):
    first, last = array.type.range()
    return [array[i] for i in range(first, last + 1)]


def row(values):
    return "(" + ", ".join(number(v) for v in values) + ")"


def point(vector):
    return row(elements(vector["v_"]))


def vector_elements(vector, first, most):
    """At most so many elements of a std::vector, and how many it holds; None for one never set.

    They are counted from the first element, or else back from the last.
    """
    body = vector["_M_impl"]
    start, finish, end = body["_M_start"], body["_M_finish"], body["_M_end_of_storage"]
    size = start.type.strip_typedefs().target().sizeof
    room, used = int(end) - int(start), int(finish) - int(start)
    if not 0 <= used <= room or used % size or room % size or (int(start) == 0 and room):
        return None
    count = used // size
    shown = min(count, most)
    begin = 0 if first else count - shown
    try:
        result = [start[i] for i in range(begin, begin + shown)]
        for element in result:
            element.fetch_lazy()
    except gdb.error:
        return None
    return result, count


class View:
    """A line of text."""

    def __init__(self, value):
        self.value = value

    def lines(self):
        return []  # below the first one

    def to_string(self):
        try:
            return "\n  ".join([self.head(), *self.lines()])
        except gdb.MemoryError:
            raise  # gdb says which address
        except gdb.error as error:
            return "<%s>" % error


class UnfoldingView(View):
    """Several lines, or in a window: members, each with a line of its own."""

    def head(self):
        return ""

    if UNFOLDS:

        def children(self):
            return iter(self.members())


class VectorView(View):
    def head(self):
        return point(self.value)


class MatrixView(UnfoldingView):
    def rows(self):
        values = elements(self.value["v_"])
        return [[values[4 * c + r] for c in range(4)] for r in range(4)]

    def lines(self):
        texts = [[number(v) for v in r] for r in self.rows()]
        widths = [max(len(r[c]) for r in texts) for c in range(4)]
        return ["  ".join(t.rjust(w) for t, w in zip(r, widths)) for r in texts]

    def members(self):
        rows = self.rows()
        return [("(%d, %d)" % (r, c), rows[r][c]) for r in range(4) for c in range(4)]


class QuaternionView(View):
    def head(self):
        values = elements(self.value["v_"])
        named = ", ".join("%s = %s" % (n, number(v)) for n, v in zip("wxyz", values))
        return "(%s), %s" % (named, self.rotation(values))

    @staticmethod
    def rotation(values):
        w, *axis = [float(v) for v in values]
        largest = max(abs(x) for x in [w, *axis])
        if not all(math.isfinite(x) for x in [w, *axis]):
            return "not finite"
        if largest == 0:
            return "zero"
        w, *axis = [x / largest for x in [w, *axis]]
        length = math.hypot(*axis)
        if length == 0:
            return "identity"
        degrees = math.degrees(2 * math.atan2(length, w))
        return "%.6g degrees about %s" % (degrees, rounded([x / length for x in axis]))


class EulerAnglesView(View):
    names = (
        "eXYZs eZYXr eXYXs eXYXr eXZYs eYZXr eXZXs eXZXr eYZXs eXZYr eYZYs eYZYr "
        "eYXZs eZXYr eYXYs eYXYr eZXYs eYXZr eZXZs eZXZr eZYXs eXYZr eZYZs eZYZr"
    ).split()

    def order(self):
        """A sum that gives the order as it is stored."""
        order = int(self.value["order_"]) & 0xFFFFFFFF
        name = order & 31 if order & 31 < len(self.names) else order & 7  # inner axis 3: also x
        rest = order - name - (order & 32)
        terms = [self.names[name], "eNegated" if order & 32 else "", hex(rest) if rest else ""]
        return " + ".join(t for t in terms if t)

    def head(self):
        angles = elements(self.value["a_"])
        degrees = rounded([math.degrees(float(a)) for a in angles])
        return "%s %s radians, %s degrees" % (self.order(), row(angles), degrees)


def validity(valid, numbers):
    if valid:
        return ""
    return "not valid: " if any(math.isnan(x) for x in numbers) else "empty: "


class BoxView(View):
    def head(self):
        low, high = self.value["min_"], self.value["max_"]
        pairs = [(float(low["v_"][i]), float(high["v_"][i])) for i in range(3)]
        mark = validity(all(b >= a for a, b in pairs), sum(pairs, ()))
        return "%smin %s, max %s" % (mark, point(low), point(high))


class SphereView(View):
    def head(self):
        radius = self.value["radius_"]
        mark = validity(float(radius) >= 0, [float(radius)])
        return "%scenter %s, radius %s" % (mark, point(self.value["center_"]), number(radius))


def plane(value):
    return "%s, upper corner %d, lower corner %d" % (
        point(value["v_"]),
        int(value["upper_"]),
        int(value["lower_"]),
    )


class PlaneView(View):
    def head(self):
        return plane(self.value)


class PolytopeView(UnfoldingView):
    def planes(self):
        return vector_elements(self.value["planes_"], True, MOST_PLANES)

    def head(self):
        planes = self.planes()
        stack = vector_elements(self.value["maskStack_"], False, MOST_MASKS)
        digits = min(planes[1], 32) if planes else 32

        def bits(mask):
            return format(int(mask) & 0xFFFFFFFF, "0%db" % digits)

        count = "%d plane%s" % (planes[1], "s" * (planes[1] != 1)) if planes else "planes unreadable"
        masks = "unreadable"
        if stack:
            below = ["..."] if stack[1] > len(stack[0]) else []
            masks = "(" + ", ".join(below + [bits(m) for m in stack[0]]) + ")"
        return "%s, mask %s, mask stack %s" % (count, bits(self.value["currentMask_"]), masks)

    def lines(self):
        planes = self.planes()
        if not planes:
            return []
        more = ["..."] if planes[1] > len(planes[0]) else []
        return ["[%d] %s" % (i, plane(p)) for i, p in enumerate(planes[0])] + more

    def members(self):
        planes = self.planes() or [[]]
        masks = [("mask", self.value["currentMask_"]), ("mask stack", self.value["maskStack_"])]
        return masks + [("[%d]" % i, p) for i, p in enumerate(planes[0])]


class FrustumView(UnfoldingView):
    names = ["left", "right", "bottom", "top", "far", "near"]

    def members(self):
        return list(zip(self.names, elements(self.value["planes_"])))

    def lines(self):
        return ["%-6s %s" % (name, plane(value)) for name, value in self.members()]


class LineView(View):
    def head(self):
        return "p1 %s, p2 %s" % (point(self.value["p1"]), point(self.value["p2"]))


def build():
    views = gdb.printing.RegexpCollectionPrettyPrinter("KyMath")
    for name, view in [
        ("Vector[234]T<.*>", VectorView),
        ("Vector6", VectorView),
        ("Matrix44T<.*>", MatrixView),
        ("QuaternionT<.*>", QuaternionView),
        ("BoundingBoxT<.*>", BoxView),
        ("BoundingSphere", SphereView),
        ("PlaneT<.*>", PlaneView),
        ("Polytope", PolytopeView),
        ("Frustum", FrustumView),
        ("Line3|Segment3", LineView),
    ]:
        views.add_printer(name, "^KyMath::(%s)$" % name, view)
    views.add_printer("KyTransform", "^Ky::KyTransform$", MatrixView)
    views.add_printer("KyEulerAngles", "^Ky::KyEulerAngles$", EulerAnglesView)
    return views


gdb.printing.register_pretty_printer(gdb.current_objfile(), build(), replace=True)
