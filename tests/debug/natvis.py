# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""Evaluates every expression of the natvis file $natvis for every variable of its type in the stopped
program: its names must exist. What decides whether a box or sphere is empty must be right."""

import fnmatch
import re
import xml.etree.ElementTree

import gdb.types

path = gdb.convenience_variable("natvis").string()
variables = [(s.name, gdb.types.get_basic_type(s.type).tag) for s in gdb.selected_frame().block()]


def evaluate(expression, name):
    expression = re.sub(r"(?<![\w.])([a-zA-Z]+_|p[12])(?!\w)", name + r".\1", expression)
    value = gdb.parse_and_eval(re.sub(r",b$", "", expression))
    value.fetch_lazy()
    return value


for kind in xml.etree.ElementTree.parse(path).getroot().findall("{*}Type"):
    for pattern in [kind.get("Name")] + [a.get("Name") for a in kind.findall("{*}AlternativeType")]:
        names = [n for n, tag in variables if fnmatch.fnmatchcase(tag or "", pattern)]
        assert names, "no variable of type " + pattern
        for name in names:
            displays = kind.findall("{*}DisplayString")
            texts = [e for d in displays for e in re.findall("{(.*?)}", d.text)]
            texts += [e.text for e in kind.findall(".//{*}Expand//*") if not len(e)]
            for text in texts:
                evaluate(text, name)
            shown = next(d for d in displays
                         if "Condition" not in d.keys() or evaluate(d.get("Condition"), name))
            empty = "mpty" in name or name in ("flat", "noBox")
            assert shown.text.startswith("empty") == empty, name
gdb.write("natvis: all expressions hold\n")
