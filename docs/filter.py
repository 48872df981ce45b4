# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""filter.py FILE: prints a header or page as Doxygen is to read it.

Of a page, headings get the names that a forge gives them, so that links find them, and links to files
that are not pages lead to copies beside the pages. Of a header, what only compilers need is left out.
"""
import pathlib
import re
import sys


def slug(heading):
    """The name that a forge gives to a heading."""
    return re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")


def pieces(text):
    """Prose and fenced code of a page, in turns."""
    return re.split(r"^(```.*?^```)$", text, flags=re.M | re.S)


def name(path):
    """What Doxygen knows a page by."""
    return "index" if path.resolve() == pathlib.Path("README.md").resolve() else path.stem


def link(page, match):
    text, target = " ".join(match[1].split()), match[2]  # Doxygen loses its way at a line end
    path, _, anchor = target.partition("#")
    if ":" in target:
        return match[0]
    if anchor:
        return f"[{text}](#{pathlib.Path(path or page).stem}-{anchor})"
    if path.endswith(".md"):
        return f"[{text}](@ref {name(page.parent / path)})"
    return f'<a href="{pathlib.Path(path).name}">{text}</a>'


def page(path):
    def prose(text):
        # Doxygen emphasises nothing that begins with code or a bracket.
        text = re.sub(r"\*\*(`[^*]*)\*\*", r"<b>\1</b>", text)
        text = re.sub(r"(?<!\*)\*([(`[][^*]*)\*", r"<em>\1</em>", text)
        text = re.sub(r"(?<!!)\[([^]]*)\]\(([^)]*)\)", lambda m: link(path, m), text)
        return re.sub(r"^(#+) (.*)$", heading, text, flags=re.M)

    def heading(match):
        anchor = f"{path.stem}-{slug(match[2])}"
        if match[1] == "#":
            return f"# {match[2]} {{#{'mainpage' if first else path.stem}}}"
        if first:  # whose sections would come first in the tree
            return f"@anchor {anchor}\n<h{len(match[1])}>{match[2]}</h{len(match[1])}>"
        return f"{match[0]} {{#{anchor}}}"

    first = name(path) == "index"
    text = re.sub(r"\A<!--.*?-->\n", "", path.read_text(), flags=re.S)
    return "".join(t if t.startswith("```") else prose(t) for t in pieces(text))


FAMILIES = {
    "Vectors": "Vector2 Vector3 Vector4 Vector6",
    "Rotations": "Quaternion KyEulerAngles",
    "Matrices and transforms": "Matrix Transformation KyTransform",
    "Bounds and lines": "BoundingBox BoundingSphere Plane Polytope Frustum Lines Rays",
    "Curves": "Curves",
    "Arrays": "Batch",
    "Conversions": "Convert",
    "Standard library": "Format Hash Span Unpack",
    "Tolerances": "Tolerance",
}
DELETED = r"(^ *///(?! ?@).*\n)*(^ *template <.*>\n)?^ *(?=[^/\s])[^;{}]*= delete;.*\n(^ *///<.*\n)*"


def family(header):
    """What Doxygen knows the family of a header by; of names alone, none."""
    families = [slug(title) for title, headers in FAMILIES.items() if header in headers.split()]
    if not families and header not in ("Export", "Forward", "KyReal"):
        sys.exit(f"docs/filter.py: to which family does {header}.h belong?")
    return families


def header(path):
    text = re.sub(r"^template <>\nconst .*\n", "", path.read_text(), flags=re.M)
    text = re.sub(r",\s+(KyMath::)?internal::If<.*?> = 0>", ">", text)
    text = re.sub(r'\s+KY_DELETED\(".*?"\)', " = delete", text)
    text = re.sub(DELETED, "", text, flags=re.M)
    if path.stem == "KyMath":
        return text + "".join(f"/// @defgroup {slug(title)} {title}\n" for title in FAMILIES)
    for group in family(path.stem) if "namespace" in text else ():
        begin, end = f"\n/// @addtogroup {group}\n/// @{{\n", "\n/// @}\n"
        text = text.replace("/// @file\n", f"/// @file\n/// @ingroup {group}\n")
        text = re.sub(r"^namespace (Ky|KyMath) {$", rf"\g<0>{begin}", text, flags=re.M)
        text = re.sub(r"^}  // namespace (Ky|KyMath)$", rf"{end}\g<0>", text, flags=re.M)
    return text.replace(" . ", " \u00b7 ")  # a dot product, not the end of a sentence


if __name__ == "__main__":
    path = pathlib.Path(sys.argv[1])
    print(page(path) if path.suffix == ".md" else header(path), end="")
