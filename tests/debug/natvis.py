# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""Evaluates every expression of the natvis file $natvis for every variable of its type in the stopped
program: it must give the numbers that gdb's own views show, in their order and under their names. What
decides whether a box or sphere is empty must be right, and every Euler order has its name."""

import fnmatch
import math
import re
import xml.etree.ElementTree

import gdb.types

path = gdb.convenience_variable("natvis").string()
variables = [(s.name, gdb.types.get_basic_type(s.type).tag) for s in gdb.selected_frame().block()]
NAMES = ["x y", "x y z", "x y z w", "w x y z", "a b c d upper lower", "min max", "center radius",
         "p1 p2", "left right bottom top far near", "[0] [1] [2] order", "mask mask stack", "",
         " ".join("(%d, %d)" % (r, c) for r in range(4) for c in range(4))]


def evaluate(expression, name):
    expression = re.sub(r"(?<![\w.])([a-zA-Z]+_|p[12])(?!\w)", name + r".\1", expression)
    value = gdb.parse_and_eval(re.sub(r",b$", "", expression))
    value.fetch_lazy()
    return value


def numbers(value):
    """Those in what gdb shows of a value, without text such as the name of an order."""
    return [float(x) for x in re.findall(r"(?<!\w)-?(?:\d[\d.]*(?:e[-+]\d+)?|nan|inf)\b",
                                         value.format_string())]


def check_numbers(expressions, name):
    shown = [x for e in expressions if "order_" not in e for x in numbers(evaluate(e, name))]
    viewed = numbers(gdb.parse_and_eval(name))
    for a, b in zip(shown, viewed):
        assert a == b or math.isclose(a, b, rel_tol=1e-5, abs_tol=1e-40) or math.isnan(a + b), (name, shown, viewed)


for kind in xml.etree.ElementTree.parse(path).getroot().findall("{*}Type"):
    items = kind.findall("{*}Expand/{*}Item")
    assert " ".join(item.get("Name") for item in items) in NAMES, kind.get("Name")
    for pattern in [kind.get("Name")] + [a.get("Name") for a in kind.findall("{*}AlternativeType")]:
        names = [n for n, tag in variables if fnmatch.fnmatchcase(tag or "", pattern)]
        assert names, "no variable of type " + pattern
        for name in names:
            displays = kind.findall("{*}DisplayString")
            texts = [e.text for e in kind.findall(".//{*}Expand//*") if not len(e)]
            for text in texts:
                evaluate(text, name)
            shown = next(d for d in displays
                         if "Condition" not in d.keys() or evaluate(d.get("Condition"), name))
            empty = "mpty" in name or name in ("flat", "noBox")
            assert shown.text.startswith("empty") == empty, name
            if pattern != "KyMath::Polytope":
                check_numbers([e.text for e in items], name)
                for display in displays:
                    check_numbers(re.findall("{(.*?)}", display.text), name)

for name, order in gdb.types.make_enum_dict(gdb.lookup_type("Ky::KyEulerAngles::eEulerOrder")).items():
    gdb.execute("set var euler.order_ = %d" % order)
    shown = gdb.parse_and_eval("euler").format_string()
    name = name.split("::")[-1]
    assert shown.startswith(name + " ") or shown.startswith("eXYZs + " + name), shown
gdb.write("natvis: all expressions hold\n")
