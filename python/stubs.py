# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""stubs.py FOLDER: what type checkers know of kymath, which is on the path. Types of functions are those of
their docstrings; those of operators and attributes are tried out."""
import pathlib
import sys
import types

import numpy

import kymath

HEAD = """\
from _typeshed import structseq
from collections.abc import Iterator, Sequence
from typing import Any, Final, NoReturn, Protocol, TypeVar, final, overload

import numpy
"""
OWN = """
_V = TypeVar("_V")

class _Numbers(Protocol):
    def __len__(self) -> int: ...
    def __getitem__(self, index: Any, /) -> Any: ...

@final
class Decomposition(structseq[Any], tuple[_V, _V, _V, float]):
    __match_args__: Final = ("scale", "rotation", "translation", "sign")
    @property
    def scale(self) -> _V: ...
    @property
    def rotation(self) -> _V: ...
    @property
    def translation(self) -> _V: ...
    @property
    def sign(self) -> float: ...

"""
classes = {name: cls for name, cls in vars(kymath).items()
           if isinstance(cls, type) and cls is not kymath.Decomposition}
samples = [cls(*range(6)) if name == "Vector6" else cls() for name, cls in classes.items()] + [2.0]


def defined(name, arguments, result):
    return f"def {name}({arguments}) -> {result}: ..."


def functions(name, document, first="", decorator=()):
    """A definition for each of the lines that begin a docstring."""
    lines = [line for line in document.split("\n\n")[0].splitlines() if " -> " in line]
    for line in lines:
        arguments, result = line.partition("(")[2].split(") -> ")
        arguments = arguments.replace("list[", "Sequence[").replace("Numbers", "_Numbers")
        yield from (["@overload"] if len(lines) > 1 else [])
        yield from decorator
        yield defined(name, ", ".join(filter(None, [first, arguments, "/" if first or arguments else ""])), result)


def typeOf(call, *arguments):
    """The type of a result, or None if it is refused."""
    try:
        result = call(*arguments)
    except TypeError:
        return None
    return None if result is NotImplemented else type(result).__name__


def operators(name, cls, sample):
    """A definition for each type of the other operand."""
    if name in ("__eq__", "__ne__"):
        return [defined(name, "self, other: object, /", "bool")]
    found = [(type(other).__name__, typeOf(getattr(cls, name), sample, other)) for other in samples]
    forms = [form for form in found if form[1]] or [("NoReturn", "NoReturn")]
    # C++ has no v *= w that changes the type of v.
    note = "  # type: ignore[misc]" if name == "__imul__" else ""
    return [line for n, (other, result) in enumerate(forms)
            for line in ["@overload" + (note if n == 0 else "")] * (len(forms) > 1)
            + [defined(name, f"self, other: {other}, /", result)]]


FIXED = {"__len__": ("self", "int"), "__repr__": ("self", "str"), "__str__": ("self", "str"), "__float__":
         ("self", "NoReturn"), "__int__": ("self", "NoReturn"), "__delitem__": ("self, index: Any, /", "NoReturn")}


def members(cls, sample):
    name = cls.__name__
    yield from functions("__init__", cls.__doc__.replace(f"-> {name}", "-> None"), "self")
    tabulated = typeOf(iter, sample) is None
    index = "tuple[int, int]" if tabulated else "int"
    for key, member in vars(cls).items():
        if key in FIXED:
            yield defined(key, *FIXED[key])
        elif key == "__iter__":
            yield defined(key, "self", "NoReturn" if tabulated else "Iterator[float]")
        elif key == "__getitem__":
            yield defined(key, f"self, index: {index}, /", "float")
        elif key == "__setitem__":
            yield defined(key, f"self, index: {index}, number: float, /", "None")
        elif key in ("__copy__", "__neg__"):
            yield defined(key, "self", name)
        elif key == "__deepcopy__":
            yield defined(key, "self, memo: Any, /", name)
        elif key == "__hash__":
            yield "__hash__: None  # type: ignore[assignment]"
        elif isinstance(member, types.WrapperDescriptorType):
            yield from operators(key, cls, sample)
        elif isinstance(member, types.MethodDescriptorType) and key != "__reduce__":
            yield from functions(key, member.__doc__, "self")
        elif isinstance(member, staticmethod):
            yield from functions(key, getattr(cls, key).__doc__, decorator=["@staticmethod"])
        elif not key.startswith("__") or key == "__array_priority__":
            yield f"{key}: {type(getattr(sample, key)).__name__}"


def write(folder, module):
    """What is in a module, and the modules in it."""
    text, imports = OWN if module is kymath else "", ""
    folder.mkdir(exist_ok=True)
    for name, member in vars(module).items():
        if isinstance(member, types.ModuleType) and not name.startswith("_"):
            write(folder / name, member)
            imports += f"from . import {name} as {name}\n"
        elif isinstance(member, numpy.ufunc):
            text += f"{name}: numpy.ufunc\n"
        elif isinstance(member, types.BuiltinFunctionType):
            text += "\n".join(functions(name, member.__doc__)) + "\n"
        elif name in classes:
            sample = samples[list(classes).index(name)]
            text += f"@final\nclass {name}:\n    " + "\n    ".join(members(member, sample)) + "\n\n"
        elif isinstance(member, (int, float)) or name == "__libm__":
            text += f"{name}: {type(member).__name__}\n"
    if module is not kymath and "def " in text:
        imports = f"from kymath import Decomposition, {', '.join(classes)}\n"
    (folder / "__init__.pyi").write_text(HEAD + imports + text)


kymath.arrays
write(pathlib.Path(sys.argv[1]), kymath)
